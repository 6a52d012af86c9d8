#include "tests/desktop/desktop_driver.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <thread>
#include <utility>

// after windows.h
#include <commctrl.h>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "app/commands.h"
#include "app/window/numbers.h"
#include "common/files.h"
#include "tests/desktop/dialog_user.h"
#include "tests/desktop/dialogs.h"
#include "tests/desktop/input.h"
#include "tests/desktop/window_text.h"
#include "tests/support/patience.h"

namespace desktop {

namespace {

constexpr int kWheelNotch = 120;
constexpr WORD kSlash = VK_OEM_2;  // and, with Shift, the question mark

// What moves a slider or the scroll bar, by the code of the event.
const std::map<int, WPARAM> kScrollKeys = {
    {app::scroll::kLineBack, VK_LEFT},  {app::scroll::kLineForward, VK_RIGHT},
    {app::scroll::kPageBack, VK_PRIOR}, {app::scroll::kPageForward, VK_NEXT},
    {app::scroll::kFirst, VK_HOME},     {app::scroll::kLast, VK_END},
};

POINT OnScreen(HWND window, POINT point) {
  ClientToScreen(window, &point);
  return point;
}

POINT Middle(HWND window) {
  RECT client{};
  GetClientRect(window, &client);
  return OnScreen(window, {client.right / 2, client.bottom / 2});
}

// How often the Down key goes to an item of the chart's menu; 0 if it is not there.
int KeysDownTo(int command) {
  int keys = 0;
  // A loop over a part of what the call returns would outlive it.
  const std::vector<app::MenuPopup> menus = app::MenuTable();
  for (const app::MenuEntry& entry : menus[app::menu::kChannel].entries) {
    if (entry.kind != app::MenuEntry::Kind::Separator) ++keys;
    if (entry.kind == app::MenuEntry::Kind::Command && entry.command == command) return keys;
  }
  return 0;
}

}  // namespace

DesktopUser::~DesktopUser() {
  EXPECT_TRUE(answers_.empty()) << "a question that was expected did not come up";
  EXPECT_TRUE(picks_.empty()) << "a file dialog that was expected did not come up";
  EXPECT_TRUE(fills_.empty()) << "a dialog that was expected did not come up";
}

// The program's life

void DesktopUser::StartWith(std::vector<std::filesystem::path> files) {
  program_.reset();
  program_.emplace(files);
  Settle();
}

bool DesktopUser::IsRunning() {
  if (!program_ || program_->HasEnded()) return false;
  if (IsWindow(program_->mainWindow())) return true;
  program_->ExpectEnd();  // which may take a moment without its window
  return !program_->HasEnded();
}

void DesktopUser::Close() {
  PostMessageW(program_->mainWindow(), WM_SYSCOMMAND, SC_CLOSE, 0);
  Settle();
  if (!IsWindow(program_->mainWindow())) program_->ExpectEnd();
}

std::future<bool> DesktopUser::CloseBehindNextSpace(Closed closed) {
  const HWND window = closed == Closed::Dialog ? program_->Dialog() : program_->mainWindow();
  return std::async(std::launch::async, [this, window, before = program_->SpacesTaken()] {
    return WaitUntil([&] { return program_->SpacesTaken() != before; }) &&
           PostMessageW(window, WM_CLOSE, 0, 0) != 0;
  });
}

void DesktopUser::Settle() {
  const auto isClosed = [this] { return !IsWindow(program_->mainWindow()); };
  // Twice: what was worked off may have posted more. And again while there is input: the display tells by
  // itself, a little later, over what the mouse stands when a menu or a dialog has gone.
  for (int round = 0; round < 2 || (program_->InputWaits() && !isClosed()); ++round) {
    program_->PostMark();
    ASSERT_TRUE(WaitUntil([&] { return program_->HasMetMark() || isClosed(); }))
        << "the program does not answer";
    // The mark is met within the dialog's own loop, too: what opened it goes on after the answer.
    if (const HWND dialog = DialogInFront()) {
      AnswerDialog(dialog);
      ASSERT_TRUE(WaitUntil([dialog] { return !IsWindow(dialog); })) << "the dialog stays";
      round = -1;
    }
  }
}

HWND DesktopUser::DialogInFront() {
  const HWND main = program_->mainWindow();
  // A dialog that is there but has messages to take first does not show yet; the main window is disabled
  // already.
  EXPECT_TRUE(WaitUntil([&] {
    return !IsWindow(main) || IsWindowEnabled(main) || program_->Dialog() != nullptr;
  })) << "the program waits for a dialog that does not show";
  return program_->Dialog();
}

void DesktopUser::WaitForInput() {
  program_->PressInputMark();
  EXPECT_TRUE(WaitUntil([this] { return program_->HasMetInputMark() || !IsWindow(program_->mainWindow()); }))
      << "the program does not take the input";
}

void DesktopUser::SettleInput() {
  WaitForInput();
  Settle();
}

// Questions

std::vector<app::Question> DesktopUser::Questions() {
  return std::exchange(asked_, {});
}

void DesktopUser::AnswerDialog(HWND dialog) {
  if (dialogs::IsFileDialog(dialog)) {
    AnswerFileDialog(dialog);
  } else if (dialogs::IsMessageBox(dialog)) {
    AnswerMessageBox(dialog);
  } else {
    FillDialog(dialog);
  }
}

void DesktopUser::Improvise(HWND dialog) {
  DialogUser user(*program_, dialog, [this] { WaitForInput(); });
  while (IsWindow(dialog)) {
    AnswerBoxOver(dialog);
    const SeenDialog seen = user.See();
    if (!IsWindow(dialog)) return;
    const DialogStep step = improviser_->NextStep(seen);
    step.kind == DialogStep::Kind::Await ? static_cast<void>(step.until(seen)) : user.Do(step);
  }
}

void DesktopUser::FillDialog(HWND dialog) {
  if (fills_.empty() && improviser_ != nullptr) return Improvise(dialog);
  DialogUser user(*program_, dialog, [this] { WaitForInput(); });
  seenDialogs_.push_back(user.See());
  DialogScript script = {in_dialog::PressEscape()};
  if (fills_.empty()) {
    ADD_FAILURE() << "nobody fills \"" << seenDialogs_.back().title << '"';
  } else {
    script = std::move(fills_.front());
    fills_.pop_front();
  }
  for (const DialogStep& step : script) {
    ASSERT_TRUE(IsWindow(dialog)) << "closed before the script's end";
    if (step.kind == DialogStep::Kind::Look) {
      seenDialogs_.push_back(user.See());
    } else if (step.kind == DialogStep::Kind::Await) {
      EXPECT_TRUE(WaitUntil([&] {
        AnswerBoxOver(dialog);
        return step.until(user.See());
      })) << "what is waited for in \""
          << WindowText(dialog) << "\" does not come";
    } else {
      user.Do(step);
    }
  }
}

void DesktopUser::AnswerBoxOver(HWND dialog) {
  const HWND box = program_->Dialog();
  if (box == nullptr || box == dialog || !dialogs::IsMessageBox(box)) return;
  AnswerMessageBox(box);
  EXPECT_TRUE(WaitUntil([box] { return !IsWindow(box); })) << "the message stays";
}

void DesktopUser::AnswerMessageBox(HWND box) {
  asked_.push_back(dialogs::ReadMessageBox(box));
  if (answers_.empty() && improviser_ != nullptr)
    return dialogs::Answer(box, improviser_->Answer(asked_.back()));
  if (answers_.empty()) {
    ADD_FAILURE() << "nobody answers \"" << WindowText(box) << "\"";
    dialogs::Answer(box,
                    asked_.back().buttons == app::Buttons::YesNo ? app::Answer::No : app::Answer::Cancel);
    return;
  }
  dialogs::Answer(box, answers_.front());
  answers_.pop_front();
}

void DesktopUser::AnswerFileDialog(HWND dialog) {
  if (picks_.empty() && improviser_ != nullptr) return dialogs::Pick(dialog, improviser_->Pick());
  if (picks_.empty()) {
    ADD_FAILURE() << "nobody picks a file in \"" << WindowText(dialog) << "\"";
    dialogs::Pick(dialog, {});
    return;
  }
  dialogs::Pick(dialog, picks_.front());
  picks_.pop_front();
}

// Doing

HWND DesktopUser::Handle(app::Control control) {
  return program_->Child(control);
}

bool DesktopUser::Choose(int command) {
  const Item item = MenuItem(command);
  if (!item.exists || !item.enabled) return false;
  PostMessageW(program_->mainWindow(), WM_COMMAND, static_cast<WPARAM>(command), 0);
  Settle();
  return true;
}

void DesktopUser::PressKey(int key, bool ctrl) {
  if (ctrl) input::HoldKey(VK_CONTROL);
  input::PressKey(static_cast<WORD>(key));
  if (ctrl) input::ReleaseKey(VK_CONTROL);
  SettleInput();
}

void DesktopUser::HoldKey(int key, int times) {
  for (int i = 0; i < times; ++i) input::HoldKey(static_cast<WORD>(key));
  input::ReleaseKey(static_cast<WORD>(key));
  SettleInput();
}

void DesktopUser::Press(app::Control button) {
  input::Click(Middle(Handle(button)));
  SettleInput();
}

POINT DesktopUser::RowPoint(app::Control list, int row) {
  RECT place{};
  SendMessageW(Handle(list), LB_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&place));
  return OnScreen(Handle(list), {(place.left + place.right) / 2, (place.top + place.bottom) / 2});
}

