// The program's own file. What a file looks like stands in golden/: each folder holds the file that a
// document built here is saved as, or an input and the file that it is saved as once loaded. With
// LUMARINE_REWRITE_GOLDEN in the environment the saved files are written anew.

#include "program/program_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "OvkLib/src/ovk_xml.h"
#include "common/files.h"
#include "common/xml_file.h"
#include "program/builtin_modes.h"
#include "tests/program/program_fixture.h"
#include "tests/support/files.h"
#include "tests/support/temporary_folder.h"

namespace program_test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::filesystem::path kGolden = std::filesystem::path(LUMARINE_SOURCE_DIR) / "tests/program/golden";

class ProgramFile : public testing::Test {
 protected:
  // The document is saved as the golden file of that folder.
  void ExpectSavedAs(const ModeListView& document, const std::string& name) {
    const std::filesystem::path golden = kGolden / name / "saved.xml";
    const std::filesystem::path saved = folder / "saved.xml";
    ASSERT_TRUE(SaveProgram(document, saved));
    if (std::getenv("LUMARINE_REWRITE_GOLDEN") != nullptr) {
      std::filesystem::create_directories(golden.parent_path());
      FileWith(golden, BytesOf(saved));
    }
    EXPECT_EQ(BytesOf(saved), BytesOf(golden));
  }

  ModeListView SavedAndLoaded(const ModeListView& document) {
    ModeListView loaded = NewProgram();
    EXPECT_TRUE(SaveProgram(document, folder / "program.xml"));
    EXPECT_TRUE(LoadProgram(folder / "program.xml", loaded));
    return loaded;
  }

  bool Load(std::string_view xml, ModeListView& document) {
    return LoadProgram(FileWith(folder / "given.xml", xml), document);
  }

  TemporaryFolder folder;
  StatusLines lines;
};

// Documents and their files.

TEST_F(ProgramFile, OfANewProgram) {
  ExpectSavedAs(NewProgram(), "new_program");
}

TEST_F(ProgramFile, OfASunsetWithOneJump) {
  ModeListView document = GivenDocument(GivenMode({"08:00 0, 20:30 75 J"}));
  document.modes[0].name = "Sunset";
  document.modes[0].description = "Evening";
  document.channelInfos[0].name = "Red";
  document.channelInfos[0].color = 0xFFFF0000;
  ExpectSavedAs(document, "sunset_with_one_jump");
}

TEST_F(ProgramFile, HasWholePercents) {
  const ModeListView document = GivenDocument(GivenMode({"08:00 55.9, 09:00 0.99, 10:00 100"}));
  ExpectSavedAs(document, "value_55_9_is_saved_as_55");
  EXPECT_EQ(Told(SavedAndLoaded(document).modes[0].channels[0]), "08:00 55, 09:00 0, 10:00 100");
}

TEST_F(ProgramFile, HasAnEmptyModeNameThatReadsBack) {
  ModeListView document = GivenDocument(GivenMode({}));
  document.modes.emplace_back().name = "Second";
  ExpectSavedAs(document, "mode_without_a_name");
  const ModeListView loaded = SavedAndLoaded(document);
  ASSERT_EQ(loaded.modes.size(), 2U);
  EXPECT_EQ(loaded.modes[0].name, "");
}

TEST_F(ProgramFile, HasAnAttributeForAJumpAndNoneForAFade) {
  const ModeListView document = GivenDocument(GivenMode({"08:00 1 J, 09:00 2"}));
  ExpectSavedAs(document, "jump_and_fade");
  EXPECT_EQ(Told(SavedAndLoaded(document).modes[0].channels[0]), "08:00 1 J, 09:00 2");
}

TEST_F(ProgramFile, KeepsAnApostropheOfAChannelName) {
  ModeListView document = GivenDocument({});
  document.channelInfos[3].name = "Papa's lamp";
  document.channelInfos[3].description = "<left> & \"right\"";
  ExpectSavedAs(document, "apostrophe_in_a_channel_name");
  const ModeListView loaded = SavedAndLoaded(document);
  EXPECT_EQ(loaded.channelInfos[3].name, "Papa's lamp");
  EXPECT_EQ(loaded.channelInfos[3].description, "<left> & \"right\"");
}

TEST_F(ProgramFile, KeepsNothingOfTheViewAndTheCurrentMode) {
  ModeListView document = NewProgram();
  document.viewStart = 3600;
  document.viewEnd = 10800;
  document.currentMode = 1;
  const ModeListView loaded = SavedAndLoaded(document);
  EXPECT_EQ(loaded, document);
  EXPECT_EQ(loaded.viewStart, 0);
  EXPECT_EQ(loaded.viewEnd, 86400);
  EXPECT_EQ(loaded.currentMode, 0);
}

TEST_F(ProgramFile, KeepsNamesInAnyScript) {
  ModeListView document = NewProgram();
  document.modes[0].name = "\xE6\xB5\xB7 \xD0\xBC\xD0\xBE\xD1\x80\xD0\xB5";
  EXPECT_EQ(SavedAndLoaded(document), document);
}

