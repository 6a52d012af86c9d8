// What holds for every change of every mode, hostile ones included.

#include <algorithm>
#include <cmath>
#include <limits>
#include <ranges>

#include "tests/program/change_test.h"
#include "tests/program/random_program.h"

namespace program_test {
namespace {

constexpr int kModes = 400;

// A change and a scope at random, most of them in range.
class AnyChange {
 public:
  explicit AnyChange(RandomProgram& random) : random_(random) {}

  ModeChange Change() {
    switch (random_.Below(10)) {
      case 0:
        return ShiftTime{random_.Below(2900) - 1450, random_.Below(2) == 0};
      case 1:
        return ShiftPercent{Number(-105, 105)};
      case 2:
        return ScalePercent{Number(-5, 1010), Number(-2, 102)};
      case 3:
        return StretchTime{Number(-5, 1010), random_.Below(1445) - 2};
      case 4:
        return MirrorTime{random_.Below(1445) - 2};
      case 5:
        return SetJump{random_.Below(2) == 0};
      case 6:
        return CopyToChannels{ChannelSet(static_cast<unsigned>(random_.Below(32))), Number(-5, 1010)};
      case 7:
        return ThinOut{Number(-1, 20)};
      case 8:
        return RoundTimes{random_.Below(730) - 2};
      default:
        return RoundPercents{random_.Below(105) - 2};
    }
  }

  ChangeScope Scope(const Mode& mode) {
    ChangeScope scope;
    if (random_.Below(2) == 0) scope.channels = ChannelSet(static_cast<unsigned>(random_.Below(32)));
    if (random_.Below(3) == 0) scope.span = TimeSpan{random_.Below(1441), random_.Below(1441)};
    if (random_.Below(4) != 0) return scope;
    scope.stepIds.emplace();
    for (const Channel& channel : mode.channels) {
      for (const Step& step : channel) {
        if (random_.Below(3) == 0) scope.stepIds->push_back(step.id);
      }
    }
    std::ranges::sort(*scope.stepIds);
    return scope;
  }

 private:
  float Number(int from, int to) {
    if (random_.Below(50) == 0) return std::numeric_limits<float>::quiet_NaN();
    return static_cast<float>(from * 4 + random_.Below((to - from) * 4)) / 4.0F;
  }

