#include "tests/app/random_world.h"

#include <algorithm>
#include <array>
#include <utility>

#include "chart/step_marker.h"
#include "program/program.h"
#include "tests/support/sim_hidapi.h"
#include "tests/support/sim_network.h"
#include "tests/support/virtual_clock.h"

namespace {

using sim_hidapi::Family;

std::string ChangeUsb(RandomUser& monkey) {
  Dice& dice = monkey.dice();
  const Family family = dice.OneIn(2) ? Family::TC420 : Family::TC421;
  switch (dice.Below(8)) {
    case 0:
    case 1:
      sim_hidapi::PlugIn(family);
      return "plugged in";
    case 2:
      sim_hidapi::PullOut(family);
      return "pulled out";
    case 3:
      sim_hidapi::SetAnswer(sim_hidapi::Silent());
      return "silent";
    case 4:
      sim_hidapi::SetAnswer(dice.OneIn(2)
                                ? sim_hidapi::AtPoll(dice.Between(1, 12))
                                : sim_hidapi::Sized({static_cast<std::size_t>(dice.Below(70)), 64}));
      return "slow or short answers";
    case 5: {
      using sim_hidapi::Call;
      constexpr std::array kCalls{Call::Enumerate, Call::Open, Call::SetNonblocking, Call::Write, Call::Read};
      sim_hidapi::Inject({dice.AnyOf(kCalls), dice.Between(1, 20), dice.Between(1, 5)});
      return "a call will fail";
    }
    case 6:
      sim_hidapi::SetAllowed(family, dice.OneIn(2));
      return "rights";
    default:
      sim_hidapi::SetAnswer(sim_hidapi::Prompt());
      return "prompt";
  }
}

sim_network::Address AnyAddress(Dice& dice) {
  return {192, 168, 4, static_cast<std::uint8_t>(dice.Between(10, 13))};
}

std::string ChangeNetwork(RandomUser& monkey) {
  Dice& dice = monkey.dice();
  switch (dice.Below(6)) {
    case 0:
    case 1:
      sim_network::PlugIn(AnyAddress(dice), "TC421-" + std::to_string(dice.Below(4)));
      return "plugged in";
    case 2: {
      // Not on the way to the controllers: what they would understand of that is not the program's affair.
      const sim_network::Weather bad{dice.Below(4) / 10.0, 0.1, 0.1, 0.1, 0.2, 1.0};
      sim_network::SetWeather({.loss = dice.Below(4) / 10.0}, bad, static_cast<std::uint32_t>(dice.Throw()));
      return "bad weather";
    }
    case 3:
      sim_network::HoldPort(dice.OneIn(2));
      return "the port";
    case 4: {
      using sim_network::Call;
      constexpr std::array kCalls{Call::Open, Call::AllowBroadcasts, Call::DontWait, Call::Send};
      sim_network::Inject(dice.AnyOf(kCalls), dice.Between(1, 4), dice.Between(1, 3));
      return "a call will fail";
    }
    default:
      sim_network::SetWeather({}, {}, 1);
      sim_network::HoldPort(false);
      return "fair weather";
  }
}

// The mouse's capture goes to another window while something is dragged.
std::string LoseCapture(RandomUser& monkey, headless::HeadlessUser& user) {
  const auto [x, y] = monkey.AnyPoint();
  const auto [toX, toY] = monkey.AnyPoint();
  user.MoveMouse(x, y);
  user.HoldButton();
  user.MoveMouse(toX, toY);
  user.GetDesktop().chart.LoseCapture();
  user.Settle();
  if (monkey.dice().OneIn(2)) user.MoveMouse(x, y);
  user.ReleaseButton();
  return "lost";
}

}  // namespace

void ResetWorld() {
  virtual_clock::Reset();
  sim_hidapi::Reset();
  sim_network::Reset();
}

std::vector<DeedRow> WorldDeeds(headless::HeadlessUser& user) {
  const auto hidden = [&user](RandomUser& monkey) {
    constexpr int kHidden[] = {app::command::kRandomMode, app::command::kMergeTranslations};
    const int number = monkey.dice().AnyOf(kHidden);
    user.SendCommand(number);
    return std::to_string(number);
  };
  return {{{"usb", 6}, ChangeUsb},
          {{"network", 6}, ChangeNetwork},
          {{"capture", 5}, [&user](RandomUser& monkey) { return LoseCapture(monkey, user); }},
          {{"hidden", 1}, hidden}};
}

std::optional<std::pair<int, int>> PointOfInterest(headless::HeadlessUser& user, Dice& dice) {
  app::AppState& state = user.State();
  const auto lane = static_cast<std::int32_t>(dice.Below(TCBase::Program::kChannelCount));
  const auto& steps = TCBase::Program::CurrentMode(state.program).channels[static_cast<std::size_t>(lane)];
  if (steps.empty()) return std::nullopt;
  const UX::MarkerCenter center =
      UX::GetMarkerCenter(state.chartLayout.LaneRect(lane), state.program, dice.AnyOf(steps));
  return std::pair{std::clamp(center.x, -32768, 32767), std::clamp(center.y, -32768, 32767)};
}
