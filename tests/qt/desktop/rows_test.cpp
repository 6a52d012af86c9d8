// Lists of dialogs.

#include "platform/qt/desktop/rows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QComboBox>
#include <QListWidget>

namespace {

using testing::ElementsAre;

std::vector<std::string> Texts(const QListWidget& list) {
  std::vector<std::string> texts;
  for (int row = 0; row < list.count(); ++row) texts.push_back(list.item(row)->text().toStdString());
  return texts;
}

template <class List>
class RowsTest : public testing::Test {};
using Lists = testing::Types<QListWidget, QComboBox>;
TYPED_TEST_SUITE(RowsTest, Lists);

TYPED_TEST(RowsTest, GoByPlaceTextAndNumber) {
  TypeParam list;
  qt::Rows rows(list);
  rows.Add(QStringLiteral("one"), 10, false);
  rows.Add(QStringLiteral("two"), 20, false);
  EXPECT_EQ(rows.Count(), 2);
  EXPECT_EQ(rows.Find(QStringLiteral("two")), 1);
  EXPECT_EQ(rows.Find(QStringLiteral("Two")), -1);
  EXPECT_EQ(rows.SelectedData(), -1) << "a row that comes is not selected";
  rows.Select(1);
  EXPECT_EQ(rows.SelectedData(), 20);
  rows.Select(2);
  EXPECT_EQ(rows.SelectedData(), -1);
  rows.Clear();
  EXPECT_EQ(rows.Count(), 0);
}

TYPED_TEST(RowsTest, TellOnlyOfWhatTheUserChooses) {
  TypeParam list;
  int told = 0;
  qt::ConnectSelection(list, [&told] { ++told; });
  qt::Rows rows(list);
  rows.Add(QStringLiteral("one"), 10, false);
  rows.Add(QStringLiteral("two"), 20, false);
  rows.Select(1);
  rows.Clear();
  EXPECT_EQ(told, 0);
}

TEST(Rows, OfASortedListStandByTheirTexts) {
  QListWidget list;
  qt::Rows rows(list);
  for (const char* text : {"pond", "aquarium", "zoo", "bed"}) rows.Add(QString::fromUtf8(text), 0, true);
  EXPECT_THAT(Texts(list), ElementsAre("aquarium", "bed", "pond", "zoo"));
}

TEST(Rows, LeaveWhatWasTypedAlone) {
  QComboBox box;
  box.setEditable(true);
  box.setEditText(QStringLiteral("my network"));
  qt::Rows rows(box);
  rows.Add(QStringLiteral("first"), 1, false);
  rows.Add(QStringLiteral("second"), 2, false);
  EXPECT_EQ(box.currentText(), "my network");
  EXPECT_EQ(rows.SelectedData(), -1);
  rows.Select(1);
  EXPECT_EQ(box.currentText(), "second");
  EXPECT_EQ(rows.SelectedData(), 2);
  box.setEditText(QStringLiteral("second floor"));
  EXPECT_EQ(rows.SelectedData(), -1) << "something else was typed";
}

}  // namespace
