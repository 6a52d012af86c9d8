// What a random user does, word by word.

#include <algorithm>
#include <array>
#include <map>
#include <utility>

#include "app/commands.h"
#include "tests/support/files.h"
#include "tests/support/random_user.h"
#include "tests/support/window_user.h"

namespace {

using app::Control;
namespace command = app::command;
namespace key = app::key;
namespace scroll = app::scroll;

constexpr int kKeys[] = {
    key::kBackspace,      key::kTab,       key::kEnter,          key::kEscape, key::kSpace, key::kPageUp,
    key::kPageDown,       key::kEnd,       key::kHome,           key::kLeft,   key::kUp,    key::kRight,
    key::kDown,           key::kInsert,    key::kDelete,         key::kJ,      key::kF1,    key::kF2,
    key::kNumpadMultiply, key::kNumpadAdd, key::kNumpadSubtract, 'A',          'Q',         '7'};
constexpr int kChartKeys[] = {key::kLeft,   key::kUp, key::kRight, key::kDown,
                              key::kDelete, key::kJ,  key::kSpace};
constexpr int kLetters[] = {'A', 'C', 'T', 'V', 'X', 'Y', 'Z', 'S', 'O'};
constexpr Control kBars[] = {Control::ScrollBar, Control::ZoomSlider, Control::PowerSlider};
constexpr int kScrollCodes[] = {scroll::kLineBack,    scroll::kLineForward, scroll::kPageBack,
                                scroll::kPageForward, scroll::kFirst,       scroll::kLast};

// What reaches beyond the program: the network, a browser, another program.
bool ReachesOut(int number) {
  return number == command::kScanWifi || number == command::kSetupWifi || number == command::kCheckUp ||
         number == command::kGuide;
}

int AnyCommand(Dice& dice, bool isReal) {
  std::vector<int> numbers;
  for (const app::Command& row : app::CommandTable()) {
    if (row.menu != app::menu::kNone && row.number != command::kExit && !(isReal && ReachesOut(row.number)))
      numbers.push_back(row.number);
  }
  const int number = dice.AnyOf(numbers);
  // The languages have a row together.
  return number == command::kEnglish ? number + dice.Below(9) : number;
}

std::string Told(int x, int y) {
  return std::to_string(x) + "," + std::to_string(y);
}

std::string GiveCommand(RandomUser& monkey) {
  const int number = AnyCommand(monkey.dice(), monkey.place().isReal);
  const bool was = monkey.user().Choose(number);
  return std::to_string(number) + (was ? "" : ", greyed");
}

// What changes most, and so would come too seldom among all.
std::string EditByCommand(RandomUser& monkey) {
  constexpr int kEdits[] = {command::kUndo,
                            command::kRedo,
                            command::kSelectAllSteps,
                            command::kDeleteStep,
                            command::kToggleJump,
                            command::kCopySteps,
                            command::kPasteSteps,
                            command::kMoveStepsUp,
                            command::kMoveStepsDown,
                            command::kClearSteps,
                            command::kChangeSteps,
                            command::kManualStepsAdd,
                            command::kManualStepsEdit,
                            command::kNewProgram,
                            command::kReefTemplate,
                            command::kEndpointStart};
  const int number = monkey.dice().AnyOf(kEdits);
  return std::to_string(number) + (monkey.user().Choose(number) ? "" : ", greyed");
}

std::string PressKeys(RandomUser& monkey) {
  Dice& dice = monkey.dice();
  User& user = monkey.user();
  if (dice.OneIn(4)) {
    const int letter = dice.AnyOf(kLetters);
    user.PressKey(letter, true);
    return std::string("Ctrl+") + static_cast<char>(letter);
  }
  const int pressed = dice.OneIn(2) ? dice.AnyOf(kChartKeys) : dice.AnyOf(kKeys);
  if (dice.OneIn(3)) {
    const int times = dice.Between(1, 8);
    user.HoldKey(pressed, times);
    return std::to_string(pressed) + " times " + std::to_string(times);
  }
  user.PressKey(pressed);
  return std::to_string(pressed);
}

app::HeldKeys AnyHeld(Dice& dice) {
  return {.ctrl = dice.OneIn(5), .shift = dice.OneIn(6)};
}

std::string Drag(RandomUser& monkey) {
  Dice& dice = monkey.dice();
  User& user = monkey.user();
  const auto [x, y] = monkey.AnyPoint();
  user.HoldModifiers(AnyHeld(dice));
  user.MoveMouse(x, y);
  user.HoldButton();
  std::string told = Told(x, y);
  for (int moves = dice.Below(4); moves > 0 && user.IsRunning(); --moves) {
    const auto [toX, toY] = monkey.AnyPoint();
    user.MoveMouse(toX, toY);
    told += " to " + Told(toX, toY);
    if (dice.OneIn(12)) user.PressKey(dice.AnyOf(kChartKeys));
    if (dice.OneIn(20)) user.Wait(0.3);
    auto* const window = dynamic_cast<WindowUser*>(&user);
    if (window != nullptr && dice.OneIn(15)) window->TakeCapture();
  }
  user.ReleaseButton();
  user.HoldModifiers({});
  return told;
}

std::string MoveMouse(RandomUser& monkey) {
  const auto [x, y] = monkey.AnyPoint();
  monkey.user().MoveMouse(x, y);
  return Told(x, y);
}

std::string DoubleClick(RandomUser& monkey) {
  const auto [x, y] = monkey.AnyPoint();
  monkey.user().DoubleClickChart(x, y);
  return Told(x, y);
}

std::string UseChartMenu(RandomUser& monkey) {
  const auto [x, y] = monkey.AnyPoint();
  if (monkey.dice().OneIn(2)) {
    monkey.user().RightClickChart(x, y);
    return Told(x, y);
  }
  constexpr int kItems[] = {command::kDeleteStep,   command::kToggleJump, command::kCopySteps,
                            command::kPasteSteps,   command::kClearSteps, command::kManualStepsEdit,
                            command::kRenameChannel};
  const int number = monkey.dice().AnyOf(kItems);
  const bool was = monkey.user().ChooseAtChart(x, y, number);
  return Told(x, y) + ": " + std::to_string(number) + (was ? "" : ", greyed");
}

std::string TurnWheel(RandomUser& monkey) {
  Dice& dice = monkey.dice();
  const auto [x, y] = monkey.AnyPoint();
  const int notches = dice.OneIn(2) ? dice.Between(1, 3) : -dice.Between(1, 3);
  monkey.user().TurnWheel(x, y, notches, dice.OneIn(3), dice.OneIn(4));
  return Told(x, y) + " by " + std::to_string(notches);
}

std::string ClickList(RandomUser& monkey) {
  Dice& dice = monkey.dice();
  User& user = monkey.user();
  const Control list = dice.OneIn(2) ? Control::ModeList : Control::DeviceList;
  const auto rows = static_cast<int>(user.List(list).size());
  // Real lists show the rows that they have room for.
  if (rows == 0) return "no row";
  const int row = dice.Below(monkey.place().isReal ? std::min(rows, 3) : rows);
  if (list == Control::DeviceList && dice.OneIn(3)) {
    user.CtrlClickRow(list, row);
  } else if (dice.OneIn(5)) {
    user.DoubleClickRow(list, row);
  } else {
    user.ClickRow(list, row);
  }
  return (list == Control::ModeList ? "mode " : "device ") + std::to_string(row);
}

std::string PressButton(RandomUser& monkey) {
  static const std::map<Control, std::string> kButtons = {{Control::AddModeButton, "add"},
                                                          {Control::DeleteModeButton, "delete"},
                                                          {Control::PlayButton, "play"},
                                                          {Control::StopButton, "stop"}};
  const auto& [button, name] = *std::next(kButtons.begin(), monkey.dice().Below(4));
  monkey.user().Press(button);
  return name;
}

std::string Scroll(RandomUser& monkey) {
  Dice& dice = monkey.dice();
  User& user = monkey.user();
  const Control bar = dice.AnyOf(kBars);
  if (dice.OneIn(2)) {
    const int code = dice.AnyOf(kScrollCodes);
    // Nobody goes to an end of the bar but with the thumb.
    if (bar == Control::ScrollBar && code >= scroll::kFirst) return "nothing";
    user.Scroll(bar, code);
    return std::to_string(static_cast<int>(bar)) + " " + std::to_string(code);
  }
  if (!user.IsEnabled(bar)) return "disabled";
  const int most = bar == Control::ScrollBar ? 1440 : bar == Control::ZoomSlider ? 22 : 100;
  for (int moves = dice.Between(1, 3); moves > 0; --moves)
    user.Scroll(bar, scroll::kThumbMoving, dice.Between(0, most));
  user.Scroll(bar, scroll::kThumbReleased);
  return std::to_string(static_cast<int>(bar)) + " dragged";
}

std::string ChangeWindow(RandomUser& monkey) {
  Dice& dice = monkey.dice();
  User& user = monkey.user();
  switch (dice.Below(5)) {
    case 0:
      user.Maximize();
      user.Restore();
      return "maximized and back";
    case 1:
      user.Minimize();
      if (dice.OneIn(2)) user.Wait(0.2);
      user.Restore();
      return "minimized and back";
    case 2:
      user.ClickBackground();
      return "background";
    default: {
      const int width = dice.Between(300, 1500);
      const int height = dice.Between(200, 1000);
      user.Resize(width, height);
      return Told(width, height);
    }
  }
}

std::string UseTable(RandomUser& monkey) {
  Dice& dice = monkey.dice();
  User& user = monkey.user();
  if (!user.HasTable()) return user.Choose(command::kStepTable) ? "opened" : "not to be opened";
  const auto rows = static_cast<int>(user.TableRows(app::TableSheet::Steps).size());
  constexpr int kTableKeys[] = {key::kInsert, key::kDelete, key::kSpace, key::kEnter,
                                key::kDown,   key::kUp,     key::kEscape};
  constexpr int kCtrlKeys[] = {'A', 'C', 'X', 'V', 'Z', 'Y', key::kPageUp, key::kPageDown};
  switch (dice.Below(10)) {
    case 0:
      user.CloseTable();
      return "closed";
    case 1:
      user.SetClipboard(dice.OneIn(2) ? monkey.AnyText()
                                      : monkey.AnyNumbers() + "\t" + monkey.AnyNumbers() + "\tJ\r\n");
      user.PressTableKey('V', true);
      return "pasted";
    case 2:
    case 3:
      user.PressTableKey(dice.AnyOf(kTableKeys));
      return "key";
    case 4:
    case 5:
      user.PressTableKey(dice.AnyOf(kCtrlKeys), true);
      return "key with Ctrl";
    case 6:
    case 7: {
      if (rows == 0) return "no row";
      const int row = dice.Below(rows);
      const std::string text = dice.OneIn(3) ? monkey.AnyText() : monkey.AnyNumbers();
      user.TypeInTable(row, dice.Below(app::table_column::kCount), text,
                       dice.OneIn(4) ? key::kEscape : key::kEnter);
      // One that was refused goes on being edited.
      if (user.HasTable() && dice.OneIn(2)) user.PressTableKey(key::kEscape);
      return "row " + std::to_string(row) + ": " + text;
    }
    default: {
      if (rows == 0) return "no row";
      const int row = dice.Below(rows);
      user.ClickTableRow(row, dice.OneIn(4), dice.OneIn(4));
      return "row " + std::to_string(row);
    }
  }
}

std::string Wait(RandomUser& monkey) {
  constexpr std::array kSeconds{0.05, 0.3, 1.3, 4.0};
  const double seconds = monkey.place().isReal ? kSeconds[0] : monkey.dice().AnyOf(kSeconds);
  monkey.user().Wait(seconds);
  return std::to_string(seconds);
}

std::string DropFiles(RandomUser& monkey) {
  std::vector<std::filesystem::path> files{monkey.AnyFile()};
  if (monkey.dice().OneIn(4)) files.push_back(monkey.AnyFile());
  std::string told;
  for (const auto& file : files) told += file.filename().string() + ' ';
  monkey.user().DropFiles(std::move(files));
  return told;
}

std::string EndProgram(RandomUser& monkey) {
  User& user = monkey.user();
  monkey.dice().OneIn(2) ? user.Close() : static_cast<void>(user.Choose(command::kExit));
  if (user.IsRunning()) return "stayed";
  user.StartWith(monkey.dice().OneIn(3) ? std::vector{monkey.AnyFile()}
                                        : std::vector<std::filesystem::path>{});
  return "ended and started";
}

}  // namespace

