// The numbers that tie the dialog resource to the code. Those of the buttons follow the order of velmoran::Button.
#pragma once

#define IDD_Mission 2

// in dialog units
#define FormWidth 280
#define FormHeight 296

#define IDC_OpenB 101
#define IDC_MassageB 102
#define IDC_ReportB 103
#define IDC_WriteB 104
#define IDC_ExitB 105
#define IDC_HintT 106
#define IDC_ltarget 107
#define IDC_Label1 108
#define IDC_Label2 109
#define IDC_Line1 111
#define IDC_Line2 112
#define IDC_Line3 113
#define IDC_Line4 114
#define IDC_Line5 115
#define IDC_Line6 116
