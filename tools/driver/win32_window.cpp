// The Windows window as another process: started here, pressed by message, its texts read back.
#define NOMINMAX
#include <windows.h>
// what needs it
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <utility>

#include "driver.h"
#include "window/win32/resource.h"

namespace driver {

namespace {

constexpr std::pair<const char*, int> Ids[] = {
    {"OpenB", IDC_OpenB},   {"MassageB", IDC_MassageB}, {"ReportB", IDC_ReportB}, {"WriteB", IDC_WriteB},
    {"ExitB", IDC_ExitB},   {"HintT", IDC_HintT},       {"ltarget", IDC_ltarget}, {"Label1", IDC_Label1},
    {"Label2", IDC_Label2}, {"Line1", IDC_Line1},       {"Line2", IDC_Line2},     {"Line3", IDC_Line3},
    {"Line4", IDC_Line4},   {"Line5", IDC_Line5},       {"Line6", IDC_Line6},
};
constexpr int NameCombo = 0x47c, NameEdit = 0x480, TypeCombo = 0x470, BoxText = 0xffff;

PROCESS_INFORMATION program{};
HWND form = nullptr, top = nullptr;  // top: the dialog or box before the form

std::string Text(HWND window) {
  std::wstring wide(4096, L'\0');
  wide.resize(
      static_cast<std::size_t>(SendMessageW(window, WM_GETTEXT, wide.size(), reinterpret_cast<LPARAM>(wide.data()))));
  std::string text(wide.size() * 3, '\0');
  text.resize(
      static_cast<std::size_t>(WideCharToMultiByte(CP_UTF8, 0, wide.data(), static_cast<int>(wide.size()), text.data(),
                                                   static_cast<int>(text.size()), nullptr, nullptr)));
  return text;
}

HWND Find(const std::string& control) {
  const auto* found = std::ranges::find(Ids, control, [](const auto& id) { return std::string(id.first); });
  return GetDlgItem(form, found->second);
}

std::string NameOf(HWND control) {
  const int number = GetDlgCtrlID(control);
  const auto* found = std::ranges::find(Ids, number, [](const auto& id) { return id.second; });
  return found == std::end(Ids) ? "" : found->first;
}

BOOL CALLBACK TakeWindow(HWND window, LPARAM /*unused*/) {
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  if (process != program.dwProcessId || !IsWindowVisible(window)) return TRUE;
  if (GetDlgItem(window, IDC_OpenB) != nullptr) {
    form = window;
  } else if (GetDlgItem(window, BoxText) != nullptr || GetDlgItem(window, IDCANCEL) != nullptr) {
    top = window;
  }
  return TRUE;
}

HWND NameField() {
  if (HWND edit = GetDlgItem(top, NameEdit)) return edit;
  HWND field = GetDlgItem(top, NameCombo);
  while (HWND inner = GetWindow(field, GW_CHILD)) field = inner;
  return field;
}

// Presses a button of the dialog or box and waits until that is gone, or is seen to stay.
void Leave(int button) {
  const HWND left = top;
  PostMessageW(left, WM_COMMAND, static_cast<WPARAM>(button), reinterpret_cast<LPARAM>(GetDlgItem(left, button)));
  for (int i = 0; i < 50 && IsWindowVisible(left); ++i) Sleep(10);
}

// The form takes what is posted in its order, and the caret's place in HintT can be seen from here: once it is
// the mark, everything posted before has begun.
int mark = 1;

bool MarkSeen() {
  const HWND hint = GetDlgItem(form, IDC_HintT);
  if (SendMessageW(hint, EM_GETSEL, 0, 0) == MAKELRESULT(mark, mark)) return true;
  PostMessageW(hint, EM_SETSEL, static_cast<WPARAM>(mark), mark);
  return false;
}

// Waits until the form or what it opens takes input again.
void Settle() {
  mark = mark % 50 + 1;
  for (int i = 0; i < Patience && FrontNow() == Front::Nothing; ++i) Sleep(2);
}

HWND FocusedControl() {
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  GetGUIThreadInfo(program.dwThreadId, &info);
  return info.hwndFocus;
}

// The area in the client area of the form.
RECT AreaOf(HWND control) {
  RECT area;
  GetWindowRect(control, &area);
  MapWindowPoints(nullptr, form, reinterpret_cast<POINT*>(&area), 2);
  return area;
}

bool InSight(HWND control) {
  const RECT area = AreaOf(control);
  RECT client;
  GetClientRect(form, &client);
  return area.left >= 0 && area.top >= 0 && area.right <= client.right && area.bottom <= client.bottom;
}

std::string announced;  // the text of HintT at the last event for screen readers

void CALLBACK Announce(HWINEVENTHOOK, DWORD, HWND control, LONG object, LONG, DWORD, DWORD) {
  if (object == OBJID_CLIENT && GetDlgCtrlID(control) == IDC_HintT) announced = Text(control);
}

// Has Announce called for the events since the last call.
void TakeEvents() {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
}

std::string FlawOfForm() {
  MONITORINFO screen{};
  screen.cbSize = sizeof screen;
  GetMonitorInfoW(MonitorFromWindow(form, MONITOR_DEFAULTTONEAREST), &screen);
  RECT window, both;
  GetWindowRect(form, &window);
  UnionRect(&both, &window, &screen.rcWork);
  return EqualRect(&both, &screen.rcWork) ? "" : "beyond the screen";
}

std::string Flaw(HWND control) {
  if (control == FocusedControl() && !InSight(control)) return "out of sight";
  if (GetDlgCtrlID(control) != IDC_HintT) return "";
  if (Text(GetWindow(control, GW_HWNDPREV)) != "Hint") return "without its name";
  static const std::string textAtStart = Text(control);
  if (Text(control) != textAtStart && Text(control) != announced) return "unannounced";
  if ((GetWindowLongPtrW(control, GWL_STYLE) & ES_READONLY) == 0) return "editable";
  const auto topOf = [control](LRESULT line) {
    const LRESULT first = SendMessageW(control, EM_LINEINDEX, static_cast<WPARAM>(line), 0);
    return static_cast<short>(HIWORD(SendMessageW(control, EM_POSFROMCHAR, static_cast<WPARAM>(first), 0)));
  };
  const LRESULT last = SendMessageW(control, EM_GETLINECOUNT, 0, 0) - 1;
  RECT area;
  GetClientRect(control, &area);
  return topOf(last) + topOf(1) - topOf(0) > area.bottom ? "cut" : "";
}

}  // namespace

Front FrontNow() {
  DWORD status = 0;
  if (GetExitCodeProcess(program.hProcess, &status) && status != STILL_ACTIVE) std::exit(static_cast<int>(status));
  for (bool formReady = false;; formReady = true) {
    top = nullptr;
    EnumWindows(TakeWindow, 0);
    if (top != nullptr && GetDlgItem(top, BoxText) != nullptr) return Front::MessageBox;
    if (top != nullptr) return IsWindowVisible(NameField()) ? Front::FileDialog : Front::Nothing;
    if (formReady) return Front::Form;
    if (form == nullptr || !MarkSeen() || !IsWindowEnabled(form)) return Front::Nothing;
  }
}

bool FormIsShown() {
  return form != nullptr;
}
void CloseForm() {
  PostMessageW(form, WM_CLOSE, 0, 0);
}
void GiveUp() {
  TerminateProcess(program.hProcess, 3);
  std::exit(3);
}

std::vector<Control> Controls() {
  TakeEvents();
  std::vector<std::pair<LONG, HWND>> byHeight;
  for (HWND control = GetWindow(form, GW_CHILD); control != nullptr; control = GetWindow(control, GW_HWNDNEXT)) {
    RECT area;
    GetWindowRect(control, &area);
    byHeight.emplace_back(area.top, control);
  }
  std::ranges::sort(byHeight);
  std::vector<Control> all{{"Mission", Text(form), FlawOfForm()}};
  for (const auto& [height, control] : byHeight) {
    const std::string name = NameOf(control);
    all.push_back({name, name.starts_with("Line") ? "" : Text(control), Flaw(control)});  // a rule shows no text
  }
  return all;
}
std::string TextOf(const std::string& control) {
  return Text(Find(control));
}
bool IsEnabled(const std::string& control) {
  return IsWindowEnabled(Find(control));
}
bool IsInSight(const std::string& control) {
  return InSight(Find(control));
}
std::string Focused() {
  return NameOf(FocusedControl());
}
void TurnWheel(bool down) {
  PostMessageW(FocusedControl(), WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(down ? -WHEEL_DELTA : WHEEL_DELTA)), 0);
  Settle();
}
void Press(const std::string& control) {
  PostMessageW(Find(control), BM_CLICK, 0, 0);
  Settle();
}
void PressKey(const std::string& key) {
  const WPARAM code = key == "tab" ? VK_TAB : key == "space" ? VK_SPACE : VK_RETURN;
  const HWND focused = FocusedControl();
  SuspendThread(program.hThread);  // so that no move of the mouse comes between down and up, which would take it back
  PostMessageW(focused, WM_KEYDOWN, code, 1);
  PostMessageW(focused, WM_KEYUP, code, static_cast<LPARAM>(0xC0000001));
  ResumeThread(program.hThread);
  Settle();
}

