#pragma once

// What a user does in a dialog and sees of it, for user.h. Texts are UTF-8; controls go by the numbers of
// dialogs/dialog_template.h.

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "common/date_time.h"

/// A control of a dialog as it was seen.
struct SeenControl {
  std::string text;  // line ends as they stand
  bool visible = true;
  bool enabled = true;
  std::vector<std::string> rows = {};  // of a list
  int row = -1;                        // the chosen one
  DateTime time = {};                  // of a date and time picker
};

/// A dialog as it was seen.
struct SeenDialog {
  std::string title;
  // Its left top, in the client area of the main window.
  std::int32_t x = 0;
  std::int32_t y = 0;
  std::map<int, SeenControl> controls;
};

/// One thing done.
struct DialogStep {
  enum class Kind { Type, Paste, Pick, SetDateTime, GoTo, Press, PressEnter, PressEscape, Await, Look };

  Kind kind;
  int control = 0;
  std::string text = {};
  int row = 0;
  DateTime time = {};
  std::function<bool(const SeenDialog&)> until = {};
};

/// All that is done in one dialog, in order. The last step must close it, and no earlier one may.
using DialogScript = std::vector<DialogStep>;

/// The words of such a script: WillFill({Type(mode_name_control::kName, "Reef"), Press(kOk)}).
namespace in_dialog {

/// Types the text, key by key, in place of what stands in the field or combo box; "\n" is a new line. Keys
/// that the field does not take are lost.
inline DialogStep Type(int control, std::string text) {
  return {DialogStep::Kind::Type, control, std::move(text)};
}
/// Pastes the text in place of what stands in the field, "\n" being a new line. A field of one line takes the
/// first line of it.
inline DialogStep Paste(int control, std::string text) {
  return {DialogStep::Kind::Paste, control, std::move(text)};
}
/// Chooses a row of a list, the first being 0.
inline DialogStep Pick(int control, int row) {
  return {DialogStep::Kind::Pick, control, {}, row};
}
/// Sets a date and time picker.
inline DialogStep SetDateTime(int control, const DateTime& time) {
  return {DialogStep::Kind::SetDateTime, control, {}, 0, time};
}
/// Goes to a control with the Tab key.
inline DialogStep GoTo(int control) {
  return {DialogStep::Kind::GoTo, control};
}
/// Clicks a button.
inline DialogStep Press(int button) {
  return {DialogStep::Kind::Press, button};
}
/// The Enter key: a new line in a field that wants it, else the button with the focus or the default one.
inline DialogStep PressEnter() {
  return {DialogStep::Kind::PressEnter};
}
inline DialogStep PressEscape() {
  return {DialogStep::Kind::PressEscape};
}
/// Does nothing until the dialog, or whatever else one looks at, is as it should be: for a long time, and
/// then that is a mistake.
inline DialogStep Await(std::function<bool(const SeenDialog&)> isSo) {
  DialogStep step{DialogStep::Kind::Await};
  step.until = std::move(isSo);
  return step;
}
/// Something happens elsewhere.
inline DialogStep Meanwhile(std::function<void()> happen) {
  return Await([happen = std::move(happen)](const SeenDialog&) {
    happen();
    return true;
  });
}
/// Notes what the dialog shows now.
inline DialogStep Look() {
  return {DialogStep::Kind::Look};
}

}  // namespace in_dialog
