#include "tests/app/program_truths.h"

#include <algorithm>
#include <bit>
#include <optional>
#include <set>
#include <vector>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "OvkLib/src/ovk_xml_reader.h"
#include "app/commands.h"
#include "app/main_loop.h"
#include "app/table/step_cells.h"
#include "app/window/control_table.h"
#include "chart/scene_queries.h"
#include "chart/static_labels.h"
#include "chart/step_marker.h"
#include "common/message.h"
#include "common/truncate.h"
#include "devices/shown_name.h"
#include "program/builtin_modes.h"
#include "program/channel_edit.h"
#include "program/program_file.h"
#include "program/step_group.h"
#include "program/view.h"
#include "tests/support/drawing_renderer.h"

using namespace TCBase::Program;
using app::Control;

namespace {

// No deed enters more in the history: a key that is held is one entry, and a drag of a slider one for each
// place.
constexpr std::int32_t kMostEntriesOfADeed = 40;

constexpr int kPatience = 10;
constexpr double kSecondsOfDrawing = 1.0;  // that the main loop goes on with behind a touch of the chart

void Require(bool isTrue, const std::string& otherwise) {
  if (!isTrue) throw Broken(otherwise);
}

void RequireSame(const std::string& shown, const std::string& meant, const std::string& what) {
  if (shown != meant) throw Broken(what + ": \"" + shown + "\" is shown, \"" + meant + "\" is so");
}

std::string Number(std::int64_t number) {
  return std::to_string(number);
}

bool AreSame(const Step& a, const Step& b) {
  return a.hour == b.hour && a.minute == b.minute && a.jump == b.jump &&
         std::bit_cast<std::uint32_t>(a.value) == std::bit_cast<std::uint32_t>(b.value);
}

std::string Told(const Channel& channel) {
  std::string told;
  for (const Step& step : channel)
    told += ToTimeText(step) + ' ' + std::to_string(step.value) + (step.jump ? "J, " : ", ");
  return told;
}

// To the last bit, but for what is no part of the light program: serial numbers, the view, the current mode.
std::optional<std::string> Difference(const ModeListView& a, const ModeListView& b) {
  if (a.modes.size() != b.modes.size()) return "the number of modes";
  for (std::size_t i = 0; i < a.channelInfos.size(); ++i) {
    const ChannelInfo& one = a.channelInfos[i];
    const ChannelInfo& other = b.channelInfos[i];
    if (one.name != other.name || one.color != other.color)
      return "channel " + Number(static_cast<std::int64_t>(i)) + "'s name or colour";
  }
  for (std::size_t i = 0; i < a.modes.size(); ++i) {
    const std::string mode = "mode " + Number(static_cast<std::int64_t>(i));
    if (a.modes[i].name != b.modes[i].name || a.modes[i].description != b.modes[i].description)
      return mode + "'s name or description";
    for (std::size_t c = 0; c < a.modes[i].channels.size(); ++c) {
      if (!std::ranges::equal(a.modes[i].channels[c], b.modes[i].channels[c], AreSame))
        return mode + "'s channel " + Number(static_cast<std::int64_t>(c)) + ", " +
               Told(a.modes[i].channels[c]) + "instead of " + Told(b.modes[i].channels[c]);
    }
  }
  return std::nullopt;
}

void RequireSameDocument(const ModeListView& is, const ModeListView& was, const std::string& after) {
  if (const auto difference = Difference(is, was)) throw Broken(after + " another document: " + *difference);
}

// What a file carries of a document, which is all but the fractions of the percents.
ModeListView AsAFileHasIt(ModeListView document) {
  for (Mode& mode : document.modes) {
    for (Channel& channel : mode.channels) {
      for (Step& step : channel) step.value = static_cast<float>(TruncateToInt(step.value));
    }
  }
  return document;
}

std::string Cells(const app::TableRow& row) {
  std::string text;
  for (const std::u16string& cell : row) text += (text.empty() ? "" : " | ") + Utf8FromWide(cell);
  return text;
}

// When a control may be used: when the command that it gives may be given.
bool MayBeUsed(const app::ControlRow& row, bool demoRuns) {
  const auto command = std::ranges::find(app::CommandTable(), row.id, &app::Command::number);
  return app::Allows(command == app::CommandTable().end() ? row.when : command->when, demoRuns);
}

// The first line of the frame that another one shows; nothing where no text is kept.
std::string FirstDifference(headless::DrawingRenderer& renderer) {
  const std::vector<std::string> is = renderer.TextNow();
  const auto [now, shown] = std::ranges::mismatch(is, renderer.shownText);
  if (!renderer.keepsText || (now == is.end() && shown == renderer.shownText.end())) return {};
  return ": " + (shown == renderer.shownText.end() ? "nothing" : *shown) + ", and not " +
         (now == is.end() ? "nothing" : *now);
}

// The main loop draws without being asked: what it has not drawn yet it will.
bool DrawsByItself(headless::HeadlessUser& user) {
  app::AppState& state = user.State();
  const double atRest = state.idleTimer.IsFrozen() ? state.idleTimer.Elapsed() : state.idleTimer.Now();
  return state.demoState.IsRunning() || atRest < kSecondsOfDrawing ||
         app::IsChartMoving(*state.renderer, state.chartLayout);
}

}  // namespace

