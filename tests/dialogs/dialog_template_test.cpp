#include "dialogs/dialog_template.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <utility>
#include <vector>

#include "dialogs/dialog.h"
#include "dialogs/dlg_about.h"
#include "dialogs/dlg_add_steps.h"
#include "dialogs/dlg_change_steps.h"
#include "dialogs/dlg_get_date_time.h"
#include "dialogs/dlg_get_value.h"
#include "dialogs/dlg_mode_name.h"
#include "dialogs/dlg_tc421_config.h"
#include "dialogs/dlg_tc421_init.h"
#include "dialogs/dlg_tc421_search.h"
#include "dialogs/dlg_tc421_success.h"
#include "tests/support/control_columns.h"
#include "tests/support/headless_dialogs.h"

namespace {

using namespace dialogs;

struct Form {
  int number;
  const char* title;
  Rect place;
  ControlColumns columns;
};

const Form kForms[] = {
    {103,
     "About Lumarine",
     {20, 20, 243, 199},
     {{-1, 1007, 1028, 1029, 1009, 1010, 1026, 1002, 1003, 1005, 1},
      {"icon", "label", "label", "button", "label", "label", "label", "button", "button", "button", "button"},
      {14, 42, 42, 7, 9, 9, 9, 7, 7, 7, 186},
      {14, 14, 28, 44, 55, 68, 101, 112, 128, 144, 178},
      {20, 160, 160, 228, 160, 160, 160, 228, 228, 228, 50},
      {20, 8, 8, 14, 8, 8, 8, 14, 14, 14, 14},
      {"", "", "", "", "", "", "", "", "", "", "OK"}}},
    {129,
     "Add new mode",
     {50, 50, 251, 130},
     {{1006, 1000, 1008, 1001, 1007, 1039, 1, 2},
      {"label", "edit", "label", "edit", "label", "drop-down", "button", "button"},
      {7, 7, 7, 7, 7, 7, 143, 195},
      {7, 18, 37, 47, 100, 110, 109, 109},
      {237, 237, 237, 237, 237, 123, 50, 50},
      {8, 14, 8, 49, 8, 93, 14, 14},
      {"Mode name (max 6 characters)", "", "Mode description", "", "Copy from", "", "OK", "Cancel"}}},
    {133,
     "Enter value",
     {50, 50, 299, 58},
     {{1006, 1000, 1, 2},
      {"label", "edit", "button", "button"},
      {7, 7, 191, 243},
      {7, 18, 37, 37},
      {286, 286, 50, 50},
      {8, 14, 14, 14},
      {"Value (max 20 characters)", "", "OK", "Cancel"}}},
    {135,
     "Setup TC421 WiFi - Initialization",
     {50, 50, 411, 272},
     {{32912, 1, 2},
      {"label", "button", "button"},
      {7, 302, 354},
      {7, 251, 251},
      {397, 50, 50},
      {237, 14, 14},
      {"", "Next", "Cancel"}}},
    {136,
     "Setup TC421 WiFi - Search",
     {50, 50, 411, 272},
     {{1014, 1008, 1013, 1, 2},
      {"button", "label", "list", "button", "button"},
      {7, 7, 7, 302, 354},
      {7, 28, 38, 251, 251},
      {200, 397, 397, 50, 50},
      {14, 8, 206, 14, 14},
      {"Search for TC421 WiFi device", "Found devices", "", "Next", "Cancel"}}},
    {137,
     "Setup TC421 WiFi - Configuration",
     {50, 50, 411, 272},
     {{1021, 1019, 1022, 1015, 1023, 1018, 1024, 1016, 1025, 1017, 1020, 1, 2},
      {"group", "edit", "label", "combo", "label", "edit", "label", "drop-down", "label", "drop-down",
       "button", "button", "button"},
      {7, 14, 7, 7, 7, 7, 7, 7, 209, 209, 7, 302, 354},
      {7, 20, 54, 64, 86, 96, 118, 128, 118, 128, 154, 251, 251},
      {397, 383, 397, 397, 397, 397, 195, 195, 195, 195, 200, 50, 50},
      {36, 14, 8, 150, 8, 14, 8, 80, 8, 80, 14, 14, 14},
      {"Selected device", "", "WiFi network", "", "Password", "", "Security type", "", "Encryption method",
       "", "Set device to use this WiFi network", "Next", "Cancel"}}},
    {138,
     "Setup TC421 WiFi - Success",
     {50, 50, 411, 272},
     {{32912, 1}, {"label", "button"}, {7, 354}, {7, 251}, {397, 50}, {237, 14}, {"", "Done"}}},
    {139,
     "Add Steps",
     {0, 0, 309, 176},
     {{1030, 1031, 1032, 1, 2},
      {"edit", "edit", "label", "button", "button"},
      {7, 182, 7, 198, 252},
      {7, 7, 155, 155, 155},
      {170, 120, 170, 50, 50},
      {138, 138, 8, 14, 14},
      {"", "", " ", "OK", "Cancel"}}},
    {140,
     "Enter date and time",
     {50, 50, 154, 56},
     {{1006, 1040, 1, 2},
      {"label", "picker", "button", "button"},
      {7, 7, 43, 95},
      {7, 18, 37, 37},
      {137, 137, 50, 50},
      {8, 15, 14, 14},
      {"Enter date and time", "", "OK", "Cancel"}}},
    {141,
     "Check-up",
     {50, 50, 380, 225},
     {{1050, 1051, 1052, 1053, 1054, 1},
      {"edit", "label", "button", "button", "button", "button"},
      {7, 7, 7, 101, 219, 323},
      {7, 189, 204, 204, 204, 204},
      {366, 366, 90, 114, 98, 50},
      {176, 8, 14, 14, 14, 14},
      {"", "", "Look again", "Pack for a question", "Save as ZIP ...", "OK"}}},
    {142,
     "Change steps",
     {50, 50, 262, 149},
     {{1060, 1061, 1062, 1063, 1064, 1065, 1066, 1067, 1068, 1069, 1070, 1071, 1072, 1, 2},
      {"label", "drop-down", "label", "edit", "label", "edit", "label", "drop-down", "label", "edit", "label",
       "edit", "label", "button", "button"},
      {7, 7, 7, 7, 135, 135, 7, 7, 135, 135, 198, 198, 7, 153, 205},
      {7, 17, 37, 47, 37, 47, 67, 77, 67, 77, 67, 77, 99, 128, 128},
      {248, 248, 120, 120, 120, 120, 120, 120, 57, 57, 57, 57, 248, 50, 50},
      {8, 190, 8, 14, 8, 14, 8, 80, 8, 14, 8, 14, 24, 14, 14},
      {"What to do", "", "", "", "", "", "Which steps", "", "From (hh:mm)", "", "To (hh:mm)", "", "", "OK",
       "Cancel"}}},
    {143,
     "Figures",
     {5, 20, 454, 249},
     {{1060, 1061, 1062, 1063, 1064, 1089, 1065, 1070, 1066, 1071, 1067, 1072,
       1068, 1073, 1069, 1074, 1090, 1075, 1080, 1076, 1081, 1077, 1082, 1078,
       1083, 1079, 1084, 1091, 1085, 1092, 1086, 1087, 1088, 1,    2},
      {"label", "label", "label", "label", "label", "label", "label",  "edit",  "label",
       "edit",  "label", "edit",  "label", "edit",  "label", "edit",   "label", "label",
       "edit",  "label", "edit",  "label", "edit",  "label", "edit",   "label", "edit",
       "label", "edit",  "label", "edit",  "edit",  "label", "button", "button"},
      {119, 173, 227, 281, 335, 7,   119, 119, 173, 173, 227, 227, 281, 281, 335, 335, 7,  119,
       119, 173, 173, 227, 227, 281, 281, 335, 335, 7,   119, 177, 335, 7,   7,   343, 397},
      {7,  7,  7,  7,  7,  20, 20, 17, 20, 17, 20, 17, 20, 17, 20,  17,  38, 38,
       35, 38, 35, 38, 35, 38, 35, 38, 35, 56, 53, 56, 53, 74, 198, 228, 228},
      {50, 50, 50, 50, 50, 110, 50, 50, 50, 50,  50, 50,  50, 50,  50,  50, 110, 50,
       50, 50, 50, 50, 50, 50,  50, 50, 50, 110, 50, 154, 50, 440, 440, 50, 50},
      {8,  8, 8,  8, 8,  8, 8,  14, 8,  14, 8,  14, 8,  14,  8,  14, 8, 8,
       14, 8, 14, 8, 14, 8, 14, 8,  14, 8,  14, 8,  14, 118, 24, 14, 14},
      {"",
       "",
       "",
       "",
       "",
       "Watts at 100 %",
       "",
       "",
       "",
       "",
       "",
       "",
       "",
       "",
       "",
       "",
       "PAR at 100 %, µmol/m²/s",
       "",
       "",
       "",
       "",
       "",
       "",
       "",
       "",
       "",
       "",
       "Price of a kWh",
       "",
       "Hours above this level, in percent",
       "",
       "",
       "",
       "OK",
       "Cancel"}}},
    {144,
     "Sun over a place",
     {5, 20, 200, 248},
     {{1101, 1102, 1103, 1104, 1105, 1106, 1107, 1108, 1109, 1110, 1111, 1112, 1113, 1114, 1100, 1, 2},
      {"label", "edit", "label", "list", "label", "edit", "label", "drop-down", "label", "edit", "label",
       "edit", "label", "edit", "label", "button", "button"},
      {7, 7, 7, 7, 7, 7, 103, 103, 7, 7, 7, 7, 7, 7, 7, 91, 143},
      {7, 17, 35, 45, 93, 103, 93, 103, 121, 131, 149, 159, 177, 187, 205, 227, 227},
      {186, 186, 186, 186, 90, 90, 90, 90, 186, 186, 186, 186, 186, 186, 186, 50, 50},
      {8, 14, 8, 44, 8, 14, 8, 80, 8, 14, 8, 14, 8, 14, 16, 14, 14},
      {"Place, country, or latitude,longitude", "", "Places found", "", "Date", "", "Twilight", "",
       "Most light of channels 1 to 5, in percent", "", "Hours, as 10:00-22:00, or begin, as 10:00", "",
       "Moonlight, as 5=20: channel 5, 20 %", "", "", "OK", "Cancel"}}},
    {145,
     "Moonlight",
     {5, 20, 200, 134},
     {{1105, 1106, 1113, 1114, 1115, 1116, 1100, 1, 2},
      {"label", "edit", "label", "edit", "label", "edit", "label", "button", "button"},
      {7, 7, 7, 7, 7, 7, 7, 91, 143},
      {7, 17, 35, 45, 63, 73, 91, 113, 113},
      {186, 186, 186, 186, 186, 186, 186, 50, 50},
      {8, 14, 8, 14, 8, 14, 16, 14, 14},
      {"Date", "", "Moonlight, as 5=20: channel 5, 20 %", "", "Night, as 21:00-06:00", "", "", "OK",
       "Cancel"}}},
    {146,
     "Ramp day",
     {5, 20, 200, 218},
     {{1117, 1118, 1119, 1120, 1121, 1122, 1123, 1124, 1109, 1110, 1125, 1126, 1127, 1128, 1113, 1114, 1100,
       1, 2},
      {"label", "edit", "label", "edit", "label", "edit", "label", "edit", "label", "edit", "label", "edit",
       "label", "edit", "label", "edit", "label", "button", "button"},
      {7, 7, 103, 103, 7, 7, 103, 103, 7, 7, 7, 7, 7, 7, 7, 7, 7, 91, 143},
      {7, 17, 7, 17, 35, 45, 35, 45, 63, 73, 91, 101, 119, 129, 147, 157, 175, 197, 197},
      {90, 90, 90, 90, 90, 90, 90, 90, 186, 186, 186, 186, 186, 186, 186, 186, 186, 50, 50},
      {8, 14, 8, 14, 8, 14, 8, 14, 8, 14, 8, 14, 8, 14, 8, 14, 16, 14, 14},
      {"Sunrise", "", "Sunset", "", "Ramp (minutes)", "", "Stagger (minutes)", "",
       "Most light of channels 1 to 5, in percent", "", "Midday break, as 13:00-15:00", "",
       "Light left in the break (%)", "", "Moonlight, as 5=20: channel 5, 20 %", "", "", "OK", "Cancel"}}},
    {147,
     "Acclimation",
     {5, 20, 200, 134},
     {{1129, 1130, 1131, 1132, 1133, 1134, 1135, 1136, 1100, 1, 2},
      {"label", "edit", "label", "edit", "label", "edit", "label", "drop-down", "label", "button", "button"},
      {7, 7, 103, 103, 7, 7, 7, 7, 7, 91, 143},
      {7, 17, 7, 17, 35, 45, 63, 73, 91, 113, 113},
      {90, 90, 90, 90, 186, 186, 186, 186, 186, 50, 50},
      {8, 14, 8, 14, 8, 14, 8, 80, 16, 14, 14},
      {"Light on day 1 (%)", "", "Days", "", "Day 1", "", "What to make", "", "", "OK", "Cancel"}}},
    {148,
     "Season of 52 weeks",
     {5, 20, 200, 248},
     {{1101, 1102, 1103, 1104, 1137, 1138, 1107, 1108, 1109, 1110, 1111, 1112, 1113, 1114, 1100, 1, 2},
      {"label", "edit", "label", "list", "label", "edit", "label", "drop-down", "label", "edit", "label",
       "edit", "label", "edit", "label", "button", "button"},
      {7, 7, 7, 7, 7, 7, 103, 103, 7, 7, 7, 7, 7, 7, 7, 91, 143},
      {7, 17, 35, 45, 93, 103, 93, 103, 121, 131, 149, 159, 177, 187, 205, 227, 227},
      {186, 186, 186, 186, 90, 90, 90, 90, 186, 186, 186, 186, 186, 186, 186, 50, 50},
      {8, 14, 8, 44, 8, 14, 8, 80, 8, 14, 8, 14, 8, 14, 16, 14, 14},
      {"Place, country, or latitude,longitude", "", "Places found", "", "Year", "", "Twilight", "",
       "Most light of channels 1 to 5, in percent", "", "Hours, as 10:00-22:00, or begin, as 10:00", "",
       "Moonlight, as 5=20: channel 5, 20 %", "", "", "OK", "Cancel"}}},
};

TEST(DialogTemplates, HaveTheseColumns) {
  ASSERT_EQ(Templates().size(), std::size(kForms));
  for (std::size_t i = 0; i < std::size(kForms); ++i) {
    const DialogTemplate& form = Templates()[i];
    SCOPED_TRACE(kForms[i].title);
    EXPECT_EQ(form.number, kForms[i].number);
    EXPECT_EQ(form.title, kForms[i].title);
    EXPECT_EQ(form.place, kForms[i].place);
    ExpectColumns(ColumnsOf(form.controls), kForms[i].columns);
  }
}

TEST(DialogTemplates, GiveEachTraitToTheControlsThatHaveIt) {
  using Controls = std::vector<std::pair<int, int>>;  // dialog and control
  const std::pair<unsigned, Controls> rows[] = {
      {trait::kAutoScroll,
       {{129, 1000}, {133, 1000}, {137, 1019}, {137, 1015}, {137, 1018}, {142, 1063}, {142, 1065},
        {142, 1069}, {142, 1071}, {143, 1070}, {143, 1071}, {143, 1072}, {143, 1073}, {143, 1074},
        {143, 1080}, {143, 1081}, {143, 1082}, {143, 1083}, {143, 1084}, {143, 1085}, {143, 1086},
        {144, 1102}, {144, 1106}, {144, 1110}, {144, 1112}, {144, 1114}, {145, 1106}, {145, 1114},
        {145, 1116}, {146, 1118}, {146, 1120}, {146, 1122}, {146, 1124}, {146, 1110}, {146, 1126},
        {146, 1128}, {146, 1114}, {147, 1130}, {147, 1132}, {147, 1134}, {148, 1102}, {148, 1138},
        {148, 1110}, {148, 1112}, {148, 1114}}},
      {trait::kMultiLine, {{129, 1001}, {139, 1030}, {139, 1031}, {141, 1050}, {143, 1087}}},
      {trait::kVerticalScrollBar,
       {{129, 1039},
        {136, 1013},
        {137, 1015},
        {137, 1016},
        {137, 1017},
        {139, 1030},
        {141, 1050},
        {142, 1061},
        {142, 1067},
        {143, 1087},
        {144, 1104},
        {144, 1108},
        {147, 1136},
        {148, 1104},
        {148, 1108}}},
      {trait::kWantsReturn, {{139, 1030}}},
      {trait::kReadOnly, {{137, 1019}, {139, 1031}, {141, 1050}, {143, 1087}}},
      {trait::kNoTabStop, {{137, 1019}, {139, 1031}}},
      {trait::kDefault,
       {{103, 1},
        {129, 1},
        {133, 1},
        {135, 1},
        {138, 1},
        {139, 1},
        {140, 1},
        {141, 1},
        {142, 1},
        {143, 1},
        {144, 1},
        {145, 1},
        {146, 1},
        {147, 1},
        {148, 1}}},
      {trait::kLink, {{103, 1002}, {103, 1003}, {103, 1005}}},
      {trait::kHidden,
       {{103, 1029},
        {103, 1026},
        {143, 1065},
        {143, 1066},
        {143, 1067},
        {143, 1068},
        {143, 1069},
        {143, 1075},
        {143, 1076},
        {143, 1077},
        {143, 1078},
        {143, 1079}}},
      {trait::kSorted, {{136, 1013}, {137, 1015}, {137, 1016}, {137, 1017}}},
      {trait::kAmpersands,
       {{135, 32912},
        {138, 32912},
        {143, 1060},
        {143, 1061},
        {143, 1062},
        {143, 1063},
        {143, 1064},
        {143, 1065},
        {143, 1066},
        {143, 1067},
        {143, 1068},
        {143, 1069},
        {143, 1075},
        {143, 1076},
        {143, 1077},
        {143, 1078},
        {143, 1079},
        {143, 1088}}},
  };
  unsigned known = 0;
  for (const auto& [trait, expected] : rows) {
    known |= trait;
    Controls found;
    for (const DialogTemplate& form : Templates()) {
      for (const ControlTemplate& row : form.controls) {
        if ((row.traits & trait) != 0) found.emplace_back(form.number, row.id);
      }
    }
    EXPECT_EQ(found, expected) << "trait " << trait;
  }
  for (const DialogTemplate& form : Templates()) {
    for (const ControlTemplate& row : form.controls) {
      EXPECT_EQ(row.traits & ~known, 0U) << form.number << ": " << row.id;
    }
  }
}

TEST(DialogTemplates, HoldTheirControls) {
  for (const DialogTemplate& form : Templates()) {
    std::set<int> ids;
    int defaults = 0;
    for (const ControlTemplate& row : form.controls) {
      EXPECT_TRUE(ids.insert(row.id).second) << form.number << ": " << row.id << " twice";
      const Rect place = row.place.In(0, 0);
      EXPECT_LE(place.x + place.width, form.place.width) << form.number << ": " << row.id;
      // The height of a list that is let down is its height then.
      if (row.kind != ControlKind::DropDownList && row.kind != ControlKind::ComboBox) {
        EXPECT_LE(place.y + place.height, form.place.height) << form.number << ": " << row.id;
      }
      defaults += (row.traits & trait::kDefault) != 0 ? 1 : 0;
    }
    // What Enter does on the two pages that look and tell, their rules decide.
    const bool decides = form.number == template_id::kTC421Search || form.number == template_id::kTC421Config;
    EXPECT_EQ(defaults, decides ? 0 : 1) << form.number;
  }
}

TEST(DialogTemplates, AreFoundByNumber) {
  for (const DialogTemplate& form : Templates()) EXPECT_EQ(FindTemplate(form.number), &form);
  EXPECT_EQ(FindTemplate(0), nullptr);
  EXPECT_EQ(FindTemplate(109), nullptr);
}

TEST(DialogTemplates, BelongToTheDialogs) {
  headless::Dialogs port;
  GetValueParams value;
  DateTimeParams time;
  AddStepsParams steps;
  ModeNameParams name;
  EXPECT_EQ(DlgAbout(port).templateId, 103);
  EXPECT_EQ(DlgModeName(port, name).templateId, 129);
  EXPECT_EQ(DlgGetValue(port, value).templateId, 133);
  TCBase::Worker worker;
  EXPECT_EQ(DlgTC421_Init(port).templateId, 135);
  EXPECT_EQ(DlgTC421_Search(port, worker).templateId, 136);
  EXPECT_EQ(DlgTC421_Config(port, {}).templateId, 137);
  EXPECT_EQ(DlgTC421_Success(port, {}, {}).templateId, 138);
  EXPECT_EQ(DlgAddSteps(port, steps).templateId, 139);
  EXPECT_EQ(DlgGetDateTime(port, time).templateId, 140);
  ChangeStepsParams change;
  EXPECT_EQ(DlgChangeSteps(port, change).templateId, 142);
}

}  // namespace
