#pragma once

// Sentences for the user: translated, then filled with their arguments.

#include <concepts>
#include <cstdint>
#include <filesystem>
#include <initializer_list>
#include <string>
#include <string_view>

/// The one entry of translation: the text for `key`, which is the English sentence and in English the text
/// too. Any thread.
std::string Translate(std::string_view key);

/// Who knows the texts of other languages.
class Translator {
 public:
  /// The text for `key`. Called on any thread that translates, on several at once.
  virtual std::string Translate(std::string_view key) = 0;

 protected:
  ~Translator() = default;
};

/// Has `translator` answer Translate() from now on; null, as at the start, means English. Any thread. A call
/// that has begun ends with the translator that it began with, which must outlive it.
void SetTranslator(Translator* translator);

/// A key of the translations that stands apart from the call that translates it: in a row of a table, as a
/// constant or as an argument. The tests know the keys of the program by reading Message("..."),
/// Translate("..."), Hint("...") and TextKey("...") in the sources.
class TextKey {
 public:
  constexpr TextKey() = default;  // no text
  explicit consteval TextKey(std::string_view english) : english_(english) {}

  constexpr operator std::string_view() const { return english_; }
  constexpr bool empty() const { return english_.empty(); }
  friend constexpr bool operator==(const TextKey&, const TextKey&) = default;
  friend constexpr bool operator==(const TextKey& key, std::string_view text) { return key.english_ == text; }

 private:
  std::string_view english_;
};

/// A finished sentence. The template is translated first and filled then, so that a sentence with its
/// placeholders is one entry of the translations and arguments are never looked up. Placeholders and rules
/// are those of ovk::format. Meant to be built, read and discarded within one statement, by one thread.
///
/// How arguments are written: texts (UTF-8) as they stand, numbers in decimal, floats truncated toward zero,
/// paths as UTF-8.
class Message {
 public:
  explicit Message(std::string_view key);
  Message(std::string_view key, std::string_view text);
  Message(std::string_view key, std::int32_t number);
  Message(std::string_view key, float number);
  template <std::same_as<std::filesystem::path> Path>  // nothing else turns into a path here
  Message(std::string_view key, const Path& path) : Message(key, std::string_view(TextOf(path))) {}
  Message(std::string_view key, std::int32_t first, std::int32_t second);
  Message(std::string_view key, std::string_view first, std::string_view second);
  Message(std::string_view key, std::string_view text, std::int32_t number);
  template <std::same_as<std::filesystem::path> Path>
  Message(std::string_view key, const Path& path, std::string_view text)
      : Message(key, std::string_view(TextOf(path)), text) {}
  Message(std::string_view key, std::string_view first, std::int32_t number, std::string_view second);

  const std::string& utf8() const { return utf8_; }

  /// The same text, converted at the first call.
  const std::u16string& ToWide();

 private:
  static std::string TextOf(const std::filesystem::path& path);
  void Fill(std::string_view key, std::initializer_list<std::string_view> arguments);

  std::string utf8_;
  std::u16string wide_;  // empty until ToWide()
};