void ProgramTruths::CheckState(bool mayHaveUndone) {
  CheckDocument();
  CheckSelection();
  CheckLists();
  CheckTexts();
  CheckScrollBar(mayHaveUndone);
  CheckTable();
  CheckControls();
}

void ProgramTruths::CheckDocument() {
  const app::AppState& state = user_.State();
  const ModeListView& document = state.program;
  Require(FindCurrentMode(document) != nullptr, "the current mode is none of the document's");
  Require(
      document.viewStart >= 0 && document.viewStart < document.viewEnd && document.viewEnd <= kSecondsPerDay,
      "the view is no part of the day: " + Number(document.viewStart) + " to " + Number(document.viewEnd));
  const app::UndoStack& history = state.undoStack;
  Require(history.index() >= 0 && history.index() <= history.size(),
          "the history stands at " + Number(history.index()) + " of " + Number(history.size()));
  Require(history.size() <= depth_ + kMostEntriesOfADeed,
          "one deed has brought the history from " + Number(depth_) + " to " + Number(history.size()));
  depth_ = history.size();
}

void ProgramTruths::CheckSelection() {
  const app::AppState& state = user_.State();
  for (const StepSelection* selection : {&state.selection, &state.hoverStep}) {
    Require(selection->channel >= -1 && selection->channel < kChannelCount && selection->step >= -1,
            "selected: channel " + Number(selection->channel) + ", step " + Number(selection->step));
  }
  for (const std::uint32_t id : SelectedStepIds(state.selection, state.stepGroup))
    Require(FindStep(state.program, id).channel >= 0, "a selected step is none of the current mode's");
}

void ProgramTruths::CheckLists() {
  const app::AppState& state = user_.State();
  const std::vector<std::string> modes = user_.List(Control::ModeList);
  Require(modes.size() == state.program.modes.size(), "the list has " +
                                                          Number(static_cast<std::int64_t>(modes.size())) +
                                                          " modes, the program another number");
  for (std::size_t i = 0; i < modes.size(); ++i)
    RequireSame(modes[i], Utf8FromWide(WideFromUtf8(state.program.modes[i].name)), "a row of the modes");
  Require(user_.SelectedRows(Control::ModeList) == std::vector<int>{state.program.currentMode},
          "another mode is selected than the current one");
  Require(user_.List(Control::DeviceList).size() == state.devices.size(),
          "the list has another number of devices than there are");
}

void ProgramTruths::CheckTexts() {
  const app::AppState& state = user_.State();
  const std::string file = user_.GetSettings().GetValue("last_open_file");
  if (!file.empty())
    RequireSame(user_.Title(), "Lumarine - " + Utf8FromWide(WideFromUtf8(file)), "the title");
  if (user_.GetDesktop().chart.captured) return;  // while something is dragged they wait
  const Mode& mode = CurrentMode(state.program);
  std::string description = Message("Mode {1} (Steps: {2})", mode.name, CountModeSteps(mode)).utf8();
  if (!mode.description.empty()) description += ": " + mode.description;
  RequireSame(user_.Text(Control::ModeDescription), Utf8FromWide(WideFromUtf8(description)),
              "the description");
}

