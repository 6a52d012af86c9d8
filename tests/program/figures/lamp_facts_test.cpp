#include "program/figures/lamp_facts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "program/figures/amount.h"
#include "tests/support/files.h"
#include "tests/support/temporary_folder.h"

namespace {

using TCBase::Program::KeepLampFacts;
using TCBase::Program::LampFacts;
using TCBase::Program::ParseLevel;
using TCBase::Program::ReadLampFacts;
using testing::HasSubstr;
using testing::Not;

class LampFactsTest : public testing::Test {
 protected:
  const TemporaryFolder folder_;
  const std::filesystem::path file_ = folder_ / "LumarineConfig.xml";
};

TEST_F(LampFactsTest, AreNoneAtFirstAndReadingThemLeavesNoKey) {
  Settings settings(file_);
  EXPECT_EQ(ReadLampFacts(settings), LampFacts{});
  EXPECT_EQ(ReadLampFacts(settings).level, 50.0);
  KeepLampFacts(settings, LampFacts{});
  ASSERT_TRUE(settings.Save());
  EXPECT_THAT(BytesOf(file_),
              testing::AllOf(Not(HasSubstr("lamp")), Not(HasSubstr("price")), Not(HasSubstr("level"))));
}

TEST_F(LampFactsTest, ComeBack) {
  LampFacts facts;
  facts.watts = {24, 0, 12.5, 0, 6};
  facts.par = {0, 0, 0, 0, 0.1};
  facts.price = 0.32;
  facts.level = 0;
  Settings settings(file_);
  KeepLampFacts(settings, facts);
  ASSERT_TRUE(settings.Save());
  Settings again(file_);
  EXPECT_EQ(ReadLampFacts(again), facts);
  EXPECT_EQ(again.FindValue("lamp_watts"), "24;;12.5;;6");
  EXPECT_EQ(again.FindValue("lamp_par"), ";;;;0.1");
  KeepLampFacts(again, LampFacts{});
  EXPECT_EQ(ReadLampFacts(again), LampFacts{}) << "what is taken back is gone";
}

TEST_F(LampFactsTest, OfAForeignHandAreReadAsFarAsTheyAreNumbers) {
  Settings settings(file_);
  settings.SetValue("lamp_watts", "24;x;-3;1e9;5;6;7");
  settings.SetValue("lamp_par", "1");
  settings.SetValue("electricity_price", "free");
  settings.SetValue("figures_level", "101");
  LampFacts facts;
  facts.watts = {24, 0, 0, 0, 5};
  facts.par = {1};
  EXPECT_EQ(ReadLampFacts(settings), facts);
}

TEST_F(LampFactsTest, ALevelIsAPercentage) {
  EXPECT_EQ(ParseLevel("0"), 0.0);
  EXPECT_EQ(ParseLevel("100"), 100.0);
  EXPECT_EQ(ParseLevel("12,5"), 12.5);
  EXPECT_EQ(ParseLevel("100.1"), std::nullopt);
  EXPECT_EQ(ParseLevel("half"), std::nullopt);
}

}  // namespace
