// The form as a window of Windows' own controls, which the dialog resource describes.

#define NOMINMAX
#include <windows.h>
// which must stand before these
#include <commctrl.h>
#include <commdlg.h>

#include <cstdlib>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "files/disk.h"
#include "files/utf16.h"
#include "platform/platform.h"
#include "window/captions.h"
#include "window/events.h"
#include "window/win32/resource.h"

namespace velmoran {

namespace {

constexpr std::size_t TipColumns = 80;
constexpr int TitlePercent = 220;     // the size of Label1, in hundredths of the system font's
constexpr int RuleHeight = 2;         // in pixels at any dpi: a rule draws no more, and erases nothing below
constexpr DWORD LongestPath = 32768;  // in UTF-16 units, with the zero behind it

struct Place {
  HWND control;
  RECT area;  // in the client area
};

struct DeleteFont {
  void operator()(HFONT font) const { DeleteObject(font); }
};
using Font = std::unique_ptr<std::remove_pointer_t<HFONT>, DeleteFont>;

// What the functions of the seam work on.
struct Form {
  RunState* run;
  HWND window, tip;
  int letter;  // the height of the system font's letters
  Font text, title;
  // as the resource makes it
  int firstLetter;
  SIZE client;
  std::vector<Place> places;
};
Form form;

HWND ControlOf(int id) {
  return GetDlgItem(form.window, id);
}

HWND ControlOf(Button button) {
  return ControlOf(IDC_OpenB + static_cast<int>(button));
}

void SetText(int id, std::string_view text) {
  SetWindowTextW(ControlOf(id), ToUtf16(text).c_str());
}

SIZE SizeOf(const RECT& area) {
  return {area.right - area.left, area.bottom - area.top};
}

// A function that Windows has had since version 10 only; null before.
template <class Function>
Function* Newer(const char* name) {
  const FARPROC found = GetProcAddress(GetModuleHandleW(L"user32"), name);
  return reinterpret_cast<Function*>(reinterpret_cast<void*>(found));
}

int DpiOf(HWND window) {
  if (const auto dpiForWindow = Newer<UINT WINAPI(HWND)>("GetDpiForWindow")) {
    return static_cast<int>(dpiForWindow(window));
  }
  const HDC screen = GetDC(nullptr);
  const int dpi = GetDeviceCaps(screen, LOGPIXELSY);
  ReleaseDC(nullptr, screen);
  return dpi;
}

// A length of the form as the resource makes it, for the letters of the moment.
int Scaled(LONG length) {
  return MulDiv(static_cast<int>(length), form.letter, form.firstLetter);
}

// The size of the window in which the client area is as large as the resource makes it.
SIZE LeastSize() {
  RECT window, client;
  GetWindowRect(form.window, &window);
  GetClientRect(form.window, &client);
  const SIZE whole = SizeOf(window);
  return {Scaled(form.client.cx) + whole.cx - client.right, Scaled(form.client.cy) + whole.cy - client.bottom};
}

// Gives the controls the system font at the dpi.
void SetFonts(int dpi) {
  NONCLIENTMETRICSW system{};
  system.cbSize = sizeof system;
  if (const auto infoForDpi = Newer<BOOL WINAPI(UINT, UINT, PVOID, UINT, UINT)>("SystemParametersInfoForDpi")) {
    infoForDpi(SPI_GETNONCLIENTMETRICS, sizeof system, &system, 0, static_cast<UINT>(dpi));
  } else {
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof system, &system, 0);
  }
  LOGFONTW& font = system.lfMessageFont;
  form.letter = std::abs(font.lfHeight);
  Font text(CreateFontIndirectW(&font));
  font.lfHeight = MulDiv(font.lfHeight, TitlePercent, 100);
  Font title(CreateFontIndirectW(&font));
  for (const Place& place : form.places) {
    const bool large = place.control == ControlOf(IDC_Label1);
    SendMessageW(place.control, WM_SETFONT, reinterpret_cast<WPARAM>(large ? title.get() : text.get()), TRUE);
  }
  form.text = std::move(text);
  form.title = std::move(title);
}

// Puts the controls where the form's size wants them: a button stays in the middle, everything else is as wide as the
// form, and HintT takes the height that is left over.
void Arrange() {
  RECT client;
  GetClientRect(form.window, &client);
  const int wider = client.right - Scaled(form.client.cx), taller = client.bottom - Scaled(form.client.cy);
  for (const auto& [control, area] : form.places) {
    const int id = GetDlgCtrlID(control);
    const bool isButton = id >= IDC_OpenB && id <= IDC_ExitB, isRule = id >= IDC_Line1 && id <= IDC_Line6;
    const bool isBelowHint = id == IDC_Line6 || id == IDC_ExitB;
    const int x = Scaled(area.left) + (isButton ? wider / 2 : 0), y = Scaled(area.top) + (isBelowHint ? taller : 0);
    const int width = Scaled(SizeOf(area).cx) + (isButton ? 0 : wider);
    const int height = isRule ? RuleHeight : Scaled(SizeOf(area).cy) + (id == IDC_HintT ? taller : 0);
    SetWindowPos(control, nullptr, x, y, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
  }
  RedrawWindow(form.window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

// Shows the whole of ltarget's caption in its tool tip, for the eye sees a long one shortened in the middle.
void SetTip(std::string_view text) {
  std::wstring wide = ToUtf16(text);
  for (std::size_t begin = 0; wide.size() - begin > TipColumns; ++begin) {  // a line of its own for each so many
    const std::size_t separator = wide.rfind(L'\\', begin + TipColumns);
    begin = separator == std::wstring::npos || separator < begin ? begin + TipColumns : separator + 1;
    wide.insert(begin, 1, L'\n');
  }
  TOOLINFOW tool{};
  tool.cbSize = sizeof tool;
  tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  tool.hwnd = form.window;
  tool.uId = reinterpret_cast<UINT_PTR>(ControlOf(IDC_ltarget));
  tool.lpszText = wide.data();
  SendMessageW(form.tip, TTM_SETMAXTIPWIDTH, 0, GetSystemMetrics(SM_CXSCREEN));
  SendMessageW(form.tip, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

HICON IconOf(int widthMetric, int heightMetric) {
  return static_cast<HICON>(LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDI_Velmoran), IMAGE_ICON,
                                       GetSystemMetrics(widthMetric), GetSystemMetrics(heightMetric), LR_DEFAULTCOLOR));
}

void BeginForm(HWND window) {
  form.window = window;
  constexpr int DisableAll = 7;  // of what a dialog does by itself when the dpi changes: this form does it
  if (const auto setBehavior = Newer<BOOL WINAPI(HWND, int, int)>("SetDialogDpiChangeBehavior")) {
    setBehavior(window, DisableAll, DisableAll);
  }
  LOGFONTW font;
  GetObjectW(reinterpret_cast<HGDIOBJ>(SendMessageW(window, WM_GETFONT, 0, 0)), sizeof font, &font);
  form.firstLetter = std::abs(font.lfHeight);
  RECT area;
  GetClientRect(window, &area);
  form.client = SizeOf(area);
  for (HWND control = GetWindow(window, GW_CHILD); control != nullptr; control = GetWindow(control, GW_HWNDNEXT)) {
    GetWindowRect(control, &area);
    MapWindowPoints(nullptr, window, reinterpret_cast<POINT*>(&area), 2);
    form.places.push_back({control, area});
  }
  SetFonts(DpiOf(window));
  const SIZE least = LeastSize();
  SetWindowPos(window, nullptr, 0, 0, least.cx, least.cy, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);

  SetWindowTextW(window, ToUtf16(captions::Mission).c_str());
  SetText(IDC_Label1, captions::Label1);
  SetText(IDC_Label2, captions::Label2);
  SetText(IDC_OpenB, captions::OpenB);
  SetText(IDC_ltarget, captions::ltarget);
  SetText(IDC_MassageB, captions::MassageB);
  SetText(IDC_ReportB, captions::ReportB);
  SetText(IDC_WriteB, captions::WriteB);
  SetText(IDC_ExitB, captions::ExitB);
  form.tip = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_NOPREFIX | TTS_ALWAYSTIP, 0, 0, 0,
                             0, window, nullptr, nullptr, nullptr);
  SendMessageW(window, WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(IconOf(SM_CXICON, SM_CYICON)));
  SendMessageW(window, WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(IconOf(SM_CXSMICON, SM_CYSMICON)));
}

// Does a button's event. Where that disables the button, the next control that can have the focus takes it.
void Do(Button button) noexcept {
  Press(*form.run, button);
  if (IsWindowEnabled(ControlOf(button))) return;
  const HWND next = GetNextDlgTabItem(form.window, ControlOf(button), FALSE);
  SendMessageW(form.window, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(next), TRUE);
}

INT_PTR CALLBACK FormEvent(HWND window, UINT message, WPARAM word, LPARAM value) {
  switch (message) {
    case WM_INITDIALOG:
      BeginForm(window);
      return TRUE;
    case WM_COMMAND:
      if (HIWORD(word) == BN_CLICKED && LOWORD(word) >= IDC_OpenB && LOWORD(word) <= IDC_ExitB) {
        Do(static_cast<Button>(LOWORD(word) - IDC_OpenB));
      } else if (HIWORD(word) == EN_SETFOCUS && LOWORD(word) == IDC_HintT) {
        SendMessageW(ControlOf(IDC_HintT), EM_SETSEL, 0, 0);  // a dialog has just selected all of it
      }
      return TRUE;
    case WM_CLOSE:
      ExitB_Click(*form.run);  // doesn't return
    case WM_SIZE:
      if (word != SIZE_MINIMIZED) Arrange();
      return TRUE;
    case WM_GETMINMAXINFO:
      if (form.letter != 0) {
        const SIZE least = LeastSize();
        reinterpret_cast<MINMAXINFO*>(value)->ptMinTrackSize = {least.cx, least.cy};
      }
      return TRUE;
    case WM_DPICHANGED: {
      SetFonts(HIWORD(word));
      const RECT& area = *reinterpret_cast<const RECT*>(value);
      const SIZE size = SizeOf(area);
      SetWindowPos(window, nullptr, area.left, area.top, size.cx, size.cy, SWP_NOZORDER | SWP_NOACTIVATE);
      Arrange();  // also where the size stays
      return TRUE;
    }
    default:
      return FALSE;
  }
}

// Shows one of the common dialogs. It begins in the folder of the path that it is given, and lists by its name where
// that is a pattern.
std::string Ask(BOOL(WINAPI* show)(OPENFILENAMEW*), std::string_view directory, std::string_view fileName) {
  const std::wstring before = ToUtf16(CurrentDirectory());
  const std::wstring folder = ToUtf16(directory), name = ToUtf16(fileName), filter = name + L'\0' + name + L'\0';
  std::wstring path = folder + L"\\" + name;
  path.resize(LongestPath);
  OPENFILENAMEW dialog{};
  dialog.lStructSize = sizeof dialog;
  dialog.hwndOwner = form.window;
  if (name.find(L'*') != std::wstring::npos) dialog.lpstrFilter = filter.c_str();
  dialog.lpstrFile = path.data();
  dialog.nMaxFile = LongestPath;
  dialog.Flags = OFN_EXPLORER | OFN_NOCHANGEDIR | OFN_HIDEREADONLY | OFN_DONTADDTORECENT;
  BOOL chosen = show(&dialog);
  if (!chosen && CommDlgExtendedError() != 0) {  // not Cancel: the dialog can't begin with this path
    path.assign(name).resize(LongestPath);
    dialog.lpstrInitialDir = folder.c_str();
    chosen = show(&dialog);
  }
  SetCurrentDirectoryW(before.c_str());  // the open dialog may leave another one all the same
  return chosen ? ToUtf8(path.c_str()) : std::string(fileName);
}

}  // namespace

std::string ShowOpenDialog(std::string_view directory, std::string_view fileName) {
  return Ask(GetOpenFileNameW, directory, fileName);
}

std::string ShowSaveDialog(std::string_view directory, std::string_view fileName) {
  return Ask(GetSaveFileNameW, directory, fileName);
}

void EnableButton(Button button, bool enabled) {
  EnableWindow(ControlOf(button), enabled ? TRUE : FALSE);
}

void SetHintText(std::string_view text) {
  SetText(IDC_HintT, text);
}

void SetTargetCaption(std::string_view text) {
  SetText(IDC_ltarget, text);
  SetTip(text);
}

void ShowMessage(std::string_view text) {
  const HWND owner = IsWindowVisible(form.window) ? form.window : nullptr;
  MessageBoxW(owner, ToUtf16(text).c_str(), ToUtf16(captions::Label1).c_str(), MB_OK);
}

void EndProgram(bool failed) {
  ExitProcess(failed ? EXIT_FAILURE : EXIT_SUCCESS);
}

}  // namespace velmoran

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE /*before*/, PWSTR /*commandLine*/, int show) {
  using namespace velmoran;
  const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_STANDARD_CLASSES | ICC_BAR_CLASSES};
  InitCommonControlsEx(&classes);
  const auto run = std::make_unique<RunState>();
  form.run = run.get();
  if (CreateDialogParamW(instance, MAKEINTRESOURCEW(IDD_Mission), nullptr, FormEvent, 0) == nullptr)
    return EXIT_FAILURE;
  Form_Load(*run);
  ShowWindow(form.window, show);

  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    // In a text of several lines Escape would close the form.
    if (message.message == WM_KEYDOWN && message.wParam == VK_ESCAPE) continue;
    if (IsDialogMessageW(form.window, &message)) continue;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  return EXIT_SUCCESS;
}
