#include <windows.h>

#include <limits>

#include "OvkLib/src/UWP/ovk_win_error.h"
#include "OvkLib/src/UWP/ovk_win_str_utils.h"

namespace {

constexpr auto kMostCharacters = static_cast<std::size_t>(std::numeric_limits<int>::max());

// Named by hand: the reports tell these two places apart whatever else moves in the file.
constexpr const char* kPlace = "ovk_win_str_utils";
constexpr std::int32_t kSizeQueryLine = 88;
constexpr std::int32_t kConversionLine = 94;

// The platform's wide character has the size and the meaning of ours.
static_assert(sizeof(wchar_t) == sizeof(char16_t));
wchar_t* ToPlatform(char16_t* text) {
  return reinterpret_cast<wchar_t*>(text);
}
const wchar_t* ToPlatform(const char16_t* text) {
  return reinterpret_cast<const wchar_t*>(text);
}

}  // namespace

std::u16string WideFromUtf8(std::string_view text) {
  if (text.empty() || text.size() > kMostCharacters) return {};
  const int length = static_cast<int>(text.size());
  const int needed = MultiByteToWideChar(CP_UTF8, 0, text.data(), length, nullptr, 0);
  if (needed <= 0) return {};
  std::u16string wide(static_cast<std::size_t>(needed), u'\0');
  const int written = MultiByteToWideChar(CP_UTF8, 0, text.data(), length, ToPlatform(wide.data()), needed);
  wide.resize(static_cast<std::size_t>(written));
  return wide;
}

std::string Utf8FromWide(std::u16string_view text) {
  if (text.empty() || text.size() > kMostCharacters) return {};
  const int length = static_cast<int>(text.size());
  const wchar_t* source = ToPlatform(text.data());
  const int needed = WideCharToMultiByte(CP_UTF8, 0, source, length, nullptr, 0, nullptr, nullptr);
  if (needed <= 0) return {};
  std::string utf8(static_cast<std::size_t>(needed), '\0');
  const int written = WideCharToMultiByte(CP_UTF8, 0, source, length, utf8.data(), needed, nullptr, nullptr);
  utf8.resize(static_cast<std::size_t>(written));
  return utf8;
}

std::string Utf8FromPlatformWide(std::wstring_view text) {
  return Utf8FromWide({reinterpret_cast<const char16_t*>(text.data()), text.size()});
}

ovk::wstring WideFromAnsi(const char* text, std::uint32_t codePage) {
  const int needed = MultiByteToWideChar(codePage, 0, text, -1, nullptr, 0);
  ovk::win::check(needed == 0, kSizeQueryLine, kPlace);
  ovk::wstring wide;
  wide.resize(needed, u'\0');
  const int written = MultiByteToWideChar(codePage, 0, text, -1, ToPlatform(wide.writable()), needed);
  ovk::win::check(written == 0, kConversionLine, kPlace);
  wide.resize(written - 1, u'\0');  // the terminator was converted with the text
  return wide;
}
