#include "OvkLib/src/UWP/ovk_win_str_utils.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace {

using namespace std::string_view_literals;

struct Pair {
  std::string_view utf8;
  std::u16string_view wide;
};

constexpr Pair kWellFormed[] = {
    {""sv, u""sv},
    {"Mode 1"sv, u"Mode 1"sv},
    {"a\0b"sv, u"a\0b"sv},
    {"\xC2\x80\xDF\xBF"sv, u"\u0080\u07FF"sv},
    {"\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBF"sv, u"\u0800\uD7FF\uE000\uFFFF"sv},
    {"\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"sv, u"\U00010000\U0010FFFF"sv},
    {"\xD1\x81\xD0\xB2\xD0\xB5\xD1\x82 \xE7\x81\xAF \xF0\x9F\x92\xA1"sv, u"свет 灯 💡"sv},
    {"\xEF\xBB\xBFx"sv, u"\uFEFFx"sv},
};

// What the conversion of code page 65001 without checks makes of bytes that are no UTF-8.
constexpr Pair kMalformedUtf8[] = {
    // bytes that start nothing
    {"\x80"sv, u"\uFFFD"sv},
    {"a\xBF\xBF"
     "b"sv,
     u"a\uFFFD\uFFFDb"sv},
    {"\xFE\xFF"sv, u"\uFFFD\uFFFD"sv},
    // overlong forms: the second byte goes with its lead, and each one behind stands for itself
    {"\xC0\x80"sv, u"\uFFFD\uFFFD"sv},
    {"\xC1\xBF"sv, u"\uFFFD\uFFFD"sv},
    {"\xE0\x80\x80"sv, u"\uFFFD\uFFFD"sv},
    {"\xE0\x9F\xBFx"sv, u"\uFFFD\uFFFDx"sv},
    {"\xF0\x80\x80\x80"sv, u"\uFFFD\uFFFD\uFFFD"sv},
    {"\xF0\x8F\xBF\xBFx"sv, u"\uFFFD\uFFFD\uFFFDx"sv},
    {"\xF0\x80xyz"sv, u"\uFFFDxyz"sv},
    // surrogates
    {"\xED\xA0\x80"sv, u"\uFFFD\uFFFD"sv},
    {"\xED\xBF\xBFx"sv, u"\uFFFD\uFFFDx"sv},
    // above the last code
    {"\xF4\x90\x80\x80"sv, u"\uFFFD\uFFFD\uFFFD"sv},
    {"\xF5\x80\x80\x80"sv, u"\uFFFD\uFFFD\uFFFD\uFFFD"sv},
    {"\xF8\x88\x80\x80\x80x"sv, u"\uFFFD\uFFFD\uFFFD\uFFFD\uFFFDx"sv},
    // sequences that break off inside the text: one replacement for what was good so far
    {"\xC3xyz"sv, u"\uFFFDxyz"sv},
    {"\xE7xyz"sv, u"\uFFFDxyz"sv},
    {"\xE7\x81xyz"sv, u"\uFFFDxyz"sv},
    {"\xF0xyz"sv, u"\uFFFDxyz"sv},
    {"\xF0\x9Fxyz"sv, u"\uFFFDxyz"sv},
    {"\xF0\x9F\x92xyz"sv, u"\uFFFDxyz"sv},
    {"\xE7\x81\xE7\x81\xAF"sv, u"\uFFFD灯"sv},
    {"\xC3\xC3\xA9"sv, u"\uFFFDé"sv},
    // and at its end
    {"x\xC3"sv, u"x\uFFFD"sv},
    {"x\xE7"sv, u"x\uFFFD"sv},
    {"x\xE7\x81"sv, u"x\uFFFD"sv},
    {"x\xF0"sv, u"x\uFFFD"sv},
    {"x\xF0\x9F"sv, u"x\uFFFD"sv},
    {"x\xF0\x9F\x92"sv, u"x\uFFFD"sv},
    {"x\xE0\x80"sv, u"x\uFFFD"sv},
    {"x\xF4\x90"sv, u"x\uFFFD"sv},
    {"x\xED\xA0"sv, u"x\uFFFD"sv},
};

