#include "platform/qt/desktop/questions.h"

#include "platform/qt/desktop/file_dialogs.h"
#include "platform/qt/desktop/message_box.h"

namespace qt {

namespace {

QMessageBox::StandardButtons ButtonsOf(app::Buttons buttons) {
  switch (buttons) {
    case app::Buttons::YesNo:
      return QMessageBox::Yes | QMessageBox::No;
    case app::Buttons::YesNoCancel:
      return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case app::Buttons::Ok:
      break;
  }
  return QMessageBox::Ok;
}

QMessageBox::StandardButton EnterOf(const app::Question& question) {
  if (question.buttons == app::Buttons::Ok) return QMessageBox::Ok;
  return question.enterSaysNo ? QMessageBox::No : QMessageBox::Yes;
}

app::Answer AnswerOf(QMessageBox::StandardButton button) {
  switch (button) {
    case QMessageBox::Yes:
      return app::Answer::Yes;
    case QMessageBox::No:
      return app::Answer::No;
    case QMessageBox::Ok:
      return app::Answer::Ok;
    default:
      return app::Answer::Cancel;
  }
}

}  // namespace

app::Answer Questions::Ask(const app::Question& question) {
  const MainWindow::Blocked blocked(owner_);
  return AnswerOf(ShowMessage(&owner_.Window(), question.title, question.text, question.icon,
                              ButtonsOf(question.buttons), EnterOf(question)));
}

std::vector<std::filesystem::path> Questions::AskOpenFiles(const app::FileFilter& filter, bool multiple) {
  const MainWindow::Blocked blocked(owner_);
  std::vector<std::filesystem::path> files = qt::AskOpenFiles(&owner_.Window(), folder_, filter, multiple);
  if (!files.empty()) folder_ = files.front().parent_path();
  return files;
}

bool Questions::AskSaveFile(const app::FileFilter& filter, std::filesystem::path& path) {
  const MainWindow::Blocked blocked(owner_);
  if (!qt::AskSaveFile(&owner_.Window(), folder_, filter, path)) return false;
  folder_ = path.parent_path();
  return true;
}

}  // namespace qt
