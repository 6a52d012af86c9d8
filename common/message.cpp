#include "common/message.h"

#include <atomic>
#include <charconv>
#include <limits>
#include <span>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "OvkLib/src/ovk_format.h"
#include "common/files.h"
#include "common/truncate.h"

namespace {

constinit std::atomic<Translator*> translatorInUse = nullptr;

// A number in decimal, for as long as the expression it stands in.
class Decimal {
 public:
  explicit Decimal(std::int32_t number)
      : length_(static_cast<std::size_t>(std::to_chars(digits_, digits_ + sizeof(digits_), number).ptr -
                                         digits_)) {}
  operator std::string_view() const { return {digits_, length_}; }

 private:
  char digits_[std::numeric_limits<std::int32_t>::digits10 + 2];
  std::size_t length_;
};

}  // namespace

std::string Translate(std::string_view key) {
  Translator* const translator = translatorInUse.load(std::memory_order_acquire);
  return translator == nullptr ? std::string(key) : translator->Translate(key);
}

void SetTranslator(Translator* translator) {
  translatorInUse.store(translator, std::memory_order_release);
}

std::string Message::TextOf(const std::filesystem::path& path) {
  return Utf8FromPath(path);
}

void Message::Fill(std::string_view key, std::initializer_list<std::string_view> arguments) {
  const std::span<const std::string_view> all(arguments.begin(), arguments.size());
  // English costs nothing, not even a copy of the template.
  if (translatorInUse.load(std::memory_order_acquire) == nullptr) [[likely]] {
    ovk::fill(utf8_, key, all);
  } else {
    ovk::fill(utf8_, Translate(key), all);
  }
}

Message::Message(std::string_view key) : utf8_(Translate(key)) {}

Message::Message(std::string_view key, std::string_view text) {
  Fill(key, {text});
}

Message::Message(std::string_view key, std::int32_t number) {
  Fill(key, {Decimal(number)});
}

Message::Message(std::string_view key, float number) {
  Fill(key, {Decimal(TruncateToInt(number))});
}

Message::Message(std::string_view key, std::int32_t first, std::int32_t second) {
  Fill(key, {Decimal(first), Decimal(second)});
}

Message::Message(std::string_view key, std::string_view first, std::string_view second) {
  Fill(key, {first, second});
}

Message::Message(std::string_view key, std::string_view text, std::int32_t number) {
  Fill(key, {text, Decimal(number)});
}

Message::Message(std::string_view key, std::string_view first, std::int32_t number, std::string_view second) {
  Fill(key, {first, Decimal(number), second});
}

const std::u16string& Message::ToWide() {
  if (wide_.empty()) wide_ = WideFromUtf8(utf8_);
  return wide_;
}
