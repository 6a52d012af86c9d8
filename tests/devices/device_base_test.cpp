// The public face of a device: each operation traces its name and forwards.

#include "devices/device_base.h"

#include "tests/devices/device_test.h"

namespace {

// Notes what reaches it, and fails when told to.
class RecordingDevice : public TCBase::DeviceBase {
 public:
  bool Connect() override { return true; }
  bool Write(const std::string& frame) override {
    calls += "Write(" + std::to_string(frame.size()) + ") ";
    return answer;
  }
  bool Read(std::string& /*reply*/) override { return answer; }
  bool SendPacket(const TCBase::PacketBase& packet, int expected) override {
    return WritePacket(packet) && CheckReply("", expected);
  }

  std::string calls;
  bool answer = true;

 protected:
  bool Note(const char* name) {
    calls += std::string(name) + ' ';
    return answer;
  }
  bool DoClearAll() override { return Note("DoClearAll"); }
  bool DoTimeSync(const DateTime& time) override {
    calls += std::to_string(time.year) + ' ';
    return Note("DoTimeSync");
  }
  void DoUploadStart() override { Note("DoUploadStart"); }
  bool DoUploadMode(int bank, const std::string& name, const Steps& steps) override {
    calls += std::to_string(bank) + name + std::to_string(steps.size()) + ' ';
    return Note("DoUploadMode");
  }
  void DoUploadFinish() override { Note("DoUploadFinish"); }
  void DoDemoStart(const std::string& name) override {
    calls += name + ' ';
    Note("DoDemoStart");
  }
  void DoDemoSetChannels(const TCBase::Program::ModeStep& step) override {
    calls += std::to_string(step.values[0]) + ' ';
    Note("DoDemoSetChannels");
  }
  void DoDemoFinish() override { Note("DoDemoFinish"); }
};

class DeviceBaseTest : public DeviceTest {
 protected:
  static constexpr const char* kStamp = "9:26:53:589 ";
};

TEST_F(DeviceBaseTest, EachOperationTracesItsNameWithATimeStampAndForwards) {
  RecordingDevice device;
  EXPECT_TRUE(device.ClearAll());
  EXPECT_TRUE(device.TimeSync({2026, 3, 14, 9, 26, 53, 0}));
  device.UploadStart();
  EXPECT_TRUE(device.UploadMode(3, "Noon", {GivenStep(1, 2, {})}));
  device.UploadFinish();
  device.DemoStart("Dusk");
  device.DemoSetChannels(GivenStep(0, 0, {7, 0, 0, 0, 0}));
  device.DemoFinish();
  EXPECT_EQ(device.calls,
            "DoClearAll 2026 DoTimeSync DoUploadStart 3Noon1 DoUploadMode DoUploadFinish Dusk DoDemoStart "
            "7 DoDemoSetChannels DoDemoFinish ");
  std::string expected;
  for (const char* name : {"ClearAll", "TimeSync", "UploadStart", "UploadMode", "UploadFinish", "DemoStart",
                           "DemoSetChannels", "DemoFinish"}) {
    expected += std::string(kStamp) + name + "\n";
  }
  EXPECT_EQ(TakeTrace(), expected);
}

TEST_F(DeviceBaseTest, TheAnswersOfTheThreeThatAnswerAreHandedOn) {
  RecordingDevice device;
  device.answer = false;
  EXPECT_FALSE(device.ClearAll());
  EXPECT_FALSE(device.TimeSync({}));
  EXPECT_FALSE(device.UploadMode(0, "Noon", {}));
}

TEST_F(DeviceBaseTest, WritePacketTracesTheDescriptionWithoutAStampAndWritesTheFrame) {
  RecordingDevice device;
  class Packet : public TCBase::PacketBase {
   public:
    Packet() : PacketBase(1) { description = "Packet_Test()"; }
    std::size_t MaxPayload() const override { return 0; }
    void Serialize(std::string& out) const override { out = out.empty() ? "frame" : "not empty"; }
  };
  EXPECT_TRUE(device.WritePacket(Packet()));
  EXPECT_EQ(device.calls, "Write(5) ");
  EXPECT_EQ(TakeTrace(), "WritePacket: Packet_Test()\n");
  device.answer = false;
  EXPECT_FALSE(device.WritePacket(Packet()));
}

TEST_F(DeviceBaseTest, AnyReplyWillDoUnlessADeviceSaysOtherwise) {
  RecordingDevice device;
  EXPECT_TRUE(device.CheckReply("", -1));
  EXPECT_TRUE(device.CheckReply("", 0x70));
}

TEST(DeviceInfoTest, ADefaultOneIsOfNoModelNamelessAndNotSelected) {
  const TCBase::DeviceInfo info;
  EXPECT_EQ(info.model, 0);
  EXPECT_EQ(info.name, "");
  EXPECT_FALSE(info.selected);
  EXPECT_EQ(info.address, TCBase::Ipv4Address());
}

TEST(DeviceInfoTest, TwoAreTheSameDeviceWhenModelAndNameAreEqual) {
  const TCBase::DeviceInfo tc420 = SelectedTC420();
  TCBase::DeviceInfo other = tc420;
  other.selected = false;
  other.address.port[0] = 1;
  EXPECT_TRUE(TCBase::IsSameDevice(tc420, other));
  other.name = "TC42";
  EXPECT_FALSE(TCBase::IsSameDevice(tc420, other));
  other = tc420;
  other.model = TCBase::ModelEmulator;
  EXPECT_FALSE(TCBase::IsSameDevice(tc420, other));
}

TEST(DeviceInfoTest, ListsAreSortedByTheBytesOfTheName) {
  std::vector<TCBase::DeviceInfo> devices;
  for (const char* name : {"B", "AB", "\xC3\x84", "a", "A"}) {
    devices.push_back(GivenDevice(TCBase::ModelTC421UDP, name, false));
  }
  TCBase::SortDevices(devices);
  EXPECT_EQ(ToText(devices), "A AB B a \xC3\x84");
}

}  // namespace
