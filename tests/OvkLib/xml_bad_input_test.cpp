// Documents that nobody writes by accident: very deep, very long, very many. None may crash, none may take a
// time that grows with the square of its size.

#include <gtest/gtest.h>

#include <string>

#include "OvkLib/src/ovk_exception.h"
#include "OvkLib/src/ovk_xml.h"
#include "OvkLib/src/ovk_xml_reader.h"
#include "tests/OvkLib/xml_trees.h"

namespace {

using ovk::xml::element;
using xml_trees::Parsed;
using xml_trees::SameTree;
using xml_trees::Serialized;

// Deep enough that recursion would overflow any stack a test runs on.
constexpr int kDeep = 120'000;

std::string Repeated(std::string_view piece, size_t times) {
  std::string all;
  all.reserve(piece.size() * times);
  for (size_t i = 0; i < times; ++i) all += piece;
  return all;
}

std::string Many(size_t times, char byte) {
  std::string all;
  all.resize(times, byte);
  return all;
}

TEST(XmlBadInput, NothingButLessThanSigns) {
  EXPECT_FALSE(Parsed(Many(100'000'000, '<')));
}

TEST(XmlBadInput, NothingButOneByteOfAnyKind) {
  for (const char byte : std::string_view("a&;>'\"/ \0\xFF", 10)) {
    EXPECT_FALSE(Parsed(std::string(300'000, byte)));
    EXPECT_FALSE(Parsed("<a" + std::string(300'000, byte)));
    EXPECT_FALSE(Parsed("<a>" + std::string(300'000, byte)));
  }
}

TEST(XmlBadInput, ATreeOfAnyDepthIsReadTrimmedCopiedComparedWrittenAndDestroyed) {
  auto root = Parsed(Repeated("<a> ", kDeep) + Repeated("</a>", kDeep));
  ASSERT_TRUE(root);
  ovk::xml::trim(*root);
  const element copy = *root;
  EXPECT_TRUE(SameTree(copy, *root));
  // Without the indentation, which would make some gigabytes of it.
  EXPECT_EQ(Serialized(copy, -2 * kDeep),
            Repeated("<a>\r\n", kDeep - 1) + "<a/>\r\n" + Repeated("</a>\r\n", kDeep - 1));
}

TEST(XmlBadInput, ADeepTreeThatIsNotClosedIsDestroyed) {
  EXPECT_FALSE(Parsed(Repeated("<a>", kDeep)));
  EXPECT_FALSE(Parsed(Repeated("<a>", kDeep) + Repeated("</a>", kDeep - 2) + "</b>"));
}

TEST(XmlBadInput, ADeepTreeWithBroadLevelsIsDestroyed) {
  const std::string level = "<a><b/><c/>";
  EXPECT_TRUE(Parsed(Repeated(level, kDeep / 10) + Repeated("<d/></a>", kDeep / 10)));
}

TEST(XmlBadInput, AnAttributeOfFiftyMegabytes) {
  const std::string value = Many(50'000'000, 'x');
  const auto root = Parsed("<a b='" + value + "'/>");
  ASSERT_TRUE(root);
  EXPECT_EQ(root->attribute_or_empty("b").view(), value);
}

TEST(XmlBadInput, ATextOfFiftyMegabytes) {
  const std::string text = Many(50'000'000, 'x');
  auto root = Parsed("<a>" + text + "</a>");
  ASSERT_TRUE(root);
  ovk::xml::trim(*root);
  EXPECT_EQ(root->text.view(), text);
}

TEST(XmlBadInput, AHundredThousandReferencesInOneText) {
  const auto root = Parsed("<a>" + Repeated("&lt;", 50'000) + Repeated("& ", 50'000) + "</a>");
  ASSERT_TRUE(root);
  EXPECT_EQ(root->text.view(), std::string(50'000, '<') + Repeated("& ", 50'000));
}

TEST(XmlBadInput, AnUnendingReferenceIsAText) {
  const std::string reference = "&" + std::string(1'000'000, 'x');
  EXPECT_EQ(Parsed("<a>" + reference + "</a>")->text.view(), reference);
}

TEST(XmlBadInput, NamesOfAMegabyte) {
  const std::string name(1'000'000, 'n');
  const auto root = Parsed("<" + name + " " + name + "='1'></" + name + ">");
  ASSERT_TRUE(root);
  EXPECT_EQ(root->name.view(), name);
  EXPECT_EQ(root->get_int(name), 1);
}

TEST(XmlBadInput, FiftyThousandAttributes) {
  std::string document = "<a";
  for (int i = 0; i < 50'000; ++i) document.append(" ").append(xml_trees::Numbered(i)).append("=''");
  const auto root = Parsed(document + "/>");
  ASSERT_TRUE(root);
  EXPECT_EQ(root->attributes.count(), 50'000);
}

TEST(XmlBadInput, AHundredThousandChildren) {
  const auto root = Parsed("<a>" + Repeated("<b/>", 100'000) + "</a>");
  ASSERT_TRUE(root);
  EXPECT_EQ(root->children.count(), 100'000);
}

}  // namespace
