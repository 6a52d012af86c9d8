// The document as a whole.

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>

#include "program/builtin_modes.h"
#include "program/program.h"
#include "tests/program/program_fixture.h"

namespace program_test {
namespace {

ModeListView DocumentOfModes(std::initializer_list<const char*> names) {
  ModeListView document;
  for (const char* name : names) document.modes.emplace_back().name = name;
  return document;
}

TEST(TheCurrentMode, IsTheOneThatTheDocumentNames) {
  ModeListView document = DocumentOfModes({"A", "B"});
  const ModeListView& same = document;
  for (const int index : {0, 1}) {
    document.currentMode = index;
    const Mode* mode = &document.modes[static_cast<std::size_t>(index)];
    EXPECT_EQ(FindCurrentMode(document), mode);
    EXPECT_EQ(FindCurrentMode(same), mode);
    EXPECT_EQ(&CurrentMode(document), mode);
    EXPECT_EQ(&CurrentMode(same), mode);
  }
}

TEST(TheCurrentMode, IsNoneForAnIndexThatIsNobodys) {
  ModeListView document = DocumentOfModes({"A", "B"});
  for (const int stale : {-1, 2, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
    document.currentMode = stale;
    EXPECT_EQ(FindCurrentMode(document), nullptr) << stale;
    EXPECT_THROW(CurrentMode(document), std::out_of_range) << stale;
  }
  ModeListView empty;
  EXPECT_EQ(FindCurrentMode(empty), nullptr);
}

TEST(RemovingTheCurrentMode, LastOfTwoMovesToTheOneThatIsLeft) {
  ModeListView document = DocumentOfModes({"A", "B"});
  document.currentMode = 1;
  EXPECT_TRUE(RemoveCurrentMode(document));
  ASSERT_EQ(document.modes.size(), 1U);
  EXPECT_EQ(document.modes[0].name, "A");
  EXPECT_EQ(document.currentMode, 0);
}

TEST(RemovingTheCurrentMode, OnlyOneStays) {
  ModeListView document = DocumentOfModes({"A"});
  const ModeListView before = document;
  EXPECT_FALSE(RemoveCurrentMode(document));
  EXPECT_EQ(document, before);
  EXPECT_EQ(document.currentMode, 0);
}

TEST(RemovingTheCurrentMode, InTheMiddleMakesTheNextOneCurrent) {
  ModeListView document = DocumentOfModes({"A", "B", "C"});
  document.currentMode = 1;
  EXPECT_TRUE(RemoveCurrentMode(document));
  EXPECT_EQ(document.modes[1].name, "C");
  EXPECT_EQ(document.currentMode, 1);
}

TEST(RemovingTheCurrentMode, NeedsOne) {
  ModeListView document = DocumentOfModes({"A", "B"});
  for (const int stale : {-1, 2}) {
    document.currentMode = stale;
    EXPECT_FALSE(RemoveCurrentMode(document));
    EXPECT_EQ(document.modes.size(), 2U);
  }
}

TEST(DocumentEquality, LeavesOutAChannelsDescription) {
  ModeListView document = NewProgram();
  ModeListView other = document;
  other.channelInfos[2].description = "Moonlight";
  EXPECT_TRUE(document == other);
}

TEST(DocumentEquality, LeavesOutTheSerialsOfSteps) {
  ModeListView document = NewProgram();
  ModeListView other = document;
  RenumberSteps(other.modes[0]);
  EXPECT_TRUE(document == other);
}

TEST(DocumentEquality, LeavesOutTheViewAndTheCurrentMode) {
  ModeListView document = NewProgram();
  ModeListView other = document;
  other.viewStart = 3600;
  other.viewEnd = 7200;
  other.currentMode = 1;
  EXPECT_TRUE(document == other);
}

TEST(DocumentEquality, SeesEverythingElse) {
  const ModeListView document = NewProgram();
  const auto differsAfter = [&document](auto change) {
    ModeListView other = document;
    change(other);
    return !(document == other);
  };
  EXPECT_TRUE(differsAfter([](ModeListView& d) { d.modes.pop_back(); }));
  EXPECT_TRUE(differsAfter([](ModeListView& d) { d.modes[1].name += "!"; }));
  EXPECT_TRUE(differsAfter([](ModeListView& d) { d.modes[1].description += "!"; }));
  EXPECT_TRUE(differsAfter([](ModeListView& d) { d.modes[1].channels[4].pop_back(); }));
  EXPECT_TRUE(differsAfter([](ModeListView& d) { d.modes[0].channels[0][1].value += 0.5F; }));
  EXPECT_TRUE(differsAfter([](ModeListView& d) { d.modes[0].channels[0][1].jump = true; }));
  EXPECT_TRUE(differsAfter([](ModeListView& d) { d.modes[0].channels[0][1].minute = 1; }));
  EXPECT_TRUE(differsAfter([](ModeListView& d) { d.channelInfos[4].color = 0xFF90EE90; }));
  EXPECT_TRUE(differsAfter([](ModeListView& d) { d.channelInfos[4].name = "Red"; }));
}

}  // namespace
}  // namespace program_test
