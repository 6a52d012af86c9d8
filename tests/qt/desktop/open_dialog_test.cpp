// What the keys of a dialog mean.

#include "platform/qt/desktop/open_dialog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QKeyEvent>
#include <QPushButton>
#include <QTimer>
#include <QWidget>

#include <optional>
#include <utility>
#include <vector>

namespace {

using dialogs::kCancel;
using dialogs::kClicked;
using dialogs::kOk;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

class NoPort final : public dialogs::DialogsPort {
 public:
  int Run(dialogs::DlgBase&) override { return kCancel; }
};

// Notes what it is told.
class Rules final : public dialogs::DlgBase {
 public:
  Rules(dialogs::DialogsPort& port, int number) : DlgBase(port, number) {}

  void OnInit(dialogs::DialogWindow&) override {}
  void OnCommand(dialogs::DialogWindow& window, int control, int code) override {
    told.emplace_back(control, code);
    if (end != 0) window.End(end);
  }

  std::vector<std::pair<int, int>> told;
  int end = 0;
};

class DialogKeys : public testing::Test {
 protected:
  void Open(int number) {
    rules.emplace(port_, number);
    window.emplace(*dialogs::FindTemplate(number), *rules, owner_);
  }
  QDialog& Frame() { return *owner_.findChild<QDialog*>(); }
  QWidget& Item(int id) { return *Frame().findChild<QWidget*>(QStringLiteral("item-%1").arg(id)); }
  void Press(QWidget& widget, int key) {
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, key == Qt::Key_Return ? QStringLiteral("\r") : "");
    for (QWidget* at = &widget; at != nullptr; at = at->parentWidget()) {
      press.accept();
      QCoreApplication::sendEvent(at, &press);
      if (press.isAccepted() || at->isWindow()) return;
    }
  }
  void PressIn(int id, int key) {
    Item(id).setFocus();
    Press(Item(id), key);
  }

  QWidget owner_;
  NoPort port_;
  std::optional<Rules> rules;
  std::optional<qt::OpenDialog> window;
};

TEST_F(DialogKeys, EnterInAFieldPressesTheDefaultButton) {
  Open(dialogs::template_id::kGetValue);
  PressIn(dialogs::get_value_control::kValue, Qt::Key_Return);
  EXPECT_THAT(rules->told, ElementsAre(Pair(kOk, kClicked)));
}

TEST_F(DialogKeys, EnterPressesTheButtonThatHasTheFocus) {
  Open(dialogs::template_id::kGetValue);
  PressIn(kCancel, Qt::Key_Return);
  EXPECT_THAT(rules->told, ElementsAre(Pair(kCancel, kClicked)));
}

TEST_F(DialogKeys, EnterDoesNotPressADefaultButtonThatIsGrey) {
  Open(dialogs::template_id::kGetValue);
  window->SetEnabled(kOk, false);
  PressIn(dialogs::get_value_control::kValue, Qt::Key_Return);
  EXPECT_THAT(rules->told, IsEmpty());
}

TEST_F(DialogKeys, EnterMeansOkWhereNoButtonIsTheDefault) {
  Open(dialogs::template_id::kTC421Search);
  window->SetEnabled(kOk, false);
  PressIn(dialogs::tc421_search_control::kFound, Qt::Key_Return);
  EXPECT_THAT(rules->told, ElementsAre(Pair(kOk, kClicked))) << "whatever that button looks like";
  for (const QPushButton* button : Frame().findChildren<QPushButton*>()) {
    EXPECT_FALSE(button->isDefault()) << button->text().toStdString();
  }
}

TEST_F(DialogKeys, EnterIsAFieldsOwnThatWantsIt) {
  Open(dialogs::template_id::kAddSteps);
  PressIn(dialogs::add_steps_control::kSteps, Qt::Key_Return);
  EXPECT_THAT(rules->told, ElementsAre(Pair(dialogs::add_steps_control::kSteps, dialogs::kTextChanged)));
}

TEST_F(DialogKeys, EscapeMeansCancel) {
  Open(dialogs::template_id::kAbout);
  Press(Frame(), Qt::Key_Escape);
  EXPECT_THAT(rules->told, ElementsAre(Pair(kCancel, kClicked))) << "with such a button or without";
}

TEST_F(DialogKeys, NothingIsToldBehindTheEnd) {
  Open(dialogs::template_id::kGetValue);
  rules->end = 7;
  QTimer::singleShot(0, &Frame(), [this] {
    PressIn(kCancel, Qt::Key_Return);
    PressIn(kCancel, Qt::Key_Return);
  });
  EXPECT_EQ(window->Run(), 7);
  EXPECT_EQ(rules->told.size(), 1U);
}

}  // namespace
