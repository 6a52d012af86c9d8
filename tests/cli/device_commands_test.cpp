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

  // The moments of a trace depend on how long the worker idled before its job came.
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
  EXPECT_LT(virtual_clock::Seconds(), 43200.0) << "it waits no longer than it must";
}

// A worker's look every five seconds may be the last one too early.
TEST_F(DeviceCommandsTest, DevicesSeesWhatIsPluggedInJustBeforeTheEndOfTheWait) {
  virtual_clock::At(29.9, [] { sim_hidapi::PlugIn(Family::TC420); });
  const Outcome outcome = Run({"devices", "--wait", "30"});
  EXPECT_EQ(outcome.status, kSuccess);
  EXPECT_EQ(outcome.out, "tc420     TC420\n");
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

// As the desktop program asks before it uploads.
TEST_F(DeviceCommandsTest, UploadWarnsOfModesThatSomeControllersPlayInPart) {
  auto document = GivenRamps({"One"});
  document.modes.push_back(GivenModeOfRows("Twenty", 20));
  document.modes.push_back(GivenModeOfRows("More", 21));
  GivenProgram("tank.xml", document);
  sim_hidapi::PlugIn(Family::TC421);
  const Outcome warned = Run({"upload", "@tank.xml", "--device", "tc421", "--device", "emulator"});
  EXPECT_EQ(warned.status, kSuccess);
  EXPECT_THAT(warned.err,
              StartsWith("Mode More has 21 steps. Some TC420 devices ignore all beyond the first 20; "
                         "\"lumarinectl edit --align\" makes them fewer.\nConfiguring device TC421\n"));
  EXPECT_THAT(Run({"upload", "@tank.xml", "--device", "tc421"}).err, StartsWith("Configuring device"));
}

TEST_F(DeviceCommandsTest, AStepThatWasNotWrittenFailsTheUpload) {
  sim_hidapi::PlugIn(Family::TC420);
  constexpr int kStepOfTheSecondMode = 4 + 2;
  sim_hidapi::Inject({Call::Write, kStepOfTheSecondMode});
  const Outcome outcome = Run({"upload", "@tank.xml", "--device", "tc420"});
  EXPECT_EQ(outcome.status, kOperationFailed);
  EXPECT_EQ(outcome.err,
            "Configuring device TC420\n"
            "Uploading started\n"
            "Uploading mode: One\n"
            "Uploading mode: Two\n"
            "Uploading finished\n"
            "Modes that tc420 did not confirm: \"Two\"\n"
            "Frames that tc420 did not confirm: 1 of 9\n"
            "Finished configuring device TC420\n");
  // The controller objects to a mode without its step.
  EXPECT_THAT(sim_hidapi::Violations(), Not(IsEmpty()));
  sim_hidapi::Reset();
}

TEST_F(DeviceCommandsTest, ACablePulledBeforeTheLastFrameFailsTheUpload) {
  sim_hidapi::PlugIn(Family::TC420);
  constexpr int kLastFrame = 4 + 4 + 1;
  sim_hidapi::Inject({Call::Write, kLastFrame, sim_hidapi::kForever});
  const Outcome outcome = Run({"upload", "@tank.xml", "--device", "tc420"});
  EXPECT_EQ(outcome.status, kOperationFailed);
  EXPECT_THAT(outcome.err,
              HasSubstr("\nUploading finished\nThe end of the upload was not confirmed by tc420.\n"
                        "Frames that tc420 did not confirm: 1 of 9\n"));
}

TEST_F(DeviceCommandsTest, AStepThatATC421DidNotAnswerFailsTheUpload) {
  sim_hidapi::PlugIn(Family::TC421);
  sim_hidapi::SetAnswer({[answered = 0](const std::string& reply) mutable {
    constexpr int kSecondStep = 3;
    return ++answered == kSecondStep ? std::vector<std::string>() : std::vector{reply};
  }});
  const Outcome outcome = Run({"upload", "@tank.xml", "--device", "tc421"});
  EXPECT_EQ(outcome.status, kOperationFailed);
  EXPECT_THAT(outcome.err, HasSubstr("Modes that tc421 did not confirm: \"One\"\n"
                                     "Frames that tc421 did not confirm: 1 of 100\n"));
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

constexpr char kForbiddenTC420[] =
    "TC420 is plugged in, but this user may not open it. This command changes that once and for all: sudo "
    "lumarinectl usb-setup\n";

TEST_F(DeviceCommandsTest, AControllerThatMayNotBeOpenedIsNotAnAbsentOne) {
  sim_hidapi::PlugIn(Family::TC420);
  sim_hidapi::SetAllowed(Family::TC420, false);
  const Words commands[] = {
      {"upload", "@tank.xml", "--device", "tc420"},
      {"demo", "@tank.xml", "--device", "tc420"},
      {"sync-time", "--device", "tc420"},
      {"clear", "--device", "tc420"},
  };
  for (const Words& command : commands) {
    const Outcome outcome = Run(command);
    EXPECT_EQ(outcome.status, kOperationFailed) << command.front();
    EXPECT_EQ(outcome.err, std::string("Configuring device TC420\nConnect error\n") + kForbiddenTC420 +
                               "Finished configuring device TC420\n");
  }
}

TEST_F(DeviceCommandsTest, DevicesTellsOfOneThatMayNotBeOpenedAndDoesNotListIt) {
  sim_hidapi::PlugIn(Family::TC420);
  sim_hidapi::SetAllowed(Family::TC420, false);
  for (const Words& words : {Words{"devices"}, Words{"devices", "--wait", "60"}}) {
    const Outcome outcome = Run(words);
    EXPECT_EQ(outcome.status, kOperationFailed);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, kForbiddenTC420) << "once, and nothing of \"no controller\"";
  }
  EXPECT_EQ(json::parse(Run({"devices", "--json"}).out), json::array());
  // One that can be used is what was looked for.
  sim_hidapi::PlugIn(Family::TC421);
  const Outcome other = Run({"devices"});
  EXPECT_EQ(other.status, kSuccess);
  EXPECT_EQ(other.out, "tc421     TC421\n");
  EXPECT_THAT(other.err, HasSubstr(kForbiddenTC420));
}

TEST_F(DeviceCommandsTest, DevicesWaitsForTheRights) {
  sim_hidapi::PlugIn(Family::TC420);
  sim_hidapi::SetAllowed(Family::TC420, false);
  After(kForbiddenTC420, 20.0, [] { sim_hidapi::SetAllowed(Family::TC420, true); });
  const Outcome outcome = Run({"devices", "--wait", "60"});
  EXPECT_EQ(outcome.status, kSuccess);
  EXPECT_EQ(outcome.out, "tc420     TC420\n");
  EXPECT_EQ(outcome.err, std::string(kForbiddenTC420) + "TC420 Device connected\n");
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

// Status 3 is worse than 1, and 1 than 0, wherever they stand.
TEST_F(DeviceCommandsTest, TheWorstControllerCountsInAnyOrder) {
  sim_hidapi::PlugIn(Family::TC421);
  sim_hidapi::SetAnswer(sim_hidapi::Silent());  // which fails a TC421
  const struct {
    Words devices;
    int status;
  } rows[] = {
      {{"emulator", "emulator"}, kSuccess},
      {{"emulator", "tc421"}, kOperationFailed},
      {{"tc421", "emulator"}, kOperationFailed},
      {{"tc420", "emulator"}, kNoDevice},
      {{"tc421", "tc420"}, kNoDevice},
      {{"tc420", "tc421"}, kNoDevice},
      {{"emulator", "tc421", "tc420", "emulator"}, kNoDevice},
  };
  for (const auto& row : rows) {
    Words words = {"sync-time"};
    for (const std::string& device : row.devices) words.insert(words.end(), {"--device", device});
    EXPECT_EQ(Run(words).status, row.status) << testing::PrintToString(row.devices);
  }
}

// The stop is found behind the last operation, which has done its work.
TEST_F(DeviceCommandsTest, CtrlCBehindAllThatWasDoneIsAStopAllTheSame) {
  After("Clearing all modes", 1.0, [&] { EXPECT_TRUE(PressesCtrlC(console)); });
  const Outcome outcome = Run({"clear", "--device", "emulator", "--device", "tc420"});
  EXPECT_EQ(outcome.status, kOperationFailed);
  EXPECT_EQ(outcome.err,
            "Configuring device TC420_Emulator\n"
            "Clearing all modes\n"
            "Stopping. Ctrl+C again ends at once.\n"
            "Cancelled!\n");
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
            "Stopping behind this mode. Ctrl+C again ends at once.\n"
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
  EXPECT_THAT(outcome.err, EndsWith("Stopping. Ctrl+C again ends at once.\nDemo finished\nCancelled!\n"));
  EXPECT_FALSE(sim_hidapi::MemoryOf(Family::TC420).playing);
  const auto frames = sim_hidapi::Frames(Family::TC420);
  EXPECT_NEAR(frames.back().seconds - frames.front().seconds, 5.0, 1.0);
}

TEST_F(DeviceCommandsTest, ADemoWhoseCableIsPulledFails) {
  sim_hidapi::PlugIn(Family::TC420);
  After("Playing whole day", 5.0, [] { sim_hidapi::PullOut(Family::TC420); });
  const Outcome outcome = Run({"demo", "@tank.xml", "--device", "tc420"});
  EXPECT_EQ(outcome.status, kOperationFailed);
  EXPECT_THAT(outcome.err, HasSubstr("\nDemo finished\nFrames that tc420 did not confirm: "));
}

// Its name stands in the trace of every demo.
TEST_F(DeviceCommandsTest, AModesNameForgesNoError) {
  for (const char* const name : {"bind error: x", "hid_write error: x"}) {
    GivenProgram("tank.xml", GivenRamps({name}));
    const Outcome outcome = Run({"demo", "@tank.xml", "--device", "emulator", "--seconds", "1"});
    EXPECT_EQ(outcome.status, kSuccess) << name;
    EXPECT_EQ(outcome.err,
              "Configuring device TC420_Emulator\nDemo started\nPlaying whole day in 1 seconds\n"
              "Demo finished\nFinished configuring device TC420_Emulator\n");
  }
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
