// The reader of the sources.

#include "tests/localisation/source_texts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// The keys of a source, and its other texts in brackets.
std::vector<std::string> TextsOf(std::string_view source) {
  std::vector<std::string> texts;
  for (const auto& literal : source_texts::Read(source, "app/a.cpp"))
    texts.push_back(literal.isKey ? literal.text : "(" + literal.text + ")");
  return texts;
}

TEST(SourceTexts, AreKeysBehindTheWordsThatMarkThem) {
  EXPECT_THAT(
      TextsOf(R"(Message("a", "b"); Translate( "c"); Hint("d"); f(TextKey("e"), on ? TextKey{"f"} : "g");)"),
      ElementsAre("a", "(b)", "c", "d", "e", "f", "(g)"));
  EXPECT_THAT(TextsOf("Message text(\"a\"); constexpr TextKey kHelp(\n    \"b\"); ErrorMessage(\"c\");"),
              ElementsAre("a", "b", "(c)"));
}

TEST(SourceTexts, AreJoinedAndUnescaped) {
  EXPECT_THAT(TextsOf("Message(\"a \"\n    \"b\\r\\n\\\"c\\\"\\\\\", u\"d\"); \"e\" + \"f\";"),
              ElementsAre("a b\r\n\"c\"\\", "(d)", "(e)", "(f)"));
}

TEST(SourceTexts, AreNotInCommentsCharactersAndIncludes) {
  EXPECT_THAT(TextsOf("f(u'\"', L'\\''); g(x, u'&'); // \"h\""), IsEmpty());
  EXPECT_THAT(TextsOf("#include \"a.h\"\n// Message(\"b\")\nc = '\"'; d = 1'000'000; e = '\\''; // \"f\""),
              IsEmpty());
}

TEST(SourceTexts, KnowTheirLines) {
  const auto found = source_texts::Read("\n\nMessage(\"a\");\n\"b\";", "app/a.cpp");
  ASSERT_EQ(found.size(), 2U);
  EXPECT_EQ(found[0].line, 3);
  EXPECT_EQ(found[1].line, 4);
}

}  // namespace
