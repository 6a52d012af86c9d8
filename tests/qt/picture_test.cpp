// Picture files: their size and kind, that they show the same, and that the same request gives the same
// bytes.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>

#include "platform/qt/picture/picture.h"
#include "program/builtin_modes.h"
#include "program/demo_state.h"
#include "tests/qt/pictures.h"
#include "tests/support/text_count.h"
#include "tests/support/virtual_clock.h"

namespace {

using qt::PictureFormat;
using qt::PictureRequest;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class PictureTest : public testing::Test {
 protected:
  PictureTest() { virtual_clock::Reset(); }

  std::string Draw(const PictureRequest& request) const { return DrawPicture(document_, request).value(); }

  TCBase::Program::ModeListView document_ = TCBase::Program::NewProgram();
};

TEST_F(PictureTest, APngHasTheSizeAskedForTimesTheScale) {
  const QImage plain = pictures::FromBytes(Draw({PictureFormat::Png, 320, 240, 1.0, {}}));
  EXPECT_EQ(plain.size(), QSize(320, 240));
  EXPECT_EQ(plain.pixel(0, 0), 0xFFFFFFFF) << "white around the lanes";
  const QImage fine = pictures::FromBytes(Draw({PictureFormat::Png, 320, 240, 2.0, {}}));
  EXPECT_EQ(fine.size(), QSize(640, 480));
  const QImage odd = pictures::FromBytes(Draw({PictureFormat::Png, 333, 251, 1.37, {}}));
  EXPECT_EQ(odd.size(), QSize(456, 344));
  EXPECT_EQ(odd.pixel(455, 343), 0xFFFFFFFF) << "the last pixel too";
}

TEST_F(PictureTest, AFinePictureShowsTheSame) {
  const QImage plain = pictures::FromBytes(Draw({PictureFormat::Png, 900, 600, 1.0, 720}));
  const QImage fine = pictures::FromBytes(Draw({PictureFormat::Png, 900, 600, 2.0, 720}));
  pictures::ExpectAlike(fine.scaled(plain.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation), plain,
                        "twice as fine", {90, 0.01});
}

TEST_F(PictureTest, TheModeThatItIsComparedWithIsAThinLineForEachChannel) {
  PictureRequest request{.format = PictureFormat::Svg};
  EXPECT_EQ(CountOf(Draw(request), "stroke-width=\"1.5\""), 0);
  request.compared = document_.modes[1];
  EXPECT_EQ(CountOf(Draw(request), "stroke-width=\"1.5\""), 5);
}

TEST_F(PictureTest, ThePngAndTheSvgOfOneRequestAreTheSameBytesEachTime) {
  for (const PictureFormat format : {PictureFormat::Png, PictureFormat::Svg}) {
    const PictureRequest request = {format, 400, 300, 1.0, 725};
    const bool same = Draw(request) == Draw(request);
    EXPECT_TRUE(same);
  }
}

TEST_F(PictureTest, AnSvgIsWellFormedAndKeepsTextAsText) {
  document_.channelInfos[0].name = "Blau <&\"'> \xE6\xB5\xB7\x01\x1B";
  const std::string svg = Draw({PictureFormat::Svg, 900, 600, 1.0, {}});
  EXPECT_THAT(svg, HasSubstr("viewBox=\"0 0 900 600\""));
  EXPECT_THAT(svg, HasSubstr(">12:00</text>"));
  EXPECT_THAT(svg, HasSubstr("Blau &lt;&amp;"));
  EXPECT_THAT(svg, HasSubstr("Tahoma"));
  EXPECT_THAT(svg, Not(HasSubstr("<image"))) << "nothing that is not sharp";
  pictures::OutputOver(svg, "xmllint", {"--noout", "--nonet"});
}

TEST_F(PictureTest, AnSvgLooksLikeThePng) {
  // Narrow ones, too, where the labels are larger than their places.
  for (const auto& [width, height] : {std::pair(900, 600), std::pair(250, 600), std::pair(200, 900)}) {
    pictures::ExpectAlike(pictures::FromSvg(Draw({PictureFormat::Svg, width, height, 1.0, 720})),
                          pictures::FromBytes(Draw({PictureFormat::Png, width, height, 1.0, 720})),
                          "another program's picture of the SVG, " + std::to_string(width) + " wide",
                          {80, 0.0003});
  }
}

TEST_F(PictureTest, APdfHasOnePageOfTheSizeInPointsAndKeepsTextAsText) {
  const std::string pdf = Draw({PictureFormat::Pdf, 901, 603, 1.0, 720});
  EXPECT_THAT(pdf, StartsWith("%PDF-1."));
  EXPECT_EQ(CountOf(pdf, "/Type /Page\n"), 1);
  EXPECT_THAT(pdf, HasSubstr("/MediaBox [0 0 901.000000 603.000000]"));
  EXPECT_GE(CountOf(pdf, "/Type /Font\n"), 1);
  EXPECT_EQ(CountOf(pdf, "/Subtype /Image"), 0);
}

TEST_F(PictureTest, TheDemoIsThereIfATimeIsAskedForAndGoneAfterwards) {
  const QImage plain = pictures::FromBytes(Draw({PictureFormat::Png, 900, 600, 1.0, {}}));
  const QImage noon = pictures::FromBytes(Draw({PictureFormat::Png, 900, 600, 1.0, 720}));
  // 10 + 880 / 2, between two lanes.
  EXPECT_EQ(noon.pixel(450, 122), 0xFF000000);
  EXPECT_EQ(plain.pixel(450, 122), 0xFFFFFFFF);
  EXPECT_EQ(pictures::FromBytes(Draw({PictureFormat::Png, 900, 600, 1.0, {}})), plain);
}

TEST_F(PictureTest, TheStripIsThereIfItIsAskedFor) {
  document_.channelInfos = {};
  for (auto& channel : document_.channelInfos) channel.color = 0xFF2060FF;
  for (auto& channel : document_.modes.front().channels) channel = {{12, 0, 100.0F}};
  const PictureRequest request = {PictureFormat::Png, 900, 600, 1.0, {}, true};
  EXPECT_EQ(pictures::FromBytes(Draw(request)).pixel(450, 18), 0xFF2060FF);
  EXPECT_EQ(pictures::FromSvg(Draw({PictureFormat::Svg, 900, 600, 1.0, {}, true})).pixel(450, 18),
            0xFF2060FF);
  EXPECT_NE(pictures::FromBytes(Draw({PictureFormat::Png, 900, 600, 1.0, {}})).pixel(450, 18), 0xFF2060FF);
  EXPECT_FALSE(Draw({PictureFormat::Pdf, 900, 600, 1.0, {}, true}).empty());
}

TEST_F(PictureTest, AnyModeIsDrawnInAnySize) {
  document_.modes.emplace_back();
  document_.currentMode = static_cast<std::int32_t>(document_.modes.size() - 1);
  auto& channels = document_.modes.back().channels;
  for (int i = 0; i < 10'000; ++i)
    channels[0].push_back({i % 24, i * 7 % 60, static_cast<float>(i % 101), i % 3 == 0});
  channels[1] = {{12, 0, 50.0F}};
  channels[2] = {{12, 0, 10.0F}, {12, 0, 90.0F}};
  channels[3] = {{2147483647, 2147483647, 1e30F}, {-2147483647, -2147483647, -1e30F}};
  for (const PictureFormat format : {PictureFormat::Png, PictureFormat::Svg, PictureFormat::Pdf}) {
    EXPECT_FALSE(Draw({format, 1, 1, 1.0, 0}).empty());
    EXPECT_FALSE(Draw({format, 100, 100, 0.25, 720}).empty());
    EXPECT_FALSE(Draw({format, 2000, 150, 1.0, 1439}).empty());
  }
}

}  // namespace
