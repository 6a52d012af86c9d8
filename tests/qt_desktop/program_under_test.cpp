#include "tests/qt_desktop/program_under_test.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>

#include "app/application.h"
#include "common/files.h"
#include "localisation/translation_store.h"
#include "platform/qt/desktop/desktop_shell.h"
#include "program/settings.h"
#include "tests/qt_desktop/gui_thread.h"
#include "tests/support/empty_logs.h"
#include "tests/support/files.h"
#include "tests/support/patience.h"

namespace qt_desktop {

namespace {

// Closes whatever stands over the main window.
void LeaveDialog() {
  if (QWidget* const popup = QApplication::activePopupWidget()) popup->close();
  if (auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) dialog->reject();
}

}  // namespace

ProgramUnderTest::ProgramUnderTest(const Folders& folders, const std::vector<std::filesystem::path>& files) {
  StartInGui([this, folders, files] { Run(folders, files); });
}

ProgramUnderTest::~ProgramUnderTest() {
  isGivenUp_ = true;
  EXPECT_TRUE(WaitUntil([this] {
    if (!hasEnded_) InGui(LeaveDialog);
    return hasEnded_.load();
  }));
}

void ProgramUnderTest::Run(const Folders& folders, const std::vector<std::filesystem::path>& files) {
  const EmptyLogs logs;
  TranslationStore translations(BytesOf(folders.resources / "translations.xml"),
                                BytesOf(folders.resources / "translations-more.xml"));
  translations.AnswerMessages();
  Settings settings(folders.documents / Settings::fileName);
  {
    qt::DesktopShell shell;
    const app::Shell ports = shell.Ports();
    app::Application application(
        {ports.platform, ports.mainWindow, ports.chartWindow, ports.controls, ports.logPane, ports.menu,
         ports.questions, ports.dialogs, ports.stepTable, ports.events, ports.makeRenderer, settings,
         folders.documents / "LumarineLog.txt", folders.documents, folders.documents / "state", files,
         translations, ports.guide, ports.versions});
    shell.Connect(application);
    if (application.StartUp()) {
      hasStarted_ = true;
      while (!isGivenUp_ && application.Turn()) continue;
      if (!isGivenUp_) application.ShutDown();
    }
  }
  settings.Save();
  hasEnded_ = true;
}

}  // namespace qt_desktop
