// Mode files of other tools that are cut, damaged or none: a mode within the limits or the message, and
// nothing else.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <ostream>
#include <string>
#include <vector>

#include "common/files.h"
#include "program/mode_file.h"
#include "tests/program/program_fixture.h"
#include "tests/program/random_program.h"
#include "tests/support/files.h"
#include "tests/support/temporary_folder.h"

namespace {

using namespace program_test;
using testing::ElementsAre;
using testing::IsEmpty;

struct Kind {
  const char* name;
  const ModeFileKind& kind;
  bool (*isWhole)(std::size_t size);
};

void PrintTo(const Kind& kind, std::ostream* out) {
  *out << kind.name;
}

const Kind kKinds[] = {
    {"Tmf", kTmfFile, [](std::size_t size) { return size > 12 && (size - 12) % 56 == 0; }},
    {"Lmf", kLmfFile, [](std::size_t size) { return size == 960; }},
};

class HostileModeFile : public testing::TestWithParam<Kind> {
 protected:
  std::string Good(std::int32_t steps = 4) const {
    std::string data;
    GetParam().kind.write(RandomProgram(7).AscendingMode(steps), data);
    return data;
  }

  // Reads the bytes and holds what comes of it against what may.
  void ExpectModeOrMessage(const std::string& data) {
    Mode mode;
    const bool read = GetParam().kind.read(data, mode);
    ASSERT_EQ(read, GetParam().isWhole(data.size())) << data.size() << " bytes";
    const std::vector<std::string> told = log_.Take();
    if (!read) {
      ASSERT_THAT(told, ElementsAre("Invalid file format"));
      for (const Channel& channel : mode.channels) ASSERT_THAT(channel, IsEmpty());
      return;
    }
    ASSERT_THAT(told, IsEmpty());
    for (const Channel& channel : mode.channels) {
      ASSERT_GE(channel.size(), 1U);
      ASSERT_LE(channel.size(), static_cast<std::size_t>(kMaxModeSteps));
      std::int64_t before = 0;
      for (const Step& step : channel) {
        Step normal = step;
        Normalize(normal);
        ASSERT_EQ(step, normal);
        ASSERT_EQ(step.value, static_cast<float>(static_cast<int>(step.value)));
        ASSERT_GE(MinuteOfDay(step), before);
        before = MinuteOfDay(step);
      }
    }
  }

  StatusLines log_;
};

TEST_P(HostileModeFile, CutAtEveryByte) {
  const std::string good = Good();
  for (std::size_t size = 0; size <= good.size(); ++size) ExpectModeOrMessage(good.substr(0, size));
}

TEST_P(HostileModeFile, LongerByAnyNumberOfBytes) {
  std::string data = Good();
  for (int i = 0; i < 200; ++i) ExpectModeOrMessage(data += '\xFF');
}

TEST_P(HostileModeFile, EveryBitFlipped) {
  const std::string good = Good();
  for (std::size_t at = 0; at < good.size(); ++at) {
    for (unsigned bit = 0; bit < 8; ++bit) {
      std::string data = good;
      data[at] = static_cast<char>(static_cast<unsigned char>(data[at]) ^ 1U << bit);
      ExpectModeOrMessage(data);
    }
  }
}

TEST_P(HostileModeFile, EveryByteOfEveryValue) {
  for (int byte = 0; byte < 256; ++byte)
    ExpectModeOrMessage(std::string(Good().size(), static_cast<char>(byte)));
}

TEST_P(HostileModeFile, BytesAtRandom) {
  for (std::uint32_t seed = 0; seed < 200; ++seed) {
    RandomProgram random(seed);
    std::string data(Good().size(), '\0');
    for (char& byte : data) byte = static_cast<char>(random.Below(256));
    ExpectModeOrMessage(data);
  }
}

// Of what is none, nothing is looked at but its length.
TEST_P(HostileModeFile, TextWithoutAnEnd) {
  for (const std::size_t size : {std::size_t{961}, std::size_t{5'000'000}})
    ExpectModeOrMessage(std::string(size, '<'));
}

TEST_P(HostileModeFile, AGigabyteIsToldByItsSize) {
  const TemporaryFolder folder;
  const std::filesystem::path path = FileWith(folder / "Day.tmf", Good());
  std::filesystem::resize_file(path, 12 + 56 * 19'173'961ULL);
  Mode mode;
  EXPECT_FALSE(LoadModeFile(GetParam().kind, path, mode));
  EXPECT_THAT(log_.Take(), ElementsAre("Loading " + Utf8FromPath(path), "Error opening file"));
}

TEST_P(HostileModeFile, WhatIsNoFileCannotBeOpened) {
  const TemporaryFolder folder;
  for (const std::filesystem::path& path : {folder.path(), folder.path() / "none"}) {
    Mode mode;
    EXPECT_FALSE(LoadModeFile(GetParam().kind, path, mode));
    EXPECT_THAT(log_.Take(), ElementsAre("Loading " + Utf8FromPath(path), "Error opening file"));
  }
}

TEST_P(HostileModeFile, AModeIsNamedAfterItsFile) {
  const TemporaryFolder folder;
  const std::filesystem::path path = FileWith(folder / PathFromUtf8("Příliš.dusk of many words.TMF"), Good());
  Mode mode;
  EXPECT_TRUE(LoadModeFile(GetParam().kind, path, mode));
  EXPECT_EQ(mode.name, "Příliš.dusk of many words");
  EXPECT_EQ(mode.description, "");
}

INSTANTIATE_TEST_SUITE_P(Kinds, HostileModeFile, testing::ValuesIn(kKinds),
                         [](const auto& kind) { return std::string(kind.param.name); });

// Whatever the number of rows says, no more than 48 are taken.
TEST(HostileTmf, OfAMillionRowsGives48Steps) {
  StatusLines log;
  Mode mode;
  ASSERT_TRUE(kTmfFile.read(std::string(12 + 56 * 1'000'000, '\x64'), mode));
  EXPECT_THAT(log.Take(), ElementsAre("TMF max number of steps exceeded. Limiting to 48"));
  for (const Channel& channel : mode.channels) EXPECT_EQ(channel.size(), 48U);
}

}  // namespace
