// Setting clocks, clearing and uploading, on one controller and on several.

#include "devices/operations.h"

#include "common/platform.h"
#include "devices/jobs.h"
#include "program/demo_state.h"
#include "tests/devices/device_test.h"
#include "tests/support/files.h"
#include "tests/support/golden.h"
#include "tests/support/temporary_folder.h"

namespace {

using sim_hidapi::Call;
using sim_hidapi::Family;
using TCBase::DeviceInfo;
using TCBase::OperationReport;
using TCBase::OperationResult;
using TCBase::Program::Mode;
using TCBase::Program::ModeListView;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

const DateTime kMoment{2026, 12, 31, 23, 59, 58, 0};

class OperationsTest : public DeviceTest {
 protected:
  void SetUp() override {
    DeviceTest::SetUp();
    sim_hidapi::PlugIn(Family::TC420);
    sim_hidapi::PlugIn(Family::TC421);
  }

  static ModeListView TwoModes() {
    return GivenProgram({GivenMode("Day", {{"08:00", {0, 0, 0, 0, 0}}, {"12:00", {80, 60, 40, 20, 0}}}),
                         GivenMode("Night", {{"00:00", {5, 5, 5, 5, 5}}, {"12:30", {0, 10, 0, 10, 0}}})});
  }

  OperationResult Upload(const DeviceInfo& info, const ModeListView& program) {
    return TCBase::RunOnDevices(
        [&](const DeviceInfo& device) { return UploadOperation(device, program, context).result; }, {info},
        context);
  }

  // Compares what the user and the log file saw with tests/devices/golden/<name>/.
  static void ExpectTranscripts(const std::string& name) {
    const std::string folder = "tests/devices/golden/" + name;
    golden::Expect(folder + "/status.txt", TakeStatus());
    golden::Expect(folder + "/trace.txt", TakeTrace());
  }

