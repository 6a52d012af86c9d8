// render: what the user may ask for, and what the drawing program is told. What it draws is tested beside it.

#include "tests/cli/command_fixture.h"
#include "tests/support/fake_helper.h"

namespace {

using platform::HelperResult;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class RenderTest : public CommandTest {
 protected:
  void SetUp() override {
    CommandTest::SetUp();
    GivenBuiltIn("tank.xml");
  }
};

TEST_F(RenderTest, WithoutOptionsTheFirstModeIsDrawnInTheUsualSize) {
  const Outcome outcome = Run({"render", "@tank.xml", "@tank.png"});
  EXPECT_EQ(outcome.status, kSuccess) << outcome.err;
  EXPECT_THAT(fake_helper::Starts(),
              ElementsAre(ElementsAre("lumarine-render", PathOf("tank.xml"), "1", PathOf("tank.png"), "png",
                                      "900", "600", "1", "-", "-", "", "1")));
}

TEST_F(RenderTest, EveryOptionReachesTheDrawing) {
  const Outcome outcome =
      Run({"render", "@tank.xml", "@day.svg", "--mode", "2", "--width", "1200", "--height", "300", "--scale",
           "2.5", "--time", "12:05", "--strip", "--compare", "@tank.xml", "--compare-mode", "1"});
  EXPECT_EQ(outcome.status, kSuccess) << outcome.err;
  EXPECT_THAT(fake_helper::Starts(),
              ElementsAre(ElementsAre("lumarine-render", PathOf("tank.xml"), "2", PathOf("day.svg"), "svg",
                                      "1200", "300", "2.5", "725", "strip", PathOf("tank.xml"), "1")));
}

TEST_F(RenderTest, TheEndOfTheNameTellsTheFormatInAnyCase) {
  const std::pair<const char*, const char*> rows[] = {
      {"@a.png", "png"}, {"@a.svg", "svg"}, {"@a.pdf", "pdf"}, {"@A.PNG", "png"}, {"@a.xml.Pdf", "pdf"}};
  for (const auto& [file, format] : rows) {
    fake_helper::Reset();
    EXPECT_EQ(Run({"render", "@tank.xml", file}).status, kSuccess) << file;
    ASSERT_EQ(fake_helper::Starts().size(), 1U);
    EXPECT_EQ(fake_helper::Starts()[0][4], format);
  }
}

TEST_F(RenderTest, WhatCannotBeDrawnIsRefusedBeforeAnythingStarts) {
  struct Row {
    Words words;
    int status;
    const char* said;
  };
  const Row rows[] = {
      {{"render"}, kWrongUsage, "FILE is required"},
      {{"render", "@tank.xml"}, kWrongUsage, "OUT is required"},
      {{"render", "@tank.xml", "@tank.jpg"}, kWrongUsage, "ends in .png, .svg or .pdf is expected"},
      {{"render", "@tank.xml", ".png"}, kWrongUsage, "ends in .png, .svg or .pdf is expected"},
      {{"render", "@tank.xml", "png"}, kWrongUsage, "ends in .png, .svg or .pdf is expected"},
      {{"render", "@tank.xml", "@a.png", "--mode", "3"},
       kWrongUsage,
       "there is no mode 3 in tank.xml, it holds 2"},
      {{"render", "@tank.xml", "@a.png", "--mode", "0"}, kWrongUsage, "--mode"},
      {{"render", "@tank.xml", "@a.png", "--compare", "@none.xml"},
       kFileFailed,
       "none.xml cannot be read, or is no light program"},
      {{"render", "@tank.xml", "@a.png", "--compare", "@tank.xml", "--compare-mode", "3"},
       kWrongUsage,
       "there is no mode 3 in tank.xml"},
      {{"render", "@tank.xml", "@a.png", "--compare-mode", "1"}, kWrongUsage, "--compare"},
      {{"render", "@none.xml", "@a.png"}, kFileFailed, "cannot be read, or is no light program"},
      {{"render", "@tank.xml", "@a.png", "--width", "99"},
       kWrongUsage,
       "100 to 10000 pixels are expected, not 99"},
      {{"render", "@tank.xml", "@a.png", "--width", "wide"}, kWrongUsage, "--width"},
      {{"render", "@tank.xml", "@a.png", "--height", "10001"},
       kWrongUsage,
       "100 to 10000 pixels are expected"},
      {{"render", "@tank.xml", "@a.png", "--height", "-600"},
       kWrongUsage,
       "100 to 10000 pixels are expected"},
      {{"render", "@tank.xml", "@a.png", "--scale", "0.2"},
       kWrongUsage,
       "a number from 0.25 to 8 is expected"},
      {{"render", "@tank.xml", "@a.png", "--scale", "8.1"},
       kWrongUsage,
       "a number from 0.25 to 8 is expected"},
      {{"render", "@tank.xml", "@a.png", "--scale", "nan"},
       kWrongUsage,
       "a number from 0.25 to 8 is expected"},
      {{"render", "@tank.xml", "@a.png", "--scale", "2x"},
       kWrongUsage,
       "a number from 0.25 to 8 is expected"},
      {{"render", "@tank.xml", "@a.png", "--width", "9000", "--height", "8000"},
       kWrongUsage,
       "64 million pixels"},
      {{"render", "@tank.xml", "@a.png", "--width", "4000", "--height", "4000", "--scale", "3"},
       kWrongUsage,
       "64 million pixels"},
      {{"render", "@tank.xml", "@a.png", "--time", "24:00"},
       kWrongUsage,
       "a time from 00:00 to 23:59 is expected"},
      {{"render", "@tank.xml", "@a.png", "--time", "12:60"},
       kWrongUsage,
       "a time from 00:00 to 23:59 is expected"},
      {{"render", "@tank.xml", "@a.png", "--time", "noon!"},
       kWrongUsage,
       "a time from 00:00 to 23:59 is expected"},
      {{"render", "@tank.xml", "@a.png", "--time", "9:30"},
       kWrongUsage,
       "a time from 00:00 to 23:59 is expected"},
  };
  for (const Row& row : rows) {
    const Outcome outcome = Run(row.words);
    EXPECT_EQ(outcome.status, row.status) << testing::PrintToString(row.words);
    EXPECT_THAT(outcome.err, HasSubstr(row.said)) << testing::PrintToString(row.words);
    EXPECT_THAT(outcome.out, IsEmpty());
  }
  EXPECT_THAT(fake_helper::Starts(), IsEmpty());
}

TEST_F(RenderTest, ALargeVectorPictureIsNoQuestionOfPixels) {
  EXPECT_EQ(Run({"render", "@tank.xml", "@a.svg", "--width", "10000", "--height", "10000"}).status, kSuccess);
  EXPECT_EQ(Run({"render", "@tank.xml", "@a.png", "--width", "8000", "--height", "8000"}).status, kSuccess);
}

TEST_F(RenderTest, WhatTheDrawingCameToIsWhatTheCommandCameTo) {
  struct Row {
    HelperResult result;
    int status;
    const char* said;  // by the command itself; the helper speaks for itself
  };
  const Row rows[] = {
      {{HelperResult::Ended, 0}, kSuccess, ""},
      {{HelperResult::Ended, kFileFailed}, kFileFailed, ""},
      {{HelperResult::Stopped, 0}, kOperationFailed, "lumarine-render was stopped"},
      {{HelperResult::Missing, 0}, kOperationFailed, "cannot be started"},
      {{HelperResult::Unsupported, 0}, kWrongUsage, "pictures are made by lumarinectl on Linux only"},
  };
  for (const Row& row : rows) {
    fake_helper::EndWith(row.result);
    const Outcome outcome = Run({"render", "@tank.xml", "@a.png"});
    EXPECT_EQ(outcome.status, row.status);
    EXPECT_THAT(outcome.err, HasSubstr(row.said));
    EXPECT_EQ(outcome.err.empty(), std::string_view(row.said).empty()) << outcome.err;
  }
}

}  // namespace
