// The simulated controllers must object to what a real one would not understand, or the tests that lean on
// them prove nothing.

#include "simulator/controller.h"

#include "devices/tc420.h"
#include "devices/tc421.h"
#include "tests/devices/device_test.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

std::string FrameOf(const TCBase::PacketBase& packet) {
  std::string frame;
  packet.Serialize(frame);
  return frame;
}

// What a fresh controller says to these frames, 20 ms apart.
std::vector<std::string> Objections(std::unique_ptr<sim::Controller> controller,
                                    const std::vector<std::string>& frames) {
  double seconds = 0.0;
  for (const std::string& frame : frames) controller->Receive(frame, seconds += 0.020);
  return controller->Violations();
}

std::string With(std::string frame, std::size_t offset, int value) {
  frame[offset] = static_cast<char>(value);
  return frame;
}

const TCBase::DeviceInfo kUsb = GivenDevice(TCBase::ModelTC421USB, "");
const TCBase::Program::ModeStep kDawn = GivenStep(6, 0, {1, 2, 3, 4, 5});
const TCBase::Program::ModeStep kDusk = GivenStep(20, 0, {1, 2, 3, 4, 5});

TEST(SimulatedTC420, ObjectsToADamagedFrame) {
  const std::string good = FrameOf(TC420::Packet_ClearAll());
  EXPECT_THAT(Objections(sim::MakeTC420(), {good}), IsEmpty());
  const struct {
    std::string frame;
    const char* objection;
  } cases[] = {
      {good.substr(0, 63), "frame 1: it has 63 bytes"},
      {With(good, 0, 0), "frame 1: the first byte is 00, not 55"},
      {With(good, 3, 1), "frame 1: the byte behind the command is 01, not 00"},
      {With(good, 61, 9), "frame 1: the checksum is 09, not 02"},
      {With(good, 62, 0), "frame 1: the first byte of the tail is 00, not 0D"},
      {With(With(good, 4, 1), 61, 3), "frame 1: the length is 01, not 00"},
      {With(With(good, 2, 0x44), 61, 0x43), "frame 1: there is no command 44"},
      {With(With(good, 60, 1), 61, 3), "not all bytes from 5 are zero"},
  };
  for (const auto& expected : cases) {
    EXPECT_THAT(Objections(sim::MakeTC420(), {expected.frame}), Contains(HasSubstr(expected.objection)));
  }
}

TEST(SimulatedTC420, DoesNotAnswerADamagedFrame) {
  const auto controller = sim::MakeTC420();
  EXPECT_EQ(controller->Receive(With(FrameOf(TC420::Packet_ClearAll()), 61, 9), 0.0), "");
  EXPECT_EQ(controller->Receive(FrameOf(TC420::Packet_ClearAll()), 0.0).size(), 64U);
}

TEST(SimulatedTC420, ObjectsToTheWrongOrder) {
  const std::string init = FrameOf(TC420::Packet_ModeInit(0, 2, "A"));
  const std::string dawn = FrameOf(TC420::Packet_ModeStep(kDawn));
  const std::string dusk = FrameOf(TC420::Packet_ModeStep(kDusk));
  const std::string end = FrameOf(TC420::Packet_ModeStepsStop());
  const std::string stop = FrameOf(TC420::Packet_ModeStop());
  const std::string play = FrameOf(TC420::Packet_PlayInit("A"));
  const std::string live = FrameOf(TC420::Packet_PlaySetChannels(kDawn));
  EXPECT_THAT(Objections(sim::MakeTC420(), {init, dawn, dusk, end, stop, play, live, live, stop}), IsEmpty());
  const struct {
    std::vector<std::string> frames;
    const char* objection;
  } cases[] = {
      {{dawn}, "frame 1: a step without a mode"},
      {{end}, "frame 1: the end of a mode that has not begun"},
      {{init, init}, "frame 2: a mode begins before the one in hand has ended"},
      {{init, dawn, end}, "frame 3: 2 steps were announced and 1 came"},
      {{init, dusk, dawn}, "frame 3: a step that is not later than the one before"},
      {{init, stop}, "frame 2: an end before the mode in hand has ended"},
      {{init, play}, "frame 2: a demo begins inside a mode"},
      {{live}, "frame 1: live values without a demo"},
      {{play, play}, "frame 2: a demo begins during another"},
      {{play, init}, "frame 2: a mode begins during a demo"},
      {{play, FrameOf(TC420::Packet_ClearAll())}, "frame 2: a clear inside a mode or a demo"},
      {{FrameOf(TC420::Packet_ModeInit(64, 2, "A"))}, "frame 1: there is no bank 64"},
      {{FrameOf(TC420::Packet_ModeInit(0, 2, ""))}, "frame 1: the mode has no name"},
      {{init, FrameOf(TC420::Packet_ModeStep(GivenStep(24, 0, {})))}, "frame 2: a step off the day"},
      {{FrameOf(TC420::Packet_TimeSync({2026, 13, 1, 0, 0, 0, 0}))}, "frame 1: a moment that does not exist"},
  };
  for (const auto& expected : cases) {
    EXPECT_THAT(Objections(sim::MakeTC420(), expected.frames), Contains(expected.objection));
  }
}

