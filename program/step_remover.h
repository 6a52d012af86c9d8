#pragma once

// Takes a mode's cheapest steps away one after the other, as if each were searched for anew (see
// FindCheapestStep), without doing so.

#include <array>
#include <cstdint>
#include <variant>
#include <vector>

#include "program/optimize.h"
#include "program/program.h"
#include "program/removal_errors.h"

namespace TCBase::Program {

class StepRemover {
 public:
  /// The mode must outlive the object and stay as it is up to ApplyTo().
  explicit StepRemover(const Mode& mode);

  /// What FindCheapestStep would find now; `step` counts in the channel as the mode has it.
  StepRemoval Cheapest() const;
  /// Takes away a step that Cheapest() named.
  void Remove(const StepRemoval& removal);
  /// CountModeSteps of what is left.
  int MergedSteps() const { return mergedSteps_; }
  /// Erases the removed steps from the mode of the constructor; the last thing to do.
  void ApplyTo(Mode& mode) const;

 private:
  using ChannelErrors = std::variant<OrderedErrors, UnorderedErrors>;

  static ChannelErrors ErrorsOf(const Channel& channel);

  const Mode& mode_;
  std::vector<ChannelErrors> errors_;                          // one for each channel
  std::array<std::vector<bool>, kChannelCount> removed_;       // by index of the step
  std::array<std::uint32_t, kMinutesPerDay> stepsOfMinute_{};  // of all channels together
  int mergedSteps_ = 0;
};

}  // namespace TCBase::Program
