// What is kept of a program that is being edited, as bytes and back.

#include "program/recovery_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <limits>
#include <string>
#include <utility>

#include "common/files.h"
#include "program/builtin_modes.h"
#include "program/program_file.h"
#include "tests/program/program_fixture.h"
#include "tests/program/random_program.h"
#include "tests/support/files.h"
#include "tests/support/temporary_folder.h"

namespace program_test {
namespace {

using testing::HasSubstr;

RecoveryFile Given(ModeListView document) {
  return {std::move(document), "/home/ann/Tank.xml", 0xFEDCBA9876543210, {2026, 11, 23, 20, 15, 0, 0}};
}
RecoveryFile Read(const std::string& text) {
  RecoveryFile read;
  EXPECT_EQ(ReadRecovery(text, read), RecoveryReading::Good);
  return read;
}
RecoveryReading Reading(const std::string& text) {
  RecoveryFile read;
  return ReadRecovery(text, read);
}
std::string Replaced(std::string text, const std::string& what, const std::string& with) {
  const std::size_t at = text.find(what);
  EXPECT_NE(at, std::string::npos) << what;
  return at != std::string::npos ? text.replace(at, what.size(), with) : text;
}

TEST(RecoveryFile, ComesBackAsItWas) {
  RecoveryFile given = Given(NewProgram());
  given.document.currentMode = 1;
  given.document.channelInfos[2].description = "Moon & <stars>";
  const RecoveryFile read = Read(ToRecoveryText(given));
  EXPECT_TRUE(read.document == given.document);
  EXPECT_EQ(read.document.currentMode, 1);
  EXPECT_EQ(read.document.channelInfos[2].description, "Moon & <stars>");
  EXPECT_EQ(read.file, given.file);
  EXPECT_EQ(read.mark, given.mark);
  EXPECT_EQ(ToMinuteText(read.changed), "2026-11-23 20:15");
}

// A program file holds whole percents; what is edited has fractions of them.
TEST(RecoveryFile, KeepsEachPercentToTheBit) {
  RecoveryFile given = Given(NewProgram());
  auto& steps = given.document.modes[0].channels[3];
  const float values[] = {42.4242F, -0.0F, 1e30F, std::numeric_limits<float>::quiet_NaN(), 99.99999F};
  steps.clear();
  for (const float value : values) steps.push_back({static_cast<std::int32_t>(steps.size()), 0, value});
  const RecoveryFile read = Read(ToRecoveryText(given));
  const auto& back = read.document.modes[0].channels[3];
  ASSERT_EQ(back.size(), std::size(values));
  for (std::size_t i = 0; i < back.size(); ++i) {
    EXPECT_EQ(std::bit_cast<std::uint32_t>(back[i].value), std::bit_cast<std::uint32_t>(values[i])) << i;
  }
}

bool IsSame(const Step& a, const Step& b) {
  return a.hour == b.hour && a.minute == b.minute && a.jump == b.jump &&
         std::bit_cast<std::uint32_t>(a.value) == std::bit_cast<std::uint32_t>(b.value);
}

TEST(RecoveryFile, ComesBackToTheBitForRandomPrograms) {
  RandomProgram random(11);
  for (int round = 0; round < 200; ++round) {
    RecoveryFile given = Given(NewProgram());
    given.document.modes = {random.AnyMode(60), random.AnyMode(60)};
    const RecoveryFile read = Read(ToRecoveryText(given));
    ASSERT_EQ(read.document.modes.size(), 2U);
    for (std::size_t mode = 0; mode < 2; ++mode) {
      for (std::size_t channel = 0; channel < kChannelCount; ++channel) {
        const Channel& back = read.document.modes[mode].channels[channel];
        const Channel& steps = given.document.modes[mode].channels[channel];
        EXPECT_TRUE(std::equal(back.begin(), back.end(), steps.begin(), steps.end(), IsSame)) << round;
      }
    }
  }
}

TEST(RecoveryFile, IsAProgramFileThatCanBeOpenedByHand) {
  const TemporaryFolder folder;
  ASSERT_TRUE(WriteFileBytes(folder / "kept.xml", ToRecoveryText(Given(NewProgram()))));
  ModeListView loaded = NewProgram();
  EXPECT_TRUE(LoadProgram(folder / "kept.xml", loaded));
  EXPECT_TRUE(loaded == NewProgram());
}

TEST(RecoveryFile, OfANewerVersionIsToldApart) {
  const std::string text = ToRecoveryText(Given(NewProgram()));
  EXPECT_EQ(Reading(Replaced(text, "recovery='1'", "recovery='2'")), RecoveryReading::Newer);
  EXPECT_EQ(Reading("<something-else recovery='3'/>"), RecoveryReading::Newer);
}

TEST(RecoveryFile, ThatIsNoneIsBroken) {
  const std::string text = ToRecoveryText(Given(NewProgram()));
  EXPECT_EQ(Reading(""), RecoveryReading::Broken);
  EXPECT_EQ(Reading("noise"), RecoveryReading::Broken);
  EXPECT_EQ(Reading(text.substr(0, text.size() / 2)), RecoveryReading::Broken);
  EXPECT_EQ(Reading(Replaced(text, " recovery='1'", "")), RecoveryReading::Broken);
  EXPECT_EQ(Reading(Replaced(text, "recovery='1'", "recovery='one'")), RecoveryReading::Broken);
  EXPECT_EQ(Reading("<modelist recovery='1'/>"), RecoveryReading::Broken) << "no mode";
}

TEST(RecoveryFile, OfStrangeNumbersIsReadAsFarAsItGoes) {
  RecoveryFile given = Given(NewProgram());
  given.document.modes[1].channels[4][0].value = 1.5F;
  const std::string text = ToRecoveryText(given);
  EXPECT_THAT(text, HasSubstr("<fraction mode='1' channel='4' step='0' bits='1069547520'/>"));
  const RecoveryFile plain = Read(Replaced(text, "bits='1069547520'", "bits='?'"));
  EXPECT_EQ(plain.document.modes[1].channels[4][0].value, 1.0F);
  for (const char* const where : {"mode='2'", "mode='-1'", "mode='99999999999999999999'", "mode=''"}) {
    const RecoveryFile read = Read(Replaced(text, "fraction mode='1'", std::string("fraction ") + where));
    EXPECT_TRUE(read.document == plain.document) << where;
  }
  EXPECT_TRUE(Read(Replaced(text, "channel='4'", "channel='5'")).document == plain.document);
  EXPECT_TRUE(Read(Replaced(text, "step='0' bits", "step='999' bits")).document == plain.document);
  EXPECT_EQ(Read(Replaced(text, "current='0'", "current='7'")).document.currentMode, 1);
  EXPECT_EQ(Read(Replaced(text, "current='0'", "current='-7'")).document.currentMode, 0);
  EXPECT_EQ(Read(Replaced(text, "mark='", "mark='-")).mark, 0U);
  for (const char* const time : {"", "now", "2026-13-01 00:00", "2026-12-01 24:00", "2026-12-01"}) {
    EXPECT_EQ(Read(Replaced(text, "2026-11-23 20:15", time)).changed.year, 0) << time;
  }
}

TEST(ContentMark, TellsContentsApart) {
  EXPECT_EQ(ContentMark(""), 0xCBF29CE484222325U);
  EXPECT_EQ(ContentMark("a"), 0xAF63DC4C8601EC8CU) << "as the function's authors publish it";
  EXPECT_NE(ContentMark("ab"), ContentMark("ba"));
}

}  // namespace
}  // namespace program_test
