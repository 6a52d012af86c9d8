#pragma once

// Controllers that are not there: each takes frames as the real one would, keeps what it was told, and notes
// everything that a real one would not understand. Knows nothing of how frames travel. The tests put them
// behind the transports, tc421sim puts one on a network.

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "common/date_time.h"
#include "program/program.h"

namespace sim {

/// A mode as it stands in a bank.
struct StoredMode {
  std::string name;  // as far as it was sent
  std::vector<TCBase::Program::ModeStep> steps;
  bool closed = false;  // the closing frame has come, and all steps before it
};

/// The network that a controller was told to join.
struct Wifi {
  std::string ssid;
  int security = 0;       // 0 open, 1 WPA, 2 WPA2
  int encryption = 0;     // 0 none told, 1 AES, 2 TKIP
  std::string password;   // as far as it was sent
  bool complete = false;  // it has all it needs to join
};

/// What a controller remembers.
struct Memory {
  std::map<int, StoredMode> banks;
  std::optional<DateTime> clock;  // as last set
  int clears = 0;
  bool playing = false;  // a demo has begun and not ended
  std::string playName;
  std::array<int, TCBase::Program::kChannelCount> live{};  // of the last demo frame
  std::optional<Wifi> wifi;
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
  /// was not understood or wants no reply.
  std::string Receive(const std::string& frame, double seconds);

  const Memory& GetMemory() const { return memory_; }
  /// All of them, and the first 100,000 themselves.
  std::int64_t FrameCount() const { return frameCount_; }
  const std::vector<Received>& Frames() const { return frames_; }
  /// What the last frame asked for, in words; empty if it was not understood.
  const std::string& Heard() const { return heard_; }
  /// Whatever was wrong, a sentence each, up to 100,000: "frame 3: the checksum is 07, not 08".
  const std::vector<std::string>& Violations() const { return violations_; }

 protected:
  using Step = TCBase::Program::ModeStep;

  /// Acts on a frame of 64 bytes and answers with the reply.
  virtual std::string Handle(const std::string& frame) = 0;

  // The commands, in the words of the protocols. What comes in the wrong order is noted and done all the
  // same.
  void BeginMode(int bank, int stepCount, std::string_view paddedName);
  void AddStep(const Step& step);
  /// False if steps are missing; the mode then stays open.
  bool EndMode();
  void BeginPlay(std::string_view paddedName);
  void SetLive(const Step& step);
  void EndPlay();
  void ClearAll();
  void SetClock(std::string_view payload);
  /// The first half of what a protected network takes.
  void SetNetwork(const Wifi& wifi);
  void SetPassword(std::string_view password);
  void SetOpenNetwork(std::string_view ssid);
  /// Steps of the mode that is being sent, -1 if none is.
  int OpenSteps() const;

  /// Tells what the present frame asks for.
  void Hear(std::string what) { heard_ = std::move(what); }
  /// Notes that `what` was wrong with the present frame.
  void Object(const std::string& what);
  /// The same, unless `good`. Answers `good`.
  bool Expect(bool good, const std::string& what);
  /// All bytes from `begin` up to `end` are to be zero.
  bool ExpectZeros(const std::string& frame, std::size_t begin, std::size_t end);
  bool ExpectByte(const std::string& frame, std::size_t offset, std::uint8_t value, const std::string& name);

  double now_ = 0.0;   // of the present frame
  double last_ = 0.0;  // of the last one that was understood

 private:
  void CheckValues(const Step& step);

  Memory memory_;
  std::optional<int> openBank_;
  int openCount_ = 0;  // steps that were announced for it
  std::int64_t frameCount_ = 0;
  std::vector<Received> frames_;
  std::string heard_;
  std::vector<std::string> violations_;
};

/// A TC420 on USB, its only transport.
std::unique_ptr<Controller> MakeTC420();
/// A TC421 on USB: checksum at the end, no name.
std::unique_ptr<Controller> MakeTC421();
/// A TC421 on the network, under `name`. It answers a search, takes the settings of a WiFi network, and takes
/// a frame that comes again as the one that it was: its reply may have been lost. Where an acknowledgement is
/// looked at, with the settings of a WiFi network, it can be the wrong one.
enum class Acknowledgement { Right, Wrong };
std::unique_ptr<Controller> MakeNetworkTC421(const std::string& name,
                                             Acknowledgement acknowledgement = Acknowledgement::Right);

/// "55 AA 03 00": the bytes, for messages and comparisons.
std::string ToHex(std::string_view bytes);

/// "2026-03-14 09:26:53", whether or not the calendar has it.
std::string MomentText(const DateTime& time);

/// Puts a text into double quotes, in ASCII, with everything else escaped: texts of a frame can hold any
/// bytes.
std::string Quoted(std::string_view text);

}  // namespace sim
