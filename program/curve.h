#pragma once

// The arithmetic of a channel's curve, for those who ask more than one question of it. What a curve is stands
// at ChannelValueAt (program.h); both answer the same to the bit.

#include <cstddef>
#include <cstdint>
#include <limits>

#include "program/program.h"

namespace TCBase::Program {

/// A curve as long as it is straight. It rises or falls throughout, in floats too, since each operation
/// rounds to the nearest one and so keeps the order of its operands.
struct StraightCurve {
  std::int64_t elapsed;  // seconds from the step before
  float slope;           // percent a second
  float value;           // of the step before

  /// Percent after so many seconds more.
  float At(std::int64_t seconds) const { return slope * static_cast<float>(elapsed + seconds) + value; }
};

/// The curve between two steps that follow one another on the ring, or from the last step to the first.
class CurveSegment {
 public:
  CurveSegment(const Step& from, const Step& to)
      : fromSecond_(SecondOfDay(from)), toSecond_(SecondOfDay(to)), fromValue_(from.value) {
    const auto span =
        static_cast<float>(toSecond_ - fromSecond_ + (fromSecond_ > toSecond_ ? kSecondsPerDay : 0));
    slopeAtEnd_ = (to.value - from.value) / span;
    // This is not simply 0: a value that is no finite number, or a span of 0, must spoil a jump as it spoils
    // a fade.
    slope_ = from.jump ? (from.value - from.value) / span : slopeAtEnd_;
  }

  /// Percent at a ring second. A jump holds the first step's value right up to the second step's time, and is
  /// there exactly at it.
  float At(std::int64_t second) const {
    return StraightCurve{Elapsed(second), second == toSecond_ ? slopeAtEnd_ : slope_, fromValue_}.At(0);
  }

  /// The curve behind a whole minute, up to the next; seconds count from the minute. Steps stand on whole
  /// minutes.
  StraightCurve LineAfter(std::int64_t minuteSecond) const {
    return {Elapsed(minuteSecond), slope_, fromValue_};
  }

 private:
  std::int64_t Elapsed(std::int64_t second) const {
    return second - fromSecond_ + (fromSecond_ > second ? kSecondsPerDay : 0);
  }

  std::int64_t fromSecond_;
  std::int64_t toSecond_;
  float fromValue_;
  float slope_;
  float slopeAtEnd_;
};

/// Reads a channel's curve at ascending seconds, in one walk over the steps whatever their order. The channel
/// must outlive the cursor and stay as it is.
class CurveCursor {
 public:
  explicit CurveCursor(const Channel& channel)
      : channel_(channel),
        segment_(channel.empty() ? Step{} : channel.back(), channel.empty() ? Step{} : channel.front()),
        lastSecond_(channel.size() < 2 ? kForever : SecondOfDay(channel.front())) {}

  /// ChannelValueAt of a ring second that is not before the one asked last.
  float At(std::int64_t second) {
    if (second > lastSecond_) Advance(second);
    return channel_.size() < 2 ? ChannelValueAt(channel_, second) : segment_.At(second);
  }

  /// Whether a segment ends at this second, which is as in At(): the curve may be elsewhere behind it.
  bool EndsAt(std::int64_t second) {
    if (second > lastSecond_) Advance(second);
    return second == lastSecond_;
  }

  /// The 59 seconds behind a whole minute of the ring, which count from it; and the minute itself, unless a
  /// segment ends there. The next second to be asked for is behind it.
  StraightCurve LineAfter(std::int64_t minuteSecond) {
    if (minuteSecond + 1 > lastSecond_) Advance(minuteSecond + 1);
    if (channel_.size() > 1) return segment_.LineAfter(minuteSecond);
    return {0, 0.0F, channel_.empty() ? 0.0F : channel_.front().value};
  }

 private:
  static constexpr std::int64_t kForever = std::numeric_limits<std::int64_t>::max();

  /// The first step at or after `second` closes the segment. Steps passed for an earlier second are before
  /// this one too, so that the walk goes on where it stopped even if the channel is out of order.
  void Advance(std::int64_t second) {
    while (next_ < channel_.size() && SecondOfDay(channel_[next_]) < second) ++next_;
    const bool afterAll = next_ == channel_.size();
    segment_ = afterAll ? CurveSegment(channel_.back(), channel_.front())
                        : CurveSegment(channel_[next_ - 1], channel_[next_]);
    lastSecond_ = afterAll ? kForever : SecondOfDay(channel_[next_]);
  }

  const Channel& channel_;
  std::size_t next_ =
      0;  // the step that closes `segment_`; past the end, the segment leads to the first step
  CurveSegment segment_;
  std::int64_t lastSecond_;  // of `segment_`
};

}  // namespace TCBase::Program
