// The parser's state table, every state with every byte, against the table as it is written down here.

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "OvkLib/src/ovk_xml_reader.h"
#include "tests/OvkLib/xml_trees.h"

namespace {

using ovk::xml::observer;
using ovk::xml::parser;
using xml_trees::Recorder;

// Before each step the parser has read a name "n" and a value "v", will come back to state 26 and then to 40,
// and a reference goes to the value.
constexpr int kBack = 26;

// What a transition does besides changing the state.
enum class Does {
  kNothing,
  kToName,
  kToValue,
  kToEntity,
  kPasses,          // on_char
  kPassesBracket,   // on_char of "]" and of the byte
  kPassesBrackets,  // on_char of "]" twice and of the byte
  kStarts,          // on_start_tag, name cleared
  kClosesEmpty,     // back, on_close_empty
  kEnds,            // back, on_end_tag, name cleared
  kTellsAttribute,  // on_attribute, both cleared
  kGoesBack,        // to the state on the stack
  kForgetsBack,     // the state on the stack goes, and is not gone to
  kBeginsForName,   // a reference
  kBeginsForValue,
  kFlushes,   // the reference goes to its target as written, back
  kResolves,  // its replacement does, back
};

struct Row {
  int state;
  std::string_view bytes;
  int to;
  Does does = Does::kNothing;
  int push = 0;
};

constexpr std::string_view kElse = "";
constexpr std::string_view kStart = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ_:";
constexpr std::string_view kName = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ_:0123456789-.";
constexpr std::string_view kBlank = "\x09\x0A\x0D\x20";
constexpr std::string_view kDigit = "0123456789";
constexpr std::string_view kHexDigit = "0123456789abcdefABCDEF";

// The first row that fits counts; what has none leads to 0. Where a byte is handed on, the rows say what
// becomes of it: state 26, that is gone back to, goes to 21 at ">" and stays at all others.
const std::vector<Row> kRows = {
    {0, kElse, 0},
    {1, "<", 2},
    {1, kElse, 1},
    {2, "?", 5},
    {2, "!", 3},
    {2, kStart, 10, Does::kToName},
    {3, "-", 4},
    {3, kElse, 6},
    {4, "-", 8},
    {4, kElse, 6},
    {5, "?", 7, Does::kNothing, 5},
    {5, kElse, 5},
    {6, ">", 1},
    {6, kElse, 6},
    {7, ">", 1, Does::kForgetsBack},
    {7, kElse, kBack, Does::kGoesBack},
    {8, "-", 9},
    {8, kElse, 8},
    {9, "-", 7, Does::kNothing, 9},
    {9, kElse, 8},
    {10, kName, 10, Does::kToName},
    {10, kBlank, 15, Does::kStarts},
    {10, "/", 11, Does::kStarts},
    {10, ">", 21, Does::kStarts},
    {11, ">", kBack, Does::kClosesEmpty},
    {12, kStart, 13, Does::kToName},
    {13, kName, 13, Does::kToName},
    {13, kBlank, 14},
    {13, ">", kBack, Does::kEnds},
    {14, kBlank, 14},
    {14, ">", kBack, Does::kEnds},
    {15, kStart, 16, Does::kToName},
    {15, "/", 11},
    {15, ">", 21},
    {15, kBlank, 15},
    {16, kName, 16, Does::kToName},
    {16, "=", 18},
    {16, kBlank, 17},
    {17, "=", 18},
    {17, kBlank, 17},
    {18, "'", 19},
    {18, "\"", 20},
    {18, kBlank, 18},
    {19, "'", 15, Does::kTellsAttribute},
    {19, "&", 41, Does::kBeginsForValue, 19},
    {19, kElse, 19, Does::kToValue},
    {20, "\"", 15, Does::kTellsAttribute},
    {20, "&", 41, Does::kBeginsForValue, 20},
    {20, kElse, 20, Does::kToValue},
    {21, "<", 23},
    {21, "&", 41, Does::kBeginsForName, 22},
    {21, kElse, 21, Does::kPasses},
    // State 22 has a test of its own: it hands every byte on to 21.
    {23, "?", 25},
    {23, "!", 24},
    {23, "/", 12},
    {23, kStart, 10, Does::kToName, 21},
    {24, "[", 31},
    {24, "-", 28},
    {24, kElse, 26},
    {25, "?", 27, Does::kNothing, 25},
    {25, kElse, 25},
    {26, ">", 21},
    {26, kElse, 26},
    {27, ">", 21, Does::kForgetsBack},
    {27, kElse, kBack, Does::kGoesBack},
    {28, "-", 29},
    {28, kElse, 26},
    {29, "-", 30},
    {29, kElse, 29},
    {30, "-", 27, Does::kNothing, 30},
    {30, kElse, 29},
    {31, "C", 32},
    {31, kElse, 26},
    {32, "D", 33},
    {32, kElse, 26},
    {33, "A", 34},
    {33, kElse, 26},
    {34, "T", 35},
    {34, kElse, 26},
    {35, "A", 36},
    {35, kElse, 26},
    {36, "[", 37},
    {36, kElse, 26},
    {37, "]", 38},
    {37, kElse, 37, Does::kPasses},
    {38, "]", 39},
    {38, kElse, 37, Does::kPassesBracket},
    {39, ">", 21},
    {39, kElse, 37, Does::kPassesBrackets},
    {40, kElse, 40},
    {41, "#", 43, Does::kToEntity},
    {41, kStart, 42, Does::kToEntity},
    {41, ">", 21, Does::kFlushes},
    {41, kElse, kBack, Does::kFlushes},
    {42, ";", kBack, Does::kResolves},
    {42, kName, 42, Does::kToEntity},
    {42, ">", 21, Does::kFlushes},
    {42, kElse, kBack, Does::kFlushes},
    {43, "x", 45, Does::kToEntity},
    {43, kDigit, 44, Does::kToEntity},
    {43, ">", 21, Does::kFlushes},
    {43, kElse, kBack, Does::kFlushes},
    {44, ";", kBack, Does::kResolves},
    {44, kDigit, 44, Does::kToEntity},
    {44, ">", 21, Does::kFlushes},
    {44, kElse, kBack, Does::kFlushes},
    {45, ";", kBack, Does::kResolves},
    {45, kHexDigit, 45, Does::kToEntity},
    {45, ">", 21, Does::kFlushes},
    {45, kElse, kBack, Does::kFlushes},
};

// The reference as far as it has been read in a state, and what it would stand for.
std::string EntityIn(int state) {
  switch (state) {
    case 41:
      return "&";
    case 42:
      return "&amp";
    case 43:
      return "&#";
    case 44:
      return "&#65";
    case 45:
      return "&#x42";
    default:
      return "";
  }
}

std::string ReplacementIn(int state) {
  switch (state) {
    case 42:
      return "&";
    case 44:
      return "A";
    case 45:
      return "B";
    default:
      return "";
  }
}

// What can be seen of a parser and its observer.
struct Seen {
  int state = 0;
  std::vector<int> stack;
  std::string name;
  std::string value;
  std::string entity;
  std::string target;
  std::string told;

