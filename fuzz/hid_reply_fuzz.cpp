// Controllers that answer anything: any number of reports of any size at any poll, and a cable that fails.
// The program must come to the end of an upload or a demo with all handles closed. No frame may be one that
// the controller does not understand, whatever it answered to those before, as long as they arrived.

#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "common/log.h"
#include "devices/jobs.h"
#include "program/builtin_modes.h"
#include "tests/support/sim_hidapi.h"
#include "tests/support/virtual_clock.h"

namespace {

// The input as a stream of choices; zeros when it has run out.
class Choices {
 public:
  Choices(const std::uint8_t* data, std::size_t size) : data_(data, data + size) {}

  std::uint8_t Next() { return next_ < data_.size() ? data_[next_++] : 0; }

 private:
  std::vector<std::uint8_t> data_;
  std::size_t next_ = 0;
};

std::string NextReport(Choices& choices) {
  std::string report(choices.Next(), '\0');
  for (char& byte : report) byte = static_cast<char>(choices.Next());
  return report;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Choices choices(data, size);
  virtual_clock::Reset();
  const virtual_clock::Alone alone;
  sim_hidapi::Reset();
  const bool isTC420 = choices.Next() % 2 == 0;
  sim_hidapi::PlugIn(isTC420 ? sim_hidapi::Family::TC420 : sim_hidapi::Family::TC421);

  const int poll = 1 + choices.Next() % 50;
  sim_hidapi::SetAnswer({[&choices](const std::string&) {
                           std::vector<std::string> reports(choices.Next() % 80);
                           for (std::string& report : reports) report = NextReport(choices);
                           return reports;
                         },
                         poll});
  const int failing = choices.Next();
  const auto call = choices.Next() % 2 == 0 ? sim_hidapi::Call::Write : sim_hidapi::Call::Read;
  if (failing > 0) {
    sim_hidapi::Inject(
        {.call = call, .nth = failing, .times = choices.Next(), .result = -1 - choices.Next()});
  }

  TCBase::DeviceInfo info;
  info.model = isTC420 ? TCBase::ModelTC420 : TCBase::ModelTC421USB;
  info.selected = true;
  const TCBase::Program::ModeListView program = TCBase::Program::NewProgram();
  TCBase::DemoState demo;
  const TCBase::OperationContext context{demo};
  if (choices.Next() % 2 == 0) {
    TCBase::UploadJob({info}, program, context)();
  } else {
    TCBase::DemoJob({info}, program, 5, context)();
  }

  // A TC421 whose replies do not please is left in the middle of a mode, and so is any with a failing cable.
  const bool isUndisturbed = isTC420 && failing == 0;
  if (sim_hidapi::OpenHandles() != 0 || (isUndisturbed && !sim_hidapi::Violations().empty())) std::abort();
  statusLog.Drain();
  deviceLog.Drain();
  return 0;
}
