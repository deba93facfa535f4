// The form as a window of Windows' own controls, which the dialog resource describes.

#define NOMINMAX
#include <windows.h>
// After windows.h.
#include <commctrl.h>
#include <commdlg.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "events/captions.h"
#include "events/events.h"
#include "files/disk.h"
#include "files/utf16.h"
#include "platform/platform.h"
#include "program/dll_search.h"
#include "program/resource.h"
#include "window/win32/resource.h"

namespace velmoran {

namespace {

constexpr std::size_t TipColumns = 80;
constexpr int TitlePercent = 220;  // the size of Label1, in hundredths of the system font's
constexpr const wchar_t* TitleFaces[] = {L"MS Sans Serif", L"Microsoft Sans Serif"};  // the latter can be scaled
constexpr int RuleHeight = 2;   // in pixels at any dpi: a rule draws just these, and doesn't erase what is below them
constexpr int LeastSpace = 25;  // percent of the space between the controls that is left when the form scrolls
constexpr int ScrollLines = 3;  // for a click on the scroll bar's arrow, in lines of the system font
constexpr DWORD LongestPath = 32768;  // in UTF-16 units, with the final zero

struct Place {
  HWND control;
  RECT area;    // in the client area
  LONG spaces;  // the heights of all spaces above it, added up
};

struct DeleteFont {
  void operator()(HFONT font) const { DeleteObject(font); }
};
using Font = std::unique_ptr<std::remove_pointer_t<HFONT>, DeleteFont>;

// What the functions of platform.h work on.
struct Form {
  RunState* run;
  HWND window, tip;
  int letter;  // the height of the system font's letters
  Font text, title;
  // as in the dialog resource
  int resourceLetter;
  SIZE client;
  std::vector<Place> places;  // from top to bottom
  LONG spaces;
  // while the form is too low for all controls
  int scrolled;  // in pixels
  HWND shown;    // the last control to be scrolled to
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

// A function that only Windows 10 and later have; null on an older one.
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

int ScrollBarWidth() {
  if (const auto metricForDpi = Newer<int WINAPI(int, UINT)>("GetSystemMetricsForDpi")) {
    return metricForDpi(SM_CXVSCROLL, static_cast<UINT>(DpiOf(form.window)));
  }
  return GetSystemMetrics(SM_CXVSCROLL);
}

// Converts a length in the dialog resource to the current size of the letters.
int Scaled(LONG length) {
  return MulDiv(static_cast<int>(length), form.letter, form.resourceLetter);
}

// The size of the window whose client area has this size.
SIZE WindowSize(SIZE client) {
  RECT whole, inside;
  GetWindowRect(form.window, &whole);
  GetClientRect(form.window, &inside);
  const SIZE size = SizeOf(whole);
  return {client.cx + size.cx - inside.right, client.cy + size.cy - inside.bottom};
}

// Moves the window, and makes it smaller if necessary, so that all of it is in the work area of its screen.
void MoveIntoWorkArea(RECT window) {
  MONITORINFO screen{};
  screen.cbSize = sizeof screen;
  GetMonitorInfoW(MonitorFromRect(&window, MONITOR_DEFAULTTONEAREST), &screen);
  const SIZE size = SizeOf(window), room = SizeOf(screen.rcWork);
  const LONG width = std::min(size.cx, room.cx), height = std::min(size.cy, room.cy);
  const LONG x = std::clamp(window.left, screen.rcWork.left, screen.rcWork.right - width);
  const LONG y = std::clamp(window.top, screen.rcWork.top, screen.rcWork.bottom - height);
  SetWindowPos(form.window, nullptr, x, y, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
}

bool IsScalable(const LOGFONTW& font) {
  bool scalable = false;
  const auto see = [](const LOGFONTW*, const TEXTMETRICW*, DWORD type, LPARAM found) -> int {
    if ((type & TRUETYPE_FONTTYPE) != 0) *reinterpret_cast<bool*>(found) = true;
    return TRUE;
  };
  LOGFONTW face{};
  face.lfCharSet = DEFAULT_CHARSET;
  std::copy(std::begin(font.lfFaceName), std::end(font.lfFaceName), face.lfFaceName);
  const HDC screen = GetDC(nullptr);
  EnumFontFamiliesExW(screen, &face, see, reinterpret_cast<LPARAM>(&scalable), 0);
  ReleaseDC(nullptr, screen);
  return scalable;
}

// Gives the controls the system font in its size at this dpi.
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
  for (const wchar_t* face : TitleFaces) {
    LOGFONTW large = font;
    lstrcpynW(large.lfFaceName, face, LF_FACESIZE);
    if (!IsScalable(large)) continue;
    font = large;
    break;
  }
  Font title(CreateFontIndirectW(&font));
  for (const Place& place : form.places) {
    const bool large = place.control == ControlOf(IDC_Label1);
    SendMessageW(place.control, WM_SETFONT, reinterpret_cast<WPARAM>(large ? title.get() : text.get()), TRUE);
  }
  form.text = std::move(text);
  form.title = std::move(title);
}

// Sets the width of HintT. Returns the height that its whole text needs then.
int HintHeight(int width) {
  const HWND hint = ControlOf(IDC_HintT);
  RECT whole, text;
  GetWindowRect(hint, &whole);
  SetWindowPos(hint, nullptr, 0, 0, width, SizeOf(whole).cy, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOREDRAW);
  SendMessageW(hint, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&text));
  const HDC screen = GetDC(hint);
  const HGDIOBJ before = SelectObject(screen, form.text.get());
  TEXTMETRICW metrics;
  GetTextMetricsW(screen, &metrics);
  SelectObject(screen, before);
  ReleaseDC(hint, screen);
  const auto lines = static_cast<int>(SendMessageW(hint, EM_GETLINECOUNT, 0, 0));
  return lines * metrics.tmHeight + static_cast<int>(SizeOf(whole).cy - SizeOf(text).cy);
}

// How the controls fit a client area that is smaller or larger than in the dialog resource, in pixels.
struct Fit {
  int wider, hintTaller;  // negative: narrower, less tall
  int spaceLess;          // taken from all spaces together
  int height;             // of all controls
};
Fit FitTo(LONG width, LONG height) {
  const auto hint = std::ranges::find(form.places, IDC_HintT, [](const auto& p) { return GetDlgCtrlID(p.control); });
  const SIZE usual = {Scaled(SizeOf(hint->area).cx), Scaled(SizeOf(hint->area).cy)};
  Fit fit{};
  fit.wider = static_cast<int>(width) - Scaled(form.client.cx);
  fit.hintTaller = static_cast<int>(height) - Scaled(form.client.cy);
  if (fit.hintTaller < 0 || fit.wider < 0) {
    const int least = HintHeight(static_cast<int>(usual.cx) + fit.wider);
    fit.hintTaller = std::max(fit.hintTaller, least - static_cast<int>(usual.cy));
  }
  const int missing = Scaled(form.client.cy) + fit.hintTaller - static_cast<int>(height);
  fit.spaceLess = std::clamp(missing, 0, MulDiv(Scaled(form.spaces), 100 - LeastSpace, 100));
  fit.height = Scaled(form.client.cy) + fit.hintTaller - fit.spaceLess;
  return fit;
}

// Fits the controls to the form: buttons stay in the middle, everything else is as wide as the form, and HintT gets the
// height that is left. If the form is too low, HintT gives up its spare lines, then the space between the controls
// shrinks to LeastSpace, and then the form scrolls.
void Arrange() {
  RECT client;
  GetClientRect(form.window, &client);
  if ((GetWindowLongPtrW(form.window, GWL_STYLE) & WS_VSCROLL) != 0) client.right += ScrollBarWidth();
  Fit fit = FitTo(client.right, client.bottom);
  if (fit.height > client.bottom) fit = FitTo(client.right - ScrollBarWidth(), client.bottom);
  form.scrolled = std::clamp(form.scrolled, 0, std::max(0, fit.height - static_cast<int>(client.bottom)));
  for (const auto& [control, area, spaces] : form.places) {
    const int id = GetDlgCtrlID(control);
    const bool isButton = id >= IDC_OpenB && id <= IDC_ExitB, isRule = id >= IDC_Line1 && id <= IDC_Line6;
    const bool isBelowHint = id == IDC_Line6 || id == IDC_ExitB;
    const int higher = MulDiv(fit.spaceLess, static_cast<int>(spaces), static_cast<int>(form.spaces)) + form.scrolled;
    const int x = Scaled(area.left) + (isButton ? fit.wider / 2 : 0);
    const int y = Scaled(area.top) + (isBelowHint ? fit.hintTaller : 0) - higher;
    const int width = Scaled(SizeOf(area).cx) + (isButton ? 0 : fit.wider);
    const int height = isRule ? RuleHeight : Scaled(SizeOf(area).cy) + (id == IDC_HintT ? fit.hintTaller : 0);
    SetWindowPos(control, nullptr, x, y, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
  }
  SCROLLINFO bar{};
  bar.cbSize = sizeof bar;
  bar.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
  bar.nMax = fit.height - 1;
  bar.nPage = static_cast<UINT>(client.bottom);  // Windows hides the bar if a page is the whole range
  bar.nPos = form.scrolled;
  SetScrollInfo(form.window, SB_VERT, &bar, TRUE);
  RedrawWindow(form.window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

void ScrollTo(int position) {
  form.scrolled = position;
  Arrange();
}

// Does what the scroll bar or a key requests.
void Scroll(WORD request) {
  SCROLLINFO bar{};
  bar.cbSize = sizeof bar;
  bar.fMask = SIF_PAGE | SIF_TRACKPOS;
  GetScrollInfo(form.window, SB_VERT, &bar);
  const int line = ScrollLines * form.letter, page = static_cast<int>(bar.nPage);
  switch (request) {
    case SB_LINEUP:
      return ScrollTo(form.scrolled - line);
    case SB_LINEDOWN:
      return ScrollTo(form.scrolled + line);
    case SB_PAGEUP:
      return ScrollTo(form.scrolled - page);
    case SB_PAGEDOWN:
      return ScrollTo(form.scrolled + page);
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
      return ScrollTo(bar.nTrackPos);
    default:
      return;
  }
}

// Scrolls to the control that has the focus, unless the user scrolled away from it, or is pressing it with the mouse.
void ShowFocus() {
  const HWND focus = GetFocus();
  if (focus == form.shown || !IsChild(form.window, focus) || GetCapture() != nullptr) return;
  form.shown = focus;
  RECT client, area;
  GetClientRect(form.window, &client);
  GetWindowRect(focus, &area);
  MapWindowPoints(nullptr, form.window, reinterpret_cast<POINT*>(&area), 2);
  const int below = static_cast<int>(std::max(0L, area.bottom - client.bottom));
  const int above = static_cast<int>(std::max(0L, below - area.top));
  if (above > 0 || below > 0) ScrollTo(form.scrolled + below - above);
}

// Sets the tool tip of ltarget to its whole caption: the label shows a long one shortened in the middle.
void SetTip(std::string_view text) {
  std::wstring wide = ToUtf16(text);
  for (std::size_t begin = 0; wide.size() - begin > TipColumns; ++begin) {  // breaks it into lines
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
  constexpr int DisableAll = 7;  // that a dialog does when the dpi changes: this form does it instead
  if (const auto setBehavior = Newer<BOOL WINAPI(HWND, int, int)>("SetDialogDpiChangeBehavior")) {
    setBehavior(window, DisableAll, DisableAll);
  }
  LOGFONTW font;
  GetObjectW(reinterpret_cast<HGDIOBJ>(SendMessageW(window, WM_GETFONT, 0, 0)), sizeof font, &font);
  form.resourceLetter = std::abs(font.lfHeight);
  RECT area{0, 0, FormWidth, FormHeight};
  MapDialogRect(window, &area);  // not from the window, which is no larger than the screen
  form.client = SizeOf(area);
  LONG bottom = 0;
  for (HWND control = GetWindow(window, GW_CHILD); control != nullptr; control = GetWindow(control, GW_HWNDNEXT)) {
    GetWindowRect(control, &area);
    MapWindowPoints(nullptr, window, reinterpret_cast<POINT*>(&area), 2);
    form.spaces += area.top - bottom;
    bottom = area.bottom;
    form.places.push_back({control, area, form.spaces});
  }
  form.spaces += form.client.cy - bottom;
  SetFonts(DpiOf(window));

  SetWindowTextW(window, ToUtf16(captions::Mission).c_str());
  SetText(IDC_Label1, captions::Label1);
  SetText(IDC_Label2, captions::Label2);
  SetText(IDC_OpenB, captions::OpenB);
  SetText(IDC_ltarget, captions::ltarget);
  SetText(IDC_MassageB, captions::MassageB);
  SetText(IDC_ReportB, captions::ReportB);
  SetText(IDC_WriteB, captions::WriteB);
  SetText(IDC_ExitB, captions::ExitB);
  GetWindowRect(window, &area);
  const SIZE size = WindowSize({Scaled(form.client.cx), Scaled(form.client.cy)});
  MoveIntoWorkArea({area.left, area.top, area.left + size.cx, area.top + size.cy});
  form.tip = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_NOPREFIX | TTS_ALWAYSTIP, 0, 0, 0,
                             0, window, nullptr, nullptr, nullptr);
  SendMessageW(window, WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(IconOf(SM_CXICON, SM_CYICON)));
  SendMessageW(window, WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(IconOf(SM_CXSMICON, SM_CYSMICON)));
}

// Calls a button's event. If that disables the button, the next control that can have the focus gets it.
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
      if (word != SIZE_MINIMIZED && !form.places.empty()) Arrange();
      return TRUE;
    case WM_GETMINMAXINFO:
      if (!form.places.empty()) {  // room for a button and the margins beside it
        const SIZE button = SizeOf(form.places.back().area);
        const LONG margin = form.places.front().area.left;
        const SIZE least = WindowSize({Scaled(button.cx + 2 * margin), Scaled(button.cy)});
        reinterpret_cast<MINMAXINFO*>(value)->ptMinTrackSize = {least.cx, least.cy};
      }
      return TRUE;
    case WM_VSCROLL:
      Scroll(LOWORD(word));
      return TRUE;
    case WM_MOUSEWHEEL:
      ScrollTo(form.scrolled - MulDiv(GET_WHEEL_DELTA_WPARAM(word), ScrollLines * form.letter, WHEEL_DELTA));
      return TRUE;
    case WM_DPICHANGED: {
      SetFonts(HIWORD(word));
      MoveIntoWorkArea(*reinterpret_cast<const RECT*>(value));
      Arrange();  // even if the size stays the same
      return TRUE;
    }
    default:
      return FALSE;
  }
}

// Shows one of the common dialogs, in the directory and with the name in its field; for a pattern it lists the names
// that match.
std::string Ask(BOOL(WINAPI* show)(OPENFILENAMEW*), std::string_view directory, std::string_view fileName) {
  const std::wstring before = ToUtf16(CurrentDirectory());
  const std::wstring folder = ToUtf16(directory), name = ToUtf16(fileName);
  const bool isPattern = name.find(L'*') != std::wstring::npos;
  const std::wstring listed = isPattern ? name : L"*.*",
                     filter = (isPattern ? name : L"All files") + L'\0' + listed + L'\0';
  std::wstring path = folder + L"\\" + name;
  path.resize(LongestPath);
  OPENFILENAMEW dialog{};
  dialog.lStructSize = sizeof dialog;
  dialog.hwndOwner = form.window;
  dialog.lpstrFilter = filter.c_str();
  dialog.lpstrFile = path.data();
  dialog.nMaxFile = LongestPath;
  dialog.Flags = OFN_EXPLORER | OFN_NOCHANGEDIR | OFN_HIDEREADONLY | OFN_DONTADDTORECENT;
  BOOL chosen = show(&dialog);
  if (!chosen && CommDlgExtendedError() != 0) {  // not Cancel: the dialog can't begin with this path
    path.assign(name).resize(LongestPath);
    dialog.lpstrInitialDir = folder.c_str();
    chosen = show(&dialog);
  }
  SetCurrentDirectoryW(before.c_str());  // the open dialog may change it despite OFN_NOCHANGEDIR
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
  Arrange();  // a low form makes room for it
  NotifyWinEvent(EVENT_OBJECT_VALUECHANGE, ControlOf(IDC_HintT), OBJID_CLIENT, CHILDID_SELF);  // for screen readers
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
  LoadDllsFromSystemOnly();
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
    // In a text box of several lines, Escape would close the form.
    if (message.message == WM_KEYDOWN && message.wParam == VK_ESCAPE) continue;
    // The form scrolls, no matter which control has the focus or is under the mouse.
    if (message.message == WM_MOUSEWHEEL && IsChild(form.window, message.hwnd)) message.hwnd = form.window;
    if (message.message == WM_KEYDOWN && message.wParam == VK_PRIOR) Scroll(SB_PAGEUP);
    if (message.message == WM_KEYDOWN && message.wParam == VK_NEXT) Scroll(SB_PAGEDOWN);
    if (!IsDialogMessageW(form.window, &message)) {
      TranslateMessage(&message);
      DispatchMessageW(&message);
    }
    ShowFocus();
  }
  return EXIT_SUCCESS;
}
