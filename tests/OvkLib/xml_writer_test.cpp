#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <string>

#include "OvkLib/src/ovk_xml.h"
#include "tests/OvkLib/xml_trees.h"

namespace {

using ovk::xml::element;
using xml_trees::Parsed;
using xml_trees::SameTree;
using xml_trees::Serialized;

element WithText(std::string_view text) {
  element a("a");
  a.text.append(text);
  return a;
}

element WithAttribute(std::string_view value) {
  element a("a");
  a.attribute("b").value.append(value);
  return a;
}

TEST(XmlWriter, AnElementWithAnAttributeAndNothingElse) {
  EXPECT_EQ(Serialized(WithAttribute("1")), "<a b='1'/>\r\n");
}

TEST(XmlWriter, AnElementWithAText) {
  EXPECT_EQ(Serialized(WithText("x")), "<a>x</a>\r\n");
}

TEST(XmlWriter, AnElementWithAChild) {
  element a("a");
  a.append_child("b");
  EXPECT_EQ(Serialized(a), "<a>\r\n  <b/>\r\n</a>\r\n");
}

TEST(XmlWriter, AnElementWithATextAndAChild) {
  element a = WithText("x");
  a.append_child("b").text = "y";
  EXPECT_EQ(Serialized(a), "<a>\r\nx  <b>y</b>\r\n</a>\r\n");
}

TEST(XmlWriter, AProgramAsItIsSaved) {
  element list("modelist");
  element& mode = list.append_child("mode");
  mode.attribute("name").value = "Reef & \"blue\"";
  element& channel = mode.append_child("channel");
  for (const char* hour : {"8", "20"}) {
    element& step = channel.append_child("step");
    step.attribute("hour").value = hour;
    step.attribute("minute").value = "0";
    step.attribute("value").value = "40";
    step.attribute("jump").value = "1";
  }
  mode.append_child("channel");
  EXPECT_EQ(Serialized(list),
            "<modelist>\r\n"
            "  <mode name='Reef &amp; &quot;blue&quot;'>\r\n"
            "    <channel>\r\n"
            "      <step hour='8' minute='0' value='40' jump='1'/>\r\n"
            "      <step hour='20' minute='0' value='40' jump='1'/>\r\n"
            "    </channel>\r\n"
            "    <channel/>\r\n"
            "  </mode>\r\n"
            "</modelist>\r\n");
}

TEST(XmlWriter, TheIndentIsThatOfTheFirstLineAndGrowsByTwo) {
  element a("a");
  a.append_child("b").append_child("c");
  EXPECT_EQ(Serialized(a, 3), "   <a>\r\n     <b>\r\n       <c/>\r\n     </b>\r\n   </a>\r\n");
}

TEST(XmlWriter, AnIndentBelowZeroIsNoneUntilTheLevelsMakeUpForIt) {
  element a("a");
  a.append_child("b").append_child("c");
  EXPECT_EQ(Serialized(a, -3), "<a>\r\n<b>\r\n <c/>\r\n</b>\r\n</a>\r\n");
  EXPECT_EQ(Serialized(a, std::numeric_limits<int32_t>::min()), "<a>\r\n<b>\r\n<c/>\r\n</b>\r\n</a>\r\n");
}

TEST(XmlWriter, IndentsOfManyBlanksAreWhole) {
  EXPECT_EQ(Serialized(element("a"), 10000), std::string(10000, ' ') + "<a/>\r\n");
}

TEST(XmlWriter, AppendsToWhatTheStringHolds) {
  ovk::string out("<?xml version='1.0'?>");
  ovk::xml::serialize(out, element("a"), 0);
  EXPECT_EQ(out, "<?xml version='1.0'?><a/>\r\n");
}

// Escaping.

TEST(XmlWriter, TheFiveSpecialBytesAreEscapedInTextsAndAttributes) {
  EXPECT_EQ(Serialized(WithText("\"&'<>")), "<a>&quot;&amp;&apos;&lt;&gt;</a>\r\n");
  EXPECT_EQ(Serialized(WithAttribute("\"&'<>")), "<a b='&quot;&amp;&apos;&lt;&gt;'/>\r\n");
}

TEST(XmlWriter, AllOtherBytesAreCopied) {
  std::string others;
  for (int byte = 0; byte < 256; ++byte) {
    const char c = static_cast<char>(byte);
    if (std::string_view("\"&'<>").find(c) == std::string_view::npos) others += c;
  }
  EXPECT_EQ(Serialized(WithText(others)), "<a>" + others + "</a>\r\n");
  EXPECT_EQ(Serialized(WithAttribute(others)), "<a b='" + others + "'/>\r\n");
}

TEST(XmlWriter, ATextWithALessThanSignReadsBackUnchanged) {
  EXPECT_EQ(Serialized(WithText("1<2")), "<a>1&lt;2</a>\r\n");
  EXPECT_EQ(Parsed(Serialized(WithText("1<2")))->text, "1<2");
}

TEST(XmlWriter, AnAttributeWithAnApostropheReadsBackUnchanged) {
  EXPECT_EQ(Serialized(WithAttribute("it's")), "<a b='it&apos;s'/>\r\n");
  EXPECT_EQ(Parsed(Serialized(WithAttribute("it's")))->attribute_or_empty("b"), "it's");
}

TEST(XmlWriter, LineEndsInATextAreWrittenAsTheyAre) {
  EXPECT_EQ(Serialized(WithText("x\ny\r\nz")), "<a>x\ny\r\nz</a>\r\n");
}

// It is the one way of bringing a CDATA section out.
TEST(XmlWriter, ATextThatBeginsWithTheMarkOfACdataSectionComesOutUnescaped) {
  EXPECT_EQ(Serialized(WithText("<![CDATA[<b> & 'c']]>")), "<a><![CDATA[<b> & 'c']]></a>\r\n");
  EXPECT_EQ(Parsed(Serialized(WithText("<![CDATA[<b> & 'c']]>")))->text, "<b> & 'c'");
}

TEST(XmlWriter, TheMarkOfACdataSectionCountsAtTheBeginningAndWholeOnly) {
  EXPECT_EQ(Serialized(WithText(" <![CDATA[x]]>")), "<a> &lt;![CDATA[x]]&gt;</a>\r\n");
  EXPECT_EQ(Serialized(WithText("<![CDATA")), "<a>&lt;![CDATA</a>\r\n");
  EXPECT_EQ(Serialized(WithAttribute("<![CDATA[x]]>")), "<a b='&lt;![CDATA[x]]&gt;'/>\r\n");
}

TEST(XmlWriter, LongTextsComeOutWhole) {
  // Past the writer's own buffer, with an escape at every place of it.
  for (size_t length : {4000U, 4095U, 4096U, 4097U, 9000U, 100000U}) {
    std::string text(length, 'x');
    text.back() = '<';
    EXPECT_EQ(Serialized(WithText(text)), "<a>" + text.substr(0, length - 1) + "&lt;</a>\r\n") << length;
  }
}

// Round trips.

class RandomTree {
 public:
  explicit RandomTree(unsigned seed) : random_(seed) {}

