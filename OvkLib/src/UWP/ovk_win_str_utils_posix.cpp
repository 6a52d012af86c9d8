#include <iconv.h>

#include <bit>
#include <cerrno>
#include <cstddef>
#include <limits>

#include "OvkLib/src/UWP/ovk_win_error.h"
#include "OvkLib/src/UWP/ovk_win_str_utils.h"

namespace {

constexpr auto kMostCharacters = static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max());
constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kLastCode = 0x10FFFF;

constexpr bool IsSurrogate(char32_t code) {
  return code >= 0xD800 && code <= 0xDFFF;
}
constexpr bool IsHighSurrogate(char32_t code) {
  return code >= 0xD800 && code <= 0xDBFF;
}
constexpr bool IsLowSurrogate(char32_t code) {
  return code >= 0xDC00 && code <= 0xDFFF;
}

// What may follow a lead byte: how many bytes in all, and the range of the second one, which is where
// overlong forms, surrogates and codes above U+10FFFF are seen.
struct Sequence {
  std::size_t length;
  unsigned char secondFrom;
  unsigned char secondTo;
};

constexpr Sequence SequenceOf(unsigned char lead) {
  if (lead < 0x80) return {1, 0, 0};
  if (lead < 0xC2) return {0, 0, 0};
  if (lead < 0xE0) return {2, 0x80, 0xBF};
  if (lead == 0xE0) return {3, 0xA0, 0xBF};
  if (lead == 0xED) return {3, 0x80, 0x9F};
  if (lead < 0xF0) return {3, 0x80, 0xBF};
  if (lead == 0xF0) return {4, 0x90, 0xBF};
  if (lead < 0xF4) return {4, 0x80, 0xBF};
  if (lead == 0xF4) return {4, 0x80, 0x8F};
  return {0, 0, 0};
}

constexpr bool IsContinuation(unsigned char byte) {
  return (byte & 0xC0) == 0x80;
}

// Takes one character off the front of `text`, which is not empty. A sequence that breaks off gives one
// replacement for the bytes that belonged together so far. As with the Windows function, these include a
// second byte that is out of the lead's range, but none behind it.
char32_t TakeUtf8(std::string_view& text) {
  const auto lead = static_cast<unsigned char>(text[0]);
  const Sequence sequence = SequenceOf(lead);
  if (sequence.length <= 1) {
    text.remove_prefix(1);
    return sequence.length == 1 ? lead : kReplacement;
  }
  char32_t code = lead & (0x7FU >> sequence.length);
  std::size_t taken = 1;
  bool good = true;
  while (good && taken < sequence.length) {
    good = taken < text.size() && IsContinuation(static_cast<unsigned char>(text[taken]));
    if (!good) break;
    const auto byte = static_cast<unsigned char>(text[taken]);
    if (taken == 1) good = byte >= sequence.secondFrom && byte <= sequence.secondTo;
    code = code << 6 | (byte & 0x3FU);
    ++taken;
  }
  text.remove_prefix(taken);
  return good ? code : kReplacement;
}

void AppendUtf8(std::string& out, char32_t code) {
  const auto put = [&out](char32_t byte) { out.push_back(static_cast<char>(byte)); };
  if (code < 0x80) {
    put(code);
    return;
  }
  if (code < 0x800) {
    put(0xC0 | code >> 6);
  } else {
    if (code < 0x10000) {
      put(0xE0 | code >> 12);
    } else {
      put(0xF0 | code >> 18);
      put(0x80 | (code >> 12 & 0x3F));
    }
    put(0x80 | (code >> 6 & 0x3F));
  }
  put(0x80 | (code & 0x3F));
}

void AppendWide(std::u16string& out, char32_t code) {
  if (code < 0x10000) {
    out.push_back(static_cast<char16_t>(code));
  } else {
    out.push_back(static_cast<char16_t>(0xD800 + ((code - 0x10000) >> 10)));
    out.push_back(static_cast<char16_t>(0xDC00 + (code & 0x3FF)));
  }
}

// An open conversion of iconv.
class Converter {
 public:
  Converter(const char* to, const char* from) : handle_(iconv_open(to, from)) {}
  ~Converter() {
    if (IsOpen()) iconv_close(handle_);
  }
  Converter(const Converter&) = delete;
  Converter& operator=(const Converter&) = delete;

  // NOLINTNEXTLINE(performance-no-int-to-ptr): iconv tells its failure by this very pointer.
  bool IsOpen() const { return handle_ != reinterpret_cast<iconv_t>(-1); }

  // Converts all of `text`; bytes that mean nothing become U+FFFD.
  ovk::wstring Convert(std::string_view text) const;

 private:
  iconv_t handle_;
};

ovk::wstring Converter::Convert(std::string_view text) const {
  constexpr std::size_t kPieceLength = 256;
  ovk::wstring wide;
  char* from = const_cast<char*>(text.data());  // the interface is older than const
  std::size_t left = text.size();
  while (left > 0) {
    char16_t piece[kPieceLength];
    char* to = reinterpret_cast<char*>(piece);
    std::size_t room = sizeof(piece);
    const std::size_t result = iconv(handle_, &from, &left, &to, &room);
    const int error = result == static_cast<std::size_t>(-1) ? errno : 0;
    wide.append(piece, static_cast<std::int32_t>((sizeof(piece) - room) / sizeof(char16_t)));
    if (error == EILSEQ || error == EINVAL) {
      wide.push_back(static_cast<char16_t>(kReplacement));
      ++from;
      --left;
    }
  }
  return wide;
}

constexpr std::uint32_t kSystemCodePage = 0;
constexpr std::uint32_t kUtf8CodePage = 65001;

// The place that is reported for an unknown code page, the same as on Windows.
constexpr const char* kPlace = "ovk_win_str_utils";
constexpr std::int32_t kUnknownCodePageLine = 88;

}  // namespace

std::u16string WideFromUtf8(std::string_view text) {
  std::u16string wide;
  if (text.size() > kMostCharacters) return wide;
  wide.reserve(text.size());
  while (!text.empty()) AppendWide(wide, TakeUtf8(text));
  return wide;
}

std::string Utf8FromWide(std::u16string_view text) {
  std::string utf8;
  if (text.size() > kMostCharacters) return utf8;
  utf8.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    char32_t code = text[i];
    if (IsHighSurrogate(code) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
      code = 0x10000 + ((code - 0xD800) << 10) + (text[++i] - char32_t{0xDC00});
    } else if (IsSurrogate(code)) {
      code = kReplacement;
    }
    AppendUtf8(utf8, code);
  }
  return utf8;
}

std::string Utf8FromPlatformWide(std::wstring_view text) {
  static_assert(sizeof(wchar_t) == sizeof(char32_t));
  std::string utf8;
  for (const wchar_t c : text) {
    const auto code = static_cast<char32_t>(c);
    AppendUtf8(utf8, IsSurrogate(code) || code > kLastCode ? kReplacement : code);
  }
  return utf8;
}

ovk::wstring WideFromAnsi(const char* text, std::uint32_t codePage) {
  // The system's own code page is UTF-8 here. It can't fail, which ends the recursion: a reported error names
  // its place in this code page.
  if (codePage == kSystemCodePage || codePage == kUtf8CodePage) {
    return ovk::wstring(std::u16string_view(WideFromUtf8(text)));
  }
  const std::string from = "CP" + std::to_string(codePage);
  const Converter converter(std::endian::native == std::endian::little ? "UTF-16LE" : "UTF-16BE",
                            from.c_str());
  ovk::win::check(!converter.IsOpen(), kUnknownCodePageLine, kPlace);
  return converter.Convert(text);
}
