// lumarine. Its arguments are files to open.

#include <QApplication>
#include <QFont>
#include <QFontDatabase>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include <clocale>
#include <filesystem>
#include <vector>

#include "app/application.h"
#include "platform/qt/desktop/desktop_shell.h"
#include "platform/qt/desktop/text.h"

namespace {

std::vector<std::filesystem::path> FilesToOpen(const QStringList& arguments) {
  std::vector<std::filesystem::path> files;
  for (const QString& name : arguments.mid(1)) files.push_back(std::filesystem::absolute(qt::PathOf(name)));
  return files;
}

}  // namespace

int main(int count, char** arguments) {
  QApplication desktop(count, arguments);
  // Qt takes the user's locale over; numbers in files are everybody's.
  std::setlocale(LC_NUMERIC, "C");
  QApplication::setApplicationName(QStringLiteral("Lumarine"));
  QApplication::setDesktopFileName(QStringLiteral("lumarine"));
  // The chart asks for Tahoma; the desktop's own font stands in for it.
  QFont::insertSubstitution(QStringLiteral("Tahoma"),
                            QFontDatabase::systemFont(QFontDatabase::GeneralFont).family());
  // The words of the system's own buttons, in the system's language.
  QTranslator words;
  if (words.load(QLocale(), QStringLiteral("qtbase"), QStringLiteral("_"),
                 QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    QApplication::installTranslator(&words);
  }

  qt::DesktopShell shell;
  app::Shell ports = shell.Ports();
  ports.filesToOpen = FilesToOpen(QApplication::arguments());
  app::Application application(ports);
  shell.Connect(application);
  return application.Run();
}
