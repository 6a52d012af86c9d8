#include "doctor/device_log.h"

#include <algorithm>
#include <charconv>
#include <deque>
#include <fstream>

namespace doctor {

namespace {

constexpr std::size_t kLatestLines = 200;

bool IsDigit(char letter) {
  return letter >= '0' && letter <= '9';
}

// Takes so many digits and what stands behind them off `text`.
bool TakeField(std::string_view& text, std::size_t digits, char behind) {
  if (text.size() <= digits || text[digits] != behind) return false;
  if (!std::ranges::all_of(text.substr(0, digits), &IsDigit)) return false;
  text.remove_prefix(digits + 1);
  return true;
}

bool TellsOfError(std::string_view line) {
  return HasStamp(line) && (line.find(" error: ") != std::string_view::npos ||
                            line.find("Received invalid packet size") != std::string_view::npos);
}

// The number behind `name` in "Packet_TimeSync(Year=2026, Month=03, ...)".
std::optional<int> Field(std::string_view line, std::string_view name) {
  const std::size_t at = line.find(name);
  if (at == std::string_view::npos) return std::nullopt;
  const std::string_view digits = line.substr(at + name.size());
  int number = 0;
  const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  return read.ec == std::errc() ? std::optional(number) : std::nullopt;
}

std::optional<DateTime> TimeSyncIn(std::string_view line) {
  const std::size_t at = line.find("Packet_TimeSync(");
  if (at == std::string_view::npos) return std::nullopt;
  const std::string_view packet = line.substr(at);
  const auto year = Field(packet, "Year=");
  const auto month = Field(packet, "Month=");
  const auto day = Field(packet, "Day=");
  const auto hour = Field(packet, "Hour=");
  const auto minute = Field(packet, "Minute=");
  const auto second = Field(packet, "Second=");
  if (!year || !month || !day || !hour || !minute || !second) return std::nullopt;
  return DateTime{*year, *month, *day, *hour, *minute, *second, 0};
}

}  // namespace

bool ReadEnd(const std::filesystem::path& file, std::size_t most, std::string& out) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(file, error)) return false;
  std::ifstream stream(file, std::ios::binary | std::ios::ate);
  const auto size = static_cast<std::int64_t>(stream.tellg());
  if (!stream || size < 0) return false;
  const std::int64_t from = std::max<std::int64_t>(0, size - static_cast<std::int64_t>(most));
  std::string end(static_cast<std::size_t>(size - from), '\0');
  stream.seekg(from);
  stream.read(end.data(), static_cast<std::streamsize>(end.size()));
  if (stream.bad()) return false;
  end.resize(static_cast<std::size_t>(stream.gcount()));
  if (from > 0) end.erase(0, std::min(end.find('\n'), end.size() - 1) + 1);
  out = std::move(end);
  return true;
}

bool HasStamp(std::string_view line) {
  const bool twoDigits = line.size() > 2 && line[1] != ':';
  return TakeField(line, twoDigits ? 2 : 1, ':') && TakeField(line, 2, ':') && TakeField(line, 2, ':') &&
         TakeField(line, 3, ' ');
}

LogEnd ReadLogEnd(std::string_view log) {
  LogEnd end;
  std::deque<std::string_view> latest;
  while (!log.empty()) {
    const std::size_t length = std::min(log.find('\n'), log.size());
    std::string_view line = log.substr(0, length);
    log.remove_prefix(std::min(length + 1, log.size()));
    if (line.ends_with('\r')) line.remove_suffix(1);
    if (const auto time = TimeSyncIn(line)) end.timeSync = time;
    latest.push_back(line);
    if (latest.size() > kLatestLines) latest.pop_front();
  }
  for (const std::string_view line : latest)
    if (TellsOfError(line)) end.error = line;
  return end;
}

}  // namespace doctor
