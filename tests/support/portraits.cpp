#include "tests/support/portraits.h"

#include <chrono>
#include <functional>
#include <iostream>
#include <thread>
#include <utility>

#include "app/window/control_table.h"
#include "app/window/numbers.h"
#include "chart/chart_layout.h"
#include "dialogs/dialog.h"
#include "dialogs/dialog_template.h"

namespace portraits {

namespace {

using dialogs::kOk;
namespace command = app::command;
namespace config_id = dialogs::tc421_config_control;

// What is on its way to the screen is there by then, and lanes have glided to their places.
constexpr std::chrono::milliseconds kRest{1500};
constexpr std::chrono::milliseconds kLook{50};
// Enough for the search of a network.
constexpr int kMostLooks = 600;

constexpr int kLane = 0;
// Which has a step of the example.
constexpr int kStepHour = 17;
constexpr float kStepPercent = 80.0F;

// What the guide's first program adds to the built-in one.
constexpr int kAddedHour = 15;
constexpr float kAddedPercent = 85.0F;
// Of a day that lasts a minute: about noon.
constexpr std::chrono::seconds kHalfADemo{30};

class Photographer {
 public:
  Photographer(Sitter& sitter, std::filesystem::path folder) : sitter_(sitter), folder_(std::move(folder)) {}

  bool TakeDialogs();
  bool TakeWindow();
  bool TakeGuide();

 private:
  bool Await(const std::string& what, const std::function<bool()>& isSo);
  bool AwaitFront() {
    return Await("a window over the main window", [this] { return !sitter_.IsMainWindowInFront(); });
  }
  bool AwaitControl(int control) {
    return Await("control " + std::to_string(control), [=, this] { return sitter_.HasControl(control); });
  }
  bool Take(const std::string& name);
  // Takes what is in front, and leaves it for the main window.
  bool TakeAndLeave(const std::string& name);
  // Takes the dialog that a command opens, after something was done in it.
  bool TakeDialog(int number, const std::string& name, const std::function<void()>& fill = {});
  bool TakeCheckUp();
  bool TakeWizard();
  bool TakeConfiguration();
  bool TakeQuestion();
  bool TakeMenu();
  void ClickLane(bool isEnlarged, int hour, float percent);
  Rect LanePlace(bool isEnlarged);

