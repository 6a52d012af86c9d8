#include "program/program_file.h"

#include <string>
#include <string_view>
#include <system_error>
#include <utility>

#include "OvkLib/src/ovk_text.h"
#include "OvkLib/src/ovk_xml_reader.h"
#include "common/files.h"
#include "common/log.h"
#include "common/message.h"
#include "common/truncate.h"
#include "common/xml_file.h"

namespace TCBase::Program {

using ovk::xml::element;

namespace {

std::string ReadText(const element& from, std::string_view attribute) {
  return std::string(from.attribute_or_empty(attribute).view());
}

void WriteText(element& to, std::string_view attribute, const std::string& text) {
  to.attribute(attribute).value = ovk::string(std::string_view(text));
}

void WriteTextIfAny(element& to, std::string_view attribute, const std::string& text) {
  if (!text.empty()) WriteText(to, attribute, text);
}

void WriteNumber(element& to, std::string_view attribute, std::int32_t number) {
  WriteText(to, attribute, ToDecimal(number));
}

void WriteMode(const Mode& mode, element& to) {
  WriteText(to, "name", mode.name);
  WriteTextIfAny(to, "description", mode.description);
  for (const Channel& channel : mode.channels) {
    element& steps = to.append_child("channel");
    for (const Step& step : channel) WriteStep(step, steps.append_child("step"));
  }
}

// What is no regular file is left to the reading.
bool IsTooLong(const std::filesystem::path& path) {
  std::error_code error;
  const std::uintmax_t length = std::filesystem::file_size(path, error);
  return !error && length > ovk::xml::kMostXmlBytes;
}

Message TooLarge() {
  return Message("The file is too large for a light program. Choose another one, or take modes out of it.");
}

}  // namespace

bool ReadStep(const element& element, Step& step) {
  if (element.name != "step") return false;
  step.hour = element.get_int("hour");
  step.minute = element.get_int("minute");
  step.value = static_cast<float>(element.get_int("value"));
  step.jump = element.get_int("jump") == 1;
  return true;
}

void WriteStep(const Step& step, element& element) {
  WriteNumber(element, "hour", step.hour);
  WriteNumber(element, "minute", step.minute);
  WriteNumber(element, "value", TruncateToInt(step.value));
  if (step.jump) WriteNumber(element, "jump", 1);
}

bool ReadMode(const element& element, Mode& mode) {
  if (element.name != "mode" || element.children.count() != kChannelCount) return false;
  mode.name = ReadText(element, "name");
  mode.description = ReadText(element, "description");
  for (std::size_t c = 0; c < mode.channels.size(); ++c) {
    Channel& channel = mode.channels[c];
    channel.clear();
    for (const auto& child : element.children[static_cast<std::int32_t>(c)]->children) {
      Step step;
      if (ReadStep(*child, step)) channel.push_back(step);
    }
  }
  RenumberSteps(mode);
  return true;
}

bool ReadChannelInfo(const element& element, ChannelInfo& info) {
  if (element.name != "channel_info") return false;
  info.name = ReadText(element, "name");
  info.description = ReadText(element, "description");
  const auto colour = [&element](std::string_view name) {
    return static_cast<std::uint32_t>(element.get_int(name));
  };
  info.color = 0xFF000000U | colour("r") << 16 | colour("g") << 8 | colour("b");
  return true;
}

void WriteChannelInfo(const ChannelInfo& info, element& element) {
  WriteTextIfAny(element, "name", info.name);
  WriteTextIfAny(element, "description", info.description);
  const auto colour = [&info](int shift) { return static_cast<std::int32_t>(info.color >> shift & 0xFF); };
  WriteNumber(element, "r", colour(16));
  WriteNumber(element, "g", colour(8));
  WriteNumber(element, "b", colour(0));
}

void BuildProgramXml(const ModeListView& document, element& root) {
  root.assign("modelist");
  for (const Mode& mode : document.modes) WriteMode(mode, root.append_child("mode"));
  element& table = root.append_child("channel_info");
  for (const ChannelInfo& info : document.channelInfos) {
    WriteChannelInfo(info, table.append_child("channel_info"));
  }
}

bool ReadProgramXml(const element& root, ModeListView& document) {
  document.modes.clear();
  for (const auto& child : root.children) {
    Mode mode;
    if (ReadMode(*child, mode)) document.modes.push_back(std::move(mode));
  }
  const std::int32_t table = root.find_next_child("channel_info", -1);
  if (table >= 0) {
    std::size_t slot = 0;
    for (const auto& child : root.children[table]->children) {
      if (slot == document.channelInfos.size()) break;
      if (ReadChannelInfo(*child, document.channelInfos[slot])) ++slot;
    }
  }
  return !document.modes.empty();
}

bool SaveProgram(const ModeListView& document, const std::filesystem::path& path, std::string* reason,
                 std::uint64_t* mark) {
  element root;
  BuildProgramXml(document, root);
  const bool saved = ovk::xml::save(path, root, reason, mark);
  LogStatus(Message(saved ? TextKey("Saved program {1}") : TextKey("Error saving program {1}"),
                    Utf8FromPath(path)));
  return saved;
}

bool LoadProgram(const std::filesystem::path& path, ModeListView& document, std::uint64_t* mark) {
  const auto fails = [&path](const Message& why) {
    LogStatus(Message("Error loading program {1}", Utf8FromPath(path)));
    LogStatus(why);
    return false;
  };
  std::string bytes;
  std::string reason;
  element root;
  if (IsTooLong(path)) return fails(TooLarge());
  if (!ReadFileBytes(path, bytes, ovk::xml::kMostXmlBytes, &reason))
    return fails(Message("The file cannot be read: {1}", reason));
  const ovk::xml::reading read = ovk::xml::read(root, bytes);
  if (read == ovk::xml::reading::too_large) return fails(TooLarge());
  if (read == ovk::xml::reading::malformed) return fails(Message("The file is not well-formed XML"));
  ovk::xml::trim(root);
  if (!ReadProgramXml(root, document)) return fails(Message("The file holds no mode"));
  if (mark != nullptr) *mark = ContentMark(bytes);
  return true;
}

}  // namespace TCBase::Program
