#include "platform/qt/desktop/log_pane.h"

#include <gtest/gtest.h>

#include <QPlainTextEdit>
#include <QTextBlock>
#include <QTextCursor>

#include "platform/qt/desktop/text.h"

namespace {

using app::LogColor;
constexpr std::size_t kMuch = 100000;

class QtLogPane : public testing::Test {
 protected:
  QtLogPane() {
    window_.Create(QStringLiteral("Test"));
    controls_.Create(app::RowOf(app::Control::LogPane), u"", {10, 10, 300, 100});
  }

  QPlainTextEdit& Edit() { return *controls_.Log(); }
  std::u16string Text() { return qt::WideLines(Edit().toPlainText()); }
  bool IsRedAt(int position) {
    QTextCursor cursor(Edit().document());
    cursor.setPosition(position + 1);
    return cursor.charFormat().foreground().color() == QColor(255, 0, 0);
  }

  qt::ChartWindow chart_;
  qt::MainWindow window_;
  qt::Controls controls_{window_, chart_};
  qt::LogPane pane{controls_};
};

TEST_F(QtLogPane, WritesBehindTheLastTextWhereverTheCaretStands) {
  pane.Append(u"one\r\n", LogColor::AsBefore, kMuch);
  Edit().moveCursor(QTextCursor::Start);
  pane.Append(u"two\r\n", LogColor::AsBefore, kMuch);
  EXPECT_EQ(Text(), u"one\r\ntwo\r\n");
  EXPECT_EQ(Edit().textCursor().position(), 8);
  EXPECT_FALSE(Edit().textCursor().hasSelection());
}

TEST_F(QtLogPane, IsRedFromTheFirstRedTextOn) {
  pane.Append(u"one ", LogColor::AsBefore, kMuch);
  pane.Append(u"two ", LogColor::Red, kMuch);
  pane.Append(u"three", LogColor::AsBefore, kMuch);
  EXPECT_FALSE(IsRedAt(0));
  EXPECT_TRUE(IsRedAt(4));
  EXPECT_TRUE(IsRedAt(8));
}

TEST_F(QtLogPane, GivesItsColourToWhatIsSelected) {
  pane.Append(u"one two", LogColor::AsBefore, kMuch);
  QTextCursor cursor(Edit().document());
  cursor.setPosition(0);
  cursor.setPosition(3, QTextCursor::KeepAnchor);
  Edit().setTextCursor(cursor);
  pane.Append(u"!", LogColor::Red, kMuch);
  EXPECT_TRUE(IsRedAt(0));
  EXPECT_FALSE(IsRedAt(4));
}

TEST_F(QtLogPane, IsEmptiedWhenItHoldsMoreThanTold) {
  pane.Append(u"one\r\n", LogColor::Red, kMuch);
  pane.Append(u"two\r\n", LogColor::AsBefore, 5);
  EXPECT_EQ(Text(), u"one\r\ntwo\r\n") << "five units are not more than five: a line's end is two";
  pane.Append(u"three", LogColor::AsBefore, 9);
  EXPECT_EQ(Text(), u"three");
  EXPECT_TRUE(IsRedAt(0)) << "the colour stays";
}

TEST_F(QtLogPane, HoldsNoMoreThanItsLimit) {
  const std::u16string much(app::kLogPaneLimit - 2, u'x');
  pane.Append(much, LogColor::AsBefore, kMuch * 10);
  pane.Append(u"abcd", LogColor::AsBefore, kMuch * 10);
  EXPECT_EQ(Text().size(), static_cast<std::size_t>(app::kLogPaneLimit));
  EXPECT_TRUE(Text().ends_with(u"xab"));
}

}  // namespace
