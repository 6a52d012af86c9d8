#include "common/truncate.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

TEST(TruncateToInt, CutsTowardZero) {
  EXPECT_EQ(TruncateToInt(0.0F), 0);
  EXPECT_EQ(TruncateToInt(-0.99F), 0);
  EXPECT_EQ(TruncateToInt(99.99F), 99);
  EXPECT_EQ(TruncateToInt(-1.5F), -1);
}

TEST(TruncateToInt, ReachesBothEndsOfItsRange) {
  EXPECT_EQ(TruncateToInt(2147483520.0F), 2147483520);
  EXPECT_EQ(TruncateToInt(-2147483648.0F), std::numeric_limits<std::int32_t>::min());
}

TEST(TruncateToInt, GivesTheLowestForWhatHasNoInteger) {
  using Float = std::numeric_limits<float>;
  for (const float value : {2147483648.0F, -2147483904.0F, Float::max(), Float::lowest(), Float::infinity(),
                            -Float::infinity(), Float::quiet_NaN()}) {
    EXPECT_EQ(TruncateToInt(value), std::numeric_limits<std::int32_t>::min()) << value;
  }
}

}  // namespace
