#pragma once

// A shell in memory: each port keeps what it was told, so that a test can look at it, and answers as a window
// would. HeadlessUser (headless_user.h) drives it.

#include <array>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "app/application.h"
#include "app/commands.h"
#include "app/window/ports.h"
#include "chart/renderer_base.h"
#include "tests/support/headless_dialogs.h"
#include "tests/support/headless_table.h"
#include "tests/support/improviser.h"

namespace headless {

/// What happened at the ports, in order, one line each.
using Journal = std::vector<std::string>;

/// An event on its way through the queue of the user interface thread.
struct Event {
  enum class Kind { Other, KeyDown, Character, AltCharacter, Quit };

  Kind kind = Kind::Other;
  int key = 0;  // or character, or exit code
  bool ctrl = false;
  std::function<void()> deliver;  // to the window that it is for
};

/// The queue. Timer and paint events come when it is empty.
class Queue final : public app::EventSource {
 public:
  bool Take() override;
  bool OfferToAccelerators() override;
  void Dispatch() override;
  void AwaitEvent(int milliseconds) override;
  bool IsQuit() const override { return current_.kind == Event::Kind::Quit; }
  int ExitCode() const override { return current_.key; }

  /// Any thread.
  void Push(Event event);
  void PushFront(Event event);
  bool HasPosted() const;

  /// Gives an event where there is no other, if it has one: timers, paint.
  std::function<std::optional<Event>()> whenEmpty;
  /// Takes an accelerator's command.
  std::function<void(int command)> onAccelerator;

 private:
  mutable std::mutex mutex_;
  std::deque<Event> events_;  // guarded by mutex_

  Event current_;
  const std::vector<app::Accelerator> accelerators_ = app::AcceleratorTable();
};

struct ControlState {
  app::ControlRow row;
  std::u16string text;
  Rect place;
  bool enabled = true;
  std::vector<app::ListRow> rows = {};
  std::int32_t current = -1;
  // Of a slider.
  std::int32_t maximum = 100;
  std::int32_t page = 20;
  std::int32_t tick = 1;
  std::int32_t position = 0;
  // For assistive technology.
  std::u16string name = {};
  std::u16string description = {};
};

class Controls final : public app::ControlsPort {
 public:
  explicit Controls(Journal& journal) : journal_(journal) {}

  void Create(const app::ControlRow& row, std::u16string_view text, const Rect& place) override;
  void Move(app::Control control, const Rect& place) override;
  void SetText(app::Control control, std::u16string_view text) override;
  void SetEnabled(app::Control control, bool enabled) override;
  void SetName(app::Control control, std::u16string_view name) override { states_.at(control).name = name; }
  void SetDescription(app::Control control, std::u16string_view text) override {
    states_.at(control).description = text;
  }
  void SetRows(app::Control list, const std::vector<app::ListRow>& rows) override;
  std::vector<std::int32_t> SelectedRows(app::Control list) const override;
  std::int32_t CurrentRow(app::Control list) const override;
  std::int32_t RowData(app::Control list, std::int32_t row) const override;
  void SetScrollBar(const TCBase::Program::ViewScrollInfo& info) override { scrollBar = info; }
  void SetSliderRange(app::Control slider, std::int32_t maximum, std::int32_t page,
                      std::int32_t tick) override;
  void SetSliderPosition(app::Control slider, std::int32_t position) override;

  /// What a user's click does.
  void SelectRow(app::Control list, std::int32_t row, bool selected);
  /// What a slider does before it tells of a click, a key or a drag; `position` is where the thumb is
  /// dragged.
  void MoveSlider(app::Control slider, int code, std::int32_t position);
  std::int32_t SliderPosition(app::Control slider) const { return states_.at(slider).position; }
  std::int32_t RowCount(app::Control list) const;
  const ControlState& At(app::Control control) const { return states_.at(control); }
  bool Exists(app::Control control) const { return states_.contains(control); }
  /// Controls moved since the start, in order.
  std::vector<app::Control> moved;
  TCBase::Program::ViewScrollInfo scrollBar;

 private:
  Journal& journal_;
  std::map<app::Control, ControlState> states_;
};

/// A rich text with a caret and a selection, which the user moves too.
class LogPane final : public app::LogPanePort {
 public:
  void Append(std::u16string_view text, app::LogColor color, std::size_t most) override;
  bool HasFocus() const override { return hasFocus; }
  void SelectAll() override { Select(0, text_.size()); }