void DesktopUser::ClickRow(app::Control list, int row) {
  input::Click(RowPoint(list, row));
  SettleInput();
}

void DesktopUser::CtrlClickRow(app::Control list, int row) {
  input::HoldKey(VK_CONTROL);
  input::Click(RowPoint(list, row));
  input::ReleaseKey(VK_CONTROL);
  SettleInput();
}

void DesktopUser::DoubleClickRow(app::Control list, int row) {
  input::DoubleClick(RowPoint(list, row));
  SettleInput();
}

void DesktopUser::Scroll(app::Control bar, int code, int position) {
  const HWND control = Handle(bar);
  if (!IsWindowEnabled(control)) return;
  if (const auto key = kScrollKeys.find(code); key != kScrollKeys.end()) {
    // Not through the queue, where the accelerators take most of these keys.
    SendMessageW(control, WM_KEYDOWN, key->second, 0);
    SendMessageW(control, WM_KEYUP, key->second, 0);
  } else {
    if (code == app::scroll::kThumbMoving) SendMessageW(control, TBM_SETPOS, TRUE, position);
    PostMessageW(program_->mainWindow(), WM_HSCROLL, static_cast<WPARAM>(MAKELONG(code, position)),
                 reinterpret_cast<LPARAM>(control));
  }
  Settle();
}

