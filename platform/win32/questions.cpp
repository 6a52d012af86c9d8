#include "platform/win32/questions.h"

#include "platform/win32/file_dialogs.h"
#include "platform/win32/message_box.h"

namespace win32 {

namespace {

UINT ButtonsOf(app::Buttons buttons) {
  switch (buttons) {
    case app::Buttons::YesNo:
      return MB_YESNO;
    case app::Buttons::YesNoCancel:
      return MB_YESNOCANCEL;
    case app::Buttons::Ok:
      break;
  }
  return MB_OK;
}

UINT DefaultOf(const app::Question& question) {
  // Yes comes first and No second in every box that has them.
  return question.enterSaysNo && question.buttons != app::Buttons::Ok ? MB_DEFBUTTON2 : MB_DEFBUTTON1;
}

app::Answer AnswerOf(int button) {
  switch (button) {
    case IDYES:
      return app::Answer::Yes;
    case IDNO:
      return app::Answer::No;
    case IDOK:
      return app::Answer::Ok;
    default:
      return app::Answer::Cancel;
  }
}

}  // namespace

app::Answer Questions::Ask(const app::Question& question) {
  return AnswerOf(ShowMessage(owner_.Handle(), question.title, question.text, question.icon,
                              ButtonsOf(question.buttons) | DefaultOf(question)));
}

std::vector<std::filesystem::path> Questions::AskOpenFiles(const app::FileFilter& filter, bool multiple) {
  return win32::AskOpenFiles(owner_.Handle(), filter, multiple);
}

bool Questions::AskSaveFile(const app::FileFilter& filter, std::filesystem::path& path) {
  return win32::AskSaveFile(owner_.Handle(), filter, path);
}

}  // namespace win32
