// Findings as text and for other programs.

#include "doctor/report.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

namespace {

using doctor::Finding;
using doctor::Sentence;
using doctor::Sign;
using doctor::Signs;

const Sentence kWhat(TextKey("Settings"));

Finding Given(Sign sign, const std::string& argument = "x") {
  const Sentence advice = sign == Sign::Good ? Sentence() : Sentence(TextKey("Nothing was written."));
  return {sign, "thing", kWhat, Sentence(TextKey("{1} is installed."), {argument}), advice};
}

// Answers each key in capitals.
class Loud : public Translator {
 public:
  std::string Translate(std::string_view key) override {
    std::string text(key);
    for (char& letter : text)
      if (letter >= 'a' && letter <= 'z') letter = static_cast<char>(letter - 'a' + 'A');
    return text;
  }
};

TEST(Report, IsPlainWordsWhereNothingElseCanBeShown) {
  EXPECT_EQ(TextOf({Given(Sign::Good), Given(Sign::Look), Given(Sign::Broken)}, Signs::Words),
            "[good]   Settings: x is installed.\n"
            "[look]   Settings: x is installed.\n"
            "           Nothing was written.\n"
            "[broken] Settings: x is installed.\n"
            "           Nothing was written.\n"
            "\nBroken: 1. To look at: 1\n");
}

TEST(Report, AlignsNothingWhereLettersDifferInWidth) {
  EXPECT_EQ(LinesOf(Given(Sign::Good), Signs::LooseWords), "[good] Settings: x is installed.\n");
  EXPECT_EQ(LinesOf(Given(Sign::Broken), Signs::LooseWords),
            "[broken] Settings: x is installed.\n    Nothing was written.\n");
}

TEST(Report, HasColouredMarks) {
  EXPECT_EQ(LinesOf(Given(Sign::Broken), Signs::Coloured),
            "\x1B[31m\xE2\x9C\x98\x1B[0m Settings: x is installed.\n    Nothing was written.\n");
}

TEST(Report, SumsUp) {
  EXPECT_EQ(doctor::SummaryOf({}).English(), "All is well.");
  EXPECT_EQ(doctor::SummaryOf({Given(Sign::Good)}).English(), "All is well.");
  EXPECT_EQ(doctor::SummaryOf({Given(Sign::Look), Given(Sign::Look)}).English(),
            "Nothing is broken. To look at: 2");
  EXPECT_EQ(doctor::WorstOf({}), Sign::Good);
  EXPECT_EQ(doctor::WorstOf({Given(Sign::Broken), Given(Sign::Look)}), Sign::Broken);
}

TEST(Report, HoldsNothingThatATerminalObeys) {
  EXPECT_EQ(LinesOf(Given(Sign::Good, "a\x1B[2J\nb\x7F\xC3\xA4"), Signs::Words),
            "[good]   Settings: a?[2J?b?\xC3\xA4 is installed.\n");
}

TEST(Report, IsTranslatedForPeopleAndNotForPrograms) {
  Loud loud;
  SetTranslator(&loud);
  const std::string text = LinesOf(Given(Sign::Look), Signs::Words);
  const std::string json = doctor::JsonOf({Given(Sign::Look)}, "1.0");
  SetTranslator(nullptr);
  EXPECT_EQ(text, "[look]   SETTINGS: x IS INSTALLED.\n           NOTHING WAS WRITTEN.\n");
  EXPECT_EQ(json,
            R"({"version":"1.0","worst":"look","findings":[{"id":"thing","sign":"look","what":"Settings",)"
            R"("found":"x is installed.","advice":"Nothing was written."}]})"
            "\n");
}

TEST(Report, IsAsciiForPrograms) {
  const std::string json = doctor::JsonOf({Given(Sign::Good, "\xC3\xA4\xFF\"\\")}, "1.0");
  EXPECT_THAT(json, testing::HasSubstr(R"(\u00e4\ufffd\"\\ is installed.)"));
  EXPECT_EQ(nlohmann::json::parse(json).at("worst"), "good");
}

}  // namespace
