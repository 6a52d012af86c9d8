// The computer's clocks while an operation is under way: set forwards and backwards, an hour lost or gained,
// a new year; and a computer that sleeps, which lets both of its clocks go on without it. No operation fails
// by it.

#include <algorithm>
#include <string>

#include "tests/devices/every_operation.h"
#include "tests/support/run_length.h"

namespace {

using namespace every_operation;
using TCBase::OperationResult;

struct Change {
  const char* name;
  DateTime before;
  DateTime after;
  double suspended = 0.0;  // seconds
};

constexpr double kNight = 8 * 3600.0;

const Change kChanges[] = {
    {"Forwards", {2026, 3, 14, 9, 26, 53, 0}, {2027, 1, 1, 0, 0, 0, 0}},
    {"Backwards", {2026, 3, 14, 9, 26, 53, 0}, {2001, 1, 1, 0, 0, 0, 0}},
    {"BeforeTheCalendar", {2026, 3, 14, 9, 26, 53, 0}, {1970, 1, 1, 0, 0, 0, 0}},
    {"SummerBegins", {2026, 3, 29, 1, 59, 59, 900}, {2026, 3, 29, 3, 0, 0, 0}},
    {"SummerEnds", {2026, 10, 25, 2, 59, 59, 900}, {2026, 10, 25, 2, 0, 0, 0}},
    {"NewYear", {2026, 12, 31, 23, 59, 59, 900}, {2027, 1, 1, 0, 0, 0, 0}},
    {"Moment", {2026, 3, 14, 9, 26, 53, 0}, {2026, 3, 14, 9, 26, 56, 0}, 3.0},
    {"Night", {2026, 3, 14, 23, 0, 0, 0}, {2026, 3, 15, 7, 0, 0, 0}, kNight},
    {"Year", {2026, 3, 14, 23, 0, 0, 0}, {2027, 3, 14, 23, 0, 0, 0}, 365 * 3 * kNight},
};

class ClockChange : public NetworkTest, public testing::WithParamInterface<Case> {
 protected:
  const virtual_clock::Alone alone;

  static void Happen(const Change& change) {
    virtual_clock::Advance(change.suspended);
    virtual_clock::SetLocalTime(change.after);
  }
  void ExpectAllWell(Work work, Link link, const Fair& fair, const TCBase::OperationReport& report) {
    EXPECT_EQ(report.result, OperationResult::Done);
    EXPECT_TRUE(HasAll(work, MemoryOf(link), fair.memory));
    EXPECT_EQ(demoState.state, TCBase::StateIdle);
    EXPECT_THAT(sim_hidapi::Violations(), testing::IsEmpty());
    ExpectNoNetworkViolations();
    TakeStatus();
    TakeTrace();
  }
};

TEST_P(ClockChange, BehindAnyFrameDoesNoHarm) {
  const auto [link, work] = GetParam();
  const Fair fair = FairRun(work, link, demoState);
  const int stride = std::max(1, IsLongRun() ? 1 : fair.frames / 3);
  for (const Change& change : kChanges) {
    for (int frame = 0; frame <= fair.frames; frame += stride) {
      SCOPED_TRACE(std::string(change.name) + " behind frame " + std::to_string(frame));
      StartOver(link);
      virtual_clock::SetLocalTime(change.before);
      AtFrame changing(frame, [&change] { Happen(change); });
      ExpectAllWell(work, link, fair, Do(work, link, demoState, changing));
    }
  }
}

// While it waits: for a reply, which comes in the meantime, or between two modes.
TEST_P(ClockChange, WhileItWaitsDoesNoHarm) {
  const auto [link, work] = GetParam();
  const Fair fair = FairRun(work, link, demoState);
  const int moments = static_cast<int>(Rounds(3, 200));
  for (const Change& change : kChanges) {
    for (int i = 0; i < moments; ++i) {
      const double moment = 0.0011 + fair.seconds * i / moments;
      SCOPED_TRACE(std::string(change.name) + " at second " + std::to_string(moment));
      StartOver(link);
      // Replies take their time, so that there is something to wait for; a frame is not sent again for that.
      sim_network::SetWeather({}, {.delay = 1.0, .longestDelay = 0.02}, static_cast<std::uint32_t>(i));
      virtual_clock::SetLocalTime(change.before);
      virtual_clock::At(moment, [&change] { Happen(change); });
      AtFrame counter(-1, {});
      ExpectAllWell(work, link, fair, Do(work, link, demoState, counter));
      if (work != Work::Demo) {
        EXPECT_EQ(counter.Sent(), fair.frames) << "none was sent again";
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Everywhere, ClockChange, testing::ValuesIn(Cases()), [](const auto& test) {
  return std::string(NameOf(test.param.link)) + NameOf(test.param.work);
});

}  // namespace
