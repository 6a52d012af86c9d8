// The dialogs built into Lumarine.exe, held against the table of their templates and the shell's table of
// classes and styles.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <iterator>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "dialogs/dialog.h"
#include "dialogs/dialog_template.h"
#include "platform/win32/control_classes.h"
#include "platform/win32/resource_ids.h"
#include "tests/desktop/program_resources.h"
#include "tests/desktop/window_text.h"

namespace {

using desktop::Ascii;
using dialogs::ControlKind;
using dialogs::ControlTemplate;
namespace trait = dialogs::trait;

using NameOrNumber = std::variant<std::wstring, WORD>;

// Walks over a template's bytes: numbers, each behind the one before, and texts of UTF-16.
class Bytes {
 public:
  explicit Bytes(std::string_view bytes) : bytes_(bytes) {}

  template <class Number>
  Number Take() {
    Number number{};
    EXPECT_LE(at_ + sizeof number, bytes_.size());
    if (at_ + sizeof number <= bytes_.size()) std::memcpy(&number, bytes_.data() + at_, sizeof number);
    at_ += sizeof number;
    return number;
  }
  std::wstring TakeText() {
    std::wstring text;
    while (const wchar_t character = Take<wchar_t>()) text += character;
    return text;
  }
  NameOrNumber TakeNameOrNumber() {
    const std::size_t start = at_;
    if (Take<WORD>() == 0xFFFF) return Take<WORD>();
    at_ = start;
    return TakeText();
  }
  Rect TakeRect() {
    Rect rect;
    for (std::int32_t* member : {&rect.x, &rect.y, &rect.width, &rect.height}) *member = Take<short>();
    return rect;
  }
  void Skip(std::size_t count) { at_ += count; }
  void AlignToDoubleWord() { at_ = (at_ + 3) / 4 * 4; }

 private:
  std::string_view bytes_;
  std::size_t at_ = 0;
};

struct Item {
  DWORD style = 0;
  Rect place;
  int id = 0;
  NameOrNumber className;
  NameOrNumber text;
};

struct Dialog {
  DWORD style = 0;
  Rect place;
  std::wstring title;
  WORD points = 0;
  std::wstring font;
  std::vector<Item> items;
};

Dialog ReadDialog(std::string_view resource) {
  Bytes bytes(resource);
  Dialog dialog;
  EXPECT_EQ(bytes.Take<DWORD>(), 0xFFFF0001) << "the kind with a character set";
  bytes.Skip(2 * sizeof(DWORD));
  dialog.style = bytes.Take<DWORD>();
  const WORD count = bytes.Take<WORD>();
  dialog.place = bytes.TakeRect();
  EXPECT_EQ(std::get<std::wstring>(bytes.TakeNameOrNumber()), L"") << "the menu";
  EXPECT_EQ(std::get<std::wstring>(bytes.TakeNameOrNumber()), L"") << "the class";
  dialog.title = bytes.TakeText();
  dialog.points = bytes.Take<WORD>();
  bytes.Skip(2 * sizeof(WORD));
  dialog.font = bytes.TakeText();
  for (int i = 0; i < count; ++i) {
    bytes.AlignToDoubleWord();
    bytes.Skip(2 * sizeof(DWORD));
    Item item;
    item.style = bytes.Take<DWORD>();
    item.place = bytes.TakeRect();
    item.id = bytes.Take<int>();
    item.className = bytes.TakeNameOrNumber();
    item.text = bytes.TakeNameOrNumber();
    bytes.Skip(bytes.Take<WORD>());
    dialog.items.push_back(item);
  }
  return dialog;
}

// Windows does not tell them from small letters in the names of classes.
std::wstring InCapitals(std::wstring name) {
  CharUpperW(name.data());
  return name;
}

std::wstring ClassOf(const Item& item) {
  constexpr WORD kFirst = 0x80;
  constexpr const wchar_t* kNumbered[] = {L"BUTTON",  L"EDIT",      L"STATIC",
                                          L"LISTBOX", L"SCROLLBAR", L"COMBOBOX"};
  if (const WORD* const number = std::get_if<WORD>(&item.className)) {
    const auto index = static_cast<std::size_t>(*number - kFirst);
    return index < std::size(kNumbered) ? kNumbered[index] : L"";
  }
  return InCapitals(std::get<std::wstring>(item.className));
}

bool Has(DWORD style, DWORD bits) {
  return (style & bits) == bits;
}

// The Tab key stops at each control that can have the focus.
DWORD TabStopOf(const ControlTemplate& control) {
  switch (control.kind) {
    case ControlKind::Label:
    case ControlKind::ProgramIcon:
    case ControlKind::GroupBox:
      return 0;
    default:
      return (control.traits & trait::kNoTabStop) == 0 ? WS_TABSTOP : 0;
  }
}

void ExpectItem(const Item& item, const ControlTemplate& control) {
  SCOPED_TRACE("control " + std::to_string(control.id));
  EXPECT_EQ(item.id, control.id);
  EXPECT_EQ(item.place, control.place.In(0, 0));
  EXPECT_EQ(ClassOf(item), InCapitals(win32::ClassOf(control.kind)));
  // Where a group for the arrow keys begins is the resource compiler's choice.
  EXPECT_EQ(item.style & ~DWORD{WS_GROUP}, win32::StyleOf(control) | TabStopOf(control));
  if (control.kind == ControlKind::ProgramIcon) {
    EXPECT_EQ(std::get<WORD>(item.text), win32::resource::kLargeIcon);
  } else {
    EXPECT_EQ(desktop::Utf8(std::get<std::wstring>(item.text)), control.text);
  }
}

class DialogResources : public desktop::ProgramResources,
                        public testing::WithParamInterface<dialogs::DialogTemplate> {};

TEST_P(DialogResources, AreTheTemplatesOfTheTable) {
  const dialogs::DialogTemplate& table = GetParam();
  const std::string_view bytes = this->Bytes(table.number, MAKEINTRESOURCEW(5));
  ASSERT_FALSE(bytes.empty());
  const Dialog dialog = ReadDialog(bytes);
  EXPECT_EQ(Ascii(dialog.title), table.title);
  EXPECT_EQ(dialog.place, table.place);
  EXPECT_EQ(Ascii(dialog.font), "MS Shell Dlg");
  EXPECT_EQ(dialog.points, 8);
  EXPECT_TRUE(Has(dialog.style, DS_MODALFRAME | WS_POPUP | WS_CAPTION | WS_SYSMENU));
  ASSERT_EQ(dialog.items.size(), table.controls.size());
  for (std::size_t i = 0; i < dialog.items.size(); ++i) ExpectItem(dialog.items[i], table.controls[i]);
}

INSTANTIATE_TEST_SUITE_P(All, DialogResources, testing::ValuesIn(dialogs::Templates()),
                         [](const auto& tested) { return std::to_string(tested.param.number); });

}  // namespace
