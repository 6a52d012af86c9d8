#pragma once

// All texts that a user sees, in all languages: one tree of them, looked up by their English wording.
//
// Two kinds of files hold them: the document (resources/translations.xml), and the translators' exchange file
// with one language. In both, a line break is written as the four characters \r\n. A second document
// (resources/translations-more.xml) has the form of the first and holds further keys; only the first says
// which languages there are:
//
//   <localisation>
//     <languages>
//       <language id='sk' name='Slovak' author='Lumarine team'/>     all but the id may be left out
//     </languages>
//     <strings>
//       <string id='Step {1}'> <sk>Krok {1}</sk> </string>           any language may be left out
//     </strings>
//   </localisation>
//
//   <strings>
//     <string id='Step {1}'> <translate>Krok {1}</translate> </string>
//   </strings>

#include <cstddef>
#include <filesystem>
#include <functional>
#include <mutex>
#include <set>
#include <string>
#include <string_view>

#include "OvkLib/src/ovk_xml.h"
#include "common/message.h"

/// The translations and the language in use. English is not in the tree. It is built in under the id
/// kEnglish, and each key is its own English text.
///
/// The store is also a recorder: in any other language, a key that it is asked for and does not know is
/// added, so that an export offers translators all that the program has said. Nothing of that is kept when
/// the process ends.
///
/// Translate() may be called on any thread at any time. All else belongs to the user interface thread.
class TranslationStore final : public Translator {
 public:
  /// The id of the language that the program is written in.
  static constexpr std::string_view kEnglish = "en";

  /// The number of the document among the resources of kind "XML".
  static constexpr int kDocumentResource = 131;
  /// The number of the second document among them.
  static constexpr int kMoreResource = 135;

  /// The one of the process, from the documents that are built into the program. It is made at the first
  /// call, on any thread, and never destroyed. It answers messages.
  static TranslationStore& Instance();

  /// A store of its own, from the bytes of the documents. It begins with English. A first document that is no
  /// XML counts as none: the store then knows only English, and nothing is reported. The keys of the second
  /// document stand behind those of the first; it adds no language, a key that the first has too is passed
  /// over, and a second document that is no XML adds nothing.
  explicit TranslationStore(std::string_view document, std::string_view more = {});
  TranslationStore(const TranslationStore&) = delete;
  TranslationStore& operator=(const TranslationStore&) = delete;
  /// Messages are in English from now on, if this store answered them.
  ~TranslationStore();

  /// From now on this store answers Translate() of common/message.h while its language is not English. One
  /// store at a time does.
  void AnswerMessages();

  /// Makes a language the one in use: kEnglish, or the id of one that is in GetLanguages(). With any other id
  /// nothing happens.
  void SetLanguage(std::string_view id);
  std::string GetLanguageId() const;

  /// The languages besides English, in the order of the Language menu: children "language" with the
  /// attributes "id", "name" and "author", any of which a document may leave out. Looking a text
  /// up never changes it; loading a language does, and the caller may. Take texts out of it as std::string: a
  /// copied ovk::string shares its memory with the tree.
  ovk::xml::element& GetLanguages();

  /// The text for `key` (UTF-8) in the language in use: up to its first zero byte, and `key` itself if there
  /// is none. Any thread.
  std::string Translate(std::string_view key) override;

  /// The longest exchange file that is read. A file with all texts of the program has an eightieth of that.
  /// The tree of a file takes up to forty times the memory of its bytes.
  static constexpr std::size_t kMostExchangeBytes = std::size_t{4} * 1024 * 1024;

  /// Adds a language from an exchange file, or its texts to one that is there. Texts of keys that the store
  /// does not know, and entries without or with several texts, are left out. False, with nothing changed, if
  /// the file cannot be read, is longer than kMostExchangeBytes or is no XML; logs nothing.
  bool LoadTranslationFile(const std::filesystem::path& path, std::string_view id, std::string_view name);

  /// The same from the bytes of such a file.
  bool LoadTranslation(std::string_view bytes, std::string_view id, std::string_view name);

  /// Writes an exchange file of all keys, sorted by their bytes, with their texts in the language in use.
  /// False and a line on statusLog if that fails.
  bool ExportTranslationFile(const std::filesystem::path& path);
  /// The tree of such a file.
  ovk::xml::element ExportTranslation();

  /// The whole tree, which shares nothing with the store.
  ovk::xml::element CopyTree() const;

  /// A copy of the tree, divided into the two documents that it came from. What was recorded and the
  /// languages are in the first; the second has no entries if there was no second document.
  struct Documents {
    ovk::xml::element document;
    ovk::xml::element more;
  };
  Documents CopyDocuments() const;

  /// Nothing reads it: no file of this name is opened.
  const std::u16string externalFileName = u"LumarineStrings.xml";

 private:
  void UseLanguage(std::string_view id);  // under lock_

  mutable std::mutex lock_;
  // Guarded by lock_, but for reading below the element "languages", which only the user interface thread
  // changes.
  bool answersMessages_ = false;
  std::string languageId_{kEnglish};
  ovk::xml::element root_;
  std::set<std::string, std::less<>> moreKeys_;  // those that the second document brought
};

/// Removes one language from the root of a copied tree: the first text of each key in that language, and the
/// language's first entry in the list.
void RemoveLanguage(ovk::xml::element& tree, std::string_view id);

/// Line breaks in all texts and attributes of a tree, tags excepted: CR becomes the two characters \r, LF
/// becomes \n. Unescaping is the inverse.
void EscapeLineBreaks(ovk::xml::element& tree);
void UnescapeLineBreaks(ovk::xml::element& tree);
