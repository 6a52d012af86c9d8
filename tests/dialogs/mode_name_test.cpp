#include "dialogs/dlg_mode_name.h"

#include "dialogs/dialog_template.h"
#include "tests/dialogs/dialogs_test.h"

namespace {

using namespace dialogs;
using namespace in_dialog;
using testing::ElementsAre;
using testing::IsEmpty;
namespace id = mode_name_control;

class ModeName : public DialogsTest {
 protected:
  void SetUp() override {
    params.maxLength = 15;
    params.x = 170;
    params.y = 80;
    params.title = u"Add new mode";
    params.nameLabel = u"Mode name (device will display first 7 characters only)";
    params.name = u"PRG03";
    params.descriptionLabel = u"Mode description";
    params.description = u"a day";
    params.copyLabel = u"Copy data from";
    params.okText = u"Do it";
    params.cancelText = u"Leave it";
    for (const char* name : {"Reef", "Ámos", "Abc"}) program.modes.push_back({name, {}, {}});
  }

  void GivenModesToCopy() { params.copySource = &program; }
  int Ask(DialogScript script) { return Fill<DlgModeName>(std::move(script), params); }

  TCBase::Program::ModeListView program;
  ModeNameParams params;
};

TEST_F(ModeName, ShowsWhatItIsTold) {
  GivenModesToCopy();
  Ask({PressEscape()});
  const SeenDialog& seen = First();
  EXPECT_EQ(seen.title, "Add new mode");
  EXPECT_EQ(seen.x, 170);
  EXPECT_EQ(seen.y, 80);
  EXPECT_EQ(seen.controls.at(id::kNameLabel).text, "Mode name (device will display first 7 characters only)");
  EXPECT_EQ(seen.controls.at(id::kName).text, "PRG03");
  EXPECT_EQ(seen.controls.at(id::kDescriptionLabel).text, "Mode description");
  EXPECT_EQ(seen.controls.at(id::kDescription).text, "a day");
  EXPECT_EQ(seen.controls.at(id::kCopyLabel).text, "Copy data from");
  EXPECT_TRUE(seen.controls.at(id::kCopyFrom).visible);
  EXPECT_EQ(seen.controls.at(kOk).text, "Do it");
  EXPECT_EQ(seen.controls.at(kCancel).text, "Leave it");
}

TEST_F(ModeName, ListsTheModesInTheirOrderBehindTheEmptyOne) {
  GivenModesToCopy();
  Ask({PressEscape()});
  EXPECT_THAT(First().controls.at(id::kCopyFrom).rows, ElementsAre("<empty>", "Reef", "Ámos", "Abc"));
  EXPECT_EQ(First().controls.at(id::kCopyFrom).row, 0);
}

TEST_F(ModeName, WithNothingToCopyThereIsNoList) {
  Ask({PressEscape()});
  EXPECT_FALSE(First().controls.at(id::kCopyLabel).visible);
  EXPECT_FALSE(First().controls.at(id::kCopyFrom).visible);
  EXPECT_THAT(First().controls.at(id::kCopyFrom).rows, IsEmpty());
}

TEST_F(ModeName, OkStoresNameAndDescription) {
  EXPECT_EQ(Ask({Type(id::kName, "Moon"), Type(id::kDescription, "by night\nonly"), Press(kOk)}), kOk);
  EXPECT_EQ(params.name, u"Moon");
  EXPECT_EQ(params.description, u"by night\r\nonly");
}

TEST_F(ModeName, EnterIsOkInTheDescriptionToo) {
  EXPECT_EQ(Ask({Type(id::kDescription, "by night"), PressEnter()}), kOk);
  EXPECT_EQ(params.description, u"by night");
}

TEST_F(ModeName, CancelStoresNothing) {
  GivenModesToCopy();
  EXPECT_EQ(Ask({Type(id::kName, "Moon"), Type(id::kDescription, "by night"), Pick(id::kCopyFrom, 2),
                 Press(kCancel)}),
            kCancel);
  EXPECT_EQ(params.name, u"PRG03");
  EXPECT_EQ(params.description, u"a day");
  EXPECT_EQ(params.copyFrom, -1);
}

TEST_F(ModeName, EmptiedFieldsKeepWhatStoodInThem) {
  EXPECT_EQ(Ask({Type(id::kName, ""), Type(id::kDescription, ""), Press(kOk)}), kOk);
  EXPECT_EQ(params.name, u"PRG03");
  EXPECT_EQ(params.description, u"a day");
}

TEST_F(ModeName, ANameThatWasEmptyMayStaySo) {
  // The channels of a new program have no names: their descriptions can be written all the same.
  params.name.clear();
  EXPECT_EQ(Ask({Type(id::kDescription, "left lamp"), Press(kOk)}), kOk);
  EXPECT_EQ(params.name, u"");
  EXPECT_EQ(params.description, u"left lamp");
}

struct CopyRow {
  int row;
  int copyFrom;
};

TEST_F(ModeName, TellsWhichModeToCopy) {
  const CopyRow rows[] = {{0, -1}, {1, 0}, {2, 1}, {3, 2}};
  GivenModesToCopy();
  for (const CopyRow& row : rows) {
    Ask({Pick(id::kCopyFrom, row.row), Press(kOk)});
    EXPECT_EQ(params.copyFrom, row.copyFrom);
  }
}

TEST_F(ModeName, WithNothingToCopyTheChoiceIsUntouched) {
  params.copyFrom = 77;
  Ask({Press(kOk)});
  EXPECT_EQ(params.copyFrom, 77);
}

TEST_F(ModeName, TheLimitIsTheCallersNotTheLabels) {
  Ask({Type(id::kName, "12345678901234567890"), Press(kOk)});
  EXPECT_EQ(params.name, u"123456789012345");
}

TEST_F(ModeName, ANameIsReadThroughRoomFor80) {
  params.maxLength = 500;
  Ask({Paste(id::kName, std::string(500, 'n')), Paste(id::kDescription, std::string(5000, 'd')), Press(kOk)});
  EXPECT_EQ(params.name, std::u16string(79, u'n'));
  EXPECT_EQ(params.description, std::u16string(2047, u'd'));
}

}  // namespace
