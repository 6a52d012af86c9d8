#include "common/message.h"

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "OvkLib/src/ovk_format.h"
#include "common/files.h"
#include "common/truncate.h"

namespace {

void FillArgument(ovk::format& format, std::string_view text) {
  format.arg(text.data(), static_cast<std::int32_t>(text.size()));
}

void FillArgument(ovk::format& format, std::int32_t number) {
  format.arg(number, 0);
}

}  // namespace

std::string Translate(std::string_view key) {
  return std::string(key);
}

template <class... Arguments>
void Message::Fill(std::string_view key, const Arguments&... arguments) {
  ovk::format format{std::string_view(Translate(key))};
  (FillArgument(format, arguments), ...);
  utf8_ = format.text().view();
}

Message::Message(std::string_view key) : utf8_(Translate(key)) {}

Message::Message(std::string_view key, std::string_view text) {
  Fill(key, text);
}

Message::Message(std::string_view key, std::int32_t number) {
  Fill(key, number);
}

Message::Message(std::string_view key, float number) {
  Fill(key, TruncateToInt(number));
}

Message::Message(std::string_view key, std::int32_t first, std::int32_t second) {
  Fill(key, first, second);
}

Message::Message(std::string_view key, std::string_view first, std::string_view second) {
  Fill(key, first, second);
}

Message::Message(std::string_view key, std::string_view text, std::int32_t number) {
  Fill(key, text, number);
}

Message::Message(std::string_view key, std::string_view first, std::int32_t number, std::string_view second) {
  Fill(key, first, number, second);
}

Message::Message(std::string_view key, const std::filesystem::path& path, std::string_view text, PathTag) {
  Fill(key, std::string_view(Utf8FromPath(path)), text);
}

const std::u16string& Message::ToWide() {
  if (wide_.empty()) wide_ = WideFromUtf8(utf8_);
  return wide_;
}
