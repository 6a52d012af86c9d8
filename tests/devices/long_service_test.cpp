// A program that is left running: a year of looking for controllers, and ten thousand demos and uploads.
// Nothing grows. A program of its own, since it counts the allocations of its whole process.

#include <cstdint>
#include <functional>
#include <random>
#include <string>

#include "devices/usb_poll.h"
#include "tests/devices/every_operation.h"
#include "tests/support/heap_count.h"
#include "tests/support/run_length.h"

namespace {

using namespace every_operation;
using TCBase::OperationResult;

constexpr std::size_t kPollsOfADay = 24 * 3600 / 5;
// A block that leaked in one round of a hundred would be more.
constexpr std::int64_t kFewBlocks = 20;

class LongService : public NetworkTest {
 protected:
  void SetUp() override {
    NetworkTest::SetUp();
    poll_.onChange = [this](bool connected) { told_ = connected; };
    poll_.onForbidden = [this](bool forbidden) { toldForbidden_ = forbidden; };
  }

  int Below(int limit) { return static_cast<int>(random_() % static_cast<std::uint32_t>(limit)); }

  // What happens to a computer and its controller from time to time.
  void SomethingHappens() {
    switch (Below(4000)) {
      case 0:
        isThere_ ? sim_hidapi::PullOut(sim_hidapi::Family::TC420)
                 : sim_hidapi::PlugIn(sim_hidapi::Family::TC420);
        isThere_ = !isThere_;
        return;
      case 1:
        isAllowed_ = !isAllowed_;
        return sim_hidapi::SetAllowed(sim_hidapi::Family::TC420, isAllowed_);
      case 2:
        return virtual_clock::Advance(Below(100'000));
      case 3:
        return virtual_clock::SetLocalTime(
            {2000 + Below(60), 1 + Below(12), 1 + Below(28), Below(24), 0, 0, 0});
      default:
        return;
    }
  }
  void Poll() {
    SomethingHappens();
    virtual_clock::Advance(TCBase::kUsbPollSeconds);
    TCBase::PollUsb(poll_, TCBase::ControllerModelOf(TCBase::ModelTC420));
    TakeStatus();
  }
  // Any link, any speed, steered at any moment.
  void Demo() {
    const Link link = kLinks[Below(3)];
    StartOver(link);
    const int seconds = 1 + Below(10);
    constexpr TCBase::CommandType kCommands[] = {TCBase::CommandPause, TCBase::CommandResume,
                                                 TCBase::CommandStop};
    for (int i = Below(4); i > 0; --i)
      virtual_clock::At(Below(seconds * 1000) / 1000.0,
                        [this, type = kCommands[Below(3)]] { demoState.PostCommand(type); });
    virtual_clock::At(Below(seconds * 1000) / 1000.0,
                      [this, second = Below(86400)] { demoState.PostSeek(second); });
    virtual_clock::At(60.0, [this] { demoState.PostCommand(TCBase::CommandStop); });
    const OperationResult result = DemoOperation(DeviceOf(link), Program(), seconds, context).result;
    EXPECT_TRUE(result == OperationResult::Done || result == OperationResult::Cancelled);
    EXPECT_EQ(demoState.state, TCBase::StateIdle);
    EXPECT_FALSE(MemoryOf(link).playing);
    demoState.TakeCommand();
    TakeStatus();
    TakeTrace();
  }
  void Upload() {
    const Link link = kLinks[Below(3)];
    StartOver(link);
    EXPECT_EQ(UploadOperation(DeviceOf(link), Program(), context).result, OperationResult::Done);
    TakeStatus();
    TakeTrace();
  }
  // Buffers have found their sizes after a while.
  static void ExpectFlat(std::size_t rounds, const std::function<void()>& round) {
    for (std::size_t i = 0; i < rounds / 10 + 5; ++i) round();
    StartOver(Link::TC420);
    const std::int64_t before = heap_count::blocks;
    const std::int64_t bytes = heap_count::bytes;
    for (std::size_t i = 0; i < rounds; ++i) round();
    StartOver(Link::TC420);
    EXPECT_LE(heap_count::blocks - before, kFewBlocks);
    EXPECT_LE(heap_count::bytes - bytes, std::int64_t{100'000});
  }

  const virtual_clock::Alone alone;
  std::mt19937 random_{1};
  TCBase::UsbPoll poll_;
  bool isThere_ = false;
  bool isAllowed_ = true;
  bool told_ = false;
  bool toldForbidden_ = false;
};

TEST_F(LongService, OfAYearOfPollingKnowsAtAnyTimeWhatIsThere) {
  poll_.timer.Reset();
  const std::size_t polls = Rounds(1, 365) * kPollsOfADay;
  for (std::size_t i = 0; i < 1000; ++i) Poll();
  const std::int64_t before = heap_count::blocks;
  for (std::size_t i = 0; i < polls; ++i) {
    Poll();
    ASSERT_EQ(poll_.connected, isThere_ && isAllowed_) << "poll " << i;
    ASSERT_EQ(poll_.forbidden, isThere_ && !isAllowed_) << "poll " << i;
    ASSERT_EQ(told_, poll_.connected);
    ASSERT_EQ(toldForbidden_, poll_.forbidden);
  }
  EXPECT_LE(heap_count::blocks - before, kFewBlocks);
  EXPECT_EQ(sim_hidapi::OpenHandles(), 0);
}

TEST_F(LongService, OfTenThousandDemosIsFlat) {
  ExpectFlat(Rounds(30, 10'000), [this] { Demo(); });
}

TEST_F(LongService, OfTenThousandUploadsIsFlat) {
  ExpectFlat(Rounds(30, 10'000), [this] { Upload(); });
}

}  // namespace