  friend bool operator==(const Seen&, const Seen&) = default;
  friend std::ostream& operator<<(std::ostream& out, const Seen& seen) {
    out << "state " << seen.state << ", stack";
    for (const int back : seen.stack) out << ' ' << back;
    return out << ", name '" << seen.name << "', value '" << seen.value << "', entity '" << seen.entity
               << "', target " << seen.target << ", told '" << seen.told << "'";
  }
};

Seen Before(int state) {
  const bool inReference = !EntityIn(state).empty();
  return {state, {40, kBack}, "n", "v", EntityIn(state), inReference ? "value" : "none", ""};
}

// A parser as it stands before a step.
class Prepared {
 public:
  Prepared(int state, int refused) : recorder_(refused), parser_(recorder_) {
    const Seen before = Before(state);
    parser_.state = state;
    parser_.stack.push_back(kBack);
    parser_.name.append(before.name);
    parser_.value.append(before.value);
    parser_.entity.append(before.entity);
    if (before.target == "value") parser_.target = &parser_.value;
  }

  parser<observer>& Parser() { return parser_; }

  Seen After(char byte) {
    parser_.step(byte);
    Seen seen;
    seen.state = parser_.state;
    seen.stack.assign(parser_.stack.begin(), parser_.stack.end());
    seen.name = parser_.name.view();
    seen.value = parser_.value.view();
    seen.entity = parser_.entity.view();
    seen.target = parser_.target == nullptr ? "none" : parser_.target == &parser_.name ? "name" : "value";
    seen.told = recorder_.told;
    return seen;
  }

