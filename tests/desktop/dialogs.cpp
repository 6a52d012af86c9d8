#include "tests/desktop/dialogs.h"

// after windows.h
#include <dlgs.h>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "tests/desktop/window_text.h"

namespace desktop::dialogs {

namespace {

constexpr int kMessageText = 0xFFFF;

// Where the name is typed: an edit control, or the one of a combo box.
HWND NameField(HWND dialog) {
  for (const int id : {edt1, cmb13}) {
    const HWND field = GetDlgItem(dialog, id);
    if (field == nullptr) continue;
    const HWND inner = FindWindowExW(field, nullptr, L"ComboBox", nullptr);
    const HWND edit = FindWindowExW(inner != nullptr ? inner : field, nullptr, L"Edit", nullptr);
    return edit != nullptr ? edit : field;
  }
  return nullptr;
}

bool HasButton(HWND box, int id) {
  return GetDlgItem(box, id) != nullptr;
}

void PressButton(HWND dialog, int id) {
  PostMessageW(dialog, WM_COMMAND, static_cast<WPARAM>(MAKELONG(id, BN_CLICKED)),
               reinterpret_cast<LPARAM>(GetDlgItem(dialog, id)));
}

}  // namespace

bool IsFileDialog(HWND dialog) {
  return NameField(dialog) != nullptr;
}

bool IsMessageBox(HWND dialog) {
  return GetDlgItem(dialog, kMessageText) != nullptr;
}

app::Question ReadMessageBox(HWND box) {
  app::Question question;
  question.title = WideFromUtf8(WindowText(box));
  question.text = WideFromUtf8(WindowText(GetDlgItem(box, kMessageText)));
  if (HasButton(box, IDYES)) {
    question.buttons = HasButton(box, IDCANCEL) ? app::Buttons::YesNoCancel : app::Buttons::YesNo;
  }
  return question;
}

void Answer(HWND box, app::Answer answer) {
  switch (answer) {
    case app::Answer::Yes:
      return PressButton(box, IDYES);
    case app::Answer::No:
      return PressButton(box, IDNO);
    case app::Answer::Ok:
      // A lone "OK" may have the number of "Cancel", so that Esc presses it.
      return PressButton(box, HasButton(box, IDOK) ? IDOK : IDCANCEL);
    case app::Answer::Cancel:
      return PressButton(box, HasButton(box, IDCANCEL) ? IDCANCEL : IDOK);
  }
}

void Pick(HWND dialog, const std::vector<std::filesystem::path>& files) {
  if (files.empty()) return PressButton(dialog, IDCANCEL);
  std::wstring names;
  for (const std::filesystem::path& file : files) {
    std::filesystem::path native = file;
    native.make_preferred();
    names += files.size() == 1 ? native.native() : L"\"" + native.native() + L"\" ";
  }
  SendMessageW(NameField(dialog), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(names.c_str()));
  PressButton(dialog, IDOK);
}

}  // namespace desktop::dialogs