TEST(SimulatedTC421, ObjectsToADamagedFrame) {
  const std::string good = FrameOf(TC421::Packet_ClearAll(kUsb));
  EXPECT_THAT(Objections(sim::MakeTC421(), {good}), IsEmpty());
  EXPECT_THAT(Objections(sim::MakeTC421(), {With(good, 63, 9)}),
              ElementsAre("frame 1: the checksum is 09, not 02"));
  EXPECT_THAT(Objections(sim::MakeTC421(), {With(good, 61, 2)}),
              ElementsAre("frame 1: byte 61 is 02, not 00"));
  EXPECT_THAT(Objections(sim::MakeTC421(), {FrameOf(TC420::Packet_ClearAll())}), testing::Not(IsEmpty()));
}

TEST(SimulatedTC421, ObjectsToStepsOutOfPlaceAndToHaste) {
  const std::string init = FrameOf(TC421::Packet_ModeInit(kUsb, 0, 2, "A"));
  const std::string dawn = FrameOf(TC421::Packet_ModeStep(kUsb, 0, kDawn));
  const std::string dusk = FrameOf(TC421::Packet_ModeStep(kUsb, 1, kDusk));
  const std::string end = FrameOf(TC421::Packet_ModeStepsStop(kUsb));
  EXPECT_THAT(Objections(sim::MakeTC421(), {init, dawn, dusk, end}), IsEmpty());
  EXPECT_THAT(Objections(sim::MakeTC421(), {init, dusk}),
              Contains("frame 2: the place of the step is 01, not 00"));
  EXPECT_THAT(Objections(sim::MakeTC421(), {FrameOf(TC421::Packet_ModeStop(kUsb))}),
              ElementsAre("frame 1: the end of a demo that has not begun"));
  const auto hasty = sim::MakeTC421();
  hasty->Receive(init, 0.0);
  hasty->Receive(dawn, 0.019);
  EXPECT_THAT(hasty->Violations(), ElementsAre("frame 2: less than 20 ms after the frame before"));
}

class SimulatedLibraryTest : public DeviceTest {};

TEST_F(SimulatedLibraryTest, AControllerPluggedInAgainKeepsItsMemory) {
  using sim_hidapi::Family;
  sim_hidapi::PlugIn(Family::TC420);
  {
    TC420::Device device;
    ASSERT_TRUE(device.Connect());
    EXPECT_TRUE(device.UploadMode(0, "A", {kDawn, kDusk}));
    sim_hidapi::PullOut(Family::TC420);
    EXPECT_FALSE(TC420::Device().Connect());
  }
  sim_hidapi::PlugIn(Family::TC420);
  EXPECT_TRUE(TC420::Device().Connect());
  EXPECT_EQ(sim_hidapi::MemoryOf(Family::TC420).banks.size(), 1U);
}

}  // namespace
