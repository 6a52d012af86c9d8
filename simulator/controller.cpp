#include "simulator/controller.h"

#include <algorithm>
#include <cstdio>
#include <utility>

#include <nlohmann/json.hpp>

namespace sim {

namespace {

constexpr int kBanks = 64;
// Anybody on a network can send for as long as he likes.
constexpr std::size_t kMostKept = 100'000;

int ByteAt(std::string_view text, std::size_t offset) {
  return static_cast<unsigned char>(text[offset]);
}

std::string_view Unpadded(std::string_view text) {
  return text.substr(0, text.find('\0'));
}

std::string ValuesText(const TCBase::Program::ModeStep& step) {
  std::string text;
  for (const int value : step.values) {
    if (!text.empty()) text += ' ';
    text += std::to_string(value);
  }
  return text;
}

}  // namespace

std::string Controller::Receive(const std::string& frame, double seconds) {
  now_ = seconds;
  ++frameCount_;
  if (frames_.size() < kMostKept) frames_.push_back({seconds, frame});
  heard_.clear();
  std::string reply;
  if (Expect(frame.size() == 64, "it has " + std::to_string(frame.size()) + " bytes")) reply = Handle(frame);
  if (!heard_.empty()) last_ = seconds;
  return reply;
}

void Controller::BeginMode(int bank, int stepCount, std::string_view paddedName) {
  const std::string_view name = Unpadded(paddedName);
  Hear("mode " + std::to_string(bank + 1) + ", " + Quoted(name) + ", of " + std::to_string(stepCount) +
       " steps");
  Expect(!openBank_, "a mode begins before the one in hand has ended");
  Expect(!memory_.playing, "a mode begins during a demo");
  Expect(bank < kBanks, "there is no bank " + std::to_string(bank));
  openBank_ = bank;
  openCount_ = stepCount;
  Expect(!name.empty(), "the mode has no name");
  memory_.banks[bank] = {std::string(name), {}, false};
}

void Controller::AddStep(const Step& step) {
  Hear("step " + TCBase::Program::TimeText({step.hour, step.minute}) + " " + ValuesText(step));
  if (!Expect(openBank_.has_value(), "a step without a mode")) return;
  std::vector<Step>& steps = memory_.banks[*openBank_].steps;
  Expect(step.hour < 24 && step.minute < 60, "a step off the day");
  Expect(steps.empty() || MinuteOfDay(steps.back()) < MinuteOfDay(step),
         "a step that is not later than the one before");
  CheckValues(step);
  steps.push_back(step);
}

bool Controller::EndMode() {
  Hear("end of the mode");
  if (!Expect(openBank_.has_value(), "the end of a mode that has not begun")) return false;
  const int count = OpenSteps();
  const bool whole =
      Expect(count % 256 == openCount_,
             std::to_string(openCount_) + " steps were announced and " + std::to_string(count) + " came");
  if (!whole) return false;
  memory_.banks[*openBank_].closed = true;
  openBank_.reset();
  return true;
}

void Controller::BeginPlay(std::string_view paddedName) {
  const std::string_view name = Unpadded(paddedName);
  Hear("demo of " + Quoted(name));
  Expect(!openBank_, "a demo begins inside a mode");
  Expect(!memory_.playing, "a demo begins during another");
  memory_.playing = true;
  memory_.playName = name;
}

void Controller::SetLive(const Step& step) {
  Hear("live " + ValuesText(step));
  Expect(memory_.playing, "live values without a demo");
  CheckValues(step);
  memory_.live = step.values;
}

void Controller::EndPlay() {
  Hear("end of the demo");
  Expect(!openBank_, "an end before the mode in hand has ended");
  memory_.playing = false;
}

void Controller::ClearAll() {
  Hear("clear all");
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
  Hear("clock " + MomentText(time));
  Expect(time.month >= 1 && time.month <= 12 && time.day >= 1 && time.day <= 31 && time.hour < 24 &&
             time.minute < 60 && time.second < 60,
         "a moment that does not exist");
  memory_.clock = time;
}

void Controller::SetNetwork(const Wifi& wifi) {
  Hear("WiFi network " + Quoted(wifi.ssid) + ", security " + std::to_string(wifi.security) + ", encryption " +
       std::to_string(wifi.encryption));
  Expect(wifi.security == 1 || wifi.security == 2, "a protected network is WPA or WPA2");
  Expect(wifi.encryption == 1 || wifi.encryption == 2, "the encryption is AES or TKIP");
  memory_.wifi = wifi;
}

void Controller::SetPassword(std::string_view password) {
  Hear("WiFi password of " + std::to_string(password.size()) + " bytes");
  if (!Expect(memory_.wifi.has_value(), "a password without a network")) return;
  memory_.wifi->password = password;
  memory_.wifi->complete = true;
}

void Controller::SetOpenNetwork(std::string_view ssid) {
  Hear("open WiFi network " + Quoted(ssid));
  memory_.wifi = Wifi{std::string(ssid), 0, 0, "", true};
}

int Controller::OpenSteps() const {
  return openBank_ ? static_cast<int>(memory_.banks.at(*openBank_).steps.size()) : -1;
}

void Controller::Object(const std::string& what) {
  if (violations_.size() < kMostKept)
    violations_.push_back("frame " + std::to_string(frameCount_) + ": " + what);
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

std::string MomentText(const DateTime& time) {
  char text[64];
  std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d", time.year, time.month, time.day,
                time.hour, time.minute, time.second);
  return text;
}

std::string Quoted(std::string_view text) {
  constexpr int kNoIndent = -1;
  return nlohmann::json(text).dump(kNoIndent, ' ', true, nlohmann::json::error_handler_t::replace);
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
