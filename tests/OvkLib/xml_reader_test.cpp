#include "OvkLib/src/ovk_xml_reader.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "tests/OvkLib/xml_trees.h"

namespace {

using ovk::xml::element;
using ovk::xml::observer;
using ovk::xml::parse;
using ovk::xml::parser;
using ovk::xml::tree_builder;
using xml_trees::Numbered;
using xml_trees::Parsed;
using xml_trees::Serialized;

bool IsRead(std::string_view document) {
  return Parsed(document).has_value();
}

std::string TextOf(std::string_view document) {
  const auto root = Parsed(document);
  return root ? std::string(root->text.view()) : "not read";
}

// The value of the attribute b of the root.
std::string ValueOf(std::string_view document) {
  const auto root = Parsed(document);
  return root ? std::string(root->attribute_or_empty("b").view()) : "not read";
}

// Which documents are read.

TEST(XmlReader, AnEmptyBufferIsNotRead) {
  EXPECT_FALSE(IsRead(""));
  element root;
  EXPECT_FALSE(parse(root, nullptr, 0));
}

TEST(XmlReader, ABufferOfBlanksIsNotRead) {
  EXPECT_FALSE(IsRead(" \t\r\n  "));
}

TEST(XmlReader, AnEmptyElementIsReadWithoutText) {
  const auto root = Parsed("<a/>");
  ASSERT_TRUE(root);
  EXPECT_EQ(root->name, "a");
  EXPECT_TRUE(root->text.empty());
  EXPECT_EQ(root->children.count(), 0);
  EXPECT_EQ(root->attributes.count(), 0);
}

TEST(XmlReader, WhatFollowsTheRootIsNotLookedAt) {
  EXPECT_TRUE(IsRead("<a/>garbage<<"));
  EXPECT_TRUE(IsRead("<a></a></b>"));
  EXPECT_TRUE(IsRead("<a></a><b>"));
  EXPECT_EQ(Serialized(*Parsed("<a/><b/>")), "<a/>\r\n");
}

TEST(XmlReader, ARootThatIsNotClosedIsNotRead) {
  EXPECT_FALSE(IsRead("<a>"));
  EXPECT_FALSE(IsRead("<a>text"));
  EXPECT_FALSE(IsRead("<a><b></b>"));
  EXPECT_FALSE(IsRead("<a"));
  EXPECT_FALSE(IsRead("<a b='1'/"));
}

TEST(XmlReader, AByteOrderMarkADeclarationADoctypeAndCommentsBeforeTheRootAreSkipped) {
  EXPECT_TRUE(IsRead("\xEF\xBB\xBF<a/>"));
  EXPECT_TRUE(IsRead("<?xml version='1.0' encoding=\"UTF-8\"?>\r\n<a/>"));
  EXPECT_TRUE(IsRead("<!DOCTYPE a SYSTEM 'a.dtd'><a/>"));
  EXPECT_TRUE(IsRead("<!-- one --><!-- <two/> --><a/>"));
  EXPECT_TRUE(IsRead("\xEF\xBB\xBF<?xml version='1.0'?><!DOCTYPE a><!-- c -->\n<a/>"));
}

// The rest of the subset is text before the root as long as nothing in it begins with "<" and a letter.
TEST(XmlReader, ADoctypeWithAnInternalSubsetEndsAtItsFirstGreaterThanSign) {
  EXPECT_TRUE(IsRead("<!DOCTYPE a [ <!ENTITY b 'c'> ]><a/>"));
  EXPECT_EQ(Serialized(*Parsed("<!DOCTYPE a [ <!ELEMENT a ANY> <r/> ]><a/>")), "<r/>\r\n");
}

TEST(XmlReader, AnyTextBeforeTheRootIsSkipped) {
  EXPECT_TRUE(IsRead("hello > & ' \" ] <a/>"));
}

TEST(XmlReader, AnEndTagWithAnotherNameIsNotRead) {
  EXPECT_FALSE(IsRead("<a></b>"));
  EXPECT_FALSE(IsRead("<a></A>"));
  EXPECT_FALSE(IsRead("<a></aa>"));
  EXPECT_FALSE(IsRead("<a><b></a></b>"));
}

TEST(XmlReader, AnEndTagAtDepthZeroIsNotRead) {
  EXPECT_FALSE(IsRead("</a><a/>"));
}

TEST(XmlReader, MalformedTagsAreNotRead) {
  EXPECT_FALSE(IsRead("<1a/>"));
  EXPECT_FALSE(IsRead("<\xC3\xA4/>"));
  EXPECT_FALSE(IsRead("<a\xC3\xA4/>"));
  EXPECT_FALSE(IsRead("<a><-/></a>"));
  EXPECT_FALSE(IsRead("<a$/>"));
  EXPECT_FALSE(IsRead("<a b/>"));
  EXPECT_FALSE(IsRead("<a b 'c'/>"));
  EXPECT_FALSE(IsRead("<a b=c/>"));
  EXPECT_FALSE(IsRead("<a <b/></a>"));
  EXPECT_FALSE(IsRead("<a/ >"));
  EXPECT_FALSE(IsRead("<a></a b='1'>"));
  EXPECT_FALSE(IsRead("<a></ a>"));
}

TEST(XmlReader, Utf16FailsAtItsSecondByte) {
  EXPECT_FALSE(IsRead(std::string_view("<\0a\0/\0>\0", 8)));
}

TEST(XmlReader, WhatOtherReadersRefuseIsRead) {
  EXPECT_EQ(TextOf("<a>1 > 0 & x</a>"), "1 > 0 & x");
  EXPECT_EQ(ValueOf("<a b='<'/>"), "<");
  EXPECT_EQ(TextOf("<a><!-- -- x -->y</a>"), "y");
  EXPECT_EQ(ValueOf("<a c='1'b='2'/>"), "2");
}

TEST(XmlReader, BytesAbove127GoThroughUnchanged) {
  EXPECT_EQ(TextOf("<a>\xC3\xA4\xFF</a>"), "\xC3\xA4\xFF");
  EXPECT_EQ(ValueOf("<a b='\xE2\x82\xAC'/>"), "\xE2\x82\xAC");
}

TEST(XmlReader, ZeroBytesAreCharacters) {
  EXPECT_EQ(TextOf(std::string_view("<a>x\0y</a>", 10)), std::string("x\0y", 3));
}

TEST(XmlReader, AFailureLeavesTheCallersElementAsItWas) {
  element root("kept");
  root.text.append(std::string_view("text"));
  const std::string_view bad = "<a><b/></c>";
  EXPECT_FALSE(parse(root, bad.data(), bad.size()));
  EXPECT_EQ(Serialized(root), "<kept>text</kept>\r\n");
}

TEST(XmlReader, ASuccessReplacesAllThatTheElementHeld) {
  element root("old");
  root.append_child("gone");
  root.attribute("gone");
  ASSERT_TRUE(parse(root, "<a/>", 4));
  EXPECT_EQ(Serialized(root), "<a/>\r\n");
}

TEST(XmlReader, TheLengthCountsAndNotATerminator) {
  element root;
  EXPECT_FALSE(parse(root, "<a/>", 3));
  EXPECT_TRUE(parse(root, "<a/>", 4));
}

// Tags and attributes.

TEST(XmlReader, OfTwoEqualAttributesTheLastOneWins) {
  const auto root = Parsed("<a b='1' b='2'/>");
  ASSERT_TRUE(root);
  ASSERT_EQ(root->attributes.count(), 1);
  EXPECT_EQ(root->attributes[0].name, "b");
  EXPECT_EQ(root->attributes[0].value, "2");
}

TEST(XmlReader, OfTwoEqualAttributesAmongHundredsTheLastOneWinsAtThePlaceOfTheFirst) {
  std::string document = "<a";
  for (int i = 0; i < 300; ++i)
    document.append(" ").append(Numbered(i % 200)).append("='" + std::to_string(i) + "'");
  const auto root = Parsed(document + "><b n0='own'/></a>");
  ASSERT_TRUE(root);
  ASSERT_EQ(root->attributes.count(), 200);
  for (int i = 0; i < 200; ++i) {
    EXPECT_EQ(root->attributes[i].name.view(), Numbered(i));
    EXPECT_EQ(root->attributes[i].value.view(), std::to_string(i < 100 ? i + 200 : i));
  }
  EXPECT_EQ(root->children[0]->attribute_or_empty("n0"), "own");
}

TEST(XmlReader, AttributesKeepTheirOrderAndMayStandInEitherQuote) {
  const auto root = Parsed("<a z = '1'\r\n\ty\t=\n\"it's\"  x='say \"x\"' ></a >");
  ASSERT_TRUE(root);
  EXPECT_EQ(Serialized(*root), "<a z='1' y='it&apos;s' x='say &quot;x&quot;'/>\r\n");
}

TEST(XmlReader, NamesMayHoldDigitsHyphensDotsColonsAndUnderscores) {
  const auto root = Parsed("<_a-1.b:c :d_2='x'/>");
  ASSERT_TRUE(root);
  EXPECT_EQ(root->name, "_a-1.b:c");
  EXPECT_EQ(root->attribute_or_empty(":d_2"), "x");
}

TEST(XmlReader, ChildrenStandInDocumentOrder) {
  const auto root = Parsed("<a><b/><c><d/></c><b/></a>");
  ASSERT_TRUE(root);
  EXPECT_EQ(Serialized(*root), "<a>\r\n  <b/>\r\n  <c>\r\n    <d/>\r\n  </c>\r\n  <b/>\r\n</a>\r\n");
}

// Character data.

TEST(XmlReader, TheTextPiecesAroundChildrenJoin) {
  const auto root = Parsed("<a>x<b/>y</a>");
  ASSERT_TRUE(root);
  EXPECT_EQ(root->text, "xy");
  EXPECT_EQ(root->children.count(), 1);
  EXPECT_TRUE(root->children[0]->text.empty());
}

TEST(XmlReader, BlanksAreKept) {
  EXPECT_EQ(TextOf("<a>\r\n  x\t</a>"), "\r\n  x\t");
}

TEST(XmlReader, CommentsInstructionsAndDeclarationsInTheContentAreSkipped) {
  EXPECT_EQ(TextOf("<a>1<!-- <b> & -->2<?php > ?>3<!ELEMENT x>4</a>"), "1234");
}

// The hyphen or question mark that does not end the construct is eaten with the byte behind it, not looked at
// again.
TEST(XmlReader, ACommentDoesNotEndAtThreeHyphensNorAnInstructionAtTwoQuestionMarks) {
  EXPECT_FALSE(IsRead("<a><!-- x ---></a>"));
  EXPECT_FALSE(IsRead("<a><? x ?\?></a>"));
  EXPECT_FALSE(IsRead("<!-- x ---><a/>"));
  EXPECT_FALSE(IsRead("<? x ?\?><a/>"));
  EXPECT_EQ(TextOf("<a><!-- x ---> -->y</a>"), "y");
  EXPECT_EQ(TextOf("<a><? x ?\?> ?>y</a>"), "y");
}

// Behind two hyphens and one byte more, one hyphen is still counted: one more and ">" end the comment.
TEST(XmlReader, ACommentMayEndAtOneHyphenSoonAfterTwo) {
  EXPECT_EQ(TextOf("<a><!-- --x->y</a>"), "y");
  EXPECT_TRUE(IsRead("<!-- --x-><a/>"));
}

TEST(XmlReader, ACdataSectionIsTextAndNoMarkup) {
  const auto root = Parsed("<a><![CDATA[<b>]]></a>");
  ASSERT_TRUE(root);
  EXPECT_EQ(root->text, "<b>");
  EXPECT_EQ(root->children.count(), 0);
}

TEST(XmlReader, ReferencesInACdataSectionStayAsTheyAre) {
  EXPECT_EQ(TextOf("<a><![CDATA[&amp;]]></a>"), "&amp;");
}

TEST(XmlReader, BracketsInACdataSectionAreText) {
  EXPECT_EQ(TextOf("<a><![CDATA[x]y]]z] ]]></a>"), "x]y]]z] ");
}

TEST(XmlReader, ThreeBracketsDoNotEndACdataSection) {
  EXPECT_FALSE(IsRead("<a><![CDATA[x]]]></a>"));
  EXPECT_EQ(TextOf("<a><![CDATA[x]]]>y]]></a>"), "x]]]>y");
}

TEST(XmlReader, AMisspelledCdataSectionIsADeclaration) {
  EXPECT_EQ(TextOf("<a>1<![CDATO[x]]>2</a>"), "12");
  EXPECT_EQ(TextOf("<a>1<![cdata[x]]>2</a>"), "12");
}

// References.

TEST(XmlReader, ReferencesInTextAreResolvedAndUnknownOnesStay) {
  EXPECT_EQ(TextOf("<a>&#65;&#x42;&amp;&bogus;</a>"), "AB&&bogus;");
}

TEST(XmlReader, ReferencesInAnAttributeAreResolved) {
  EXPECT_EQ(ValueOf("<a b='&lt;'/>"), "<");
}

TEST(XmlReader, TheFivePredefinedReferencesAreKnownInBothPlaces) {
  EXPECT_EQ(TextOf("<a>&amp;&apos;&quot;&lt;&gt;</a>"), "&'\"<>");
  EXPECT_EQ(ValueOf("<a b='&amp;&apos;&quot;&lt;&gt;'/>"), "&'\"<>");
  EXPECT_EQ(ValueOf("<a b=\"&amp;&apos;&quot;&lt;&gt;\"/>"), "&'\"<>");
}

TEST(XmlReader, PredefinedReferencesAreExactInCase) {
  EXPECT_EQ(TextOf("<a>&AMP;&Lt;&#X41;</a>"), "&AMP;&Lt;&#X41;");
}

TEST(XmlReader, WhatIsNoReferenceStaysAsWritten) {
  EXPECT_EQ(TextOf("<a>a & b</a>"), "a & b");
  EXPECT_EQ(TextOf("<a>&&amp;</a>"), "&&");
  EXPECT_EQ(TextOf("<a>&amp &#65 &#x41 &# &#x</a>"), "&amp &#65 &#x41 &# &#x");
  EXPECT_EQ(TextOf("<a>&1;&-;&;&#;&#a;</a>"), "&1;&-;&;&#;&#a;");
  EXPECT_EQ(TextOf("<a>&amp<b/></a>"), "&amp");
  EXPECT_EQ(TextOf("<a>x&</a>"), "x&");
  EXPECT_EQ(ValueOf("<a b='&'/>"), "&");
  EXPECT_EQ(ValueOf("<a b='&amp'/>"), "&amp");
  EXPECT_EQ(ValueOf("<a b='?x=1&y=2&'/>"), "?x=1&y=2&");
}

TEST(XmlReader, AReplacementIsNotReadAgain) {
  EXPECT_EQ(TextOf("<a>&amp;lt;&#38;amp;</a>"), "&lt;&amp;");
  EXPECT_EQ(TextOf("<a>&lt;b/&gt;</a>"), "<b/>");
}

TEST(XmlReader, NumericReferencesBecomeUtf8) {
  EXPECT_EQ(TextOf("<a>&#0;</a>"), std::string(1, '\0'));
  EXPECT_EQ(TextOf("<a>&#127;</a>"), "\x7F");
  EXPECT_EQ(TextOf("<a>&#128;</a>"), "\xC2\x80");
  EXPECT_EQ(TextOf("<a>&#xE4;</a>"), "\xC3\xA4");
  EXPECT_EQ(TextOf("<a>&#2047;</a>"), "\xDF\xBF");
  EXPECT_EQ(TextOf("<a>&#2048;</a>"), "\xE0\xA0\x80");
  EXPECT_EQ(TextOf("<a>&#x20AC;&#x20ac;</a>"), "\xE2\x82\xAC\xE2\x82\xAC");
  EXPECT_EQ(TextOf("<a>&#65535;</a>"), "\xEF\xBF\xBF");
  EXPECT_EQ(TextOf("<a>&#65536;</a>"), "\xF0\x90\x80\x80");
  EXPECT_EQ(TextOf("<a>&#x1F41F;</a>"), "\xF0\x9F\x90\x9F");
}

// Odd but so: no number is out of range. The four bytes simply take its lower bits.
TEST(XmlReader, NumericReferencesBeyondUnicodeAreEncodedWithoutACheck) {
  EXPECT_EQ(TextOf("<a>&#xD800;</a>"), "\xED\xA0\x80");
  EXPECT_EQ(TextOf("<a>&#x110000;</a>"), "\xF4\x90\x80\x80");
  EXPECT_EQ(TextOf("<a>&#xFFFFFFFF;</a>"), "\xF7\xBF\xBF\xBF");
}

TEST(XmlReader, AHexadecimalReferenceWithoutDigitsIsAZeroByte) {
  EXPECT_EQ(TextOf("<a>x&#x;y</a>"), std::string("x\0y", 3));
}

TEST(XmlReader, ANumericReferenceThatOverflowsStaysAsWritten) {
  EXPECT_EQ(TextOf("<a>&#4294967296;</a>"), "&#4294967296;");
  EXPECT_EQ(TextOf("<a>&#x100000000;</a>"), "&#x100000000;");
}

// Odd but so: only a wrap below the number so far is noticed. 5000000000 wraps to 705032704, which is more
// than 500000000, and what is left of that in four bytes is this.
TEST(XmlReader, ANumericReferenceThatWrapsUnnoticedIsEncoded) {
  EXPECT_EQ(TextOf("<a>&#5000000000;</a>"), "\xF1\x9F\x88\x80");
  EXPECT_EQ(TextOf("<a>&#x1FFFFFFFF;</a>"), "\xF7\xBF\xBF\xBF");
}

// Knows the reference &fish; and the number 7, and nothing else.
class Resolver : public xml_trees::Recorder {
 public:
  bool resolve_entity(const ovk::string& name, ovk::string& out) override {
    asked.emplace_back(name.view());
    out.append(std::string_view("trout"));
    return name == "&fish;" || name == "&amp;";
  }
  bool resolve_char(uint32_t code, ovk::string& out) override {
    asked.push_back(std::to_string(code));
    out.append(std::string_view("bell"));
    return code == 7;
  }

