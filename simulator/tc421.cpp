// What a simulated TC421 understands: the protocol read from the controller's side, and written without the
// program's own constants, so that a slip there does not agree with itself here.

#include <algorithm>

#include "simulator/controller.h"
#include "simulator/frame.h"

namespace sim {

namespace {

constexpr double kStepSeconds = 0.020;
constexpr double kClockTolerance = 1e-9;
// A network does not deliver at a steady pace.
constexpr double kNetworkTolerance = 0.005;

constexpr std::size_t kNameOffset = 49;
constexpr std::size_t kNameSize = 12;
constexpr std::size_t kNetworkChecksumOffset = 61;
constexpr std::size_t kChecksumOffset = 63;
constexpr std::size_t kTextOffset = 4;  // of a reply

class TC421 : public Controller {
 protected:
  enum class Transport : std::uint8_t { Network = 0, Usb = 1 };

  TC421(Transport transport, double paceTolerance) : transport_(transport), tolerance_(paceTolerance) {}

  bool ExpectHead(const std::string& frame) {
    bool good = ExpectByte(frame, 0, 0x55, "the first byte");
    good &= ExpectByte(frame, 1, 0xAA, "the second byte");
    good &= ExpectByte(frame, 4, 0x00, "the byte behind the commands");
    return good;
  }

  // It stands in one of two places, and the rest of the frame's end is zero.
  bool ExpectChecksum(const std::string& frame, std::size_t offset) {
    for (std::size_t at = kNetworkChecksumOffset; at <= kChecksumOffset; ++at) {
      const std::uint8_t wanted = at == offset ? Sum(frame, kNameOffset) : std::uint8_t{0};
      if (!ExpectByte(frame, at, wanted, at == offset ? "the checksum" : "byte " + std::to_string(at)))
        return false;
    }
    return true;
  }

  bool ExpectPayload(const std::string& frame, std::size_t size) {
    return ExpectByte(frame, 5, static_cast<std::uint8_t>(size), "the length") &&
           ExpectZeros(frame, 6 + size, kNameOffset);
  }

  // The command, and behind it a text.
  static std::string Reply(const std::string& frame, std::string_view text) {
    std::string reply(64, '\0');
    reply.replace(0, 3, frame, 0, 3);
    reply.replace(kTextOffset, text.size(), text);
    return reply;
  }

  static int CommandOf(const std::string& frame) { return At(frame, 2) << 8 | At(frame, 3); }

  // False if the frame was not understood, or what it ends is not whole.
  bool Act(const std::string& frame) {
    switch (CommandOf(frame)) {
      case 0x0101:
        if (!ExpectPayload(frame, 10)) return false;
        ExpectByte(frame, 14, 0x00, "the byte behind the name");
        nextStep_ = 0;
        BeginMode(At(frame, 6), At(frame, 15), View(frame, 7, 7));
        return true;
      case 0x0102:
        return ExpectPayload(frame, 8) && TakeStep(frame);
      case 0x0200:
        if (!ExpectPayload(frame, 7)) return false;
        SetClock(View(frame, 6, 7));
        return true;
      case 0x0308:
        if (!ExpectPayload(frame, 0)) return false;
        Expect(GetMemory().playing, "the end of a demo that has not begun");
        EndPlay();
        return true;
      case 0x040A:
        if (!ExpectPayload(frame, 0)) return false;
        ExpectPause();
        return EndMode();
      case 0x05FE:
        if (!ExpectPayload(frame, 0)) return false;
        ClearAll();
        return true;
      case 0x0601:
        if (!ExpectPayload(frame, 10)) return false;
        ExpectByte(frame, 6, static_cast<std::uint8_t>(transport_), "the transport");
        ExpectZeros(frame, 14, 16);
        BeginPlay(View(frame, 7, 7));
        return true;
      case 0x0602: {
        if (!ExpectPayload(frame, 5)) return false;
        Step step;
        ReadValues(frame, 6, step);
        SetLive(step);
        return true;
      }
      default:
        Object("there is no command " + ToHex(frame.substr(2, 2)));
        return false;
    }
  }

 private:
  bool TakeStep(const std::string& frame) {
    ExpectPause();
    const std::uint8_t place = At(frame, 6);
    if (OpenSteps() >= 0) ExpectByte(frame, 6, nextStep_, "the place of the step");
    nextStep_ = static_cast<std::uint8_t>(place + 1);
    Step step;
    step.hour = At(frame, 7);
    step.minute = At(frame, 8);
    ReadValues(frame, 9, step);
    AddStep(step);
    return true;
  }

  void ExpectPause() {
    Expect(now_ - last_ >= kStepSeconds - tolerance_, "less than 20 ms after the frame before");
  }

  const Transport transport_;
  const double tolerance_;
  std::uint8_t nextStep_ = 0;
};

class UsbTC421 final : public TC421 {
 public:
  UsbTC421() : TC421(Transport::Usb, kClockTolerance) {}

