#include "devices/demo_state.h"

#include <utility>

namespace TCBase {

DemoState& demo_detail::TheDemoState() {
  static auto* const state = new DemoState;
  return *state;
}

namespace {

void Post(const WorkerCommand& command) {
  auto posted = std::make_unique<WorkerCommand>(command);
  const std::lock_guard lock(demoState.commandMutex);
  demoState.command = std::move(posted);
}

}  // namespace

void DemoState::SetIdle() {
  state = StateIdle;
  position = -1;
}

void DemoState::SetRunning(std::int32_t second, DemoPlayState playState) {
  position = second;
  state = playState;
}

void PostCommand(CommandType type) {
  Post({type});
}

void PostSeek(std::int32_t second) {
  Post({CommandSeek, second});
}

std::unique_ptr<WorkerCommand> TakeCommand() {
  const std::lock_guard lock(demoState.commandMutex);
  return std::move(demoState.command);
}

bool IsStop(const std::unique_ptr<WorkerCommand>& command) {
  return command != nullptr && command->type == CommandStop;
}

}  // namespace TCBase
