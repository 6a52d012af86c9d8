// Labels and fields: limits, cut texts, keys that a dialog wants.

#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMimeData>

#include "platform/qt/desktop/control_widgets.h"
#include "platform/qt/desktop/single_line_label.h"
#include "platform/qt/desktop/text.h"
#include "platform/qt/desktop/text_fields.h"

namespace {

// Returns whether the widget has kept the key.
bool Type(QWidget& widget, int key, const QString& text = {}, Qt::KeyboardModifiers held = Qt::NoModifier) {
  QKeyEvent press(QEvent::KeyPress, key, held, text);
  QCoreApplication::sendEvent(&widget, &press);
  return press.isAccepted();
}

void TypeText(QWidget& widget, const QString& text) {
  for (const QChar letter : text) Type(widget, letter.toUpper().unicode(), letter);
}

TEST(LineField, TakesNoMoreThanItsLimit) {
  qt::LineField field(nullptr);
  field.LimitText(3);
  TypeText(field, QStringLiteral("abcde"));
  EXPECT_EQ(field.text(), "abc");
}

TEST(LineField, LeavesALongerTextWhole) {
  qt::LineField field(nullptr);
  field.LimitText(3);
  field.SetWholeText(QStringLiteral("abcdef"));
  EXPECT_EQ(field.text(), "abcdef");
  TypeText(field, QStringLiteral("g"));
  EXPECT_EQ(field.text(), "abcdef") << "nothing can be added";
  qt::LineField other(nullptr);
  other.SetWholeText(QStringLiteral("abcdef"));
  other.LimitText(3);
  EXPECT_EQ(other.text(), "abcdef") << "in the other order, too";
}

TEST(LineField, ForDigitsTakesNothingElseFromTheKeyboard) {
  qt::LineField field(nullptr);
  field.AcceptDigitsOnly();
  TypeText(field, QStringLiteral("1a2 -3"));
  EXPECT_EQ(field.text(), "123");
  Type(field, Qt::Key_Backspace, QStringLiteral("\b"));
  EXPECT_EQ(field.text(), "12");
  QGuiApplication::clipboard()->setText(QStringLiteral("x"));
  Type(field, Qt::Key_V, QStringLiteral("\x16"), Qt::ControlModifier);
  EXPECT_EQ(field.text(), "12x") << "what is pasted is not looked at";
}

TEST(LinesField, CountsALinesEndTwice) {
  qt::LinesField field(true, nullptr);
  field.LimitText(5);
  TypeText(field, QStringLiteral("ab"));
  EXPECT_TRUE(Type(field, Qt::Key_Return, QStringLiteral("\r")));
  TypeText(field, QStringLiteral("cde"));
  EXPECT_EQ(field.toPlainText(), "ab\nc");
  EXPECT_TRUE(Type(field, Qt::Key_Return, QStringLiteral("\r")));
  EXPECT_EQ(field.toPlainText(), "ab\nc") << "there is no room";
}

TEST(LinesField, PastesWhatThereIsRoomFor) {
  qt::LinesField field(true, nullptr);
  field.LimitText(6);
  QGuiApplication::clipboard()->setText(QStringLiteral("ab\ncdefgh"));
  field.paste();
  EXPECT_EQ(field.toPlainText(), "ab\ncd");
  field.selectAll();
  field.paste();
  EXPECT_EQ(field.toPlainText(), "ab\ncd") << "in place of what is selected";
}

TEST(LinesField, LeavesEnterToTheDialogUnlessItWantsIt) {
  qt::LinesField field(false, nullptr);
  TypeText(field, QStringLiteral("ab"));
  EXPECT_FALSE(Type(field, Qt::Key_Return, QStringLiteral("\r")));
  EXPECT_FALSE(Type(field, Qt::Key_Enter, QStringLiteral("\r"), Qt::KeypadModifier));
  EXPECT_EQ(field.toPlainText(), "ab");
  EXPECT_TRUE(Type(field, Qt::Key_Return, QStringLiteral("\r"), Qt::ControlModifier));
  EXPECT_EQ(field.toPlainText(), "ab\n");
}

TEST(CutToUnits, NeverLeavesHalfACharacter) {
  EXPECT_EQ(qt::CutToUnits(QStringLiteral("abc"), 3), "abc");
  EXPECT_EQ(qt::CutToUnits(QStringLiteral("abc"), 0), "");
  const QString fish = QString::fromUtf8("a🐠b");
  EXPECT_EQ(qt::CutToUnits(fish, 4), fish);
  EXPECT_EQ(qt::CutToUnits(fish, 3), QString::fromUtf8("a🐠"));
  EXPECT_EQ(qt::CutToUnits(fish, 2), "a");
}

TEST(SingleLineLabel, OffersWhatItHadToCut) {
  qt::SingleLineLabel label(nullptr);
  label.resize(60, 20);
  label.SetWholeText(QStringLiteral("short"));
  EXPECT_TRUE(label.toolTip().isEmpty());
  label.SetWholeText(QStringLiteral("a mode with <a> long description"));
  EXPECT_EQ(label.toolTip(), "<span>a mode with &lt;a&gt; long description</span>");
  EXPECT_EQ(label.text(), "a mode with <a> long description");
}

TEST(ControlText, OfALabelShowsAmpersandsAsItsTraitsTell) {
  const dialogs::ControlTemplate plain{1, dialogs::ControlKind::Label, {0, 0, 50, 20}};
  const dialogs::ControlTemplate literal{
      1, dialogs::ControlKind::Label, {0, 0, 50, 20}, "", dialogs::trait::kAmpersands};
  QWidget window;
  const auto shown = [&window](const dialogs::ControlTemplate& row, const QString& text) {
    auto* const label = static_cast<QLabel*>(qt::MakeControl(row, &window));
    qt::SetControlText(*label, row, text);
    return label->text();
  };
  EXPECT_EQ(shown(plain, QStringLiteral("&File && more &")), "File & more &");
  EXPECT_EQ(shown(literal, QStringLiteral("Day & night")), "Day & night");
}

TEST(Lines, AreEndedAsTheOtherSideEndsThem) {
  EXPECT_EQ(qt::QtLines(u"a\r\nb"), "a\nb");
  EXPECT_EQ(qt::WideLines(QStringLiteral("a\nb")), u"a\r\nb");
}

}  // namespace
