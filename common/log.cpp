#include "common/log.h"

#include <cstdio>
#include <utility>

#include "common/platform.h"

namespace {

void LogLine(LogChannel& channel, std::string text) {
  channel.Append(std::move(text));
  channel.EndLine();
}

constexpr std::size_t kRowBytes = 16;
constexpr std::size_t kHalfRowBytes = kRowBytes / 2;

// One further space behind the eighth and the sixteenth column, in both halves of a row.
void AppendGap(std::string& out, std::size_t column) {
  if ((column + 1) % kHalfRowBytes == 0) out += ' ';
}

void AppendHexadecimal(std::string& out, std::size_t value, int digits) {
  for (int shift = (digits - 1) * 4; shift >= 0; shift -= 4) out += "0123456789ABCDEF"[value >> shift & 0xF];
}

void AppendDumpRow(std::string& out, std::size_t offset, std::string_view row) {
  constexpr int kOffsetDigits = 4;
  AppendHexadecimal(out, offset, kOffsetDigits);
  out += "  ";
  for (std::size_t column = 0; column < kRowBytes; ++column) {
    if (column < row.size()) {
      AppendHexadecimal(out, static_cast<unsigned char>(row[column]), 2);
      out += ' ';
    } else {
      out += "   ";
    }
    AppendGap(out, column);
  }
  out += "  ";
  for (std::size_t column = 0; column < kRowBytes; ++column) {
    if (column < row.size()) out += row[column] >= 32 && row[column] <= 126 ? row[column] : '.';
    AppendGap(out, column);
  }
  out += '\n';
}

}  // namespace

// The writers below go through these and not through the references of the header, which may not be bound yet
// where a constructor of another file logs.
LogChannel& log_detail::Status() {
  static LogChannel& channel = *new LogChannel;
  return channel;
}

LogChannel& log_detail::Warning() {
  static LogChannel& channel = *new LogChannel;
  return channel;
}

LogChannel& log_detail::Device() {
  static LogChannel& channel = *new LogChannel;
  return channel;
}

void LogChannel::Append(std::string text) {
  const std::lock_guard guard(lock_);
  queue_.push_back(std::move(text));
}

void LogChannel::EndLine() {
  Append("\r\n");
  if (const auto wake = wakeHandler.Get()) (*wake)();
}

void LogChannel::Drain() {
  Show(Take());
}

void LogChannel::DrainBefore(LogChannel& warnings) {
  const std::vector<std::string> taken = warnings.Take();
  Drain();
  warnings.Show(taken);
}

std::vector<std::string> LogChannel::Take() {
  const std::lock_guard guard(lock_);
  return std::exchange(queue_, {});
}

void LogChannel::Show(const std::vector<std::string>& items) const {
  const auto handler = textHandler.Get();
  if (handler == nullptr) return;
  for (const std::string& item : items) (*handler)(item);
}

void LogStatus(const Message& message) {
  LogPlain(message.utf8());
}

void LogPlain(std::string_view text) {
  LogLine(log_detail::Status(), std::string(text));
}

void LogWarning(std::string_view text) {
  LogLine(log_detail::Warning(), std::string(text));
}

void LogDevice(std::string_view text) {
  const DateTime now = platform::LocalTime();
  char stamp[64];
  const int length = std::snprintf(stamp, sizeof(stamp), "%u:%02u:%02u:%03u ",
                                   static_cast<unsigned>(now.hour), static_cast<unsigned>(now.minute),
                                   static_cast<unsigned>(now.second), static_cast<unsigned>(now.millisecond));
  std::string line(stamp, static_cast<std::size_t>(length));
  LogLine(log_detail::Device(), line.append(text));
}

void LogDeviceDump(const void* bytes, std::size_t length) {
  const std::string_view data(static_cast<const char*>(bytes), length);
  std::string dump;
  for (std::size_t offset = 0; offset < length; offset += kRowBytes) {
    AppendDumpRow(dump, offset, data.substr(offset, kRowBytes));
  }
  LogLine(log_detail::Device(), std::move(dump));
}

void Hint(std::string_view key, ShownHints& shown) {
  if (shown.emplace(key).second) LogStatus(Message("Hint: {1}", Translate(key)));
}
