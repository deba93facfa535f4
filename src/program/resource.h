// The number of the icon, which every program for Windows has under the same one.
#pragma once

#define IDI_Velmoran 1
