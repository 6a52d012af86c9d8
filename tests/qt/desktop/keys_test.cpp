#include "platform/qt/desktop/keys.h"

#include <gtest/gtest.h>

#include <QKeyEvent>

#include "app/commands.h"
#include "app/window/numbers.h"
#include "platform/qt/desktop/wheel_notches.h"

namespace {

namespace key = app::key;

QKeyEvent Press(int code, Qt::KeyboardModifiers held = Qt::NoModifier, quint32 scanCode = 0) {
  return {QEvent::KeyPress, code, held, scanCode, 0, 0};
}

int Number(const QKeyEvent& event) {
  return qt::KeyNumber(event);
}

int Command(const QKeyEvent& event) {
  const std::vector<app::Accelerator> keys = app::AcceleratorTable();
  return qt::CommandOf(event, keys);
}

TEST(QtKeys, HaveTheApplicationsNumbers) {
  EXPECT_EQ(Number(Press(Qt::Key_J)), key::kJ);
  EXPECT_EQ(Number(Press(Qt::Key_Z)), 'Z');
  EXPECT_EQ(Number(Press(Qt::Key_7)), '7');
  EXPECT_EQ(Number(Press(Qt::Key_Left)), key::kLeft);
  EXPECT_EQ(Number(Press(Qt::Key_Delete)), key::kDelete);
  EXPECT_EQ(Number(Press(Qt::Key_Backspace)), key::kBackspace);
  EXPECT_EQ(Number(Press(Qt::Key_Space)), key::kSpace);
  EXPECT_EQ(Number(Press(Qt::Key_F1)), key::kF1);
  EXPECT_EQ(Number(Press(Qt::Key_F2)), 0);
  EXPECT_EQ(Number(Press(Qt::Key_Control)), 0);
}

TEST(QtKeys, OfTheNumberPadAreOthersThanTheSameSignsElsewhere) {
  EXPECT_EQ(Number(Press(Qt::Key_Plus, Qt::KeypadModifier)), key::kNumpadAdd);
  EXPECT_EQ(Number(Press(Qt::Key_Minus, Qt::KeypadModifier)), key::kNumpadSubtract);
  EXPECT_EQ(Number(Press(Qt::Key_Asterisk, Qt::KeypadModifier)), key::kNumpadMultiply);
  EXPECT_EQ(Number(Press(Qt::Key_Plus)), 0);
  EXPECT_EQ(Number(Press(Qt::Key_PageUp, Qt::KeypadModifier)), key::kPageUp) << "without Num Lock";
}

TEST(QtKeys, OfOtherAlphabetsGoByTheirPlace) {
  EXPECT_EQ(Number(Press(0x041E, Qt::NoModifier, 44)), key::kJ) << "Cyrillic O stands where J does";
  EXPECT_EQ(Number(Press(0x042F, Qt::ControlModifier, 52)), 'Z');
  EXPECT_EQ(Number(Press(0x0416, Qt::NoModifier, 47)), 0) << "no Latin letter stands there";
}

TEST(QtKeys, GiveCommands) {
  EXPECT_EQ(Command(Press(Qt::Key_Z, Qt::ControlModifier)), app::command::kUndo);
  EXPECT_EQ(Command(Press(Qt::Key_Y, Qt::ControlModifier)), app::command::kRedo);
  EXPECT_EQ(Command(Press(Qt::Key_Delete)), app::command::kDeleteStep);
  EXPECT_EQ(Command(Press(Qt::Key_PageUp)), app::command::kPanBack);
  EXPECT_EQ(Command(Press(Qt::Key_Plus, Qt::KeypadModifier)), app::command::kZoomIn);
  EXPECT_EQ(Command(Press(Qt::Key_Slash, Qt::AltModifier)), app::command::kAbout);
  EXPECT_EQ(Command(Press(Qt::Key_Question, Qt::AltModifier | Qt::ShiftModifier)), app::command::kAbout);
}

TEST(QtKeys, WithOtherKeysHeldGiveNone) {
  EXPECT_EQ(Command(Press(Qt::Key_Z)), 0);
  EXPECT_EQ(Command(Press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier)), 0);
  EXPECT_EQ(Command(Press(Qt::Key_Z, Qt::ControlModifier | Qt::AltModifier)), 0);
  EXPECT_EQ(Command(Press(Qt::Key_Delete, Qt::ControlModifier)), 0);
  EXPECT_EQ(Command(Press(Qt::Key_Slash)), 0);
}

TEST(WheelNotches, GatherSmallTurns) {
  qt::WheelNotches wheel;
  EXPECT_EQ(wheel.WholeNotches(120), 120);
  EXPECT_EQ(wheel.WholeNotches(50), 0);
  EXPECT_EQ(wheel.WholeNotches(50), 0);
  EXPECT_EQ(wheel.WholeNotches(50), 120);
  EXPECT_EQ(wheel.WholeNotches(90), 120) << "30 had waited";
  EXPECT_EQ(wheel.WholeNotches(-360), -360);
}

TEST(WheelNotches, ForgetWhatWaitedWhenTheTurnGoesBack) {
  qt::WheelNotches wheel;
  EXPECT_EQ(wheel.WholeNotches(100), 0);
  EXPECT_EQ(wheel.WholeNotches(-100), 0);
  EXPECT_EQ(wheel.WholeNotches(-20), -120);
}

}  // namespace
