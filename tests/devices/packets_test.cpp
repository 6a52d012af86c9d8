// The wire, byte for byte: every packet of both protocols as a complete frame, and its line in the trace.

#include <climits>
#include <functional>

#include "devices/packet_text.h"
#include "devices/tc420.h"
#include "devices/tc421.h"
#include "tests/devices/device_test.h"

namespace {

using TCBase::DeviceInfo;
using TCBase::PacketBase;

const DateTime kMoment{2026, 3, 14, 9, 26, 53, 589};

TCBase::Program::ModeStep ExampleStep() {
  return GivenStep(8, 5, {0, 10, 20, 30, 100}, {true, false, true, false, false});
}

DeviceInfo OnUsb() {
  return GivenDevice(TCBase::ModelTC421USB, "");
}
DeviceInfo OnUdp() {
  return GivenDevice(TCBase::ModelTC421UDP, "Smart-123456");
}

std::string FrameOf(const PacketBase& packet) {
  std::string frame = "what stood there before";
  packet.Serialize(frame);
  return frame;
}

struct WireCase {
  const char* frame;
  const char* description;
  std::function<std::unique_ptr<PacketBase>()> make;
};

template <class Packet, class... Arguments>
std::function<std::unique_ptr<PacketBase>()> Make(Arguments... arguments) {
  return [=] { return std::make_unique<Packet>(arguments...); };
}

void ExpectOnTheWire(const WireCase& expected) {
  const std::unique_ptr<PacketBase> packet = expected.make();
  ASSERT_EQ(FromHex(expected.frame).size(), 64U) << expected.frame;
  EXPECT_EQ(sim::ToHex(FrameOf(*packet)), sim::ToHex(FromHex(expected.frame))) << expected.description;
  EXPECT_EQ(packet->description, expected.description);
  EXPECT_TRUE(packet->IsValid());
}

const char kSync[] = "Packet_TimeSync(Year=2026, Month=03, Day=14, Hour=09, Minute=26, Second=53)";
const char kSteps[] = "Packet_ModeStep(Hour=08, Minute=05, Steps=(0 10 20 30 100), JumpsFlags=5)";
const char kOpenSteps[] = "Packet_ModeStep(Hour=08, Minute=05, Steps=(0 10 20 30 100";

TEST(TC420Wire, EveryPacketIsTheTabledFrame) {
  const WireCase cases[] = {
      {"55 AA 11 00 07 07 EA 03 0E 09 1A 35 00*49 71 0D 0A", kSync, Make<TC420::Packet_TimeSync>(kMoment)},
      {"55 AA 12 00 0A 02 30 53 75 6E 73 65 74 20 31 00*46 20 0D 0A",
       "Packet_ModeInit(Bank=2, Length=48, Name=Sunset 1)", Make<TC420::Packet_ModeInit>(2, 48U, "Sunset 1")},
      {"55 AA 13 00 08 08 05 00 0A 14 1E 64 05 00*48 CC 0D 0A", kSteps,
       Make<TC420::Packet_ModeStep>(ExampleStep())},
      {"55 AA 01 00*58 00 0D 0A", "Packet_ModeStepsStop()", Make<TC420::Packet_ModeStepsStop>()},
      {"55 AA 02 00*58 01 0D 0A", "Packet_ModeStop()", Make<TC420::Packet_ModeStop>()},
      {"55 AA 03 00*58 02 0D 0A", "Packet_ClearAll()", Make<TC420::Packet_ClearAll>()},
      {"55 AA 15 00 08 53 75 6E 73 65 74 00 FD 00*48 9B 0D 0A", "Packet_PlayInit(Name=Sunset)",
       Make<TC420::Packet_PlayInit>("Sunset")},
      {"55 AA 16 00 07 F5 00 0A 14 1E 64 00*50 B1 0D 0A", "Packet_PlaySetChannels(0 10 20 30 100)",
       Make<TC420::Packet_PlaySetChannels>(ExampleStep())},
  };
  for (const WireCase& expected : cases) ExpectOnTheWire(expected);
}

TEST(TC421Wire, EveryPacketOnUsbIsTheTabledFrame) {
  const WireCase cases[] = {
      {"55 AA 02 00 00 07 07 EA 03 0E 09 1A 35 00*50 62", kSync,
       Make<TC421::Packet_TimeSync>(OnUsb(), kMoment)},
      {"55 AA 01 01 00 0A 02 53 75 6E 73 65 74 20 00 30 00*47 DF",
       "Packet_ModeInit(Bank=2, Length=48, Name=Sunset 1)",
       Make<TC421::Packet_ModeInit>(OnUsb(), 2, 48U, "Sunset 1")},
      {"55 AA 01 02 00 08 03 08 05 00 0A 14 1E 64 00*49 BA", kOpenSteps,
       Make<TC421::Packet_ModeStep>(OnUsb(), 3U, ExampleStep())},
      {"55 AA 04 0A 00*59 0D", "Packet_ModeStepsStop()", Make<TC421::Packet_ModeStepsStop>(OnUsb())},
      {"55 AA 03 08 00*59 0A", "Packet_ModeStop()", Make<TC421::Packet_ModeStop>(OnUsb())},
      {"55 AA 05 FE 00*59 02", "Packet_ClearAll()", Make<TC421::Packet_ClearAll>(OnUsb())},
      {"55 AA 06 01 00 0A 01 53 75 6E 73 65 74 20 00*49 B3", "Packet_PlayInit(Name=Sunset 1)",
       Make<TC421::Packet_PlayInit>(OnUsb(), "Sunset 1")},
      {"55 AA 06 02 00 05 00 0A 14 1E 64 00*52 AC", "Packet_PlaySetChannels(0 10 20 30 100)",
       Make<TC421::Packet_PlaySetChannels>(OnUsb(), ExampleStep())},
  };
  for (const WireCase& expected : cases) ExpectOnTheWire(expected);
}

// The name of the controller and another place for the checksum; the time alone keeps its checksum at the
// end.
TEST(TC421Wire, EveryPacketOnUdpIsTheTabledFrame) {
  const WireCase cases[] = {
      {"55 AA 02 00 00 07 07 EA 03 0E 09 1A 35 00*36 53 6D 61 72 74 2D 31 32 33 34 35 36 00 00 62", kSync,
       Make<TC421::Packet_TimeSync>(OnUdp(), kMoment)},
      {"55 AA 01 01 00 0A 02 53 75 6E 73 65 74 20 00 30 00*33 53 6D 61 72 74 2D 31 32 33 34 35 36 DF 00 00",
       "Packet_ModeInit(Bank=2, Length=48, Name=Sunset 1)",
       Make<TC421::Packet_ModeInit>(OnUdp(), 2, 48U, "Sunset 1")},
      {"55 AA 01 02 00 08 03 08 05 00 0A 14 1E 64 00*35 53 6D 61 72 74 2D 31 32 33 34 35 36 BA 00 00",
       kOpenSteps, Make<TC421::Packet_ModeStep>(OnUdp(), 3U, ExampleStep())},
      {"55 AA 04 0A 00*45 53 6D 61 72 74 2D 31 32 33 34 35 36 0D 00 00", "Packet_ModeStepsStop()",
       Make<TC421::Packet_ModeStepsStop>(OnUdp())},
      {"55 AA 03 08 00*45 53 6D 61 72 74 2D 31 32 33 34 35 36 0A 00 00", "Packet_ModeStop()",
       Make<TC421::Packet_ModeStop>(OnUdp())},
      {"55 AA 05 FE 00*45 53 6D 61 72 74 2D 31 32 33 34 35 36 02 00 00", "Packet_ClearAll()",
       Make<TC421::Packet_ClearAll>(OnUdp())},
      {"55 AA 06 01 00 0A 00 53 75 6E 73 65 74 20 00*35 53 6D 61 72 74 2D 31 32 33 34 35 36 B2 00 00",
       "Packet_PlayInit(Name=Sunset 1)", Make<TC421::Packet_PlayInit>(OnUdp(), "Sunset 1")},
      {"55 AA 06 02 00 05 00 0A 14 1E 64 00*38 53 6D 61 72 74 2D 31 32 33 34 35 36 AC 00 00",
       "Packet_PlaySetChannels(0 10 20 30 100)", Make<TC421::Packet_PlaySetChannels>(OnUdp(), ExampleStep())},
  };
  for (const WireCase& expected : cases) ExpectOnTheWire(expected);
}

TEST(TC420Wire, ALongNameIsSentAsItsFirst8BytesInModeInitAndItsFirst6InPlayInit) {
  const TC420::Packet_ModeInit init(0, 2, "ABCDEFGHIJ");
  EXPECT_EQ(FrameOf(init).substr(7, 9), std::string("ABCDEFGH\0", 9));
  EXPECT_EQ(init.description, "Packet_ModeInit(Bank=0, Length=2, Name=ABCDEFGH)");
  const TC420::Packet_PlayInit play("ABCDEFGHIJ");
  EXPECT_EQ(FrameOf(play).substr(5, 8), std::string("ABCDEF\0\xFD", 8));
  // The line shows the whole name, though six bytes are sent.
  EXPECT_EQ(play.description, "Packet_PlayInit(Name=ABCDEFGHIJ)");
}

TEST(TC420Wire, AShortNameIsFilledWithZeros) {
  EXPECT_EQ(FrameOf(TC420::Packet_ModeInit(0, 2, "A")).substr(7, 8), std::string("A\0\0\0\0\0\0\0", 8));
  EXPECT_EQ(FrameOf(TC420::Packet_PlayInit("A")).substr(5, 8), std::string("A\0\0\0\0\0\0\xFD", 8));
}

TEST(TC420Wire, AStepCountOf256IsSentAsZeroAndLoggedAsItIs) {
  const TC420::Packet_ModeInit init(0, 256, "A");
  EXPECT_EQ(FrameOf(init)[6], 0);
  EXPECT_EQ(init.description, "Packet_ModeInit(Bank=0, Length=256, Name=A)");
}

TEST(TC420Wire, AChannelValueIsSentAndLoggedAsItsAbsoluteValueUpTo100) {
  const TC420::Packet_ModeStep packet(GivenStep(0, 0, {-30, 150, -150, INT_MIN, INT_MAX}));
  EXPECT_EQ(sim::ToHex(FrameOf(packet).substr(7, 5)), "1E 64 64 64 64");
  EXPECT_EQ(packet.description,
            "Packet_ModeStep(Hour=00, Minute=00, Steps=(30 100 100 100 100), JumpsFlags=0)");
}

TEST(TC420Wire, PlaySetChannelsCarriesNeitherJumpsNorTime) {
  const TC420::Packet_PlaySetChannels packet(
      GivenStep(23, 59, {1, 2, 3, 4, 5}, {true, true, true, true, true}));
  EXPECT_EQ(sim::ToHex(FrameOf(packet).substr(5, 9)), "F5 01 02 03 04 05 00 00 00");
}

TEST(TC420Wire, EachJumpHasItsBit) {
  for (std::size_t channel = 0; channel < 5; ++channel) {
    TCBase::Program::ModeStep step;
    step.jumps[channel] = true;
    EXPECT_EQ(FrameOf(TC420::Packet_ModeStep(step))[12], 1 << channel);
  }
}

TEST(TC420Wire, HourAndMinuteAreSentAsTheirLowBytes) {
  const TC420::Packet_ModeStep packet(GivenStep(0x1234, -1, {}));
  EXPECT_EQ(sim::ToHex(FrameOf(packet).substr(5, 2)), "34 FF");
}

TEST(TC420Wire, TheChecksumCoversNeitherTheTailNorItself) {
  const std::string frame = FrameOf(TC420::Packet_TimeSync(kMoment));
  unsigned sum = 0;
  for (std::size_t i = 0; i < 61; ++i) sum += static_cast<unsigned char>(frame[i]);
  EXPECT_EQ(static_cast<unsigned char>(frame[61]), sum % 256);
  EXPECT_EQ(frame[3], 0);
}

TEST(TC421Wire, ANameOf20BytesIsCutTo12AndOneOf3LeavesTheRestZero) {
  const std::string cut =
      FrameOf(TC421::Packet_ClearAll(GivenDevice(TCBase::ModelTC421UDP, "ABCDEFGHIJKLMNOPQRST")));
  EXPECT_EQ(cut.substr(49, 12), "ABCDEFGHIJKL");
  const std::string filled = FrameOf(TC421::Packet_ClearAll(GivenDevice(TCBase::ModelTC421UDP, "ABC")));
  EXPECT_EQ(filled.substr(49, 12), std::string("ABC\0\0\0\0\0\0\0\0\0", 12));
}

TEST(TC421Wire, TheNameDoesNotChangeTheChecksum) {
  const TC421::Packet_ClearAll named(OnUdp());
  const TC421::Packet_ClearAll nameless(GivenDevice(TCBase::ModelTC421UDP, ""));
  EXPECT_EQ(FrameOf(named)[61], FrameOf(nameless)[61]);
}

TEST(TC421Wire, OfAModeNameSevenBytesAreSentAndWhatWasGivenIsLogged) {
  const TC421::Packet_ModeInit packet(OnUsb(), 0, 256, "ABCDEFGH");
  EXPECT_EQ(FrameOf(packet).substr(7, 9), std::string("ABCDEFG\0\0", 9));
  EXPECT_EQ(packet.description, "Packet_ModeInit(Bank=0, Length=256, Name=ABCDEFGH)");
}

TEST(TC421Wire, TheStepIndexIsSentAsItsLowByteAndChannelsAreCapped) {
  const TC421::Packet_ModeStep packet(OnUsb(), 257, GivenStep(0, 0, {-30, 150, INT_MIN, 0, 1}));
  EXPECT_EQ(sim::ToHex(FrameOf(packet).substr(6, 8)), "01 00 00 1E 64 64 00 01");
}

// Stands for packets with more to say than fits.
template <class Family>
class Verbose : public Family {
 public:
  template <class... Arguments>
  explicit Verbose(std::size_t bytes, Arguments... arguments) : Family(arguments...) {
    for (std::size_t i = 0; i < bytes; ++i) this->Append(static_cast<std::int32_t>('A' + i % 26));
  }
};

TEST(PacketPayload, OfMoreThanFitsExactlyTheFirstBytesAreKept) {
  const std::string alphabets = "ABCDEFGHIJKLMNOPQRSTUVWXYZABCDEFGHIJKLMNOPQRSTUVWXYZABCD";
  const Verbose<TC420::Packet> tc420(70, std::uint8_t{0x7F});
  EXPECT_EQ(tc420.data, alphabets);
  EXPECT_EQ(FrameOf(tc420).size(), 64U);
  EXPECT_EQ(FrameOf(tc420).substr(5, 56), tc420.data);
  EXPECT_EQ(sim::ToHex(FrameOf(tc420).substr(62)), "0D 0A");

  const Verbose<TC421::Packet> tc421(70, std::uint8_t{0x7F}, std::uint8_t{0}, OnUsb());
  EXPECT_EQ(tc421.data, alphabets.substr(0, 54));
  EXPECT_EQ(FrameOf(tc421).substr(6, 54), tc421.data);
}

TEST(PacketPayload, TheDeviceNameIsWrittenOverAPayloadThatReachesIt) {
  const Verbose<TC421::Packet> packet(54, std::uint8_t{0x7F}, std::uint8_t{0}, OnUdp());
  EXPECT_EQ(FrameOf(packet).substr(6, 43), packet.data.substr(0, 43));
  EXPECT_EQ(FrameOf(packet).substr(49, 12), "Smart-123456");
}

TEST(PacketPayload, TheLengthByteIsThePayloadsUnlessThePacketSaysOtherwise) {
  Verbose<TC420::Packet> packet(3, std::uint8_t{0x7F});
  EXPECT_EQ(FrameOf(packet)[4], 3);
  packet.length = 0;
  EXPECT_EQ(FrameOf(packet)[4], 0);
  packet.length = 40;
  EXPECT_EQ(FrameOf(packet)[4], 40);
}

TEST(PacketPayload, WhatIsPutInBehindThePacketsBackCannotLeaveTheFrame) {
  Verbose<TC421::Packet> packet(0, std::uint8_t{0x7F}, std::uint8_t{0}, OnUsb());
  packet.data.assign(500, 'x');
  packet.deviceName.assign(500, 'y');
  EXPECT_EQ(FrameOf(packet).size(), 64U);
}

TEST(PacketText, PlaceholdersInAModeNameAreText) {
  EXPECT_EQ(TCBase::DescribeModeInit(1, 2, "{1}{3}"), "Packet_ModeInit(Bank=1, Length=2, Name={1}{3})");
  EXPECT_EQ(TCBase::DescribePlayInit("{1}"), "Packet_PlayInit(Name={1})");
}

}  // namespace
