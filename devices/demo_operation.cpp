// The live demo: a mode played on a controller as a day of seconds.

#include <algorithm>
#include <array>

#include "common/log.h"
#include "common/message.h"
#include "common/platform.h"
#include "common/timer.h"
#include "common/truncate.h"
#include "devices/operations.h"

namespace TCBase {

namespace {

constexpr double kFrameSeconds = 0.05;  // at least between two frames
constexpr double kRepeatSeconds = 0.2;  // at most, with nothing new to show
constexpr int kDemoPassMilliseconds = 5;
constexpr std::int32_t kLastSecond = Program::kSecondsPerDay - 1;

// Plays one day on one controller. The position is computed from the clock in each pass, so that a slow
// controller gets fewer frames and never falls behind.
class Demo {
 public:
  Demo(DeviceBase& device, const Program::Mode& mode, int seconds, const OperationContext& context)
      : device_(device),
        context_(context),
        mode_(mode),
        seconds_(static_cast<float>(seconds)),
        // A day without length is over before its first second is asked for.
        dayScale_(seconds > 0 ? static_cast<float>(Program::kSecondsPerDay) / seconds_ : 0.0F) {}

  // False if it was stopped.
  bool Play() {
    Send(Program::StepAt(mode_, 0));
    context_.demo.TakeCommand();
    context_.demo.SetIdle();
    playTimer_.Reset();
    sendTimer_.Reset();
    for (;;) {
      const auto t = static_cast<float>(playTimer_.Now());
      if (t >= seconds_) return true;
      if (!Obey(context_.demo.TakeCommand())) return false;
      // This uses `t` as it was before the command: a seek shows in the next pass.
      const std::int32_t day = std::clamp(TruncateToInt(t * dayScale_), 0, kLastSecond);
      context_.demo.SetRunning(day, playTimer_.IsFrozen() ? StatePaused : StatePlaying);
      context_.observer.DemoAt(day);
      SendIfDue(day);
      platform::SleepMilliseconds(kDemoPassMilliseconds);
    }
  }

 private:
  // False if the command is to stop.
  bool Obey(const std::unique_ptr<WorkerCommand>& command) {
    if (IsStop(command) || context_.stop.stop_requested()) {
      // RunOnDevices looks for it, since it has further controllers to leave alone.
      context_.demo.PostCommand(CommandStop);
      return false;
    }
    if (command == nullptr) return true;
    switch (command->type) {
      case CommandPause:
        playTimer_.Freeze();
        break;
      case CommandResume:
        if (playTimer_.IsFrozen()) playTimer_.Restart(playTimer_.frozen);
        break;
      case CommandSeek:
        Seek(std::max(static_cast<float>(command->second) / dayScale_, 0.0F));
        break;
      default:
        break;
    }
    return true;
  }

  void Seek(float seconds) {
    if (playTimer_.IsFrozen()) {
      playTimer_.frozen = seconds;
    } else {
      playTimer_.Restart(seconds);
    }
  }

  void SendIfDue(std::int32_t day) {
    if (sendTimer_.Now() < kFrameSeconds) return;
    const Program::ModeStep step = Program::StepAt(mode_, day);
    if (sendTimer_.Now() < kRepeatSeconds && step.values == lastSent_) return;
    context_.demo.SetStep(step);
    Send(step);
    sendTimer_.Reset();
  }

  void Send(const Program::ModeStep& step) {
    device_.DemoSetChannels(step);
    lastSent_ = step.values;
  }

  DeviceBase& device_;
  const OperationContext& context_;
  const Program::Mode& mode_;
  const float seconds_;                                     // of the whole day
  const float dayScale_;                                    // seconds of the day per second of the demo
  timer_base::TimerFeatures<TimerCore_Counter> playTimer_;  // elapsed demo time
  timer_base::TimerFeatures<TimerCore_Counter> sendTimer_;  // since the last frame
  std::array<std::int32_t, Program::kChannelCount> lastSent_{};
};

}  // namespace

OperationReport DemoOperation(const DeviceInfo& info, const Program::ModeListView& program, int seconds,
                              const OperationContext& context) {
  const Program::Mode* mode = FindCurrentMode(program);
  if (mode == nullptr) return OperationReport(OperationResult::Failed);
  return WithDevice(info, context.observer, [&](DeviceBase& device, const ExchangeCount& count) {
    LogStatus(Message("Demo started"));
    device.DemoStart(mode->name);
    LogStatus(Message("Playing whole day in {1} seconds", static_cast<float>(seconds)));
    const bool played = Demo(device, *mode, seconds, context).Play();
    device.DemoFinish();
    context.demo.SetIdle();
    context.observer.DemoEnded();
    LogStatus(Message("Demo finished"));
    if (!played) return OperationReport(OperationResult::Cancelled);
    return OperationReport(count.Counted().unconfirmed == 0 ? OperationResult::Done
                                                            : OperationResult::Failed);
  });
}

}  // namespace TCBase
