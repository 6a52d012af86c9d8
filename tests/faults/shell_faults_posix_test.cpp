// What a user does in the program, on a system of which one call fails: the first of a kind, then the second,
// and so on until a run comes to its end without meeting the fault. A brief run takes some of the calls, a
// long one all of them.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <map>
#include <optional>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "app/window/numbers.h"
#include "common/files.h"
#include "common/log.h"
#include "common/xml_file.h"
#include "dialogs/dialog.h"
#include "dialogs/dialog_template.h"
#include "program/program_file.h"
#include "tests/app/app_test.h"
#include "tests/faults/system_faults.h"
#include "tests/support/run_length.h"
#include "tests/support/sim_hidapi.h"
#include "tests/support/sim_network.h"
#include "tests/support/wizard_steps.h"

namespace {

namespace fs = std::filesystem;
namespace command = app::command;
namespace config_id = dialogs::tc421_config_control;
namespace value_id = dialogs::get_value_control;
using app::Control;
using dialogs::kOk;
using TCBase::Program::ModeListView;
using testing::IsEmpty;
using namespace in_dialog;

constexpr sim_network::Address kTank{192, 168, 4, 7};
constexpr int kGerman = command::kFirstLanguage;

constexpr char kTranslations[] =
    "<localisation><languages><language id='de' name='Deutsch'/></languages><strings>"
    "<string id='Devices'><de>Geräte</de></string></strings></localisation>";
constexpr char kTested[] = "<strings><string id='Devices'><translate>Apparate</translate></string></strings>";

// A kind of call, and how it fails.
struct Source {
  std::string name;
  // The `nth` call from now on fails.
  std::function<void(int nth)> arm;
};

void Lift() {
  system_faults_order("");
  sim_hidapi::LiftFaults();
  sim_network::LiftFaults();
}

int Struck() {
  return system_faults_struck() + sim_hidapi::FaultsStruck() + sim_network::FaultsStruck();
}

// One run of the program, in a folder of its own.
class Stage : public AppTest {
 public:
  Stage() {
    AppTest::SetUp();
    sim_network::Reset();
    user.translations = kTranslations;
  }
  ~Stage() override {
    Lift();
    system_faults_below("");
  }
  void TestBody() override {}

  // As for AppTest.
  using AppTest::folder;
  using AppTest::GivenFile;
  using AppTest::GivenTheProgramRuns;
  using AppTest::Mode;
  using AppTest::NewLog;
  using AppTest::Program;
  using AppTest::user;
  using AppTest::WaitUntil;

  // Has the fault come from here on.
  std::function<void()> arm = [] {};
  // Of the log pane, whose text begins anew with each run.
  std::size_t logSeen = 0;

