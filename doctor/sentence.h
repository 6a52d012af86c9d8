#pragma once

// A sentence of the doctor's: kept as what it says, and written out in a language when it is shown. So one
// report is shown to the user in theirs, and handed to others in English.

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "common/message.h"

namespace doctor {

/// A plain value. The key is a text of the program and lives for ever; the arguments are UTF-8.
class Sentence {
 public:
  /// Says nothing.
  Sentence() = default;
  explicit Sentence(TextKey key, std::vector<std::string> arguments = {})
      : key_(key), arguments_(std::move(arguments)) {}

  bool empty() const { return key_.empty(); }
  /// In the language of the messages at this moment. Any thread.
  std::string Text() const;
  /// The same in English.
  std::string English() const;

  /// The same sentence with each argument as `change` answers it.
  Sentence With(const std::function<std::string(std::string_view)>& change) const;

 private:
  TextKey key_;
  std::vector<std::string> arguments_;
};

}  // namespace doctor
