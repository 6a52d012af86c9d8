// Every field of one line of every dialog, as the templates in Lumarine.exe have it, with a clipboard that
// holds far too much.

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "dialogs/dialog_template.h"
#include "platform/win32/open_dialog.h"
#include "tests/desktop/clipboard.h"
#include "tests/desktop/program_resources.h"

// after windows.h
#include <commctrl.h>

namespace {

using dialogs::ControlKind;
using dialogs::ControlTemplate;
namespace trait = dialogs::trait;

constexpr std::size_t kUnits = 2048;
constexpr int kLimit = 20;

std::string TenMegabytesOf(std::string_view part) {
  std::string text;
  text.reserve(10'000'000 + part.size());
  while (text.size() < 10'000'000) text += part;
  return text;
}

class DialogFields : public desktop::ProgramResources {
 protected:
  void SetUp() override {
    const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_DATE_CLASSES};
    InitCommonControlsEx(&classes);
    ProgramResources::SetUp();
  }

  // Calls `look` with each field of one line that the user can write into: its dialog and its own window.
  // Those of several lines are for the real window: breaking so much text into lines takes its time.
  template <class Look>
  void InEachField(const Look& look) {
    int fields = 0;
    for (const dialogs::DialogTemplate& form : dialogs::Templates()) {
      const HWND window = CreateDialogParamW(program_, MAKEINTRESOURCEW(form.number), nullptr, &Procedure, 0);
      ASSERT_NE(window, nullptr) << form.number;
      {
        win32::OpenDialog dialog(window, nullptr);
        for (const ControlTemplate& control : form.controls) {
          const bool isField = control.kind == ControlKind::Edit || control.kind == ControlKind::ComboBox;
          if (!isField || (control.traits & (trait::kReadOnly | trait::kMultiLine)) != 0) continue;
          SCOPED_TRACE("dialog " + std::to_string(form.number) + ", " + std::to_string(control.id));
          look(dialog, control, FieldOf(GetDlgItem(window, control.id)));
          ++fields;
        }
      }
      DestroyWindow(window);
    }
    EXPECT_EQ(fields, 44)
        << "a name, a value, two of the network, four of a change, twelve of lamps, 24 of new modes";
  }

 private:
  static INT_PTR CALLBACK Procedure(HWND, UINT, WPARAM, LPARAM) { return FALSE; }
  // That of a combo box is a window in it.
  static HWND FieldOf(HWND control) {
    const HWND inner = FindWindowExW(control, nullptr, L"Edit", nullptr);
    return inner != nullptr ? inner : control;
  }
};

TEST_F(DialogFields, TenMegabytesPastedAreReadUpToTheRoomOfTheText) {
  ASSERT_TRUE(desktop::PutOnClipboard("水槽 🐠 " + TenMegabytesOf("08:00 50 ")));
  InEachField([](win32::OpenDialog& dialog, const ControlTemplate& control, HWND field) {
    SendMessageW(field, WM_PASTE, 0, 0);
    const std::u16string text = dialog.Text(control.id, kUnits);
    EXPECT_GT(text.size(), 100U);
    EXPECT_LT(text.size(), kUnits);
    EXPECT_TRUE(text.starts_with(u"水槽 🐠 08:00 50 08:00"));
  });
}

TEST_F(DialogFields, WhatIsPastedEndsAtTheLimitOfTheField) {
  ASSERT_TRUE(desktop::PutOnClipboard(TenMegabytesOf("水")));
  InEachField([](win32::OpenDialog& dialog, const ControlTemplate& control, HWND field) {
    if (control.kind != ControlKind::Edit) return;  // no list has one
    dialog.LimitText(control.id, kLimit);
    SendMessageW(field, WM_PASTE, 0, 0);
    EXPECT_LE(dialog.Text(control.id, kUnits).size(), std::size_t{kLimit});
  });
}

}  // namespace
