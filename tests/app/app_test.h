#pragma once

// What the tests of the application share: a user in front of the headless shell, with a Documents folder of
// the test's own, time at zero, nothing plugged in and empty logs.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <string_view>

#include "app/window/numbers.h"
#include "program/program.h"
#include "tests/support/files.h"
#include "tests/support/headless_user.h"
#include "tests/support/temporary_folder.h"

class AppTest : public testing::Test {
 protected:
  void SetUp() override;

  // Given

  /// Started, with the built-in program and an empty log pane.
  void GivenTheProgramRuns();
  /// The same, with a change that is not saved.
  void GivenAnEditedProgram();
  void GivenSelection(int channel, int step);
  /// Selects the channel and gives it these steps, by minute of the day and percent.
  void GivenSteps(int channel, std::initializer_list<std::pair<int, float>> steps);
  /// The worker plays at this second, or does not (-1). The demo is not really there.
  void GivenDemoAt(int second, TCBase::DemoPlayState state = TCBase::StatePlaying);
  /// Lists these devices, as a scan would; those with an asterisk are ticked.
  void GivenDevices(std::initializer_list<const char*> names,
                    TCBase::DeviceModel model = TCBase::ModelTC421UDP);
  /// A program file of the test's folder.
  std::filesystem::path GivenFile(const std::string& name);
  /// A file of the test's folder with these bytes; the name in UTF-8.
  std::filesystem::path GivenFile(const std::string& name, std::string_view bytes) const;

  /// Turns the main loop until something is so; false if it is not within three minutes.
  bool WaitUntil(const std::function<bool()>& isSo);

  // Seeing

  /// What came to the log pane since the last call, with plain line ends.
  std::string NewLog();
  TCBase::Program::ModeListView& Program() { return user.State().program; }
  TCBase::Program::Mode& Mode() { return user.State().CurrentMode(); }
  TCBase::Program::Channel& Channel(int index) { return Mode().channels.at(static_cast<std::size_t>(index)); }
  int UndoDepth();
  headless::Journal NewJournal();

  TemporaryFolder folder;  // Documents, and whatever a test needs
  headless::HeadlessUser user{folder.path()};

 private:
  std::size_t logSeen_ = 0;
  std::size_t journalSeen_ = 0;
};
