#include "tests/localisation/program_texts.h"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <span>
#include <sstream>

#include "app/commands.h"
#include "app/window/control_table.h"
#include "dialogs/dialog_template.h"
#include "localisation/translation_store.h"
#include "tests/support/files.h"

namespace program_texts {

namespace {

// The templates whose own texts stay. The others are given all of theirs as they open.
constexpr int kTranslatedTemplates[] = {
    dialogs::template_id::kCheckUp,      dialogs::template_id::kTC421Init,
    dialogs::template_id::kTC421Search,  dialogs::template_id::kTC421Config,
    dialogs::template_id::kTC421Success, dialogs::template_id::kChangeSteps,
    dialogs::template_id::kFigures,      dialogs::template_id::kSun,
    dialogs::template_id::kMoon,         dialogs::template_id::kRampDay,
    dialogs::template_id::kAcclimation,  dialogs::template_id::kSeason};

void AddMenu(std::span<const app::MenuEntry> entries, std::set<std::string>& texts) {
  for (const app::MenuEntry& entry : entries) {
    if (entry.kind != app::MenuEntry::Kind::Separator) texts.emplace(entry.text);
    AddMenu(entry.entries, texts);
  }
}

}  // namespace

const std::vector<source_texts::Literal>& Sources() {
  static const auto literals = source_texts::ReadFolders(
      LUMARINE_SOURCE_DIR, {"common", "program", "localisation", "devices", "doctor", "chart", "dialogs",
                            "app", "platform", "cli"});
  return literals;
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

std::set<std::string> ReplacedInTables() {
  std::set<std::string> texts;
  for (const app::ControlRow& row : app::ControlTable()) {
    if (!row.translated) texts.emplace(row.text);
  }
  for (const dialogs::DialogTemplate& form : dialogs::Templates()) {
    if (std::ranges::find(kTranslatedTemplates, form.number) != std::end(kTranslatedTemplates)) continue;
    texts.emplace(form.title);
    for (const dialogs::ControlTemplate& control : form.controls) texts.emplace(control.text);
  }
  return texts;
}

std::set<std::string> Asked() {
  std::set<std::string> texts = InTables();
  for (const source_texts::Literal& literal : Sources()) {
    if (literal.isKey) texts.insert(literal.text);
  }
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
  static const char* const kName = "a name";
  static const char* const kWord = "a word of the networks themselves";
  static const char* const kTraffic = "of the log of device traffic";
  static const char* const kMistake = "of a mistake in the program, which ends there";
  static const char* const kFilledIn = "filled into a sentence, which is translated without it";
  static const char* const kVersions = "of the list of versions in a bundle, which others read";
  static const char* const kRegistry = "names something in the system's registry";
  static const char* const kCommand = "is typed into a shell";
  static const char* const kStruck = "stands in a bundle, which others read";
  static const std::vector<English> texts = {
      {"All Files", kFilter},
      {"LMF LEDControl File", kFilter},
      {"RAW Channel File", kFilter},
      {"TMF PLed File", kFilter},
      {"XML Files", kFilter},
      {"XML Program", kFilter},
      {"ZIP Files", kFilter},
      {"Enter language ID (en, fr, sk, etc...)", kMerging},
      {"Enter language name", kMerging},
      {"Language ID", kMerging},
      {"Language name", kMerging},
      {"Lumarine", kName},
      {"Segoe UI", kName},
      {"Segoe UI Black", kName},
      {"Tahoma", kName},
      {"Test Translation", kName},
      {"PRG{1}", kName},
      {"Rand_", kName},
      {"TC420_Emulator", kName},
      {"Windows Firewall", kName},
      {"Windows", kName},
      {"Wine", kName},
      {"System", kVersions},
      {"Edition", kVersions},
      {"Locale", kVersions},
      {"Kernel", kVersions},
      {"Program", kVersions},
      {"Start", kRegistry},
      {"Type", kRegistry},
      {R"(SOFTWARE\Microsoft\Windows NT\CurrentVersion)", kRegistry},
      {"lumarinectl sync-time", kCommand},
      {"netsh advfirewall firewall add rule name=\"Lumarine\" dir=in action=allow protocol=UDP localport=",
       kCommand},
      {"netsh interface ipv4 set interface \"", kCommand},
      {"(struck out)", kStruck},
      {"ON.", kFilledIn},
      {"OFF.", kFilledIn},
      {"the document has no current mode", kMistake},
      {"Open", kWord},
      {"Invalid", kWord},
      {"Received invalid packet size", kTraffic},
      {"yyyy-MMM-dd HH:mm:ss", "how the system's control writes a date"},
      {"Success", kTraffic},
  };
  return texts;
}

const std::vector<ListedKey>& ListedKeys() {
  static const std::vector<ListedKey> keys = [] {
    std::vector<ListedKey> read;
    std::istringstream lines(
        BytesOf(std::filesystem::path(LUMARINE_SOURCE_DIR) / "tests/localisation/keys.txt"));
    for (std::string line; std::getline(lines, line);) {
      const bool isLeftOver = line.starts_with("- ");
      read.push_back({isLeftOver ? line.substr(2) : line, isLeftOver});
    }
    return read;
  }();
  return keys;
}

const std::set<std::string>& LeftOver() {
  static const std::set<std::string> keys = [] {
    ovk::xml::element tree;
    for (const ListedKey& listed : ListedKeys()) {
      if (listed.isLeftOver) tree.append_child("key").text = ovk::string(listed.key);
    }
    UnescapeLineBreaks(tree);
    std::set<std::string> leftOver;
    for (const auto& key : tree.children) leftOver.emplace(key->text.view());
    return leftOver;
  }();
  return keys;
}

}  // namespace program_texts
