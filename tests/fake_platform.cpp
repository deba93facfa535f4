#include <utility>

#include "fakes.h"

namespace fakes {

Form form;

namespace {

std::string Answer(const std::string& dialog, std::string_view directory, std::string_view name) {
  form.asked.push_back(dialog + " " + std::string(directory) + " [" + std::string(name) + "]");
  return std::exchange(form.answer, std::nullopt).value_or(std::string(name));
}

}  // namespace

}  // namespace fakes

namespace velmoran {

using fakes::form;

std::string ShowOpenDialog(std::string_view directory, std::string_view fileName) {
  return fakes::Answer("open", directory, fileName);
}
std::string ShowSaveDialog(std::string_view directory, std::string_view fileName) {
  return fakes::Answer("save", directory, fileName);
}
void EnableButton(Button button, bool enabled) {
  const auto place = static_cast<std::size_t>(button);
  form.buttons[place] = enabled ? "OMRWE"[place] : '-';
}
void SetHintText(std::string_view text) { form.hint = text; }
void SetTargetCaption(std::string_view text) { form.target = text; }
void ShowMessage(std::string_view text) { form.messages.emplace_back(text); }
void EndProgram(bool failed) { throw fakes::ProgramEnded{failed}; }

}  // namespace velmoran
