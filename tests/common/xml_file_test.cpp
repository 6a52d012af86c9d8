#include "common/xml_file.h"

#include <gtest/gtest.h>

#include <string>

#include "common/files.h"
#include "common/log.h"
#include "tests/support/temporary_folder.h"

namespace {

using ovk::xml::element;

std::string Written(const element& root) {
  ovk::string text;
  ovk::xml::serialize(text, root, 0);
  return std::string(text.view());
}

element SomeTree() {
  element root("modelist");
  root.attribute("version").value = "a 'quoted' <value>";
  element& mode = root.child("mode");
  mode.text = "Sonne & Mond";
  root.append_child("mode").child("step").attribute("time").value = "08:00";
  return root;
}

class XmlFile : public testing::Test {
 protected:
  void SetUp() override { statusLog.Drain(); }
  const TemporaryFolder folder_;
};

TEST_F(XmlFile, ATreeThatIsSavedAndLoadedIsTheSame) {
  const element saved = SomeTree();
  ASSERT_TRUE(ovk::xml::save(folder_ / "a.xml", saved));
  element loaded;
  ASSERT_TRUE(ovk::xml::load(folder_ / "a.xml", loaded));
  EXPECT_EQ(Written(loaded), Written(saved));
}

TEST_F(XmlFile, BlanksAtTheEndsOfTextsAreLost) {
  element saved("a");
  saved.text = " \r\n x y \t";
  ASSERT_TRUE(ovk::xml::save(folder_ / "a.xml", saved));
  element loaded;
  ASSERT_TRUE(ovk::xml::load(folder_ / "a.xml", loaded));
  EXPECT_EQ(loaded.text.view(), "x y");
}

TEST_F(XmlFile, SavingReplacesTheFile) {
  ASSERT_TRUE(ovk::xml::save(folder_ / "a.xml", SomeTree()));
  ASSERT_TRUE(ovk::xml::save(folder_ / "a.xml", element("b")));
  std::string bytes;
  ASSERT_TRUE(ReadFileBytes(folder_ / "a.xml", bytes));
  EXPECT_EQ(bytes, "<b/>\r\n");
}

TEST_F(XmlFile, AFailedLoadLeavesTheTreeAsItWas) {
  ASSERT_TRUE(WriteFileBytes(folder_ / "bad.xml", "<a></b>"));
  element tree("kept");
  EXPECT_FALSE(ovk::xml::load(folder_ / "absent.xml", tree));
  EXPECT_FALSE(ovk::xml::load(folder_ / "bad.xml", tree));
  EXPECT_FALSE(ovk::xml::load(folder_.path(), tree));
  EXPECT_EQ(tree.name.view(), "kept");
}

// A tree has many times the size of its file.
TEST_F(XmlFile, AFileOfImmoderateLengthIsNotLoaded) {
  std::string bytes = "<a>";
  bytes.resize(ovk::xml::kMostXmlBytes - 4, ' ');
  ASSERT_TRUE(WriteFileBytes(folder_ / "a.xml", bytes + "</a>"));
  ASSERT_TRUE(WriteFileBytes(folder_ / "longer.xml", bytes + " </a>"));
  element tree("kept");
  EXPECT_FALSE(ovk::xml::load(folder_ / "longer.xml", tree));
  EXPECT_EQ(tree.name.view(), "kept");
  EXPECT_TRUE(ovk::xml::load(folder_ / "a.xml", tree));
  EXPECT_EQ(tree.name.view(), "a");
}

TEST_F(XmlFile, WhatCouldNotBeLoadedAgainIsNotSaved) {
  ASSERT_TRUE(ovk::xml::save(folder_ / "a.xml", element("kept")));
  element tree("a");
  const std::string name(ovk::xml::kMostXmlBytes, 'b');
  tree.append_child(name);
  EXPECT_FALSE(ovk::xml::save(folder_ / "a.xml", tree));
  element loaded("");
  ASSERT_TRUE(ovk::xml::load(folder_ / "a.xml", loaded));
  EXPECT_EQ(loaded.name.view(), "kept");
}

TEST_F(XmlFile, AFailedSaveIsLogged) {
  EXPECT_FALSE(ovk::xml::save(folder_ / "absent" / "a.xml", SomeTree()));
  std::string lines;
  statusLog.textHandler = [&lines](const std::string& text) { lines += text; };
  statusLog.Drain();
  statusLog.textHandler = nullptr;
  EXPECT_TRUE(lines.starts_with("Error creating file "));
}

}  // namespace
