#include "program/figures/amount.h"

#include <gtest/gtest.h>

#include <optional>

namespace {

using TCBase::Program::AmountText;
using TCBase::Program::FixedText;
using TCBase::Program::ParseAmount;

TEST(Amount, IsReadWithAPointOrAComma) {
  EXPECT_EQ(ParseAmount("24"), 24.0);
  EXPECT_EQ(ParseAmount("0.32"), 0.32);
  EXPECT_EQ(ParseAmount("0,32"), 0.32);
  EXPECT_EQ(ParseAmount(" 7.5\r\n"), 7.5);
  EXPECT_EQ(ParseAmount(".5"), 0.5);
  EXPECT_EQ(ParseAmount("1000000"), 1e6);
}

TEST(Amount, OfNothingIsZero) {
  EXPECT_EQ(ParseAmount(""), 0.0);
  EXPECT_EQ(ParseAmount("  "), 0.0);
}

TEST(Amount, IsNothingElse) {
  for (const char* text : {"-1", "+1", "1e3", "nan", "inf", "x", "1 000", "1.2.3", "1,2,3", ".", "12 W",
                           "0x10", "1000000.1", "99999999999999999999999999"})
    EXPECT_EQ(ParseAmount(text), std::nullopt) << text;
  EXPECT_EQ(ParseAmount(std::string(1000, '9')), std::nullopt);
}

TEST(Amount, ComesBackFromItsText) {
  for (const double amount : {0.0, 24.0, 0.32, 1.0 / 3.0, 1e6, 5e-324, 0.1})
    EXPECT_EQ(ParseAmount(AmountText(amount)), amount);
  EXPECT_EQ(AmountText(24.0), "24");
  EXPECT_EQ(AmountText(0.32), "0.32");
  EXPECT_EQ(AmountText(0.0), "");
}

TEST(Amount, IsRoundedToDigits) {
  EXPECT_EQ(FixedText(2.0 / 3.0, 2), "0.67");
  EXPECT_EQ(FixedText(0.0, 1), "0.0");
  EXPECT_EQ(FixedText(1234.5678, 3), "1234.568");
}

}  // namespace
