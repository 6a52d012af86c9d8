#pragma once

// The root of the library's exceptions. They mark conditions that the program does not plan to survive:
// nothing catches them by type, and they end the program through the runtime's unhandled exception path.

#include "OvkLib/src/ovk_string.h"

namespace ovk {

class exception {
 public:
  virtual ~exception() = default;

  /// Appends a text for a human, as for a crash report. Not translated.
  virtual void describe(wstring& out) const = 0;

 protected:
  exception() = default;
  exception(const exception&) = default;
  exception& operator=(const exception&) = default;
};

class xout_of_memory : public exception {
 public:
  void describe(wstring& out) const override;
};

[[noreturn]] void throw_out_of_memory();

}  // namespace ovk
