#include "dialogs/dlg_get_date_time.h"

#include <tuple>

#include "dialogs/dialog_template.h"
#include "tests/dialogs/dialogs_test.h"

namespace {

using namespace dialogs;
using namespace in_dialog;
namespace id = date_time_control;

auto Told(const DateTime& t) {
  return std::tuple(t.year, t.month, t.day, t.hour, t.minute, t.second, t.millisecond);
}

class GetDateTime : public DialogsTest {
 protected:
  int Ask(DialogScript script) { return Fill<DlgGetDateTime>(std::move(script), params); }

  const DateTime start{2026, 3, 14, 9, 26, 53, 589};
  const DateTime leapDay{2028, 2, 29, 23, 59, 59, 0};
  DateTimeParams params{60, 50, u"Title", u"Prompt", start, u"Do it", u"Leave it"};
};

TEST_F(GetDateTime, ShowsTheTimeToTheSecond) {
  Ask({PressEscape()});
  EXPECT_EQ(First().title, "Title");
  EXPECT_EQ(First().x, 60);
  EXPECT_EQ(First().y, 50);
  EXPECT_EQ(First().controls.at(id::kPrompt).text, "Prompt");
  EXPECT_EQ(First().controls.at(kOk).text, "Do it");
  EXPECT_EQ(First().controls.at(kCancel).text, "Leave it");
  EXPECT_EQ(Told(First().controls.at(id::kDateTime).time), Told(start));
  EXPECT_EQ(First().controls.at(id::kDateTime).text, "yyyy-MMM-dd HH:mm:ss") << "how it is shown";
}

TEST_F(GetDateTime, OkTakesTheTime) {
  EXPECT_EQ(Ask({SetDateTime(id::kDateTime, leapDay), Press(kOk)}), kOk);
  EXPECT_EQ(Told(params.dateTime), Told(leapDay));
}

TEST_F(GetDateTime, OkAtOnceGivesTheTimeBackAsItWas) {
  EXPECT_EQ(Ask({PressEnter()}), kOk);
  EXPECT_EQ(Told(params.dateTime), Told(start)) << "milliseconds and all";
}

TEST_F(GetDateTime, CancelTakesNothing) {
  EXPECT_EQ(Ask({SetDateTime(id::kDateTime, leapDay), Press(kCancel)}), kCancel);
  EXPECT_EQ(Told(params.dateTime), Told(start));
}

}  // namespace
