#pragma once

// The dialogs' windows as data: which controls each has, where they stand and what they say before the dialog
// itself has said anything. A shell builds its windows from these rows, or from resources that say the same.

#include <cstdint>
#include <span>
#include <string_view>

namespace dialogs {

/// Numbers of the templates.
namespace template_id {
inline constexpr int kAbout = 103;
inline constexpr int kModeName = 129;
inline constexpr int kGetValue = 133;
inline constexpr int kTC421Init = 135;
inline constexpr int kTC421Search = 136;
inline constexpr int kTC421Config = 137;
inline constexpr int kTC421Success = 138;
inline constexpr int kAddSteps = 139;
inline constexpr int kGetDateTime = 140;
}  // namespace template_id

/// Numbers of the controls, but for the buttons kOk and kCancel that most dialogs have (dialog.h).
namespace about_control {
inline constexpr int kEmailLink = 1002;
inline constexpr int kWebLink = 1003;
inline constexpr int kGroupLink = 1005;
inline constexpr int kProgram = 1007;
inline constexpr int kFirstTerms = 1009;
inline constexpr int kSecondTerms = 1010;
inline constexpr int kNote = 1026;  // not in use
inline constexpr int kCopyright = 1028;
inline constexpr int kNoteButton = 1029;  // not in use
}  // namespace about_control

namespace mode_name_control {
inline constexpr int kName = 1000;
inline constexpr int kDescription = 1001;
inline constexpr int kNameLabel = 1006;
inline constexpr int kCopyLabel = 1007;
inline constexpr int kDescriptionLabel = 1008;
inline constexpr int kCopyFrom = 1039;
}  // namespace mode_name_control

namespace get_value_control {
inline constexpr int kValue = 1000;
inline constexpr int kPrompt = 1006;
}  // namespace get_value_control

namespace add_steps_control {
inline constexpr int kSteps = 1030;
inline constexpr int kHelp = 1031;
inline constexpr int kCount = 1032;
}  // namespace add_steps_control

namespace date_time_control {
inline constexpr int kPrompt = 1006;
inline constexpr int kDateTime = 1040;
}  // namespace date_time_control

namespace tc421_init_control {
inline constexpr int kText = 32912;
}  // namespace tc421_init_control

namespace tc421_search_control {
inline constexpr int kFoundLabel = 1008;
inline constexpr int kFound = 1013;
inline constexpr int kSearch = 1014;
}  // namespace tc421_search_control

namespace tc421_config_control {
inline constexpr int kNetwork = 1015;
inline constexpr int kSecurity = 1016;
inline constexpr int kEncryption = 1017;
inline constexpr int kPassword = 1018;
inline constexpr int kDevice = 1019;
inline constexpr int kSetUp = 1020;
inline constexpr int kDeviceGroup = 1021;
inline constexpr int kNetworkLabel = 1022;
inline constexpr int kPasswordLabel = 1023;
inline constexpr int kSecurityLabel = 1024;
inline constexpr int kEncryptionLabel = 1025;
}  // namespace tc421_config_control

namespace tc421_success_control {
inline constexpr int kText = 32912;
}  // namespace tc421_success_control

/// For a control that nobody speaks to.
inline constexpr int kNoControl = -1;

enum class ControlKind {
  Label,
  Edit,
  Button,
  GroupBox,  // a frame with a heading
  ListBox,
  DropDownList,    // nothing can be typed
  ComboBox,        // a drop-down list that one can type into as well
  DateTimePicker,  // of class "SysDateTimePick32"
  ProgramIcon,
};

/// Traits of a control, to be combined. Edit fields, buttons and lists are reached with Tab unless told
/// otherwise.
namespace trait {
inline constexpr unsigned kNone = 0;
inline constexpr unsigned kAutoScroll = 1U << 0;  // sideways, as far as one types
inline constexpr unsigned kMultiLine = 1U << 1;
inline constexpr unsigned kVerticalScrollBar = 1U << 2;
inline constexpr unsigned kWantsReturn = 1U << 3;  // Enter is a new line here, not the default button
inline constexpr unsigned kReadOnly = 1U << 4;
inline constexpr unsigned kNoTabStop = 1U << 5;
inline constexpr unsigned kDefault = 1U << 6;  // the button that Enter presses
inline constexpr unsigned kLink = 1U << 7;     // a button that says where it leads
inline constexpr unsigned kHidden = 1U << 8;
inline constexpr unsigned kSorted = 1U << 9;       // rows by their texts, whatever order they are added in
inline constexpr unsigned kAmpersands = 1U << 10;  // a label that shows them, in the place of underlining
}  // namespace trait

/// In dialog units.
struct UnitRect {
  std::int32_t x = 0;
  std::int32_t y = 0;
  std::int32_t width = 0;
  std::int32_t height = 0;

  friend bool operator==(const UnitRect&, const UnitRect&) = default;
};

struct ControlTemplate {
  int id;
  ControlKind kind;
  UnitRect place;
  std::string_view text;  // UTF-8
  unsigned traits = trait::kNone;
};

struct DialogTemplate {
  int number;
  std::string_view title;  // UTF-8
  UnitRect place;
  /// In the order in which Tab goes through them.
  std::span<const ControlTemplate> controls;
};

/// What all dialogs are written in.
inline constexpr std::string_view kDialogFont = "MS Shell Dlg";
inline constexpr int kDialogFontPoints = 8;

/// All templates, by ascending number.
std::span<const DialogTemplate> Templates();
/// Null, if there is none of that number.
const DialogTemplate* FindTemplate(int number);

}  // namespace dialogs
