// The document as a whole.

#include <algorithm>
#include <cstddef>
#include <stdexcept>
#include <utility>

#include "program/program.h"

namespace TCBase::Program {

bool operator==(const ModeListView& a, const ModeListView& b) {
  const auto sameMode = [](const Mode& x, const Mode& y) {
    return x.name == y.name && x.description == y.description && x.channels == y.channels;
  };
  // The description is left out: a change of that text alone is no change of the program.
  const auto sameInfo = [](const ChannelInfo& x, const ChannelInfo& y) {
    return x.color == y.color && x.name == y.name;
  };
  return std::equal(a.modes.begin(), a.modes.end(), b.modes.begin(), b.modes.end(), sameMode) &&
         std::equal(a.channelInfos.begin(), a.channelInfos.end(), b.channelInfos.begin(), sameInfo);
}

void RenumberSteps(Mode& mode) {
  for (Channel& channel : mode.channels) RenumberSteps(channel);
}

const Mode* FindCurrentMode(const ModeListView& document) {
  const auto index = static_cast<std::size_t>(document.currentMode);
  return index < document.modes.size() ? &document.modes[index] : nullptr;
}

Mode* FindCurrentMode(ModeListView& document) {
  return const_cast<Mode*>(FindCurrentMode(std::as_const(document)));
}

const Mode& CurrentMode(const ModeListView& document) {
  const Mode* mode = FindCurrentMode(document);
  if (mode == nullptr) throw std::out_of_range("the document has no current mode");
  return *mode;
}

Mode& CurrentMode(ModeListView& document) {
  return const_cast<Mode&>(CurrentMode(std::as_const(document)));
}

bool RemoveCurrentMode(ModeListView& document) {
  if (document.modes.size() < 2 || FindCurrentMode(document) == nullptr) return false;
  document.modes.erase(document.modes.begin() + document.currentMode);
  if (FindCurrentMode(document) == nullptr) --document.currentMode;
  return true;
}

}  // namespace TCBase::Program
