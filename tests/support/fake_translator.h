#pragma once

// A language that a test makes up.

#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "common/message.h"

/// Messages are in this language for as long as it lives, and in English behind that.
class FakeTranslator final : public Translator {
 public:
  using Words = std::function<std::string(std::string_view key)>;

  explicit FakeTranslator(Words words) : words_(std::move(words)) { SetTranslator(this); }
  FakeTranslator(const FakeTranslator&) = delete;
  FakeTranslator& operator=(const FakeTranslator&) = delete;
  ~FakeTranslator() { SetTranslator(nullptr); }

  std::string Translate(std::string_view key) override { return words_(key); }

 private:
  const Words words_;
};