std::string NameInDialog() {
  return Text(NameField()) + (Text(GetDlgItem(top, TypeCombo)).empty() ? "] without a type" : "");
}
void AnswerDialog(const std::string& name) {
  std::wstring wide(name.size() + 1, L'\0');
  MultiByteToWideChar(CP_UTF8, 0, name.c_str(), -1, wide.data(), static_cast<int>(wide.size()));
  SendMessageW(NameField(), EM_SETSEL, 0, -1);
  for (const wchar_t* unit = wide.c_str(); *unit != L'\0'; ++unit) SendMessageW(NameField(), WM_CHAR, *unit, 1);
  Leave(IDOK);
}
void CancelDialog() {
  Leave(IDCANCEL);
}
std::string MessageInBox() {
  return Text(GetDlgItem(top, BoxText));
}
bool BoxIsCentred() {
  MONITORINFO screen{};
  screen.cbSize = sizeof screen;
  GetMonitorInfoW(MonitorFromWindow(top, MONITOR_DEFAULTTONEAREST), &screen);
  RECT box;
  GetWindowRect(top, &box);
  const LONG right = box.left + box.right - screen.rcWork.left - screen.rcWork.right;
  const LONG down = box.top + box.bottom - screen.rcWork.top - screen.rcWork.bottom;
  return std::abs(right) + std::abs(down) < 100;
}
void AnswerBox() {
  Leave(GetDlgItem(top, IDOK) != nullptr ? IDOK : IDCANCEL);
}

}  // namespace driver

// The program to drive can be named; else it is the one that was built with the driver.
int main(int count, char** arguments) {
  using namespace driver;
  const std::filesystem::path own = arguments[0], built = own.parent_path() / "../../velmoran.exe";
  std::string command = "\"" + (count > 1 ? arguments[1] : built.string()) + "\"";
  STARTUPINFOA start{};
  start.cb = sizeof start;
  if (!CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &program))
    return 2;
  SetWinEventHook(EVENT_OBJECT_VALUECHANGE, EVENT_OBJECT_VALUECHANGE, nullptr, Announce, program.dwProcessId, 0,
                  WINEVENT_OUTOFCONTEXT);
  while (true) {
    TakeEvents();
    Step();
    Sleep(2);
  }
}
