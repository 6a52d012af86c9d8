#pragma once

#include <cstddef>
#include <string>

#include "dialogs/dialog.h"

namespace dialogs {

/// Room for the text of a control, in UTF-16 units with one for its end: what is longer is cut.
inline constexpr std::size_t kTextUnits = 2048;

/// What stands in the control, cut to `units`. If the cut, or the limit of the edit field before it, went
/// through a character of two units, its first half is left out: what is kept is whole.
std::u16string ReadText(const DialogTexts& texts, int control, std::size_t units = kTextUnits);

/// What came of storing the text of a control.
enum class Stored {
  Text,
  Nothing,  // the control is empty, and the value as it was
  Empty,    // nothing whole stood in the control, and the value is empty
};
Stored StoreText(const DialogTexts& texts, int control, std::u16string& value,
                 std::size_t units = kTextUnits);

}  // namespace dialogs
