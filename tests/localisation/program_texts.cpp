#include "tests/localisation/program_texts.h"

#include <filesystem>
#include <span>

#include "app/commands.h"
#include "app/window/control_table.h"
#include "dialogs/dialog_template.h"

namespace program_texts {

using source_texts::Asking;
using source_texts::Found;
using source_texts::Place;

namespace {

const std::vector<Asking> kAsking = {
    {"Message", {0}},
    {"Translate", {0}},
    {"Hint", {0}},
    // Those that hand keys on.
    {"NameDialog", {0}},
    {"ModeDialog", {0}},
    {"TypeSteps", {0}},
    {"Tell", {1, 2}, "dialogs/dlg_tc421_config.cpp"},
    {"Send", {3}, "devices/wifi.cpp"},
};

struct Known {
  const char* file;
  const char* name;
  const char* reason;
};
constexpr Known kKnown[] = {
    {"app/channel_commands.cpp", "title", "a parameter of TypeSteps"},
    {"app/channel_commands.cpp", "kChannelNameLength", "a number beside the keys"},
    {"app/window/ctrls.cpp", "row.text", "the table of the main window"},
    {"app/device_commands.cpp", "kDeviceNameLength", "a number beside the keys"},
    {"app/window/menu_bar.cpp", "key", "the table of the menus"},
    {"app/mode_commands.cpp", "title", "a parameter of ModeDialog"},
    {"app/mode_commands.cpp", "kModeNameLength", "a number beside the keys"},
    {"app/window/name_dialog.cpp", "texts.title", "a parameter of NameDialog"},
    {"app/window/name_dialog.cpp", "texts.nameLabel", "a parameter of NameDialog"},
    {"app/window/name_dialog.cpp", "texts.descriptionLabel", "a parameter of NameDialog"},
    {"common/log.cpp", "key", "a parameter of Hint"},
    {"common/message.cpp", "key", "a parameter of Message or Translate"},
    {"common/message.h", "key", "a parameter of Message"},
    {"devices/wifi.cpp", "problem", "a parameter of Send, and what the system said, among LookedUpInVain()"},
    {"dialogs/dlg_about.cpp", "product::kFirstTerms", "among LookedUpInVain()"},
    {"dialogs/dlg_about.cpp", "product::kSecondTerms", "among LookedUpInVain()"},
    {"dialogs/dlg_about.cpp", "link.caption", "among LookedUpInVain()"},
    {"dialogs/dlg_tc421_config.cpp", "title", "a parameter of Tell"},
    {"dialogs/dlg_tc421_config.cpp", "text", "a parameter of Tell"},
    {"dialogs/template_texts.cpp", "form->title", "the table of the templates"},
    {"dialogs/template_texts.cpp", "control.text", "the table of the templates"},
    {"localisation/translation_store.cpp", "key", "the document's own keys, for an export"},
};

// The templates whose own texts stay. The others are given all of theirs as they open.
constexpr int kTranslatedTemplates[] = {dialogs::template_id::kTC421Init, dialogs::template_id::kTC421Search,
                                        dialogs::template_id::kTC421Config,
                                        dialogs::template_id::kTC421Success};

void AddMenu(std::span<const app::MenuEntry> entries, std::set<std::string>& texts) {
  for (const app::MenuEntry& entry : entries) {
    if (entry.kind != app::MenuEntry::Kind::Separator) texts.emplace(entry.text);
    AddMenu(entry.entries, texts);
  }
}

}  // namespace

Found Sources() {
  return source_texts::ReadFolders(
      LUMARINE_SOURCE_DIR,
      {"common", "program", "localisation", "devices", "chart", "dialogs", "app", "platform", "cli"},
      kAsking);
}

const char* WhereKeysComeFrom(const Place& place, const std::string& name) {
  for (const Known& known : kKnown) {
    if (place.file == known.file && name == known.name) return known.reason;
  }
  return nullptr;
}

std::set<std::string> InTables() {
  std::set<std::string> texts;
  for (const app::MenuPopup& popup : app::MenuTable()) {
    texts.emplace(popup.text);
    AddMenu(popup.entries, texts);
  }
  for (const app::ControlRow& row : app::ControlTable()) {
    if (row.translated) texts.emplace(row.text);
  }
  for (const int number : kTranslatedTemplates) {
    const dialogs::DialogTemplate& form = *dialogs::FindTemplate(number);
    texts.emplace(form.title);
    for (const dialogs::ControlTemplate& control : form.controls) {
      if (!control.text.empty()) texts.emplace(control.text);
    }
  }
  return texts;
}

std::set<std::string> Asked() {
  std::set<std::string> texts = InTables();
  for (const Place& place : Sources().places) texts.insert(place.keys.begin(), place.keys.end());
  return texts;
}

const std::vector<English>& LookedUpInVain() {
  static const char* const kOfTheBuild = "set when the program is built";
  static const char* const kOfTranslators = "for translators, who read the English keys";
  static const char* const kOfTheSystem = "of the system's WiFi functions";
  static const std::vector<English> texts = {
      {LUMARINE_FIRST_TERMS, kOfTheBuild},
      {LUMARINE_SECOND_TERMS, kOfTheBuild},
      {LUMARINE_EMAIL_CAPTION, kOfTheBuild},
      {LUMARINE_WEB_CAPTION, kOfTheBuild},
      {LUMARINE_GROUP_CAPTION, kOfTheBuild},
      {"Error exporting localization file {1}!", kOfTranslators},
      {"Error loading the XML translation file!\r\n{1}\r\n\r\nThis is most probably caused by invalid "
       "XML.\r\n"
       "Please try to open your XML file in your web browser to see the parsing error location.",
       kOfTranslators},
      {"Invalid Translation File", kOfTranslators},
      {"Localization file {1} exported successfully!", kOfTranslators},
      {"Translation merge success: {1}.", kOfTranslators},
      {"Can't connect Wi-Fi! Problem function: WlanOpenHandle.", kOfTheSystem},
      {"Can't enumerate WLAN adapters! Problem function: WlanEnumInterfaces.", kOfTheSystem},
      {"No Wi-Fi adapter found.", kOfTheSystem},
      {"Can't get available networks! Probably your PC in Airplane mode, and /or Wifi turned out.Problem "
       "function : WlanGetAvailableNetworkList.",
       kOfTheSystem},
  };
  return texts;
}

const std::vector<English>& NeverLookedUp() {
  static const char* const kFilter = "names a kind of file in the system's file dialogs";
  static const char* const kMerging = "of the command without a menu item, for who builds the program";
  static const char* const kReplaced = "stands in a table, and is replaced before it is seen";
  static const char* const kName = "a name";
  static const char* const kWord = "a word of the networks themselves";
  static const char* const kTraffic = "of the log of device traffic";
  static const char* const kFilledIn = "filled into a sentence, which is translated without it";
  static const std::vector<English> texts = {
      {"All Files", kFilter},
      {"LMF LEDControl File", kFilter},
      {"RAW Channel File", kFilter},
      {"TMF PLed File", kFilter},
      {"XML Files", kFilter},
      {"XML Program", kFilter},
      {"Enter language ID (en, fr, sk, etc...)", kMerging},
      {"Enter language name", kMerging},
      {"Language ID", kMerging},
      {"Language name", kMerging},
      {"About Lumarine", kReplaced},
      {"Add Steps", kReplaced},
      {"Copy from", kReplaced},
      {"Enter value", kReplaced},
      {"Mode name (max 6 characters)", kReplaced},
      {"Value (max 20 characters)", kReplaced},
      {"mode description", kReplaced},
      {"Lumarine", kName},
      {"MS Shell Dlg", kName},
      {"Segoe UI", kName},
      {"Segoe UI Black", kName},
      {"Tahoma", kName},
      {"Test Translation", kName},
      {"PRG{1}", kName},
      {"Rand_", kName},
      {"TC420_Emulator", kName},
      {"ON.", kFilledIn},
      {"OFF.", kFilledIn},
      {"Open", kWord},
      {"Invalid", kWord},
      {"Received invalid packet size", kTraffic},
      {"yyyy-MMM-dd HH:mm:ss", "how the system's control writes a date"},
      {"Success", kTraffic},
  };
  return texts;
}

const std::set<std::string>& LeftOver() {
  static const std::set<std::string> keys = {
      "Add Steps",
      "Add steps",
      "Change color",
      "Channel name",
      "Demo time: {1}",
      "Demo time: {1}:00",
      "Error loading dump file {1}",
      "Found {1}...",
      "Higher step count for {1} devices",
      "Lumarine, Version {1}.{2}, Build {3}",
      "Mode name",
      "Mode {1}",
      "Move down",
      "Move up",
      "Optimize moving step from {1} to {2}",
      "Rename",
      "Step deleted",
      "TC421 Device connected",
      ("The previous model GAIKRAIT (blue device) supports a maximum of {1} steps in the program. For more "
       "information check the \"Help / Known issues\" information."),
      ("The previous model {1} (blue device) supports a maximum of 20 steps in the program.\r\n\r\nIf the "
       "program uploaded to your {1} device does not work in the same way as during demo playback, this is "
       "due "
       "to a too high number of steps.\r\n\r\nThe steps that go beyond the first {2} steps are ignored by "
       "the "
       "program and maintain the same intensity that is set at step number {2}.\r\n\r\nTo solve this "
       "problem, "
       "please delete the extra steps. The Align Steps feature in Mode can help you merge similar times."
       "\r\n\r\nBelow, you can see the list with the current number of steps for each mode in your "
       "program:\r\n\r\n{3}\r\n"),
      ("The previous model {1} (blue device) supports a maximum of 20 steps in the program.\r\n\r\nIf the "
       "program uploaded to your {1} device does not work in the same way as during demo playback, this is "
       "due "
       "to too many steps. Please check Help / Known Issues for more information.\r\n\r\nList of all modes "
       "with their number of steps:\r\n\r\n{2}\r\nContinue uploading the current program? (It is a safe "
       "operation)"),
      "Tools",
      "Unsupported step count for the {1} device",
      "{1} device limitations",
  };
  return keys;
}

}  // namespace program_texts
