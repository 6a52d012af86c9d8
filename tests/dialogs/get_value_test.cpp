#include "dialogs/dlg_get_value.h"

#include "dialogs/dialog_template.h"
#include "tests/dialogs/dialogs_test.h"

namespace {

using namespace dialogs;
using namespace in_dialog;
namespace id = get_value_control;

class GetValue : public DialogsTest {
 protected:
  int Ask(DialogScript script) { return Fill<DlgGetValue>(std::move(script), params); }

  GetValueParams params{false, 20, 60, 50, u"Title", u"Prompt", u"old", u"Do it", u"Leave it"};
};

TEST_F(GetValue, ShowsWhatItIsToldWhereItIsTold) {
  Ask({PressEscape()});
  EXPECT_EQ(First().title, "Title");
  EXPECT_EQ(First().x, 60);
  EXPECT_EQ(First().y, 50);
  EXPECT_EQ(First().controls.at(id::kPrompt).text, "Prompt");
  EXPECT_EQ(First().controls.at(id::kValue).text, "old");
  EXPECT_EQ(First().controls.at(kOk).text, "Do it");
  EXPECT_EQ(First().controls.at(kCancel).text, "Leave it");
}

TEST_F(GetValue, OkStoresTheText) {
  EXPECT_EQ(Ask({Type(id::kValue, "new"), Press(kOk)}), kOk);
  EXPECT_EQ(params.value, u"new");
}

TEST_F(GetValue, EnterIsOk) {
  EXPECT_EQ(Ask({Type(id::kValue, "new"), PressEnter()}), kOk);
  EXPECT_EQ(params.value, u"new");
}

TEST_F(GetValue, CancelStoresNothing) {
  EXPECT_EQ(Ask({Type(id::kValue, "new"), Press(kCancel)}), kCancel);
  EXPECT_EQ(params.value, u"old");
  EXPECT_EQ(Ask({Type(id::kValue, "new"), PressEscape()}), kCancel);
  EXPECT_EQ(params.value, u"old");
}

TEST_F(GetValue, OkWithAnEmptyFieldClosesAndGivesTheOldValueBack) {
  EXPECT_EQ(Ask({Type(id::kValue, ""), Press(kOk)}), kOk);
  EXPECT_EQ(params.value, u"old");
  params.value.clear();
  EXPECT_EQ(Ask({Press(kOk)}), kOk) << "an old value that is empty, too";
  EXPECT_EQ(params.value, u"");
}

TEST_F(GetValue, TakesNoMoreThanTheLimit) {
  params.maxLength = 4;
  Ask({Type(id::kValue, "abcdef"), Press(kOk)});
  EXPECT_EQ(params.value, u"abcd");
  Ask({Paste(id::kValue, "ghijkl"), Press(kOk)});
  EXPECT_EQ(params.value, u"ghij");
}

TEST_F(GetValue, ALongerLimitIsCutAt2047) {
  params.maxLength = 5000;
  Ask({Paste(id::kValue, std::string(5000, 'x')), Press(kOk)});
  EXPECT_EQ(params.value, std::u16string(2047, u'x'));
}

TEST_F(GetValue, NumbersOnlyRefusesLetters) {
  params.numbersOnly = true;
  Ask({Type(id::kValue, "1a2-3"), Press(kOk)});
  EXPECT_EQ(params.value, u"123");
}

TEST_F(GetValue, NumbersOnlyStillTakesWhatIsPasted) {
  // The platforms' fields look at keys only: the callers must bear letters.
  params.numbersOnly = true;
  Ask({Paste(id::kValue, "1a2"), Press(kOk)});
  EXPECT_EQ(params.value, u"1a2");
}

TEST_F(GetValue, NumbersOnlyLimitsWhatIsPastedToo) {
  params.numbersOnly = true;
  params.maxLength = 4;
  Ask({Paste(id::kValue, "12水456"), Press(kOk)});
  EXPECT_EQ(params.value, u"12水4");
}

}  // namespace
