// The line of progress, and what it counts towards.

#include "cli/progress.h"

#include <optional>

#include "devices/operations.h"
#include "tests/cli/command_fixture.h"

namespace {

using TCBase::DeviceInfo;
using TCBase::Program::ModeListView;

const DeviceInfo kTC420{TCBase::ModelTC420, "TC420", {}, true};
const DeviceInfo kEmulator{TCBase::ModelEmulator, "TC420_Emulator", {}, true};
const DeviceInfo kTC421{TCBase::ModelTC421USB, "TC421", {}, true};
const DeviceInfo kNetworkTC421{TCBase::ModelTC421UDP, "Smart-123456",
                               TCBase::MakeIpv4Address({192, 168, 4, 1}, 0), true};

class UploadProgressTest : public CommandTest {
 protected:
  void SetUp() override {
    CommandTest::SetUp();
    sim_hidapi::PlugIn(sim_hidapi::Family::TC420);
    sim_hidapi::PlugIn(sim_hidapi::Family::TC421);
    sim_network::PlugIn({192, 168, 4, 1}, "Smart-123456");
  }

  static ModeListView Program() {
    ModeListView document = GivenRamps({"One", "Two"});
    document.modes.push_back(GivenModeOfRows("Seven", 7));
    return document;
  }

  // What stands behind the bar once so many frames have left.
  static std::string TextAfter(int frames, const std::vector<DeviceInfo>& controllers) {
    cli::UploadProgress progress(Program(), controllers);
    for (int i = 0; i < frames; ++i) progress.FrameSent();
    const std::string text = progress.Line().text;
    return text.substr(std::min(text.find('%'), text.size()));
  }

  static std::string WholeUpload(int frames) {
    return "% frame " + std::to_string(frames) + " of " + std::to_string(frames);
  }
};

TEST_F(UploadProgressTest, CountsTowardsTheFramesThatAnUploadSends) {
  TCBase::DemoState demo;
  int all = 0;
  for (const DeviceInfo& device : {kTC420, kEmulator, kTC421, kNetworkTC421}) {
    const int frames = UploadOperation(device, Program(), {demo}).exchange.packets;
    EXPECT_EQ(TextAfter(frames, {device}), WholeUpload(frames)) << device.name;
    all += frames;
  }
  EXPECT_EQ(TextAfter(all, {kTC420, kEmulator, kTC421, kNetworkTC421}), WholeUpload(all));
}

TEST_F(UploadProgressTest, IsEmptyBeforeTheFirstFrameAndNeverGoesBeyondTheLast) {
  EXPECT_EQ(TextAfter(0, {kTC420}), "");
  EXPECT_EQ(TextAfter(1, {kTC420}), "% frame 1 of 18");
  EXPECT_EQ(TextAfter(100, {kTC420}), WholeUpload(18));
}

TEST(DemoProgressText, IsTheDaysSecondWhileADemoRuns) {
  cli::DemoProgress progress;
  EXPECT_EQ(progress.Line(), cli::ProgressLine());
  progress.DemoAt(43'200);
  EXPECT_THAT(progress.Line().text, testing::EndsWith(" 50 % 12:00"));
  EXPECT_EQ(progress.Line().percent, 50);
  progress.DemoEnded();
  EXPECT_EQ(progress.Line(), cli::ProgressLine());
}

TEST(UnmeasuredProgress, GoesToAndFroAndNamesNoPercentage) {
  EXPECT_EQ(cli::UnmeasuredProgress(0).text, "[###                           ]");
  EXPECT_EQ(cli::UnmeasuredProgress(1).text, "[ ###                          ]");
  EXPECT_EQ(cli::UnmeasuredProgress(27).text, "[                           ###]");
  EXPECT_EQ(cli::UnmeasuredProgress(28).text, "[                          ### ]");
  EXPECT_EQ(cli::UnmeasuredProgress(54).text, cli::UnmeasuredProgress(0).text);
  EXPECT_EQ(cli::UnmeasuredProgress(7).percent, std::nullopt);
}

}  // namespace
