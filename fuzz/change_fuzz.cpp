// Bytes as a mode, a change and a scope. A refusal leaves the mode as it was, to the bit; a channel that is
// changed is in order, has its two steps, and the mode has no more rows than a controller takes.

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "program/change/change_words.h"
#include "program/change/mode_change.h"

namespace {

using namespace TCBase::Program;

void Require(bool holds) {
  if (!holds) std::abort();
}

// Takes values off the front of the bytes; zeros behind their end.
class Bytes {
 public:
  Bytes(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}

  template <class T>
  T Take() {
    T value{};
    const std::size_t length = std::min(sizeof value, size_);
    if (length > 0) std::memcpy(&value, data_, length);
    data_ += length;
    size_ -= length;
    return value;
  }
  bool IsEmpty() const { return size_ == 0; }
  // A number that is in range as often as not.
  std::int32_t Number() {
    return Take<std::uint8_t>() % 8 == 0 ? Take<std::int32_t>() : Take<std::int16_t>() % 1500;
  }
  float Percent() {
    return Take<std::uint8_t>() % 8 == 0 ? Take<float>() : static_cast<float>(Take<std::int16_t>() % 1100);
  }

 private:
  const std::uint8_t* data_;
  std::size_t size_;
};

ModeChange AnyChange(Bytes& bytes) {
  switch (bytes.Take<std::uint8_t>() % 10) {
    case 0:
      return ShiftTime{bytes.Number(), bytes.Take<std::uint8_t>() % 2 == 0};
    case 1:
      return ShiftPercent{bytes.Percent()};
    case 2:
      return ScalePercent{bytes.Percent(), bytes.Percent()};
    case 3:
      return StretchTime{bytes.Percent(), bytes.Number()};
    case 4:
      return MirrorTime{bytes.Number()};
    case 5:
      return SetJump{bytes.Take<std::uint8_t>() % 2 == 0};
    case 6:
      return CopyToChannels{ChannelSet(bytes.Take<std::uint8_t>()), bytes.Percent()};
    case 7:
      return ThinOut{bytes.Percent()};
    case 8:
      return RoundTimes{bytes.Number()};
    default:
      return RoundPercents{bytes.Number()};
  }
}

ChangeScope AnyScope(Bytes& bytes) {
  ChangeScope scope;
  const auto kinds = bytes.Take<std::uint8_t>();
  if ((kinds & 1) != 0) scope.channels = ChannelSet(bytes.Take<std::uint8_t>());
  if ((kinds & 2) != 0) scope.span = TimeSpan{bytes.Number(), bytes.Number()};
  if ((kinds & 4) == 0) return scope;
  // In order or not.
  scope.stepIds.emplace();
  for (int i = kinds >> 3; i > 0; --i) scope.stepIds->push_back(bytes.Take<std::uint8_t>());
  return scope;
}

Mode AnyMode(Bytes& bytes) {
  Mode mode;
  for (std::uint32_t id = 1; !bytes.IsEmpty(); ++id) {
    const auto kind = bytes.Take<std::uint8_t>();
    Step step{bytes.Take<std::int8_t>(), bytes.Take<std::int8_t>(), 0.0F, (kind & 1) != 0, id};
    step.value = bytes.Percent();
    if ((kind & 2) != 0) step.hour = std::abs(step.hour % kHoursPerDay);
    if ((kind & 4) != 0) step.minute = std::abs(step.minute % kMinutesPerHour);
    if (kind % 64 == 9) step.hour = bytes.Take<std::int32_t>();
    mode.channels[kind / 8 % kChannelCount].push_back(step);
  }
  return mode;
}

bool IsSame(const Channel& a, const Channel& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const Step& x, const Step& y) {
    return x.id == y.id && x.hour == y.hour && x.minute == y.minute && x.jump == y.jump &&
           std::memcmp(&x.value, &y.value, sizeof x.value) == 0;
  });
}

void RequireOrder(const Channel& channel) {
  std::int64_t last = -1;
  for (const Step& step : channel) {
    Require(MinuteOfDay(step) > last && MinuteOfDay(step) < kMinutesPerDay);
    Require(step.minute >= 0 && step.minute < kMinutesPerHour && step.value >= 0.0F && step.value <= 100.0F);
    last = MinuteOfDay(step);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Bytes bytes(data, size);
  const ModeChange change = AnyChange(bytes);
  const ChangeScope scope = AnyScope(bytes);
  const Mode before = AnyMode(bytes);
  Mode after = before;
  const ChangeResult result = ChangeMode(after, change, scope);
  bool same = true;
  for (std::size_t c = 0; c < after.channels.size(); ++c) {
    if (IsSame(after.channels[c], before.channels[c])) continue;
    same = false;
    RequireOrder(after.channels[c]);
    Require(after.channels[c].size() >= std::min<std::size_t>(kMinChannelSteps, before.channels[c].size()));
  }
  Require(same == !result.Changed());
  Require(CountModeSteps(after) <= std::max(kMaxModeSteps, CountModeSteps(before)));
  Require(!TellResult(result).empty());
  return 0;
}