void DesktopUser::ClickBesideThumb(app::Control bar, Side side) {
  const RECT thumb = program_->LookAtThumb(bar).thumb;
  RECT client{};
  GetClientRect(Handle(bar), &client);
  // The scroll bar has arrows at its ends, as wide as it is high.
  const LONG arrow = bar == app::Control::ScrollBar ? client.bottom : 0;
  const LONG x = side == Side::Before ? (arrow + thumb.left) / 2 : (thumb.right + client.right - arrow) / 2;
  input::Click(OnScreen(Handle(bar), {x, client.bottom / 2}));
  SettleInput();
}

void DesktopUser::DragThumb(app::Control bar, int toX) {
  const RECT thumb = program_->LookAtThumb(bar).thumb;
  const LONG fromX = (thumb.left + thumb.right) / 2;
  const LONG y = (thumb.top + thumb.bottom) / 2;
  input::MoveMouse(OnScreen(Handle(bar), {fromX, y}));
  input::HoldButton(input::Button::Left);
  SettleInput();
  for (const LONG x : {fromX + (toX - fromX) / 3, fromX + (toX - fromX) * 2 / 3, static_cast<LONG>(toX)}) {
    input::MoveMouse(OnScreen(Handle(bar), {x, y}));
    SettleInput();
  }
  input::ReleaseButton(input::Button::Left);
  SettleInput();
}

std::pair<int, int> DesktopUser::ScrollBar() {
  const probe::Findings& found = program_->LookAtThumb(app::Control::ScrollBar);
  return {found.page, found.position};
}

void DesktopUser::ClickLog() {
  input::Click(OnScreen(Handle(app::Control::LogPane), {5, 8}));
  SettleInput();
}

DWORD DesktopUser::StyleOf(app::Control control) {
  return static_cast<DWORD>(GetWindowLongW(Handle(control), GWL_STYLE));
}

