// What an upload would send, without a controller: frames.

#include <memory>

#include "cli/commands.h"
#include "cli/json.h"
#include "cli/options.h"
#include "cli/program_argument.h"
#include "cli/text.h"
#include "common/log.h"
#include "common/message.h"
#include "devices/tc420.h"
#include "program/mode_commands.h"

namespace cli {

namespace {

using TCBase::Program::Mode;
using TCBase::Program::ModeListView;

struct FramesArguments {
  ProgramArgument program;
  std::string model = "tc420";
  bool json = false;
};

/// The upload as the device sees it, without the waits between the modes. False if the device refused a mode.
bool RecordUpload(const ModeListView& document, TC420::Mock& device) {
  device.UploadStart();
  bool good = true;
  int bank = 0;
  for (const Mode& mode : document.modes) {
    TCBase::DeviceBase::Steps steps;
    CollectModeSteps(mode, steps);
    LogStatus(Message("Uploading mode: {1}", mode.name));
    if (!device.UploadMode(bank++, mode.name, steps)) {
      LogStatus(Message("Upload error"));
      good = false;
    }
  }
  device.UploadFinish();
  return good;
}

ExitStatus Frames(const Session& session, const FramesArguments& arguments) {
  ModeListView document;
  const ExitStatus loaded = LoadArgument(session, arguments.program, document);
  if (loaded != ExitStatus::Success) return loaded;
  if (!OptimizeAllModes(document)) return ExitStatus::OperationFailed;

  TC420::Mock device;
  const bool good = RecordUpload(document, device);
  Json frames = Json::array();
  for (const std::string& frame : device.Frames()) {
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
      ->check(Unnamed(CLI::IsMember({"tc420"})))
      ->type_name("tc420");
  app.add_flag("--json", arguments->json, "The same for other programs");
  return [arguments](Session& session) { return Frames(session, *arguments); };
}

}  // namespace

const Command kFrames = {
    "frames",
    "Print the frames that an upload sends, sending nothing",
    R"(A line is one frame of 64 bytes in hexadecimal, in sending order. The exit status is 1 if the controller
would refuse a mode; the others are printed all the same.
Example:
  lumarinectl frames tank.xml --model tc420)",
    &DeclareFrames,
};

}  // namespace cli