  const std::u16string& Text() const { return text_; }
  std::size_t Length() const { return text_.size(); }
  bool IsRedAt(std::size_t position) const { return colors_.at(position) == app::LogColor::Red; }
  /// What a drag of the mouse over the text does; a click, if both ends are one.
  void Select(std::size_t begin, std::size_t end);
  std::size_t SelectedLength() const { return selectionEnd_ - selectionBegin_; }
  int scrolls = 0;
  bool hasFocus = false;

 private:
  std::u16string text_;
  std::vector<app::LogColor> colors_;  // one for each unit of the text
  std::size_t selectionBegin_ = 0;
  std::size_t selectionEnd_ = 0;
  app::LogColor color_ = app::LogColor::AsBefore;  // of what is put in
};

struct MenuItem {
  app::MenuEntry::Kind kind = app::MenuEntry::Kind::Separator;
  int command = 0;
  std::u16string text;
  bool enabled = true;
  bool checked = false;
  std::vector<MenuItem> items = {};  // of a submenu or a menu of the bar
};

class Menu final : public app::MenuPort {
 public:
  explicit Menu(Journal& journal);

  bool HasItem(int command) const override { return Find(command) != nullptr; }
  void SetItemText(int command, std::u16string_view text) override;
  void InsertItemBefore(int before, int command, std::u16string_view text) override;
  void SetPopupText(int position, std::u16string_view text, int submenu) override;
  void SetEnabled(int command, bool enabled) override;
  void SetChecked(int command, bool checked) override;
  void SetPopupEnabled(int position, bool enabled) override;
  void Redraw() override { journal_.push_back("redraw menu"); }
  void OpenAtChart(int position, std::int32_t x, std::int32_t y) override;

  /// Null if there is no such item.
  const MenuItem* Find(int command) const;
  /// By itself and by the menu of the bar that it stands in.
  bool IsEnabled(int command) const;
  /// In the menu of the bar at `position`.
  bool IsIn(int position, int command) const;
  std::vector<MenuItem> bar;

  struct Opened {
    int position = -1;  // in the bar
    std::int32_t x = 0;
    std::int32_t y = 0;

    friend bool operator==(const Opened&, const Opened&) = default;
  };
  std::optional<Opened> openedAtChart;
  /// What goes on while that menu stands open.
  std::function<void()> whileOpen;

 private:
  MenuItem& Get(int command);

  Journal& journal_;
};

/// A question without an answer is a mistake of the test: std::logic_error.
class Questions final : public app::QuestionsPort {
 public:
  app::Answer Ask(const app::Question& question) override;
  std::vector<std::filesystem::path> AskOpenFiles(const app::FileFilter& filter, bool multiple) override;
  bool AskSaveFile(const app::FileFilter& filter, std::filesystem::path& path) override;

  /// What goes on while a question stands open.
  std::function<void()> meanwhile;

  // In the order in which they will be used, and who goes on behind the last; null: nobody.
  std::deque<app::Answer> answers;
  std::deque<std::vector<std::filesystem::path>> picks;
  /// What those get that no answer is left for; without it they are a failure.
  std::optional<app::Answer> otherwise;
  Improviser* improviser = nullptr;

  std::vector<app::Question> asked;
  struct FileQuestion {
    app::FileFilter filter;
    bool save = false;
    bool multiple = false;
    std::filesystem::path startName;
  };
  std::vector<FileQuestion> filesAsked;

 private:
  std::vector<std::filesystem::path> NextPick();
};

/// Draws nothing, counts, and takes a frame's time for each picture.
class RecordingRenderer : public UX::RendererBase {
 public:
  RecordingRenderer(const UX::ChartScene& scene, Journal& journal) : RendererBase(scene), journal_(journal) {}

  void Initialise() override { journal_.push_back("renderer: initialise"); }
  void Release() override { journal_.push_back("renderer: release"); }
  void Render() override;
  void Update() override { ++updates; }
  void Rebuild() override { journal_.push_back("renderer: rebuild"); }
  void Relayout() override { journal_.push_back("renderer: relayout"); }
  void MouseMoved(std::int32_t x, std::int32_t y) override {
    mouse = {x, y};
    hoverAtMove = {hoverStep.channel, hoverStep.step};
  }
  bool IsAnimating() override { return animating; }

