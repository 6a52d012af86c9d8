// The reader of the sources.

#include "tests/localisation/source_texts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using source_texts::Literal;
using source_texts::Place;
using testing::ElementsAre;
using testing::IsEmpty;

source_texts::Found ReadSource(const char* source) {
  source_texts::Found found;
  source_texts::Read(source, "app/a.cpp", {{"Message", {0}}, {"Tell", {1, 2}}, {"Own", {0}, "app/b.cpp"}},
                     found);
  return found;
}

std::vector<std::string> KeysOf(const char* source) {
  std::vector<std::string> keys;
  for (const Place& place : ReadSource(source).places)
    keys.insert(keys.end(), place.keys.begin(), place.keys.end());
  return keys;
}

TEST(SourceTexts, AreJoinedAndUnescaped) {
  EXPECT_THAT(KeysOf("LogStatus(Message(\"a \"  // \"no\"\n  \"b\\r\\n\\\"c\\\"\\\\\" /* \"no\" */, 1));"),
              ElementsAre("a b\r\n\"c\"\\"));
  EXPECT_THAT(KeysOf("Message text(u8R\"-(raw \\n)\")-\"); auto c = '\"'; Message m{\"\\u00e9\\x41\"};"),
              ElementsAre("raw \\n)\"", "éA"));
}

TEST(SourceTexts, OfEveryBranchAndEveryBraceCount) {
  EXPECT_THAT(KeysOf("Message(on ? \"a\" : off ? \"b\" : \"c\", \"argument\");"), ElementsAre("a", "b", "c"));
  EXPECT_THAT(KeysOf("Tell(window, \"title\", \"text\", Icon::Error);"), ElementsAre("title", "text"));
  EXPECT_THAT(KeysOf("Message({\"a\", \"b\"});"), ElementsAre("a", "b"));
}

TEST(SourceTexts, AreFoundBehindConstants) {
  EXPECT_THAT(
      KeysOf(
          "constexpr char kA[] = \"a\" \"b\"; const auto kC = \"c\"; Message(kA); Message(up ? kC : \"d\");"),
      ElementsAre("ab", "c", "d"));
}

TEST(SourceTexts, OtherArgumentsAreToldByName) {
  const source_texts::Found found =
      ReadSource("\n\nMessage(row . text, 3); Message(on ? kA : Name(\"x\", 1));");
  ASSERT_EQ(found.places.size(), 2U);
  EXPECT_EQ(found.places[0].line, 3);
  EXPECT_THAT(found.places[0].names, ElementsAre("row.text"));
  EXPECT_THAT(found.places[1].names, ElementsAre("kA", "Name(x,1)"));
}

TEST(SourceTexts, DeclarationsMembersOfOthersAndOtherFilesDoNotAsk) {
  EXPECT_THAT(
      ReadSource("class Message { explicit Message(std::string_view key); void Tell(Window& w, "
                 "std::string_view title, const char* text); };\nwindow.Tell(a, b, c); p->Message(x); "
                 "Own(\"own\"); void f(const Message& m);")
          .places,
      IsEmpty());
}

TEST(SourceTexts, AllLiteralsAreSeen) {
  std::vector<std::string> texts;
  for (const Literal& literal :
       ReadSource("#include \"a.h\"\nx = u\"wide\"; y = 1'000; z(\"n\" \"arrow\");").literals)
    texts.push_back(literal.text);
  EXPECT_THAT(texts, ElementsAre("wide", "narrow"));
}

}  // namespace
