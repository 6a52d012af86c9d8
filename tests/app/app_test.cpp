#include "tests/app/app_test.h"

#include <algorithm>
#include <chrono>

#include "app/main_loop.h"
#include "common/log.h"
#include "program/builtin_modes.h"
#include "program/demo_state.h"
#include "program/program_file.h"
#include "tests/support/sim_hidapi.h"
#include "tests/support/virtual_clock.h"

using namespace TCBase::Program;

void AppTest::SetUp() {
  virtual_clock::Reset();
  sim_hidapi::Reset();
}

void AppTest::GivenTheProgramRuns() {
  user.Start();
  ASSERT_TRUE(user.IsRunning());
  logSeen_ = journalSeen_ = 0;
  // The lanes have come to where they stand: how much time passes in a test is the machine's affair, and
  // while they move the window's timer has them drawn.
  ASSERT_TRUE(WaitUntil([this] {
    virtual_clock::Advance(0.1);
    return !app::IsChartMoving(*user.State().renderer, user.State().chartLayout);
  }));
  NewLog();
  NewJournal();
}

void AppTest::GivenAnEditedProgram() {
  GivenTheProgramRuns();
  user.SendCommand(app::command::kAlign60);
  NewLog();
}

void AppTest::GivenSelection(int channel, int step) {
  user.State().selection.channel = channel;
  user.State().selection.step = step;
}

void AppTest::GivenSteps(int channel, std::initializer_list<std::pair<int, float>> steps) {
  GivenSelection(channel, -1);
  Channel(channel).clear();
  for (const auto& [minute, value] : steps) Channel(channel).push_back({minute / 60, minute % 60, value});
  RenumberSteps(Channel(channel));
}

void AppTest::GivenDemoAt(int second, TCBase::DemoPlayState state) {
  if (second < 0) {
    user.State().demoState.SetIdle();
  } else {
    user.State().demoState.SetRunning(second, state);
  }
}

void AppTest::GivenDevices(std::initializer_list<const char*> names, TCBase::DeviceModel model) {
  std::vector<TCBase::DeviceInfo> devices;
  for (std::string name : names) {
    const bool selected = name.ends_with('*');
    if (selected) name.pop_back();
    devices.push_back({model, name, {}, selected});
  }
  user.State().devices = devices;
  user.State().ctrls->FillDeviceList();
}

std::filesystem::path AppTest::GivenFile(const std::string& name) {
  ModeListView program = NewProgram();
  program.modes.front().name = name;
  std::filesystem::path path = folder / (name + ".xml");
  EXPECT_TRUE(SaveProgram(program, path));
  statusLog.Drain();
  return path;
}

std::filesystem::path AppTest::GivenFile(const std::string& name, std::string_view bytes) const {
  return FileWith(folder / PathFromUtf8(name), bytes);
}

bool AppTest::WaitUntil(const std::function<bool()>& isSo) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::minutes(3);
  while (!isSo()) {
    if (std::chrono::steady_clock::now() > end) return false;
    user.Turn();
  }
  return true;
}

std::string AppTest::NewLog() {
  user.Settle();
  std::string log = user.Log();
  log.erase(0, std::min(logSeen_, log.size()));
  logSeen_ += log.size();
  std::erase(log, '\r');
  return log;
}

int AppTest::UndoDepth() {
  return user.State().undoStack.index();
}

headless::Journal AppTest::NewJournal() {
  const headless::Journal& all = user.GetDesktop().journal;
  headless::Journal fresh(all.begin() + static_cast<std::ptrdiff_t>(journalSeen_), all.end());
  journalSeen_ = all.size();
  return fresh;
}
