#include "OvkLib/src/ovk_xml.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "tests/OvkLib/xml_trees.h"

namespace {

using ovk::xml::element;
using xml_trees::Parsed;
using xml_trees::SameTree;
using xml_trees::Serialized;

element Tree(std::string_view document) {
  return Parsed(document).value_or(element("not read"));
}

// Attributes.

TEST(XmlTree, AskingForAnAttributeTwiceGivesOneAttribute) {
  element a("a");
  a.attribute("x").value.append(std::string_view("1"));
  EXPECT_EQ(a.attribute("x").value, "1");
  EXPECT_EQ(a.attributes.count(), 1);
}

TEST(XmlTree, ANewAttributeIsEmptyAndStandsBehindTheOthers) {
  element a = Tree("<a x='1'/>");
  EXPECT_TRUE(a.attribute("y").value.empty());
  a.attribute("y").value = "2";
  EXPECT_EQ(Serialized(a), "<a x='1' y='2'/>\r\n");
}

TEST(XmlTree, AnAttributeIsFoundByItsExactName) {
  const element a = Tree("<a x='1' xy='2' y=''/>");
  EXPECT_EQ(a.find_attribute("x"), 0);
  EXPECT_EQ(a.find_attribute("xy"), 1);
  EXPECT_EQ(a.find_attribute("y"), 2);
  EXPECT_EQ(a.find_attribute("X"), -1);
  EXPECT_EQ(a.find_attribute(""), -1);
}

TEST(XmlTree, AnAbsentAttributeReadsAsEmpty) {
  const element a = Tree("<a x='1'/>");
  EXPECT_EQ(a.attribute_or_empty("x"), "1");
  EXPECT_EQ(a.attribute_or_empty("y"), "");
}

struct Number {
  const char* text;
  int32_t number;
};

void PrintTo(const Number& number, std::ostream* out) {
  *out << "'" << number.text << "'";
}

class GetInt : public testing::TestWithParam<Number> {};

TEST_P(GetInt, ReadsADecimalNumber) {
  element a("a");
  a.attribute("n").value = GetParam().text;
  EXPECT_EQ(a.get_int("n"), GetParam().number);
}

constexpr int32_t kLeast = -2147483647 - 1;
constexpr int32_t kMost = 2147483647;

INSTANTIATE_TEST_SUITE_P(
    XmlTree, GetInt,
    testing::Values(Number{"5", 5}, Number{"-5", -5}, Number{"+5", 5}, Number{"007", 7}, Number{"12.5", 12},
                    Number{"-12.5", -12}, Number{"12abc", 12}, Number{"x", 0}, Number{"", 0}, Number{"-", 0},
                    Number{"--5", 0}, Number{"-+5", 0}, Number{"- 5", 0}, Number{" 5", 0}, Number{"-0", 0},
                    Number{"2147483647", kMost}, Number{"2147483648", kMost}, Number{"4294967295", kMost},
                    Number{"99999999999", kMost}, Number{"-2147483647", -kMost},
                    Number{"-2147483648", kLeast}, Number{"-2147483649", kLeast},
                    Number{"-99999999999", kLeast},
                    // Odd but so: it wraps past 32 bits to 705032704, which goes unnoticed.
                    Number{"5000000000", 705032704}, Number{"-5000000000", -705032704}));

TEST(XmlTree, GetIntOfAnAbsentAttributeIsZero) {
  EXPECT_EQ(element("a").get_int("n"), 0);
}

// Children.

TEST(XmlTree, ChildrenAreFoundOneAfterTheOther) {
  const element a = Tree("<a><b/><c/><b/></a>");
  EXPECT_EQ(a.find_next_child("b", -1), 0);
  EXPECT_EQ(a.find_next_child("b", 0), 2);
  EXPECT_EQ(a.find_next_child("b", 2), -1);
  EXPECT_EQ(a.find_next_child("c", -1), 1);
  EXPECT_EQ(a.find_next_child("d", -1), -1);
  EXPECT_EQ(a.find_next_child("b", 100), -1);
}

TEST(XmlTree, AChildIsTheFirstWithItsTagOrANewOne) {
  element a = Tree("<a><b x='1'/><b x='2'/></a>");
  EXPECT_EQ(a.child("b").attribute_or_empty("x"), "1");
  a.child("c").text = "new";
  EXPECT_EQ(Serialized(a), "<a>\r\n  <b x='1'/>\r\n  <b x='2'/>\r\n  <c>new</c>\r\n</a>\r\n");
}

TEST(XmlTree, AChildIsFoundByItsTagAndId) {
  element a = Tree("<a><b/><c id='1'/><b id='1' x='first'/><b id='1'/><b id=''/></a>");
  ASSERT_NE(a.find_child_by_id("b", "1"), nullptr);
  EXPECT_EQ(a.find_child_by_id("b", "1")->attribute_or_empty("x"), "first");
  EXPECT_EQ(a.find_child_by_id("b", "2"), nullptr);
  EXPECT_EQ(a.find_child_by_id("d", "1"), nullptr);
  // The first one has no id, which is not the same as an empty one.
  EXPECT_EQ(a.find_child_by_id("b", ""), a.children[4].get());
  EXPECT_EQ(std::as_const(a).find_child_by_id("c", "1"), a.children[1].get());
}

TEST(XmlTree, AppendChildAddsOneWhetherOrNotTheTagExists) {
  element a("a");
  a.append_child("b");
  a.append_child("b").text = "x";
  EXPECT_EQ(Serialized(a), "<a>\r\n  <b/>\r\n  <b>x</b>\r\n</a>\r\n");
}

TEST(XmlTree, AddChildTakesTheContentsOfADetachedElement) {
  element a("a");
  element b = Tree("<b x='1'>t<c/></b>");
  const element* c = b.children[0].get();
  const element& added = a.add_child(std::move(b));
  EXPECT_EQ(Serialized(a), "<a>\r\n  <b x='1'>\r\nt    <c/>\r\n  </b>\r\n</a>\r\n");
  EXPECT_EQ(added.children[0].get(), c);
  EXPECT_EQ(Serialized(b), "</>\r\n");  // NOLINT(bugprone-use-after-move): told to be left empty
}

TEST(XmlTree, APointerToAnElementStaysGoodWhileSiblingsAreAdded) {
  element a("a");
  element* first = &a.append_child("b");
  for (int i = 0; i < 1000; ++i) a.append_child("c");
  first->text = "still here";
  EXPECT_EQ(a.children[0].get(), first);
  EXPECT_EQ(a.child("b").text, "still here");
}

TEST(XmlTree, AssignSetsTheTag) {
  element a = Tree("<a x='1'/>");
  a.assign("a_longer_tag_than_before");
  EXPECT_EQ(Serialized(a), "<a_longer_tag_than_before x='1'/>\r\n");
}

// Whole trees.

constexpr std::string_view kFamily =
    "<a x='1' y='a value of more than sixteen bytes'>a text of more than sixteen bytes<b><c "
    "z='2'/></b><b/></a>";

TEST(XmlTree, ACopyIsEqualAndIndependent) {
  const element original = Tree(kFamily);
  const std::string before = Serialized(original);
  element copy = original;
  EXPECT_TRUE(SameTree(copy, original));
  copy.children[0]->children[0]->attribute("z").value = "changed";
  copy.attributes[1].value.append(std::string_view(" and more"));
  copy.text.clear();
  copy.append_child("d");
  EXPECT_EQ(Serialized(original), before);
  EXPECT_FALSE(SameTree(copy, original));
}

TEST(XmlTree, ACopyOutlivesTheOriginal) {
  element copy;
  {
    const element original = Tree(kFamily);
    copy = original;
  }
  EXPECT_TRUE(SameTree(copy, Tree(kFamily)));
}

TEST(XmlTree, AssigningAnElementItsOwnDescendantKeepsTheDescendant) {
  element a = Tree(kFamily);
  a = element(*a.children[0]);
  EXPECT_EQ(Serialized(a), "<b>\r\n  <c z='2'/>\r\n</b>\r\n");
}

TEST(XmlTree, AnElementAssignedToItselfStaysAsItIs) {
  element a = Tree(kFamily);
  const element& same = a;
  a = same;
  EXPECT_TRUE(SameTree(a, Tree(kFamily)));
}

TEST(XmlTree, SwappingExchangesContentsAndLeavesTheSubtreesWhereTheyAre) {
  element a = Tree(kFamily);
  element b = Tree("<z><y/></z>");
  const element* below = a.children[0].get();
  a.swap(b);
  EXPECT_TRUE(SameTree(b, Tree(kFamily)));
  EXPECT_EQ(b.children[0].get(), below);
  EXPECT_EQ(Serialized(a), "<z>\r\n  <y/>\r\n</z>\r\n");
}

TEST(XmlTree, MovingLeavesTheSubtreeWhereItIs) {
  element a = Tree(kFamily);
  const element* below = a.children[0].get();
  const element b = std::move(a);
  EXPECT_EQ(b.children[0].get(), below);
}

TEST(XmlTree, PartsOfAParsedTreeOutliveTheRest) {
  element part;
  {
    element a = Tree(kFamily);
    part.swap(*a.children[0]);
  }
  EXPECT_EQ(Serialized(part), "<b>\r\n  <c z='2'/>\r\n</b>\r\n");
}

// Trimming.

TEST(XmlTree, TrimTakesBlanksFromBothEndsOfEveryText) {
  element a = Tree("<a> \t\r\n\v\fx y\v\f\n <b>\r\n z\r\n</b>  </a>");
  ovk::xml::trim(a);
  EXPECT_EQ(a.text, "x y");
  EXPECT_EQ(a.children[0]->text, "z");
}

TEST(XmlTree, TrimMakesATextOfBlanksEmpty) {
  element a = Tree("<a>\r\n  <b>    </b>\r\n</a>");
  ovk::xml::trim(a);
  EXPECT_TRUE(a.text.empty());
  EXPECT_TRUE(a.children[0]->text.empty());
}

TEST(XmlTree, TrimLeavesTagsAndAttributesAlone) {
  element a = Tree("<a x=' 1 '> t </a>");
  ovk::xml::trim(a);
  EXPECT_EQ(Serialized(a), "<a x=' 1 '>t</a>\r\n");
}

// A no-break space in UTF-8, or in code page 1252: both are blanks to some locales' isspace.
TEST(XmlTree, TrimKnowsNoBlanksAbove127) {
  element a = Tree("<a> \xC2\xA0x\xA0 </a>");
  ovk::xml::trim(a);
  EXPECT_EQ(a.text, "\xC2\xA0x\xA0");
}

TEST(XmlTree, TrimmingACopyLeavesTheOriginal) {
  const element a = Tree("<a>  a text of more than sixteen bytes  </a>");
  element copy = a;
  ovk::xml::trim(copy);
  EXPECT_EQ(copy.text, "a text of more than sixteen bytes");
  EXPECT_EQ(a.text, "  a text of more than sixteen bytes  ");
}

}  // namespace
