#include "devices/usb_device.h"

#include <array>
#include <mutex>
#include <string_view>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "common/log.h"
#include "common/platform.h"
#include "devices/usb_rights.h"

namespace TCBase {

namespace {

constexpr std::size_t kReportSize = kFrameSize;
constexpr unsigned char kReportId = 0;  // the controllers do not number their reports
constexpr int kPollMilliseconds = 20;
constexpr int kMaxPolls = 40;
// The system keeps as many for a slow reader. A controller that sends more in one go never stops.
constexpr std::size_t kMaxReplyBytes = 64 * kReportSize;

// hidapi keeps one text for the last error of what concerns no handle, and two threads may look for
// controllers.
std::mutex findAndOpen;

hid_device* OpenPath(const std::string& path) {
  const std::lock_guard lock(findAndOpen);
  return hid_open_path(path.c_str());
}

}  // namespace

std::vector<std::string> FindUsbPaths(const UsbIds& ids) {
  const std::lock_guard lock(findAndOpen);
  hid_device_info* const first = hid_enumerate(ids.vendor, ids.product);
  std::vector<std::string> paths;
  for (const hid_device_info* found = first; found != nullptr; found = found->next)
    paths.emplace_back(found->path);
  hid_free_enumeration(first);
  return paths;
}

USBDevice::~USBDevice() {
  if (handle != nullptr) hid_close(handle);
}

bool USBDevice::Connect() {
  const std::vector<std::string> paths = FindUsbPaths({vendorId, productId});
  path_ = paths.empty() ? "" : paths.front();
  if (!path_.empty()) handle = OpenPath(path_);
  // A handle that stays in blocking mode would hang on the first silent controller.
  return handle != nullptr && hid_set_nonblocking(handle, 1) == 0;
}

bool USBDevice::IsForbidden() const {
  return !path_.empty() && !platform::MayOpenDevice(path_);
}

bool USBDevice::Write(const std::string& frame) {
  if (frame.size() != kFrameSize) return false;
  // Windows wants the report id as part of what is written; hidapi takes it off elsewhere.
  std::array<unsigned char, 1 + kReportSize> report{kReportId};
  frame.copy(reinterpret_cast<char*>(report.data() + 1), kFrameSize);
  LogDevice("hid_write:");
  LogDeviceDump(frame.data(), frame.size());
  const int written = hid_write(handle, report.data(), report.size());
  if (written < 0) LogError("hid_write");
  if (written != static_cast<int>(report.size())) return false;
  observer_.FrameSent();
  return true;
}

bool USBDevice::Read(std::string& reply) {
  reply.clear();
  for (int emptyPolls = 0; emptyPolls < kMaxPolls && reply.size() < kMaxReplyBytes;) {
    std::array<unsigned char, kReportSize> report{};
    const int received = hid_read(handle, report.data(), report.size());
    if (received < 0) {
      LogError("hid_read");
      return false;
    }
    if (received > 0) {
      LogDevice("hid_read:");
      LogDeviceDump(report.data(), static_cast<std::size_t>(received));
      reply.append(reinterpret_cast<const char*>(report.data()), static_cast<std::size_t>(received));
      continue;
    }
    // Once data has come, the first gap ends the reply.
    if (!reply.empty()) return true;
    platform::SleepMilliseconds(kPollMilliseconds);
    ++emptyPolls;
  }
  // Silence is an answer too: it is for CheckReply to object.
  return true;
}

bool USBDevice::SendPacket(const PacketBase& packet, int expected) {
  const PacketOutcome outcome = Exchange(packet, expected);
  observer_.PacketEnded(outcome);
  return IsConfirmed(outcome);
}

PacketOutcome USBDevice::Exchange(const PacketBase& packet, int expected) {
  if (!WritePacket(packet)) return PacketOutcome::NotSent;
  std::string reply;
  const bool confirmed = Read(reply) && CheckReply(reply, expected);
  if (reply.empty()) return confirmed ? PacketOutcome::Unanswered : PacketOutcome::NoAnswer;
  return confirmed ? PacketOutcome::Answered : PacketOutcome::Refused;
}

void USBDevice::LogError(const char* where) const {
  const wchar_t* text = hid_error(handle);
  LogDevice(std::string(where) + " error: " + Utf8FromPlatformWide(text != nullptr ? text : L"Success"));
}

}  // namespace TCBase