void ProgramTruths::CheckScrollBar(bool mayHaveUndone) {
  const app::AppState& state = user_.State();
  const ViewScrollInfo is = GetViewScrollInfo(state.program);
  const ViewScrollInfo& shown = user_.GetDesktop().controls.scrollBar;
  // Undo and redo bring the view back, and leave the scroll bar to the next change of it.
  // A bar goes no further than its end, wherever it is put.
  const std::int32_t position = std::clamp(shown.position, 0, std::max(shown.maximum - shown.page, 0));
  const bool isSame = is.page == shown.page && is.position == position;
  scrollBarLags_ = !isSame && (scrollBarLags_ || (mayHaveUndone && state.undoStack.size() > 0));
  Require(isSame || scrollBarLags_, "the scroll bar shows " + Number(position) + " of " + Number(shown.page) +
                                        ", the view is " + Number(is.position) + " of " + Number(is.page));
}

void ProgramTruths::CheckTable() {
  if (!user_.HasTable()) return;
  const app::AppState& state = user_.State();
  const Mode& mode = CurrentMode(state.program);
  headless::StepTable& table = user_.GetDesktop().stepTable;
  if (const Channel* const channel = SelectedChannel(state.selection)) {
    const std::string name = UX::ShownChannelName(state.program, state.selection.channel);
    RequireSame(user_.TableTitle(), Utf8FromWide(Message("Step table: {1}, {2}", mode.name, name).ToWide()),
                "the table's title");
    const auto& rows = table.At(app::TableSheet::Steps).rows;
    Require(rows.size() == channel->size(),
            "the table has another number of rows than the channel has steps");
    for (std::size_t i = 0; i < rows.size(); ++i)
      RequireSame(Cells(rows[i]), Cells(app::StepCells((*channel)[i])), "a row of the table");
    std::vector<std::int32_t> selected;
    for (std::size_t i = 0; i < channel->size(); ++i) {
      if (IsStepSelected(state.selection, state.stepGroup, (*channel)[i]))
        selected.push_back(static_cast<std::int32_t>(i));
    }
    Require(table.selection.rows == selected, "the table's selected rows are not the selected steps");
  }
  std::vector<ModeStep> merged;
  CollectModeSteps(mode, merged);
  const auto& rows = table.At(app::TableSheet::Merged).rows;
  Require(rows.size() == merged.size(), "the table has another number of rows than would be sent");
  for (std::size_t i = 0; i < rows.size(); ++i)
    RequireSame(Cells(rows[i]), Cells(app::MergedCells(merged[i])), "a row as sent");
}

void ProgramTruths::CheckControls() {
  const auto wrong = [this]() -> const app::ControlRow* {
    const bool demoRuns = user_.State().demoState.IsRunning();
    for (const app::ControlRow& row : app::ControlTable()) {
      // A channel without power disables its slider besides.
      if (row.control == Control::PowerSlider && !demoRuns) continue;
      if (user_.IsEnabled(row.control) != MayBeUsed(row, demoRuns)) return &row;
    }
    return nullptr;
  };
  // A demo that has just begun or ended is seen by the next timer.
  for (int waits = 0; waits < kPatience && wrong() != nullptr; ++waits) user_.Wait(0.3);
  const app::ControlRow* const row = wrong();
  if (row != nullptr)
    throw Broken("control " + Number(static_cast<int>(row->control)) + " is " +
                 (user_.IsEnabled(row->control) ? "enabled" : "disabled") + " against its command");
}

void ProgramTruths::CheckMenus() {
  const auto wrong = [this]() -> std::string {
    user_.GetDesktop().application->mainWindow.OnInitMenuPopup();
    const app::AppState& state = user_.State();
    const bool demoRuns = state.demoState.IsRunning();
    for (const app::Command& command : app::CommandTable()) {
      if (command.menu == app::menu::kNone) continue;
      const bool may = app::Allows(command.when, demoRuns) && app::IsMenuEnabled(command.menu, demoRuns) &&
                       (!command.needsStep || SelectedStep(state.selection) != nullptr);
      if (user_.GetDesktop().menu.IsEnabled(command.number) != may)
        return Number(command.number) +
               (may ? " is greyed and may be given" : " may not be given and is not greyed");
    }
    return {};
  };
  for (int waits = 0; waits < kPatience && !wrong().empty(); ++waits) user_.Wait(0.3);
  if (const std::string item = wrong(); !item.empty()) throw Broken("item " + item);
}

