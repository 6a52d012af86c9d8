// The password that is typed into "Setup TC421 WiFi", and where it may stand: in the device log while that is
// on, in nothing else.

#include <algorithm>
#include <set>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "app/window/numbers.h"
#include "dialogs/dialog.h"
#include "dialogs/dialog_template.h"
#include "doctor/bundle.h"
#include "doctor/examination.h"
#include "tests/app/app_test.h"
#include "tests/support/files.h"
#include "tests/support/sim_network.h"
#include "tests/support/wizard_steps.h"

namespace {

namespace fs = std::filesystem;

using dialogs::kOk;
using platform::WifiAuthentication;
using platform::WifiCipher;
using testing::Contains;
using testing::IsEmpty;
using namespace in_dialog;
namespace command = app::command;
namespace config_id = dialogs::tc421_config_control;

constexpr sim_network::Address kTank{192, 168, 4, 7};
const std::string kMark = "Gorgonian-4711-mark";

// The mark as it may stand in a file: as it is, in 16 bits either way round, and as a dump shows it.
std::vector<std::string> FormsOfMark() {
  constexpr char kDigits[] = "0123456789ABCDEF";
  std::string little;
  std::string big;
  std::string dump;
  for (const char letter : kMark) {
    little += {letter, '\0'};
    big += {'\0', letter};
    const auto byte = static_cast<unsigned char>(letter);
    dump += {kDigits[byte >> 4], kDigits[byte & 15], ' '};
  }
  // A row of a dump has sixteen bytes, so that the whole of it need not stand in one.
  return {kMark, little, big, dump.substr(0, 3 * 6 - 1)};
}

bool HoldsMark(const std::string& text) {
  return std::ranges::any_of(FormsOfMark(),
                             [&](const std::string& form) { return text.find(form) != std::string::npos; });
}

class Password : public AppTest {
 protected:
  void SetUp() override {
    AppTest::SetUp();
    sim_network::Reset();
    sim_network::PlugIn(kTank, "Smart-123456");
    sim_network::SetWifi(platform::WifiQuery::Answered,
                         {{"Reef", WifiAuthentication::Wpa2Password, WifiCipher::Ccmp}});
  }
  void TearDown() override { sim_network::SetAnswer(nullptr); }

  static DialogScript FindOne() { return {in_wizard::Search(), in_wizard::WaitForRows(1), Press(kOk)}; }
  static DialogScript TypeMark(std::vector<DialogStep> end) {
    DialogScript script = {Type(config_id::kPassword, kMark)};
    script.insert(script.end(), end.begin(), end.end());
    return script;
  }
  void TypeIt(std::vector<DialogStep> end) {
    EXPECT_TRUE(
        in_wizard::Run(user, {{PressEnter()}, FindOne(), TypeMark(std::move(end)), {Look(), Press(kOk)}}));
    user.GetDesktop().dialogs.scripts.clear();
  }

  // The wizard to its end, to an error, and given up behind the password.
  void WalkThroughTheWizard() {
    TypeIt({Press(config_id::kSetUp), Press(kOk)});
    ASSERT_EQ(sim_network::MemoryOf(kTank).wifi->password, kMark);
    sim_network::SetAnswer([](const sim_network::Datagram& reply) {
      sim_network::Datagram answer = reply;
      if (answer.bytes[4] == 'r') answer.bytes[4] = 'x';
      return std::vector{answer};
    });
    TypeIt({Press(config_id::kSetUp), PressEscape()});
    sim_network::SetAnswer(nullptr);
    TypeIt({PressEscape()});
  }

  // Nothing that the window has shown holds it, but for the field that it was typed into.
  void ExpectNotShown() {
    for (const SeenDialog& dialog : user.Dialogs()) {
      EXPECT_FALSE(HoldsMark(dialog.title));
      for (const auto& [id, control] : dialog.controls) {
        if (id == config_id::kPassword) continue;
        EXPECT_FALSE(HoldsMark(control.text)) << id;
        for (const std::string& row : control.rows) EXPECT_FALSE(HoldsMark(row)) << id;
      }
    }
    for (const auto& told : user.GetDesktop().dialogs.told) EXPECT_FALSE(HoldsMark(Utf8FromWide(told.text)));
    EXPECT_FALSE(HoldsMark(user.Log()));
    EXPECT_FALSE(HoldsMark(user.Title()));
    EXPECT_FALSE(HoldsMark(user.Clipboard()));
    for (const std::string& line : NewJournal()) EXPECT_FALSE(HoldsMark(line)) << line;
  }

  // The bundle and the report that somebody is sent for help, with what the program keeps.
  void ExpectNotInBundle() {
    doctor::Subject subject;
    subject.settingsFile = folder / "LumarineConfig.xml";
    subject.deviceLogFile = folder / "LumarineLog.txt";
    const auto findings = doctor::Examine(subject);
    const auto bundle = MakeBundle(subject, findings, {{"Lumarine", "1.0"}});
    ASSERT_FALSE(bundle.empty());
    for (const doctor::BundleFile& file : bundle) EXPECT_FALSE(HoldsMark(file.content)) << file.name;
    ASSERT_TRUE(WriteBundle(folder / "question.zip", bundle));
  }

  // The names of files below the test's folder that hold it.
  std::set<std::string> FilesWithIt() {
    std::set<std::string> names;
    int files = 0;
    for (const auto& entry : fs::recursive_directory_iterator(folder.path())) {
      if (!entry.is_regular_file()) continue;
      ++files;
      if (HoldsMark(BytesOf(entry.path())) || HoldsMark(entry.path().string()))
        names.insert(entry.path().filename().string());
    }
    EXPECT_GE(files, 2) << "the settings and the program are there";
    return names;
  }
};

TEST_F(Password, IsInNothingThatTheProgramShowsOrKeeps) {
  GivenAnEditedProgram();
  WalkThroughTheWizard();
  ExpectNotShown();
  user.WillPick({folder / "reef.xml"});
  user.Choose(command::kSaveProgram);
  user.Close();
  ExpectNotInBundle();
  EXPECT_THAT(FilesWithIt(), IsEmpty());
}

TEST_F(Password, IsInTheDeviceLogAloneWhileThatIsOn) {
  GivenAnEditedProgram();
  user.Choose(command::kLogging);
  WalkThroughTheWizard();
  ExpectNotShown();
  user.WillPick({folder / "reef.xml"});
  user.Choose(command::kSaveProgram);
  user.Close();
  ExpectNotInBundle();
  EXPECT_EQ(FilesWithIt(), std::set<std::string>{"LumarineLog.txt"});
}

}  // namespace
