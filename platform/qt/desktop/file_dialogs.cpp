#include "platform/qt/desktop/file_dialogs.h"

#include <QFileDialog>
#include <QMessageBox>

#include "common/platform.h"
#include "platform/qt/desktop/text.h"

namespace qt {

namespace {

namespace fs = std::filesystem;

QString PatternText(std::u16string_view pattern) {
  if (pattern == app::kAllFilesFilter.pattern) return QStringLiteral("*");
  QString text;
  for (const QChar unit : QtText(pattern)) {
    if (unit.isLetter()) {
      text += u'[' + unit.toUpper() + unit.toLower() + u']';
    } else {
      text += unit;
    }
  }
  return text;
}

bool IsFolder(const fs::path& path) {
  std::error_code error;
  return fs::is_directory(path, error);
}

fs::path StartFolder(const fs::path& folder) {
  return IsFolder(folder) ? folder : platform::DocumentsFolder().value_or(fs::path());
}

void Prepare(QFileDialog& dialog, const fs::path& folder, const app::FileFilter& filter) {
  dialog.setDirectory(QtPath(StartFolder(folder)));
  dialog.setNameFilters({FilterText(filter), FilterText(app::kAllFilesFilter)});
  dialog.setOption(QFileDialog::HideNameFilterDetails);
}

// The system's words for a folder that is not there.
void TellNoFolder(QWidget* owner, const fs::path& folder) {
  QMessageBox::warning(owner, QFileDialog::tr("Save As"),
                       QFileDialog::tr("%1\nDirectory not found.\nPlease verify the correct directory name "
                                       "was given.")
                           .arg(QtPath(folder)));
}

}  // namespace

QString FilterText(const app::FileFilter& filter) {
  return QStringLiteral("%1 (%2)").arg(QtText(filter.name), PatternText(filter.pattern));
}

std::vector<fs::path> AskOpenFiles(QWidget* owner, const fs::path& folder, const app::FileFilter& filter,
                                   bool multiple) {
  QFileDialog dialog(owner);
  dialog.setFileMode(multiple ? QFileDialog::ExistingFiles : QFileDialog::ExistingFile);
  Prepare(dialog, folder, filter);
  std::vector<fs::path> files;
  if (dialog.exec() != QDialog::Accepted) return files;
  for (const QString& name : dialog.selectedFiles()) files.push_back(PathOf(name));
  return files;
}

bool AskSaveFile(QWidget* owner, const fs::path& folder, const app::FileFilter& filter, fs::path& path) {
  QFileDialog dialog(owner);
  dialog.setFileMode(QFileDialog::AnyFile);
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  // The application asks by itself.
  dialog.setOption(QFileDialog::DontConfirmOverwrite);
  dialog.setDefaultSuffix(QtText(app::kDefaultExtension));
  Prepare(dialog, path.is_absolute() ? path.parent_path() : folder, filter);
  dialog.selectFile(QtPath(path.filename()));
  while (dialog.exec() == QDialog::Accepted) {
    const fs::path chosen = PathOf(dialog.selectedFiles().value(0));
    if (IsFolder(chosen.parent_path())) {
      path = chosen;
      return true;
    }
    TellNoFolder(owner, chosen.parent_path());
  }
  return false;
}

}  // namespace qt
