// The command that looks at what usually goes wrong: doctor.

#include <algorithm>
#include <memory>
#include <string>

#include "cli/commands.h"
#include "cli/options.h"
#include "common/files.h"
#include "common/message.h"
#include "doctor/bundle.h"
#include "doctor/examination.h"
#include "doctor/report.h"

namespace cli {

namespace {

struct DoctorArguments {
  bool json = false;
  std::string bundle;  // UTF-8, empty for none
  std::string show;    // a file of the bundle; empty for none
  bool yes = false;
};

using Bundle = std::vector<doctor::BundleFile>;

doctor::Versions OwnVersions() {
  return {{"Lumarine", LUMARINE_VERSION}, {"Program", "lumarinectl"}};
}

ExitStatus StatusOf(const std::vector<doctor::Finding>& findings) {
  return WorstOf(findings) == doctor::Sign::Broken ? ExitStatus::OperationFailed : ExitStatus::Success;
}

// Each finding as it comes, since some take a while.
std::vector<doctor::Finding> ExamineAloud(Session& session, const doctor::Subject& subject) {
  const doctor::Signs signs =
      session.console.OutputShowsColours() ? doctor::Signs::Coloured : doctor::Signs::Words;
  const auto print = [&](const doctor::Finding& finding) { session.PrintNow(LinesOf(finding, signs)); };
  std::vector<doctor::Finding> findings = Examine(subject, print);
  session.out << '\n' << SummaryOf(findings).Text() << '\n';
  return findings;
}

std::vector<doctor::Finding> ExamineAs(Session& session, const doctor::Subject& subject, bool json) {
  if (!json) return ExamineAloud(session, subject);
  std::vector<doctor::Finding> findings = Examine(subject);
  session.out << JsonOf(findings, LUMARINE_VERSION);
  return findings;
}

void ListFiles(const Session& session, const std::string& file, const Bundle& bundle) {
  session.status.Print(Message("What {1} is to hold, in bytes:", file).utf8());
  for (const doctor::BundleFile& part : bundle) {
    constexpr std::size_t kColumn = 24;
    std::string line = "  " + part.name;
    line.resize(std::max(line.size() + 1, kColumn), ' ');
    session.status.Print(line + std::to_string(part.content.size()));
  }
  session.status.Print(Message("Names of the user, the computer, the home folder and wireless networks, and "
                               "their passwords, are struck out. To read one of these: {1}",
                               "lumarinectl doctor --show " + bundle.back().name)
                           .utf8());
}

// Whether the user wants it written.
bool Agrees(const Session& session, const std::string& file) {
  constexpr std::size_t kMostAnswer = 80;
  const bool replaces = MayBeThere(PathFromUtf8(file));
  const Message question(
      replaces ? TextKey("{1} is there already. To replace it type {2}:") : TextKey("To write {1} type {2}:"),
      file, "yes");
  const auto answer = session.console.ReadLine(question.utf8() + ' ', kMostAnswer);
  return answer == "yes";
}

ExitStatus WriteIfWanted(const Session& session, const DoctorArguments& arguments, const Bundle& bundle) {
  ListFiles(session, arguments.bundle, bundle);
  if (!arguments.yes && !session.console.InputIsTerminal())
    return session.Fail(ExitStatus::WrongUsage,
                        "there is no terminal to ask whether to write it, give --yes to have it written");
  if (!arguments.yes && !Agrees(session, arguments.bundle)) {
    session.status.Print(Message("Nothing was written.").utf8());
    return ExitStatus::OperationFailed;
  }
  if (!WriteBundle(PathFromUtf8(arguments.bundle), bundle)) return ExitStatus::FileFailed;
  session.status.Print(Message("{1} is written.", arguments.bundle).utf8());
  return ExitStatus::Success;
}

ExitStatus Show(const Session& session, const std::string& name, const Bundle& bundle) {
  const auto file = std::ranges::find(bundle, name, &doctor::BundleFile::name);
  if (file == bundle.end()) {
    std::string names;
    for (const doctor::BundleFile& part : bundle) names += (names.empty() ? "" : ", ") + part.name;
    return session.Fail(ExitStatus::WrongUsage, "there is no " + name + " in a bundle here, but " + names);
  }
  session.out << file->content;
  return ExitStatus::Success;
}

ExitStatus SeeDoctor(Session& session, const DoctorArguments& arguments) {
  const doctor::Subject subject;
  if (!arguments.show.empty())
    return Show(session, arguments.show, MakeBundle(subject, Examine(subject), OwnVersions()));
  const std::vector<doctor::Finding> findings = ExamineAs(session, subject, arguments.json);
  if (!arguments.bundle.empty()) {
    const ExitStatus written =
        WriteIfWanted(session, arguments, MakeBundle(subject, findings, OwnVersions()));
    if (written != ExitStatus::Success) return written;
  }
  return StatusOf(findings);
}

Run DeclareDoctor(CLI::App& app) {
  const auto arguments = std::make_shared<DoctorArguments>();
  app.add_flag("--json", arguments->json, "The same for other programs");
  CLI::Option* const bundle =
      app.add_option("--bundle", arguments->bundle,
                     "Pack report, versions, settings and the device log into a ZIP file, after a question")
          ->type_name("FILE");
  app.add_flag("--yes", arguments->yes,
               "Write the bundle without the question, in the place of a file that is there")
      ->needs(bundle);
  app.add_option("--show", arguments->show, "Print a file of the bundle, and no report")
      ->excludes(bundle)
      ->type_name("NAME");
  return [arguments](Session& session) { return SeeDoctor(session, *arguments); };
}

}  // namespace

const Command kDoctor = {
    "doctor",
    "Look at what usually goes wrong, and say what to do",
    R"(Looks at controllers on USB and who may open them, at the network, the files of the program and clocks.
Nothing is changed, and nothing is sent. The exit status is 0 unless something is broken; what is to be looked
at may be well.
A bundle is for a question to others. Names of the user, the computer, the home folder and wireless networks,
and their passwords, are struck out of it.
Examples:
  lumarinectl doctor
  lumarinectl doctor --json | jq -r '.findings[] | select(.sign == "broken").id'
  lumarinectl doctor --bundle question.zip
  lumarinectl doctor --show LumarineLog.txt)",
    &DeclareDoctor,
};

}  // namespace cli
