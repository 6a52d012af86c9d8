#pragma once

// Controls as data, for the main window and for the dialogs: what each is, which traits it has, where it
// stands and what it says at first. A shell holds one table from these words to its widgets.

#include <cstdint>
#include <string_view>

#include "common/geometry.h"

namespace dialogs {

enum class ControlKind {
  Label,
  Edit,
  Button,
  GroupBox,        // a frame with a heading
  ListBox,         // in a border; tells of each choice
  DropDownList,    // nothing can be typed; its height is that of field and list when it is let down
  ComboBox,        // the same with a field that one can type into
  DateTimePicker,  // one field with the parts of a date and a time
  ProgramIcon,     // the program's own, 32 by 32 pixels
  Slider,          // lies; its least position is 0 and stands on the left
  ScrollBar,       // lies
  RichText,        // lines in several colours, in a border
  Chart,           // empty: the renderer draws in it
};

/// Traits of a control, to be combined. In a dialog, edit fields, buttons and lists are reached with Tab
/// unless told otherwise; in the main window nothing is.
namespace trait {
inline constexpr unsigned kNone = 0;
inline constexpr unsigned kAutoScroll = 1U << 0;  // sideways, as far as one types
inline constexpr unsigned kMultiLine = 1U << 1;   // breaks its lines and, where one can type, scrolls down
inline constexpr unsigned kVerticalScrollBar = 1U << 2;
inline constexpr unsigned kWantsReturn = 1U << 3;  // Enter is a new line here, not the default button
inline constexpr unsigned kReadOnly = 1U << 4;     // the text can be selected and copied
inline constexpr unsigned kNoTabStop = 1U << 5;
inline constexpr unsigned kDefault = 1U << 6;  // the button that Enter presses
inline constexpr unsigned kLink = 1U << 7;     // a button that says where it leads
inline constexpr unsigned kHidden = 1U << 8;
inline constexpr unsigned kSorted = 1U << 9;       // rows by their texts, whatever order they are added in
inline constexpr unsigned kAmpersands = 1U << 10;  // a label that shows them, see ControlTemplate::text
inline constexpr unsigned kMultiSelection = 1U << 11;  // extended: with Shift and Ctrl
inline constexpr unsigned kSunken = 1U << 12;          // a label of one line in a frame, cut off with dots
inline constexpr unsigned kTicks = 1U << 13;           // a slider with marks along it
inline constexpr unsigned kDisabled = 1U << 14;        // at first
}  // namespace trait

/// fixed + perWidth * W + perHeight * H, in a window whose inside is W by H. The factors are 0 or 1.
class Extent {
 public:
  constexpr Extent(std::int32_t fixed = 0, std::int32_t perWidth = 0, std::int32_t perHeight = 0)
      : fixed_(fixed), perWidth_(perWidth), perHeight_(perHeight) {}

  constexpr std::int32_t In(std::int32_t width, std::int32_t height) const {
    return fixed_ + perWidth_ * width + perHeight_ * height;
  }

 private:
  std::int32_t fixed_;
  std::int32_t perWidth_;
  std::int32_t perHeight_;
};

/// A place that may follow the window's size. A dialog's places are all fixed.
struct PlaceFormula {
  Extent x, y, width, height;

  constexpr Rect In(std::int32_t windowWidth, std::int32_t windowHeight) const {
    const auto in = [=](const Extent& extent) { return extent.In(windowWidth, windowHeight); };
    return {in(x), in(y), in(width), in(height)};
  }
};

/// The id of a control that nobody speaks to.
inline constexpr int kNoControl = -1;

struct ControlTemplate {
  /// Names the control to its window's rules and comes with what it sends. Each id stands once in a window,
  /// but for kNoControl and, in the main window, 0: those controls send nothing by number.
  int id = kNoControl;
  ControlKind kind = ControlKind::Label;
  PlaceFormula place;
  /// UTF-8, English. As in all labels, buttons, headings and menus, a "&" is not shown but underlines the
  /// letter behind it, which is then the control's key, and "&&" shows one.
  std::string_view text = {};
  unsigned traits = trait::kNone;
};

/// Whether the control has any of these traits.
constexpr bool Has(const ControlTemplate& control, unsigned traits) {
  return (control.traits & traits) != 0;
}

/// The sign that a message bears.
enum class Icon { None, Information, Warning, Error };

}  // namespace dialogs
