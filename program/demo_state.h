#pragma once

// What a running demo shares between who plays it and who shows it, and the one slot through which the user
// interface steers whatever the worker is doing.

#include <atomic>
#include <cstdint>
#include <memory>
#include <mutex>

#include "program/program.h"

namespace TCBase {

enum DemoPlayState : std::int32_t { StateIdle = 0, StatePaused = 1, StatePlaying = 2 };

enum CommandType : std::int32_t { CommandStop = 0, CommandResume = 1, CommandPause = 2, CommandSeek = 3 };

struct WorkerCommand {
  std::int32_t type = CommandStop;  // a CommandType
  std::int32_t second = 0;          // of the day; CommandSeek only
};

/// Written by the worker thread, read by any. While a demo runs `position` is written before `state`, at its
/// end `state` before `position`: who reads a negative position sees no demo, whatever the state says.
struct DemoState {
  std::atomic<std::int32_t> state{StateIdle};  // a DemoPlayState
  std::atomic<std::int32_t> position{-1};      // second of the day; -1 when no demo runs

  mutable std::mutex stepMutex;
  Program::ModeStep step;  // the values last sent; guarded by stepMutex

  std::mutex commandMutex;
  std::unique_ptr<WorkerCommand> command;  // guarded by commandMutex; reached through the operations below

  /// Whether a demo plays or pauses.
  bool IsRunning() const { return position >= 0; }

  /// No demo runs.
  void SetIdle();
  /// A demo shows `second`.
  void SetRunning(std::int32_t second, DemoPlayState playState);
  /// A copy of `step`. Any thread.
  Program::ModeStep Step() const;
  void SetStep(const Program::ModeStep& sent);

  /// Puts a command into the slot, in the place of one not yet seen. Any thread.
  void PostCommand(CommandType type);
  /// Asks a running demo to go on from `second` of the day. Any thread.
  void PostSeek(std::int32_t second);
  /// Empties the slot; null if it was empty. Any thread.
  std::unique_ptr<WorkerCommand> TakeCommand();

 private:
  void Post(const WorkerCommand& posted);
};

/// Whether a command taken from the slot asks to stop.
bool IsStop(const std::unique_ptr<WorkerCommand>& command);

}  // namespace TCBase
