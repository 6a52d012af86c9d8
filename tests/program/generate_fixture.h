#pragma once

// What holds of every mode that is made.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "program/generate/fit.h"
#include "tests/program/program_fixture.h"

namespace program_test {

using namespace TCBase::Program::Generate;

/// Valid, in order, in whole percents, two steps or more in each channel, and not too many rows.
inline void ExpectOrdinarySteps(const Generated& made, int mostRows = kMaxModeSteps) {
  EXPECT_LE(CountModeSteps(made.mode), mostRows);
  for (const Channel& channel : made.mode.channels) {
    EXPECT_GE(channel.size(), static_cast<std::size_t>(kMinChannelSteps)) << Told(channel);
    for (std::size_t i = 0; i < channel.size(); ++i) {
      const Step& step = channel[i];
      EXPECT_TRUE(step.hour >= 0 && step.hour < 24 && step.minute >= 0 && step.minute < 60) << Told(channel);
      EXPECT_TRUE(step.value >= 0 && step.value <= 100 && step.value == std::floor(step.value))
          << Told(channel);
      EXPECT_TRUE(i == 0 || MinuteOfDay(channel[i - 1]) < MinuteOfDay(step)) << Told(channel);
    }
  }
}

/// The error that is told is that of the curves, minute by minute.
inline void ExpectTrueError(const Generated& made, const DayCurves& wanted) {
  float error = 0.0F;
  for (std::size_t c = 0; c < wanted.size(); ++c) {
    for (int minute = 0; minute < kMinutesPerDay; ++minute) {
      float percent = wanted[c][static_cast<std::size_t>(minute)];
      percent = percent > 0.0F ? std::min(percent, 100.0F) : 0.0F;
      error = std::max(error, std::abs(ChannelValueAt(made.mode.channels[c], minute * 60) - percent));
    }
  }
  EXPECT_NEAR(made.error, error, 1e-4);
}

}  // namespace program_test
