#include "platform/win32/control_classes.h"

#include <array>
#include <cstddef>

// after windows.h
#include <commctrl.h>
#include <richedit.h>

namespace win32 {

namespace {

using Kind = dialogs::ControlKind;
namespace trait = dialogs::trait;

struct KindRow {
  Kind kind;
  const wchar_t* className;
  DWORD style;
};

constexpr auto kKinds = std::to_array<KindRow>({
    {Kind::Label, WC_STATICW, SS_LEFT},
    {Kind::Edit, WC_EDITW, WS_BORDER},
    {Kind::Button, WC_BUTTONW, BS_PUSHBUTTON},
    {Kind::GroupBox, WC_BUTTONW, BS_GROUPBOX},
    {Kind::ListBox, WC_LISTBOXW, LBS_NOTIFY | WS_BORDER},
    {Kind::DropDownList, WC_COMBOBOXW, CBS_DROPDOWNLIST},
    {Kind::ComboBox, WC_COMBOBOXW, CBS_DROPDOWN},
    {Kind::DateTimePicker, DATETIMEPICK_CLASSW, 0},
    {Kind::ProgramIcon, WC_STATICW, SS_ICON},
    {Kind::Slider, TRACKBAR_CLASSW, 0},
    {Kind::ScrollBar, WC_SCROLLBARW, 0},
    {Kind::RichText, MSFTEDIT_CLASS, WS_BORDER},
    {Kind::Chart, L"LumarineRenderWnd", 0},
});

constexpr bool IsInOrder() {
  for (std::size_t i = 0; i < kKinds.size(); ++i) {
    if (kKinds[i].kind != static_cast<Kind>(i)) return false;
  }
  return true;
}
static_assert(IsInOrder());

struct TraitRow {
  unsigned trait;
  DWORD style;
};

// Traits that mean the same for each kind that can have them.
constexpr TraitRow kTraits[] = {
    {trait::kMultiLine, ES_MULTILINE},
    {trait::kVerticalScrollBar, WS_VSCROLL},
    {trait::kWantsReturn, ES_WANTRETURN},
    {trait::kReadOnly, ES_READONLY},
    {trait::kDefault, BS_DEFPUSHBUTTON},
    {trait::kAmpersands, SS_NOPREFIX},
    {trait::kMultiSelection, LBS_EXTENDEDSEL},
    {trait::kSunken, SS_SUNKEN | SS_ENDELLIPSIS},
    {trait::kTicks, TBS_AUTOTICKS},
    {trait::kDisabled, WS_DISABLED},
};

// Edit fields, list boxes and combo boxes have bits of their own for the others.
DWORD OwnStyleOf(const dialogs::ControlTemplate& control) {
  const auto bit = [&](unsigned trait, DWORD style) { return (control.traits & trait) != 0 ? style : 0; };
  switch (control.kind) {
    case Kind::Edit:
      return bit(trait::kAutoScroll, ES_AUTOHSCROLL) |
             ((control.traits & trait::kReadOnly) == 0 ? bit(trait::kMultiLine, ES_AUTOVSCROLL) : 0);
    case Kind::ListBox:
      return bit(trait::kSorted, LBS_SORT);
    case Kind::DropDownList:
    case Kind::ComboBox:
      return bit(trait::kAutoScroll, CBS_AUTOHSCROLL) | bit(trait::kSorted, CBS_SORT);
    default:
      return 0;
  }
}

}  // namespace

const wchar_t* ClassOf(Kind kind) {
  return kKinds[static_cast<std::size_t>(kind)].className;
}

DWORD StyleOf(const dialogs::ControlTemplate& control) {
  DWORD style = WS_CHILD | kKinds[static_cast<std::size_t>(control.kind)].style | OwnStyleOf(control);
  if ((control.traits & trait::kHidden) == 0) style |= WS_VISIBLE;
  for (const TraitRow& row : kTraits) {
    if ((control.traits & row.trait) != 0) style |= row.style;
  }
  return style;
}

}  // namespace win32
