#include "devices/shown_name.h"

#include <algorithm>
#include <iterator>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"

namespace TCBase {

namespace {

struct Range {
  char16_t first;
  char16_t last;
};
constexpr Range kHarmful[] = {
    {0x0000, 0x001F},  // controls, line ends and escapes
    {0x007F, 0x009F},  // more of them
    {0x061C, 0x061C},  // marks of direction
    {0x200B, 0x200F},  // no width; marks of direction
    {0x2028, 0x202E},  // line ends; embeddings and overrides
    {0x2060, 0x206F},  // no width; isolates
    {0xFEFF, 0xFEFF},  // no width
    {0xFFF9, 0xFFFB},  // annotations
};

bool IsHarmful(char16_t c) {
  return std::any_of(std::begin(kHarmful), std::end(kHarmful),
                     [c](const Range& range) { return c >= range.first && c <= range.last; });
}

}  // namespace

std::string ShownName(std::string_view name) {
  std::u16string wide = WideFromUtf8(name);
  std::replace_if(wide.begin(), wide.end(), IsHarmful, u'\uFFFD');
  return Utf8FromWide(wide);
}

}  // namespace TCBase