  headless::Desktop& Desk() { return user.GetDesktop(); }
  void Pick(const fs::path& file) { user.WillPick({file}); }
  void Run() {
    GivenTheProgramRuns();
    Desk().questions.otherwise = app::Answer::Ok;
  }
  void LoadTank() {
    Pick(GivenFile("Tank"));
    user.Choose(command::kLoadProgram);
  }
  void WaitForWorker() {
    std::atomic<bool> done{false};
    user.State().worker.AddJob([&done] { done = true; });
    while (!done) user.Turn();
    user.Settle();
  }
  void PlugInUsb() {
    sim_hidapi::PlugIn(sim_hidapi::Family::TC420);
    EXPECT_TRUE(WaitUntil([this] { return user.List(Control::DeviceList).size() == 1; }));
    NewLog();
  }
  void PlugInNetwork() {
    sim_network::PlugIn(kTank, "Smart-123456");
    // On a machine that lets the worker starve a scan may pass without it, or have two answers of it.
    for (int i = 0; i < 10 && user.List(Control::DeviceList).size() != 1; ++i) {
      user.Choose(command::kScanWifi);
      WaitForWorker();
    }
    EXPECT_EQ(user.List(Control::DeviceList).size(), 1U);
    NewLog();
  }
  void WillName(const std::string& text) { user.WillFill({Type(value_id::kValue, text), Press(kOk)}); }
  // Drops what was told beforehand and did not come up.
  void Forget() {
    if (!user.IsRunning()) return;
    Desk().questions.picks.clear();
    Desk().questions.answers.clear();
    Desk().dialogs.scripts.clear();
  }
};

// What came of it.
struct Result {
  std::map<std::string, std::string> files;  // by their names in the folder
  std::string state;                         // what the scene says of the rest
  std::string told;
};

struct Scene {
  std::string name;
  std::function<void(Stage&)> given;
  std::function<void(Stage&)> act;
  std::function<std::string(Stage&)> state = [](Stage&) { return std::string(); };
  bool armsItself = false;  // within `act`, by Stage::arm
  bool isSilent = false;    // only the device log tells of a packet that did not leave
  std::string box = {};     // what a box says where it was not done, besides the log
};

std::string TextOf(const ModeListView& document) {
  ovk::xml::element root;
  TCBase::Program::BuildProgramXml(document, root);
  ovk::string text;
  ovk::xml::serialize(text, root, 0);
  return std::string(text.view());
}

std::string DocumentOf(Stage& stage) {
  return TextOf(stage.Program());
}

// What the controller was told, but for the moment, which depends on how long a fault took.
std::string TextOf(const sim::Memory& memory) {
  std::string text = std::to_string(memory.banks.size()) + " modes, " +
                     (memory.clears > 0 ? "cleared, " : "never cleared, ");
  text += memory.clock ? "a clock, " : "no clock, ";
  text += memory.playing ? "playing " : "resting ";
  return text + memory.playName;
}

Scene Export(const std::string& name, int number) {
  return {name, [](Stage& stage) { stage.Run(); },
          [name, number](Stage& stage) {
            stage.Pick(stage.folder / name);
            stage.user.Choose(number);
          }};
}

std::vector<Scene> FileScenes() {
  return {
      {"load",
       [](Stage& stage) {
         stage.Run();
         stage.GivenFile("Tank");
       },
       [](Stage& stage) {
         stage.Pick(stage.folder / "Tank.xml");
         stage.user.Choose(command::kLoadProgram);
       },
       DocumentOf},
      {"start with the last program",
       [](Stage& stage) {
         stage.Run();
         stage.LoadTank();
         stage.user.Close();
       },
       [](Stage& stage) {
         if (stage.user.IsRunning()) stage.user.Close();
         for (int i = 0; i < 3; ++i) stage.user.WillAnswer(app::Answer::Cancel);
         stage.user.Start();
         stage.logSeen = 0;
         stage.Forget();
         stage.Desk().questions.otherwise = app::Answer::Ok;
       },
       [](Stage& stage) { return std::string(stage.user.IsRunning() ? "running" : "not running"); }},
      {"save",
       [](Stage& stage) {
         stage.Run();
         stage.LoadTank();
       },
       [](Stage& stage) {
         stage.user.SendCommand(command::kAlign60);
         stage.user.Choose(command::kSaveProgram);
       },
       DocumentOf, false, false, " could not be saved: "},
      {"save a new one", [](Stage& stage) { stage.Run(); },
       [](Stage& stage) {
         stage.Pick(stage.folder / "New.xml");
         stage.user.Choose(command::kSaveProgramAs);
       },
       DocumentOf},
      {"import",
       [](Stage& stage) {
         stage.Run();
         stage.Pick(stage.folder / "day.tmf");
         stage.user.Choose(command::kExportTmf);
         stage.Pick(stage.folder / "day.lmf");
         stage.user.Choose(command::kExportLmf);
       },
       [](Stage& stage) {
         stage.Program() = TCBase::Program::NewProgram();
         stage.Pick(stage.folder / "day.tmf");
         stage.user.Choose(command::kImportTmf);
         stage.Pick(stage.folder / "day.lmf");
         stage.user.Choose(command::kImportLmf);
       },
       DocumentOf},
      Export("out.tmf", command::kExportTmf),
      Export("out.lmf", command::kExportLmf),
      Export("out.raw", command::kExportRaw),
      {"settings",
       [](Stage& stage) {
         stage.Run();
         stage.LoadTank();
         stage.user.Close();
       },
       [](Stage& stage) {
         if (!stage.user.IsRunning()) {
           Lift();
           stage.user.Start();
           stage.logSeen = 0;
         }
         stage.arm();
         stage.user.Choose(kGerman);
         stage.user.Close();
       },
       [](Stage& stage) { return std::string(stage.user.IsRunning() ? "running" : "not running"); }, true},
      {"device log",
       [](Stage& stage) {
         stage.Run();
         stage.user.Choose(command::kLogging);
         stage.user.Choose(command::kAddEmulator);
         stage.PlugInNetwork();
       },
       [](Stage& stage) {
         stage.user.Choose(command::kSyncTime);
         stage.WaitForWorker();
       },
       [](Stage&) { return TextOf(sim_network::MemoryOf(kTank)); }},
      {"export a translation", [](Stage& stage) { stage.Run(); },
       [](Stage& stage) {
         stage.Pick(stage.folder / "strings.xml");
         stage.user.Choose(command::kExportTranslation);
       }},
      {"test a translation",
       [](Stage& stage) {
         stage.Run();
         FileWith(stage.folder / "tested.xml", kTested);
       },
       [](Stage& stage) {
         stage.Pick(stage.folder / "tested.xml");
         stage.user.Choose(command::kTestTranslation);
       },
       [](Stage& stage) { return stage.user.Text(Control::DevicesLabel); }},
      {"merge a translation",
       [](Stage& stage) {
         stage.Run();
         FileWith(stage.folder / "tested.xml", kTested);
       },
       [](Stage& stage) {
         stage.WillName("it");
         stage.WillName("Italiano");
         stage.Pick(stage.folder / "tested.xml");
         stage.Pick(stage.folder / "merged.xml");
         stage.user.SendCommand(command::kMergeTranslations);
         stage.Forget();
       }},
  };
}

// Only the deletion of what is left over may fail without a word.
bool MayLeaveMore(const std::string& source) {
  return source.starts_with("unlink") || source.starts_with("any");
}

std::vector<Scene> DeviceScenes() {
  const auto usb = [](Stage&) { return TextOf(sim_hidapi::MemoryOf(sim_hidapi::Family::TC420)); };
  const auto network = [](Stage&) { return TextOf(sim_network::MemoryOf(kTank)); };
  const auto onUsb = [](Stage& stage) {
    stage.Run();
    stage.PlugInUsb();
  };
  const auto onNetwork = [](Stage& stage) {
    stage.Run();
    stage.PlugInNetwork();
  };
  const auto choose = [](int number) {
    return [number](Stage& stage) {
      stage.user.Choose(number);
      stage.WaitForWorker();
    };
  };
  const auto demo = [](Stage& stage) {
    stage.user.GetSettings().SetDemoSpeed(10);
    stage.user.Press(Control::PlayButton);
    stage.WaitForWorker();
  };
  const auto scan = [](Stage& stage) {
    stage.user.Choose(command::kScanWifi);
    stage.WaitForWorker();
  };
  const auto listed = [](Stage& stage) {
    return std::string(stage.user.List(Control::DeviceList).empty() ? "none" : "found");
  };
  return {
      {"upload over USB", onUsb, choose(command::kUploadProgram), usb},
      {"clear over USB", onUsb, choose(command::kClearAll), usb, false, true},
      {"demo over USB", onUsb, demo, usb, false, true},
      {"upload over the network", onNetwork, choose(command::kUploadProgram), network},
      {"time over the network", onNetwork, choose(command::kSyncTime), network, false, true},
      {"demo over the network", onNetwork, demo, network, false, true},
      {"scan",
       [](Stage& stage) {
         stage.Run();
         sim_network::PlugIn(kTank, "Smart-123456");
       },
       scan, listed},
      {"WiFi wizard",
       [](Stage& stage) {
         stage.Run();
         sim_network::PlugIn(kTank, "Smart-123456");
         sim_network::SetWifi(
             platform::WifiQuery::Answered,
             {{"Reef", platform::WifiAuthentication::Wpa2Password, platform::WifiCipher::Ccmp}});
       },
       // It is given up where the first try fails, and done anew by the one who tries again.
       [](Stage& stage) {
         in_wizard::Run(stage.user, {{PressEnter()},
                                     {in_wizard::Search(), in_wizard::WaitForRows(1), Press(kOk)},
                                     {Type(config_id::kPassword, "secret coral"), Meanwhile(stage.arm),
                                      Press(config_id::kSetUp), PressEscape()}});
         stage.Forget();
       },
       [](Stage&) {
         const auto wifi = sim_network::MemoryOf(kTank).wifi;
         return std::string(wifi && wifi->complete ? "set up" : "not set up");
       },
       true},
  };
}

// Sources

const std::vector<std::pair<const char*, const char*>> kFileFaults = {
    {"open", "EACCES"},   {"open", "EMFILE"},  {"read", "EIO"},  {"read", "EINTR"},   {"write", "ENOSPC"},
    {"write", "SHORT"},   {"sync", "EIO"},     {"close", "EIO"}, {"rename", "EIO"},   {"rename", "EACCES"},
    {"unlink", "EACCES"}, {"mkdir", "ENOSPC"}, {"stat", "EIO"},  {"readlink", "EIO"}, {"chmod", "EPERM"},
    {"folder", "EACCES"}, {"lock", "EIO"},     {"any", "EIO"},   {"any", "ESTALE"},
};

std::vector<Source> FileSources() {
  std::vector<Source> sources;
  for (const auto& [kind, error] : kFileFaults) {
    // Any call is a drive that goes: from then on nothing succeeds.
    const std::string more = std::string(kind) == "any" ? "+:" : ":";
    const auto arm = [kind = std::string(kind), tail = more + error](int nth) {
      system_faults_order((kind + ":" + std::to_string(nth) + tail).c_str());
    };
    sources.push_back({std::string(kind) + " " + error, arm});
  }
  return sources;
}

std::vector<Source> DeviceSources() {
  using Hid = sim_hidapi::Call;
  using Net = sim_network::Call;
  std::vector<Source> sources;
  for (const auto& [name, call] :
       std::initializer_list<std::pair<const char*, Hid>>{{"hid_enumerate", Hid::Enumerate},
                                                          {"hid_open_path", Hid::Open},
                                                          {"hid_set_nonblocking", Hid::SetNonblocking},
                                                          {"hid_write", Hid::Write},
                                                          {"hid_read", Hid::Read}}) {
    for (const int times : {1, sim_hidapi::kForever})
      sources.push_back({name, [which = call, times](int nth) { sim_hidapi::Inject({which, nth, times}); }});
  }
  for (const auto& [name, call] :
       std::initializer_list<std::pair<const char*, Net>>{{"socket", Net::Open},
                                                          {"setsockopt", Net::AllowBroadcasts},
                                                          {"fcntl", Net::DontWait},
                                                          {"bind", Net::Bind},
                                                          {"sendto", Net::Send},
                                                          {"recvfrom", Net::Receive}}) {
    for (const int times : {1, sim_hidapi::kForever})
      sources.push_back({name, [which = call, times](int nth) { sim_network::Inject(which, nth, times); }});
  }
  return sources;
}

// What is seen

// The settings and what is kept for a crash change by themselves: they are readable, which is judged apart.
bool ChangesByItself(const std::string& name) {
  return name == "LumarineConfig.xml" || name == "LumarineLog.txt" || name.starts_with("state/");
}

std::map<std::string, std::string> FilesIn(const fs::path& folder) {
  std::map<std::string, std::string> files;
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder)) {
    if (!entry.is_regular_file()) continue;
    std::string name = entry.path().lexically_relative(folder).string();
    if (!ChangesByItself(name)) files[std::move(name)] = BytesOf(entry.path());
  }
  return files;
}

