#include "dialogs/read_text.h"

#include <utility>

namespace dialogs {

namespace {

bool IsFirstHalf(char16_t unit) {
  return unit >= 0xD800 && unit <= 0xDBFF;
}

void LeaveOutHalf(std::u16string& text) {
  if (!text.empty() && IsFirstHalf(text.back())) text.pop_back();
}

}  // namespace

std::u16string ReadText(const DialogTexts& texts, int control, std::size_t units) {
  std::u16string text = texts.Text(control, units);
  LeaveOutHalf(text);
  return text;
}

Stored StoreText(const DialogTexts& texts, int control, std::u16string& value, std::size_t units) {
  std::u16string text = texts.Text(control, units);
  if (text.empty()) return Stored::Nothing;
  LeaveOutHalf(text);
  value = std::move(text);
  return value.empty() ? Stored::Empty : Stored::Text;
}

}  // namespace dialogs
