#include "tests/support/sim_controller.h"

#include <algorithm>

namespace sim {

namespace {

constexpr int kBanks = 64;

int ByteAt(std::string_view text, std::size_t offset) {
  return static_cast<unsigned char>(text[offset]);
}

}  // namespace

std::string Controller::Receive(const std::string& frame, double seconds) {
  now_ = seconds;
  frames_.push_back({seconds, frame});
  std::string reply;
  if (Expect(frame.size() == 64, "it has " + std::to_string(frame.size()) + " bytes")) reply = Handle(frame);
  last_ = seconds;
  return reply;
}

void Controller::BeginMode(int bank, int stepCount, std::string_view paddedName) {
  Expect(!openBank_, "a mode begins before the one in hand has ended");
  Expect(!memory_.playing, "a mode begins during a demo");
  Expect(bank < kBanks, "there is no bank " + std::to_string(bank));
  openBank_ = bank;
  openCount_ = stepCount;
  const std::string_view name = paddedName.substr(0, paddedName.find('\0'));
  Expect(!name.empty(), "the mode has no name");
  memory_.banks[bank] = {std::string(name), {}, false};
}

void Controller::AddStep(const Step& step) {
  if (!Expect(openBank_.has_value(), "a step without a mode")) return;
  std::vector<Step>& steps = memory_.banks[*openBank_].steps;
  Expect(step.hour < 24 && step.minute < 60, "a step off the day");
  Expect(steps.empty() || steps.back().hour * 60 + steps.back().minute < step.hour * 60 + step.minute,
         "a step that is not later than the one before");
  CheckValues(step);
  steps.push_back(step);
}

void Controller::EndMode() {
  if (!Expect(openBank_.has_value(), "the end of a mode that has not begun")) return;
  StoredMode& mode = memory_.banks[*openBank_];
  const int count = OpenSteps();
  Expect(count % 256 == openCount_,
         std::to_string(openCount_) + " steps were announced and " + std::to_string(count) + " came");
  mode.closed = true;
  openBank_.reset();
}

void Controller::BeginPlay(std::string_view paddedName) {
  Expect(!openBank_, "a demo begins inside a mode");
  Expect(!memory_.playing, "a demo begins during another");
  memory_.playing = true;
  memory_.playName = paddedName.substr(0, paddedName.find('\0'));
}

void Controller::SetLive(const Step& step) {
  Expect(memory_.playing, "live values without a demo");
  CheckValues(step);
  memory_.live = step.values;
}

void Controller::EndPlay() {
  Expect(!openBank_, "an end before the mode in hand has ended");
  memory_.playing = false;
}

void Controller::ClearAll() {
  Expect(!openBank_ && !memory_.playing, "a clear inside a mode or a demo");
  memory_.banks.clear();
  ++memory_.clears;
}

void Controller::SetClock(std::string_view payload) {
  const DateTime time{ByteAt(payload, 0) * 256 + ByteAt(payload, 1),
                      ByteAt(payload, 2),
                      ByteAt(payload, 3),
                      ByteAt(payload, 4),
                      ByteAt(payload, 5),
                      ByteAt(payload, 6),
                      0};
  Expect(time.month >= 1 && time.month <= 12 && time.day >= 1 && time.day <= 31 && time.hour < 24 &&
             time.minute < 60 && time.second < 60,
         "a moment that does not exist");
  memory_.clock = time;
}

int Controller::OpenSteps() const {
  return openBank_ ? static_cast<int>(memory_.banks.at(*openBank_).steps.size()) : -1;
}

void Controller::Object(const std::string& what) {
  violations_.push_back("frame " + std::to_string(frames_.size()) + ": " + what);
}

bool Controller::Expect(bool good, const std::string& what) {
  if (!good) Object(what);
  return good;
}

bool Controller::ExpectZeros(const std::string& frame, std::size_t begin, std::size_t end) {
  return Expect(frame.find_first_not_of('\0', begin) >= end,
                "not all bytes from " + std::to_string(begin) + " are zero: " + ToHex(frame));
}

bool Controller::ExpectByte(const std::string& frame, std::size_t offset, std::uint8_t value,
                            const std::string& name) {
  return Expect(ByteAt(frame, offset) == value, name + " is " + ToHex(frame.substr(offset, 1)) + ", not " +
                                                    ToHex(std::string(1, static_cast<char>(value))));
}

void Controller::CheckValues(const Step& step) {
  Expect(std::all_of(step.values.begin(), step.values.end(), [](int value) { return value <= 100; }),
         "more than 100 percent");
}

std::string ToHex(std::string_view bytes) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  std::string hex;
  for (const char byte : bytes) {
    const auto value = static_cast<unsigned char>(byte);
    if (!hex.empty()) hex += ' ';
    hex += kDigits[value / 16];
    hex += kDigits[value % 16];
  }
  return hex;
}

}  // namespace sim