int OpenFiles() {
  int count = 0;
  for ([[maybe_unused]] const fs::directory_entry& entry : fs::directory_iterator("/proc/self/fd")) ++count;
  return count;
}

std::string Told(Stage& stage) {
  if (!stage.user.IsRunning()) return {};
  stage.user.Settle();
  std::string text = stage.user.Log();
  const std::size_t length = text.size();
  text.erase(0, std::exchange(stage.logSeen, length));
  for (const app::Question& question : stage.user.Questions())
    text += Utf8FromWide(question.title) + ": " + Utf8FromWide(question.text) + "\n";
  for (const auto& told : std::exchange(stage.Desk().dialogs.told, {}))
    text += Utf8FromWide(told.text) + "\n";
  const std::string folder = stage.folder.path().string() + "/";
  for (std::size_t at = 0; (at = text.find(folder)) != std::string::npos;) text.erase(at, folder.size());
  std::erase(text, '\r');
  return text;
}

Result Play(Stage& stage, const Scene& scene) {
  scene.act(stage);
  Lift();
  Result result;
  if (stage.user.IsRunning()) stage.user.Settle();
  result.told = Told(stage);
  result.state = scene.state(stage);
  result.files = FilesIn(stage.folder.path());
  return result;
}

// Whether a line is one of those by which the program tells of a fault.
bool TellsOfAFault(const std::string& line) {
  static const std::vector<std::string> kWords = {
      "Error ",
      "The file cannot be read: ",
      " could not be saved: ",
      "A copy is kept in ",
      "No copy could be kept either.",
      "This is most probably caused by invalid XML.",
      "to see the parsing error location.",
      // As well as one can know of what the system does not tell.
      " exists. Replace it?",
      // Of the built-in program, since the last one was not opened.
      "Loaded program contains ",
      " steps count: ",
      "Upload error",
      "Connect error",
      " has not confirmed these modes: ",
      " has not confirmed the end of the upload.",
      "Found 0 device(s)",
      " Device disconnected",
  };
  return std::ranges::any_of(kWords,
                             [&](const std::string& text) { return line.find(text) != std::string::npos; });
}