  // At that moment somebody presses "Stop".
  void StopAt(double seconds) {
    virtual_clock::At(seconds, [this] { demoState.PostCommand(TCBase::CommandStop); });
  }
};

// Transcripts.

TEST_F(OperationsTest, TranscriptOfAnUploadToATC420) {
  TCBase::UploadJob({SelectedTC420()}, TwoModes(), context)();
  ExpectTranscripts("upload_to_a_tc420");
  ExpectNoViolations();
}

TEST_F(OperationsTest, TranscriptOfAnUploadThatIsCancelledBetweenTwoControllers) {
  StopAt(0.2);
  TCBase::UploadJob({SelectedEmulator(), SelectedTC420()}, TwoModes(), context)();
  ExpectTranscripts("upload_cancelled");
}

TEST_F(OperationsTest, TranscriptOfAnUploadWithAControllerPulledOut) {
  virtual_clock::At(0.3, [] { sim_hidapi::PullOut(Family::TC420); });
  TCBase::UploadJob({SelectedTC420()}, TwoModes(), context)();
  ExpectTranscripts("upload_with_the_controller_pulled_out");
}

TEST_F(OperationsTest, TranscriptOfATimeSyncOfBothFamiliesAndTheEmulator) {
  TCBase::TimeSyncJob({SelectedTC420(), SelectedEmulator(), SelectedTC421()}, TwoModes(), kMoment, context)();
  ExpectTranscripts("time_sync_of_three");
  ExpectNoViolations();
}

TEST_F(OperationsTest, TranscriptOfAClearOfASilentTC421) {
  sim_hidapi::SetAnswer(sim_hidapi::Silent());
  TCBase::ClearJob({SelectedTC421()}, TwoModes(), context)();
  ExpectTranscripts("clear_of_a_silent_tc421");
}

// Connecting.

TEST_F(OperationsTest, AControllerThatIsNotThereIsAConnectErrorInEveryOperation) {
  sim_hidapi::Reset();
  const ModeListView program = TwoModes();
  EXPECT_EQ(SyncTimeOperation(SelectedTC420(), program, kMoment, context).result,
            OperationResult::NotConnected);
  EXPECT_EQ(ClearAllOperation(SelectedTC420(), program, context).result, OperationResult::NotConnected);
  EXPECT_EQ(UploadOperation(SelectedTC421(), program, context).result, OperationResult::NotConnected);
  EXPECT_EQ(DemoOperation(SelectedTC421(), program, 60, context).result, OperationResult::NotConnected);
  EXPECT_EQ(TakeStatus(), "Connect error\nConnect error\nConnect error\nConnect error\n");
  EXPECT_EQ(TakeTrace(), "");
  // Nor does a controller that is not there need three seconds to clear.
  EXPECT_DOUBLE_EQ(virtual_clock::Seconds(), 0.0);
}

TEST_F(OperationsTest, AControllerThatMayNotBeOpenedIsAConnectErrorWithAWarningInEveryOperation) {
  sim_hidapi::SetAllowed(Family::TC420, false);
  const ModeListView program = TwoModes();
  for (const auto& operation : std::initializer_list<std::function<TCBase::OperationReport()>>{
           [&] { return SyncTimeOperation(SelectedTC420(), program, kMoment, context); },
           [&] { return ClearAllOperation(SelectedTC420(), program, context); },
           [&] { return UploadOperation(SelectedTC420(), program, context); },
           [&] { return DemoOperation(SelectedTC420(), program, 60, context); }}) {
    EXPECT_EQ(operation().result, OperationResult::Forbidden);
    EXPECT_EQ(TakeStatus(), "Connect error\n");
    EXPECT_EQ(TakeWarnings(),
              "TC420 is plugged in, but this user may not open it. This command changes that once and for "
              "all: sudo lumarinectl usb-setup\n");
  }
  EXPECT_EQ(TakeTrace(), "");
  EXPECT_DOUBLE_EQ(virtual_clock::Seconds(), 0.0);
}

TEST_F(OperationsTest, WhereTheRuleIsInstalledNobodyIsToldToInstallIt) {
  const TemporaryFolder folder;
  sim_hidapi::SetAllowed(Family::TC420, false);
  sim_hidapi::SetRulesFolder(folder / "etc");
  sim_hidapi::SetPackagedRulesFolders({folder / "local", folder / "lib"});
  const auto warnings = [&] {
    SyncTimeOperation(SelectedTC420(), TwoModes(), kMoment, context);
    return TakeWarnings();
  };
  EXPECT_THAT(warnings(), HasSubstr("usb-setup"));
  for (const char* const place : {"lib", "etc"}) {
    std::filesystem::create_directory(folder / place);
    const std::filesystem::path rule = FileWith(folder / place / "70-lumarine.rules", "");
    EXPECT_EQ(warnings(), "TC420 is plugged in, but this user may not open it, though " + Utf8FromPath(rule) +
                              " is installed. Plug it in again. The rule counts for who is logged in at this "
                              "computer itself, not over ssh.\n");
  }
}

TEST_F(OperationsTest, AfterAConnectErrorTheNextDeviceIsServed) {
  sim_hidapi::PullOut(Family::TC420);
  TCBase::UploadJob({SelectedTC420(), SelectedTC421()}, GivenProgram({}), context)();
  EXPECT_EQ(TakeStatus(),
            "Configuring device TC420\nConnect error\nFinished configuring device TC420\n"
            "Configuring device TC421\nUploading started\nUploading finished\n"
            "Finished configuring device TC421\n");
}

// Time and clear.

TEST_F(OperationsTest, TheClockIsSetToTheGivenTimeAndNotToTheComputers) {
  EXPECT_EQ(SyncTimeOperation(SelectedTC421(), {}, kMoment, context).result, OperationResult::Done);
  const DateTime clock = *sim_hidapi::MemoryOf(Family::TC421).clock;
  EXPECT_EQ(clock.year, 2026);
  EXPECT_EQ(clock.month, 12);
  EXPECT_EQ(clock.second, 58);
  EXPECT_EQ(TakeStatus(), "Syncing time\n");
}

TEST_F(OperationsTest, AFailingTimeSyncIsNotToldToTheUser) {
  sim_hidapi::Inject({.call = Call::Write});
  EXPECT_EQ(SyncTimeOperation(SelectedTC420(), {}, kMoment, context).result, OperationResult::Failed);
  EXPECT_EQ(TakeStatus(), "Syncing time\n");
}

TEST_F(OperationsTest, AClearWaitsThreeSeconds) {
  EXPECT_EQ(ClearAllOperation(SelectedTC420(), {}, context).result, OperationResult::Done);
  EXPECT_DOUBLE_EQ(virtual_clock::Seconds(), 3.0);
  EXPECT_EQ(sim_hidapi::MemoryOf(Family::TC420).clears, 1);
}

TEST_F(OperationsTest, AFailingClearWaitsAllTheSame) {
  sim_hidapi::Inject({.call = Call::Write});
  EXPECT_EQ(ClearAllOperation(SelectedTC420(), {}, context).result, OperationResult::Failed);
  EXPECT_DOUBLE_EQ(virtual_clock::Seconds(), 3.0);
  EXPECT_EQ(TakeStatus(), "Clearing all modes\n");
}

TEST_F(OperationsTest, AStopDuringTheWaitOfAClearIsSeenAfterIt) {
  StopAt(1.0);
  TCBase::ClearJob({SelectedTC420(), SelectedTC421()}, {}, context)();
  EXPECT_DOUBLE_EQ(virtual_clock::Seconds(), 3.0);
  EXPECT_EQ(TakeStatus(), "Configuring device TC420\nClearing all modes\nCancelled!\n");
  EXPECT_EQ(sim_hidapi::MemoryOf(Family::TC421).clears, 0);
}

// Upload.

TEST_F(OperationsTest, AnUploadStoresEveryModeInItsBankAndPausesAfterEach) {
  EXPECT_EQ(Upload(SelectedTC420(), TwoModes()), OperationResult::Done);
  const sim::Memory memory = sim_hidapi::MemoryOf(Family::TC420);
  ASSERT_EQ(memory.banks.size(), 2U);
  EXPECT_EQ(memory.banks.at(0).name, "Day");
  EXPECT_THAT(memory.banks.at(0).steps,
              ElementsAre(GivenStep(8, 0, {0, 0, 0, 0, 0}), GivenStep(12, 0, {80, 60, 40, 20, 0})));
  EXPECT_EQ(memory.banks.at(1).name, "Night");
  EXPECT_EQ(Commands(Family::TC420), "12 13*2 01 12 13*2 01 02");
  const std::vector<sim::Received> frames = sim_hidapi::Frames(Family::TC420);
  EXPECT_DOUBLE_EQ(frames[3].seconds, 0.0);
  EXPECT_DOUBLE_EQ(frames[4].seconds, 0.5);
  EXPECT_DOUBLE_EQ(frames[8].seconds, 1.0);
  ExpectNoViolations();
}

TEST_F(OperationsTest, AnUploadToATC421OfAModeWith5StepsSends48StepFrames) {
  const Mode mode = GivenMode("Five", {{"00:00", {0, 0, 0, 0, 0}},
                                       {"06:00", {60, 0, 100, 1, 0}},
                                       {"12:00", {0, 0, 0, 0, 0}},
                                       {"18:00", {60, 0, 0, 0, 0}},
                                       {"23:00", {0, 0, 0, 0, 0}}});
  EXPECT_EQ(Upload(SelectedTC421(), GivenProgram({mode})), OperationResult::Done);
  EXPECT_EQ(Commands(Family::TC421), "0101 0102*48 040A");
  const std::vector<TCBase::Program::ModeStep> steps = sim_hidapi::MemoryOf(Family::TC421).banks.at(0).steps;
  ASSERT_EQ(steps.size(), 48U);
  EXPECT_EQ(steps[0], GivenStep(0, 0, {0, 0, 0, 0, 0}));
  EXPECT_EQ(steps[6], GivenStep(3, 0, {30, 0, 50, 0, 0}));
  EXPECT_EQ(steps[12], GivenStep(6, 0, {60, 0, 100, 1, 0}));
  EXPECT_EQ(steps[47], GivenStep(23, 30, {0, 0, 0, 0, 0}));
  ExpectNoViolations();
}

TEST_F(OperationsTest, AnUploadToATC420OfChannelsThatUse30MinutesSends30StepFramesWithInterpolatedValues) {
  Mode mode;
  mode.name = "Thirty";
  // Six minutes of its own for each channel, climbing from 0 to 100.
  for (std::size_t channel = 0; channel < mode.channels.size(); ++channel) {
    for (int i = 0; i < 6; ++i) {
      TCBase::Program::Step step;
      step.hour = i * 4;
      step.minute = static_cast<int>(channel);
      step.value = static_cast<float>(i * 20);
      mode.channels[channel].push_back(step);
    }
  }
  EXPECT_EQ(Upload(SelectedTC420(), GivenProgram({mode})), OperationResult::Done);
  const std::vector<TCBase::Program::ModeStep> steps = sim_hidapi::MemoryOf(Family::TC420).banks.at(0).steps;
  ASSERT_EQ(steps.size(), 30U);
  // 04:02 is the third channel's own minute; the others are on their way.
  EXPECT_EQ(steps[7].hour * 60 + steps[7].minute, 242);
  EXPECT_THAT(steps[7].values, ElementsAre(20, 20, 20, 19, 19));
  EXPECT_EQ(Commands(Family::TC420), "12 13*30 01 02");
  ExpectNoViolations();
}

TEST_F(OperationsTest, AnEmulatedUploadRunsThroughAllModesWithThePausesAndTellsOfModesThatBreakARule) {
  Mode nameless = GivenRamp("");
  Mode flat;
  flat.name = "No steps";
  EXPECT_EQ(Upload(SelectedEmulator(), GivenProgram({GivenRamp("A"), nameless, flat, GivenRamp("B")})),
            OperationResult::Failed);
  EXPECT_EQ(TakeStatus(),
            "Configuring device TC420_Emulator\n"
            "Uploading started\n"
            "Uploading mode: A\n"
            "Uploading mode: \nUpload error\n"
            "Uploading mode: No steps\nUpload error\n"
            "Uploading mode: B\n"
            "Uploading finished\n"
            "Finished configuring device TC420_Emulator\n");
  EXPECT_DOUBLE_EQ(virtual_clock::Seconds(), 4 * 0.5);
  // A refused mode keeps its bank: B goes to the fourth.
  EXPECT_THAT(PacketsIn(TakeTrace()), testing::Contains("Packet_ModeInit(Bank=3, Length=2, Name=B)"));
}

TEST_F(OperationsTest, EachModeBeyondThe64thIsAnUploadError) {
  ModeListView program;
  for (int i = 0; i < 66; ++i) program.modes.push_back(GivenRamp("Mode " + std::to_string(i)));
  EXPECT_EQ(Upload(SelectedTC420(), program), OperationResult::Failed);
  EXPECT_THAT(
      TakeStatus(),
      HasSubstr("Uploading mode: Mode 63\nUploading mode: Mode 64\nUpload error\nUploading mode: Mode 65\n"
                "Upload error\nUploading finished\n"));
  EXPECT_EQ(sim_hidapi::MemoryOf(Family::TC420).banks.size(), 64U);
}

TEST_F(OperationsTest, ACancelledUploadStillFinishesAndIsToldAsCancelled) {
  StopAt(0.2);
  EXPECT_EQ(Upload(SelectedTC420(), TwoModes()), OperationResult::Cancelled);
  EXPECT_EQ(
      TakeStatus(),
      "Configuring device TC420\nUploading started\nUploading mode: Day\nUploading finished\nCancelled!\n");
  EXPECT_EQ(Commands(Family::TC420), "12 13*2 01 02");
  ExpectNoViolations();
}

TEST_F(OperationsTest, OtherCommandsDoNotDisturbAnUpload) {
  virtual_clock::At(0.2, [this] { demoState.PostCommand(TCBase::CommandPause); });
  virtual_clock::At(0.7, [this] { demoState.PostSeek(100); });
  EXPECT_EQ(Upload(SelectedTC420(), TwoModes()), OperationResult::Done);
  EXPECT_EQ(demoState.TakeCommand(), nullptr);
}

TEST_F(OperationsTest, AnUploadShowsThatNoDemoRuns) {
  demoState.SetRunning(3600, TCBase::StatePlaying);
  EXPECT_EQ(UploadOperation(SelectedEmulator(), {}, context).result, OperationResult::Done);
  EXPECT_EQ(demoState.state, TCBase::StateIdle);
  EXPECT_EQ(demoState.position, -1);
}

TEST_F(OperationsTest, AModeWhoseStepsAllStandOnOneMinuteIsSentCapped) {
  Mode odd = GivenMode("Odd", {{"12:00", {10, 10, 10, 10, 10}}, {"12:00", {90, 90, 90, 90, 90}}});
  odd.channels[1] = GivenRamp("").channels[0];
  EXPECT_EQ(Upload(SelectedTC420(), GivenProgram({odd})), OperationResult::Done);
  ExpectNoViolations();
}

// The report knows more than the log.

TEST_F(OperationsTest, AnUploadThatWentWellIsConfirmedWhole) {
  const OperationReport report = UploadOperation(SelectedTC420(), TwoModes(), context);
  EXPECT_EQ(report.result, OperationResult::Done);
  EXPECT_THAT(report.unconfirmedModes, IsEmpty());
  EXPECT_FALSE(report.endUnconfirmed);
  EXPECT_EQ(report.exchange.packets, 9);
  EXPECT_EQ(report.exchange.replies, 9);
  EXPECT_EQ(report.exchange.unconfirmed, 0);
}

TEST_F(OperationsTest, AStepThatWasNotWrittenIsReportedThoughNoLineTellsOfIt) {
  constexpr int kStepOfTheSecondMode = 4 + 2;
  sim_hidapi::Inject({.call = Call::Write, .nth = kStepOfTheSecondMode});
  const OperationReport report = UploadOperation(SelectedTC420(), TwoModes(), context);
  EXPECT_EQ(report.result, OperationResult::Failed);
  EXPECT_THAT(report.unconfirmedModes, ElementsAre("Night"));
  EXPECT_FALSE(report.endUnconfirmed);
  EXPECT_EQ(report.exchange.unconfirmed, 1);
  EXPECT_THAT(TakeStatus(), Not(HasSubstr("error")));
}

TEST_F(OperationsTest, AStepThatWasNotAnsweredIsReported) {
  sim_hidapi::SetAnswer({[answered = 0](const std::string& reply) mutable {
    constexpr int kSecondStep = 3;
    return ++answered == kSecondStep ? std::vector<std::string>() : std::vector{reply};
  }});
  const OperationReport report = UploadOperation(SelectedTC421(), TwoModes(), context);
  EXPECT_EQ(report.result, OperationResult::Failed);
  EXPECT_THAT(report.unconfirmedModes, ElementsAre("Day"));
  EXPECT_THAT(TakeStatus(), Not(HasSubstr("error")));
}

TEST_F(OperationsTest, ACablePulledBeforeTheLastFrameIsReported) {
  constexpr int kLastFrame = 4 + 4 + 1;
  sim_hidapi::Inject({.call = Call::Write, .nth = kLastFrame, .times = sim_hidapi::kForever});
  const OperationReport report = UploadOperation(SelectedTC420(), TwoModes(), context);
  EXPECT_EQ(report.result, OperationResult::Failed);
  EXPECT_THAT(report.unconfirmedModes, IsEmpty());
  EXPECT_TRUE(report.endUnconfirmed);
}

TEST_F(OperationsTest, ModesThatAreRefusedAreReported) {
  Mode noSteps;
  noSteps.name = "No steps";
  const OperationReport report =
      UploadOperation(SelectedEmulator(), GivenProgram({GivenRamp("A"), GivenRamp(""), noSteps}), context);
  EXPECT_EQ(report.result, OperationResult::Failed);
  EXPECT_THAT(report.unconfirmedModes, ElementsAre("", "No steps"));
}

TEST_F(OperationsTest, ACancelledUploadReportsWhatItHadSent) {
  StopAt(0.2);
  sim_hidapi::Inject({.call = Call::Write, .nth = 2});
  const OperationReport report = UploadOperation(SelectedTC420(), TwoModes(), context);
  EXPECT_EQ(report.result, OperationResult::Cancelled);
  EXPECT_THAT(report.unconfirmedModes, ElementsAre("Day"));
}

// Several devices.

TEST_F(OperationsTest, StopDuringAnUploadToTwoSelectedDevicesLeavesTheSecondAlone) {
  StopAt(0.2);
  TCBase::UploadJob({SelectedTC420(), SelectedTC421()}, TwoModes(), context)();
  EXPECT_THAT(TakeStatus(), testing::EndsWith("Uploading finished\nCancelled!\n"));
  EXPECT_THAT(sim_hidapi::Frames(Family::TC421), IsEmpty());
}

TEST_F(OperationsTest, WithNoDeviceSelectedNothingIsWrittenAndNothingHappens) {
  DeviceInfo unselected = SelectedTC420();
  unselected.selected = false;
  TCBase::UploadJob({unselected}, TwoModes(), context)();
  TCBase::ClearJob({}, TwoModes(), context)();
  EXPECT_EQ(TakeStatus(), "");
  EXPECT_EQ(TakeTrace(), "");
  EXPECT_DOUBLE_EQ(virtual_clock::Seconds(), 0.0);
}

TEST_F(OperationsTest, AStopPostedWhenNothingRunsStaysInTheSlotAndCancelsNothing) {
  demoState.PostCommand(TCBase::CommandStop);
  EXPECT_EQ(Upload(SelectedTC420(), TwoModes()), OperationResult::Done);
  EXPECT_THAT(TakeStatus(), Not(HasSubstr("Cancelled!")));
  EXPECT_EQ(demoState.TakeCommand(), nullptr);
}

// A clock is set without a look into the slot: what was there before is gone, and not found behind it.
TEST_F(OperationsTest, AStopFromBeforeARunIsForgottenAsItBegins) {
  demoState.PostCommand(TCBase::CommandStop);
  TCBase::TimeSyncJob({SelectedTC420()}, {}, kMoment, context)();
  EXPECT_EQ(TakeStatus(), "Configuring device TC420\nSyncing time\nFinished configuring device TC420\n");
}

TEST_F(OperationsTest, AStopFromBeforeAnUploadIsForgottenAsItBegins) {
  demoState.PostCommand(TCBase::CommandStop);
  EXPECT_EQ(UploadOperation(SelectedTC420(), TwoModes(), context).result, OperationResult::Done);
  EXPECT_EQ(sim_hidapi::MemoryOf(Family::TC420).banks.size(), 2U);
}

TEST_F(OperationsTest, ANewerCommandTakesThePlaceOfOneNotYetSeen) {
  demoState.PostSeek(100);
  demoState.PostCommand(TCBase::CommandPause);
  const auto command = demoState.TakeCommand();
  ASSERT_NE(command, nullptr);
  EXPECT_EQ(command->type, TCBase::CommandPause);
  EXPECT_EQ(demoState.TakeCommand(), nullptr);
}

TEST_F(OperationsTest, TheResultOfSeveralIsTheFirstThatWasNotDone) {
  const auto run = [this](std::vector<OperationResult> results) {
    std::size_t next = 0;
    return TCBase::RunOnDevices([&](const DeviceInfo&) { return results[next++]; },
                                std::vector<DeviceInfo>(results.size(), SelectedEmulator()), context);
  };
  using enum OperationResult;
  EXPECT_EQ(run({}), Done);
  EXPECT_EQ(run({Done, Done}), Done);
  EXPECT_EQ(run({Done, NotConnected, Failed}), NotConnected);
  EXPECT_EQ(run({Failed, Done}), Failed);
}

}  // namespace
