#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "program/program.h"

namespace app {

/// The one equality of the editor: that of ModeListView, which leaves out what is no part of the light
/// program.
inline bool SameProgram(const TCBase::Program::ModeListView& a, const TCBase::Program::ModeListView& b) {
  return a == b;
}

/// The whole document as it once was, step ids included. It behaves as a deep copy, but is kept in pieces
/// that never change and that snapshots have in common: a snapshot of a document in which one channel was
/// edited costs that channel. Any thread; one object belongs to one, its pieces to all.
class ProgramSnapshot {
 public:
  /// Holds no document.
  ProgramSnapshot() = default;

  /// Copies `program`; pieces that are the same to the bit in `earlier` are taken from there. Any `earlier`
  /// gives the same snapshot, the last one the cheapest.
  ProgramSnapshot(const TCBase::Program::ModeListView& program, const ProgramSnapshot& earlier);

  /// Makes `program` what it was; everything in it is replaced by a copy of its own.
  void CopyTo(TCBase::Program::ModeListView& program) const;

  /// Whether both hold the same pieces: so for two of which one was made with the other as `earlier`, and
  /// nothing changed between them.
  bool IsSameAs(const ProgramSnapshot& other) const;

 private:
  template <class T>
  using Shared = std::shared_ptr<const T>;

  struct ModePiece {
    Shared<std::string> name;
    Shared<std::string> description;
    std::array<Shared<TCBase::Program::Channel>, TCBase::Program::kChannelCount> channels;
  };

  /// Modes go by the block, so that a snapshot is smaller than a pointer for each mode. The last block may be
  /// part empty.
  static constexpr std::size_t kBlockModes = 8;
  using Block = std::array<Shared<ModePiece>, kBlockModes>;
  using ChannelInfos = std::array<TCBase::Program::ChannelInfo, TCBase::Program::kChannelCount>;

  static Shared<ModePiece> ShareMode(const TCBase::Program::Mode& mode, const Shared<ModePiece>& here,
                                     const Shared<ModePiece>& shifted);
  static bool IsSame(const ModePiece& piece, const TCBase::Program::Mode& mode);
  Shared<ModePiece> PieceAt(std::size_t mode) const;

  Shared<ChannelInfos> channelInfos_;
  std::vector<Shared<Block>> blocks_;
  std::uint32_t modeCount_ = 0;
  std::int32_t viewStart_ = 0;
  std::int32_t viewEnd_ = 0;
  std::int32_t currentMode_ = 0;
};

}  // namespace app
