#include "dialogs/dialog_template.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

#include "dialogs/dialog.h"
#include "dialogs/dlg_about.h"
#include "dialogs/dlg_add_steps.h"
#include "dialogs/dlg_get_date_time.h"
#include "dialogs/dlg_get_value.h"
#include "dialogs/dlg_mode_name.h"
#include "dialogs/dlg_tc421_config.h"
#include "dialogs/dlg_tc421_init.h"
#include "dialogs/dlg_tc421_search.h"
#include "dialogs/dlg_tc421_success.h"
#include "tests/support/headless_dialogs.h"

namespace {

using namespace dialogs;

// A row of a template as one reads it off a form: "1000 edit (7, 18, 286, 14) \"text\" auto-scroll".
std::string Told(const ControlTemplate& row) {
  constexpr const char* kKinds[] = {"static",         "edit",  "button", "group", "list",
                                    "drop-down list", "combo", "picker", "icon"};
  constexpr std::pair<unsigned, const char*> kTraits[] = {
      {trait::kAutoScroll, "auto-scroll"},
      {trait::kMultiLine, "multi-line"},
      {trait::kVerticalScrollBar, "v-scroll"},
      {trait::kWantsReturn, "return"},
      {trait::kReadOnly, "read-only"},
      {trait::kNoTabStop, "no-tab"},
      {trait::kDefault, "default"},
      {trait::kLink, "link"},
      {trait::kHidden, "hidden"},
      {trait::kSorted, "sorted"},
      {trait::kAmpersands, "ampersands"},
  };
  const auto& p = row.place;
  std::string text = row.id == kNoControl ? "" : std::to_string(row.id) + ' ';
  text += kKinds[static_cast<int>(row.kind)];
  text += " (" + std::to_string(p.x) + ", " + std::to_string(p.y) + ", " + std::to_string(p.width) + ", " +
          std::to_string(p.height) + ")";
  if (!row.text.empty()) text += " \"" + std::string(row.text) + '"';
  for (const auto& [bit, name] : kTraits) {
    if ((row.traits & bit) != 0) text += std::string(" ") + name;
  }
  return text;
}

std::string Told(const DialogTemplate& form) {
  std::string text = std::to_string(form.number) + " \"" + std::string(form.title) + "\" " +
                     std::to_string(form.place.width) + " by " + std::to_string(form.place.height) + " at (" +
                     std::to_string(form.place.x) + ", " + std::to_string(form.place.y) + ")\n";
  for (const ControlTemplate& row : form.controls) text += Told(row) + '\n';
  return text;
}

std::string ToldAll() {
  std::string text;
  for (const DialogTemplate& form : Templates()) text += Told(form);
  return text;
}

TEST(DialogTemplates, AreThese) {
  EXPECT_EQ(ToldAll(),
            "103 \"About Lumarine\" 243 by 199 at (20, 20)\n"
            "icon (14, 14, 20, 20)\n"
            "1007 static (42, 14, 160, 8)\n"
            "1028 static (42, 28, 160, 8)\n"
            "1029 button (7, 44, 228, 14) hidden\n"
            "1009 static (9, 55, 160, 8)\n"
            "1010 static (9, 68, 160, 8)\n"
            "1026 static (9, 101, 160, 8) hidden\n"
            "1002 button (7, 112, 228, 14) link\n"
            "1003 button (7, 128, 228, 14) link\n"
            "1005 button (7, 144, 228, 14) link\n"
            "1 button (186, 178, 50, 14) \"OK\" default\n"
            "129 \"Add new mode\" 251 by 130 at (50, 50)\n"
            "1006 static (7, 7, 237, 8) \"Mode name (max 6 characters)\"\n"
            "1000 edit (7, 18, 237, 14) auto-scroll\n"
            "1008 static (7, 37, 237, 8) \"Mode description\"\n"
            "1001 edit (7, 47, 237, 49) multi-line\n"
            "1007 static (7, 100, 237, 8) \"Copy from\"\n"
            "1039 drop-down list (7, 110, 123, 93) v-scroll\n"
            "1 button (143, 109, 50, 14) \"OK\" default\n"
            "2 button (195, 109, 50, 14) \"Cancel\"\n"
            "133 \"Enter value\" 299 by 58 at (50, 50)\n"
            "1006 static (7, 7, 286, 8) \"Value (max 20 characters)\"\n"
            "1000 edit (7, 18, 286, 14) auto-scroll\n"
            "1 button (191, 37, 50, 14) \"OK\" default\n"
            "2 button (243, 37, 50, 14) \"Cancel\"\n"
            "135 \"Setup TC421 WiFi - Initialization\" 411 by 272 at (50, 50)\n"
            "32912 static (7, 7, 397, 237) ampersands\n"
            "1 button (302, 251, 50, 14) \"Next\" default\n"
            "2 button (354, 251, 50, 14) \"Cancel\"\n"
            "136 \"Setup TC421 WiFi - Search\" 411 by 272 at (50, 50)\n"
            "1014 button (7, 7, 200, 14) \"Search for TC421 WiFi device\"\n"
            "1008 static (7, 28, 397, 8) \"Found devices\"\n"
            "1013 list (7, 38, 397, 206) v-scroll sorted\n"
            "1 button (302, 251, 50, 14) \"Next\"\n"
            "2 button (354, 251, 50, 14) \"Cancel\"\n"
            "137 \"Setup TC421 WiFi - Configuration\" 411 by 272 at (50, 50)\n"
            "1021 group (7, 7, 397, 36) \"Selected device\"\n"
            "1019 edit (14, 20, 383, 14) auto-scroll read-only no-tab\n"
            "1022 static (7, 54, 397, 8) \"WiFi network\"\n"
            "1015 combo (7, 64, 397, 150) auto-scroll v-scroll sorted\n"
            "1023 static (7, 86, 397, 8) \"Password\"\n"
            "1018 edit (7, 96, 397, 14) auto-scroll\n"
            "1024 static (7, 118, 195, 8) \"Security type\"\n"
            "1016 drop-down list (7, 128, 195, 80) v-scroll sorted\n"
            "1025 static (209, 118, 195, 8) \"Encryption method\"\n"
            "1017 drop-down list (209, 128, 195, 80) v-scroll sorted\n"
            "1020 button (7, 154, 200, 14) \"Set device to use this WiFi network\"\n"
            "1 button (302, 251, 50, 14) \"Next\"\n"
            "2 button (354, 251, 50, 14) \"Cancel\"\n"
            "138 \"Setup TC421 WiFi - Success\" 411 by 272 at (50, 50)\n"
            "32912 static (7, 7, 397, 237) ampersands\n"
            "1 button (354, 251, 50, 14) \"Done\" default\n"
            "139 \"Add Steps\" 309 by 176 at (0, 0)\n"
            "1030 edit (7, 7, 170, 138) multi-line v-scroll return\n"
            "1031 edit (182, 7, 120, 138) multi-line read-only no-tab\n"
            "1032 static (7, 155, 170, 8) \" \"\n"
            "1 button (198, 155, 50, 14) \"OK\" default\n"
            "2 button (252, 155, 50, 14) \"Cancel\"\n"
            "140 \"Enter date and time\" 154 by 56 at (50, 50)\n"
            "1006 static (7, 7, 137, 8) \"Enter date and time\"\n"
            "1040 picker (7, 18, 137, 15)\n"
            "1 button (43, 37, 50, 14) \"OK\" default\n"
            "2 button (95, 37, 50, 14) \"Cancel\"\n");
}

TEST(DialogTemplates, HoldTheirControls) {
  for (const DialogTemplate& form : Templates()) {
    std::set<int> ids;
    int defaults = 0;
    for (const ControlTemplate& row : form.controls) {
      EXPECT_TRUE(ids.insert(row.id).second) << form.number << ": " << row.id << " twice";
      EXPECT_LE(row.place.x + row.place.width, form.place.width) << form.number << ": " << row.id;
      // The height of a list that is let down is its height then.
      if (row.kind != ControlKind::DropDownList && row.kind != ControlKind::ComboBox) {
        EXPECT_LE(row.place.y + row.place.height, form.place.height) << form.number << ": " << row.id;
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
}

}  // namespace
