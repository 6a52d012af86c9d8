#include "dialogs/dlg_about.h"

#include "dialogs/dialog_template.h"
#include "tests/dialogs/dialogs_test.h"

namespace {

using namespace dialogs;
using namespace in_dialog;
using testing::ElementsAre;
using testing::StartsWith;
namespace id = about_control;

class About : public DialogsTest {
 protected:
  int Ask(DialogScript script) { return Fill<DlgAbout>(std::move(script)); }
  std::string Shown(int control) { return First().controls.at(control).text; }
};

TEST_F(About, TellsNameAndVersion) {
  Ask({Press(kOk)});
  EXPECT_EQ(First().title, "About...");
  EXPECT_EQ(Shown(id::kProgram), "Lumarine, Version 4.7, Build 496 (64-bit)");
}

TEST_F(About, TellsWhatTheBuildWasTold) {
  Ask({Press(kOk)});
  EXPECT_EQ(Shown(id::kCopyright), LUMARINE_COPYRIGHT);
  EXPECT_EQ(Shown(id::kFirstTerms), LUMARINE_FIRST_TERMS);
  EXPECT_EQ(Shown(id::kSecondTerms), LUMARINE_SECOND_TERMS);
  EXPECT_EQ(Shown(id::kEmailLink), LUMARINE_EMAIL_CAPTION);
  EXPECT_EQ(Shown(id::kWebLink), LUMARINE_WEB_CAPTION);
  EXPECT_EQ(Shown(id::kGroupLink), LUMARINE_GROUP_CAPTION);
}

TEST_F(About, HidesWhatIsNotInUse) {
  Ask({Press(kOk)});
  EXPECT_FALSE(First().controls.at(id::kNote).visible);
  EXPECT_FALSE(First().controls.at(id::kNoteButton).visible);
}

TEST_F(About, LinksLeadSomewhereAndLeaveTheDialogOpen) {
  EXPECT_EQ(Ask({Press(id::kEmailLink), Press(id::kWebLink), Press(id::kGroupLink), PressEscape()}), kCancel);
  EXPECT_THAT(port.links, ElementsAre(LUMARINE_EMAIL_TARGET, LUMARINE_WEB_TARGET, LUMARINE_GROUP_TARGET));
  EXPECT_THAT(port.links, ElementsAre(StartsWith("mailto:"), StartsWith("https://"), StartsWith("https://")));
}

TEST_F(About, IsClosedByOkAndEscape) {
  EXPECT_EQ(Ask({Press(kOk)}), kOk);
  EXPECT_EQ(Ask({PressEscape()}), kCancel);
}

}  // namespace
