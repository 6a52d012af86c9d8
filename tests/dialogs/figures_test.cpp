#include "dialogs/dlg_figures.h"

#include "dialogs/dialog_template.h"
#include "program/builtin_modes.h"
#include "tests/dialogs/dialogs_test.h"

namespace {

using namespace dialogs;
using namespace in_dialog;
using TCBase::Program::LampFacts;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;
namespace id = figures_control;

class FiguresDialog : public DialogsTest {
 protected:
  FiguresDialog() {
    document.modes = {{"Blocks", "", {}}};
    document.modes[0].channels[0] = {{8, 0, 50.0F, true}, {20, 0, 0.0F, true}};
    document.channelInfos[0].name = "Königsblau & mehr";
  }

  int Ask(DialogScript script) { return Fill<DlgFigures>(std::move(script), params); }
  std::string FirstText(int control) const { return First().controls.at(control).text; }
  std::string LastText(int control) const { return Last().controls.at(control).text; }

  TCBase::Program::ModeListView document;
  FiguresParams params{document, {}};
};

TEST_F(FiguresDialog, ShowsTheTableOfTheCurrentMode) {
  Ask({PressEscape()});
  EXPECT_EQ(First().title, "Figures of mode Blocks");
  EXPECT_EQ(FirstText(id::kTable),
            "\tKönigsblau…\tChannel 2\tChannel 3\tChannel 4\tChannel 5\tAll\r\n"
            "First light\t08:00\t-\t-\t-\t-\t08:00\r\n"
            "Last light\t20:00\t-\t-\t-\t-\t20:00\r\n"
            "Hours of light\t12.00\t0.00\t0.00\t0.00\t0.00\t12.00\r\n"
            "Hours above 50 %\t0.00\t0.00\t0.00\t0.00\t0.00\t0.00\r\n"
            "Percent-hours\t600.0\t0.0\t0.0\t0.0\t0.0\t600.0\r\n"
            "Steepest minute, %\t50.0 08:00\t-\t-\t-\t-\t50.0 08:00");
  EXPECT_THAT(FirstText(id::kNote), HasSubstr("A month is 30.44 days."));
}

TEST_F(FiguresDialog, ShowsWhatWasToldBefore) {
  params.facts.watts = {24, 0, 12.5};
  params.facts.par = {0, 180};
  params.facts.price = 0.32;
  params.facts.level = 0;
  Ask({PressEscape()});
  EXPECT_EQ(FirstText(id::kFirstWatts), "24");
  EXPECT_EQ(FirstText(id::kFirstWatts + 1), "");
  EXPECT_EQ(FirstText(id::kFirstWatts + 2), "12.5");
  EXPECT_EQ(FirstText(id::kFirstPar + 1), "180");
  EXPECT_EQ(FirstText(id::kPrice), "0.32");
  EXPECT_EQ(FirstText(id::kLevel), "0");
  EXPECT_THAT(FirstText(id::kTable),
              AllOf(HasSubstr("\r\nCost a day\t0.046\t"), HasSubstr("\r\nHours above 0 %\t12.00")));
}

TEST_F(FiguresDialog, NamesTheFieldsOfEachChannelForThoseWhoHearThem) {
  Ask({PressEscape()});
  EXPECT_EQ(FirstText(id::kFirstName), "Königsblau…");
  EXPECT_EQ(FirstText(id::kFirstWattsName), "Königsblau…: watts at 100 %");
  EXPECT_EQ(FirstText(id::kFirstParName + 4), "Channel 5: PAR at 100 %");
  EXPECT_FALSE(First().controls.at(id::kFirstWattsName).visible);
}

TEST_F(FiguresDialog, TheTableFollowsWhatIsTyped) {
  Ask({Type(id::kFirstWatts, "40"), Look(), PressEscape()});
  EXPECT_THAT(LastText(id::kTable), HasSubstr("\r\nEnergy a day, kWh\t0.240\t-\t-\t-\t-\t0.240"));
  Ask({Type(id::kFirstWatts, "40"), Type(id::kPrice, "0,25"), Look(), PressEscape()});
  EXPECT_THAT(LastText(id::kTable), HasSubstr("\r\nCost a day\t0.060\t"));
  Ask({Type(id::kFirstPar, "100"), Look(), PressEscape()});
  EXPECT_THAT(LastText(id::kTable), HasSubstr("\r\nLight a day, mol/m²\t2.16\t"));
  Ask({Type(id::kLevel, "49"), Look(), PressEscape()});
  EXPECT_THAT(LastText(id::kTable), HasSubstr("\r\nHours above 49 %\t12.00\t"));
}

TEST_F(FiguresDialog, OkKeepsWhatWasTold) {
  EXPECT_EQ(
      Ask({Type(id::kFirstWatts, "24"), Type(id::kFirstWatts + 4, "6,5"), Type(id::kFirstPar + 2, "180"),
           Type(id::kPrice, "0.32"), Type(id::kLevel, "80"), Press(kOk)}),
      kOk);
  LampFacts expected;
  expected.watts = {24, 0, 0, 0, 6.5};
  expected.par = {0, 0, 180};
  expected.price = 0.32;
  expected.level = 80;
  EXPECT_EQ(params.facts, expected);
  EXPECT_EQ(Ask({Type(id::kFirstWatts, ""), Press(kOk)}), kOk);
  expected.watts[0] = 0;
  EXPECT_EQ(params.facts, expected) << "an empty field takes it back";
}

TEST_F(FiguresDialog, CancelKeepsNothing) {
  EXPECT_EQ(Ask({Type(id::kFirstWatts, "24"), Press(kCancel)}), kCancel);
  EXPECT_EQ(params.facts, LampFacts{});
}

TEST_F(FiguresDialog, WhatIsNoNumberIsSaidAndHoldsOkUp) {
  EXPECT_EQ(Ask({Type(id::kFirstWatts, "40"), Type(id::kFirstWatts + 1, "many"), Look(), Press(kOk), Look(),
                 Type(id::kFirstWatts + 1, "20"), Look(), Press(kOk)}),
            kOk);
  ASSERT_EQ(port.seen.size(), 4U);
  for (const std::size_t look : {1U, 2U}) {
    EXPECT_EQ(port.seen[look].controls.at(id::kNote).text, "\"many\" is not a number from 0 to 1000000.");
    EXPECT_THAT(port.seen[look].controls.at(id::kTable).text, HasSubstr("\r\nEnergy a day, kWh\t0.240\t-\t"));
  }
  EXPECT_THAT(LastText(id::kNote), StartsWith("\"All\" adds up"));
  EXPECT_EQ(params.facts.watts[1], 20.0);

  Ask({Type(id::kLevel, "101"), Look(), PressEscape()});
  EXPECT_EQ(LastText(id::kNote), "\"101\" is not a number from 0 to 100.");
  EXPECT_THAT(LastText(id::kTable), HasSubstr("Hours above 50 %"));
}

}  // namespace
