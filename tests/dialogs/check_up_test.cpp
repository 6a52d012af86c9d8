// The check-up: looking, looking again, packing. What is found is the doctor's own matter.

#include "dialogs/dlg_check_up.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "dialogs/dialog_template.h"
#include "tests/support/files.h"
#include "tests/support/headless_dialogs.h"
#include "tests/support/scripted_computer.h"
#include "tests/support/sim_hidapi.h"
#include "tests/support/sim_network.h"
#include "tests/support/temporary_folder.h"

namespace {

using namespace dialogs::check_up_control;
using namespace in_dialog;
using dialogs::CheckUpParams;
using dialogs::DlgCheckUp;
using dialogs::kCancel;
using dialogs::kOk;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

constexpr char kLooking[] = "Looking ...";

bool HasLooked(const SeenDialog& seen) {
  return seen.controls.at(kSummary).text != kLooking;
}

class CheckUpTest : public testing::Test {
 protected:
  void SetUp() override {
    sim_hidapi::Reset();
    sim_network::Reset();
    scripted_computer::Set({});
    params_.subject.settingsFile = folder_.path() / "LumarineConfig.xml";
    params_.subject.deviceLogFile = folder_.path() / "LumarineLog.txt";
    params_.versions = {{"Lumarine", "1.0"}};
  }

  int Run(DialogScript script) {
    port_.scripts.push_back(std::move(script));
    return DlgCheckUp(port_, params_).DoModal();
  }

  TemporaryFolder folder_;
  CheckUpParams params_;
  headless::Dialogs port_;
};

TEST_F(CheckUpTest, LooksAtOnceAndSumsUp) {
  EXPECT_EQ(Run({Await(&HasLooked), Look(), PressEnter()}), kOk);
  const SeenDialog& first = port_.seen.front();
  EXPECT_EQ(first.title, "Check-up");
  EXPECT_EQ(first.controls.at(kSummary).text, kLooking);
  for (const int button : {kAgain, kPack, kSave}) EXPECT_FALSE(first.controls.at(button).enabled) << button;
  const SeenDialog& looked = port_.seen.at(1);
  EXPECT_THAT(looked.controls.at(kReport).text, HasSubstr("\r\n[")) << "a finding begins a line of its own";
  EXPECT_THAT(looked.controls.at(kReport).text, HasSubstr("5000"));
  EXPECT_TRUE(looked.controls.at(kAgain).enabled);
  EXPECT_TRUE(looked.controls.at(kPack).enabled);
  EXPECT_FALSE(looked.controls.at(kSave).enabled) << "nobody has seen yet what would be saved";
}

TEST_F(CheckUpTest, LooksAgainAtWhatHasChanged) {
  const auto takePort = [] {
    scripted_computer::Facts facts;
    facts.portHolders = {{.program = "other-program", .process = 77}};
    scripted_computer::Set(facts);
    sim_network::HoldPort(true);
    scripted_computer::KeepWaiting(true);
  };
  const auto goOn = [] { scripted_computer::KeepWaiting(false); };
  EXPECT_EQ(Run({Await(&HasLooked), Look(), Meanwhile(takePort), Press(kAgain), Look(), Meanwhile(goOn),
                 Await(&HasLooked), Look(), PressEscape()}),
            kCancel);
  EXPECT_THAT(port_.seen.at(1).controls.at(kReport).text, Not(HasSubstr("other-program")));
  EXPECT_EQ(port_.seen.at(2).controls.at(kSummary).text, kLooking);
  EXPECT_THAT(port_.seen.at(3).controls.at(kReport).text, HasSubstr("other-program"));
}

TEST_F(CheckUpTest, ShowsWhatIsPackedBeforeItCanBeSaved) {
  FileWith(params_.subject.deviceLogFile, std::string(40'000, 'x') + "\r\nthe end\r\n");
  EXPECT_EQ(Run({Await(&HasLooked), Press(kPack), Look(), Press(kSave)}), DlgCheckUp::kSaveBundle);
  const SeenDialog& packed = port_.seen.back();
  EXPECT_THAT(packed.controls.at(kReport).text, StartsWith("=== report.txt ("));
  EXPECT_THAT(packed.controls.at(kReport).text, HasSubstr("=== versions.txt ("));
  EXPECT_THAT(packed.controls.at(kReport).text, HasSubstr("Lumarine: 1.0\r\n"));
  EXPECT_THAT(packed.controls.at(kReport).text, HasSubstr("\r\n[...]\r\n")) << "a long file is cut";
  EXPECT_LT(packed.controls.at(kReport).text.size(), 20'000U);
  EXPECT_TRUE(packed.controls.at(kSave).enabled);
  ASSERT_FALSE(params_.bundle.empty());
  EXPECT_GT(params_.bundle.back().content.size(), 40'000U) << "what is saved is whole";
}

TEST_F(CheckUpTest, MayBeLeftWhileItLooks) {
  sim_hidapi::PlugIn(sim_hidapi::Family::TC420);
  EXPECT_EQ(Run({PressEscape()}), kCancel);
}

}  // namespace
