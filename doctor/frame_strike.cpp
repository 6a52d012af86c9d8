#include "doctor/frame_strike.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <vector>

#include "doctor/device_log.h"

namespace doctor {

namespace {

// A row of a dump, as LogDeviceDump writes it.
constexpr std::size_t kRowBytes = 16;
constexpr std::size_t kHalfRow = 8;
constexpr std::size_t kOffsetDigits = 4;
constexpr std::size_t kHexadecimal = kOffsetDigits + 2;  // where the bytes begin
constexpr std::size_t kBytesWidth = kRowBytes * 3 + 2;   // with a gap behind each half

// Of the frames that set up WiFi, and of the replies to them, this much tells nothing: head, command, and
// what a controller answers to it.
constexpr std::size_t kCommandOffset = 2;
constexpr char kSetWiFi = 0x18;
constexpr std::size_t kToldBytes = 5;
constexpr std::string_view kHead = "\x55\xAA";
// Where the texts in such a frame begin, and where they end at the latest.
constexpr std::size_t kTextOffset = 7;
constexpr std::size_t kNameOffset = 49;

constexpr std::string_view kPassword = "Packet_SetWiFi_Password(Password=";
constexpr std::string_view kSsid = "Packet_SetWiFi_SSID(SSID=";
constexpr std::string_view kOpen = "Packet_SetWiFi_Open(SSID=";
constexpr std::string_view kStruckText = "(struck out)";

std::optional<int> Digit(char letter) {
  if (letter >= '0' && letter <= '9') return letter - '0';
  if (letter >= 'A' && letter <= 'F') return letter - 'A' + 10;
  return std::nullopt;
}

std::optional<char> ByteAt(std::string_view text, std::size_t at) {
  if (at + 2 > text.size()) return std::nullopt;
  const auto high = Digit(text[at]);
  const auto low = Digit(text[at + 1]);
  if (!high || !low) return std::nullopt;
  return static_cast<char>(*high * 16 + *low);
}

struct Row {
  std::size_t offset = 0;
  std::string bytes;
};

// Whether a row may begin there.
bool LooksLikeRow(std::string_view text) {
  return ByteAt(text, 0) && ByteAt(text, 2) && text.substr(kOffsetDigits, 2) == "  " &&
         ByteAt(text, kHexadecimal) && text.substr(kHexadecimal + 2, 1) == " ";
}

// As many bytes as can be read of it: a file may end in the middle of a row.
Row ReadRow(std::string_view text) {
  Row row;
  for (const std::size_t at : {std::size_t{0}, std::size_t{2}})
    row.offset = row.offset * 256 + static_cast<std::uint8_t>(*ByteAt(text, at));
  for (std::size_t column = 0; column < kRowBytes; ++column) {
    const auto byte = ByteAt(text, kHexadecimal + column * 3 + column / kHalfRow);
    if (!byte) break;
    row.bytes += *byte;
  }
  return row;
}

std::string Hexadecimal(std::size_t value, int digits) {
  std::string text;
  for (int shift = (digits - 1) * 4; shift >= 0; shift -= 4) text += "0123456789ABCDEF"[value >> shift & 0xF];
  return text;
}

std::string RowText(std::size_t offset, std::string_view bytes, const std::vector<bool>& struck) {
  std::string hexadecimal;
  std::string letters;
  for (std::size_t column = 0; column < bytes.size(); ++column) {
    const bool isStruck = struck[offset + column];
    const char byte = bytes[column];
    hexadecimal += isStruck ? "**" : Hexadecimal(static_cast<std::uint8_t>(byte), 2);
    hexadecimal += ' ';
    letters += isStruck ? '*' : byte >= ' ' && byte <= '~' ? byte : '.';
    if ((column + 1) % kHalfRow == 0) {
      hexadecimal += ' ';
      letters += ' ';
    }
  }
  hexadecimal.resize(kBytesWidth, ' ');
  return Hexadecimal(offset, static_cast<int>(kOffsetDigits)) + "  " + hexadecimal + "  " + letters + '\n';
}

std::string_view TakeLogLine(std::string_view& log) {
  const std::size_t end = log.find('\n');
  std::string_view line = log.substr(0, end);
  log.remove_prefix(end == std::string_view::npos ? log.size() : end + 1);
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

// Where a row begins in a line; its end if none does. It stands behind a text where two programs wrote at
// once.
std::size_t FindRow(std::string_view line) {
  for (std::size_t at = 0; at + kHexadecimal < line.size(); ++at)
    if (LooksLikeRow(line.substr(at))) return at;
  return line.size();
}

bool IsOfWifi(std::string_view frame) {
  return frame.size() > kCommandOffset && frame[kCommandOffset] == kSetWiFi;
}

// Hands what a reader finds in a log to `Text` and `Dump`, in its order.
class LogReader {
 public:
  virtual ~LogReader() = default;

  void Read(std::string_view log) {
    while (!log.empty()) ReadLine(TakeLogLine(log));
    EndDump();
  }

 protected:
  // A line, or what stands in front of a row.
  virtual void Text(std::string_view line) = 0;
  // All bytes of a dump. One whose beginning is missing does not begin with offset 0.
  virtual void Dump(std::size_t offset, std::string_view bytes) = 0;

 private:
  // What tells of a network has no rows: its text might look like one.
  static bool TellsOfWifi(std::string_view line) {
    return line.find("Packet_SetWiFi_") != std::string_view::npos;
  }

  void ReadLine(std::string_view line) {
    const std::size_t at = TellsOfWifi(line) ? line.size() : FindRow(line);
    if (at > 0 || line.empty()) {
      EndDump();
      Text(line.substr(0, at));
    }
    if (at < line.size()) AddRow(ReadRow(line.substr(at)));
  }

  void AddRow(const Row& row) {
    if (row.offset != offset_ + bytes_.size()) EndDump();
    if (bytes_.empty()) offset_ = row.offset;
    bytes_ += row.bytes;
  }

  void EndDump() {
    if (!bytes_.empty()) Dump(offset_, bytes_);
    bytes_.clear();
    offset_ = 0;
  }

  std::size_t offset_ = 0;
  std::string bytes_;
};

// The first time through: what the secrets are.
class SecretSeeker : public LogReader {
 public:
  explicit SecretSeeker(Secrets& secrets) : secrets_(secrets) {}

 protected:
  void Text(std::string_view line) override {
    AddBehind(line, kPassword, ")");
    AddBehind(line, kSsid, ", Security=");
    AddBehind(line, kOpen, ")");
  }
  void Dump(std::size_t offset, std::string_view bytes) override {
    if (offset != 0 || !IsOfWifi(bytes) || bytes.size() <= kTextOffset) return;
    const std::string_view text = bytes.substr(kTextOffset, kNameOffset - kTextOffset);
    secrets_.Add(text.substr(0, text.find('\0')));
  }

 private:
  // It may hold what stands behind it.
  void AddBehind(std::string_view line, std::string_view marker, std::string_view behind) {
    const std::size_t at = line.find(marker);
    if (at == std::string_view::npos) return;
    const std::string_view rest = line.substr(at + marker.size());
    secrets_.Add(rest.substr(0, rest.rfind(behind)));
  }

  Secrets& secrets_;
};

// The second time: the log without them.
class LogStriker : public LogReader {
 public:
  explicit LogStriker(const Secrets& secrets) : secrets_(secrets) {}
  std::string Take() { return std::move(clean_); }

 protected:
  void Text(std::string_view line) override {
    // A text with line ends in it goes on until the next line of the log.
    if (inWifiText_ && !HasStamp(line)) return;
    const std::size_t at = WifiTextAt(line);
    inWifiText_ = at < line.size();
    clean_ += secrets_.Strike(line.substr(0, at));
    if (inWifiText_) clean_ += kStruckText;
    clean_ += "\r\n";
  }

  void Dump(std::size_t offset, std::string_view bytes) override {
    inWifiText_ = false;
    // A part of a frame without its beginning may be of any frame.
    std::vector<bool> struck(offset + bytes.size(), offset != 0);
    if (offset == 0) {
      Judge(bytes, struck);
      secrets_.Mark(bytes, struck);
    }
    for (std::size_t at = 0; at < bytes.size(); at += kRowBytes)
      clean_ += RowText(offset + at, bytes.substr(at, kRowBytes), struck);
  }

 private:
  // Where the text of a network begins; the end of the line if none does.
  static std::size_t WifiTextAt(std::string_view line) {
    std::size_t first = line.size();
    for (const std::string_view marker : {kPassword, kSsid, kOpen})
      if (const std::size_t at = line.find(marker); at != std::string_view::npos)
        first = std::min(first, at + marker.size());
    return first;
  }

  // What comes behind a frame of WiFi, until the next frame of ours, may repeat it.
  void Judge(std::string_view bytes, std::vector<bool>& struck) {
    const bool isOurs = bytes.starts_with(kHead);
    if (isOurs || IsOfWifi(bytes)) afterWifi_ = IsOfWifi(bytes);
    if (!afterWifi_) return;
    for (std::size_t i = IsOfWifi(bytes) ? kToldBytes : 0; i < struck.size(); ++i) struck[i] = true;
  }

  const Secrets& secrets_;
  std::string clean_;
  bool inWifiText_ = false;
  bool afterWifi_ = false;
};

}  // namespace

std::string StrikeLog(std::string_view log, Secrets& secrets) {
  SecretSeeker(secrets).Read(log);
  LogStriker striker(secrets);
  striker.Read(log);
  return striker.Take();
}

}  // namespace doctor
