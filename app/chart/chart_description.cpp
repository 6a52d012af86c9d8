#include "app/chart/chart_description.h"

#include <cstdint>
#include <string>
#include <utility>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "OvkLib/src/ovk_format.h"
#include "chart/static_labels.h"
#include "common/message.h"
#include "common/truncate.h"
#include "program/channel_edit.h"

namespace app {

using namespace TCBase::Program;

namespace {

std::u16string InWords(const StepSelection& selection) {
  const Channel* const channel = SelectedChannel(selection);
  if (channel == nullptr) return Message("No channel selected").ToWide();
  const std::string name = UX::ShownChannelName(selection.document, selection.channel);
  const auto count = static_cast<std::int32_t>(channel->size());
  const Step* const step = SelectedStep(selection);
  if (step == nullptr) return Message("{1}, {2} steps, none selected", name, count).ToWide();
  ovk::format words(Translate(step->jump ? TextKey("{1}, step {2} of {3}: {4}, {5} percent, jump")
                                         : TextKey("{1}, step {2} of {3}: {4}, {5} percent, fade")));
  const std::string time = ToTimeText(*step);
  words.arg(name.c_str(), static_cast<std::int32_t>(name.size()));
  words.arg(selection.step + 1, 0);
  words.arg(count, 0);
  words.arg(time.c_str(), static_cast<std::int32_t>(time.size()));
  words.arg(TruncateToInt(step->value), 0);
  return WideFromUtf8(words.text().view());
}

}  // namespace

void ChartDescription::Update() {
  std::u16string words = InWords(selection_);
  if (words == told_) return;
  told_ = std::move(words);
  controls_.SetDescription(Control::ChartWindow, told_);
}

}  // namespace app
