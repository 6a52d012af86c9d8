#pragma once

// What the tests of the device layer share: a bench with simulated controllers, virtual time and empty logs.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "devices/device_info.h"
#include "devices/operations.h"
#include "program/demo_state.h"
#include "program/program.h"
#include "tests/support/sim_hidapi.h"
#include "tests/support/virtual_clock.h"

/// The bytes of "55 AA 00*3 0D": hexadecimal, a run of one byte shortened.
std::string FromHex(std::string_view hex);

/// A row of steps, the same minutes in all channels: {"08:00", {0, 10, 20, 30, 40}}.
struct Row {
  const char* time;
  std::array<int, TCBase::Program::kChannelCount> values;
};
TCBase::Program::Mode GivenMode(const std::string& name, std::initializer_list<Row> rows);
TCBase::Program::ModeListView GivenProgram(std::initializer_list<TCBase::Program::Mode> modes);
/// Goes from 0 at midnight to 96 at 23:59 in all channels, and stays there for the last minute.
TCBase::Program::Mode GivenRamp(const std::string& name);

TCBase::Program::ModeStep GivenStep(int hour, int minute, std::array<int, 5> values,
                                    std::array<bool, 5> jumps = {});

TCBase::DeviceInfo GivenDevice(TCBase::DeviceModel model, const std::string& name, bool selected = true);
TCBase::DeviceInfo SelectedTC420();
TCBase::DeviceInfo SelectedTC421();
TCBase::DeviceInfo SelectedEmulator();

/// "TC420 TC421*": the names, ticked ones with an asterisk.
std::string ToText(const std::vector<TCBase::DeviceInfo>& devices);

/// Empties a channel and answers what it held, with plain line ends.
std::string TakeStatus();
std::string TakeWarnings();
std::string TakeTrace();
/// The trace lines that begin with "WritePacket: ", without that.
std::vector<std::string> PacketsIn(const std::string& trace);

/// Starts with nothing plugged in, the clock at zero and empty logs, and ends with all handles closed.
class DeviceTest : public testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  /// The controllers understood every frame.
  static void ExpectNoViolations();
  /// The command bytes of the frames that a family has received, run lengths shortened: "12 13*3 01 02".
  static std::string Commands(sim_hidapi::Family family);

  TCBase::DemoState demoState;
  const TCBase::OperationContext context{demoState};
};
