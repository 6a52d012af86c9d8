#include "app/document/program_snapshot.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <utility>

namespace app {

using TCBase::Program::Channel;
using TCBase::Program::ChannelInfo;
using TCBase::Program::Mode;
using TCBase::Program::ModeListView;
using TCBase::Program::Step;

namespace {

// Equality to the bit. That of the document is for the user: it takes -0 for 0, no NaN for another, and
// leaves out ids and descriptions, all of which must come back as they were.

template <class T>
bool IsSame(const T& a, const T& b) {
  return a == b;
}

bool IsSame(const ChannelInfo& a, const ChannelInfo& b) {
  return a.color == b.color && a.name == b.name && a.description == b.description;
}

template <std::size_t kCount>
bool IsSame(const std::array<ChannelInfo, kCount>& a, const std::array<ChannelInfo, kCount>& b) {
  return std::equal(a.begin(), a.end(), b.begin(),
                    [](const ChannelInfo& x, const ChannelInfo& y) { return IsSame(x, y); });
}

bool IsSame(const Step& a, const Step& b) {
  return a.hour == b.hour && a.minute == b.minute &&
         std::bit_cast<std::uint32_t>(a.value) == std::bit_cast<std::uint32_t>(b.value) && a.jump == b.jump &&
         a.id == b.id;
}

bool IsSame(const Channel& a, const Channel& b) {
  if (a.size() != b.size()) return false;
  // Copies of steps are copies of their bytes, so this settles nearly every channel. Bytes that differ say
  // nothing, since there is padding among them.
  if (a.empty() || std::memcmp(a.data(), b.data(), a.size() * sizeof(Step)) == 0) return true;
  return std::equal(a.begin(), a.end(), b.begin(), [](const Step& x, const Step& y) { return IsSame(x, y); });
}

// `earlier` if it holds the same, else a new piece.
template <class T>
std::shared_ptr<const T> Share(const T& value, const std::shared_ptr<const T>& earlier) {
  if (earlier != nullptr && IsSame(*earlier, value)) return earlier;
  return std::make_shared<const T>(value);
}

}  // namespace

ProgramSnapshot::ProgramSnapshot(const ModeListView& program, const ProgramSnapshot& earlier)
    : channelInfos_(Share(program.channelInfos, earlier.channelInfos_)),
      modeCount_(static_cast<std::uint32_t>(program.modes.size())),
      viewStart_(program.viewStart),
      viewEnd_(program.viewEnd),
      currentMode_(program.currentMode) {
  // Modes that came or went have moved those behind them.
  const std::size_t shift = earlier.modeCount_ - program.modes.size();
  blocks_.reserve((program.modes.size() + kBlockModes - 1) / kBlockModes);
  for (std::size_t first = 0; first < program.modes.size(); first += kBlockModes) {
    const std::size_t count = std::min(kBlockModes, program.modes.size() - first);
    Block block;
    for (std::size_t i = 0; i < count; ++i) {
      const std::size_t mode = first + i;
      block[i] = ShareMode(program.modes[mode], earlier.PieceAt(mode), earlier.PieceAt(mode + shift));
    }
    const std::size_t position = blocks_.size();
    blocks_.push_back(Share(block, position < earlier.blocks_.size() ? earlier.blocks_[position] : nullptr));
  }
}

ProgramSnapshot::Shared<ProgramSnapshot::ModePiece> ProgramSnapshot::ShareMode(
    const Mode& mode, const Shared<ModePiece>& here, const Shared<ModePiece>& shifted) {
  for (const Shared<ModePiece>& earlier : {std::cref(here), std::cref(shifted)})
    if (earlier != nullptr && IsSame(*earlier, mode)) return earlier;

  static const ModePiece kNothing;
  const ModePiece& earlier = here != nullptr ? *here : kNothing;
  ModePiece piece{Share(mode.name, earlier.name), Share(mode.description, earlier.description), {}};
  for (std::size_t c = 0; c < mode.channels.size(); ++c) {
    // Steps may also have moved, as a whole, to another channel.
    const auto same = std::find_if(
        earlier.channels.begin(), earlier.channels.end(),
        [&](const auto& channel) { return channel != nullptr && app::IsSame(*channel, mode.channels[c]); });
    piece.channels[c] =
        same != earlier.channels.end() ? *same : std::make_shared<const Channel>(mode.channels[c]);
  }
  return std::make_shared<const ModePiece>(std::move(piece));
}

bool ProgramSnapshot::IsSame(const ModePiece& piece, const Mode& mode) {
  return *piece.name == mode.name && *piece.description == mode.description &&
         std::equal(piece.channels.begin(), piece.channels.end(), mode.channels.begin(),
                    [](const auto& channel, const Channel& live) { return app::IsSame(*channel, live); });
}

ProgramSnapshot::Shared<ProgramSnapshot::ModePiece> ProgramSnapshot::PieceAt(std::size_t mode) const {
  return mode < modeCount_ ? (*blocks_[mode / kBlockModes])[mode % kBlockModes] : nullptr;
}

bool ProgramSnapshot::IsSameAs(const ProgramSnapshot& other) const {
  return channelInfos_ == other.channelInfos_ && blocks_ == other.blocks_ && modeCount_ == other.modeCount_ &&
         viewStart_ == other.viewStart_ && viewEnd_ == other.viewEnd_ && currentMode_ == other.currentMode_;
}

void ProgramSnapshot::CopyTo(ModeListView& program) const {
  program.channelInfos = channelInfos_ != nullptr ? *channelInfos_ : ChannelInfos();
  program.modes.resize(modeCount_);
  for (std::size_t i = 0; i < modeCount_; ++i) {
    const ModePiece& piece = *(*blocks_[i / kBlockModes])[i % kBlockModes];
    Mode& mode = program.modes[i];
    mode.name = *piece.name;
    mode.description = *piece.description;
    for (std::size_t c = 0; c < mode.channels.size(); ++c) mode.channels[c] = *piece.channels[c];
  }
  program.viewStart = viewStart_;
  program.viewEnd = viewEnd_;
  program.currentMode = currentMode_;
}

}  // namespace app