 private:
  Recorder recorder_;
  parser<observer> parser_;
};

Seen StepFrom(int state, char byte, int refused = -1) {
  return Prepared(state, refused).After(byte);
}

const Row* RowFor(int state, char byte) {
  for (const Row& row : kRows) {
    if (row.state == state && (row.bytes == kElse || row.bytes.find(byte) != kElse.npos)) return &row;
  }
  return nullptr;
}

std::string Chars(std::string_view text) {
  std::string told;
  for (const char c : text) told.append("char ").append(1, c).append("\n");
  return told;
}

Seen Expected(int state, char byte) {
  Seen seen = Before(state);
  const Row* row = RowFor(state, byte);
  if (row == nullptr) {
    seen.state = 0;
    return seen;
  }
  seen.state = row->to;
  if (row->push != 0) seen.stack.push_back(row->push);
  switch (row->does) {
    case Does::kNothing:
      break;
    case Does::kToName:
      seen.name += byte;
      break;
    case Does::kToValue:
      seen.value += byte;
      break;
    case Does::kToEntity:
      seen.entity += byte;
      break;
    case Does::kPasses:
      seen.told = Chars({&byte, 1});
      break;
    case Does::kPassesBracket:
      seen.told = Chars("]") + Chars({&byte, 1});
      break;
    case Does::kPassesBrackets:
      seen.told = Chars("]]") + Chars({&byte, 1});
      break;
    case Does::kStarts:
      seen.told = "start n\n";
      seen.name = "";
      break;
    case Does::kClosesEmpty:
      seen.told = "close \n";
      seen.stack.pop_back();
      break;
    case Does::kEnds:
      seen.told = "end n\n";
      seen.name = "";
      seen.stack.pop_back();
      break;
    case Does::kTellsAttribute:
      seen.told = "attribute n=v\n";
      seen.name = seen.value = "";
      break;
    case Does::kGoesBack:
    case Does::kForgetsBack:
      seen.stack.pop_back();
      break;
    case Does::kBeginsForName:
    case Does::kBeginsForValue:
      seen.entity = "&";
      seen.target = row->does == Does::kBeginsForName ? "name" : "value";
      break;
    case Does::kFlushes:
    case Does::kResolves:
      seen.value += row->does == Does::kFlushes ? seen.entity : ReplacementIn(state);
      seen.entity = "";
      seen.target = "none";
      seen.stack.pop_back();
      break;
  }
  return seen;
}

class EveryByte : public testing::TestWithParam<int> {};

TEST_P(EveryByte, LeadsWhereTheTableSays) {
  const int state = GetParam();
  for (int byte = 0; byte < 256; ++byte) {
    const char c = static_cast<char>(byte);
    ASSERT_EQ(StepFrom(state, c), Expected(state, c)) << "state " << state << ", byte " << byte;
  }
}

std::vector<int> StatesOfTheTable() {
  std::set<int> states;
  for (const Row& row : kRows) states.insert(row.state);
  return {states.begin(), states.end()};
}

INSTANTIATE_TEST_SUITE_P(XmlStates, EveryByte, testing::ValuesIn(StatesOfTheTable()));

TEST(XmlStates, TheTableHereHasAllButTheStateWithATestOfItsOwn) {
  const std::vector<int> states = StatesOfTheTable();
  EXPECT_EQ(states.size(), 45U);
  EXPECT_EQ(ovk::xml::states::count, 46);
}

TEST(XmlStates, AfterAReferenceItsReplacementIsPassedAndTheByteTakenAsCharacterData) {
  for (int byte = 0; byte < 256; ++byte) {
    const char c = static_cast<char>(byte);
    Seen expected = Expected(21, c);
    expected.name = "";
    expected.told = Chars("n") + expected.told;
    ASSERT_EQ(StepFrom(22, c), expected) << "byte " << byte;
  }
}

TEST(XmlStates, ARefusedReplacementEndsThePassAndTheDocument) {
  Prepared prepared(22, 1);
  prepared.Parser().name.append(std::string_view("ame"));
  const Seen seen = prepared.After('x');
  EXPECT_EQ(seen.state, 0);
  EXPECT_EQ(seen.told, Chars("na"));
  EXPECT_EQ(seen.name, "");
}

TEST(XmlStates, RefusedCharactersTagsAndAttributesLeadToTheErrorState) {
  EXPECT_EQ(StepFrom(11, '>', 0).state, 0);
  EXPECT_EQ(StepFrom(13, '>', 0).state, 0);
  EXPECT_EQ(StepFrom(14, '>', 0).state, 0);
  EXPECT_EQ(StepFrom(19, '\'', 0).state, 0);
  EXPECT_EQ(StepFrom(20, '"', 0).state, 0);
  EXPECT_EQ(StepFrom(21, 'x', 0).state, 0);
  EXPECT_EQ(StepFrom(37, 'x', 0).state, 0);
}

TEST(XmlStates, ARefusedAttributeIsForgottenAllTheSame) {
  const Seen seen = StepFrom(19, '\'', 0);
  EXPECT_EQ(seen.name, "");
  EXPECT_EQ(seen.value, "");
}

TEST(XmlStates, ARefusedEndTagIsForgottenAllTheSame) {
  EXPECT_EQ(StepFrom(13, '>', 0).name, "");
}

// The state that the tag's name leads to is set after the call, and so the start of a tag cannot fail.
TEST(XmlStates, ARefusedStartTagIsOverwritten) {
  EXPECT_EQ(StepFrom(10, ' ', 0).state, 15);
  EXPECT_EQ(StepFrom(10, '/', 0).state, 11);
  EXPECT_EQ(StepFrom(10, '>', 0).state, 21);
}

// Odd but so: what the observer says to a bracket that was held back, and to the byte behind it, is not
// looked at.
TEST(XmlStates, RefusedBracketsOfACdataSectionAreNotLookedAt) {
  EXPECT_EQ(StepFrom(38, 'x', 0).state, 37);
  EXPECT_EQ(StepFrom(38, 'x', 1).state, 37);
  EXPECT_EQ(StepFrom(39, 'x', 0).state, 37);
  EXPECT_EQ(StepFrom(39, 'x', 2).state, 37);
}

TEST(XmlStates, ATagThatEndsAtDepthZeroIsAnErrorTheObserverIsNotAsked) {
  for (const int state : {11, 13, 14}) {
    Prepared prepared(state, -1);
    prepared.Parser().stack.clear();
    const Seen seen = prepared.After('>');
    EXPECT_EQ(seen.state, 0) << "state " << state;
    EXPECT_EQ(seen.told, "") << "state " << state;
  }
}

TEST(XmlStates, AParserStartsInStateOneWithFortyOnTheStack) {
  Recorder recorder;
  const parser<observer> fresh(recorder);
  EXPECT_EQ(xml_trees::Remembered(fresh), "state 1, stack 40, '', '', '', target none");
  EXPECT_FALSE(fresh.stopped());
}

TEST(XmlStates, AParserHasStoppedInTheErrorStateAndWhenDoneOnly) {
  Recorder recorder;
  parser<observer> any(recorder);
  for (int state = 0; state < ovk::xml::states::count; ++state) {
    any.state = state;
    EXPECT_EQ(any.stopped(), state == 0 || state == 40) << "state " << state;
  }
}

}  // namespace
