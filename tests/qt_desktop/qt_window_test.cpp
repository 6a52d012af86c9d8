// What only the Qt window has: its message boxes, titles and touchpads.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "app/window/numbers.h"
#include "common/files.h"
#include "program/builtin_modes.h"
#include "program/program_file.h"
#include "program/settings.h"
#include "tests/qt_desktop/qt_user.h"
#include "tests/support/temporary_folder.h"

namespace {

using app::Answer;
using app::Control;
using testing::HasSubstr;
using testing::Not;
using testing::SizeIs;
namespace command = app::command;

class QtWindow : public testing::Test {
 protected:
  void TearDown() override {
    if (user.IsRunning()) user.Close();
    EXPECT_FALSE(user.IsRunning());
  }

  const std::filesystem::path source{LUMARINE_SOURCE_DIR};
  const TemporaryFolder documents;
  const TemporaryFolder work;
  qt_desktop::QtUser user{{documents.path(), source / "resources"}};
};

// A mode with more steps than some controllers take.
TCBase::Program::ModeListView LongProgram() {
  TCBase::Program::ModeListView document = TCBase::Program::NewProgram();
  for (int minute = 0; minute < 30; ++minute) {
    document.modes[1].channels[0].push_back({10, minute, static_cast<float>(minute % 2 * 50)});
  }
  TCBase::Program::SortSteps(document.modes[1].channels[0]);
  return document;
}

// Boxes

class QtBoxes : public QtWindow, public testing::WithParamInterface<const char*> {
 protected:
  void SetUp() override {
    Settings settings(documents / Settings::fileName);
    settings.SetValue("locale", GetParam());
    settings.Save();
    user.onQuestion = ExpectAllIsShown;
    user.Start();
  }

  // Has a box come up by a command, and answers it.
  void ExpectBox(int number, app::Buttons buttons, app::Icon icon, Answer answer) {
    SCOPED_TRACE(number);
    user.WillAnswer(answer);
    ASSERT_TRUE(user.Choose(number));
    const std::vector<app::Question> asked = user.Questions();
    ASSERT_THAT(asked, SizeIs(1));
    EXPECT_EQ(asked[0].buttons, buttons);
    EXPECT_EQ(asked[0].icon, icon);
    EXPECT_NE(asked[0].title, u"");
    EXPECT_THAT(Utf8FromWide(asked[0].text), Not(HasSubstr("{"))) << "something was not filled in";
  }

 private:
  static void ExpectAllIsShown(QMessageBox& box) {
    EXPECT_TRUE(box.screen()->geometry().contains(box.frameGeometry()));
    for (const QWidget* const part : box.findChildren<QWidget*>()) {
      const QRect place(part->mapTo(&box, QPoint(0, 0)), part->size());
      EXPECT_TRUE(!part->isVisible() || box.rect().contains(place)) << part->objectName().toStdString();
    }
    for (const QLabel* const label : box.findChildren<QLabel*>()) {
      const int needed =
          label->wordWrap() ? label->heightForWidth(label->width()) : label->sizeHint().height();
      EXPECT_LE(needed, label->height());
    }
    EXPECT_EQ(QApplication::focusWidget(), FirstButton(box)) << "the one that Enter presses";
  }
  static QPushButton* FirstButton(const QMessageBox& box) {
    const auto buttons = box.findChildren<QPushButton*>();
    return *std::ranges::min_element(
        buttons, {}, [&](const QPushButton* button) { return button->mapTo(&box, QPoint(0, 0)).x(); });
  }
};

TEST_P(QtBoxes, ShowAllThatTheySay) {
  ASSERT_TRUE(SaveProgram(LongProgram(), work / "long.xml"));
  ASSERT_TRUE(user.Choose(command::kAddEmulator));
  user.WillPick({work / "long.xml"});
  ASSERT_TRUE(user.Choose(command::kLoadProgram));
  ExpectBox(command::kKnownIssues, app::Buttons::Ok, app::Icon::Information, Answer::Ok);
  ExpectBox(command::kUploadProgram, app::Buttons::YesNo, app::Icon::Warning, Answer::No);
  ASSERT_TRUE(user.Choose(command::kEndpointStart));
  ExpectBox(command::kExit, app::Buttons::YesNoCancel, app::Icon::None, Answer::Cancel);
  ASSERT_TRUE(user.Choose(command::kUndo));
}

INSTANTIATE_TEST_SUITE_P(Languages, QtBoxes, testing::Values("en", "de", "cz"),
                         [](const auto& tested) { return std::string(tested.param); });

// A title in which Qt would put the mark of a changed window.
TEST_F(QtWindow, TitleShowsAnyNameOfAFile) {
  const std::filesystem::path file = work / "tank [*] &co.xml";
  std::filesystem::copy_file(source / "examples" / "reef-day.xml", file);
  user.StartWith({file});
  EXPECT_EQ(user.Title(), "Lumarine - " + Utf8FromPath(file));
}

TEST_F(QtWindow, ATouchpadZoomsByWholeNotches) {
  user.Start();
  user.TurnWheelBy(300, 100, {15, 15, 15, 15, 15, 15, 15}, true);
  EXPECT_EQ(user.SliderPosition(Control::ZoomSlider), 0);
  user.TurnWheelBy(300, 100, {15}, true);
  EXPECT_EQ(user.SliderPosition(Control::ZoomSlider), 1);
  user.TurnWheelBy(300, 100, {-60, -60}, true);
  EXPECT_EQ(user.SliderPosition(Control::ZoomSlider), 0);
}

}  // namespace
