#include "dialogs/dlg_add_steps.h"

#include "dialogs/dialog_template.h"
#include "tests/dialogs/dialogs_test.h"

namespace {

using namespace dialogs;
using namespace in_dialog;
namespace id = add_steps_control;

constexpr char kExample[] = "08:00 0\r\n10:00 80 J\r\n12:00 0\r\n13:40 50\r\n15:00 0\r\n";

class AddSteps : public DialogsTest {
 protected:
  int Ask(DialogScript script) { return Fill<DlgAddSteps>(std::move(script), params); }
  std::string Count(std::size_t look) { return port.seen.at(look).controls.at(id::kCount).text; }

  AddStepsParams params{30, 40, u"Manual steps add...", u""};
};

TEST_F(AddSteps, TellsHowStepsAreWritten) {
  Ask({PressEscape()});
  EXPECT_EQ(First().title, "Manual steps add...");
  EXPECT_EQ(First().x, 30);
  EXPECT_EQ(First().y, 40);
  EXPECT_EQ(First().controls.at(id::kSteps).text, "");
  EXPECT_EQ(
      First().controls.at(id::kHelp).text,
      "Enter steps in this format:\r\n\r\nhh:mm value [J]\r\n\r\nExample:\r\n\r\n08:00 0\r\n10:00 80 J\r\n"
      "12:00 0\r\n13:40 50\r\n15:00 0\r\n\r\nUse \"J\" to make step\r\n\"jump\" instead of \"fade\"");
  EXPECT_EQ(First().controls.at(kOk).text, "OK");
  EXPECT_EQ(First().controls.at(kCancel).text, "Cancel");
}

TEST_F(AddSteps, ATextThatIsThereIsCountedAtOnce) {
  params.text = u"08:00 0\r\n10:00 80\r\n";
  Ask({PressEscape()});
  EXPECT_EQ(First().controls.at(id::kSteps).text, "08:00 0\r\n10:00 80\r\n");
  EXPECT_EQ(Count(0), "Text contains 2 steps");
}

TEST_F(AddSteps, TheCountFollowsEachKeyAndAnEmptyBoxKeepsTheLastOne) {
  Ask({Look(), Type(id::kSteps, "08:00"), Look(), Type(id::kSteps, "08:00 5"), Look(),
       Type(id::kSteps, "08:00 5\n9:00 7\nnonsense"), Look(), Type(id::kSteps, ""), Look(),
       Paste(id::kSteps, kExample), Look(), PressEscape()});
  EXPECT_EQ(Count(1), " ") << "an empty box";
  EXPECT_EQ(Count(2), "Text contains 0 steps") << "a line that is not whole yet";
  EXPECT_EQ(Count(3), "Text contains 1 steps");
  EXPECT_EQ(Count(4), "Text contains 2 steps") << "a wrong line shows as a low count only";
  EXPECT_EQ(Count(5), "Text contains 2 steps") << "an emptied box";
  EXPECT_EQ(Count(6), "Text contains 5 steps") << "the example of the help";
}

TEST_F(AddSteps, OkStoresTheText) {
  EXPECT_EQ(Ask({Type(id::kSteps, "08:00 5\n09:00 6"), Press(kOk)}), kOk);
  EXPECT_EQ(params.text, u"08:00 5\r\n09:00 6");
}

TEST_F(AddSteps, EnterIsANewLineInTheText) {
  EXPECT_EQ(Ask({Type(id::kSteps, "08:00 5"), PressEnter(), Press(kOk)}), kOk);
  EXPECT_EQ(params.text, u"08:00 5\r\n");
}

TEST_F(AddSteps, CancelStoresNothing) {
  params.text = u"07:00 1\r\n";
  EXPECT_EQ(Ask({Type(id::kSteps, "08:00 5"), Press(kCancel)}), kCancel);
  EXPECT_EQ(params.text, u"07:00 1\r\n");
}

TEST_F(AddSteps, OkOnAnEmptyBoxGivesTheTextBackAsItWas) {
  EXPECT_EQ(Ask({Press(kOk)}), kOk);
  EXPECT_EQ(params.text, u"");
  params.text = u"07:00 1\r\n";
  EXPECT_EQ(Ask({Type(id::kSteps, ""), Press(kOk)}), kOk);
  EXPECT_EQ(params.text, u"07:00 1\r\n");
}

TEST_F(AddSteps, WhatIsCountedIsWhatOkTakes) {
  // 2,047 characters are 204 lines of ten, and seven of the next: that is a step still.
  std::string text;
  for (int i = 0; i < 400; ++i) text += "08:00 50\r\n";
  EXPECT_EQ(Ask({Paste(id::kSteps, text), Look(), Press(kOk)}), kOk);
  EXPECT_EQ(params.text.size(), 2047U);
  EXPECT_TRUE(params.text.ends_with(u"\r\n08:00 5")) << "the line in the middle of the cut is cut, too";
  EXPECT_EQ(Count(1), "Text contains 205 steps");
}

}  // namespace
