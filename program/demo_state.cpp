#include "program/demo_state.h"

#include <utility>

namespace TCBase {

void DemoState::SetIdle() {
  state = StateIdle;
  position = -1;
}

void DemoState::SetRunning(std::int32_t second, DemoPlayState playState) {
  position = second;
  state = playState;
}

Program::ModeStep DemoState::Step() const {
  const std::lock_guard lock(stepMutex);
  return step;
}

void DemoState::SetStep(const Program::ModeStep& sent) {
  const std::lock_guard lock(stepMutex);
  step = sent;
}

void DemoState::PostCommand(CommandType type) {
  Post({type});
}

void DemoState::PostSeek(std::int32_t second) {
  Post({CommandSeek, second});
}

std::unique_ptr<WorkerCommand> DemoState::TakeCommand() {
  const std::lock_guard lock(commandMutex);
  return std::move(command);
}

void DemoState::Post(const WorkerCommand& posted) {
  auto fresh = std::make_unique<WorkerCommand>(posted);
  const std::lock_guard lock(commandMutex);
  command = std::move(fresh);
}

bool IsStop(const std::unique_ptr<WorkerCommand>& command) {
  return command != nullptr && command->type == CommandStop;
}

}  // namespace TCBase
