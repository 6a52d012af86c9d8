// The fast ways against their plain definitions, to the bit, on modes at random: unordered, with several
// steps on one minute, out of range, with values that are no percent and no number.

#include "tests/support/plain_program.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <string>
#include <utility>

#include "program/curve.h"
#include "program/optimize.h"
#include "program/raw.h"
#include "program/step_remover.h"
#include "program/steps_text.h"
#include "tests/program/program_fixture.h"
#include "tests/program/random_program.h"

namespace program_test {
namespace {

// The same bits, or both no number.
bool SameFloat(float a, float b) {
  return std::bit_cast<std::uint32_t>(a) == std::bit_cast<std::uint32_t>(b) ||
         (std::isnan(a) && std::isnan(b));
}

std::vector<std::uint32_t> AllSerials(const Mode& mode) {
  std::vector<std::uint32_t> all;
  for (const Channel& channel : mode.channels) {
    for (const std::uint32_t serial : Serials(channel)) all.push_back(serial);
    all.push_back(0);
  }
  return all;
}

std::uint32_t SerialOf(const Mode& mode, const StepRemoval& removal) {
  if (removal.step < 0) return 0;
  return Serial(mode.channels.at(static_cast<std::size_t>(removal.channel)),
                static_cast<std::size_t>(removal.step));
}

class AgainstThePlainWay : public testing::TestWithParam<ChannelKind> {};

TEST_P(AgainstThePlainWay, ChannelValue) {
  for (std::uint32_t seed = 0; seed < 100; ++seed) {
    RandomProgram random(seed);
    const Channel channel = random.ChannelOf(GetParam(), random.Below(30));
    for (int i = 0; i < 200; ++i) {
      // Often the very second of a step.
      const std::int64_t second = !channel.empty() && i % 2 == 0
                                      ? SecondOfDay(channel[static_cast<std::size_t>(i / 2) % channel.size()])
                                      : random.Below(100000) - 1000;
      ASSERT_TRUE(SameFloat(ChannelValueAt(channel, second), Plain::ChannelValueAt(channel, second)))
          << "seed " << seed << " second " << second;
    }
  }
}

TEST_P(AgainstThePlainWay, CurveCursor) {
  for (std::uint32_t seed = 0; seed < 30; ++seed) {
    RandomProgram random(seed);
    const Channel channel = random.ChannelOf(GetParam(), random.Below(30));
    CurveCursor cursor(channel);
    for (std::int64_t second = 0; second < kSecondsPerDay; second += random.Below(120)) {
      ASSERT_TRUE(SameFloat(cursor.At(second), Plain::ChannelValueAt(channel, second)))
          << "seed " << seed << " second " << second;
    }
  }
}

TEST_P(AgainstThePlainWay, RemovalErrors) {
  for (std::uint32_t seed = 0; seed < 200; ++seed) {
    RandomProgram random(seed);
    Mode mode;
    mode.channels[2] = random.ChannelOf(GetParam(), random.Below(25));
    const Channel& channel = mode.channels[2];
    for (std::size_t i = 0; i < channel.size(); ++i) {
      ASSERT_EQ(RemovalError(channel, i), Plain::RemovalError(channel, i))
          << "seed " << seed << " step " << i;
    }
    ASSERT_EQ(FindCheapestStep(mode), Plain::FindCheapestStep(mode)) << "seed " << seed;
  }
}

INSTANTIATE_TEST_SUITE_P(Channels, AgainstThePlainWay, testing::ValuesIn(kChannelKinds));

TEST(CurveBits, AreTheSameInEveryBuild) {
  // FNV-1a over values at random; the number is that of the first build. Native and Windows have to agree on
  // it.
  std::uint64_t digest = 14695981039346656037U;
  for (const ChannelKind kind : kChannelKinds) {
    RandomProgram random(42);
    const Channel channel = random.ChannelOf(kind, 20);
    for (int second = 0; second < kSecondsPerDay; second += 97) {
      const float value = ChannelValueAt(channel, second);
      const std::uint32_t bits = std::isnan(value) ? 0 : std::bit_cast<std::uint32_t>(value);
      digest = (digest ^ bits) * 1099511628211U;
    }
  }
  EXPECT_EQ(digest, 8830069731151359994U);
}

// Where the two dumps differ first.
testing::AssertionResult SameRaw(const Mode& mode) {
  std::string fast = "what was there before";
  std::string plain;
  WriteRaw(mode, fast);
  Plain::WriteRaw(mode, plain);
  if (fast == plain) return testing::AssertionSuccess();
  if (fast.size() != plain.size()) return testing::AssertionFailure() << fast.size() << " bytes";
  const auto at = static_cast<std::size_t>(std::ranges::mismatch(fast, plain).in1 - fast.begin());
  return testing::AssertionFailure() << "second " << at / kChannelCount << " channel " << at % kChannelCount
                                     << ": " << Told(mode.channels[at % kChannelCount]);
}

TEST_P(AgainstThePlainWay, RawBytes) {
  for (std::uint32_t seed = 0; seed < 4; ++seed) {
    RandomProgram random(seed);
    Mode mode;
    for (Channel& channel : mode.channels) channel = random.ChannelOf(GetParam(), random.Below(49));
    ASSERT_TRUE(SameRaw(mode)) << "seed " << seed;
  }
}

TEST(AgainstThePlainWay, RawBytesOfAnyMode) {
  for (std::uint32_t seed = 0; seed < 12; ++seed)
    ASSERT_TRUE(SameRaw(RandomProgram(seed).AnyMode(48))) << "seed " << seed;
}

// Numbers at the edges of what a float, and a whole number made of one, can be.
TEST(AgainstThePlainWay, RawBytesAtTheEdges) {
  const char* const rows[] = {
      "",
      "12:00 33.4",
      "12:00 -7",
      "00:00 0, 23:59 100",
      "00:00 0 J, 00:01 99.9, 00:02 0",
      "00:01 50 J, 23:59 51 J",
      "23:59 0, 23:58 100",                                     // one minute's slope all day
      "23:59 0 J, 23:58 100",                                   //
      "12:00 0, 11:59 100, 12:01 50",                           //
      "12:00 0, 12:00 100",                                     // an infinite slope
      "12:00 50, 12:00 50",                                     // none at all
      "08:00 10, 08:00 90, 20:00 30, 20:00 5",                  //
      "00:00 2147483520, 12:00 2147483648",                     // over the end of the whole numbers
      "00:00 -2147483648, 12:00 2147483648",                    //
      "00:00 -2147484000, 12:00 2147484000",                    //
      "00:00 3e38, 12:00 -3e38",                                // the slope overflows
      "00:00 2e38, 12:00 -1e38, 18:00 1e38",                    // through all numbers there are
      "00:00 3e9, 00:01 -3.01e9, 00:02 3e9",                    //
      "00:00 100, 2147483647:2147483647 0",                     // days away
      "-2147483648:0 0, 12:00 100, 2147483647:0 7e9",           //
      "12:00 0, 600000:0 100000000, 500000:0 -100000000",       // where seconds need more than 32 bits
      "3000:0 1000000, 3001:0 0, 12:00 5000000, 298262:0 100",  //
      "298261:0 0, 298262:0 2000000000",                        //
  };
  for (const char* const steps : rows) {
    Mode mode;
    mode.channels.fill(GivenChannel("00:00 0, 23:59 100"));
    mode.channels.front() = GivenChannel(steps);
    EXPECT_TRUE(SameRaw(mode)) << steps;
    std::swap(mode.channels.front(), mode.channels.back());
    EXPECT_TRUE(SameRaw(mode)) << steps;
  }
}

TEST(AgainstThePlainWay, MergedSteps) {
  std::vector<ModeStep> rows;
  std::vector<ModeStep> plainRows;
  for (std::uint32_t seed = 0; seed < 150; ++seed) {
    const Mode mode = RandomProgram(seed).AnyMode(40);
    CollectModeSteps(mode, rows);
    Plain::CollectModeSteps(mode, plainRows);
    ASSERT_EQ(rows, plainRows) << "seed " << seed;
    ASSERT_EQ(CountModeSteps(mode), static_cast<int>(plainRows.size())) << "seed " << seed;
  }
}

TEST(AgainstThePlainWay, OrderOfRemovals) {
  for (std::uint32_t seed = 0; seed < 150; ++seed) {
    RandomProgram random(seed);
    const Mode mode = seed % 3 == 0 ? random.AscendingMode(20) : random.AnyMode(25);
    Mode plain = mode;
    StepRemover remover(mode);
    for (StepRemoval next = Plain::FindCheapestStep(plain);; next = Plain::FindCheapestStep(plain)) {
      const StepRemoval removal = remover.Cheapest();
      ASSERT_EQ(removal.error, next.error) << "seed " << seed;
      ASSERT_EQ(SerialOf(mode, removal), SerialOf(plain, next)) << "seed " << seed;
      ASSERT_EQ(remover.MergedSteps(), CountModeSteps(plain)) << "seed " << seed;
      if (next.step < 0) break;
      remover.Remove(removal);
      Channel& channel = plain.channels[static_cast<std::size_t>(next.channel)];
      channel.erase(channel.begin() + next.step);
    }
    Mode fast = mode;
    remover.ApplyTo(fast);
    ASSERT_EQ(AllSerials(fast), AllSerials(plain)) << "seed " << seed;
  }
}

TEST(AgainstThePlainWay, OptimizingWithItsLog) {
  StatusLines lines;
  for (std::uint32_t seed = 0; seed < 25; ++seed) {
    RandomProgram random(seed);
    Mode fast = random.AnyMode(20);
    Mode plain = fast;
    const int limit = random.Below(50);
    const bool done = OptimizeModeTo(fast, limit);
    const auto told = lines.Take();
    ASSERT_EQ(Plain::OptimizeModeTo(plain, limit), done) << "seed " << seed;
    ASSERT_EQ(lines.Take(), told) << "seed " << seed;
    ASSERT_EQ(AllSerials(fast), AllSerials(plain)) << "seed " << seed;
  }
}

TEST(AgainstThePlainWay, OptimizingAFullMode) {
  StatusLines lines;
  RandomProgram random(1);
  Mode fast = random.AscendingMode(40);
  Mode plain = fast;
  ASSERT_TRUE(OptimizeMode(fast));
  ASSERT_TRUE(Plain::OptimizeModeTo(plain, kMaxModeSteps));
  EXPECT_EQ(AllSerials(fast), AllSerials(plain));
}

TEST(AgainstThePlainWay, ExactSteps) {
  for (std::uint32_t seed = 0; seed < 150; ++seed) {
    Mode fast = RandomProgram(seed).AnyMode(25);
    Mode plain = fast;
    RemoveExactSteps(fast);
    Plain::RemoveExactSteps(plain);
    ASSERT_EQ(AllSerials(fast), AllSerials(plain)) << "seed " << seed;
  }
}

TEST(AgainstThePlainWay, InsertingManySteps) {
  for (std::uint32_t seed = 0; seed < 200; ++seed) {
    RandomProgram random(seed);
    const auto kind = kChannelKinds[static_cast<std::size_t>(random.Below(std::size(kChannelKinds)))];
    Channel fast = random.ChannelOf(kind, random.Below(30));
    Channel plain = fast;
    const Channel added = random.ChannelOf(ChannelKind::Unordered, random.Below(30));
    const std::uint32_t before = NextStepId();
    InsertStepsSorted(fast, added);
    const std::uint32_t between = NextStepId();
    Plain::InsertStepsSorted(plain, added);
    // Told, since values may be no number. New serials differ by as many as were given in the first way.
    ASSERT_EQ(Told(fast), Told(plain)) << "seed " << seed;
    for (std::size_t i = 0; i < fast.size(); ++i) {
      const std::uint32_t shift = fast[i].id > before ? between - before : 0;
      ASSERT_EQ(fast[i].id + shift, plain[i].id) << "seed " << seed;
    }
  }
}

}  // namespace
}  // namespace program_test
