#pragma once

// What the fuzzers have in common.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>

namespace fuzz {

/// Ends the process where something does not hold, which is how a fuzzer learns of a fault.
inline void Require(bool holds, const char* file = __builtin_FILE(), int line = __builtin_LINE()) {
  if (holds) return;
  std::fprintf(stderr, "%s:%d does not hold\n", file, line);
  std::abort();
}

/// Takes values off the front of the bytes; zeros behind their end.
class Input {
 public:
  Input(const std::uint8_t* data, std::size_t size) : bytes_(reinterpret_cast<const char*>(data), size) {}

  bool IsEmpty() const { return bytes_.empty(); }

  template <class Value>
  Value Take() {
    Value value{};
    const std::string_view taken = TakeText(sizeof value);
    if (!taken.empty()) std::memcpy(&value, taken.data(), taken.size());
    return value;
  }

  /// As many characters as are left, but no more than `most`.
  std::string_view TakeText(std::size_t most) {
    const std::string_view taken = bytes_.substr(0, most);
    bytes_.remove_prefix(taken.size());
    return taken;
  }

  /// Up to the next end of a line, which is taken off as well, or to the end of all.
  std::string_view TakeLine() {
    const std::string_view line = bytes_.substr(0, bytes_.find('\n'));
    bytes_.remove_prefix(std::min(line.size() + 1, bytes_.size()));
    return line;
  }

 private:
  std::string_view bytes_;
};

}  // namespace fuzz
