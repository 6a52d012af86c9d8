// What an upload would send, without a controller: frames.

#include <memory>

#include "cli/commands.h"
#include "cli/json.h"
#include "cli/options.h"
#include "cli/program_argument.h"
#include "cli/text.h"
#include "common/log.h"
#include "common/message.h"
#include "devices/controller_models.h"
#include "devices/operations.h"
#include "devices/tc420.h"
#include "devices/tc421.h"
#include "program/mode_commands.h"

namespace cli {

namespace {

using TCBase::DeviceInfo;
using TCBase::Program::Mode;
using TCBase::Program::ModeListView;

struct FramesArguments {
  ProgramArgument program;
  std::string model = "tc420";
  std::string deviceName;
  bool json = false;
};

constexpr char kNetworkModel[] = "tc421-udp";

DeviceInfo DeviceOf(const FramesArguments& arguments) {
  if (arguments.model == "tc421-usb") return {TCBase::ModelTC421USB, "", {}, true};
  if (arguments.model == kNetworkModel) return {TCBase::ModelTC421UDP, arguments.deviceName, {}, true};
  return {TCBase::ModelTC420, TCBase::kTC420Name, {}, true};
}

// Does `store` for each mode and tells of it. False if a mode was refused.
template <class Store>
bool StoreModes(const ModeListView& document, const DeviceInfo& device, const Store& store) {
  bool good = true;
  for (int bank = 0; const Mode& mode : document.modes) {
    LogStatus(Message("Uploading mode: {1}", mode.name));
    if (store(bank++, mode.name, StepsFor(device, mode))) continue;
    LogStatus(Message("Upload error"));
    good = false;
  }
  return good;
}

using Frames = std::vector<std::string>;

// The upload as a TC420 sees it, without the waits between the modes.
bool RecordTC420(const ModeListView& document, const DeviceInfo& info, Frames& frames) {
  TC420::Mock device;
  device.UploadStart();
  const bool good = StoreModes(document, info, [&](int bank, const std::string& name, const auto& steps) {
    return device.UploadMode(bank, name, steps);
  });
  device.UploadFinish();
  frames = device.Frames();
  return good;
}

bool RecordTC421(const ModeListView& document, const DeviceInfo& info, Frames& frames) {
  return StoreModes(document, info, [&](int bank, const std::string& name, const auto& steps) {
    return TC421::ForEachModePacket(info, bank, name, steps, [&](const TC421::Packet& packet) {
      packet.Serialize(frames.emplace_back());
      return true;
    });
  });
}

bool RecordUpload(const ModeListView& document, const FramesArguments& arguments, Frames& frames) {
  const DeviceInfo info = DeviceOf(arguments);
  const bool isTC420 = TCBase::ControllerModelOf(info).family == TCBase::Family::TC420;
  return (isTC420 ? RecordTC420 : RecordTC421)(document, info, frames);
}

ExitStatus PrintFrames(const Session& session, const FramesArguments& arguments) {
  if (!arguments.deviceName.empty() && arguments.model != kNetworkModel)
    return session.Fail(ExitStatus::WrongUsage, "--device-name goes with --model tc421-udp only");
  ModeListView document;
  const ExitStatus loaded = LoadArgument(session, arguments.program, document);
  if (loaded != ExitStatus::Success) return loaded;
  if (!OptimizeAllModes(document)) return ExitStatus::OperationFailed;

  Frames recorded;
  const bool good = RecordUpload(document, arguments, recorded);
  Json frames = Json::array();
  for (const std::string& frame : recorded) {
    if (arguments.json) {
      frames.push_back(HexText(frame));
    } else {
      session.out << HexText(frame) << '\n';
    }
  }
  if (arguments.json) PrintJson(session.out, {{"model", arguments.model}, {"frames", std::move(frames)}});
  return good ? ExitStatus::Success : ExitStatus::OperationFailed;
}

Run DeclareFrames(CLI::App& app) {
  const auto arguments = std::make_shared<FramesArguments>();
  DeclareFile(app, arguments->program);
  app.add_option("--model", arguments->model, "The controller")
      ->check(Unnamed(CLI::IsMember({"tc420", "tc421-usb", kNetworkModel})))
      ->type_name("tc420|tc421-usb|tc421-udp");
  app.add_option("--device-name", arguments->deviceName, "The name of a tc421-udp, which its frames carry")
      ->type_name("NAME");
  app.add_flag("--json", arguments->json, "The same for other programs");
  return [arguments](Session& session) { return PrintFrames(session, *arguments); };
}

}  // namespace

const Command kFrames = {
    "frames",
    "Print the frames that an upload sends, sending nothing",
    R"(A line is one frame of 64 bytes in hexadecimal, in sending order. The exit status is 1 if the controller
would refuse a mode; the others are printed all the same.
Examples:
  lumarinectl frames tank.xml --model tc420
  lumarinectl frames tank.xml --model tc421-udp --device-name Smart-123456)",
    &DeclareFrames,
};

}  // namespace cli
