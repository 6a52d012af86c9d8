// What the simulated controllers understand: the two protocols, read from the controllers' side and written
// without the program's own constants, so that a slip there does not agree with itself here.

#include "tests/support/sim_controller.h"

namespace sim {

namespace {

constexpr double kTC421StepSeconds = 0.020;
constexpr double kTolerance = 1e-9;

std::uint8_t At(const std::string& frame, std::size_t offset) {
  return static_cast<std::uint8_t>(frame[offset]);
}

std::uint8_t Sum(const std::string& frame, std::size_t count) {
  unsigned sum = 0;
  for (std::size_t i = 0; i < count; ++i) sum += At(frame, i);
  return static_cast<std::uint8_t>(sum & 0xFF);
}

void ReadValues(const std::string& frame, std::size_t offset, TCBase::Program::ModeStep& step) {
  for (int& value : step.values) value = At(frame, offset++);
}

std::string_view View(const std::string& frame, std::size_t offset, std::size_t size) {
  return std::string_view(frame).substr(offset, size);
}

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

class TC421 : public Controller {
 protected:
  std::string Handle(const std::string& frame) override {
    bool good = ExpectByte(frame, 0, 0x55, "the first byte");
    good &= ExpectByte(frame, 1, 0xAA, "the second byte");
    good &= ExpectByte(frame, 4, 0x00, "the byte behind the commands");
    good &= ExpectZeros(frame, 49, 63);
    good &= ExpectByte(frame, 63, Sum(frame, 49), "the checksum");
    if (!good || !Act(frame)) return {};
    // The command, and behind it a text.
    std::string reply(64, '\0');
    reply.replace(0, 3, frame, 0, 3);
    reply.replace(4, 2, "ok");
    return reply;
  }

 private:
  bool ExpectPayload(const std::string& frame, std::size_t size) {
    return ExpectByte(frame, 5, static_cast<std::uint8_t>(size), "the length") &&
           ExpectZeros(frame, 6 + size, 49);
  }

  bool Act(const std::string& frame) {
    switch (At(frame, 2) << 8 | At(frame, 3)) {
      case 0x0101:
        if (!ExpectPayload(frame, 10)) return false;
        ExpectByte(frame, 14, 0x00, "the byte behind the name");
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
        EndMode();
        return true;
      case 0x05FE:
        if (!ExpectPayload(frame, 0)) return false;
        ClearAll();
        return true;
      case 0x0601:
        if (!ExpectPayload(frame, 10)) return false;
        ExpectByte(frame, 6, 1, "the transport");
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

  bool TakeStep(const std::string& frame) {
    ExpectPause();
    if (OpenSteps() >= 0) {
      ExpectByte(frame, 6, static_cast<std::uint8_t>(OpenSteps()), "the place of the step");
    }
    Step step;
    step.hour = At(frame, 7);
    step.minute = At(frame, 8);
    ReadValues(frame, 9, step);
    AddStep(step);
    return true;
  }

  void ExpectPause() {
    Expect(now_ - last_ >= kTC421StepSeconds - kTolerance, "less than 20 ms after the frame before");
  }
};

}  // namespace

std::unique_ptr<Controller> MakeTC420() {
  return std::make_unique<TC420>();
}

std::unique_ptr<Controller> MakeTC421() {
  return std::make_unique<TC421>();
}

}  // namespace sim
