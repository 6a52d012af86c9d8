#pragma once

// The dialogs' windows as data: which controls each has, where they stand and what they say before the dialog
// itself has said anything. A shell builds its windows from these rows, or from resources that say the same.
//
// All places here are in dialog units: a quarter of the average width of the dialog font's characters to the
// right, an eighth of their height downwards.

#include <span>
#include <string_view>

#include "dialogs/control.h"

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
inline constexpr int kCheckUp = 141;
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

namespace check_up_control {
inline constexpr int kReport = 1050;
inline constexpr int kSummary = 1051;
inline constexpr int kAgain = 1052;
inline constexpr int kPack = 1053;
inline constexpr int kSave = 1054;
}  // namespace check_up_control

namespace tc421_success_control {
inline constexpr int kText = 32912;
}  // namespace tc421_success_control

struct DialogTemplate {
  int number;
  std::string_view title;  // UTF-8
  /// The place where the dialog comes up in the main window unless DialogWindow::MoveTo is called, and the
  /// size of its inside.
  Rect place;
  /// The controls in the order in which Tab goes through them.
  std::span<const ControlTemplate> controls;
};

/// All templates, by ascending number.
std::span<const DialogTemplate> Templates();
/// Null, if there is none of that number.
const DialogTemplate* FindTemplate(int number);

}  // namespace dialogs
