#include "tests/support/headless_user.h"

#include <algorithm>
#include <chrono>
#include <stdexcept>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "app/window/numbers.h"
#include "common/files.h"
#include "tests/support/virtual_clock.h"

namespace headless {

namespace {

constexpr app::Size kScreen{1920, 1040};
constexpr int kWheelNotch = 120;
constexpr int kNotified = 0;  // the code of a button that was pressed
constexpr std::chrono::seconds kPatience{60};

std::string CellsAsText(const app::TableRow& cells) {
  std::string text;
  for (const std::u16string& cell : cells) text += (text.empty() ? "" : " | ") + Utf8FromWide(cell);
  return text;
}

}  // namespace

HeadlessUser::HeadlessUser(std::filesystem::path documents) : documents_(std::move(documents)) {}

HeadlessUser::~HeadlessUser() = default;

bool HeadlessUser::ReadTranslations(const std::filesystem::path& resources) {
  return ReadFileBytes(resources / "translations.xml", translations) &&
         ReadFileBytes(resources / "translations-more.xml", moreTranslations);
}

void HeadlessUser::StartWith(std::vector<std::filesystem::path> files) {
  desktop_.reset();
  logs_.emplace();
  store_.emplace(translations, moreTranslations);
  store_->AnswerMessages();
  settings_.emplace(documents_ / Settings::fileName);
  desktop_ = std::make_unique<Desktop>(*settings_, *store_, documents_ / "LumarineLog.txt", std::move(files),
                                       makeRenderer);
  desktop_->questions.answers = std::exchange(answersAtStart_, {});
  desktop_->refuseWindow = refuseWindow;
  WillImprovise(improviser_);
  restored_ = desktop_->size;
  questionsSeen_ = 0;
  if (desktop_->application->StartUp()) {
    Settle();
  } else {
    End();
  }
}

void HeadlessUser::End() {
  const virtual_clock::Waiting forWorker;
  desktop_.reset();
  settings_->Save();
}

void HeadlessUser::Crash() {
  State().document->SettleRecovery();
  const virtual_clock::Waiting forWorker;
  desktop_.reset();
}

void HeadlessUser::Turn() {
  if (desktop_->application->Turn()) return;
  {
    const virtual_clock::Waiting forWorker;
    desktop_->application->ShutDown();
  }
  const bool allAsked = desktop_->questions.answers.empty() && desktop_->questions.picks.empty() &&
                        desktop_->dialogs.scripts.empty();
  lastJournal = desktop_->journal;
  End();
  if (!allAsked) throw std::logic_error("a question or dialog that was expected did not come up");
}

void HeadlessUser::Settle() {
  // One turn more: it is the one that paints.
  while (desktop_ && desktop_->queue.HasPosted()) Turn();
  if (desktop_) Turn();
}

void HeadlessUser::Push(std::function<void(app::Application&)> deliver) {
  desktop_->queue.Push({Event::Kind::Other, 0, false,
                        [this, deliver = std::move(deliver)] { deliver(*desktop_->application); }});
}

void HeadlessUser::Close() {
  Push([](app::Application& application) { application.mainWindow.OnClose(); });
  Settle();
}

void HeadlessUser::WillAnswer(app::Answer answer) {
  (desktop_ ? desktop_->questions.answers : answersAtStart_).push_back(answer);
}

void HeadlessUser::WillPick(std::vector<std::filesystem::path> files) {
  desktop_->questions.picks.push_back(std::move(files));
}

std::vector<app::Question> HeadlessUser::Questions() {
  const std::vector<app::Question>& asked = desktop_->questions.asked;
  std::vector<app::Question> fresh(asked.begin() + static_cast<std::ptrdiff_t>(questionsSeen_), asked.end());
  questionsSeen_ = asked.size();
  return fresh;
}

void HeadlessUser::WillImprovise(Improviser* improviser) {
  improviser_ = improviser;
  if (!desktop_) return;
  desktop_->questions.improviser = improviser;
  desktop_->dialogs.improviser = improviser;
}

bool HeadlessUser::Choose(int command) {
  const Item item = MenuItem(command);
  if (!item.exists || !item.enabled) return false;
  SendCommand(command);
  return true;
}

void HeadlessUser::SendCommand(int id, int code) {
  Push([id, code](app::Application& application) { application.mainWindow.OnCommand(id, code); });
  Settle();
}

void HeadlessUser::PressKey(int key, bool ctrl) {
  PushKey(key, ctrl, 1);
  Settle();
}

void HeadlessUser::HoldKey(int key, int times) {
  PushKey(key, false, times);
  Settle();
}

void HeadlessUser::PushKey(int key, bool ctrl, int times) {
  // To the window that has the focus when its turn comes; a control keeps its keys.
  const auto down = [this, key] {
    if (desktop_->focus == Focus::Chart) desktop_->application->chartWindow.OnKeyDown(key);
    if (desktop_->focus == Focus::MainWindow) desktop_->application->mainWindow.OnKeyDown(key);
  };
  const auto up = [this, key] {
    if (desktop_->focus == Focus::Chart) desktop_->application->chartWindow.OnKeyUp(key);
    if (desktop_->focus == Focus::MainWindow) desktop_->application->mainWindow.OnKeyUp(key);
  };
  for (int i = 0; i < times; ++i) desktop_->queue.Push({Event::Kind::KeyDown, key, ctrl, down});
  desktop_->queue.Push({Event::Kind::Other, 0, false, up});
}

void HeadlessUser::Notify(app::Control control, int code) {
  SendCommand(app::RowOf(control).id, code);
}

void HeadlessUser::Press(app::Control button) {
  if (!IsEnabled(button)) return;
  desktop_->focus = Focus::Control;
  Notify(button, kNotified);
}

void HeadlessUser::ClickRow(app::Control list, int row) {
  if (!IsEnabled(list)) return;
  Controls& controls = desktop_->controls;
  for (std::int32_t i = 0; i < controls.RowCount(list); ++i) controls.SelectRow(list, i, false);
  controls.SelectRow(list, row, true);
  desktop_->focus = Focus::Control;
  Notify(list, app::kListSelectionChanged);
}

void HeadlessUser::CtrlClickRow(app::Control list, int row) {
  if (!IsEnabled(list)) return;
  Controls& controls = desktop_->controls;
  const std::vector<std::int32_t> selected = controls.SelectedRows(list);
  const bool wasSelected = std::find(selected.begin(), selected.end(), row) != selected.end();
  controls.SelectRow(list, row, !wasSelected);
  desktop_->focus = Focus::Control;
  Notify(list, app::kListSelectionChanged);
}

void HeadlessUser::DoubleClickRow(app::Control list, int row) {
  if (!IsEnabled(list)) return;
  ClickRow(list, row);
  Notify(list, app::kListDoubleClick);
}

void HeadlessUser::Scroll(app::Control bar, int code, int position) {
  if (!IsEnabled(bar)) return;
  if (bar != app::Control::ScrollBar) desktop_->controls.MoveSlider(bar, code, position);
  Push([bar, code, position](app::Application& application) {
    application.mainWindow.OnHorizontalScroll(bar, code, position);
  });
  Settle();
}

void HeadlessUser::PushMouse(std::function<void(app::ChartWindow&, std::int32_t x, std::int32_t y)> deliver) {
  const auto toChart = [this, deliver = std::move(deliver), x = mouseX_, y = mouseY_] {
    const Rect chart = Place(app::Control::ChartWindow);
    const bool isOver = x >= 0 && x < chart.width && y >= 0 && y < chart.height;
    if (isOver || desktop_->chart.captured) deliver(desktop_->application->chartWindow, x, y);
  };
  desktop_->queue.Push({Event::Kind::Other, 0, false, toChart});
}

void HeadlessUser::MoveMouse(int x, int y) {
  mouseX_ = x;
  mouseY_ = y;
  PushMouse(
      [held = buttonHeld_, keys = heldKeys_](app::ChartWindow& chart, std::int32_t toX, std::int32_t toY) {
        chart.OnMouseMove(toX, toY, held, keys);
      });
  Settle();
}

void HeadlessUser::HoldButton() {
  buttonHeld_ = true;
  PushMouse([keys = heldKeys_](app::ChartWindow& chart, std::int32_t x, std::int32_t y) {
    chart.OnLeftDown(x, y, keys);
  });
  Settle();
}

void HeadlessUser::ReleaseButton() {
  buttonHeld_ = false;
  PushMouse(&app::ChartWindow::OnLeftUp);
  Settle();
}

void HeadlessUser::DoubleClickChart(int x, int y) {
  ClickChart(x, y);
  ClickChart(x, y);
}

void HeadlessUser::RightClickChart(int x, int y) {
  desktop_->menu.openedAtChart.reset();
  MoveMouse(x, y);
  PushMouse(&app::ChartWindow::OnRightDown);
  PushMouse(&app::ChartWindow::OnRightUp);
  Settle();
}

bool HeadlessUser::ChooseAtChart(int x, int y, int command) {
  RightClickChart(x, y);
  const auto& opened = desktop_->menu.openedAtChart;
  return opened && desktop_->menu.IsIn(opened->position, command) && Choose(command);
}

void HeadlessUser::TurnWheel(int x, int y, int notches, bool ctrl, bool shift) {
  Push([=](app::Application& application) {
    application.chartWindow.OnWheel(x, y, notches * kWheelNotch, shift, ctrl, false);
  });
  Settle();
}

void HeadlessUser::DropFiles(std::vector<std::filesystem::path> files) {
  Push([files = std::move(files)](app::Application& application) { application.mainWindow.OnDrop(files); });
  Settle();
}

void HeadlessUser::ClickBackground() {
  Push([](app::Application& application) { application.mainWindow.OnLeftButtonDown(); });
  Settle();
}

void HeadlessUser::SetSize(app::Size size, app::SizeKind kind) {
  desktop_->size = size;
  Push([kind](app::Application& application) {
    application.mainWindow.OnSize(kind);
    if (kind != app::SizeKind::Minimized) application.mainWindow.OnPaint();
  });
  Settle();
}

void HeadlessUser::Resize(int width, int height) {
  restored_ = {std::max(width, app::kLeastWindowWidth), std::max(height, app::kLeastWindowHeight)};
  Push([](app::Application& application) { application.mainWindow.OnSizing(); });
  SetSize(restored_, app::SizeKind::Restored);
  Push([](app::Application& application) { application.mainWindow.OnExitSizeMove(); });
  Settle();
}

void HeadlessUser::Maximize() {
  SetSize(kScreen, app::SizeKind::Maximized);
}

void HeadlessUser::Minimize() {
  SetSize({0, 0}, app::SizeKind::Minimized);
}

void HeadlessUser::Restore() {
  SetSize(restored_, app::SizeKind::Restored);
}

void HeadlessUser::Wait(double seconds) {
  const double end = virtual_clock::Seconds() + seconds;
  while (desktop_ && virtual_clock::Seconds() < end) Turn();
  if (desktop_) Settle();
}

bool HeadlessUser::WaitForLog(const std::string& text) {
  const auto end = std::chrono::steady_clock::now() + kPatience;
  while (desktop_ && Log().find(text) == std::string::npos) {
    if (std::chrono::steady_clock::now() > end) return false;
    Turn();
  }
  return desktop_ != nullptr;
}

// The step table

void HeadlessUser::CloseTable() {
  Push([](app::Application& application) { application.stepTableWindow.OnClose(); });
  Settle();
}

std::string HeadlessUser::TableTitle() {
  return Utf8FromWide(desktop_->stepTable.title);
}

std::string HeadlessUser::TableHeading(app::TableSheet sheet) {
  const StepTable::Sheet& shown = desktop_->stepTable.At(sheet);
  return Utf8FromWide(shown.name) + ": " + CellsAsText(shown.columns);
}

std::vector<std::string> HeadlessUser::TableRows(app::TableSheet sheet) {
  std::vector<std::string> rows;
  for (const app::TableRow& row : desktop_->stepTable.At(sheet).rows) rows.push_back(CellsAsText(row));
  return rows;
}

std::vector<int> HeadlessUser::SelectedTableRows() {
  const std::vector<std::int32_t>& rows = desktop_->stepTable.selection.rows;
  return {rows.begin(), rows.end()};
}

void HeadlessUser::ClickTableRow(int row, bool ctrl, bool shift) {
  Push([=, this](app::Application& application) {
    desktop_->stepTable.Click(application.stepTableWindow, row, ctrl, shift);
  });
  Settle();
}

void HeadlessUser::TypeInTable(int row, int column, const std::string& text, int key) {
  Push([=, this, wide = WideFromUtf8(text)](app::Application& application) {
    desktop_->stepTable.Type(application.stepTableWindow, row, column, wide, key);
  });
  Settle();
}

void HeadlessUser::PressTableKey(int key, bool ctrl) {
  Push([=, this](app::Application& application) {
    desktop_->stepTable.Press(application.stepTableWindow, key, ctrl);
  });
  Settle();
}

std::string HeadlessUser::TableFault() {
  return Utf8FromWide(desktop_->stepTable.fault);
}

std::string HeadlessUser::Clipboard() {
  return Utf8FromWide(desktop_->stepTable.clipboard);
}

void HeadlessUser::SetClipboard(const std::string& text) {
  desktop_->stepTable.clipboard = WideFromUtf8(text);
}

User::Item HeadlessUser::MenuItem(int command) {
  desktop_->application->mainWindow.OnInitMenuPopup();
  const headless::MenuItem* item = desktop_->menu.Find(command);
  if (item == nullptr) return {};
  return {Utf8FromWide(item->text), true, desktop_->menu.IsEnabled(command), item->checked};
}

std::vector<std::string> HeadlessUser::List(app::Control list) {
  std::vector<std::string> rows;
  for (const app::ListRow& row : desktop_->controls.At(list).rows) rows.push_back(Utf8FromWide(row.text));
  return rows;
}

std::vector<int> HeadlessUser::SelectedRows(app::Control list) {
  const std::vector<std::int32_t> rows = desktop_->controls.SelectedRows(list);
  return {rows.begin(), rows.end()};
}

std::string HeadlessUser::Text(app::Control control) {
  return Utf8FromWide(desktop_->controls.At(control).text);
}

bool HeadlessUser::IsEnabled(app::Control control) {
  return desktop_->controls.At(control).enabled;
}

int HeadlessUser::SliderPosition(app::Control slider) {
  return desktop_->controls.SliderPosition(slider);
}

Rect HeadlessUser::Place(app::Control control) {
  return desktop_->controls.At(control).place;
}

std::string HeadlessUser::Title() {
  return Utf8FromWide(desktop_->title);
}

std::string HeadlessUser::Log() {
  return Utf8FromWide(desktop_->logPane.Text());
}

}  // namespace headless