  element Make() {
    element root;
    Fill(root, 4);
    return root;
  }

 private:
  int Number(int below) { return static_cast<int>(random_() % static_cast<unsigned>(below)); }

  std::string Text(std::string_view alphabet, int mostly) {
    std::string text;
    const int length = Number(8) == 0 ? Number(200) : Number(mostly);
    for (int i = 0; i < length; ++i) text += alphabet[random_() % alphabet.size()];
    return text;
  }

  std::string Name() {
    std::string name("n");
    return name += Text("abcXYZ019-._:", 12);
  }

  void Fill(element& to, int depth) {
    static constexpr std::string_view kAny("ab01 \r\n\t<>&'\"![]-?/=;#\xC3\xA4\xFF\0x", 27);
    to.assign(Name());
    if (Number(2) == 0) to.text = ovk::string(Text(kAny, 24));
    for (int i = Number(5); i > 0; --i) to.attribute(Name()).value = ovk::string(Text(kAny, 24));
    for (int i = depth == 0 ? 0 : Number(4); i > 0; --i) Fill(to.append_child(""), depth - 1);
  }

  std::mt19937 random_;
};

TEST(XmlWriter, AnyTreeReadsBackEqualButForBlanksAtTheEndsOfTexts) {
  for (unsigned seed = 0; seed < 300; ++seed) {
    element original = RandomTree(seed).Make();
    const std::string document = Serialized(original);
    auto back = Parsed(document);
    ASSERT_TRUE(back) << document;
    ovk::xml::trim(*back);
    ovk::xml::trim(original);
    ASSERT_TRUE(SameTree(*back, original)) << document;
    ASSERT_EQ(Serialized(*back), Serialized(original));
  }
}

TEST(XmlWriter, WhatWasWrittenOnceComesOutTheSameEverAfter) {
  for (unsigned seed = 0; seed < 100; ++seed) {
    element tree = RandomTree(seed).Make();
    ovk::xml::trim(tree);
    const std::string first = Serialized(tree);
    auto again = Parsed(first);
    ASSERT_TRUE(again);
    ovk::xml::trim(*again);
    ASSERT_EQ(Serialized(*again), first);
  }
}

}  // namespace
