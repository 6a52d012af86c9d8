#include "platform/qt/desktop/keys.h"

#include <QKeyEvent>

#include <algorithm>
#include <array>
#include <string_view>

#include "app/window/numbers.h"

namespace qt {

namespace {

struct KeyRow {
  int key;
  int number;
};

constexpr auto kKeys = std::to_array<KeyRow>({
    {Qt::Key_Backspace, app::key::kBackspace},
    {Qt::Key_Space, app::key::kSpace},
    {Qt::Key_PageUp, app::key::kPageUp},
    {Qt::Key_PageDown, app::key::kPageDown},
    {Qt::Key_End, app::key::kEnd},
    {Qt::Key_Home, app::key::kHome},
    {Qt::Key_Left, app::key::kLeft},
    {Qt::Key_Up, app::key::kUp},
    {Qt::Key_Right, app::key::kRight},
    {Qt::Key_Down, app::key::kDown},
    {Qt::Key_Insert, app::key::kInsert},
    {Qt::Key_Delete, app::key::kDelete},
    {Qt::Key_Return, app::key::kEnter},
    {Qt::Key_Enter, app::key::kEnter},
    {Qt::Key_F1, app::key::kF1},
});

constexpr auto kNumpad = std::to_array<KeyRow>({
    {Qt::Key_Asterisk, app::key::kNumpadMultiply},
    {Qt::Key_Plus, app::key::kNumpadAdd},
    {Qt::Key_Minus, app::key::kNumpadSubtract},
});

// The letters of a keyboard row, from its first key's scan code on, as X and Wayland count.
struct LetterRow {
  quint32 firstCode;
  std::string_view letters;
};
constexpr auto kLetterRows =
    std::to_array<LetterRow>({{24, "QWERTYUIOP"}, {38, "ASDFGHJKL"}, {52, "ZXCVBNM"}});

int Find(std::span<const KeyRow> rows, int key) {
  const auto row = std::ranges::find(rows, key, &KeyRow::key);
  return row == rows.end() ? 0 : row->number;
}

bool IsLatin(int key) {
  return (key >= 'A' && key <= 'Z') || (key >= '0' && key <= '9');
}

int LetterAt(quint32 code) {
  for (const LetterRow& row : kLetterRows) {
    if (code >= row.firstCode && code - row.firstCode < row.letters.size()) {
      return row.letters[code - row.firstCode];
    }
  }
  return 0;
}

bool Matches(const QKeyEvent& event, const app::KeyStroke& stroke) {
  using Stroke = app::KeyStroke::Kind;
  const auto held = event.modifiers() & ~(Qt::KeypadModifier | Qt::GroupSwitchModifier);
  switch (stroke.kind) {
    case Stroke::Key:
      return held == Qt::NoModifier && KeyNumber(event) == stroke.key;
    case Stroke::CtrlLetter:
      return held == Qt::ControlModifier && KeyNumber(event) == stroke.key;
    case Stroke::AltCharacter:
      return (held & ~Qt::ShiftModifier) == Qt::AltModifier && event.key() == stroke.key;
    case Stroke::None:
      break;
  }
  return false;
}

}  // namespace

int KeyNumber(const QKeyEvent& event) {
  const int key = event.key();
  if (IsLatin(key)) return key;
  if ((event.modifiers() & Qt::KeypadModifier) != 0) {
    if (const int number = Find(kNumpad, key); number != 0) return number;
  }
  if (const int number = Find(kKeys, key); number != 0) return number;
  // Letters of other alphabets; Qt's numbers of keys without a letter begin above all of them.
  return key > 0x7F && key < Qt::Key_Escape ? LetterAt(event.nativeScanCode()) : 0;
}

int CommandOf(const QKeyEvent& event, std::span<const app::Accelerator> accelerators) {
  const auto found = std::ranges::find_if(
      accelerators, [&event](const app::Accelerator& row) { return Matches(event, row.key); });
  return found == accelerators.end() ? 0 : found->command;
}

}  // namespace qt
