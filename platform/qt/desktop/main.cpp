// lumarine. Its arguments are files to open; what Qt knows of options (-platform, -style) is taken by Qt.

#include <QApplication>
#include <QFont>
#include <QFontDatabase>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include <clocale>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <string_view>
#include <vector>

#include "app/application.h"
#include "platform/qt/desktop/desktop_shell.h"
#include "platform/qt/desktop/text.h"

namespace {

// Nothing, and a word on the error output, if there is an option that nobody knows.
std::optional<std::vector<std::filesystem::path>> FilesToOpen(const QStringList& arguments) {
  std::vector<std::filesystem::path> files;
  bool mayBeOption = true;
  for (const QString& name : arguments.mid(1)) {
    if (mayBeOption && name == QLatin1String("--")) {
      mayBeOption = false;
    } else if (mayBeOption && name.startsWith(QLatin1String("--"))) {
      std::fprintf(stderr, "lumarine: there is no option %s. \"lumarine --help\" tells which there are.\n",
                   qPrintable(name));
      return std::nullopt;
    } else {
      files.push_back(std::filesystem::absolute(qt::PathOf(name)));
    }
  }
  return files;
}

constexpr char kHelp[] =
    "Usage: lumarine [FILE...]\n"
    "Opens Lumarine, with the light program in FILE.\n\n"
    "  --help      shows this\n"
    "  --version   shows the version\n\n"
    "lumarinectl does the same work from the command line.\n";

// What can be said without a window, as the process's exit code; nothing if a window is wanted.
std::optional<int> Answer(int count, char** arguments) {
  for (int i = 1; i < count; ++i) {
    const std::string_view word = arguments[i];
    if (word == "--") return std::nullopt;  // files from here on
    if (word == "--version") return std::puts("Lumarine " LUMARINE_VERSION) < 0 ? 1 : 0;
    if (word == "--help") return std::fputs(kHelp, stdout) < 0 ? 1 : 0;
  }
  return std::nullopt;
}

}  // namespace

int main(int count, char** arguments) {
  if (const std::optional<int> answer = Answer(count, arguments)) return *answer;
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

  const auto files = FilesToOpen(QApplication::arguments());
  if (!files) return 2;
  qt::DesktopShell shell;
  app::Shell ports = shell.Ports();
  ports.filesToOpen = *files;
  app::Application application(ports);
  shell.Connect(application);
  return application.Run();
}
