#include "chart/chart_overlay.h"

#include <algorithm>
#include <cstddef>

namespace UX {

using namespace TCBase::Program;

namespace {

const Mode* SavedMode(const ModeListView& saved, const ModeListView& program) {
  const Mode* const current = FindCurrentMode(program);
  if (current == nullptr) return nullptr;
  const auto place = static_cast<std::size_t>(program.currentMode);
  const bool isThere = place < saved.modes.size();
  if (isThere && saved.modes[place].name == current->name) return &saved.modes[place];
  const auto named = std::ranges::find(saved.modes, current->name, &Mode::name);
  if (named != saved.modes.end()) return &*named;
  return isThere && saved.modes.size() == program.modes.size() ? &saved.modes[place] : nullptr;
}

}  // namespace

const Mode* ModeBehind(const Comparison& comparison, const ModeListView& program) {
  switch (comparison.with) {
    case Comparison::With::Saved:
      return comparison.saved != nullptr ? SavedMode(*comparison.saved, program) : nullptr;
    case Comparison::With::Kept:
      return &comparison.kept;
    case Comparison::With::Nothing:
      break;
  }
  return nullptr;
}

}  // namespace UX
