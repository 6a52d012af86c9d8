// The state table says what the parser does. What is read in whole runs and tags must not differ from it.

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <string>
#include <string_view>

#include "OvkLib/src/ovk_xml_reader.h"
#include "tests/OvkLib/xml_trees.h"

namespace {

using ovk::xml::observer;
using ovk::xml::parser;
using ovk::xml::tree_builder;
using xml_trees::Recorder;
using xml_trees::Remembered;
using xml_trees::SameTree;
using xml_trees::Walk;

class Documents {
 public:
  explicit Documents(unsigned seed) : random_(seed) {}

  size_t Number(size_t below) { return random_() % below; }

  // Mostly well formed, with a bit of everything.
  std::string Make() {
    std::string document =
        Any({"", "", "\xEF\xBB\xBF", "<?xml version='1.0'?>\r\n", "<!DOCTYPE a>", "<!-- c -->", "x "});
    Element(document, 4);
    return document + Any({"", "", "\r\n", "<", "<b/>", "&"});
  }

  // The same with some bytes changed, cut out, or put in.
  std::string Mutated(std::string document) {
    for (size_t times = 1 + Number(3); times > 0 && !document.empty(); --times) {
      const size_t place = Number(document.size());
      switch (Number(5)) {
        case 0:
          document[place] = "<>&;'\"/=!?-[] \nax1#\xC3"[Number(20)];
          break;
        case 1:
          document.erase(place, 1 + Number(4));
          break;
        case 2:
          document.insert(place, Any(kPieces));
          break;
        case 3:
          document.insert(place, document.substr(Number(document.size()), Number(30)));
          break;
        default:
          document.resize(place);
          break;
      }
    }
    return document;
  }

 private:
  template <size_t N>
  std::string Any(const std::string_view (&pieces)[N]) {
    return std::string(pieces[Number(N)]);
  }

  std::string Name() {
    return Any({"a", "b", "step", "hour", "minute", "x-1.y:z", "a_name_of_more_than_16_bytes"});
  }

  void Element(std::string& out, int depth) {
    const std::string name = Name();
    out += "<" + name;
    for (size_t i = Number(5); i > 0; --i) {
      const std::string quote = Any({"'", "'", "\""});
      out += Any({" ", " ", " ", "  ", "\r\n\t", i == 1 ? " " : ""});
      out += Name() + Any({"=", "=", "=", " = "}) + quote;
      for (size_t j = Number(4); j > 0; --j) out += Any(kInValues);
      out += quote;
    }
    out += Any({"", "", "", " "});
    if (Number(3) == 0) {
      out += "/>";
      return;
    }
    out += ">";
    for (size_t i = Number(5); i > 0; --i) {
      out += Any(kInTexts);
      if (depth > 0 && Number(2) == 0) Element(out, depth - 1);
    }
    out += "</" + name + Any({">", ">", ">", " >"});
  }

  static constexpr std::string_view kPieces[] = {
      "<",      ">",  "&",         "&amp;", "&#65;", "&#x;", "<!--",    "-->",
      "<?",     "?>", "<![CDATA[", "]]>",   "]]]",   "/>",   "</a>",    "<a>",
      " b='1'", "'",  "\"",        "<!x",   "--",    "=",    "&bogus;", "&#99999999999;"};
  static constexpr std::string_view kInValues[] = {
      "1",       "23",  "0", "some text", "&lt;",
      "&#65;",   "&no", "<", ">",         "a value of more than sixteen bytes",
      "\xC3\xA4"};
  static constexpr std::string_view kInTexts[] = {"\r\n    ",
                                                  "\n",
                                                  "text",
                                                  "a text of rather more than sixteen bytes",
                                                  "&amp;",
                                                  "&#x41;",
                                                  "&",
                                                  ">",
                                                  "<!-- a - b -->",
                                                  "<?pi?>",
                                                  "<!decl>",
                                                  "<![CDATA[<x>]] ]]>",
                                                  "",
                                                  "1",
                                                  "\xE2\x82\xAC"};

