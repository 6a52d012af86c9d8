// Programs and mode files of other tools into one another.

#include <filesystem>
#include <string>

#include "common/files.h"
#include "program/builtin_modes.h"
#include "program/lmf.h"
#include "program/raw.h"
#include "program/tmf.h"
#include "tests/cli/command_fixture.h"

namespace {

using TCBase::Program::Mode;
using TCBase::Program::ModeListView;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

class ConvertTest : public CommandTest {
 protected:
  void SetUp() override {
    CommandTest::SetUp();
    ModeListView tank = GivenRamps({"One", "Two"});
    tank.modes[1].channels[1] = {{7, 30, 25.0F, true}, {9, 0, 5.0F, false}};
    tank.channelInfos[0].name = "Moon";
    GivenProgram("tank.xml", tank);
    GivenFile("dawn.tmf", BytesOf(&TCBase::Program::WriteTmf, tank.modes[0]));
    GivenFile("dusk.lmf", BytesOf(&TCBase::Program::WriteLmf, tank.modes[1]));
  }

  static std::string BytesOf(bool (*write)(const Mode&, std::string&), const Mode& mode) {
    std::string bytes;
    write(mode, bytes);
    return bytes;
  }

  // The refusal: the reason is told, no data is printed and there is no file.
  void ExpectRefused(Words words, const std::string& reason, int status, const std::string& out) {
    words.insert(words.begin(), "convert");
    const Outcome outcome = Run(words);
    EXPECT_EQ(outcome.status, status) << reason;
    EXPECT_THAT(outcome.err, HasSubstr(reason));
    EXPECT_THAT(outcome.out, IsEmpty());
    EXPECT_FALSE(Exists(out)) << reason;
  }
};

TEST_F(ConvertTest, SeveralModeFilesBecomeOneProgram) {
  const Outcome outcome = Run({"convert", "@dawn.tmf", "@dusk.lmf", "@all.xml"});
  EXPECT_EQ(outcome.status, kSuccess);
  EXPECT_EQ(outcome.err, "Loading dawn.tmf\nLoading dusk.lmf\nSaved program all.xml\n");
  EXPECT_THAT(outcome.out, IsEmpty());
  const ModeListView all = Load("all.xml");
  ASSERT_THAT(all.modes, SizeIs(2));
  EXPECT_EQ(all.modes[0].name, "dawn");
  EXPECT_EQ(all.modes[0].description, "");
  EXPECT_EQ(StepsOf(all.modes[0].channels[3]), "08:00 0, 20:00 100");
  EXPECT_EQ(all.modes[1].name, "dusk");
  EXPECT_EQ(all.channelInfos[0].color, TCBase::Program::NewProgram().channelInfos[0].color);
}

TEST_F(ConvertTest, ProgramsAddTheirModesAndTheFirstItsChannels) {
  ModeListView other = GivenRamps({"Three"});
  other.channelInfos[0].name = "Sun";
  GivenProgram("other.xml", other);
  EXPECT_EQ(Run({"convert", "@dawn.tmf", "@tank.xml", "@other.xml", "@all.xml"}).status, kSuccess);
  const ModeListView all = Load("all.xml");
  ASSERT_THAT(all.modes, SizeIs(4));
  EXPECT_EQ(all.modes[1].name, "One");
  EXPECT_EQ(all.modes[3].name, "Three");
  EXPECT_EQ(all.channelInfos[0].name, "Moon");
}

TEST_F(ConvertTest, EachKindIsWhatItsWriterMakes) {
  const Mode mode = Load("tank.xml").modes[1];
  for (const auto& [name, write] :
       {std::pair{"two.tmf", &TCBase::Program::WriteTmf}, std::pair{"two.lmf", &TCBase::Program::WriteLmf},
        std::pair{"two.raw", &TCBase::Program::WriteRaw}}) {
    const Outcome outcome = Run({"convert", "@tank.xml", std::string("@") + name, "--mode", "2"});
    EXPECT_EQ(outcome.status, kSuccess);
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(ContentOf(name), BytesOf(write, mode)) << name;
  }
}

TEST_F(ConvertTest, TheEndOfANameTellsTheKindInAnyLetters) {
  GivenFile("DAWN.TMF", ContentOf("dawn.tmf"));
  EXPECT_EQ(Run({"convert", "@DAWN.TMF", "@DAWN.Lmf"}).status, kSuccess);
  EXPECT_THAT(ContentOf("DAWN.Lmf"), SizeIs(960));
  EXPECT_EQ(Run({"convert", "@DAWN.Lmf", "@Dawn.v2.XML"}).status, kSuccess);
  EXPECT_EQ(Load("Dawn.v2.XML").modes.front().name, "DAWN");
}

TEST_F(ConvertTest, AModeIsCountedThroughAllFiles) {
  EXPECT_EQ(Run({"convert", "--mode", "3", "@dawn.tmf", "@tank.xml", "@third.xml"}).status, kSuccess);
  const ModeListView third = Load("third.xml");
  ASSERT_THAT(third.modes, SizeIs(1));
  EXPECT_EQ(third.modes.front().name, "Two");
  EXPECT_EQ(third.channelInfos[0].name, "Moon");
}

TEST_F(ConvertTest, ASingleModeNeedsNoNumber) {
  EXPECT_EQ(Run({"convert", "@dawn.tmf", "@dawn.raw"}).status, kSuccess);
  EXPECT_THAT(ContentOf("dawn.raw"), SizeIs(432000));
}

TEST_F(ConvertTest, WhichModeMustBeTold) {
  ExpectRefused({"@tank.xml", "@a.tmf"},
                "tank.xml holds 2 modes, and such a file takes one: choose it with --mode\n", kWrongUsage,
                "a.tmf");
  ExpectRefused({"@tank.xml", "@dawn.tmf", "@a.raw"}, "the files hold 3 modes, and", kWrongUsage, "a.raw");
  ExpectRefused({"@tank.xml", "@a.tmf", "--mode", "3"}, "there is no mode 3, tank.xml holds 2\n", kWrongUsage,
                "a.tmf");
  ExpectRefused({"@tank.xml", "@dawn.tmf", "@a.xml", "--mode", "4"}, "there is no mode 4, the files hold 3\n",
                kWrongUsage, "a.xml");
  for (const char* const number : {"0", "-1", "one", "1.5", "4294967297", ""})
    ExpectRefused({"@tank.xml", "@a.tmf", "--mode", number}, "--mode", kWrongUsage, "a.tmf");
}

TEST_F(ConvertTest, FilesOfOtherKindsAreRefusedBeforeAnyIsRead) {
  GivenFile("day.raw", std::string(432000, '\0'));
  ExpectRefused({"@day.raw", "@a.xml"}, "day.raw: RAW files can be written only, not read\n", kWrongUsage,
                "a.xml");
  ExpectRefused({"@dawn.tmf", "@day.RAW", "@a.xml"}, "RAW files can be written only", kWrongUsage, "a.xml");
  ExpectRefused({"@notes.txt", "@a.xml"},
                "a file name that ends in .xml, .tmf or .lmf is expected, not notes.txt\n", kWrongUsage,
                "a.xml");
  ExpectRefused({"@dawn.tmf", "@a.png"},
                "a file name that ends in .xml, .tmf, .lmf or .raw is expected, not a.png\n", kWrongUsage,
                "a.png");
  ExpectRefused({"@dawn.tmf", "@tmf"}, "is expected, not tmf\n", kWrongUsage, "tmf");
  ExpectRefused({"@dawn.tmf", "@.tmf"}, "is expected, not .tmf\n", kWrongUsage, ".tmf");
  ExpectRefused({"@missing.tmf"}, "At least 2 required", kWrongUsage, "missing.tmf");
}

TEST_F(ConvertTest, AFileThatIsReadIsNotWritten) {
  const std::string before = ContentOf("dawn.tmf");
  std::filesystem::create_hard_link(PathFromUtf8(PathOf("dawn.tmf")), PathFromUtf8(PathOf("linked.tmf")));
  for (const char* const out : {"@dawn.tmf", "@./dawn.tmf", "@linked.tmf"}) {
    const Outcome outcome = Run({"convert", "@dusk.lmf", "@dawn.tmf", out, "--mode", "1"});
    EXPECT_EQ(outcome.status, kWrongUsage);
    EXPECT_EQ(outcome.err, "lumarinectl: dawn.tmf is to be read, give the file to write another name\n");
    EXPECT_EQ(ContentOf("dawn.tmf"), before);
  }
}

TEST_F(ConvertTest, OneBadFileAndNothingIsWritten) {
  GivenFile("bad.tmf", "x");
  GivenFile("bad.lmf", std::string(961, '\0'));
  GivenFile("bad.xml", "<modelist/>");
  const struct {
    const char* file;
    const char* said;
  } rows[] = {
      {"@bad.tmf", "Loading bad.tmf\nInvalid file format\nlumarinectl: bad.tmf cannot be read, or is no TMF"},
      {"@bad.lmf", "Loading bad.lmf\nInvalid file format\nlumarinectl: bad.lmf cannot be read, or is no LMF"},
      {"@bad.xml", "bad.xml cannot be read, or is no light program\n"},
      {"@none.tmf", "Loading none.tmf\nError opening file\nlumarinectl: none.tmf cannot be read, or is"},
  };
  for (const auto& row : rows) {
    ExpectRefused({"@dawn.tmf", row.file, "@a.xml"}, row.said, kFileFailed, "a.xml");
    GivenFile("old.xml", "as it was");
    EXPECT_EQ(Run({"convert", row.file, "@old.xml"}).status, kFileFailed);
    EXPECT_EQ(ContentOf("old.xml"), "as it was");
  }
}

TEST_F(ConvertTest, AGigabyteIsNotRead) {
  for (const char* const name : {"big.tmf", "big.lmf", "big.xml"}) {
    GivenFile(name, "");
    std::filesystem::resize_file(PathFromUtf8(PathOf(name)), 12 + 56 * 19'173'961ULL);
    ExpectRefused({std::string("@") + name, "@a.xml"}, std::string(name) + " cannot be read, or is no ",
                  kFileFailed, "a.xml");
    std::filesystem::remove(PathFromUtf8(PathOf(name)));
  }
}

TEST_F(ConvertTest, AFileThatCannotBeWrittenIsItsOwnFailure) {
  for (const char* const out : {"@nowhere/a.tmf", "@nowhere/a.xml"}) {
    const Outcome outcome = Run({"convert", "@dawn.tmf", out});
    EXPECT_EQ(outcome.status, kFileFailed);
    EXPECT_THAT(outcome.err, HasSubstr("Error creating file"));
  }
}

TEST_F(ConvertTest, RowsThatNobodyReadsAreTold) {
  ModeListView tank = GivenRamps({"Full", "Empty"});
  tank.modes[0] = GivenModeOfRows("Full", 49);
  for (auto& channel : tank.modes[1].channels) channel.clear();
  GivenProgram("full.xml", tank);
  Outcome outcome = Run({"convert", "@full.xml", "@full.tmf", "--mode", "1"});
  EXPECT_EQ(outcome.status, kSuccess);
  EXPECT_THAT(outcome.err, HasSubstr("full.tmf has 49 rows, of which the first 48 are read"));
  EXPECT_THAT(ContentOf("full.tmf"), SizeIs(12 + 56 * 49));
  outcome = Run({"convert", "@full.xml", "@empty.tmf", "--mode", "2"});
  EXPECT_EQ(outcome.status, kSuccess);
  EXPECT_EQ(outcome.err, "empty.tmf has no row and cannot be read back.\n");
  EXPECT_THAT(ContentOf("empty.tmf"), SizeIs(12));

  outcome = Run({"convert", "@full.tmf", "@back.xml"});
  EXPECT_EQ(outcome.status, kSuccess);
  EXPECT_THAT(outcome.err, HasSubstr("TMF max number of steps exceeded. Limiting to 48\n"));
}

}  // namespace
