#include "common/message.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "common/files.h"
#include "tests/support/fake_translator.h"

namespace {

TEST(Translate, AnswersTheKeyInEnglish) {
  EXPECT_EQ(Translate("New program"), "New program");
  EXPECT_EQ(Translate(""), "");
}

class Translated : public testing::Test {
 protected:
  FakeTranslator german{[](std::string_view key) { return "{2} nach {1}, nicht " + std::string(key); }};
};

TEST_F(Translated, EveryTextIsAskedFor) {
  EXPECT_EQ(Translate("{1} to {2}"), "{2} nach {1}, nicht {1} to {2}");
  EXPECT_EQ(Message("").utf8(), "{2} nach {1}, nicht ");
}

TEST_F(Translated, TheTemplateIsAskedForAndFilledThen) {
  EXPECT_EQ(Message("{1} to {2}", "a", "{1}").utf8(), "{1} nach a, nicht a to {1}");
  EXPECT_EQ(Message("", 8, 5).utf8(), "5 nach 8, nicht ");
}

TEST_F(Translated, WithoutATranslatorAllIsEnglishAgain) {
  SetTranslator(nullptr);
  EXPECT_EQ(Message("{1} to {2}", 8, 5).utf8(), "8 to 5");
}

TEST(Message, WritesEveryCombinationOfArguments) {
  const std::string text = "Lamp";
  const std::filesystem::path path = PathFromUtf8(
      "r\xC3\xA9"
      "cif.xml");
  EXPECT_EQ(Message("Plain {1}").utf8(), "Plain {1}");
  EXPECT_EQ(Message("<{1}>", text).utf8(), "<Lamp>");
  EXPECT_EQ(Message("<{1}>", "C string").utf8(), "<C string>");
  EXPECT_EQ(Message("<{1}>", -7).utf8(), "<-7>");
  EXPECT_EQ(Message("<{1}>", 99.9F).utf8(), "<99>");
  EXPECT_EQ(Message("<{1}>", path).utf8(),
            "<r\xC3\xA9"
            "cif.xml>");
  EXPECT_EQ(Message("{1} of {2}", 3, 48).utf8(), "3 of 48");
  EXPECT_EQ(Message("{2}, {1}", text, text + "s").utf8(), "Lamps, Lamp");
  EXPECT_EQ(Message("{1}: {2}", text, 5).utf8(), "Lamp: 5");
  EXPECT_EQ(Message("{1}: {2}", path, "gone").utf8(),
            "r\xC3\xA9"
            "cif.xml: gone");
  EXPECT_EQ(Message("{1} {2} {3}", text, 5, "end").utf8(), "Lamp 5 end");
}

TEST(Message, TruncatesFloatsTowardZero) {
  EXPECT_EQ(Message("{1}", -0.9F).utf8(), "0");
  EXPECT_EQ(Message("{1}", -1.9F).utf8(), "-1");
  EXPECT_EQ(Message("{1}", std::numeric_limits<float>::quiet_NaN()).utf8(), "-2147483648");
}

TEST(Message, KeepsAPlaceholderWithoutArgument) {
  EXPECT_EQ(Message("{1} and {2}", 5).utf8(), "5 and {2}");
  EXPECT_EQ(Message("{1} and {2}", std::filesystem::path("a")).utf8(), "a and {2}");
}

// A mode may be called "{2}", and a folder "d{2}".
TEST(Message, LooksIntoNoArgument) {
  EXPECT_EQ(Message("Error creating file {1}, error: {2}", PathFromUtf8("d{2}"), "gone").utf8(),
            "Error creating file d{2}, error: gone");
  EXPECT_EQ(Message("{1} {2} {3}", "{3}", 5, "{1}").utf8(), "{3} 5 {1}");
}

TEST(Message, CutsNothingFromTextsWithATerminatorInside) {
  EXPECT_EQ(Message("<{1}>", std::string("a\0b", 3)).utf8(), std::string("<a\0b>", 5));
}

TEST(Message, ConvertsToWideOnDemand) {
  Message message("Sun {1}", "\xE2\x98\x80");
  EXPECT_EQ(message.ToWide(), u"Sun ☀");
  EXPECT_EQ(&message.ToWide(), &message.ToWide());
  EXPECT_EQ(Message("").ToWide(), u"");
}

TEST(Message, TakesArgumentsOfAnyLength) {
  const std::string big(100000, 'x');
  EXPECT_EQ(Message("{1}{2}{1}", big, 7).utf8(), big + "7" + big);
}

}  // namespace