 protected:
  std::string Handle(const std::string& frame) override {
    const bool good = ExpectHead(frame) && ExpectZeros(frame, kNameOffset, kNetworkChecksumOffset) &&
                      ExpectChecksum(frame, kChecksumOffset);
    return good && Act(frame) ? Reply(frame, "ok") : std::string();
  }
};

class NetworkTC421 final : public TC421 {
 public:
  NetworkTC421(const std::string& name, Acknowledgement acknowledgement)
      : TC421(Transport::Network, kNetworkTolerance),
        name_(name.substr(0, kLongestName)),
        acknowledgement_(acknowledgement) {}

 protected:
  std::string Handle(const std::string& frame) override {
    if (!ExpectHead(frame)) return {};
    // The one frame for the network that has its checksum where USB has it.
    const bool setsClock = CommandOf(frame) == 0x0200;
    if (!ExpectChecksum(frame, setsClock ? kChecksumOffset : kNetworkChecksumOffset)) return {};
    if (CommandOf(frame) == 0x1700) return AnswerSearch(frame);
    if (!ExpectName(frame)) return {};
    if (frame == lastFrame_) {
      Hear("the same again");
      return lastReply_;
    }
    lastReply_ = CommandOf(frame) == 0x1800 ? TakeWifi(frame) : Answer(frame);
    lastFrame_ = Heard().empty() ? std::string() : frame;
    return lastReply_;
  }

 private:
  static constexpr std::size_t kLongestName = 60;  // what a reply has room for

  std::string Answer(const std::string& frame) {
    if (!Act(frame)) return {};
    // A demo is not held up by replies.
    return At(frame, 2) == 0x06 ? std::string() : Reply(frame, "ok");
  }

  std::string AnswerSearch(const std::string& frame) {
    Hear("search");
    ExpectPayload(frame, 3);
    ExpectByte(frame, 6, 0xDD, "the first byte of the search");
    ExpectByte(frame, 7, 0xEE, "the second byte of the search");
    ExpectByte(frame, 8, 0xFF, "the third byte of the search");
    ExpectZeros(frame, kNameOffset, kNetworkChecksumOffset);
    return Reply(frame, name_);
  }

  // A frame for another controller is none for this one. Long texts show behind a name that is short.
  bool ExpectName(const std::string& frame) {
    std::string wanted = name_.substr(0, kNameSize);
    const bool mayHoldText = CommandOf(frame) == 0x1800;
    if (!mayHoldText) wanted.resize(kNameSize, '\0');
    const std::string name = frame.substr(kNameOffset, wanted.size());
    return Expect(name == wanted,
                  "it is for " + Quoted(name.c_str()) + ", not for " + Quoted(wanted.c_str()));
  }

  std::string TakeWifi(const std::string& frame) {
    const std::size_t length = At(frame, 5);
    switch (At(frame, 6)) {
      case 1:
        TakeNetwork(frame, length);
        return Acknowledge(frame, 'p');
      case 2:
        SetPassword(TextOf(frame, length));
        return Acknowledge(frame, 'r');
      case 3:
        SetOpenNetwork(TextOf(frame, length));
        return Acknowledge(frame, 't');
      default:
        Object("there is no WiFi setting " + ToHex(frame.substr(6, 1)));
        return {};
    }
  }

  void TakeNetwork(const std::string& frame, std::size_t length) {
    constexpr std::size_t kRoom = 32;
    Expect(length <= kRoom, "the SSID has " + std::to_string(length) + " bytes");
    length = std::min(length, kRoom);
    ExpectZeros(frame, 7 + length, 7 + kRoom);
    ExpectZeros(frame, 9 + kRoom, kNameOffset);
    SetNetwork({frame.substr(7, length), At(frame, 7 + kRoom), At(frame, 8 + kRoom), "", false});
  }

  // The text, cut where the room before the name ends.
  std::string TextOf(const std::string& frame, std::size_t length) {
    constexpr std::size_t kRoom = kNameOffset - 7;
    Expect(length <= kRoom, "of " + std::to_string(length) + " bytes " + std::to_string(kRoom) + " came");
    length = std::min(length, kRoom);
    ExpectZeros(frame, 7 + length, kNameOffset);
    return frame.substr(7, length);
  }

  std::string Acknowledge(const std::string& frame, char letter) const {
    return Reply(frame, std::string(1, acknowledgement_ == Acknowledgement::Right ? letter : '?'));
  }

  const std::string name_;
  const Acknowledgement acknowledgement_;
  // The last frame that was understood, and the reply to it.
  std::string lastFrame_;
  std::string lastReply_;
};

}  // namespace

std::unique_ptr<Controller> MakeTC421() {
  return std::make_unique<UsbTC421>();
}

std::unique_ptr<Controller> MakeNetworkTC421(const std::string& name, Acknowledgement acknowledgement) {
  return std::make_unique<NetworkTC421>(name, acknowledgement);
}

}  // namespace sim