std::vector<std::string> LinesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);)
    if (!line.empty()) lines.push_back(std::move(line));
  return lines;
}

void ExpectWholeFiles(const std::string& source, const std::map<std::string, std::string>& before,
                      const Result& plain, const Result& result) {
  for (const auto& [name, bytes] : result.files) {
    const auto old = before.find(name);
    const auto fresh = plain.files.find(name);
    const bool isWhole = (old != before.end() && old->second == bytes) ||
                         (fresh != plain.files.end() && fresh->second == bytes);
    const bool isCopy = name.starts_with("LumarineRecovery-");
    EXPECT_TRUE(isWhole || isCopy || MayLeaveMore(source))
        << name << " is neither the old file nor the new one";
  }
  for (const auto& [name, bytes] : before) EXPECT_TRUE(result.files.contains(name)) << name << " is gone";
}

void ExpectReadable(const fs::path& folder) {
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder)) {
    const std::string name = entry.path().filename().string();
    if (!name.ends_with(".xml") || name.starts_with(".")) continue;
    ovk::xml::element root;
    EXPECT_TRUE(ovk::xml::load(entry.path(), root)) << name;
  }
}

bool IsDone(const Result& plain, const Result& result) {
  return result.state == plain.state && std::ranges::all_of(plain.files, [&](const auto& file) {
           const auto found = result.files.find(file.first);
           return found != result.files.end() && found->second == file.second;
         });
}

