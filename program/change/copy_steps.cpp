#include "program/change/kinds.h"

namespace TCBase::Program {

void CopyInto(const CopyToChannels& change, const ChangeScope& scope, const Draft& source, Draft& target) {
  for (DraftStep& each : target) {
    const bool isInSpan = !scope.span || scope.span->Holds(MinuteOfDay(each.step));
    each.gone = !scope.stepIds && isInSpan;
  }
  for (const DraftStep& each : source) {
    if (!each.meant) continue;
    DraftStep copy{.step = each.step, .meant = true, .added = true};
    copy.step.value *= change.percent / static_cast<float>(kMostPercent);
    copy.step.id = NextStepId();
    target.push_back(copy);
  }
}

}  // namespace TCBase::Program
