// The document as a whole.

#include <algorithm>

#include "program/program.h"

namespace TCBase::Program {

bool operator==(const ModeListView& a, const ModeListView& b) {
  const auto sameMode = [](const Mode& x, const Mode& y) {
    return x.name == y.name && x.description == y.description && x.channels == y.channels;
  };
  // Not the description: editing only that text does not count as a change of the program.
  const auto sameInfo = [](const ChannelInfo& x, const ChannelInfo& y) {
    return x.color == y.color && x.name == y.name;
  };
  return std::equal(a.modes.begin(), a.modes.end(), b.modes.begin(), b.modes.end(), sameMode) &&
         std::equal(a.channelInfos.begin(), a.channelInfos.end(), b.channelInfos.begin(), sameInfo);
}

void RenumberSteps(Mode& mode) {
  for (Channel& channel : mode.channels) RenumberSteps(channel);
}

bool RemoveCurrentMode(ModeListView& document) {
  const auto current = static_cast<std::size_t>(document.currentMode);
  if (document.modes.size() < 2 || current >= document.modes.size()) return false;
  document.modes.erase(document.modes.begin() + document.currentMode);
  if (current == document.modes.size()) --document.currentMode;
  return true;
}

}  // namespace TCBase::Program