constexpr char16_t kLoneHigh[] = {u'a', 0xD800, u'b', 0};
constexpr char16_t kLoneLow[] = {0xDC00, u'b', 0};
constexpr char16_t kSwapped[] = {0xDC00, 0xD800, 0};
constexpr char16_t kHighAtTheEnd[] = {u'a', 0xDBFF, 0};
constexpr char16_t kTwoHighs[] = {0xD83D, 0xD83D, 0xDCA1, 0};

std::string Bytes(std::string_view text) {
  std::string shown;
  for (const char c : text)
    shown += testing::PrintToString(static_cast<int>(static_cast<unsigned char>(c))) + " ";
  return shown;
}

TEST(WideFromUtf8, ConvertsWellFormedText) {
  for (const Pair& pair : kWellFormed) EXPECT_EQ(WideFromUtf8(pair.utf8), pair.wide) << Bytes(pair.utf8);
}

TEST(WideFromUtf8, ReplacesWhatIsMalformedAsTheWindowsFunctionDoes) {
  for (const Pair& pair : kMalformedUtf8) EXPECT_EQ(WideFromUtf8(pair.utf8), pair.wide) << Bytes(pair.utf8);
}

TEST(Utf8FromWide, ConvertsWellFormedText) {
  for (const Pair& pair : kWellFormed) EXPECT_EQ(Utf8FromWide(pair.wide), pair.utf8);
}

TEST(Utf8FromWide, ReplacesLoneSurrogates) {
  EXPECT_EQ(Utf8FromWide(kLoneHigh),
            "a\xEF\xBF\xBD"
            "b");
  EXPECT_EQ(Utf8FromWide(kLoneLow),
            "\xEF\xBF\xBD"
            "b");
  EXPECT_EQ(Utf8FromWide(kSwapped), "\xEF\xBF\xBD\xEF\xBF\xBD");
  EXPECT_EQ(Utf8FromWide(kHighAtTheEnd), "a\xEF\xBF\xBD");
  EXPECT_EQ(Utf8FromWide(kTwoHighs), "\xEF\xBF\xBD\xF0\x9F\x92\xA1");
}

TEST(Utf8FromPlatformWide, ConvertsWellFormedText) {
  EXPECT_EQ(Utf8FromPlatformWide(L""), "");
  EXPECT_EQ(Utf8FromPlatformWide(L"Mode 1"), "Mode 1");
  EXPECT_EQ(Utf8FromPlatformWide(L"\u0080\u07FF\u0800\uFFFD"), "\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBD");
  EXPECT_EQ(Utf8FromPlatformWide(L"свет 灯 \U0001F4A1 \U0010FFFF"),
            "\xD1\x81\xD0\xB2\xD0\xB5\xD1\x82 \xE7\x81\xAF \xF0\x9F\x92\xA1 \xF4\x8F\xBF\xBF");
}

TEST(Utf8FromPlatformWide, ReplacesWhatIsNoCharacter) {
  const wchar_t lone[] = {L'a', static_cast<wchar_t>(0xD800), L'b'};
  EXPECT_EQ(Utf8FromPlatformWide({lone, 3}),
            "a\xEF\xBF\xBD"
            "b");
  if constexpr (sizeof(wchar_t) > sizeof(char16_t)) {
    const wchar_t far[] = {static_cast<wchar_t>(0x110000), static_cast<wchar_t>(-1)};
    EXPECT_EQ(Utf8FromPlatformWide({far, 2}), "\xEF\xBF\xBD\xEF\xBF\xBD");
  }
}

TEST(WideFromAnsi, ConvertsFromTheCodePagesOfOld) {
  EXPECT_EQ(WideFromAnsi("caf\xE9", 1252).view(), u"café");
  EXPECT_EQ(WideFromAnsi("\xF1\xE2\xE5\xF2", 1251).view(), u"свет");
  EXPECT_EQ(WideFromAnsi("\xC3\xA9", 65001).view(), u"é");
  EXPECT_EQ(WideFromAnsi("plain", 0).view(), u"plain");
  EXPECT_EQ(WideFromAnsi("", 1252).view(), u"");
}

TEST(WideFromAnsi, ConvertsLongText) {
  const std::string text(1000, '\xE9');
  EXPECT_EQ(WideFromAnsi(text.c_str(), 1252).view(), std::u16string(1000, u'é'));
}

}  // namespace
