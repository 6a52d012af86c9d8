#include "platform/qt/desktop/file_dialogs.h"

#include <gtest/gtest.h>

#include <QDir>

namespace {

TEST(FileDialogs, PatternsDoNotTellCapitalsFromSmallLetters) {
  EXPECT_EQ(qt::FilterText({u"XML Program", u"*.XML"}), "XML Program (*.[Xx][Mm][Ll])");
  EXPECT_EQ(qt::FilterText({u"Any", u"a?1.t*"}), "Any ([Aa]?1.[Tt]*)");
  for (const char* name : {"tank.xml", "TANK.XML", "Tank.Xml"}) {
    EXPECT_TRUE(QDir::match(QStringLiteral("*.[Xx][Mm][Ll]"), QString::fromUtf8(name))) << name;
  }
}

TEST(FileDialogs, AllFilesAreThoseWithoutADotToo) {
  EXPECT_EQ(qt::FilterText(app::kAllFilesFilter), "All Files (*)");
}

}  // namespace