void ProgramTruths::CheckUndo() {
  app::AppState& state = user_.State();
  if (state.demoState.IsRunning() || user_.GetDesktop().chart.captured || state.undoStack.index() == 0)
    return;
  // A demo that begins in between greys the way back.
  const auto thereAndBack = [this] {
    return user_.Choose(app::command::kUndo) && user_.Choose(app::command::kRedo);
  };
  // Amid the history, redo gives the entry of that place: the wheel and the power slider may have changed it
  // since.
  scrollBarLags_ = true;
  if (state.undoStack.index() < state.undoStack.size() && !thereAndBack()) return;
  const ModeListView was = state.program;
  if (!thereAndBack()) return;
  RequireSameDocument(state.program, was, "undo and redo give");
}

void ProgramTruths::CheckWholeHistory() {
  app::AppState& state = user_.State();
  if (state.demoState.IsRunning() || user_.GetDesktop().chart.captured) return;
  if (state.undoStack.index() < state.undoStack.size()) {
    state.undoStack.Undo();
    state.undoStack.Redo();
  }
  const ModeListView was = state.program;
  // An entry that was like the document is the last one: nothing was appended for the way back.
  const auto place = [&state, end = state.undoStack.index()] {
    return std::min(end, state.undoStack.size() - 1);
  };
  scrollBarLags_ = true;
  while (state.undoStack.Undo())
    Require(FindCurrentMode(state.program) != nullptr, "undo gives no current mode");
  while (state.undoStack.index() < place())
    Require(state.undoStack.Redo(), "what was undone cannot be redone");
  RequireSameDocument(state.program, was, "the whole history back and forth gives");
}

void ProgramTruths::CheckFile() {
  const ModeListView& document = user_.State().program;
  ovk::xml::element written;
  BuildProgramXml(document, written);
  ovk::string text;
  ovk::xml::serialize(text, written, 0);
  const std::string bytes(text.view());
  ovk::xml::element read;
  Require(ovk::xml::parse(read, bytes.data(), bytes.size()), "a saved program is not well-formed");
  ovk::xml::trim(read);
  ModeListView loaded = NewProgram();
  Require(ReadProgramXml(read, loaded), "a saved program cannot be read");
  RequireSameDocument(loaded, AsAFileHasIt(document), "a file gives");
  for (std::size_t i = 0; i < loaded.channelInfos.size(); ++i)
    RequireSame(loaded.channelInfos[i].description, document.channelInfos[i].description,
                "a channel's description");
}

void ProgramTruths::CheckChart() {
  for (int turns = 0; user_.GetDesktop().chart.dirty && turns < 3; ++turns) user_.Turn();
  if (!user_.IsRunning() || DrawsByItself(user_)) return;
  auto& renderer = dynamic_cast<headless::DrawingRenderer&>(user_.GetDesktop().Renderer());
  const headless::DigestCanvas now = renderer.DrawnNow();
  Require(now.digest == renderer.shown.digest, "the chart shows an older frame" + FirstDifference(renderer));
  Require(renderer.checking.fault.empty(), "the chart draws " + std::string(renderer.checking.fault));
  Require(renderer.MadeNow() == renderer.labels.made, "the chart's labels, colours or fonts are older ones");

  const UX::ChartScene& scene = renderer.Scene();
  const Rect window = scene.layout.ChartWindowRect();
  const std::set<headless::DrawnMarker> drawn(now.markers.begin(), now.markers.end());
  for (std::int32_t lane = 0; lane < kChannelCount; ++lane) {
    for (const Step& step : UX::ChannelOfLane(scene.program, lane)) {
      const UX::MarkerCenter center = UX::GetMarkerCenter(scene.layout.LaneRect(lane), scene.program, step);
      if (center.x < 0 || center.x > window.width || center.y < 0 || center.y > window.height) continue;
      const headless::DrawnMarker marker{static_cast<float>(center.x), static_cast<float>(center.y),
                                         step.jump, IsStepSelected(scene.selection, scene.group, step)};
      Require(drawn.contains(marker), "the step at " + ToTimeText(step) + " of channel " + Number(lane) +
                                          (marker.isSelected ? ", selected," : "") + " is not on the chart");
    }
  }
}
