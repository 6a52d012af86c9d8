#include "tests/devices/device_test.h"

#include <cstdio>

#include "common/log.h"
#include "program/demo_state.h"
#include "tests/support/sim_network.h"

using TCBase::DeviceInfo;
using TCBase::Program::Mode;
using TCBase::Program::ModeListView;
using TCBase::Program::ModeStep;
using TCBase::Program::Step;

namespace {

std::string Take(LogChannel& channel) {
  std::string text;
  channel.textHandler = [&text](const std::string& item) { text += item == "\r\n" ? "\n" : item; };
  channel.Drain();
  channel.textHandler = nullptr;
  return text;
}

Step StepAt(const char* time, int value) {
  Step step;
  std::sscanf(time, "%d:%d", &step.hour, &step.minute);
  step.value = static_cast<float>(value);
  return step;
}

}  // namespace

std::string FromHex(std::string_view hex) {
  std::string bytes;
  while (!hex.empty()) {
    const std::string_view word = hex.substr(0, hex.find(' '));
    hex.remove_prefix(std::min(hex.size(), word.size() + 1));
    const auto byte = static_cast<char>(std::stoi(std::string(word.substr(0, 2)), nullptr, 16));
    bytes.append(word.size() > 3 ? static_cast<std::size_t>(std::stoi(std::string(word.substr(3)))) : 1,
                 byte);
  }
  return bytes;
}

Mode GivenMode(const std::string& name, std::initializer_list<Row> rows) {
  Mode mode;
  mode.name = name;
  for (const Row& row : rows) {
    for (std::size_t i = 0; i < mode.channels.size(); ++i) {
      mode.channels[i].push_back(StepAt(row.time, row.values[i]));
    }
  }
  return mode;
}

ModeListView GivenProgram(std::initializer_list<Mode> modes) {
  ModeListView program;
  program.modes = modes;
  return program;
}

Mode GivenRamp(const std::string& name) {
  Mode mode = GivenMode(name, {{"00:00", {0, 0, 0, 0, 0}}, {"23:59", {96, 96, 96, 96, 96}}});
  for (TCBase::Program::Channel& channel : mode.channels) channel.back().jump = true;
  return mode;
}

ModeStep GivenStep(int hour, int minute, std::array<int, 5> values, std::array<bool, 5> jumps) {
  return {hour, minute, values, jumps};
}

DeviceInfo GivenDevice(TCBase::DeviceModel model, const std::string& name, bool selected) {
  DeviceInfo info;
  info.model = model;
  info.name = name;
  info.selected = selected;
  return info;
}

DeviceInfo SelectedTC420() {
  return GivenDevice(TCBase::ModelTC420, "TC420");
}
DeviceInfo SelectedTC421() {
  return GivenDevice(TCBase::ModelTC421USB, "TC421");
}
DeviceInfo SelectedEmulator() {
  return GivenDevice(TCBase::ModelEmulator, "TC420_Emulator");
}

std::string ToText(const std::vector<DeviceInfo>& devices) {
  std::string text;
  for (const DeviceInfo& device : devices) {
    if (!text.empty()) text += ' ';
    text += device.name;
    if (device.selected) text += '*';
  }
  return text;
}

std::string TakeStatus() {
  return Take(statusLog);
}

std::string TakeWarnings() {
  return Take(warningLog);
}

std::string TakeTrace() {
  return Take(deviceLog);
}

std::vector<std::string> PacketsIn(const std::string& trace) {
  constexpr std::string_view kMark = "WritePacket: ";
  std::vector<std::string> packets;
  for (std::size_t at = trace.find(kMark); at != std::string::npos; at = trace.find(kMark, at + 1)) {
    const std::size_t begin = at + kMark.size();
    packets.push_back(trace.substr(begin, trace.find('\n', begin) - begin));
  }
  return packets;
}

void DeviceTest::SetUp() {
  virtual_clock::Reset();
  sim_hidapi::Reset();
  sim_network::Reset();
  demoState.TakeCommand();
  demoState.SetIdle();
  TakeStatus();
  TakeWarnings();
  TakeTrace();
}

void DeviceTest::TearDown() {
  EXPECT_EQ(sim_hidapi::OpenHandles(), 0);
  EXPECT_EQ(sim_network::OpenSockets(), 0);
  virtual_clock::Reset();
}

void DeviceTest::ExpectNoViolations() {
  EXPECT_THAT(sim_hidapi::Violations(), testing::IsEmpty());
}

std::string DeviceTest::Commands(sim_hidapi::Family family) {
  const std::vector<sim::Received> frames = sim_hidapi::Frames(family);
  std::string text;
  for (std::size_t i = 0; i < frames.size();) {
    const std::string command = frames[i].frame.substr(2, family == sim_hidapi::Family::TC421 ? 2 : 1);
    std::size_t end = i + 1;
    while (end < frames.size() && frames[end].frame.substr(2, command.size()) == command) ++end;
    std::string word = sim::ToHex(command);
    std::erase(word, ' ');
    if (!text.empty()) text += ' ';
    text += word;
    if (end - i > 1) text.append("*").append(std::to_string(end - i));
    i = end;
  }
  return text;
}
