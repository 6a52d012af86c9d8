// Commands that speak to a controller, simulated ones included.

#include <nlohmann/json.hpp>

#include <algorithm>
#include <regex>

#include "tests/cli/command_fixture.h"
#include "tests/support/golden.h"

namespace {

using nlohmann::json;
using sim_hidapi::Call;
using sim_hidapi::Family;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

class DeviceCommandsTest : public CommandTest {
 protected:
  void SetUp() override {
    CommandTest::SetUp();
    GivenProgram("tank.xml", GivenRamps({"One", "Two"}));
  }

  /// The moments of a trace depend on how long the worker idled before its job came.
  static std::string WithoutTimes(const std::string& text) {
    return std::regex_replace(text, std::regex(R"((^|\n)\d+:\d\d:\d\d:\d\d\d )"), "$1TIME ");
  }

  static bool PressesCtrlC(const FakeConsole& console) { return console.Interrupt(); }
};

// devices

TEST_F(DeviceCommandsTest, DevicesListsWhatIsPluggedIn) {
  sim_hidapi::PlugIn(Family::TC420);
  const Outcome outcome = Run({"devices"});
  EXPECT_EQ(outcome.status, kSuccess);
  EXPECT_EQ(outcome.out, "tc420     TC420\n");
  EXPECT_EQ(json::parse(Run({"devices", "--json"}).out),
            json::parse(R"([{"device": "tc420", "name": "TC420"}])"));
}

TEST_F(DeviceCommandsTest, DevicesListsEveryFamily) {
  sim_hidapi::PlugIn(Family::TC420);
  sim_hidapi::PlugIn(Family::TC421);
  EXPECT_EQ(Run({"devices"}).out, "tc420     TC420\ntc421     TC421\n");
  EXPECT_EQ(json::parse(Run({"devices", "--json"}).out)[1],
            json::parse(R"({"device": "tc421", "name": "TC421"})"));
}

TEST_F(DeviceCommandsTest, DevicesWithNoneSaysSoAndIsDone) {
  const Outcome outcome = Run({"devices"});
  EXPECT_EQ(outcome.status, kSuccess);
  EXPECT_THAT(outcome.out, IsEmpty());
  EXPECT_THAT(outcome.err, StartsWith("No controller found."));
  EXPECT_EQ(Run({"devices", "--json"}).out, "[]\n");
}

TEST_F(DeviceCommandsTest, DevicesWaitsUntilOneIsPluggedIn) {
  virtual_clock::At(12.0, [] { sim_hidapi::PlugIn(Family::TC420); });
  const Outcome outcome = Run({"devices", "--wait", "86400"});
  EXPECT_EQ(outcome.status, kSuccess);
  EXPECT_EQ(outcome.out, "tc420     TC420\n");
  EXPECT_GE(virtual_clock::Seconds(), 12.0);
}

TEST_F(DeviceCommandsTest, DevicesThatWaitedInVainIsAFailure) {
  const Outcome outcome = Run({"devices", "--wait", "30"});
  EXPECT_EQ(outcome.status, kNoDevice);
  EXPECT_GE(virtual_clock::Seconds(), 30.0);
}

// upload

TEST_F(DeviceCommandsTest, UploadStoresAllModes) {
  sim_hidapi::PlugIn(Family::TC420);
  const Outcome outcome = Run({"upload", "@tank.xml", "--device", "tc420"});
  EXPECT_EQ(outcome.status, kSuccess);
  EXPECT_THAT(outcome.out, IsEmpty());
  const sim::Memory memory = sim_hidapi::MemoryOf(Family::TC420);
  ASSERT_EQ(memory.banks.size(), 2U);
  EXPECT_EQ(memory.banks.at(0).name, "One");
  EXPECT_EQ(memory.banks.at(1).name, "Two");
  EXPECT_EQ(memory.banks.at(1).steps.size(), 2U);
  EXPECT_TRUE(memory.banks.at(1).closed);
}

TEST_F(DeviceCommandsTest, UploadTellsWhatItDoes) {
  golden::Expect(
      "tests/cli/golden/upload_to_the_emulator.txt",
      Transcript("upload tank.xml --device emulator", Run({"upload", "@tank.xml", "--device", "emulator"})));
}

TEST_F(DeviceCommandsTest, TraceShowsEveryPacketAndItsBytes) {
  sim_hidapi::PlugIn(Family::TC420);
  Outcome outcome = Run({"sync-time", "--device", "tc420", "--time", "2026-03-14 09:26:53", "--trace"});
  outcome.err = WithoutTimes(outcome.err);
  golden::Expect("tests/cli/golden/trace_of_a_time_sync.txt",
                 Transcript("sync-time --device tc420 --time \"2026-03-14 09:26:53\" --trace", outcome));
}

TEST_F(DeviceCommandsTest, WithoutTraceTheDeviceLogIsNotShown) {
  EXPECT_THAT(Run({"upload", "@tank.xml", "--device", "emulator"}).err, Not(HasSubstr("WritePacket")));
}

TEST_F(DeviceCommandsTest, UploadThinsOutModesAndLeavesTheFileAlone) {
  auto document = GivenRamps({"One"});
  document.modes.push_back(GivenModeOfRows("Full", 60));
  GivenProgram("tank.xml", document);
  const std::string before = ContentOf("tank.xml");
  sim_hidapi::PlugIn(Family::TC420);
  const Outcome outcome = Run({"upload", "@tank.xml", "--device", "tc420"});
  EXPECT_EQ(outcome.status, kSuccess);
  EXPECT_THAT(outcome.err, StartsWith("Mode Full has more than 48 steps, optimizing...\n"));
  EXPECT_EQ(sim_hidapi::MemoryOf(Family::TC420).banks.at(1).steps.size(), 48U);
  EXPECT_EQ(ContentOf("tank.xml"), before);
}

TEST_F(DeviceCommandsTest, AModeThatIsRefusedFailsTheUploadAndTheOthersAreStored) {
  GivenProgram("tank.xml", GivenRamps({"One", "", "Three"}));
  sim_hidapi::PlugIn(Family::TC420);
  const Outcome outcome = Run({"upload", "@tank.xml", "--device", "tc420"});
  EXPECT_EQ(outcome.status, kOperationFailed);
  EXPECT_THAT(outcome.err, HasSubstr("Uploading mode: \nUpload error\nUploading mode: Three\n"));
  EXPECT_EQ(sim_hidapi::MemoryOf(Family::TC420).banks.size(), 2U);
}

TEST_F(DeviceCommandsTest, AnAbsentControllerIsItsOwnFailure) {
  const Words commands[] = {
      {"upload", "@tank.xml", "--device", "tc420"},
      {"demo", "@tank.xml", "--device", "tc420"},
      {"sync-time", "--device", "tc420"},
      {"clear", "--device", "tc420"},
  };
  for (const Words& command : commands) {
    const Outcome outcome = Run(command);
    EXPECT_EQ(outcome.status, kNoDevice) << command.front();
    EXPECT_THAT(outcome.err,
                HasSubstr("Configuring device TC420\nConnect error\nNo connection to tc420. Does \""));
  }
}

TEST_F(DeviceCommandsTest, AControllerThatIsThereIsNotSaidToBeMissing) {
  sim_hidapi::PlugIn(Family::TC420);
  for (const char* device : {"tc420", "emulator"})
    EXPECT_THAT(Run({"sync-time", "--device", device}).err, Not(HasSubstr("No connection to"))) << device;
}

TEST_F(DeviceCommandsTest, AControllerPulledOutOnTheWayFailsTheOperation) {
  sim_hidapi::PlugIn(Family::TC420);
  sim_hidapi::Inject({Call::Write, 1, sim_hidapi::kForever});
  EXPECT_EQ(Run({"upload", "@tank.xml", "--device", "tc420"}).status, kOperationFailed);
  EXPECT_EQ(Run({"sync-time", "--device", "tc420"}).status, kOperationFailed);
  EXPECT_EQ(Run({"clear", "--device", "tc420"}).status, kOperationFailed);
}

// What a TC420 replies decides nothing: one that never answers has been served.
TEST_F(DeviceCommandsTest, ASilentControllerIsServed) {
  sim_hidapi::PlugIn(Family::TC420);
  sim_hidapi::SetAnswer(sim_hidapi::Silent());
  EXPECT_EQ(Run({"upload", "@tank.xml", "--device", "tc420"}).status, kSuccess);
  EXPECT_EQ(sim_hidapi::MemoryOf(Family::TC420).banks.size(), 2U);
}

TEST_F(DeviceCommandsTest, SeveralControllersAreServedInTheOrderGivenAndTheWorstCounts) {
  const Outcome outcome = Run({"upload", "@tank.xml", "--device", "tc420", "--device", "emulator"});
  EXPECT_EQ(outcome.status, kNoDevice);
  EXPECT_THAT(outcome.err, StartsWith("Configuring device TC420\nConnect error\nNo connection to tc420."));
  EXPECT_THAT(outcome.err, HasSubstr("\nFinished configuring device TC420\n"
                                     "Configuring device TC420_Emulator\nUploading started\n"));
  EXPECT_THAT(Run({"upload", "@tank.xml", "--device", "emulator", "--device", "tc420"}).err,
              StartsWith("Configuring device TC420_Emulator\n"));
}

TEST_F(DeviceCommandsTest, CtrlCEndsAnUploadBehindTheModeInHand) {
  sim_hidapi::PlugIn(Family::TC420);
  After("Uploading mode: One", 0.1, [&] { EXPECT_TRUE(PressesCtrlC(console)); });
  const Outcome outcome = Run({"upload", "@tank.xml", "--device", "tc420", "--device", "emulator"});
  EXPECT_EQ(outcome.status, kOperationFailed);
  EXPECT_EQ(outcome.err,
            "Configuring device TC420\n"
            "Uploading started\n"
            "Uploading mode: One\n"
            "Uploading finished\n"
            "Cancelled!\n");
  EXPECT_EQ(sim_hidapi::MemoryOf(Family::TC420).banks.size(), 1U);
  EXPECT_FALSE(console.Interrupt()) << "nobody watches behind the end of a command";
}

// demo

TEST_F(DeviceCommandsTest, DemoPlaysTheDayAndGivesTheControllerBack) {
  sim_hidapi::PlugIn(Family::TC420);
  const Outcome outcome = Run({"demo", "@tank.xml", "--device", "tc420", "--mode", "2", "--seconds", "30"});
  EXPECT_EQ(outcome.status, kSuccess);
  golden::Expect("tests/cli/golden/demo.txt",
                 Transcript("demo tank.xml --device tc420 --mode 2 --seconds 30", outcome));
  const sim::Memory memory = sim_hidapi::MemoryOf(Family::TC420);
  EXPECT_FALSE(memory.playing);
  EXPECT_EQ(memory.playName, "Two");
  const auto frames = sim_hidapi::Frames(Family::TC420);
  EXPECT_GT(frames.size(), 100U);
  EXPECT_NEAR(frames.back().seconds - frames.front().seconds, 30.0, 1.0);
}

TEST_F(DeviceCommandsTest, DemoTakesAMinuteAndTheFirstModeUnlessToldOtherwise) {
  sim_hidapi::PlugIn(Family::TC420);
  EXPECT_THAT(Run({"demo", "@tank.xml", "--device", "tc420"}).err,
              HasSubstr("Playing whole day in 60 seconds\n"));
  EXPECT_EQ(sim_hidapi::MemoryOf(Family::TC420).playName, "One");
}

TEST_F(DeviceCommandsTest, CtrlCEndsADemoAndGivesTheControllerBack) {
  sim_hidapi::PlugIn(Family::TC420);
  After("Playing whole day", 5.0, [&] { EXPECT_TRUE(PressesCtrlC(console)); });
  const Outcome outcome = Run({"demo", "@tank.xml", "--device", "tc420"});
  EXPECT_EQ(outcome.status, kOperationFailed);
  EXPECT_THAT(outcome.err, EndsWith("Demo finished\nCancelled!\n"));
  EXPECT_FALSE(sim_hidapi::MemoryOf(Family::TC420).playing);
  const auto frames = sim_hidapi::Frames(Family::TC420);
  EXPECT_NEAR(frames.back().seconds - frames.front().seconds, 5.0, 1.0);
}

// sync-time, clear

TEST_F(DeviceCommandsTest, SyncTimeSetsTheComputersTime) {
  virtual_clock::SetLocalTime({2027, 12, 31, 11, 0, 0, 0});
  sim_hidapi::PlugIn(Family::TC420);
  const Outcome outcome = Run({"sync-time", "--device", "tc420"});
  EXPECT_EQ(outcome.status, kSuccess);
  EXPECT_EQ(outcome.err, "Configuring device TC420\nSyncing time\nFinished configuring device TC420\n");
  const auto clock = sim_hidapi::MemoryOf(Family::TC420).clock;
  ASSERT_TRUE(clock);
  EXPECT_EQ(clock->year, 2027);
  EXPECT_EQ(clock->hour, 11);
}

TEST_F(DeviceCommandsTest, SyncTimeSetsTheTimeGiven) {
  sim_hidapi::PlugIn(Family::TC420);
  EXPECT_EQ(Run({"sync-time", "--device", "tc420", "--time", "2026-03-29 02:30:00"}).status, kSuccess);
  const auto clock = sim_hidapi::MemoryOf(Family::TC420).clock;
  ASSERT_TRUE(clock);
  EXPECT_EQ(clock->month, 3);
  EXPECT_EQ(clock->day, 29);
  EXPECT_EQ(clock->minute, 30);
}

TEST_F(DeviceCommandsTest, ClearMakesAControllerForget) {
  sim_hidapi::PlugIn(Family::TC420);
  Run({"upload", "@tank.xml", "--device", "tc420"});
  const Outcome outcome = Run({"clear", "--device", "tc420"});
  EXPECT_EQ(outcome.status, kSuccess);
  EXPECT_EQ(outcome.err, "Configuring device TC420\nClearing all modes\nFinished configuring device TC420\n");
  EXPECT_THAT(sim_hidapi::MemoryOf(Family::TC420).banks, IsEmpty());
}

}  // namespace
