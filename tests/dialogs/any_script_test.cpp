// What people write, in any script and of any length, comes through the dialogs unharmed.

#include <algorithm>
#include <vector>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "dialogs/dialog_template.h"
#include "dialogs/dlg_add_steps.h"
#include "dialogs/dlg_get_value.h"
#include "dialogs/dlg_mode_name.h"
#include "tests/dialogs/dialogs_test.h"

namespace {

using namespace dialogs;
using namespace in_dialog;

constexpr const char* kWords[] = {
    "Žluťoučký kůň",      "Zażółć gęślą",    "Ανατολή ηλίου", "日の出と月",
    "🐠🪸 reef 🌊", "e\u0301 b\u0308", "שקיעה",         "กลางคืน",
};

bool IsWhole(const std::u16string& text) {
  return WideFromUtf8(Utf8FromWide(text)) == text;
}

class AnyScript : public DialogsTest {
 protected:
  ModeNameParams NameParams(std::int32_t limit) {
    ModeNameParams params;
    params.maxLength = limit;
    params.name = u"before";
    params.description = u"before";
    return params;
  }
};

TEST_F(AnyScript, NamesAndDescriptionsComeBackAsTyped) {
  for (const std::string word : kWords) {
    ModeNameParams params = NameParams(40);
    Fill<DlgModeName>(
        {Type(mode_name_control::kName, word), Type(mode_name_control::kDescription, word), Press(kOk)},
        params);
    EXPECT_EQ(Utf8FromWide(params.name), word);
    EXPECT_EQ(Utf8FromWide(params.description), word);
    Fill<DlgModeName>({PressEscape()}, params);
    EXPECT_EQ(First().controls.at(mode_name_control::kName).text, word) << "and are shown again";
  }
}

TEST_F(AnyScript, ValuesComeBackAsTyped) {
  for (const std::string word : kWords) {
    GetValueParams params;
    params.maxLength = 40;
    Fill<DlgGetValue>({Type(get_value_control::kValue, word), Press(kOk)}, params);
    EXPECT_EQ(Utf8FromWide(params.value), word);
  }
}

TEST_F(AnyScript, ModesToCopyAreListedAsTheyAreCalled) {
  TCBase::Program::ModeListView program;
  for (const char* word : kWords) program.modes.push_back({word, {}, {}});
  ModeNameParams params = NameParams(15);
  params.copySource = &program;
  Fill<DlgModeName>({PressEscape()}, params);
  std::vector<std::string> expected{"<empty>"};
  expected.insert(expected.end(), std::begin(kWords), std::end(kWords));
  EXPECT_EQ(First().controls.at(mode_name_control::kCopyFrom).rows, expected);
}

TEST_F(AnyScript, LimitsCountUnitsAndNoHalfOfACharacterIsKept) {
  // Seven fish are fourteen units; the eighth does not fit into fifteen, though half of it would.
  ModeNameParams params = NameParams(15);
  Fill<DlgModeName>({Type(mode_name_control::kName, "🐠🐠🐠🐠🐠🐠🐠🐠"), Press(kOk)}, params);
  EXPECT_EQ(params.name, u"🐠🐠🐠🐠🐠🐠🐠");
  Fill<DlgModeName>({Paste(mode_name_control::kName, "x🐠🐠🐠🐠🐠🐠🐠🐠"), Press(kOk)}, params);
  EXPECT_EQ(params.name, u"x🐠🐠🐠🐠🐠🐠🐠");
}

TEST_F(AnyScript, TheEndOfTheRoomCutsNoCharacterInHalf) {
  std::string fish;
  for (int i = 0; i < 2000; ++i) fish += "🐠";
  ModeNameParams params = NameParams(4000);
  Fill<DlgModeName>(
      {Paste(mode_name_control::kName, fish), Paste(mode_name_control::kDescription, fish), Press(kOk)},
      params);
  EXPECT_EQ(params.name.size(), 78U) << "79 units are there";
  EXPECT_EQ(params.description.size(), 2046U) << "2,047 are there";
  EXPECT_TRUE(IsWhole(params.name));
  EXPECT_TRUE(IsWhole(params.description));
}

TEST_F(AnyScript, AFieldWithHalfACharacterAloneKeepsTheDialogOpen) {
  // There is a text, and nothing of it can be stored.
  GetValueParams params;
  params.maxLength = 1;
  params.value = u"before";
  Fill<DlgGetValue>({Type(get_value_control::kValue, "🐠"), Press(kOk), Press(kCancel)}, params);
  EXPECT_EQ(params.value, u"");
}

TEST_F(AnyScript, StepsOfOtherDigitsAreNoSteps) {
  AddStepsParams params;
  Fill<DlgAddSteps>(
      {Type(add_steps_control::kSteps, "08:00 10\n０９：００ ２０\n🐠 🐠 🐠\n09:00 J"), Look(), Press(kOk)},
      params);
  EXPECT_EQ(Last().controls.at(add_steps_control::kCount).text, "Text contains 3 steps")
      << "three words make a step, read as zeros";
  EXPECT_TRUE(IsWhole(params.text));
}

// Ten megabytes.

class TenMegabytes : public DialogsTest {
 protected:
  static constexpr std::size_t kSize = 10'000'000;
  static std::string Repeated(std::string_view part) {
    std::string text;
    text.reserve(kSize + part.size());
    while (text.size() < kSize) text += part;
    return text;
  }
};

TEST_F(TenMegabytes, PastedIntoEveryFieldAreCutToItsLimit) {
  for (const std::string& text : {Repeated("🐠"), Repeated("08:00 50\r\n")}) {
    ModeNameParams name;
    name.maxLength = 15;
    EXPECT_EQ(Fill<DlgModeName>({Paste(mode_name_control::kName, text),
                                 Paste(mode_name_control::kDescription, text), Press(kOk)},
                                name),
              kOk);
    EXPECT_LE(name.name.size(), 15U);
    EXPECT_GE(name.description.size(), 2046U);

    GetValueParams value;
    value.maxLength = 20;
    EXPECT_EQ(Fill<DlgGetValue>({Paste(get_value_control::kValue, text), Press(kOk)}, value), kOk);
    EXPECT_LE(value.value.size(), 20U);

    AddStepsParams steps;
    EXPECT_EQ(Fill<DlgAddSteps>({Paste(add_steps_control::kSteps, text), Press(kOk)}, steps), kOk);
    EXPECT_GE(steps.text.size(), 2046U);
  }
}

TEST_F(TenMegabytes, HandedInAreShownAndReadThroughTheRoom) {
  const std::u16string text = WideFromUtf8(Repeated("08:00 50\r\n"));
  ModeNameParams name;
  name.maxLength = 15;
  name.name = name.description = text;
  EXPECT_EQ(Fill<DlgModeName>({Press(kOk)}, name), kOk);
  EXPECT_EQ(name.name.size(), 79U);
  EXPECT_EQ(name.description.size(), 2047U);

  GetValueParams value;
  value.maxLength = 20;
  value.value = text;
  EXPECT_EQ(Fill<DlgGetValue>({Press(kOk)}, value), kOk);
  EXPECT_EQ(value.value.size(), 2047U);

  AddStepsParams steps;
  steps.text = text;
  EXPECT_EQ(Fill<DlgAddSteps>({Press(kOk)}, steps), kOk);
  EXPECT_EQ(steps.text.size(), 2047U);
  EXPECT_EQ(First().controls.at(add_steps_control::kCount).text, "Text contains 205 steps");
}

TEST_F(TenMegabytes, OfLabelsAndModesAreShown) {
  TCBase::Program::ModeListView program;
  program.modes.push_back({Repeated("🐠"), {}, {}});
  ModeNameParams params;
  params.copySource = &program;
  params.title.assign(kSize, u'x');
  EXPECT_EQ(Fill<DlgModeName>({Press(kOk)}, params), kOk);
  EXPECT_EQ(First().controls.at(mode_name_control::kCopyFrom).rows.at(1).size(), kSize);
}

}  // namespace
