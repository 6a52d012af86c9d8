#pragma once

// The dialogs' windows as data: which controls each has, where they stand and what they say before the dialog
// itself has said anything. A shell builds its windows from these rows, or from resources that say the same.
//
// All places here are in dialog units: a quarter of the average width of the dialog font's characters to the
// right, an eighth of their height downwards.

#include <cstdint>
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
inline constexpr int kChangeSteps = 142;
inline constexpr int kFigures = 143;
inline constexpr int kSun = 144;
inline constexpr int kMoon = 145;
inline constexpr int kRampDay = 146;
inline constexpr int kAcclimation = 147;
inline constexpr int kSeason = 148;
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

namespace change_steps_control {
inline constexpr int kWhatLabel = 1060;
inline constexpr int kWhat = 1061;
inline constexpr int kFirstLabel = 1062;
inline constexpr int kFirst = 1063;
inline constexpr int kSecondLabel = 1064;
inline constexpr int kSecond = 1065;
inline constexpr int kWhichLabel = 1066;
inline constexpr int kWhich = 1067;
inline constexpr int kFromLabel = 1068;
inline constexpr int kFrom = 1069;
inline constexpr int kToLabel = 1070;
inline constexpr int kTo = 1071;
inline constexpr int kResult = 1072;
}  // namespace change_steps_control

namespace tc421_success_control {
inline constexpr int kText = 32912;
}  // namespace tc421_success_control

/// Of the dialogs that make days of light; each has some of them.
namespace generate_control {
inline constexpr int kResult = 1100;
inline constexpr int kPlaceLabel = 1101;
inline constexpr int kPlace = 1102;
inline constexpr int kPlacesLabel = 1103;
inline constexpr int kPlaces = 1104;
inline constexpr int kDateLabel = 1105;
inline constexpr int kDate = 1106;
inline constexpr int kTwilightLabel = 1107;
inline constexpr int kTwilight = 1108;
inline constexpr int kLevelsLabel = 1109;
inline constexpr int kLevels = 1110;
inline constexpr int kHoursLabel = 1111;
inline constexpr int kHours = 1112;
inline constexpr int kMoonlightLabel = 1113;
inline constexpr int kMoonlight = 1114;
inline constexpr int kNightLabel = 1115;
inline constexpr int kNight = 1116;
inline constexpr int kSunriseLabel = 1117;
inline constexpr int kSunrise = 1118;
inline constexpr int kSunsetLabel = 1119;
inline constexpr int kSunset = 1120;
inline constexpr int kRampLabel = 1121;
inline constexpr int kRamp = 1122;
inline constexpr int kStaggerLabel = 1123;
inline constexpr int kStagger = 1124;
inline constexpr int kBreakLabel = 1125;
inline constexpr int kBreak = 1126;
inline constexpr int kBreakLevelLabel = 1127;
inline constexpr int kBreakLevel = 1128;
inline constexpr int kPercentLabel = 1129;
inline constexpr int kPercent = 1130;
inline constexpr int kDaysLabel = 1131;
inline constexpr int kDays = 1132;
inline constexpr int kFirstDayLabel = 1133;
inline constexpr int kFirstDay = 1134;
inline constexpr int kWhatLabel = 1135;
inline constexpr int kWhat = 1136;
inline constexpr int kYearLabel = 1137;
inline constexpr int kYear = 1138;
}  // namespace generate_control

namespace figures_control {
// The first of five, one for each channel.
inline constexpr int kFirstName = 1060;
inline constexpr int kFirstWattsName = 1065;  // for screen readers
inline constexpr int kFirstWatts = 1070;
inline constexpr int kFirstParName = 1075;  // the same
inline constexpr int kFirstPar = 1080;
inline constexpr int kPrice = 1085;
inline constexpr int kLevel = 1086;
inline constexpr int kTable = 1087;
inline constexpr int kNote = 1088;
inline constexpr int kWattsLabel = 1089;
inline constexpr int kParLabel = 1090;
inline constexpr int kPriceLabel = 1091;
inline constexpr int kLevelLabel = 1092;
}  // namespace figures_control

/// From the left of the table to its first channel, and from one channel to the next.
inline constexpr std::int32_t kFiguresFirstColumn = 112;
inline constexpr std::int32_t kFiguresColumn = 54;

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
