#include "program/raw.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "common/truncate.h"
#include "program/curve.h"

// A minute at a time: every step stands on a whole minute, so that behind its first second each curve is
// straight, and most keep their whole percent. Where one does not, all seconds are worked out in a loop that
// the compiler makes vectors of.

namespace TCBase::Program {

namespace {

constexpr std::size_t kSeconds = 60;
constexpr std::int64_t kLastSecond = kSeconds - 1;

std::uint32_t ByteOf(float percent) {
  return static_cast<std::uint32_t>(TruncateToInt(percent)) & 0xFF;
}

// Whether TruncateToInt has a number for it.
bool HasInt(float percent) {
  return percent >= -2147483648.0F && percent < 2147483648.0F;
}

// Whether all bytes of the minute are the same as those of its ends. The curve stays between its ends.
bool IsLevel(float begin, float end) {
  if (HasInt(begin) != HasInt(end)) return false;
  if (HasInt(begin)) return TruncateToInt(begin) == TruncateToInt(end);
  // Neither end is within the range of the integers. If both are on the same side of it, so is all between
  // them.
  return !(begin * end < 0.0F);
}

// Whether all seconds can be worked out in 32 bits: a number that both ends have, all between them have.
bool IsPlain(const StraightCurve& curve, float begin, float end) {
  constexpr std::int64_t kMost = std::int64_t{1} << 30;
  return HasInt(begin) && HasInt(end) && curve.elapsed > -kMost && curve.elapsed < kMost;
}

// One word for each row of the minute.
using Words = std::array<std::uint32_t, kSeconds>;

// Puts the bytes of a curve that IsPlain() into the words.
void AddPlainBytes(const StraightCurve& curve, unsigned shift, Words& words) {
  // What StraightCurve::At answers: a number of 32 bits is the same float as one of 64.
  auto elapsed = static_cast<std::int32_t>(curve.elapsed);
  for (std::uint32_t& word : words) {
    const float percent = curve.slope * static_cast<float>(elapsed++) + curve.value;
    word |= (static_cast<std::uint32_t>(static_cast<std::int32_t>(percent)) & 0xFF) << shift;
  }
}

void AddBytes(const StraightCurve& curve, unsigned shift, Words& words) {
  for (std::size_t i = 0; i < kSeconds; ++i)
    words[i] |= ByteOf(curve.At(static_cast<std::int64_t>(i))) << shift;
}

// Rows of one byte a channel: channels 1 to 4 in the one word, from the low byte up, channel 5 in the other.
using RowWords = std::array<std::uint32_t, 2>;

constexpr std::size_t WordOf(std::size_t channel) {
  return channel / 4;
}
constexpr unsigned ShiftOf(std::size_t channel) {
  return static_cast<unsigned>(channel % 4) * 8;
}

// The rows of one minute.
class MinuteRows {
 public:
  void Add(std::size_t channel, const StraightCurve& curve) {
    const float begin = curve.At(0);
    const float end = curve.At(kLastSecond);
    if (IsLevel(begin, end)) {
      level_[WordOf(channel)] |= ByteOf(end) << ShiftOf(channel);
    } else {
      changing_[changes_++] = {channel, curve, IsPlain(curve, begin, end)};
    }
  }

  // Writes them, and is as new.
  void Take(char* out) {
    if (changes_ != 0) {
      Write(out);
    } else {
      if (level_ != levelOfRows_) Write(levelRows_.data());
      levelOfRows_ = level_;
      std::copy(levelRows_.begin(), levelRows_.end(), out);
    }
    level_ = {};
    changes_ = 0;
  }

 private:
  struct Change {
    std::size_t channel;
    StraightCurve curve;
    bool isPlain;
  };

  void Write(char* row) {
    for (std::size_t word = 0; word < level_.size(); ++word) words_[word].fill(level_[word]);
    for (std::size_t i = 0; i < changes_; ++i) {
      const auto& [channel, curve, isPlain] = changing_[i];
      (isPlain ? AddPlainBytes : AddBytes)(curve, ShiftOf(channel), words_[WordOf(channel)]);
    }
    for (std::size_t i = 0; i < kSeconds; ++i, row += kChannelCount) {
      // Loaded before the bytes are stored, so that the compiler can store the four as one.
      const std::uint32_t four = words_[0][i];
      const std::uint32_t fifth = words_[1][i];
      for (unsigned byte = 0; byte < 4; ++byte) row[byte] = static_cast<char>(four >> (8 * byte));
      row[4] = static_cast<char>(fifth);
    }
  }

  RowWords level_{};  // the bytes that are the same in all rows
  std::array<Change, kChannelCount> changing_;
  std::size_t changes_ = 0;
  std::array<Words, 2> words_;
  // Most minutes without a change are like the one before.
  std::array<char, kSeconds * kChannelCount> levelRows_{};
  RowWords levelOfRows_{};
};

}  // namespace

bool WriteRaw(const Mode& mode, std::string& data) {
  data.assign(std::size_t{kSecondsPerDay} * kChannelCount, '\0');
  if (std::ranges::all_of(mode.channels, &Channel::empty)) return true;
  std::vector<CurveCursor> curves(mode.channels.begin(), mode.channels.end());
  MinuteRows rows;
  char* row = data.data();
  for (std::int64_t second = 0; second < kSecondsPerDay; second += kSeconds) {
    // A minute's first second can be the last of the segment before: the byte stands for itself.
    std::array<std::pair<std::size_t, char>, kChannelCount> ends;
    std::size_t count = 0;
    for (std::size_t channel = 0; channel < curves.size(); ++channel) {
      CurveCursor& curve = curves[channel];
      if (curve.EndsAt(second)) ends[count++] = {channel, static_cast<char>(ByteOf(curve.At(second)))};
      rows.Add(channel, curve.LineAfter(second));
    }
    rows.Take(row);
    for (std::size_t i = 0; i < count; ++i) row[ends[i].first] = ends[i].second;
    row += kSeconds * kChannelCount;
  }
  return true;
}

}  // namespace TCBase::Program