  int frames = 0;
  int updates = 0;
  std::pair<std::int32_t, std::int32_t> mouse{-1, -1};
  std::pair<std::int32_t, std::int32_t> hoverAtMove{-1, -1};  // the step under it, as it was told then
  bool animating = false;

 private:
  Journal& journal_;
};

enum class Focus { MainWindow, Chart, Control };

class ChartWindow final : public UX::ChartWindowPort {
 public:
  explicit ChartWindow(Focus& focus) : focus_(focus) {}

  void Invalidate(const Rect& area) override {
    invalidated.push_back(area);
    dirty = true;
  }
  void TakeFocus() override { focus_ = Focus::Chart; }
  bool HasFocus() const override { return focus_ == Focus::Chart; }
  void Capture() override { captured = true; }
  void ReleaseCapture() override { LoseCapture(); }
  double DoubleClickSeconds() const override { return 0.5; }

  /// To nobody, or to another window.
  void LoseCapture() {
    if (std::exchange(captured, false) && onCaptureLost) onCaptureLost();
  }
  std::function<void()> onCaptureLost;

  std::vector<Rect> invalidated;  // since the start
  bool dirty = false;             // since it was painted last
  bool captured = false;

 private:
  Focus& focus_;
};

/// One run of the program: the windows, what they were told, and the application that they belong to.
class Desktop final : public app::PlatformPort, public app::MainWindowPort {
 public:
  /// Makes the renderer, where it is to be another than the plain one.
  using MakeRenderer =
      std::function<std::unique_ptr<RecordingRenderer>(const UX::ChartScene& scene, Journal& journal)>;

  /// The settings and the translations outlive the desktop.
  Desktop(Settings& settings, TranslationStore& translations, std::filesystem::path deviceLogFile,
          std::vector<std::filesystem::path> filesToOpen = {}, MakeRenderer makeRenderer = {});
  ~Desktop() override;

  // app::PlatformPort
  bool Do(app::PlatformStep step) override;
  // app::MainWindowPort
  void Post(std::uint32_t event, std::uintptr_t first, std::intptr_t second) override;
  void SetTitle(std::u16string_view text) override;
  app::Size ClientSize() const override { return size; }
  void Show() override;
  void StartTimer(int id, int milliseconds) override;
  void StopTimer(int id) override;
  void ShowWork(const app::WorkSign& sign) override { work.push_back(sign); }
  bool OpenFile(const std::filesystem::path& file) override {
    opened.push_back(file);
    return opensFiles;
  }
  void PaintLogo(const Rect& area) override { logo = area; }
  void Destroy() override;
  void PostQuit(int exitCode) override;
  void TakeFocus() override { focus = Focus::MainWindow; }
  bool TakesInput() const override { return modalWindows_ == 0; }

  RecordingRenderer& Renderer();

  Journal journal;
  Queue queue;
  Controls controls{journal};
  LogPane logPane;
  Menu menu{journal};
  Questions questions;
  Dialogs dialogs;
  StepTable stepTable;

  std::u16string title;
  app::Size size{app::kWindowWidth, app::kWindowHeight};
  std::vector<app::WorkSign> work;            // shown outside the window, since the start
  std::vector<std::filesystem::path> opened;  // with other programs, since the start
  bool opensFiles = true;                     // there are such programs
  std::optional<Rect> logo;                   // where it was painted last
  Focus focus = Focus::MainWindow;
  ChartWindow chart{focus};
  bool refuseWindow = false;  // CreateMainWindow fails

  std::optional<app::Application> application;

 private:
  app::Shell Ports();
  std::optional<Event> NextTimerOrPaint();
  /// What goes on while a dialog or a question stands open: events posted to the main window arrive, input
  /// does not.
  void DeliverPosted();

  Settings& settings_;
  TranslationStore& translations_;
  const std::filesystem::path deviceLogFile_;
  const std::vector<std::filesystem::path> filesToOpen_;
  const MakeRenderer makeRenderer_;
  int modalWindows_ = 0;
  std::optional<std::pair<int, int>> timer_;  // id and milliseconds
  double timerDue_ = 0.0;                     // on the virtual clock
};

}  // namespace headless
