// Uploads over a network that loses, delays, repeats, cuts and garbles: what the user reads against what the
// controller holds, over many seeds.

#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "devices/jobs.h"
#include "devices/operations.h"
#include "tests/devices/network_test.h"
#include "tests/support/run_length.h"

namespace {

using sim_network::Weather;
using TCBase::Program::ModeListView;

constexpr int kModes = 10;
// Built with sanitizers, and for debugging, an upload takes thirty times as long.
#ifdef LUMARINE_SANITIZED
constexpr std::uint32_t kThin = 5;
#else
constexpr std::uint32_t kThin = 1;
#endif
constexpr std::uint32_t kSeeds = 200 / kThin;
constexpr std::uint32_t kFewSeeds = 50 / kThin;
constexpr std::uint32_t kFewestSeeds = 20 / kThin;

// Ten modes that differ in every step.
ModeListView TenModes() {
  ModeListView program;
  for (int i = 0; i < kModes; ++i) {
    program.modes.push_back(
        GivenMode("Mode " + std::to_string(i), {{"00:00", {i, 2 * i, 3 * i, 4 * i, 5 * i}},
                                                {"12:00", {90 - i, 80, 70 + i, 60, 50 - i}},
                                                {"23:30", {i, i, i, i, i}}}));
  }
  return program;
}

// What a fair network brings to the controller.
sim::Memory WholeProgram() {
  sim_network::Reset();
  sim_network::PlugIn(kTank, "Smart-123456");
  TCBase::DemoState demo;
  TCBase::UploadOperation(SelectedTank(), TenModes(), {demo});
  TakeStatus();
  TakeTrace();
  return sim_network::MemoryOf(kTank);
}

bool IsWhole(const sim::Memory& memory, const sim::Memory& whole, int bank) {
  const auto stored = memory.banks.find(bank);
  if (stored == memory.banks.end()) return false;
  const sim::StoredMode& wanted = whole.banks.at(bank);
  return stored->second.closed && stored->second.name == wanted.name && stored->second.steps == wanted.steps;
}

// The banks whose "Uploading mode" is followed by "Upload error".
std::set<int> FailedBanks(const std::string& status) {
  std::set<int> failed;
  int bank = -1;
  for (std::size_t at = 0; at < status.size(); at = status.find('\n', at) + 1) {
    const std::string_view line = std::string_view(status).substr(at, status.find('\n', at) - at);
    if (line.starts_with("Uploading mode: ")) ++bank;
    if (line == "Upload error") failed.insert(bank);
  }
  return failed;
}

// What the controller does with the end of a mode of which steps are missing. All that is known of real ones
// is that they answer every frame; that one checks what it was given is an assumption.
enum class Closing { AnsweredAsAll, RefusedWithStepsMissing };

struct Tally {
  int uploads = 0;         // that are done
  int falselyDone = 0;     // of these, the controller holds something else: must not be
  int modes = 0;           // not reported
  int missed = 0;          // not whole, and not reported: must not be
  int reported = 0;        // not whole, and reported
  int unacknowledged = 0;  // whole, and reported: only acknowledgements were lost
  int silent = 0;          // not whole, and no "Upload error" in the log
};

class LossyNetworkTest : public NetworkTest {
 protected:
  const virtual_clock::Alone alone;

  Tally UploadOverAllSeeds(const Weather& there, const Weather& back, std::uint32_t seeds = kSeeds,
                           Closing closing = Closing::AnsweredAsAll) {
    const sim::Memory whole = WholeProgram();
    Tally tally;
    for (std::uint32_t seed = 1; seed <= seeds; ++seed) {
      virtual_clock::Reset();
      sim_network::Reset();
      sim_network::PlugIn(kTank, "Smart-123456");
      if (closing == Closing::AnsweredAsAll) sim_network::TrustIncompleteModes();
      sim_network::SetWeather(there, back, seed);
      UploadOnce(whole, tally);
    }
    return tally;
  }

