#include "app/handlers/language_commands.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "app/document/save_question.h"
#include "app/window/name_dialog.h"
#include "app/window/numbers.h"
#include "common/files.h"
#include "common/log.h"
#include "common/message.h"
#include "common/xml_file.h"
#include "dialogs/dlg_get_value.h"

namespace app {

namespace {

constexpr FileFilter kXmlFilter{u"XML Files", u"*.XML"};

// The language that a translator tries out.
constexpr char kTestId[] = "test";
constexpr char kTestName[] = "Test Translation";

constexpr std::int32_t kIdLength = 4;
constexpr std::int32_t kNameLength = 30;

// A line of text from the user; empty, if there is none. For those who build the program, in English always.
std::string AskText(dialogs::DialogsPort& port, std::int32_t maxLength, std::u16string_view title,
                    std::u16string_view prompt) {
  dialogs::GetValueParams params{
      false, maxLength, kDialogPlace.x, kDialogPlace.y, std::u16string(title), std::u16string(prompt),
      {},    u"OK",     u"Cancel"};
  if (dialogs::DlgGetValue(port, params).DoModal() != dialogs::kOk) return {};
  return Utf8FromWide(params.value);
}

// Tags are named by the id, and English is built in. The reader takes more for a tag than others do, and
// these documents are for other readers too.
bool CanBeLanguageId(std::string_view id) {
  const auto isLetter = [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); };
  const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
  return id != TranslationStore::kEnglish && isLetter(id.front()) &&
         std::ranges::all_of(id, [&](char c) { return isLetter(c) || isDigit(c); });
}

// The file of the second document: "name-more.xml" beside "name.xml".
std::filesystem::path SecondFileBeside(const std::filesystem::path& first) {
  std::filesystem::path name = first.stem();
  name += "-more";
  name += first.extension();
  return first.parent_path() / name;
}

// A failed write is told by its own line only.
void SaveMerged(const std::filesystem::path& path, ovk::xml::element& merged) {
  RemoveLanguage(merged, kTestId);
  EscapeLineBreaks(merged);
  if (ovk::xml::save(path, merged)) LogStatus(Message("Translation merge success: {1}.", path));
}

// Asks for a translators' file and adds it as a language. False, if nothing was loaded; the user has been
// told unless it was he who cancelled.
bool LoadTranslationWithDialog(const Shell& shell, std::string_view id, std::string_view name) {
  const std::vector<std::filesystem::path> files = shell.questions.AskOpenFiles(kXmlFilter, false);
  if (files.empty()) return false;
  const std::filesystem::path& path = files.front();
  if (shell.translations.LoadTranslationFile(path, id, name)) {
    LogStatus(Message("Translation file {1} loaded successfully!", path));
    return true;
  }
  shell.questions.Ask({Message("Invalid Translation File").ToWide(),
                       Message("Error loading the XML translation file!\r\n{1}\r\n\r\n"
                               "This is most probably caused by invalid XML.\r\n"
                               "Please try to open your XML file in your web browser to see the parsing "
                               "error location.",
                               path)
                           .ToWide(),
                       Buttons::Ok, Icon::Error});
  return false;
}

}  // namespace

Changed ChooseLanguage(CommandContext& context) {
  const Shell& shell = context.shell;
  std::string id(TranslationStore::kEnglish);
  if (context.number != command::kEnglish) {
    const auto& languages = shell.translations.GetLanguages().children;
    const std::int32_t index = context.number - command::kFirstLanguage;
    if (index >= languages.count()) return Changed::No;
    const std::int32_t attribute = languages[index]->find_attribute("id");
    if (attribute >= 0) id = languages[index]->attributes[attribute].value.view();
  }
  shell.settings.SetValue("locale", id);
  shell.translations.SetLanguage(id);
  AnnounceLanguage(shell.translations);
  return Changed::Yes;
}

Changed ExportTranslation(CommandContext& context) {
  const Shell& shell = context.shell;
  // Named by the setting, and filled with the language in use, which may be the one that is tried out.
  std::filesystem::path path = PathFromUtf8("LumarineStrings_" + shell.settings.GetValue("locale") + ".XML");
  if (!AskWhereToSave(shell.questions, kXmlFilter, path)) return Changed::No;
  const bool exported = shell.translations.ExportTranslationFile(path);
  LogStatus(Message(exported ? TextKey("Localization file {1} exported successfully!")
                             : TextKey("Error exporting localization file {1}!"),
                    path));
  return Changed::No;
}

Changed TestTranslation(CommandContext& context) {
  LoadTranslationWithDialog(context.shell, kTestId, kTestName);
  // Done even when nothing was loaded: the window goes back to an earlier test.
  context.shell.translations.SetLanguage(kTestId);
  return Changed::Yes;
}

Changed MergeTranslation(CommandContext& context) {
  const Shell& shell = context.shell;
  const std::string id =
      AskText(shell.dialogs, kIdLength, u"Language ID", u"Enter language ID (en, fr, sk, etc...)");
  if (id.empty()) return Changed::No;
  if (!CanBeLanguageId(id)) {
    shell.questions.Ask(
        {Message("Invalid value").ToWide(),
         Message("\"{1}\" cannot be the ID of a language. An ID begins with a letter, has only "
                 "letters and digits, and is not \"en\": English is built in.",
                 id)
             .ToWide(),
         Buttons::Ok, Icon::Error});
    return Changed::No;
  }
  const std::string name = AskText(shell.dialogs, kNameLength, u"Language name", u"Enter language name");
  if (name.empty() || !LoadTranslationWithDialog(shell, id, name)) return Changed::No;
  std::filesystem::path path = "LumarineStrings_merged.xml";
  if (!AskWhereToSave(shell.questions, kXmlFilter, path)) return Changed::No;
  TranslationStore::Documents merged = shell.translations.CopyDocuments();
  const bool hasMore = merged.more.child("strings").children.count() > 0;
  const std::filesystem::path second = SecondFileBeside(path);
  if (hasMore && !AskToReplace(shell.questions, second)) return Changed::No;
  SaveMerged(path, merged.document);
  if (hasMore) SaveMerged(second, merged.more);
  return Changed::No;
}

void AnnounceLanguage(TranslationStore& translations) {
  const ovk::xml::element* const language =
      translations.GetLanguages().find_child_by_id("language", translations.GetLanguageId());
  if (language == nullptr) return LogStatus(Message("Language set to English"));
  const std::int32_t named = language->find_attribute("name");
  const std::string_view name = named < 0 ? "English" : language->attributes[named].value.view();
  std::string text = Message("Language set to {1}", name).utf8();
  const std::string_view author = language->attribute_or_empty("author").view();
  if (!author.empty()) text += ", " + Message("translated by {1}!", author).utf8();
  LogPlain(text);
}

}  // namespace app
