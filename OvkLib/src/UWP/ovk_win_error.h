#pragma once

// Exceptions for platform calls that failed inside the library. Like all of ovk::exception they end the
// program.

#include <cstdint>
#include <memory>
#include <string_view>

#include "OvkLib/src/ovk_exception.h"

namespace ovk::win {

/// A failed platform call: where, and its Win32 error code.
class xsystem : public exception {
 public:
  xsystem(std::u16string_view context, std::uint32_t code)
      : context_(std::make_shared<const wstring>(context)), code_(code) {}

  /// Appends the place, the code in decimal and hexadecimal, and the platform's text for it.
  void describe(wstring& out) const override;

  /// "file:line"
  const wstring& context() const { return *context_; }
  std::uint32_t code() const { return code_; }

 private:
  std::shared_ptr<const wstring> context_;  // one record for all copies of the exception
  std::uint32_t code_;
};

/// The failures that have a class of their own.
template <std::uint32_t Code>
class xsystem_of : public xsystem {
 public:
  static constexpr std::uint32_t fixed_code = Code;
  explicit xsystem_of(std::u16string_view context) : xsystem(context, Code) {}
};

class xaccess_denied : public xsystem_of<5> {
  using xsystem_of::xsystem_of;
};
class xwrite_protected : public xsystem_of<19> {
  using xsystem_of::xsystem_of;
};
class xwrite_fault : public xsystem_of<29> {
  using xsystem_of::xsystem_of;
};
class xread_fault : public xsystem_of<30> {
  using xsystem_of::xsystem_of;
};
class xsharing_violation : public xsystem_of<32> {
  using xsystem_of::xsystem_of;
};
class xdisk_full : public xsystem_of<112> {
  using xsystem_of::xsystem_of;
};

/// Throws the class of a Win32 code: one of those above if it has one, else xsystem.
[[noreturn]] void throw_error(std::u16string_view context, std::uint32_t code);

/// Does nothing unless `failed`; else throws the class of the platform's last error, with "file:line" as its
/// place. `file` is in the system's code page.
void check(bool failed, std::int32_t line, const char* file);

}  // namespace ovk::win
