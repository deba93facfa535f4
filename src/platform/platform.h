// What the logic asks of a front end. Each front end implements all of it and owns main; an executable links one.
// Texts and paths are UTF-8. Dialogs and message boxes are modal: they return when the user has closed them.
#pragma once

#include <string>
#include <string_view>

namespace velmoran {

enum class Button { OpenB, MassageB, ReportB, WriteB, ExitB };

// Shows the open-file or the save-file dialog, beginning in the directory with the text given in its file name field.
// Gives the field's text when the dialog closes: after Cancel it is as it went in. In the open dialog the field's
// text also is the pattern of the names listed.
std::string ShowOpenDialog(std::string_view directory, std::string_view fileName);
std::string ShowSaveDialog(std::string_view directory, std::string_view fileName);

// Every button is enabled when the form is built.
void EnableButton(Button button, bool enabled);

// Sets the text of the hint box HintT.
void SetHintText(std::string_view text);

// Sets the caption of the label ltarget.
void SetTargetCaption(std::string_view text);

// Shows the text in a box with one OK button and the default title.
void ShowMessage(std::string_view text);

// Ends the program at once: no question, nothing saved. failed says that a failure is the reason.
[[noreturn]] void EndProgram(bool failed);

}  // namespace velmoran