  std::vector<std::string> asked;
};

TEST(XmlReader, AnObserverMayResolveReferencesBeforeTheParser) {
  Resolver resolver;
  parser<observer> reader(resolver);
  reader.run("<a b='&fish;&amp;&lt;&bogus;&#7;&#65;'/>");
  EXPECT_EQ(resolver.told, "start a\nattribute b=trouttrout<&bogus;bellA\nclose \n");
  EXPECT_EQ(resolver.asked, (std::vector<std::string>{"&fish;", "&amp;", "&lt;", "&bogus;", "7", "65"}));
}

TEST(XmlReader, AnObserverIsToldEverythingInDocumentOrder) {
  xml_trees::Recorder recorder;
  parser<observer> reader(recorder);
  reader.run("<?x?><a b='1'>t<c/><![CDATA[u]]>&lt;</a>v");
  EXPECT_EQ(recorder.told, "start a\nattribute b=1\nchar t\nstart c\nclose \nchar u\nchar <\nend a\n");
  EXPECT_EQ(reader.state, ovk::xml::states::done);
}

// The tree builder, told by hand.

TEST(TreeBuilder, TheRootIsThereWhenItHasClosedAndNotBefore) {
  tree_builder builder;
  EXPECT_TRUE(builder.on_start_tag("a"));
  EXPECT_TRUE(builder.on_start_tag("b"));
  EXPECT_EQ(builder.open.count(), 2);
  EXPECT_TRUE(builder.on_close_empty());
  EXPECT_EQ(builder.root, nullptr);
  EXPECT_TRUE(builder.on_end_tag("a"));
  ASSERT_NE(builder.root, nullptr);
  EXPECT_TRUE(builder.open.empty());
  EXPECT_EQ(Serialized(*builder.root), "<a>\r\n  <b/>\r\n</a>\r\n");
}

TEST(TreeBuilder, RefusesWhatStandsOutsideOfAnElement) {
  tree_builder builder;
  EXPECT_FALSE(builder.on_close_empty());
  EXPECT_FALSE(builder.on_end_tag("a"));
  EXPECT_FALSE(builder.on_attribute("a", "1"));
  EXPECT_FALSE(builder.on_char('x'));
}

TEST(TreeBuilder, RefusesAnEndTagWithAnotherName) {
  tree_builder builder;
  builder.on_start_tag("a");
  EXPECT_FALSE(builder.on_end_tag("b"));
  EXPECT_EQ(builder.open.count(), 1);
}

TEST(TreeBuilder, ClosesAnEmptyElementWithoutALookAtItsName) {
  tree_builder builder;
  builder.on_start_tag("");
  EXPECT_TRUE(builder.on_close_empty());
}

TEST(TreeBuilder, RefusesASecondRoot) {
  tree_builder builder;
  builder.on_start_tag("a");
  builder.on_close_empty();
  EXPECT_TRUE(builder.on_start_tag("b"));
  EXPECT_FALSE(builder.on_close_empty());
  EXPECT_FALSE(builder.on_end_tag("b"));
  EXPECT_EQ(builder.root->name, "a");
}

TEST(TreeBuilder, ReplacesTheValueOfAnAttributeItHas) {
  tree_builder builder;
  builder.on_start_tag("a");
  EXPECT_TRUE(builder.on_attribute("b", "1"));
  EXPECT_TRUE(builder.on_attribute("c", "a value of more than sixteen bytes"));
  EXPECT_TRUE(builder.on_attribute("b", "another value of more than sixteen bytes"));
  EXPECT_TRUE(builder.on_attribute("c", "3"));
  builder.on_close_empty();
  EXPECT_EQ(Serialized(*builder.root), "<a b='another value of more than sixteen bytes' c='3'/>\r\n");
}

// A parser never does this: attributes come before the content. The index of many attributes must not mind.
TEST(TreeBuilder, TakesFurtherAttributesOfAnElementBehindItsChildren) {
  tree_builder builder;
  builder.on_start_tag("a");
  for (int i = 0; i < 40; ++i) builder.add_attribute(Numbered(i), "1");
  builder.on_start_tag("b");
  for (int i = 20; i < 60; ++i) builder.add_attribute(Numbered(i), "2");
  builder.on_close_empty();
  for (int i = 30; i < 50; ++i) builder.add_attribute(Numbered(i), "3");
  builder.on_end_tag("a");
  const element& a = *builder.root;
  EXPECT_EQ(a.attributes.count(), 50);
  EXPECT_EQ(a.attribute_or_empty("n29"), "1");
  EXPECT_EQ(a.attribute_or_empty("n30"), "3");
  EXPECT_EQ(a.children[0]->attributes.count(), 40);
}

TEST(TreeBuilder, ResetForgetsTheRootAndAllThatIsOpen) {
  tree_builder builder;
  builder.on_start_tag("a");
  builder.on_close_empty();
  builder.on_start_tag("b");
  builder.reset();
  EXPECT_EQ(builder.root, nullptr);
  EXPECT_TRUE(builder.open.empty());
  builder.on_start_tag("c");
  EXPECT_TRUE(builder.on_close_empty());
  EXPECT_EQ(builder.root->name, "c");
}

TEST(TreeBuilder, LeavesReferencesToTheParser) {
  tree_builder builder;
  ovk::string out;
  EXPECT_FALSE(builder.resolve_entity("&amp;", out));
  EXPECT_FALSE(builder.resolve_char(65, out));
  EXPECT_TRUE(out.empty());
}

}  // namespace