  RandomProgram& random_;
};

bool IsInOrder(const Channel& channel) {
  const auto isFine = [](const Step& step) {
    return step.hour >= 0 && step.hour < 24 && step.minute >= 0 && step.minute < 60 && step.value >= 0.0F &&
           step.value <= 100.0F;
  };
  const auto isNotBefore = [](const Step& a, const Step& b) { return MinuteOfDay(a) >= MinuteOfDay(b); };
  return std::ranges::all_of(channel, isFine) &&
         std::ranges::adjacent_find(channel, isNotBefore) == channel.end();
}

bool IsTheSame(const Channel& a, const Channel& b) {
  return Serials(a) == Serials(b) && std::ranges::equal(a, b, [](const Step& x, const Step& y) {
           return x.hour == y.hour && x.minute == y.minute && x.jump == y.jump &&
                  (x.value == y.value || (std::isnan(x.value) && std::isnan(y.value)));
         });
}

// Not more ids than before, but for what was added.
int CountNewIds(const Mode& after, const Mode& before) {
  std::vector<std::uint32_t> known;
  for (const Channel& channel : before.channels)
    for (const Step& step : channel) known.push_back(step.id);
  std::ranges::sort(known);
  int count = 0;
  for (const Channel& channel : after.channels)
    for (const Step& step : channel) count += std::ranges::binary_search(known, step.id) ? 0 : 1;
  return count;
}

int CountSteps(const Mode& mode) {
  std::size_t count = 0;
  for (const Channel& channel : mode.channels) count += channel.size();
  return static_cast<int>(count);
}

TEST(ChangeRandom, InvariantsHoldAndARefusalTouchesNothing) {
  int refused = 0;
  int changed = 0;
  for (std::uint32_t seed = 1; seed <= kModes * 5; ++seed) {
    SCOPED_TRACE(seed);
    RandomProgram random(seed);
    const Mode before = random.AnyMode(20);
    AnyChange any(random);
    const ModeChange change = any.Change();
    const ChangeScope scope = any.Scope(before);
    Mode after = before;
    const ChangeResult result = ChangeMode(after, change, scope);
    bool same = true;
    for (std::size_t c = 0; c < before.channels.size(); ++c) {
      const bool isSame = IsTheSame(after.channels[c], before.channels[c]);
      same = same && isSame;
      if (isSame) continue;
      EXPECT_TRUE(IsInOrder(after.channels[c]));
      EXPECT_GE(after.channels[c].size(), std::min<std::size_t>(2, before.channels[c].size()));
      EXPECT_TRUE(scope.channels[c] || std::holds_alternative<CopyToChannels>(change));
    }
    EXPECT_EQ(same, !result.Changed());
    EXPECT_TRUE(CountModeSteps(after) <= kMaxModeSteps || CountModeSteps(after) <= CountModeSteps(before));
    if (result.Changed()) {
      ++changed;
      EXPECT_EQ(CountNewIds(after, before), result.added);
      EXPECT_EQ(CountSteps(after), CountSteps(before) + result.added - result.removed);
      EXPECT_EQ(CountModeSteps(after), result.rows);
    }
    if (result.refusal != ChangeRefusal::None) ++refused;
  }
  EXPECT_GT(changed, kModes * 2);
  EXPECT_GT(refused, kModes / 2);
}

TEST(ChangeRandom, AShiftRoundTheDayAndBackGivesTheSame) {
  for (std::uint32_t seed = 1; seed <= kModes; ++seed) {
    SCOPED_TRACE(seed);
    RandomProgram random(seed);
    const Mode before = random.AscendingMode(9);
    const std::int32_t minutes = random.Below(2881) - 1440;
    Mode mode = before;
    ChangeMode(mode, ShiftTime{minutes}, {});
    ChangeMode(mode, ShiftTime{-minutes}, {});
    for (std::size_t c = 0; c < mode.channels.size(); ++c)
      EXPECT_TRUE(IsTheSame(mode.channels[c], before.channels[c]));
  }
}

TEST(ChangeRandom, AShiftRoundTheDayMovesTheCurve) {
  for (std::uint32_t seed = 1; seed <= 40; ++seed) {
    SCOPED_TRACE(seed);
    RandomProgram random(seed);
    const Mode before = random.AscendingMode(9);
    const std::int32_t minutes = random.Below(1440);
    Mode mode = before;
    ChangeMode(mode, ShiftTime{minutes}, {});
    for (int minute = 0; minute < kMinutesPerDay; ++minute)
      ASSERT_NEAR(ChannelValueAt(mode.channels[0], (minute + minutes) % kMinutesPerDay * 60),
                  ChannelValueAt(before.channels[0], minute * 60), 0.01F);
  }
}

// A flash of one minute between two leaps is not worth the steps that its mirror would take.
bool HasStepsAMinuteApart(const Mode& mode) {
  return std::ranges::any_of(mode.channels, [](const Channel& channel) {
    for (std::size_t i = 0; i < channel.size(); ++i) {
      const std::int64_t apart = MinuteOfDay(channel[(i + 1) % channel.size()]) - MinuteOfDay(channel[i]);
      if ((apart + kMinutesPerDay) % kMinutesPerDay == 1) return true;
    }
    return false;
  });
}

// Half minutes: a curve has but one value where a jump arrives. A fade behind a leap puts a fade of a minute
// in the leap's place, which begins on the whole minute.
TEST(ChangeRandom, AMirrorIsTheDayReadBackwards) {
  for (std::uint32_t seed = 1; seed <= 100; ++seed) {
    SCOPED_TRACE(seed);
    RandomProgram random(seed);
    const Mode before = random.AscendingMode(6);
    if (HasStepsAMinuteApart(before)) continue;
    const std::int32_t about = random.Below(1440);
    Mode mode = before;
    const ChangeResult result = ChangeMode(mode, MirrorTime{about}, {});
    if (!result.Changed()) continue;
    int off = 0;
    for (std::size_t c = 0; c < mode.channels.size(); ++c) {
      for (std::int64_t minute = 0; minute < kMinutesPerDay; ++minute) {
        const std::int64_t mirrored = (2 * about - minute - 1 + 2 * kMinutesPerDay) % kMinutesPerDay;
        off += std::fabs(ChannelValueAt(mode.channels[c], mirrored * 60 + 30) -
                         ChannelValueAt(before.channels[c], minute * 60 + 30)) > 0.05F;
      }
    }
    EXPECT_LE(off, result.added);
  }
}

TEST(ChangeRandom, AMirrorTwiceIsTheSameCurve) {
  for (std::uint32_t seed = 1; seed <= 100; ++seed) {
    SCOPED_TRACE(seed);
    RandomProgram random(seed);
    const Mode before = random.AscendingMode(6);
    if (HasStepsAMinuteApart(before)) continue;
    const MirrorTime change{random.Below(1440)};
    Mode mode = before;
    if (!ChangeMode(mode, change, {}).Changed()) continue;
    ChangeMode(mode, change, {});
    for (std::size_t c = 0; c < mode.channels.size(); ++c) {
      EXPECT_EQ(Serials(mode.channels[c]), Serials(before.channels[c]));
      for (std::int64_t second = 0; second < kSecondsPerDay; second += 61)
        ASSERT_NEAR(ChannelValueAt(mode.channels[c], second), ChannelValueAt(before.channels[c], second),
                    0.05F);
    }
  }
}

TEST(ChangeRandom, AThinnedCurveIsNowhereMoreThanTheToleranceOff) {
  int gone = 0;
  for (std::uint32_t seed = 1; seed <= 60; ++seed) {
    SCOPED_TRACE(seed);
    RandomProgram random(seed);
    const Mode before = random.AscendingMode(30);
    const ThinOut change{static_cast<float>(random.Below(80)) / 4.0F};
    Mode mode = before;
    gone += ChangeMode(mode, change, {}).removed;
    for (std::size_t c = 0; c < mode.channels.size(); ++c) {
      for (std::int64_t second = 0; second < kSecondsPerDay; second += 59)
        ASSERT_NEAR(ChannelValueAt(mode.channels[c], second), ChannelValueAt(before.channels[c], second),
                    change.tolerance + 0.01F);
    }
  }
  EXPECT_GT(gone, 500);
}

// None of those that stay could go by itself as well.
TEST(ChangeRandom, AThinnedCurveHasNoStepTooMany) {
  for (std::uint32_t seed = 1; seed <= 10; ++seed) {
    SCOPED_TRACE(seed);
    RandomProgram random(seed);
    const Mode before = random.AscendingMode(12);
    Mode mode = before;
    ChangeMode(mode, ThinOut{5.0F}, {});
    for (std::size_t c = 0; c < mode.channels.size(); ++c) {
      const Channel& channel = mode.channels[c];
      for (std::size_t i = 0; channel.size() > 2 && i < channel.size(); ++i) {
        Channel less = channel;
        less.erase(less.begin() + static_cast<std::ptrdiff_t>(i));
        float worst = 0.0F;
        for (std::int64_t minute = 0; minute < kMinutesPerDay; ++minute)
          for (const std::int64_t second : {minute * 60, minute * 60 + 59})
            worst = std::max(
                worst, std::fabs(ChannelValueAt(less, second) - ChannelValueAt(before.channels[c], second)));
        ASSERT_GT(worst, 4.9F);
      }
    }
  }
}

TEST(ChangeRandom, AStretchKeepsTheOrderRoundTheMoment) {
  for (std::uint32_t seed = 1; seed <= kModes; ++seed) {
    SCOPED_TRACE(seed);
    RandomProgram random(seed);
    Mode mode = random.AscendingMode(9);
    const std::int32_t about = random.Below(1440);
    const StretchTime change{static_cast<float>(1 + random.Below(400)), about};
    // As seen from twelve hours before the moment.
    const auto serials = [&] {
      Mode turned = mode;
      ChangeMode(turned, ShiftTime{(kMinutesPerDay * 3 / 2 - about) % kMinutesPerDay}, {});
      return Serials(turned.channels[0]);
    };
    const std::vector<std::uint32_t> before = serials();
    ChangeMode(mode, change, {.channels = ChannelSet(1)});
    EXPECT_EQ(serials(), before);
  }
}

}  // namespace
}  // namespace program_test
