#include "dialogs/dialog_template.h"

#include <algorithm>
#include <array>

#include "dialogs/dialog.h"

namespace dialogs {

namespace {

using Kind = ControlKind;

constexpr ControlTemplate kAboutControls[] = {
    {kNoControl, Kind::ProgramIcon, {14, 14, 20, 20}, ""},
    {about_control::kProgram, Kind::Label, {42, 14, 160, 8}, ""},
    {about_control::kCopyright, Kind::Label, {42, 28, 160, 8}, ""},
    {about_control::kNoteButton, Kind::Button, {7, 44, 228, 14}, "", trait::kHidden},
    {about_control::kFirstTerms, Kind::Label, {9, 55, 160, 8}, ""},
    {about_control::kSecondTerms, Kind::Label, {9, 68, 160, 8}, ""},
    {about_control::kNote, Kind::Label, {9, 101, 160, 8}, "", trait::kHidden},
    {about_control::kEmailLink, Kind::Button, {7, 112, 228, 14}, "", trait::kLink},
    {about_control::kWebLink, Kind::Button, {7, 128, 228, 14}, "", trait::kLink},
    {about_control::kGroupLink, Kind::Button, {7, 144, 228, 14}, "", trait::kLink},
    {kOk, Kind::Button, {186, 178, 50, 14}, "OK", trait::kDefault},
};

constexpr ControlTemplate kModeNameControls[] = {
    {mode_name_control::kNameLabel, Kind::Label, {7, 7, 237, 8}, "Mode name (max 6 characters)"},
    {mode_name_control::kName, Kind::Edit, {7, 18, 237, 14}, "", trait::kAutoScroll},
    {mode_name_control::kDescriptionLabel, Kind::Label, {7, 37, 237, 8}, "Mode description"},
    {mode_name_control::kDescription, Kind::Edit, {7, 47, 237, 49}, "", trait::kMultiLine},
    {mode_name_control::kCopyLabel, Kind::Label, {7, 100, 237, 8}, "Copy from"},
    {mode_name_control::kCopyFrom, Kind::DropDownList, {7, 110, 123, 93}, "", trait::kVerticalScrollBar},
    {kOk, Kind::Button, {143, 109, 50, 14}, "OK", trait::kDefault},
    {kCancel, Kind::Button, {195, 109, 50, 14}, "Cancel"},
};

constexpr ControlTemplate kGetValueControls[] = {
    {get_value_control::kPrompt, Kind::Label, {7, 7, 286, 8}, "Value (max 20 characters)"},
    {get_value_control::kValue, Kind::Edit, {7, 18, 286, 14}, "", trait::kAutoScroll},
    {kOk, Kind::Button, {191, 37, 50, 14}, "OK", trait::kDefault},
    {kCancel, Kind::Button, {243, 37, 50, 14}, "Cancel"},
};

constexpr ControlTemplate kTC421InitControls[] = {
    {tc421_init_control::kText, Kind::Label, {7, 7, 397, 237}, "", trait::kAmpersands},
    {kOk, Kind::Button, {302, 251, 50, 14}, "Next", trait::kDefault},
    {kCancel, Kind::Button, {354, 251, 50, 14}, "Cancel"},
};

constexpr ControlTemplate kTC421SearchControls[] = {
    {tc421_search_control::kSearch, Kind::Button, {7, 7, 200, 14}, "Search for TC421 WiFi device"},
    {tc421_search_control::kFoundLabel, Kind::Label, {7, 28, 397, 8}, "Found devices"},
    {tc421_search_control::kFound,
     Kind::ListBox,
     {7, 38, 397, 206},
     "",
     trait::kSorted | trait::kVerticalScrollBar},
    {kOk, Kind::Button, {302, 251, 50, 14}, "Next"},
    {kCancel, Kind::Button, {354, 251, 50, 14}, "Cancel"},
};

constexpr ControlTemplate kTC421ConfigControls[] = {
    {tc421_config_control::kDeviceGroup, Kind::GroupBox, {7, 7, 397, 36}, "Selected device"},
    {tc421_config_control::kDevice,
     Kind::Edit,
     {14, 20, 383, 14},
     "",
     trait::kAutoScroll | trait::kReadOnly | trait::kNoTabStop},
    {tc421_config_control::kNetworkLabel, Kind::Label, {7, 54, 397, 8}, "WiFi network"},
    {tc421_config_control::kNetwork,
     Kind::ComboBox,
     {7, 64, 397, 150},
     "",
     trait::kAutoScroll | trait::kSorted | trait::kVerticalScrollBar},
    {tc421_config_control::kPasswordLabel, Kind::Label, {7, 86, 397, 8}, "Password"},
    {tc421_config_control::kPassword, Kind::Edit, {7, 96, 397, 14}, "", trait::kAutoScroll},
    {tc421_config_control::kSecurityLabel, Kind::Label, {7, 118, 195, 8}, "Security type"},
    {tc421_config_control::kSecurity,
     Kind::DropDownList,
     {7, 128, 195, 80},
     "",
     trait::kSorted | trait::kVerticalScrollBar},
    {tc421_config_control::kEncryptionLabel, Kind::Label, {209, 118, 195, 8}, "Encryption method"},
    {tc421_config_control::kEncryption,
     Kind::DropDownList,
     {209, 128, 195, 80},
     "",
     trait::kSorted | trait::kVerticalScrollBar},
    {tc421_config_control::kSetUp, Kind::Button, {7, 154, 200, 14}, "Set device to use this WiFi network"},
    {kOk, Kind::Button, {302, 251, 50, 14}, "Next"},
    {kCancel, Kind::Button, {354, 251, 50, 14}, "Cancel"},
};

constexpr ControlTemplate kTC421SuccessControls[] = {
    {tc421_success_control::kText, Kind::Label, {7, 7, 397, 237}, "", trait::kAmpersands},
    {kOk, Kind::Button, {354, 251, 50, 14}, "Done", trait::kDefault},
};

constexpr ControlTemplate kAddStepsControls[] = {
    {add_steps_control::kSteps,
     Kind::Edit,
     {7, 7, 170, 138},
     "",
     trait::kMultiLine | trait::kVerticalScrollBar | trait::kWantsReturn},
    {add_steps_control::kHelp,
     Kind::Edit,
     {182, 7, 120, 138},
     "",
     trait::kMultiLine | trait::kReadOnly | trait::kNoTabStop},
    {add_steps_control::kCount, Kind::Label, {7, 155, 170, 8}, " "},
    {kOk, Kind::Button, {198, 155, 50, 14}, "OK", trait::kDefault},
    {kCancel, Kind::Button, {252, 155, 50, 14}, "Cancel"},
};

constexpr ControlTemplate kGetDateTimeControls[] = {
    {date_time_control::kPrompt, Kind::Label, {7, 7, 137, 8}, "Enter date and time"},
    {date_time_control::kDateTime, Kind::DateTimePicker, {7, 18, 137, 15}, ""},
    {kOk, Kind::Button, {43, 37, 50, 14}, "OK", trait::kDefault},
    {kCancel, Kind::Button, {95, 37, 50, 14}, "Cancel"},
};

constexpr ControlTemplate kCheckUpControls[] = {
    {check_up_control::kReport,
     Kind::Edit,
     {7, 7, 366, 176},
     "",
     trait::kMultiLine | trait::kReadOnly | trait::kVerticalScrollBar},
    {check_up_control::kSummary, Kind::Label, {7, 189, 366, 8}, ""},
    {check_up_control::kAgain, Kind::Button, {7, 204, 90, 14}, "Look again"},
    {check_up_control::kPack, Kind::Button, {101, 204, 114, 14}, "Pack for a question"},
    {check_up_control::kSave, Kind::Button, {219, 204, 98, 14}, "Save as ZIP ..."},
    {kOk, Kind::Button, {323, 204, 50, 14}, "OK", trait::kDefault},
};

constexpr ControlTemplate kChangeStepsControls[] = {
    {change_steps_control::kWhatLabel, Kind::Label, {7, 7, 248, 8}, "What to do"},
    {change_steps_control::kWhat, Kind::DropDownList, {7, 17, 248, 190}, "", trait::kVerticalScrollBar},
    {change_steps_control::kFirstLabel, Kind::Label, {7, 37, 120, 8}, ""},
    {change_steps_control::kFirst, Kind::Edit, {7, 47, 120, 14}, "", trait::kAutoScroll},
    {change_steps_control::kSecondLabel, Kind::Label, {135, 37, 120, 8}, ""},
    {change_steps_control::kSecond, Kind::Edit, {135, 47, 120, 14}, "", trait::kAutoScroll},
    {change_steps_control::kWhichLabel, Kind::Label, {7, 67, 120, 8}, "Which steps"},
    {change_steps_control::kWhich, Kind::DropDownList, {7, 77, 120, 80}, "", trait::kVerticalScrollBar},
    {change_steps_control::kFromLabel, Kind::Label, {135, 67, 57, 8}, "From (hh:mm)"},
    {change_steps_control::kFrom, Kind::Edit, {135, 77, 57, 14}, "", trait::kAutoScroll},
    {change_steps_control::kToLabel, Kind::Label, {198, 67, 57, 8}, "To (hh:mm)"},
    {change_steps_control::kTo, Kind::Edit, {198, 77, 57, 14}, "", trait::kAutoScroll},
    {change_steps_control::kResult, Kind::Label, {7, 99, 248, 24}, ""},
    {kOk, Kind::Button, {153, 128, 50, 14}, "OK", trait::kDefault},
    {kCancel, Kind::Button, {205, 128, 50, 14}, "Cancel"},
};

constexpr int kFiguresControlCount = 5 + 2 * (1 + 2 * 5) + 4 + 4;

constexpr std::array<ControlTemplate, kFiguresControlCount> FiguresControls() {
  using namespace figures_control;
  constexpr std::int32_t kLeft = 7;
  constexpr std::int32_t kChannels = 5;
  std::array<ControlTemplate, kFiguresControlCount> controls{};
  auto* next = controls.data();
  const auto x = [](std::int32_t i) { return kLeft + kFiguresFirstColumn + i * kFiguresColumn; };
  const auto addRow = [&](int label, std::string_view text, int name, int field, std::int32_t y) {
    *next++ = {label, Kind::Label, {kLeft, y + 3, 110, 8}, text};
    for (std::int32_t i = 0; i < kChannels; ++i) {
      *next++ = {name + i, Kind::Label, {x(i), y + 3, 50, 8}, "", trait::kHidden | trait::kAmpersands};
      *next++ = {field + i, Kind::Edit, {x(i), y, 50, 14}, "", trait::kAutoScroll};
    }
  };
  for (std::int32_t i = 0; i < kChannels; ++i)
    *next++ = {kFirstName + i, Kind::Label, {x(i), 7, 50, 8}, "", trait::kAmpersands};
  addRow(kWattsLabel, "Watts at 100 %", kFirstWattsName, kFirstWatts, 17);
  addRow(kParLabel, "PAR at 100 %, µmol/m²/s", kFirstParName, kFirstPar, 35);
  *next++ = {kPriceLabel, Kind::Label, {kLeft, 56, 110, 8}, "Price of a kWh"};
  *next++ = {kPrice, Kind::Edit, {x(0), 53, 50, 14}, "", trait::kAutoScroll};
  *next++ = {kLevelLabel, Kind::Label, {x(1) + 4, 56, 154, 8}, "Hours above this level, in percent"};
  *next++ = {kLevel, Kind::Edit, {x(4), 53, 50, 14}, "", trait::kAutoScroll};
  *next++ = {kTable,
             Kind::Edit,
             {kLeft, 74, 440, 118},
             "",
             trait::kMultiLine | trait::kReadOnly | trait::kVerticalScrollBar};
  *next++ = {kNote, Kind::Label, {kLeft, 198, 440, 24}, "", trait::kAmpersands};
  *next++ = {kOk, Kind::Button, {343, 228, 50, 14}, "OK", trait::kDefault};
  *next++ = {kCancel, Kind::Button, {397, 228, 50, 14}, "Cancel"};
  return controls;
}
constexpr auto kFiguresControls = FiguresControls();

constexpr ControlTemplate kSunControls[] = {
    {generate_control::kPlaceLabel, Kind::Label, {7, 7, 186, 8}, "Place, country, or latitude,longitude"},
    {generate_control::kPlace, Kind::Edit, {7, 17, 186, 14}, "", trait::kAutoScroll},
    {generate_control::kPlacesLabel, Kind::Label, {7, 35, 186, 8}, "Places found"},
    {generate_control::kPlaces, Kind::ListBox, {7, 45, 186, 44}, "", trait::kVerticalScrollBar},
    {generate_control::kDateLabel, Kind::Label, {7, 93, 90, 8}, "Date"},
    {generate_control::kDate, Kind::Edit, {7, 103, 90, 14}, "", trait::kAutoScroll},
    {generate_control::kTwilightLabel, Kind::Label, {103, 93, 90, 8}, "Twilight"},
    {generate_control::kTwilight, Kind::DropDownList, {103, 103, 90, 80}, "", trait::kVerticalScrollBar},
    {generate_control::kLevelsLabel,
     Kind::Label,
     {7, 121, 186, 8},
     "Most light of channels 1 to 5, in percent"},
    {generate_control::kLevels, Kind::Edit, {7, 131, 186, 14}, "", trait::kAutoScroll},
    {generate_control::kHoursLabel,
     Kind::Label,
     {7, 149, 186, 8},
     "Hours, as 10:00-22:00, or begin, as 10:00"},
    {generate_control::kHours, Kind::Edit, {7, 159, 186, 14}, "", trait::kAutoScroll},
    {generate_control::kMoonlightLabel, Kind::Label, {7, 177, 186, 8}, "Moonlight, as 5=20: channel 5, 20 %"},
    {generate_control::kMoonlight, Kind::Edit, {7, 187, 186, 14}, "", trait::kAutoScroll},
    {generate_control::kResult, Kind::Label, {7, 205, 186, 16}, ""},
    {kOk, Kind::Button, {91, 227, 50, 14}, "OK", trait::kDefault},
    {kCancel, Kind::Button, {143, 227, 50, 14}, "Cancel"},
};

constexpr ControlTemplate kMoonControls[] = {
    {generate_control::kDateLabel, Kind::Label, {7, 7, 186, 8}, "Date"},
    {generate_control::kDate, Kind::Edit, {7, 17, 186, 14}, "", trait::kAutoScroll},
    {generate_control::kMoonlightLabel, Kind::Label, {7, 35, 186, 8}, "Moonlight, as 5=20: channel 5, 20 %"},
    {generate_control::kMoonlight, Kind::Edit, {7, 45, 186, 14}, "", trait::kAutoScroll},
    {generate_control::kNightLabel, Kind::Label, {7, 63, 186, 8}, "Night, as 21:00-06:00"},
    {generate_control::kNight, Kind::Edit, {7, 73, 186, 14}, "", trait::kAutoScroll},
    {generate_control::kResult, Kind::Label, {7, 91, 186, 16}, ""},
    {kOk, Kind::Button, {91, 113, 50, 14}, "OK", trait::kDefault},
    {kCancel, Kind::Button, {143, 113, 50, 14}, "Cancel"},
};

constexpr ControlTemplate kRampDayControls[] = {
    {generate_control::kSunriseLabel, Kind::Label, {7, 7, 90, 8}, "Sunrise"},
    {generate_control::kSunrise, Kind::Edit, {7, 17, 90, 14}, "", trait::kAutoScroll},
    {generate_control::kSunsetLabel, Kind::Label, {103, 7, 90, 8}, "Sunset"},
    {generate_control::kSunset, Kind::Edit, {103, 17, 90, 14}, "", trait::kAutoScroll},
    {generate_control::kRampLabel, Kind::Label, {7, 35, 90, 8}, "Ramp (minutes)"},
    {generate_control::kRamp, Kind::Edit, {7, 45, 90, 14}, "", trait::kAutoScroll},
    {generate_control::kStaggerLabel, Kind::Label, {103, 35, 90, 8}, "Stagger (minutes)"},
    {generate_control::kStagger, Kind::Edit, {103, 45, 90, 14}, "", trait::kAutoScroll},
    {generate_control::kLevelsLabel,
     Kind::Label,
     {7, 63, 186, 8},
     "Most light of channels 1 to 5, in percent"},
    {generate_control::kLevels, Kind::Edit, {7, 73, 186, 14}, "", trait::kAutoScroll},
    {generate_control::kBreakLabel, Kind::Label, {7, 91, 186, 8}, "Midday break, as 13:00-15:00"},
    {generate_control::kBreak, Kind::Edit, {7, 101, 186, 14}, "", trait::kAutoScroll},
    {generate_control::kBreakLevelLabel, Kind::Label, {7, 119, 186, 8}, "Light left in the break (%)"},
    {generate_control::kBreakLevel, Kind::Edit, {7, 129, 186, 14}, "", trait::kAutoScroll},
    {generate_control::kMoonlightLabel, Kind::Label, {7, 147, 186, 8}, "Moonlight, as 5=20: channel 5, 20 %"},
    {generate_control::kMoonlight, Kind::Edit, {7, 157, 186, 14}, "", trait::kAutoScroll},
    {generate_control::kResult, Kind::Label, {7, 175, 186, 16}, ""},
    {kOk, Kind::Button, {91, 197, 50, 14}, "OK", trait::kDefault},
    {kCancel, Kind::Button, {143, 197, 50, 14}, "Cancel"},
};

constexpr ControlTemplate kAcclimationControls[] = {
    {generate_control::kPercentLabel, Kind::Label, {7, 7, 90, 8}, "Light on day 1 (%)"},
    {generate_control::kPercent, Kind::Edit, {7, 17, 90, 14}, "", trait::kAutoScroll},
    {generate_control::kDaysLabel, Kind::Label, {103, 7, 90, 8}, "Days"},
    {generate_control::kDays, Kind::Edit, {103, 17, 90, 14}, "", trait::kAutoScroll},
    {generate_control::kFirstDayLabel, Kind::Label, {7, 35, 186, 8}, "Day 1"},
    {generate_control::kFirstDay, Kind::Edit, {7, 45, 186, 14}, "", trait::kAutoScroll},
    {generate_control::kWhatLabel, Kind::Label, {7, 63, 186, 8}, "What to make"},
    {generate_control::kWhat, Kind::DropDownList, {7, 73, 186, 80}, "", trait::kVerticalScrollBar},
    {generate_control::kResult, Kind::Label, {7, 91, 186, 16}, ""},
    {kOk, Kind::Button, {91, 113, 50, 14}, "OK", trait::kDefault},
    {kCancel, Kind::Button, {143, 113, 50, 14}, "Cancel"},
};

constexpr ControlTemplate kSeasonControls[] = {
    {generate_control::kPlaceLabel, Kind::Label, {7, 7, 186, 8}, "Place, country, or latitude,longitude"},
    {generate_control::kPlace, Kind::Edit, {7, 17, 186, 14}, "", trait::kAutoScroll},
    {generate_control::kPlacesLabel, Kind::Label, {7, 35, 186, 8}, "Places found"},
    {generate_control::kPlaces, Kind::ListBox, {7, 45, 186, 44}, "", trait::kVerticalScrollBar},
    {generate_control::kYearLabel, Kind::Label, {7, 93, 90, 8}, "Year"},
    {generate_control::kYear, Kind::Edit, {7, 103, 90, 14}, "", trait::kAutoScroll},
    {generate_control::kTwilightLabel, Kind::Label, {103, 93, 90, 8}, "Twilight"},
    {generate_control::kTwilight, Kind::DropDownList, {103, 103, 90, 80}, "", trait::kVerticalScrollBar},
    {generate_control::kLevelsLabel,
     Kind::Label,
     {7, 121, 186, 8},
     "Most light of channels 1 to 5, in percent"},
    {generate_control::kLevels, Kind::Edit, {7, 131, 186, 14}, "", trait::kAutoScroll},
    {generate_control::kHoursLabel,
     Kind::Label,
     {7, 149, 186, 8},
     "Hours, as 10:00-22:00, or begin, as 10:00"},
    {generate_control::kHours, Kind::Edit, {7, 159, 186, 14}, "", trait::kAutoScroll},
    {generate_control::kMoonlightLabel, Kind::Label, {7, 177, 186, 8}, "Moonlight, as 5=20: channel 5, 20 %"},
    {generate_control::kMoonlight, Kind::Edit, {7, 187, 186, 14}, "", trait::kAutoScroll},
    {generate_control::kResult, Kind::Label, {7, 205, 186, 16}, ""},
    {kOk, Kind::Button, {91, 227, 50, 14}, "OK", trait::kDefault},
    {kCancel, Kind::Button, {143, 227, 50, 14}, "Cancel"},
};

constexpr DialogTemplate kTemplates[] = {
    {template_id::kAbout, "About Lumarine", {20, 20, 243, 199}, kAboutControls},
    {template_id::kModeName, "Add new mode", {50, 50, 251, 130}, kModeNameControls},
    {template_id::kGetValue, "Enter value", {50, 50, 299, 58}, kGetValueControls},
    {template_id::kTC421Init, "Setup TC421 WiFi - Initialization", {50, 50, 411, 272}, kTC421InitControls},
    {template_id::kTC421Search, "Setup TC421 WiFi - Search", {50, 50, 411, 272}, kTC421SearchControls},
    {template_id::kTC421Config, "Setup TC421 WiFi - Configuration", {50, 50, 411, 272}, kTC421ConfigControls},
    {template_id::kTC421Success, "Setup TC421 WiFi - Success", {50, 50, 411, 272}, kTC421SuccessControls},
    {template_id::kAddSteps, "Add Steps", {0, 0, 309, 176}, kAddStepsControls},
    {template_id::kGetDateTime, "Enter date and time", {50, 50, 154, 56}, kGetDateTimeControls},
    {template_id::kCheckUp, "Check-up", {50, 50, 380, 225}, kCheckUpControls},
    {template_id::kChangeSteps, "Change steps", {50, 50, 262, 149}, kChangeStepsControls},
    {template_id::kFigures, "Figures", {5, 20, 454, 249}, kFiguresControls},
    {template_id::kSun, "Sun over a place", {5, 20, 200, 248}, kSunControls},
    {template_id::kMoon, "Moonlight", {5, 20, 200, 134}, kMoonControls},
    {template_id::kRampDay, "Ramp day", {5, 20, 200, 218}, kRampDayControls},
    {template_id::kAcclimation, "Acclimation", {5, 20, 200, 134}, kAcclimationControls},
    {template_id::kSeason, "Season of 52 weeks", {5, 20, 200, 248}, kSeasonControls},
};

}  // namespace

std::span<const DialogTemplate> Templates() {
  return kTemplates;
}

const DialogTemplate* FindTemplate(int number) {
  const auto* found =
      std::ranges::find_if(kTemplates, [number](const auto& row) { return row.number == number; });
  return found == std::end(kTemplates) ? nullptr : found;
}

}  // namespace dialogs
