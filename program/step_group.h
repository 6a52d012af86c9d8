#pragma once

// Several steps of the current mode that are selected together. User interface thread.

#include <cstddef>
#include <cstdint>
#include <vector>

#include "program/program.h"

namespace TCBase::Program {

/// The steps that are selected beside one another, by their serial numbers. It counts only while the step of
/// the StepSelection is one of them (see SelectedStepIds): so whoever selects one step in the old way, or
/// none, has dropped the group without knowing of it. Numbers whose steps have gone are nobody's.
class StepGroup {
 public:
  bool Holds(std::uint32_t id) const;
  void Add(std::uint32_t id);
  void Remove(std::uint32_t id);
  /// These and no others, in any order, as often as may be.
  void Set(std::vector<std::uint32_t> ids);
  void Clear() { ids_.clear(); }

  /// Ascending.
  const std::vector<std::uint32_t>& Ids() const { return ids_; }

 private:
  std::vector<std::uint32_t> ids_;  // ascending, each once
};

/// Whether the group counts: the selected step is one of it.
bool IsGroupSelected(const StepSelection& selection, const StepGroup& group);

/// Whether a step is selected, alone or with others.
bool IsStepSelected(const StepSelection& selection, const StepGroup& group, const Step& step);

/// The serial numbers of the selected steps of the current mode, ascending: those of the group that are there
/// if it counts, otherwise that of the selected step, otherwise none.
std::vector<std::uint32_t> SelectedStepIds(const StepSelection& selection, const StepGroup& group);

/// Where a step of the current mode stands; -1 for none.
struct StepPlace {
  std::int32_t channel = -1;
  std::int32_t step = -1;

  friend bool operator==(const StepPlace&, const StepPlace&) = default;
};
/// The step with a serial number in the current mode.
StepPlace FindStep(const ModeListView& document, std::uint32_t id);

// What is done to the selected steps of the current mode. Each keeps the channels sorted and the selection at
// its step.

/// What became of steps that were to be deleted.
struct StepsDeleted {
  int deleted = 0;
  int kept = 0;  // since their channels would have had fewer than kMinChannelSteps
};
/// Deletes them; where too few would be left in a channel its latest stay. No group is selected behind it;
/// the selection stays at its index, or moves to the last step that is left.
StepsDeleted DeleteSelectedSteps(StepSelection& selection, StepGroup& group);
/// All jump, or all fade.
void SetSelectedJumps(const StepSelection& selection, const StepGroup& group, bool jump);

/// The selected steps as they were before they are moved together.
class StepMove {
 public:
  /// Takes the steps as they are now.
  StepMove(const StepSelection& selection, const StepGroup& group);

  /// Puts the steps that far from where they were: all by the same time, as far as the day lets all of them
  /// go, and each to a value from 0 to 100. The selection goes with its step.
  void MoveTo(StepSelection& selection, std::int64_t minutes, float value) const;

 private:
  struct Origin {
    std::uint32_t id;
    std::int64_t minute;
    float value;
  };
  std::vector<Origin> origins_;  // ascending by id
};

}  // namespace TCBase::Program
