// What a simulated TC420 understands: the protocol read from the controller's side, and written without the
// program's own constants, so that a slip there does not agree with itself here.

#include "simulator/controller.h"
#include "simulator/frame.h"

namespace sim {

namespace {

class TC420 : public Controller {
 protected:
  std::string Handle(const std::string& frame) override {
    bool good = ExpectByte(frame, 0, 0x55, "the first byte");
    good &= ExpectByte(frame, 1, 0xAA, "the second byte");
    good &= ExpectByte(frame, 3, 0x00, "the byte behind the command");
    good &= ExpectByte(frame, 61, Sum(frame, 61), "the checksum");
    good &= ExpectByte(frame, 62, 0x0D, "the first byte of the tail");
    good &= ExpectByte(frame, 63, 0x0A, "the second byte of the tail");
    if (!good || !Act(frame)) return {};
    std::string reply(64, '\0');
    reply.replace(0, 3, frame, 0, 3);
    return reply;
  }

 private:
  // The length byte says how much payload there is, and nothing stands behind it.
  bool ExpectPayload(const std::string& frame, std::size_t size) {
    return ExpectByte(frame, 4, static_cast<std::uint8_t>(size), "the length") &&
           ExpectZeros(frame, 5 + size, 61);
  }

  bool Act(const std::string& frame) {
    switch (At(frame, 2)) {
      case 0x01:
        if (!ExpectPayload(frame, 0)) return false;
        EndMode();
        return true;
      case 0x02:
        if (!ExpectPayload(frame, 0)) return false;
        EndPlay();
        return true;
      case 0x03:
        if (!ExpectPayload(frame, 0)) return false;
        ClearAll();
        return true;
      case 0x11:
        if (!ExpectPayload(frame, 7)) return false;
        SetClock(View(frame, 5, 7));
        return true;
      case 0x12:
        if (!ExpectPayload(frame, 10)) return false;
        BeginMode(At(frame, 5), At(frame, 6), View(frame, 7, 8));
        return true;
      case 0x13:
        return ExpectPayload(frame, 8) && TakeStep(frame);
      case 0x15:
        if (!ExpectPayload(frame, 8)) return false;
        ExpectByte(frame, 11, 0x00, "the byte behind the name");
        ExpectByte(frame, 12, 0xFD, "the last byte");
        BeginPlay(View(frame, 5, 6));
        return true;
      case 0x16:
        return ExpectPayload(frame, 7) && TakeLive(frame);
      default:
        Object("there is no command " + ToHex(frame.substr(2, 1)));
        return false;
    }
  }

  bool TakeStep(const std::string& frame) {
    Step step;
    step.hour = At(frame, 5);
    step.minute = At(frame, 6);
    ReadValues(frame, 7, step);
    for (std::size_t i = 0; i < step.jumps.size(); ++i) step.jumps[i] = (At(frame, 12) >> i & 1) != 0;
    Expect(At(frame, 12) < 32, "jump flags for channels that do not exist");
    AddStep(step);
    return true;
  }

  bool TakeLive(const std::string& frame) {
    ExpectByte(frame, 5, 0xF5, "the first byte of the payload");
    ExpectByte(frame, 11, 0x00, "the last byte of the payload");
    Step step;
    ReadValues(frame, 6, step);
    SetLive(step);
    return true;
  }
};

}  // namespace

std::unique_ptr<Controller> MakeTC420() {
  return std::make_unique<TC420>();
}

}  // namespace sim
