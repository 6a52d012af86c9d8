#include "platform/win32/step_table_window.h"

#include <algorithm>

// after windows.h
#include <commctrl.h>

#include "platform/win32/scale.h"
#include "platform/win32/text.h"
#include "platform/win32/text_clipboard.h"

namespace win32 {

namespace {

constexpr wchar_t kTableClass[] = L"LumarineStepTable";
// In units.
constexpr int kTableWidth = 460;
constexpr int kTableHeight = 480;
constexpr int kTableMargin = 6;
constexpr COLORREF kFaultColor = RGB(192, 0, 0);

void RegisterTableClass(HINSTANCE instance) {
  WNDCLASSEXW description{};
  description.cbSize = sizeof description;
  if (GetClassInfoExW(instance, kTableClass, &description) != 0) return;
  description.cbSize = sizeof description;
  description.lpfnWndProc = &WindowProcedure<StepTableWindow>;
  description.hInstance = instance;
  description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  description.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
  description.lpszClassName = kTableClass;
  RegisterClassExW(&description);
}

// A lone "&" would mark a letter as a key.
std::wstring TabText(std::u16string_view name) {
  std::wstring text;
  for (const char16_t unit : name) {
    if (unit == u'&') text += L'&';
    text += static_cast<wchar_t>(unit);
  }
  return text;
}

RECT WorkAreaOf(HWND window) {
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor);
  return monitor.rcWork;
}

void MoveTo(HWND window, const RECT& place) {
  SetWindowPos(window, nullptr, place.left, place.top, place.right - place.left, place.bottom - place.top,
               SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace

void StepTableWindow::Connect(app::StepTableWindow& logic) {
  logic_ = &logic;
  for (StepSheet& sheet : sheets_) sheet.Connect(logic);
}

// The port

void StepTableWindow::Open() {
  if (handle_ == nullptr) Create();
  ShowWindow(handle_, IsIconic(handle_) ? SW_RESTORE : SW_SHOW);
  SetForegroundWindow(handle_);
  SetFocus(Seen().Handle());
}

void StepTableWindow::Close() {
  if (handle_ == nullptr) return;
  Sheet(app::TableSheet::Steps).DropEdit();
  DestroyWindow(handle_);
}

void StepTableWindow::SetTitle(std::u16string_view title) {
  if (handle_ != nullptr) SetWindowTextW(handle_, WideText(title).c_str());
}

void StepTableWindow::SetHeadings(app::TableSheet sheet, std::u16string_view name,
                                  const app::TableRow& columns) {
  if (handle_ == nullptr) return;
  std::wstring text = TabText(name);
  TCITEMW tab{};
  tab.mask = TCIF_TEXT;
  tab.pszText = text.data();
  TabCtrl_SetItem(tabs_, static_cast<int>(sheet), &tab);
  Sheet(sheet).SetColumns(name, columns);
}

void StepTableWindow::SetRows(app::TableSheet sheet, const std::vector<app::TableRow>& rows) {
  if (handle_ != nullptr) Sheet(sheet).SetRows(rows);
}

void StepTableWindow::SetSelection(const app::TableSelection& selection) {
  if (handle_ != nullptr) Sheet(app::TableSheet::Steps).SetSelection(selection);
}

void StepTableWindow::SetFault(std::u16string_view text) {
  if (handle_ == nullptr || WideText(text) == faultText_) return;
  faultText_ = WideText(text);
  SetWindowTextW(fault_, faultText_.c_str());
  PlaceChildren();
  if (!text.empty()) NotifyWinEvent(EVENT_SYSTEM_ALERT, fault_, OBJID_CLIENT, CHILDID_SELF);
}

void StepTableWindow::SetClipboard(std::u16string_view text) {
  PutOnClipboard(owner_.Handle(), text);
}

std::u16string StepTableWindow::Clipboard() const {
  return TextOnClipboard(owner_.Handle());
}

// The window

void StepTableWindow::Create() {
  const HINSTANCE instance = GetModuleHandleW(nullptr);
  RegisterTableClass(instance);
  faultText_.clear();
  const RECT place = PlaceBesideOwner();
  CreateWindowExW(0, kTableClass, L"", WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_CLIPCHILDREN,
                  place.left, place.top, place.right - place.left, place.bottom - place.top, owner_.Handle(),
                  nullptr, instance, this);
  TakeIcons();
  MakeChildren();
  TakeFont();
  ShowSheet();
}

// Those of the main window.
void StepTableWindow::TakeIcons() {
  const HWND main = owner_.Handle();
  SendMessageW(handle_, WM_SETICON, ICON_SMALL, static_cast<LPARAM>(GetClassLongPtrW(main, GCLP_HICONSM)));
  SendMessageW(handle_, WM_SETICON, ICON_BIG, static_cast<LPARAM>(GetClassLongPtrW(main, GCLP_HICON)));
}

void StepTableWindow::MakeChildren() {
  const HINSTANCE instance = GetModuleHandleW(nullptr);
  tabs_ = CreateWindowExW(0, WC_TABCONTROLW, L"", WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS, 0, 0, 0, 0,
                          handle_, nullptr, instance, nullptr);
  for (int sheet = 0; sheet < app::kTableSheetCount; ++sheet) {
    wchar_t none[] = L"";
    TCITEMW tab{};
    tab.mask = TCIF_TEXT;
    tab.pszText = none;
    TabCtrl_InsertItem(tabs_, sheet, &tab);
  }
  for (StepSheet& sheet : sheets_) {
    sheet.Create(handle_);
    SetWindowPos(sheet.Handle(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  }
  fault_ = CreateWindowExW(0, WC_STATICW, L"", WS_CHILD | SS_NOPREFIX, 0, 0, 0, 0, handle_, nullptr, instance,
                           nullptr);
}

RECT StepTableWindow::PlaceBesideOwner() const {
  RECT main{};
  GetWindowRect(owner_.Handle(), &main);
  const RECT screen = WorkAreaOf(owner_.Handle());
  const Scale scale(owner_.Handle());
  const int width = scale.Pixels(kTableWidth);
  const bool hasRoomRight = main.right + width <= screen.right;
  const bool hasRoomLeft = main.left - width >= screen.left;
  const int left =
      hasRoomRight || !hasRoomLeft ? std::min<int>(main.right, screen.right - width) : main.left - width;
  const int top = std::max(main.top, screen.top);
  return {left, top, left + width, top + scale.Pixels(kTableHeight)};
}

void StepTableWindow::TakeFont() {
  font_.Take(Scale(handle_).dpi(), [this](HFONT font) {
    for (const HWND child : {tabs_, fault_, sheets_[0].Handle(), sheets_[1].Handle()}) {
      SendMessageW(child, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
    }
  });
  PlaceChildren();
}

int StepTableWindow::FaultHeight(int width) const {
  if (faultText_.empty()) return 0;
  const HDC context = GetDC(fault_);
  const HGDIOBJ before =
      SelectObject(context, reinterpret_cast<HFONT>(SendMessageW(fault_, WM_GETFONT, 0, 0)));
  RECT text{0, 0, width, 0};
  DrawTextW(context, faultText_.c_str(), -1, &text, DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX);
  SelectObject(context, before);
  ReleaseDC(fault_, context);
  return text.bottom;
}

void StepTableWindow::PlaceChildren() {
  if (fault_ == nullptr) return;  // the window is being made
  RECT inside{};
  GetClientRect(handle_, &inside);
  const int margin = Scale(handle_).Pixels(kTableMargin);
  InflateRect(&inside, -margin, -margin);
  RECT below = inside;
  below.top = inside.bottom - FaultHeight(inside.right - inside.left);
  MoveTo(fault_, below);
  ShowWindow(fault_, faultText_.empty() ? SW_HIDE : SW_SHOWNA);
  InvalidateRect(fault_, nullptr, TRUE);
  if (!faultText_.empty()) inside.bottom = below.top - margin;
  MoveTo(tabs_, inside);
  TabCtrl_AdjustRect(tabs_, FALSE, &inside);
  for (StepSheet& sheet : sheets_) sheet.Move(inside);
}

StepSheet& StepTableWindow::Seen() {
  return sheets_.at(static_cast<std::size_t>(std::max(TabCtrl_GetCurSel(tabs_), 0)));
}

void StepTableWindow::ShowSheet() {
  for (StepSheet& sheet : sheets_) ShowWindow(sheet.Handle(), &sheet == &Seen() ? SW_SHOWNA : SW_HIDE);
}

// Events

std::span<const Handler<StepTableWindow>> StepTableWindow::Handlers() {
  static constexpr auto kHandlers = std::to_array<Handler<StepTableWindow>>({
      {WM_CLOSE, &StepTableWindow::OnClose},
      {WM_DESTROY, &StepTableWindow::OnDestroy},
      {WM_SIZE, &StepTableWindow::OnSize},
      {WM_NOTIFY, &StepTableWindow::OnNotify},
      {WM_SETFOCUS, &StepTableWindow::OnFocus},
      {WM_CTLCOLORSTATIC, &StepTableWindow::OnStaticColor},
      {WM_DPICHANGED, &StepTableWindow::OnDpiChanged},
      {StepSheet::kSelectionChanged, &StepTableWindow::OnSelectionChanged},
      {StepSheet::kOtherSheet, &StepTableWindow::OnOtherSheet},
  });
  return kHandlers;
}

LRESULT StepTableWindow::OnClose(const Event&) {
  logic_->OnClose();
  return 0;
}

LRESULT StepTableWindow::OnDestroy(const Event& event) {
  handle_ = tabs_ = fault_ = nullptr;
  return event.Default();
}

LRESULT StepTableWindow::OnSize(const Event& event) {
  if (event.first != SIZE_MINIMIZED) PlaceChildren();
  return 0;
}

LRESULT StepTableWindow::OnNotify(const Event& event) {
  const auto& notice = *reinterpret_cast<const NMHDR*>(event.second);
  if (notice.hwndFrom == tabs_) {
    if (notice.code == TCN_SELCHANGE) ShowSheet();
    // The keys are the lists'.
    if (notice.code == TCN_SELCHANGE || notice.code == NM_CLICK) SetFocus(Seen().Handle());
    return 0;
  }
  for (StepSheet& sheet : sheets_) {
    if (notice.hwndFrom == sheet.Handle()) return sheet.OnNotify(notice);
  }
  return event.Default();
}

LRESULT StepTableWindow::OnFocus(const Event&) {
  if (tabs_ != nullptr) SetFocus(Seen().Handle());
  return 0;
}

LRESULT StepTableWindow::OnStaticColor(const Event& event) {
  const auto context = reinterpret_cast<HDC>(event.first);
  SetTextColor(context, kFaultColor);
  SetBkColor(context, GetSysColor(COLOR_BTNFACE));
  return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_BTNFACE));
}

LRESULT StepTableWindow::OnDpiChanged(const Event& event) {
  MoveTo(handle_, *reinterpret_cast<const RECT*>(event.second));
  TakeFont();
  return 0;
}

LRESULT StepTableWindow::OnSelectionChanged(const Event&) {
  Sheet(app::TableSheet::Steps).TellSelection();
  return 0;
}

LRESULT StepTableWindow::OnOtherSheet(const Event&) {
  TabCtrl_SetCurSel(tabs_, (TabCtrl_GetCurSel(tabs_) + 1) % app::kTableSheetCount);
  ShowSheet();
  SetFocus(Seen().Handle());
  return 0;
}

}  // namespace win32
