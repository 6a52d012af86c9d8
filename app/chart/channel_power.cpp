#include "app/chart/channel_power.h"

#include <algorithm>
#include <cstddef>

#include "app/window/numbers.h"
#include "common/log.h"
#include "common/message.h"
#include "common/truncate.h"
#include "program/channel_edit.h"

namespace app {

using namespace TCBase::Program;

namespace {
constexpr std::int32_t kMostPower = 100;
constexpr std::int32_t kPage = 5;
// The End key goes to the last place of the zoom slider, not of this one. Users know it so.
constexpr std::int32_t kLastPosition = kLastZoomPosition;
}  // namespace

void ChannelPowerControl::Update() {
  const Channel* channel = SelectedChannel(selection_);
  const std::int32_t power = std::max(TruncateToInt(channel != nullptr ? ChannelPower(*channel) : 0.0F), 0);
  if (power == slider_.Position()) return;
  slider_.SetRange(kMostPower, kPage, kPage);
  slider_.SetPosition(power);
  slider_.SetEnabled(power != 0);
}

void ChannelPowerControl::OnSlider(int code, int position) {
  std::int32_t power = slider_.Position();
  switch (code) {
    case scroll::kLineBack:
    case scroll::kPageBack:  // by one as well, not by the page
      --power;
      break;
    case scroll::kLineForward:
    case scroll::kPageForward:
      ++power;
      break;
    case scroll::kThumbReleased:
      powerTracking_ = false;
      break;
    case scroll::kThumbMoving:
      power = position;
      // The first event of a drag differs from the 0 and so writes the history, those behind it do not.
      lastPower_ = powerTracking_ ? power : 0;
      powerTracking_ = true;
      break;
    case scroll::kFirst:
      power = 0;
      break;
    case scroll::kLast:
      power = kLastPosition;
      break;
    default:
      break;
  }
  if (lastPower_ != power) {
    undoStack_.Snapshot();
    lastPower_ = power;
  }
  slider_.SetPosition(power);
  if (Channel* channel = SelectedChannel(selection_)) ScaleChannel(*channel, static_cast<float>(power));
  refresh_(part::kChart | part::kDescription | part::kFocus);
}

void ChannelPowerControl::OnWheel(int delta) {
  Channel* channel = SelectedChannel(selection_);
  if (channel == nullptr) return;
  const float power = ChannelPower(*channel);
  if ((delta < 0 && power < 1.0F) || (delta > 0 && power > 99.0F)) return;
  LogBeforeWheel(power);
  ScaleChannel(*channel, delta < 0 ? power - 1.0F : power + 1.0F);
  wheeled_ = {selection_.document.currentMode, selection_.channel, ChannelPower(*channel)};
  refresh_(part::kChart | part::kDescription);
}

// No undo brings it back. One line for as long as the wheel alone changes the channel, not one a notch.
void ChannelPowerControl::LogBeforeWheel(float power) const {
  const std::int32_t channel = selection_.channel;
  if (wheeled_ == Wheeled{selection_.document.currentMode, channel, power}) return;
  const ChannelInfo& info = selection_.document.channelInfos.at(static_cast<std::size_t>(channel));
  LogStatus(Message("Power of channel {1} was {2}%", info.name, TruncateToInt(power)));
}

}  // namespace app