  Sitter& sitter_;
  const std::filesystem::path folder_;
};

void Rest() {
  std::this_thread::sleep_for(kRest);
}

bool Photographer::Await(const std::string& what, const std::function<bool()>& isSo) {
  for (int looks = 0; looks < kMostLooks; ++looks) {
    if (isSo()) return true;
    std::this_thread::sleep_for(kLook);
  }
  std::cerr << what << " does not come\n";
  return false;
}

bool Photographer::Take(const std::string& name) {
  Rest();
  const Rect frame = sitter_.Frame();
  const std::string file = name + ".png";
  if (!sitter_.Photograph(folder_ / file)) return false;
  std::cout << file << ' ' << frame.width << 'x' << frame.height << '+' << frame.x << '+' << frame.y << '\n';
  return true;
}

bool Photographer::TakeAndLeave(const std::string& name) {
  if (!AwaitFront() || !Take(name)) return false;
  sitter_.Leave();
  return Await("the main window", [this] { return sitter_.IsMainWindowInFront(); });
}

bool Photographer::TakeDialog(int number, const std::string& name, const std::function<void()>& fill) {
  sitter_.Choose(number);
  if (!AwaitFront()) return false;
  if (fill) fill();
  return TakeAndLeave(name);
}

// At rest.
Rect Photographer::LanePlace(bool isEnlarged) {
  double now = 0.0;
  UX::ChartLayout layout{now};
  const app::Size client = sitter_.ClientSize();
  layout.Update(client.width, client.height);
  if (isEnlarged) layout.FocusLane(kLane);
  for (auto& height : layout.laneHeights) height.from = height.to;
  return layout.LaneRect(kLane);
}

void Photographer::ClickLane(bool isEnlarged, int hour, float percent) {
  const Rect lane = LanePlace(isEnlarged);
  sitter_.ClickChart(UX::TimeToX(lane, {}, std::int64_t{hour} * 3600), UX::PercentToY(lane, percent));
  Rest();
}

bool Photographer::TakeConfiguration() {
  if (!AwaitControl(config_id::kSetUp)) return false;
  sitter_.Type(config_id::kNetwork, "Living room");
  sitter_.Pick(config_id::kSecurity, 2);
  sitter_.Pick(config_id::kEncryption, 0);
  sitter_.Type(config_id::kPassword, "clownfish");
  if (!Take("wifi-configuration")) return false;
  sitter_.Press(config_id::kSetUp);
  // What it says of the network comes over the page.
  if (!Await("a message", [this] { return !sitter_.HasControl(config_id::kNetwork); })) return false;
  sitter_.Leave();
  return AwaitControl(config_id::kNetwork) && AwaitControl(kOk);
}

bool Photographer::TakeCheckUp() {
  sitter_.Choose(command::kCheckUp);
  // It has looked at everything by then.
  return AwaitFront() && AwaitControl(dialogs::check_up_control::kPack) && TakeAndLeave("check-up");
}

bool Photographer::TakeWizard() {
  sitter_.Choose(command::kSetupWifi);
  if (!AwaitControl(dialogs::tc421_init_control::kText) || !Take("wifi-start")) return false;
  sitter_.Press(kOk);
  if (!AwaitControl(dialogs::tc421_search_control::kSearch)) return false;
  sitter_.Press(dialogs::tc421_search_control::kSearch);
  if (!AwaitControl(kOk) || !Take("wifi-search")) return false;
  sitter_.Press(kOk);
  if (!TakeConfiguration()) return false;
  sitter_.Press(kOk);
  return AwaitControl(dialogs::tc421_success_control::kText) && TakeAndLeave("wifi-success");
}

bool Photographer::TakeQuestion() {
  sitter_.Choose(command::kMoveStepsDown);
  Rest();
  sitter_.AskToClose();
  return TakeAndLeave("question");
}

bool Photographer::TakeMenu() {
  const Rect lane = LanePlace(true);
  sitter_.OpenChartMenu(lane.x + lane.width / 4, lane.y + lane.height / 2);
  return TakeAndLeave("menu");
}

bool Photographer::TakeDialogs() {
  const auto type = [this](int control, const char* text) {
    return [=, this] { sitter_.Type(control, text); };
  };
  sitter_.Choose(command::kAddEmulator);
  ClickLane(false, 3, 50.0F);
  return TakeDialog(command::kAbout, "about") &&
         TakeDialog(app::control_id::kAddMode, "name", type(dialogs::mode_name_control::kName, "Winter")) &&
         TakeDialog(command::kSpeedCustom, "value", type(dialogs::get_value_control::kValue, "90")) &&
         TakeDialog(command::kSetTime, "date-time") &&
         TakeDialog(
             command::kManualStepsAdd, "add-steps",
             type(dialogs::add_steps_control::kSteps, "08:00 0\n09:30 40\n12:00 85\n17:00 85\n21:00 0")) &&
         TakeDialog(command::kFigures, "figures", type(dialogs::figures_control::kFirstWatts, "24")) &&
         TakeDialog(command::kNewFromSun, "new-sun", type(dialogs::generate_control::kPlace, "brazil")) &&
         TakeDialog(command::kNewFromMoon, "new-moon") &&
         TakeDialog(command::kNewFromRampDay, "new-ramp-day") &&
         TakeDialog(command::kNewFromAcclimation, "new-acclimation") &&
         TakeDialog(command::kNewFromSeason, "new-season",
                    type(dialogs::generate_control::kHours, "10:00-22:00")) &&
         TakeDialog(command::kChangeSteps, "change-steps",
                    type(dialogs::change_steps_control::kFirst, "1:30")) &&
         TakeCheckUp() && TakeWizard() && TakeMenu() && TakeQuestion();
}

bool Photographer::TakeWindow() {
  sitter_.Choose(command::kAddEmulator);
  Rest();
  sitter_.Choose(command::kUploadProgram);
  Rest();
  ClickLane(false, 3, 50.0F);  // the first click selects the lane, which grows
  ClickLane(true, kStepHour, kStepPercent);
  return Take("window");
}

// The same steps as in docs/guide/first-program.md.
bool Photographer::TakeGuide() {
  if (!Take("start")) return false;
  ClickLane(false, kAddedHour, 50.0F);
  if (!Take("channel")) return false;
  ClickLane(true, kAddedHour, kAddedPercent);
  if (!Take("step")) return false;
  sitter_.Choose(command::kAddEmulator);
  Rest();
  sitter_.Choose(command::kPlayDemo);
  std::this_thread::sleep_for(kHalfADemo);
  if (!Take("demo")) return false;
  sitter_.Choose(command::kStopDemo);
  Rest();
  sitter_.Choose(command::kUploadProgram);
  if (!Take("upload")) return false;
  sitter_.Choose(command::kToggleJump);
  if (!Take("jump")) return false;
  sitter_.Choose(command::kCompareWithSaved);
  if (!Take("compare")) return false;
  sitter_.Choose(command::kCompareWithSaved);
  sitter_.Choose(command::kSelectAllSteps);
  if (!Take("several")) return false;
  ClickLane(true, kAddedHour, kAddedPercent);  // the step alone
  sitter_.Choose(command::kStepTable);
  return AwaitFront() && Take("step-table");
}

}  // namespace

bool Take(Sitter& sitter, const std::string& list, const std::filesystem::path& folder) {
  Photographer photographer(sitter, folder);
  Rest();
  if (list == "window") return photographer.TakeWindow();
  return list == "guide" ? photographer.TakeGuide() : photographer.TakeDialogs();
}

}  // namespace portraits
