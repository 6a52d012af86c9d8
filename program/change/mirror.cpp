// The day read backwards. Times are simple; jumps are not, since a step tells the way to the next one only.

#include <cstddef>
#include <vector>

#include "program/change/kinds.h"

namespace TCBase::Program {

namespace {

// Turns the steps of a draft that are meant. The channel is a ring: the last step leads to the first.
class Mirror {
 public:
  Mirror(const MirrorTime& change, const Draft& before) : about_(change.about), before_(before) {}

  void Turn(std::size_t index, Draft& draft) const;

 private:
  std::size_t Prior(std::size_t index) const { return (index + before_.size() - 1) % before_.size(); }
  std::size_t Next(std::size_t index) const { return (index + 1) % before_.size(); }
  const Step& At(std::size_t index) const { return before_[index].step; }
  bool IsMeant(std::size_t index) const { return before_[index].meant; }

  // Whether the light leaps as the step is reached.
  bool EndsLeap(std::size_t index) const {
    const Step& prior = At(Prior(index));
    return IsMeant(Prior(index)) && prior.jump && prior.value != At(index).value;
  }
  // Whether the light stays as it is behind the step, up to one that is turned, too.
  bool HoldsBehind(std::size_t index) const {
    return IsMeant(Next(index)) && (At(index).jump || At(index).value == At(Next(index)).value);
  }
  bool JumpOfRunsEnd(std::size_t index) const;

  const std::int32_t about_;
  const Draft& before_;
};

// Of steps that follow one another the last leads to others; so does, turned, the first.
bool Mirror::JumpOfRunsEnd(std::size_t index) const {
  while (IsMeant(Next(index))) index = Next(index);
  return At(index).jump;
}

void Mirror::Turn(std::size_t index, Draft& draft) const {
  Step& step = draft[index].step;
  const std::int32_t minute = RingMinute(std::int64_t{2} * about_ - MinuteOfDay(step));
  SetTime(step, TimeOfDayAtMinute(minute));
  const std::size_t prior = Prior(index);
  if (!IsMeant(prior)) {
    step.jump = JumpOfRunsEnd(index);
    return;
  }
  const Step& from = At(prior);
  // A level stretch between a leap and this step is held, whatever it was: only so does the leap stay one.
  step.jump = from.jump || (EndsLeap(prior) && HoldsBehind(prior));
  if (!EndsLeap(index)) return;
  if (HoldsBehind(index)) {
    step.value = from.value;
    return;
  }
  // Light that fades up to here and leaps then takes two steps, unless another one stands where the second
  // would.
  step.jump = false;
  if (RingMinute(MinuteOfDay(At(index)) - MinuteOfDay(from)) == 1) return;
  DraftStep second{.step = step, .meant = true, .added = true};
  SetTime(second.step, TimeOfDayAtMinute(RingMinute(minute + 1)));
  second.step.value = from.value;
  second.step.jump = true;
  second.step.id = NextStepId();
  draft.push_back(second);
}

// Light that is held, and by a step of its own fades to another level within a minute, leaps: so that what is
// turned twice is as it was.
bool StandsForLeap(const DraftStep& prior, const DraftStep& each, const DraftStep& next) {
  const std::int32_t minutes = RingMinute(MinuteOfDay(next.step) - MinuteOfDay(each.step));
  return prior.meant && each.meant && next.meant && prior.step.jump && !each.step.jump &&
         prior.step.value == each.step.value && each.step.value != next.step.value && minutes == 1;
}

}  // namespace

void Apply(const MirrorTime& change, Draft& draft) {
  const Draft before = draft;
  const Mirror mirror(change, before);
  for (std::size_t i = 0; i < before.size(); ++i) {
    if (before[i].meant) mirror.Turn(i, draft);
  }
  Finish(draft);
  const std::size_t count = draft.size();
  for (std::size_t i = 0; count > 2 && i < count; ++i) {
    draft[i].gone = StandsForLeap(draft[(i + count - 1) % count], draft[i], draft[(i + 1) % count]);
  }
}

}  // namespace TCBase::Program