std::vector<DeedRow> CommonDeeds() {
  return {{{"command", 20}, GiveCommand},    {{"edit", 20}, EditByCommand},
          {{"keys", 20}, PressKeys},         {{"drag", 30}, Drag},
          {{"mouse", 8}, MoveMouse},         {{"double-click", 8}, DoubleClick},
          {{"chart-menu", 6}, UseChartMenu}, {{"wheel", 8}, TurnWheel},
          {{"list", 10}, ClickList},         {{"button", 6}, PressButton},
          {{"scroll", 8}, Scroll},           {{"window", 3}, ChangeWindow},
          {{"table", 24}, UseTable},         {{"wait", 6}, Wait},
          {{"drop", 2}, DropFiles},          {{"end", 2}, EndProgram}};
}

std::vector<DeedRow> WindowDeeds(WindowUser& user) {
  const auto beside = [&user](RandomUser& monkey) {
    const Control bar = monkey.dice().AnyOf(kBars);
    if (!user.IsEnabled(bar)) return std::string("disabled");
    user.ClickBesideThumb(bar, monkey.dice().OneIn(2) ? WindowUser::Side::Before : WindowUser::Side::Behind);
    return std::to_string(static_cast<int>(bar));
  };
  const auto focus = [&user](RandomUser& monkey) {
    switch (monkey.dice().Below(4)) {
      case 0:
        user.ClickLog();
        return std::string("the log");
      case 1:
        user.EnterMenuBar();
        user.LeaveMenu();
        return std::string("the menu bar");
      case 2:
        user.PressAltSlash(monkey.dice().OneIn(2));
        return std::string("Alt and a slash");
      default: {
        const auto [x, y] = monkey.AnyPoint();
        if (user.OpenChartMenu(x, y)) user.LeaveMenu();
        return std::string("the chart's menu");
      }
    }
  };
  return {{{"beside-thumb", 4}, beside}, {{"focus", 4}, focus}};
}
