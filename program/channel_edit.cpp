#include "program/channel_edit.h"

#include <cstddef>
#include <utility>

namespace TCBase::Program {

namespace {

// Moves the selected channel's steps by one channel, `by` being 1 or -1, and the selection with them.
void MoveSelectedChannel(StepSelection& selection, std::int32_t by) {
  Channel* channel = SelectedChannel(selection);
  if (channel == nullptr) return;
  Channel* neighbour = SelectedChannel({selection.document, selection.channel + by});
  if (neighbour == nullptr) return;
  channel->swap(*neighbour);
  selection.channel += by;
}

}  // namespace

Channel* SelectedChannel(const StepSelection& selection) {
  Mode* mode = FindCurrentMode(selection.document);
  const auto channel = static_cast<std::size_t>(selection.channel);
  return mode != nullptr && channel < kChannelCount ? &mode->channels[channel] : nullptr;
}

Step* SelectedStep(const StepSelection& selection) {
  Channel* channel = SelectedChannel(selection);
  const auto index = static_cast<std::size_t>(selection.step);
  return channel != nullptr && index < channel->size() ? &(*channel)[index] : nullptr;
}

void DeleteSelectedStep(StepSelection& selection) {
  const Step* step = SelectedStep(selection);
  if (step == nullptr) return;
  Channel& channel = *SelectedChannel(selection);
  if (channel.size() <= kMinChannelSteps) return;
  std::erase_if(channel, [minute = MinuteOfDay(*step)](const Step& s) { return MinuteOfDay(s) == minute; });
  const auto left = static_cast<std::int32_t>(channel.size());
  if (selection.step >= left) selection.step = left - 1;
}

void NudgeSelectedStep(const StepSelection& selection, std::int32_t hours, std::int32_t minutes,
                       float value) {
  Step* step = SelectedStep(selection);
  if (step == nullptr) return;
  // Numbers as far out as a file may bring them wrap around, hence unsigned.
  const auto bits = [](std::int32_t number) { return static_cast<std::uint32_t>(number); };
  const std::uint32_t minute =
      (bits(step->hour) + bits(hours)) * bits(kMinutesPerHour) + bits(step->minute) + bits(minutes);
  const auto second = static_cast<std::int32_t>(minute * bits(kSecondsPerMinute));
  SetTime(*step, second);
  step->value += value;
  Normalize(*step);
}

void CopyChannelSteps(const StepSelection& selection, StepClipboard& clipboard) {
  if (const Channel* channel = SelectedChannel(selection)) clipboard = {*channel, true};
}

bool PasteChannelSteps(const StepSelection& selection, const StepClipboard& clipboard) {
  Channel* channel = SelectedChannel(selection);
  if (channel == nullptr || !clipboard.filled) return false;
  *channel = clipboard.steps;
  RenumberSteps(*channel);
  return true;
}

void ClearChannel(StepSelection& selection) {
  Channel* channel = SelectedChannel(selection);
  if (channel == nullptr) return;
  *channel = {Step{8, 0}, Step{22, 0}};
  RenumberSteps(*channel);
  ForgetSelection(selection);
}

void MoveChannelUp(StepSelection& selection) {
  MoveSelectedChannel(selection, -1);
}

void MoveChannelDown(StepSelection& selection) {
  MoveSelectedChannel(selection, 1);
}

}  // namespace TCBase::Program
