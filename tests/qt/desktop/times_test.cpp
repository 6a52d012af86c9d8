// Date and time fields, and the units of dialogs.

#include <gtest/gtest.h>

#include <QDateTimeEdit>
#include <QFontMetrics>

#include "platform/qt/desktop/control_widgets.h"
#include "platform/qt/desktop/date_times.h"
#include "platform/qt/desktop/dialog_units.h"

namespace {

TEST(DateTimes, ComeBackAsTheyWereSet) {
  QDateTimeEdit picker;
  // An hour that the clocks of Europe leave out.
  const DateTime set{2027, 3, 28, 2, 30, 59, 123};
  qt::ShowDateTime(picker, set, QStringLiteral("yyyy-MMM-dd HH:mm:ss"));
  const DateTime read = qt::ReadDateTime(picker);
  EXPECT_EQ(read.year, 2027);
  EXPECT_EQ(read.month, 3);
  EXPECT_EQ(read.day, 28);
  EXPECT_EQ(read.hour, 2);
  EXPECT_EQ(read.minute, 30);
  EXPECT_EQ(read.second, 59);
  EXPECT_EQ(read.millisecond, 123);
}

TEST(DateTimes, FormatsKeepTheirOtherLetters) {
  EXPECT_EQ(qt::QtTimeFormat(QStringLiteral("yyyy-MMM-dd HH:mm:ss")), "yyyy-MMM-dd HH:mm:ss");
  EXPECT_EQ(qt::QtTimeFormat(QStringLiteral("HH h")), "HH 'h'");
  QDateTimeEdit picker;
  qt::ShowDateTime(picker, {2026, 11, 22, 9, 5, 0, 0}, QStringLiteral("HH mm"));
  EXPECT_TRUE(picker.text().contains(QStringLiteral("09 "))) << picker.text().toStdString();
}

TEST(DialogUnits, AreAQuarterAndAnEighthOfALetter) {
  const QFontMetrics font(qt::ControlFont());
  const qt::DialogUnits units(font);
  const QRect letter = units.Pixels({0, 0, 4, 8});
  EXPECT_EQ(letter.height(), font.height());
  const QString letters = QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");
  EXPECT_NEAR(letter.width(), font.horizontalAdvance(letters) / 52.0, 0.5);
  // What is adjacent in units is so in pixels.
  const QRect first = units.Pixels({7, 7, 143, 14});
  const QRect second = units.Pixels({150, 7, 50, 14});
  EXPECT_EQ(first.x() + first.width(), second.x());
}

TEST(DialogUnits, ADropDownListIsAsHighAsItsField) {
  const QFontMetrics font(qt::ControlFont());
  const qt::DialogUnits units(font);
  const Rect withList{7, 110, 123, 93};
  EXPECT_EQ(units.Pixels(withList, dialogs::ControlKind::DropDownList).height(),
            units.Pixels({0, 0, 10, 14}).height());
  EXPECT_EQ(units.Pixels(withList, dialogs::ControlKind::ListBox), units.Pixels(withList));
}

}  // namespace
