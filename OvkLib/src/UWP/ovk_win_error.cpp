#include "OvkLib/src/UWP/ovk_win_error.h"

#include "OvkLib/src/UWP/ovk_win_error_platform.h"
#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "OvkLib/src/ovk_text.h"

namespace ovk::win {

namespace {

constexpr std::uint32_t kSystemCodePage = 0;
constexpr int kDecimal = 10;
constexpr int kHexadecimal = 16;
constexpr std::int32_t kHexadecimalDigits = 8;

template <class Exception>
void throw_if(std::u16string_view context, std::uint32_t code) {
  if (code == Exception::fixed_code) throw Exception(context);
}

}  // namespace

void xsystem::describe(wstring& out) const {
  out.append(context_->view());
  out.append(u"\nWin32 API Error.");
  out.append(u"\nError Code: ");
  out.append(ToRadix(code_, kDecimal));
  out.append(u" (0x");
  const std::u16string hexadecimal = ToRadix(code_, kHexadecimal);
  out.resize(out.length() + kHexadecimalDigits - static_cast<std::int32_t>(hexadecimal.size()), u'0');
  out.append(hexadecimal);
  out.append(u")");
  if (code_ == 0) return;
  out.append(u"\nDescription: ");
  if (!append_error_text(code_, out)) out.append(u"Cannot obtain error description.");
}

void throw_error(std::u16string_view context, std::uint32_t code) {
  throw_if<xaccess_denied>(context, code);
  throw_if<xwrite_protected>(context, code);
  throw_if<xwrite_fault>(context, code);
  throw_if<xread_fault>(context, code);
  throw_if<xsharing_violation>(context, code);
  throw_if<xdisk_full>(context, code);
  throw xsystem(context, code);
}

void check(bool failed, std::int32_t line, const char* file) {
  if (!failed) return;
  // First of all: what follows makes platform calls of its own.
  const std::uint32_t code = last_error();
  wstring context = WideFromAnsi(file, kSystemCodePage);
  context.append(u":");
  context.append(WideFromUtf8(ToDecimal(line)));
  throw_error(context.view(), code);
}

}  // namespace ovk::win