TEST_F(ProgramFile, GivesLoadedStepsSerialsOfTheirOwn) {
  const std::uint32_t before = NextStepId();
  const ModeListView loaded = SavedAndLoaded(NewProgram());
  EXPECT_GT(loaded.modes[0].channels[0][0].id, before);
  EXPECT_EQ(loaded.modes[0].channels[0][1].id, loaded.modes[0].channels[0][0].id + 1);
}

// Files as others write them.

std::vector<std::string> Inputs() {
  std::vector<std::string> names;
  std::error_code missing;
  for (const auto& entry : std::filesystem::directory_iterator(kGolden, missing)) {
    if (std::filesystem::exists(entry.path() / "input.xml"))
      names.push_back(entry.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

class LoadedFile : public ProgramFile, public testing::WithParamInterface<std::string> {};

TEST_P(LoadedFile, IsSavedAs) {
  ModeListView document = NewProgram();
  ASSERT_TRUE(LoadProgram(kGolden / GetParam() / "input.xml", document));
  EXPECT_THAT(lines.Take(), IsEmpty());
  ExpectSavedAs(document, GetParam());
  // And what was saved is saved as it is.
  ModeListView again = NewProgram();
  ASSERT_TRUE(LoadProgram(folder / "saved.xml", again));
  ExpectSavedAs(again, GetParam());
}

INSTANTIATE_TEST_SUITE_P(Golden, LoadedFile, testing::ValuesIn(Inputs()),
                         [](const auto& test) { return test.param; });

TEST_F(ProgramFile, LoadsStepsOutOfOrderAndTheCurveReadsThemSo) {
  ModeListView document = NewProgram();
  ASSERT_TRUE(LoadProgram(kGolden / "steps_out_of_order_stay_so" / "input.xml", document));
  const Channel& channel = document.modes[0].channels[0];
  EXPECT_EQ(Told(channel), "12:00 50, 08:00 10 J, 12:00 60");
  // The first step at or after 10:00 is the first of all, so that the last one opens the stretch.
  EXPECT_EQ(ChannelValueAt(channel, std::int64_t{10} * 3600), (50.0F - 60.0F) / 0.0F * 79200.0F + 60.0F);
}

TEST_F(ProgramFile, LoadsHour30WhichIsNotMerged) {
  ModeListView document = NewProgram();
  ASSERT_TRUE(LoadProgram(kGolden / "hour_30_stays_until_edited" / "input.xml", document));
  EXPECT_EQ(document.modes[0].channels[0][1].hour, 30);
  EXPECT_EQ(document.modes[0].channels[0][1].value, 400.0F);
  EXPECT_EQ(CountModeSteps(document.modes[0]), 1);
}

TEST_F(ProgramFile, WithoutAChannelTableKeepsThatOfThePreparedDocument) {
  ModeListView document = NewProgram();
  document.channelInfos[2].name = "Prepared";
  ASSERT_TRUE(LoadProgram(kGolden / "only_jump_1_is_a_jump" / "input.xml", document));
  EXPECT_EQ(document.channelInfos[2].name, "Prepared");
}

TEST_F(ProgramFile, WithASixthChannelInfoIgnoresIt) {
  ModeListView document = NewProgram();
  ASSERT_TRUE(LoadProgram(kGolden / "sixth_channel_info_has_no_slot" / "input.xml", document));
  EXPECT_EQ(document.channelInfos[0].name, "1");
  EXPECT_EQ(document.channelInfos[4].name, "5");
}

TEST_F(ProgramFile, ColourNumbersAreNotMasked) {
  ModeListView document = NewProgram();
  ASSERT_TRUE(LoadProgram(kGolden / "colour_above_255_spills" / "input.xml", document));
  EXPECT_EQ(document.channelInfos[0].color, 0xFF000102U);
  EXPECT_EQ(document.channelInfos[1].color, 0xFF010100U);
  EXPECT_EQ(document.channelInfos[2].color, 0xFF000102U);  // into the alpha, which is full already
  EXPECT_EQ(document.channelInfos[3].color, 0xFFFFFFFFU);
  EXPECT_EQ(document.channelInfos[4].color, 0xFF000000U);
}

// Failures.

struct BadFile {
  const char* name;
  const char* text;
  const char* reason;
};

class LoadingABadFile : public ProgramFile, public testing::WithParamInterface<BadFile> {};

TEST_P(LoadingABadFile, FailsAndSaysSo) {
  ModeListView document = NewProgram();
  EXPECT_FALSE(Load(GetParam().text, document));
  EXPECT_THAT(lines.Take(),
              ElementsAre("Error loading program " + Utf8FromPath(folder / "given.xml"), GetParam().reason));
}

constexpr char kNoXml[] = "The file is not well-formed XML";
constexpr char kNoMode[] = "The file holds no mode";

INSTANTIATE_TEST_SUITE_P(
    Files, LoadingABadFile,
    testing::Values(BadFile{"Empty", "", kNoXml}, BadFile{"NoXml", "08:00 0\r\n", kNoXml},
                    BadFile{"CutShort", "<modelist><mode name='x'>", kNoXml},
                    BadFile{"WrongEndTag", "<modelist></mode>", kNoXml},
                    BadFile{"NoMode", "<modelist/>", kNoMode},
                    BadFile{"ModesOfFourChannelsOnly",
                            "<modelist><mode><channel/><channel/><channel/><channel/></mode></modelist>",
                            kNoMode},
                    BadFile{"ChannelTableOnly", "<modelist><channel_info/></modelist>", kNoMode}),
    [](const auto& test) { return test.param.name; });

TEST_F(ProgramFile, ThatIsNotThereFailsAndLeavesTheDocument) {
  ModeListView document = NewProgram();
  EXPECT_FALSE(LoadProgram(folder / "none.xml", document));
  EXPECT_EQ(document, NewProgram());
  EXPECT_THAT(lines.Take(), ElementsAre("Error loading program " + Utf8FromPath(folder / "none.xml"),
                                        "The file cannot be read: No such file or directory"));
  EXPECT_FALSE(LoadProgram(folder.path(), document));
  EXPECT_THAT(lines.Take(), ElementsAre("Error loading program " + Utf8FromPath(folder.path()),
                                        "The file cannot be read: Is a directory"));
}

TEST_F(ProgramFile, ThatIsTooLargeOrWouldBeOneInMemoryFailsAndSaysWhatToDo) {
  const std::filesystem::path path = folder / "large.xml";
  const auto refusal =
      ElementsAre("Error loading program " + Utf8FromPath(path),
                  "The file is too large for a light program. Choose another one, or take modes out of it.");
  ModeListView document = NewProgram();
  FileWith(path, "<modelist>");
  std::filesystem::resize_file(path, ovk::xml::kMostXmlBytes + 1);
  EXPECT_FALSE(LoadProgram(path, document));
  EXPECT_THAT(lines.Take(), refusal);

  std::string many = "<modelist>";
  while (many.size() < ovk::xml::kMostXmlBytes / 2) many += "<a/>";
  FileWith(path, many + "</modelist>");
  EXPECT_FALSE(LoadProgram(path, document));
  EXPECT_THAT(lines.Take(), refusal);
  EXPECT_EQ(document, NewProgram());
}

TEST_F(ProgramFile, SavedSaysSo) {
  EXPECT_TRUE(SaveProgram(NewProgram(), folder / "p.xml"));
  EXPECT_THAT(lines.Take(), ElementsAre("Saved program " + Utf8FromPath(folder / "p.xml")));
}

TEST_F(ProgramFile, ThatCannotBeWrittenFailsWithTheReasonFirst) {
  const std::filesystem::path path = folder / "no such folder" / "p.xml";
  EXPECT_FALSE(SaveProgram(NewProgram(), path));
  EXPECT_THAT(lines.Take(),
              ElementsAre(testing::StartsWith("Error creating file " + Utf8FromPath(path) + ", error: "),
                          "Error saving program " + Utf8FromPath(path)));
}

// The pieces.

TEST(ProgramFilePieces, KnowTheirTagAndLeaveTheRestAlone) {
  const ovk::xml::element other("other");
  Step step{8, 5, 40, true, 7};
  EXPECT_FALSE(ReadStep(other, step));
  EXPECT_EQ(step, (Step{8, 5, 40, true}));
  Mode mode = GivenMode({"08:00 1"});
  EXPECT_FALSE(ReadMode(other, mode));
  EXPECT_EQ(Told(mode.channels[0]), "08:00 1");
  ChannelInfo info{"Red", "", 0xFFFF0000};
  EXPECT_FALSE(ReadChannelInfo(other, info));
  EXPECT_EQ(info.name, "Red");
}

TEST(ProgramFilePieces, ReadWhatTheyWrote) {
  ovk::xml::element stepElement("step");
  WriteStep({20, 30, 75.5F, true}, stepElement);
  Step step;
  EXPECT_TRUE(ReadStep(stepElement, step));
  EXPECT_EQ(step, (Step{20, 30, 75, true}));

  ovk::xml::element infoElement("channel_info");
  WriteChannelInfo({"Red", "left", 0xFF123456}, infoElement);
  ChannelInfo info;
  EXPECT_TRUE(ReadChannelInfo(infoElement, info));
  EXPECT_EQ(info.name, "Red");
  EXPECT_EQ(info.description, "left");
  EXPECT_EQ(info.color, 0xFF123456U);
}

TEST(ProgramFilePieces, ReadAnEmptyStepAsMidnightAtNothing) {
  Step step{8, 5, 40, true};
  EXPECT_TRUE(ReadStep(ovk::xml::element("step"), step));
  EXPECT_EQ(step, (Step{0, 0, 0, false}));
}

TEST(ProgramFilePieces, ReadingAModeReplacesItsSteps) {
  ovk::xml::element element("mode");
  for (int c = 0; c < kChannelCount; ++c) element.append_child("channel");
  Mode mode = GivenMode({"08:00 1"});
  mode.name = "Before";
  EXPECT_TRUE(ReadMode(element, mode));
  EXPECT_EQ(mode.name, "");
  EXPECT_TRUE(mode.channels[0].empty());
}

}  // namespace
}  // namespace program_test