 private:
  void UploadOnce(const sim::Memory& whole, Tally& tally) {
    const ModeListView program = TenModes();
    const TCBase::OperationReport report = TCBase::UploadOperation(SelectedTank(), program, context);
    const std::string status = TakeStatus();
    EXPECT_THAT(status, testing::EndsWith("Uploading finished\n"));
    const std::set<int> failed = FailedBanks(status);
    TakeTrace();
    const sim::Memory memory = sim_network::MemoryOf(kTank);
    const std::set<std::string> unconfirmed(report.unconfirmedModes.begin(), report.unconfirmedModes.end());
    const bool isDone = report.result == TCBase::OperationResult::Done;
    bool holdsAll = true;
    for (int bank = 0; bank < kModes; ++bank) {
      const bool isWhole = IsWhole(memory, whole, bank);
      const bool isReported = unconfirmed.contains(program.modes[static_cast<std::size_t>(bank)].name);
      holdsAll = holdsAll && isWhole;
      tally.modes += !isReported;
      tally.missed += !isWhole && !isReported;
      tally.reported += !isWhole && isReported;
      tally.unacknowledged += isWhole && isReported;
      tally.silent += !isWhole && !failed.contains(bank);
    }
    tally.uploads += isDone;
    tally.falselyDone += isDone && !holdsAll;
  }
};

TEST_F(LossyNetworkTest, OverAFairNetworkEveryModeArrives) {
  const Tally tally = UploadOverAllSeeds({}, {}, 1);
  EXPECT_EQ(tally.uploads, 1);
  EXPECT_EQ(tally.modes, kModes);
}

// Whatever is lost, no report has a mode as stored which is not. The other way round there is no certainty:
// who hears nothing cannot know whether a frame or its acknowledgement was lost.
TEST_F(LossyNetworkTest, WithALossOf30PercentEachWayEveryIncompleteModeIsReported) {
  const auto seeds = static_cast<std::uint32_t>(Rounds(kSeeds, 10'000));
  const Tally tally = UploadOverAllSeeds({.loss = 0.3}, {.loss = 0.3}, seeds);
  RecordProperty("modes_good", tally.modes);
  RecordProperty("modes_not_whole_and_reported", tally.reported);
  RecordProperty("modes_whole_and_reported", tally.unacknowledged);
  EXPECT_EQ(tally.missed, 0);
  EXPECT_EQ(tally.falselyDone, 0);
  const int modes = kModes * static_cast<int>(seeds);
  EXPECT_GT(tally.reported, modes / 3);
  // The log, which tells of the first and the last frame of a mode only, has most of them as good.
  EXPECT_GT(tally.silent, modes / 3);
}

TEST_F(LossyNetworkTest, WithALossOf30PercentOnTheWayThereExactlyTheIncompleteModesAreReported) {
  const Tally tally = UploadOverAllSeeds({.loss = 0.3}, {}, kFewSeeds);
  EXPECT_EQ(tally.missed, 0);
  EXPECT_EQ(tally.unacknowledged, 0);
  EXPECT_GT(tally.reported, 0);
  EXPECT_GT(tally.modes, 0);
}

TEST_F(LossyNetworkTest, WithALossOf5PercentEachWayMostUploadsSucceed) {
  const auto seeds = static_cast<std::uint32_t>(Rounds(kFewestSeeds, 10'000));
  const Tally tally = UploadOverAllSeeds({.loss = 0.05}, {.loss = 0.05}, seeds);
  RecordProperty("uploads_done", tally.uploads);
  EXPECT_EQ(tally.missed, 0);
  EXPECT_EQ(tally.falselyDone, 0);
  EXPECT_GE(tally.uploads, static_cast<int>(seeds / 2));
}

TEST_F(LossyNetworkTest, OfAControllerThatRefusesTheEndOfAnIncompleteModeTheLogTellsToo) {
  const Tally tally =
      UploadOverAllSeeds({.loss = 0.3}, {.loss = 0.3}, kFewSeeds, Closing::RefusedWithStepsMissing);
  EXPECT_EQ(tally.missed, 0);
  EXPECT_EQ(tally.silent, 0);
  EXPECT_GT(tally.reported, 0);
}

// Repeats, delays and garbling: replies are then taken for those to other frames, and no promise is kept but
// that an upload comes to its end. Each frame is sent three times at most, and waited for two seconds.
TEST_F(LossyNetworkTest, InFoulWeatherEveryUploadComesToItsEnd) {
  const Weather foul{
      .loss = 0.1, .repeat = 0.1, .shorten = 0.05, .corrupt = 0.05, .delay = 0.2, .longestDelay = 3.0};
  const Tally tally = UploadOverAllSeeds(foul, foul, kFewestSeeds);
  EXPECT_GT(tally.modes, 0);
  EXPECT_LT(tally.modes, kFewestSeeds * kModes);
}

// Frames are not numbered, and any block from the controller counts as the reply to the frame in hand: so
// replies that come twice hide that a later frame has none.
TEST_F(LossyNetworkTest, ARepeatedReplyIsTakenForTheReplyToTheNextFrame) {
  sim_network::SetAnswer([first = true](const sim_network::Datagram& reply) mutable {
    const bool isFirst = std::exchange(first, false);
    return isFirst ? std::vector(4, reply) : std::vector<sim_network::Datagram>();
  });
  const std::unique_ptr<TCBase::DeviceBase> device = TCBase::CreateDevice(SelectedTank());
  ASSERT_TRUE(device->Connect());
  EXPECT_TRUE(device->UploadMode(0, "A", {GivenStep(0, 0, {}), GivenStep(12, 0, {})}));
  EXPECT_EQ(SentCommands(), "0101 0102*2 040A");
  EXPECT_FALSE(device->ClearAll());
}

}  // namespace
