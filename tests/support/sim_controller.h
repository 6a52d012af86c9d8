#pragma once

// The controllers that tests put behind the transports: each takes frames as the real one would, keeps what
// it was told, and notes everything that a real one would not understand. Knows nothing of how frames travel.

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "common/date_time.h"
#include "program/program.h"

namespace sim {

/// A mode as it stands in a bank.
struct StoredMode {
  std::string name;  // as far as it was sent
  std::vector<TCBase::Program::ModeStep> steps;
  bool closed = false;  // the closing frame has come
};

/// What a controller remembers.
struct Memory {
  std::map<int, StoredMode> banks;
  std::optional<DateTime> clock;  // as last set
  int clears = 0;
  bool playing = false;  // a demo has begun and not ended
  std::string playName;
  std::array<int, TCBase::Program::kChannelCount> live{};  // of the last demo frame
};

/// A frame and the moment, in seconds of the clock, at which it came.
struct Received {
  double seconds;
  std::string frame;
};

/// One thread at a time.
class Controller {
 public:
  virtual ~Controller() = default;

  /// Takes a frame and answers with the reply: empty, as from a controller that stays silent, if the frame
  /// was not understood.
  std::string Receive(const std::string& frame, double seconds);

  const Memory& GetMemory() const { return memory_; }
  const std::vector<Received>& Frames() const { return frames_; }
  /// Whatever was wrong, a sentence each: "frame 3: the checksum is 07, not 08".
  const std::vector<std::string>& Violations() const { return violations_; }

 protected:
  using Step = TCBase::Program::ModeStep;

  virtual std::string Handle(const std::string& frame) = 0;

  // The commands, in the words of both protocols. What comes in the wrong order is noted and done all the
  // same.
  void BeginMode(int bank, int stepCount, std::string_view paddedName);
  void AddStep(const Step& step);
  void EndMode();
  void BeginPlay(std::string_view paddedName);
  void SetLive(const Step& step);
  void EndPlay();
  void ClearAll();
  void SetClock(std::string_view payload);
  /// Steps of the mode that is being sent, -1 if none is.
  int OpenSteps() const;

  /// Notes that `what` was wrong with the present frame.
  void Object(const std::string& what);
  /// The same, unless `good`. Answers `good`.
  bool Expect(bool good, const std::string& what);
  /// All bytes from `begin` up to `end` are to be zero.
  bool ExpectZeros(const std::string& frame, std::size_t begin, std::size_t end);
  bool ExpectByte(const std::string& frame, std::size_t offset, std::uint8_t value, const std::string& name);

  double now_ = 0.0;   // of the present frame
  double last_ = 0.0;  // of the one before

 private:
  void CheckValues(const Step& step);

  Memory memory_;
  std::optional<int> openBank_;
  int openCount_ = 0;  // steps that were announced for it
  std::vector<Received> frames_;
  std::vector<std::string> violations_;
};

/// On USB, its only transport.
std::unique_ptr<Controller> MakeTC420();
/// On USB: checksum at the end, no name.
std::unique_ptr<Controller> MakeTC421();

/// "55 AA 03 00": the bytes, for messages and comparisons.
std::string ToHex(std::string_view bytes);

}  // namespace sim
