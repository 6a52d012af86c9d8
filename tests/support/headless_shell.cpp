#include "tests/support/headless_shell.h"

#include <algorithm>
#include <stdexcept>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "app/window/numbers.h"
#include "common/platform.h"
#include "tests/support/control_names.h"
#include "tests/support/virtual_clock.h"

namespace headless {

namespace {

constexpr int kFrameMilliseconds = 16;

bool AllowsSeveral(const ControlState& list) {
  return (list.row.traits & dialogs::trait::kMultiSelection) != 0;
}

}  // namespace

// Queue

bool Queue::Take() {
  {
    const std::lock_guard lock(mutex_);
    if (!events_.empty()) {
      current_ = std::move(events_.front());
      events_.pop_front();
      return true;
    }
  }
  std::optional<Event> event = whenEmpty ? whenEmpty() : std::nullopt;
  if (!event) return false;
  current_ = std::move(*event);
  return true;
}

bool Queue::OfferToAccelerators() {
  using Kind = app::KeyStroke::Kind;
  for (const auto& [stroke, command] : accelerators_) {
    const bool isKey = stroke.kind == Kind::Key && current_.kind == Event::Kind::KeyDown && !current_.ctrl;
    const bool isCharacter = stroke.kind == Kind::CtrlLetter && current_.kind == Event::Kind::Character;
    const bool isAltCharacter =
        stroke.kind == Kind::AltCharacter && current_.kind == Event::Kind::AltCharacter;
    if ((!isKey && !isCharacter && !isAltCharacter) || stroke.key != current_.key) continue;
    onAccelerator(command);
    return true;
  }
  return false;
}

void Queue::AwaitEvent(int milliseconds) {
  platform::SleepMilliseconds(milliseconds);
}

void Queue::Dispatch() {
  // A copy: delivering may turn the loop and so take the next event.
  const Event event = current_;
  if (event.kind == Event::Kind::KeyDown && event.ctrl && event.key >= 'A' && event.key <= 'Z') {
    PushFront({Event::Kind::Character, event.key, false, nullptr});
  }
  if (event.deliver) event.deliver();
}

void Queue::Push(Event event) {
  const std::lock_guard lock(mutex_);
  events_.push_back(std::move(event));
}

void Queue::PushFront(Event event) {
  const std::lock_guard lock(mutex_);
  events_.push_front(std::move(event));
}

bool Queue::HasPosted() const {
  const std::lock_guard lock(mutex_);
  return !events_.empty();
}

// Controls

void Controls::Create(const app::ControlRow& row, std::u16string_view text, const Rect& place) {
  ControlState state{row, std::u16string(text), place};
  state.enabled = (row.traits & dialogs::trait::kDisabled) == 0;
  states_.emplace(row.control, std::move(state));
  journal_.push_back("create " + std::string(NameOf(row.kind)) + " " + Utf8FromWide(text));
}

void Controls::Move(app::Control control, const Rect& place) {
  states_.at(control).place = place;
  moved.push_back(control);
}

void Controls::SetText(app::Control control, std::u16string_view text) {
  states_.at(control).text = text;
}

void Controls::SetEnabled(app::Control control, bool enabled) {
  states_.at(control).enabled = enabled;
}

void Controls::SetRows(app::Control list, const std::vector<app::ListRow>& rows) {
  ControlState& state = states_.at(list);
  state.rows = rows;
  const auto selected = std::find_if(rows.begin(), rows.end(), [](const auto& row) { return row.selected; });
  state.current = selected == rows.end() ? -1 : static_cast<std::int32_t>(selected - rows.begin());
}

void Controls::SelectRow(app::Control list, std::int32_t row, bool selected) {
  ControlState& state = states_.at(list);
  if (!AllowsSeveral(state)) {
    for (app::ListRow& other : state.rows) other.selected = false;
  }
  state.rows.at(static_cast<std::size_t>(row)).selected = selected;
  state.current = row;
}

std::vector<std::int32_t> Controls::SelectedRows(app::Control list) const {
  std::vector<std::int32_t> selected;
  const ControlState& state = states_.at(list);
  for (std::size_t i = 0; i < state.rows.size(); ++i) {
    if (state.rows[i].selected) selected.push_back(static_cast<std::int32_t>(i));
  }
  return selected;
}

std::int32_t Controls::CurrentRow(app::Control list) const {
  return states_.at(list).current;
}

std::int32_t Controls::RowCount(app::Control list) const {
  return static_cast<std::int32_t>(states_.at(list).rows.size());
}

std::int32_t Controls::RowData(app::Control list, std::int32_t row) const {
  const ControlState& state = states_.at(list);
  const auto index = static_cast<std::size_t>(row);
  return index < state.rows.size() ? state.rows[index].data : -1;
}

void Controls::SetSliderRange(app::Control slider, std::int32_t maximum, std::int32_t page,
                              std::int32_t tick) {
  ControlState& state = states_.at(slider);
  state.maximum = maximum;
  state.page = page;
  if (tick != 0) state.tick = tick;
  state.position = std::clamp(state.position, 0, maximum);
}

void Controls::SetSliderPosition(app::Control slider, std::int32_t position) {
  ControlState& state = states_.at(slider);
  state.position = std::clamp(position, 0, state.maximum);
}

void Controls::MoveSlider(app::Control slider, int code, std::int32_t position) {
  namespace scroll = app::scroll;
  const ControlState& state = states_.at(slider);
  const std::map<int, std::int32_t> targets = {
      {scroll::kLineBack, state.position - 1},
      {scroll::kLineForward, state.position + 1},
      {scroll::kPageBack, state.position - state.page},
      {scroll::kPageForward, state.position + state.page},
      {scroll::kThumbMoving, position},
      {scroll::kFirst, 0},
      {scroll::kLast, state.maximum},
  };
  if (const auto target = targets.find(code); target != targets.end()) {
    SetSliderPosition(slider, target->second);
  }
}

// LogPane

void LogPane::Append(std::u16string_view text, app::LogColor color, std::size_t most) {
  if (text_.size() > most) {
    text_.clear();
    colors_.clear();
    Select(0, 0);
  }
  if (color != app::LogColor::AsBefore) {
    color_ = color;
    for (std::size_t i = selectionBegin_; i < selectionEnd_; ++i) colors_[i] = color;
  }
  text_ += text;
  colors_.resize(text_.size(), color_);
  Select(text_.size(), text_.size());
  ++scrolls;
}

void LogPane::Select(std::size_t begin, std::size_t end) {
  selectionBegin_ = std::min(begin, text_.size());
  selectionEnd_ = std::min(end, text_.size());
}

// Menu

namespace {

std::vector<MenuItem> BuildItems(std::span<const app::MenuEntry> entries) {
  std::vector<MenuItem> items;
  for (const app::MenuEntry& entry : entries) {
    items.push_back(
        {entry.kind, entry.command, WideFromUtf8(entry.text), true, false, BuildItems(entry.entries)});
  }
  return items;
}

MenuItem* FindIn(std::vector<MenuItem>& items, int command) {
  for (MenuItem& item : items) {
    if (item.kind == app::MenuEntry::Kind::Command && item.command == command) return &item;
    if (MenuItem* found = FindIn(item.items, command)) return found;
  }
  return nullptr;
}

bool InsertBefore(std::vector<MenuItem>& items, int before, const MenuItem& inserted) {
  for (auto it = items.begin(); it != items.end(); ++it) {
    if (it->kind == app::MenuEntry::Kind::Command && it->command == before) {
      items.insert(it, inserted);
      return true;
    }
    if (InsertBefore(it->items, before, inserted)) return true;
  }
  return false;
}

}  // namespace

Menu::Menu(Journal& journal) : journal_(journal) {
  for (const app::MenuPopup& popup : app::MenuTable()) {
    bar.push_back(
        {app::MenuEntry::Kind::Submenu, 0, WideFromUtf8(popup.text), true, false, BuildItems(popup.entries)});
  }
}

const MenuItem* Menu::Find(int command) const {
  return FindIn(const_cast<std::vector<MenuItem>&>(bar), command);
}

MenuItem& Menu::Get(int command) {
  MenuItem* item = FindIn(bar, command);
  if (item == nullptr) throw std::out_of_range("no menu item " + std::to_string(command));
  return *item;
}

bool Menu::IsEnabled(int command) const {
  for (const MenuItem& popup : bar) {
    auto items = popup.items;
    if (const MenuItem* item = FindIn(items, command)) return popup.enabled && item->enabled;
  }
  return false;
}

bool Menu::IsIn(int position, int command) const {
  auto items = bar.at(static_cast<std::size_t>(position)).items;
  return FindIn(items, command) != nullptr;
}

void Menu::SetItemText(int command, std::u16string_view text) {
  Get(command).text = text;
}

void Menu::InsertItemBefore(int before, int command, std::u16string_view text) {
  if (!InsertBefore(bar, before, {app::MenuEntry::Kind::Command, command, std::u16string(text)})) Get(before);
}

void Menu::SetPopupText(int position, std::u16string_view text, int submenu) {
  std::vector<MenuItem>& items = submenu == -1 ? bar : bar.at(static_cast<std::size_t>(submenu)).items;
  MenuItem& popup = items.at(static_cast<std::size_t>(position));
  if (popup.kind != app::MenuEntry::Kind::Submenu) throw std::out_of_range("no menu there");
  popup.text = text;
}

void Menu::SetEnabled(int command, bool enabled) {
  Get(command).enabled = enabled;
}

void Menu::SetChecked(int command, bool checked) {
  Get(command).checked = checked;
}

void Menu::SetPopupEnabled(int position, bool enabled) {
  bar.at(static_cast<std::size_t>(position)).enabled = enabled;
}

void Menu::OpenAtChart(int position, std::int32_t x, std::int32_t y) {
  openedAtChart = {position, x, y};
  if (whileOpen) whileOpen();
}

// Questions

app::Answer Questions::Ask(const app::Question& question) {
  asked.push_back(question);
  if (meanwhile) meanwhile();
  if (answers.empty() && otherwise) return *otherwise;
  if (answers.empty() && improviser != nullptr) return improviser->Answer(question);
  if (answers.empty()) throw std::logic_error("nobody answers \"" + Utf8FromWide(question.title) + "\"");
  const app::Answer answer = answers.front();
  answers.pop_front();
  return answer;
}

std::vector<std::filesystem::path> Questions::NextPick() {
  if (picks.empty() && improviser != nullptr) return improviser->Pick();
  if (picks.empty()) throw std::logic_error("nobody picks a file");
  std::vector<std::filesystem::path> pick = std::move(picks.front());
  picks.pop_front();
  return pick;
}

std::vector<std::filesystem::path> Questions::AskOpenFiles(const app::FileFilter& filter, bool multiple) {
  filesAsked.push_back({filter, false, multiple, {}});
  return NextPick();
}

bool Questions::AskSaveFile(const app::FileFilter& filter, std::filesystem::path& path) {
  filesAsked.push_back({filter, true, false, path});
  const std::vector<std::filesystem::path> pick = NextPick();
  if (pick.empty()) return false;
  path = pick.front();
  return true;
}

void RecordingRenderer::Render() {
  ++frames;
  platform::SleepMilliseconds(kFrameMilliseconds);
}

// Desktop

Desktop::Desktop(Settings& settings, TranslationStore& translations, std::filesystem::path deviceLogFile,
                 std::vector<std::filesystem::path> filesToOpen, MakeRenderer makeRenderer)
    : settings_(settings),
      translations_(translations),
      deviceLogFile_(std::move(deviceLogFile)),
      filesToOpen_(std::move(filesToOpen)),
      makeRenderer_(std::move(makeRenderer)) {
  queue.whenEmpty = [this] { return NextTimerOrPaint(); };
  // As the platform does it: while the mouse is captured the key is lost.
  queue.onAccelerator = [this](int command) {
    if (!chart.captured) application->mainWindow.OnAccelerator(command);
  };
  chart.onCaptureLost = [this] { application->chartWindow.OnCaptureLost(); };
  dialogs.meanwhile = [this] { DeliverPosted(); };
  questions.meanwhile = [this] { DeliverPosted(); };
  application.emplace(Ports());
}

Desktop::~Desktop() {
  const virtual_clock::Waiting forTheWorker;
  application.reset();  // it speaks to all the rest until it is gone
}

app::Shell Desktop::Ports() {
  // The folder of a test is the program's own as well.
  std::optional<std::filesystem::path> guide = deviceLogFile_.parent_path() / "guide.html";
  std::error_code error;
  if (!std::filesystem::exists(*guide, error)) guide.reset();
  const auto makeRenderer = [this](const UX::ChartScene& scene) {
    return makeRenderer_ ? makeRenderer_(scene, journal)
                         : std::make_unique<RecordingRenderer>(scene, journal);
  };
  return {*this,
          *this,
          chart,
          controls,
          logPane,
          menu,
          questions,
          dialogs,
          stepTable,
          queue,
          makeRenderer,
          settings_,
          deviceLogFile_,
          deviceLogFile_.parent_path(),
          deviceLogFile_.parent_path() / "state",
          filesToOpen_,
          translations_,
          guide,
          {{"Headless", "1"}}};
}

RecordingRenderer& Desktop::Renderer() {
  return static_cast<RecordingRenderer&>(*application->state.renderer);
}

bool Desktop::Do(app::PlatformStep step) {
  static constexpr const char* kNames[] = {"init common controls",
                                           "start graphics",
                                           "start network",
                                           "load names",
                                           "register main class",
                                           "register chart class",
                                           "create main window",
                                           "set default font",
                                           "show controls",
                                           "load logo",
                                           "take menu",
                                           "load accelerators",
                                           "delete logo",
                                           "stop graphics",
                                           "stop hid",
                                           "stop network"};
  journal.emplace_back(kNames[static_cast<std::size_t>(step)]);
  return step != app::PlatformStep::CreateMainWindow || !refuseWindow;
}

void Desktop::Post(std::uint32_t event, std::uintptr_t first, std::intptr_t second) {
  queue.Push({Event::Kind::Other, 0, false,
              [this, event, first, second] { application->mainWindow.OnEvent(event, first, second); }});
}

void Desktop::SetTitle(std::u16string_view text) {
  title = text;
  journal.push_back("title " + Utf8FromWide(text));
}

void Desktop::Show() {
  journal.emplace_back("show");
  application->mainWindow.OnSize(app::SizeKind::Restored);
  application->mainWindow.OnPaint();
  application->chartWindow.OnPaint();
}

void Desktop::StartTimer(int id, int milliseconds) {
  journal.push_back("start timer " + std::to_string(id) + " " + std::to_string(milliseconds));
  timer_ = {id, milliseconds};
  timerDue_ = virtual_clock::Seconds() + milliseconds / 1000.0;
}

void Desktop::StopTimer(int id) {
  journal.push_back("stop timer " + std::to_string(id));
  timer_.reset();
}

void Desktop::Destroy() {
  journal.emplace_back("destroy");
  application->mainWindow.OnDestroy();
}

void Desktop::PostQuit(int exitCode) {
  journal.push_back("quit " + std::to_string(exitCode));
  queue.Push({Event::Kind::Quit, exitCode, false, nullptr});
}

void Desktop::DeliverPosted() {
  ++modalWindows_;
  while (queue.HasPosted()) {
    queue.Take();
    queue.Dispatch();
  }
  --modalWindows_;
}

std::optional<Event> Desktop::NextTimerOrPaint() {
  if (chart.dirty) {
    chart.dirty = false;
    return Event{Event::Kind::Other, 0, false, [this] { application->chartWindow.OnPaint(); }};
  }
  if (timer_ && virtual_clock::Seconds() >= timerDue_) {
    timerDue_ = virtual_clock::Seconds() + timer_->second / 1000.0;
    return Event{Event::Kind::Other, 0, false,
                 [this, id = timer_->first] { application->mainWindow.OnTimer(id); }};
  }
  return std::nullopt;
}

}  // namespace headless