UX::Color DesktopUser::LogColor(const std::string& line) {
  std::u16string before = WideFromUtf8(Log());
  const std::size_t place = before.find(WideFromUtf8(line));
  EXPECT_NE(place, std::u16string::npos) << line << " is not in the log";
  before.resize(std::min(place, before.size()));
  std::erase(before, u'\n');  // the pane counts the end of a line as one character
  const COLORREF color = program_->LookAtColor(static_cast<LONG>(before.size()));
  return {GetRValue(color), GetGValue(color), GetBValue(color)};
}

void DesktopUser::MoveMouse(int x, int y) {
  PressHeldKeys();
  input::MoveMouse(OnScreen(Handle(app::Control::ChartWindow), {x, y}));
  SettleInput();
}

void DesktopUser::HoldModifiers(const app::HeldKeys& keys) {
  const auto hold = [](WORD key, bool was, bool is) {
    if (is && !was) input::HoldKey(key);
    if (was && !is) input::ReleaseKey(key);
  };
  hold(VK_CONTROL, heldKeys_.ctrl, keys.ctrl);
  hold(VK_SHIFT, heldKeys_.shift, keys.shift);
  heldKeys_ = keys;
  SettleInput();
}

void DesktopUser::PressHeldKeys() {
  if (heldKeys_.ctrl) input::HoldKey(VK_CONTROL);
  if (heldKeys_.shift) input::HoldKey(VK_SHIFT);
}

void DesktopUser::DoubleClickChart(int x, int y) {
  input::DoubleClick(OnScreen(Handle(app::Control::ChartWindow), {x, y}));
  SettleInput();
}

void DesktopUser::HoldButton() {
  PressHeldKeys();
  input::HoldButton(input::Button::Left);
  SettleInput();
}

void DesktopUser::ReleaseButton() {
  input::ReleaseButton(input::Button::Left);
  SettleInput();
}

bool DesktopUser::HasOpenMenu() {
  GUITHREADINFO thread{};
  thread.cbSize = sizeof thread;
  GetGUIThreadInfo(GetWindowThreadProcessId(program_->mainWindow(), nullptr), &thread);
  return (thread.flags & GUI_INMENUMODE) != 0;
}

bool DesktopUser::OpenChartMenu(int x, int y) {
  input::Click(OnScreen(Handle(app::Control::ChartWindow), {x, y}), input::Button::Right);
  SettleInput();
  return HasOpenMenu();
}

void DesktopUser::LeaveMenu() {
  input::PressKey(VK_ESCAPE);
  SettleInput();
}

void DesktopUser::EnterMenuBar() {
  input::PressKey(VK_F10);
  SettleInput();
}

void DesktopUser::PressAltSlash(bool shift) {
  input::HoldKey(VK_MENU);
  if (shift) input::HoldKey(VK_SHIFT);
  input::PressKey(kSlash);
  if (shift) input::ReleaseKey(VK_SHIFT);
  input::ReleaseKey(VK_MENU);
  SettleInput();
}

void DesktopUser::TakeCapture() {
  SendMessageW(Handle(app::Control::ChartWindow), WM_CANCELMODE, 0, 0);
}

void DesktopUser::RightClickChart(int x, int y) {
  if (OpenChartMenu(x, y)) LeaveMenu();
}

bool DesktopUser::ChooseAtChart(int x, int y, int command) {
  if (!OpenChartMenu(x, y)) return false;
  const int downs = KeysDownTo(command);
  const bool canBeChosen = downs > 0 && MenuItem(command).enabled;
  for (int i = 0; canBeChosen && i < downs; ++i) input::PressKey(VK_DOWN);
  input::PressKey(canBeChosen ? VK_RETURN : VK_ESCAPE);
  SettleInput();
  EXPECT_FALSE(HasOpenMenu());
  return canBeChosen;
}

void DesktopUser::TurnWheel(int x, int y, int notches, bool ctrl, bool shift) {
  if (ctrl) input::HoldKey(VK_CONTROL);
  if (shift) input::HoldKey(VK_SHIFT);
  input::MoveMouse(OnScreen(Handle(app::Control::ChartWindow), {x, y}));
  input::TurnWheel(notches * kWheelNotch);
  if (shift) input::ReleaseKey(VK_SHIFT);
  if (ctrl) input::ReleaseKey(VK_CONTROL);
  SettleInput();
}

