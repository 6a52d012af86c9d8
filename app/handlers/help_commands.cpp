#include "app/handlers/help_commands.h"

#include <filesystem>
#include <vector>

#include "app/document/save_question.h"
#include "common/files.h"
#include "common/log.h"
#include "common/message.h"
#include "dialogs/dlg_check_up.h"
#include "doctor/bundle.h"

namespace app {

namespace {

constexpr FileFilter kZipFilter{u"ZIP Files", u"*.ZIP"};

// What the file dialog adds to a name without an extension is that of a program.
bool AskWhereToSaveZip(QuestionsPort& questions, std::filesystem::path& path) {
  if (!AskWhereToSave(questions, kZipFilter, path)) return false;
  if (path.extension() != ".xml") return true;
  path.replace_extension(".zip");
  return AskToReplace(questions, path);
}

void SaveBundle(const Shell& shell, const std::vector<doctor::BundleFile>& bundle) {
  std::filesystem::path path = "Lumarine-report.zip";
  if (!AskWhereToSaveZip(shell.questions, path)) return;
  if (WriteBundle(path, bundle))
    LogStatus(Message("The report is in {1}. Nothing was sent to anybody.", path));
}

}  // namespace

Changed ShowGuide(CommandContext& context) {
  const Shell& shell = context.shell;
  if (!shell.guide) {
    shell.questions.Ask({Message("User guide").ToWide(),
                         Message("The guide is not here: this copy of the program came without the file "
                                 "guide.html. The packages of Lumarine have it, and its chapters are in the "
                                 "folder docs/guide of the source.")
                             .ToWide(),
                         Buttons::Ok, Icon::Information});
  } else if (!shell.mainWindow.OpenFile(*shell.guide)) {
    shell.questions.Ask({Message("User guide").ToWide(),
                         Message("No program could be started that shows this page. Open it with a web "
                                 "browser: {1}",
                                 *shell.guide)
                             .ToWide(),
                         Buttons::Ok, Icon::Error});
  }
  return Changed::No;
}

Changed CheckUp(CommandContext& context) {
  const Shell& shell = context.shell;
  dialogs::CheckUpParams params;
  params.versions = {{"Lumarine", LUMARINE_VERSION}};
  params.subject.deviceLogFile = shell.deviceLogFile;
  params.versions.insert(params.versions.end(), shell.versions.begin(), shell.versions.end());
  if (dialogs::DlgCheckUp(shell.dialogs, params).DoModal() == dialogs::DlgCheckUp::kSaveBundle)
    SaveBundle(shell, params.bundle);
  return Changed::No;
}

}  // namespace app