  std::mt19937 random_;
};

// Several pieces, as from a slow source.
template <class Receiver>
void RunInPieces(parser<Receiver>& by, std::string_view document, Documents& random) {
  while (!document.empty()) {
    const size_t length = std::min(document.size(), 1 + random.Number(20));
    by.run(document.substr(0, length));
    document.remove_prefix(length);
  }
}

// What an observer that refuses its n-th call is told, and where the parser stands then.
void ExpectSameCalls(const std::string& document, int refused, Documents& random) {
  Recorder walked(refused);
  parser<observer> walking(walked);
  Walk(walking, document);

  Recorder ran(refused);
  parser<observer> running(ran);
  running.run(document);
  ASSERT_EQ(ran.told, walked.told) << document;
  ASSERT_EQ(Remembered(running), Remembered(walking)) << document;

  Recorder pieced(refused);
  parser<observer> inPieces(pieced);
  RunInPieces(inPieces, document, random);
  ASSERT_EQ(pieced.told, walked.told) << document;
  ASSERT_EQ(Remembered(inPieces), Remembered(walking)) << document;
}

// The tree that the built-in builder makes in whole runs, and the one that it is told byte by byte.
void ExpectSameTree(const std::string& document) {
  tree_builder walked;
  observer& stranger = walked;
  parser<observer> walking(stranger);
  Walk(walking, document);

  tree_builder ran;
  parser<tree_builder> running(ran);
  running.run(document);

  ASSERT_EQ(Remembered(running), Remembered(walking)) << document;
  ASSERT_EQ(ran.root == nullptr, walked.root == nullptr) << document;
  if (ran.root != nullptr) {
    ASSERT_TRUE(SameTree(*ran.root, *walked.root)) << document;
  }
  ASSERT_EQ(ran.open.count(), walked.open.count()) << document;
  for (int32_t i = 0; i < ran.open.count(); ++i) {
    ASSERT_TRUE(SameTree(*ran.open[i], *walked.open[i])) << document;
  }
}

TEST(XmlFastPath, TellsAnObserverWhatTheTableTells) {
  for (unsigned seed = 0; seed < 600; ++seed) {
    Documents random(seed);
    const std::string document = random.Make();
    ASSERT_NO_FATAL_FAILURE(ExpectSameCalls(document, -1, random));
    ASSERT_NO_FATAL_FAILURE(ExpectSameCalls(random.Mutated(document), -1, random));
  }
}

TEST(XmlFastPath, StopsAtARefusedCallAsTheTableDoes) {
  for (unsigned seed = 0; seed < 600; ++seed) {
    Documents random(seed);
    const std::string document = random.Make();
    ASSERT_NO_FATAL_FAILURE(ExpectSameCalls(document, static_cast<int>(random.Number(40)), random));
  }
}

TEST(XmlFastPath, BuildsTheTreeThatTheTableBuilds) {
  for (unsigned seed = 0; seed < 1000; ++seed) {
    Documents random(seed);
    const std::string document = random.Make();
    ASSERT_NO_FATAL_FAILURE(ExpectSameTree(document));
    ASSERT_NO_FATAL_FAILURE(ExpectSameTree(random.Mutated(document)));
  }
}

TEST(XmlFastPath, AgreesOnADocumentThatEndsAnywhere) {
  Documents random(1);
  const std::string document =
      "<?x?><!-- c --><a b='1' c=\"&lt;\" d = 'x'>text &amp; <b/> <c  e='5' >y</c ><![CDATA[z]]] ]]><!-- d "
      "--></a>";
  for (size_t length = 0; length <= document.size(); ++length) {
    ASSERT_NO_FATAL_FAILURE(ExpectSameCalls(document.substr(0, length), -1, random));
    ASSERT_NO_FATAL_FAILURE(ExpectSameTree(document.substr(0, length)));
  }
}

TEST(XmlFastPath, AgreesOnEveryByteAtEveryPlaceOfASmallDocument) {
  const std::string document = "<a b='1' c=\"2\"><d/>t&lt;</a>";
  for (size_t place = 0; place < document.size(); ++place) {
    for (int byte = 0; byte < 256; ++byte) {
      std::string changed = document;
      changed[place] = static_cast<char>(byte);
      ASSERT_NO_FATAL_FAILURE(ExpectSameTree(changed));
    }
  }
}

TEST(XmlFastPath, FindsTheEndOfATextOfAnyLength) {
  for (size_t length = 0; length < 40; ++length) {
    const std::string text(length, 'x');
    for (const char* end : {"</a>", "&amp;</a>", "<b/></a>", "", "&"}) {
      ASSERT_NO_FATAL_FAILURE(ExpectSameTree("<a>" + text + end));
      ASSERT_NO_FATAL_FAILURE(ExpectSameTree("<a b='" + text + "'>" + end));
    }
  }
}

}  // namespace