void DesktopUser::DropFiles(std::vector<std::filesystem::path> files) {
  program_->Drop(files);
  Settle();
}

void DesktopUser::ClickBackground() {
  input::Click(OnScreen(program_->mainWindow(), {4, 4}));
  SettleInput();
}

void DesktopUser::Resize(int width, int height) {
  RECT place{0, 0, width, height};
  AdjustWindowRectEx(&place, WS_OVERLAPPEDWINDOW, TRUE, 0);
  SetWindowPos(program_->mainWindow(), nullptr, 0, 0, place.right - place.left, place.bottom - place.top,
               SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  PostMessageW(program_->mainWindow(), WM_EXITSIZEMOVE, 0, 0);
  Settle();
}

void DesktopUser::Maximize() {
  ShowWindow(program_->mainWindow(), SW_MAXIMIZE);
  Settle();
}

void DesktopUser::Minimize() {
  ShowWindow(program_->mainWindow(), SW_MINIMIZE);
  Settle();
}

void DesktopUser::Restore() {
  ShowWindow(program_->mainWindow(), SW_RESTORE);
  Settle();
}

void DesktopUser::Wait(double seconds) {
  std::this_thread::sleep_for(std::chrono::duration<double>(seconds));
  Settle();
}

bool DesktopUser::WaitForLog(const std::string& text) {
  return WaitUntil([&] { return Log().find(text) != std::string::npos; });
}

// Seeing

User::Item DesktopUser::MenuItem(int command) {
  SendMessageW(program_->mainWindow(), WM_INITMENUPOPUP, 0, 0);
  const probe::Findings& found = program_->LookAtMenu(command);
  if (found.exists == 0) return {};
  return {Utf8(found.text), true, found.enabled != 0, found.checked != 0};
}

std::vector<std::string> DesktopUser::List(app::Control list) {
  std::vector<std::string> rows;
  const HWND window = Handle(list);
  const LRESULT count = SendMessageW(window, LB_GETCOUNT, 0, 0);
  for (WPARAM row = 0; row < static_cast<WPARAM>(count); ++row) {
    std::wstring text(static_cast<std::size_t>(SendMessageW(window, LB_GETTEXTLEN, row, 0)) + 1, L'\0');
    SendMessageW(window, LB_GETTEXT, row, reinterpret_cast<LPARAM>(text.data()));
    rows.push_back(Utf8(text.c_str()));
  }
  return rows;
}

std::vector<int> DesktopUser::SelectedRows(app::Control list) {
  std::vector<int> rows;
  const HWND window = Handle(list);
  const LRESULT count = SendMessageW(window, LB_GETCOUNT, 0, 0);
  for (int row = 0; row < count; ++row) {
    if (SendMessageW(window, LB_GETSEL, static_cast<WPARAM>(row), 0) > 0) rows.push_back(row);
  }
  return rows;
}

std::string DesktopUser::Text(app::Control control) {
  return WindowText(Handle(control));
}

bool DesktopUser::IsEnabled(app::Control control) {
  return IsWindowEnabled(Handle(control)) != 0;
}

int DesktopUser::SliderPosition(app::Control slider) {
  return static_cast<int>(SendMessageW(Handle(slider), TBM_GETPOS, 0, 0));
}

Rect DesktopUser::Place(app::Control control) {
  RECT place{};
  GetWindowRect(Handle(control), &place);
  POINT corner{0, 0};
  ClientToScreen(program_->mainWindow(), &corner);
  return {place.left - corner.x, place.top - corner.y, place.right - place.left, place.bottom - place.top};
}

app::Size DesktopUser::ClientSize() {
  RECT client{};
  GetClientRect(program_->mainWindow(), &client);
  return {client.right, client.bottom};
}

std::string DesktopUser::Title() {
  return WindowText(program_->mainWindow());
}

std::string DesktopUser::Log() {
  return WindowText(Handle(app::Control::LogPane));
}

bool DesktopUser::TakePicture(const std::filesystem::path& file) {
  return ScreenPicture::Take().Write(file);
}

PixelPicture DesktopUser::ChartPicture() {
  return ScreenPicture::OfWindow(Handle(app::Control::ChartWindow));
}

}  // namespace desktop
