// Line breaks as the translators' files have them, and back.

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "localisation/translation_store.h"

namespace {

using ovk::xml::element;

std::string Escaped(std::string_view text) {
  element tree("a");
  tree.text = ovk::string(text);
  EscapeLineBreaks(tree);
  return std::string(tree.text.view());
}

std::string Unescaped(std::string_view text) {
  element tree("a");
  tree.text = ovk::string(text);
  UnescapeLineBreaks(tree);
  return std::string(tree.text.view());
}

// The definition: two replacements, one after the other, that move on past what they have written.
std::string Replaced(std::string_view text, std::string_view what, std::string_view by) {
  std::string out;
  for (size_t at = text.find(what); at != text.npos; at = text.find(what)) {
    out.append(text.substr(0, at)).append(by);
    text.remove_prefix(at + what.size());
  }
  return out.append(text);
}

std::string RandomText(std::mt19937& random, std::string_view letters) {
  std::string text(random() % 20, ' ');
  for (char& c : text) c = letters[random() % letters.size()];
  return text;
}

TEST(LineBreaks, AreTwoCharactersEachInFiles) {
  EXPECT_EQ(Escaped("one\r\ntwo"), R"(one\r\ntwo)");
  EXPECT_EQ(Unescaped(R"(one\r\ntwo)"), "one\r\ntwo");
  EXPECT_EQ(Escaped("\n\r"), R"(\n\r)");
  EXPECT_EQ(Unescaped(R"(\n\r)"), "\n\r");
}

TEST(LineBreaks, OtherBackslashesStay) {
  EXPECT_EQ(Unescaped(R"(C:\temp\)"), R"(C:\temp\)");
  EXPECT_EQ(Escaped(R"(C:\temp\)"), R"(C:\temp\)");
  EXPECT_EQ(Unescaped(R"(\\r)"), "\\\r") << "the second backslash belongs to the letter";
  EXPECT_EQ(Unescaped(R"(\R\N)"), R"(\R\N)");
}

TEST(LineBreaks, AreReplacedAsTwoPassesWould) {
  std::mt19937 random(7);
  for (int i = 0; i < 10'000; ++i) {
    const std::string text = RandomText(random, std::string_view("\\\\rn\r\na\0", 8));
    EXPECT_EQ(Unescaped(text), Replaced(Replaced(text, "\\r", "\r"), "\\n", "\n"));
    EXPECT_EQ(Escaped(text), Replaced(Replaced(text, "\r", "\\r"), "\n", "\\n"));
  }
}

TEST(LineBreaks, ComeBackExactly) {
  std::mt19937 random(8);
  for (int i = 0; i < 10'000; ++i) {
    const std::string plain = RandomText(random, "\r\nabrn");
    EXPECT_EQ(Unescaped(Escaped(plain)), plain);
    const std::string escaped = RandomText(random, "\\abrn");
    EXPECT_EQ(Escaped(Unescaped(escaped)), escaped);
  }
}

TEST(LineBreaks, AreReplacedInTextsAndAttributesOfTheWholeTreeButNotInTags) {
  element tree(R"(a\n)");
  tree.text = R"(1\n)";
  tree.attribute(R"(b\n)").value = R"(2\n)";
  element& below = tree.child("c").child(R"(d\r)");
  below.text = R"(3\r)";
  below.attribute("e").value = R"(4\r)";

  UnescapeLineBreaks(tree);
  EXPECT_EQ(tree.name, R"(a\n)");
  EXPECT_EQ(tree.text, "1\n");
  EXPECT_EQ(tree.attribute_or_empty(R"(b\n)"), "2\n");
  EXPECT_EQ(below.name, R"(d\r)");
  EXPECT_EQ(below.text, "3\r");
  EXPECT_EQ(below.attribute_or_empty("e"), "4\r");

  EscapeLineBreaks(tree);
  EXPECT_EQ(tree.text, R"(1\n)");
  EXPECT_EQ(tree.attribute_or_empty(R"(b\n)"), R"(2\n)");
  EXPECT_EQ(below.text, R"(3\r)");
  EXPECT_EQ(below.attribute_or_empty("e"), R"(4\r)");
}

TEST(LineBreaks, OfALongTextAreReplacedInATimeThatGrowsWithItsLength) {
  std::string plain;
  for (int i = 0; i < 500'000; ++i) plain += "\r\n";
  const std::string escaped = Escaped(plain);
  EXPECT_EQ(escaped.size(), plain.size() * 2);
  EXPECT_EQ(Unescaped(escaped), plain);
}

}  // namespace