// Whether the same works where nothing fails any more. On a machine that lets the worker starve an answer may
// come too late.
bool GoesOn(Stage& stage, const Scene& scene, const Result& plain) {
  constexpr int kTries = 3;
  for (int i = 0; i < kTries; ++i) {
    stage.Forget();
    Told(stage);
    if (IsDone(plain, Play(stage, scene))) return true;
  }
  return false;
}

// One fault; false if it was not met.
bool TryFault(const Scene& scene, const Source& source, int nth,
              const std::map<std::string, std::string>& before, const Result& plain) {
  Stage stage;
  scene.given(stage);
  Told(stage);
  system_faults_below(stage.folder.path().c_str());
  const int struck = Struck();
  stage.arm = [&] { source.arm(nth); };
  if (!scene.armsItself) stage.arm();
  const Result result = Play(stage, scene);
  const bool isMet = Struck() > struck;
  if (!isMet) return false;
  SCOPED_TRACE(scene.name + ": " + source.name + ", call " + std::to_string(nth));
  ExpectWholeFiles(source.name, before, plain, result);
  ExpectReadable(stage.folder.path());
  const bool isTold = result.told != plain.told || scene.isSilent || !stage.user.IsRunning();
  EXPECT_TRUE(isTold || IsDone(plain, result)) << "it was not done, and nobody says so";
  const bool isBoxed = result.told.find(scene.box) != std::string::npos;
  EXPECT_TRUE(isBoxed || IsDone(plain, result)) << "it was not done, and no box says so";
  EXPECT_EQ(sim_hidapi::OpenHandles(), 0);
  EXPECT_EQ(sim_network::OpenSockets(), 0);
  for (const std::string& line : LinesOf(result.told))
    EXPECT_TRUE(plain.told.find(line) != std::string::npos || TellsOfAFault(line)) << "not told: " << line;
  stage.arm = [] {};
  EXPECT_TRUE(GoesOn(stage, scene, plain)) << "without the fault it does not work afterwards";
  return true;
}

int TryAll(const Scene& scene, const std::vector<Source>& sources) {
  std::map<std::string, std::string> before;
  Result plain;
  // On a machine that lets the worker starve one run alone may not be what it should be.
  for (std::string last = "none"; last != plain.told;) {
    last = plain.told;
    Stage stage;
    scene.given(stage);
    before = FilesIn(stage.folder.path());
    Told(stage);
    plain = Play(stage, scene);
  }
  int faults = 0;
  for (const Source& source : sources) {
    int nth = 1;
    while (TryFault(scene, source, nth, before, plain)) {
      ++faults;
      nth = IsLongRun() ? nth + 1 : nth < 2 ? 2 : 3 * nth;
    }
  }
  return faults;
}

TEST(ShellFaults, OfEachCallToTheFileSystem) {
  const int open = OpenFiles();
  for (const Scene& scene : FileScenes()) {
    const int faults = TryAll(scene, FileSources());
    EXPECT_GT(faults, 0) << scene.name;
    std::printf("%s: %d calls failed\n", scene.name.c_str(), faults);
  }
  EXPECT_EQ(OpenFiles(), open);
}

TEST(ShellFaults, OfEachCallToAController) {
  for (const Scene& scene : DeviceScenes()) {
    const int faults = TryAll(scene, DeviceSources());
    EXPECT_GT(faults, 0) << scene.name;
    EXPECT_THAT(sim_network::Violations(), IsEmpty());
    std::printf("%s: %d calls failed\n", scene.name.c_str(), faults);
  }
}

}  // namespace
