// The dialogs that make days of light: what their fields tell, and what they say of it.

#include <optional>
#include <vector>

#include "dialogs/dialog_template.h"
#include "dialogs/dlg_generate.h"
#include "program/builtin_modes.h"
#include "tests/dialogs/dialogs_test.h"

namespace {

using namespace dialogs;
using namespace in_dialog;
using namespace TCBase::Program::Generate;
using TCBase::Program::Mode;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
namespace id = generate_control;

class GenerateDialogs : public DialogsTest {
 protected:
  void SetUp() override { TCBase::Program::BuildNormalMode(normal); }

  template <class Params>
  Params Given() {
    Params params;
    params.today = ParseDate("2026-11-23").value();
    params.show = [this](const Generated* day) { shown.push_back(day ? std::optional(*day) : std::nullopt); };
    return params;
  }
  SunParams GivenSun() {
    SunParams params = Given<SunParams>();
    params.place = "Europe/Berlin";
    return params;
  }
  int AskSun(DialogScript script, SunParams& params, DlgSun::Of what = DlgSun::Of::Day) {
    port.seen.clear();
    shown.clear();
    port.scripts.push_back(std::move(script));
    return DlgSun(port, params, what).DoModal();
  }
  std::string Result(std::size_t look) { return port.seen.at(look).controls.at(id::kResult).text; }
  bool OkIsEnabled(std::size_t look) { return port.seen.at(look).controls.at(kOk).enabled; }
  std::string LastName() { return shown.back()->mode.name; }
  float At(int channel, int hour) {
    return ChannelValueAt(shown.back()->mode.channels.at(static_cast<std::size_t>(channel)), hour * 3600);
  }

  Mode normal;
  std::vector<std::optional<Generated>> shown;
};

TEST_F(GenerateDialogs, TheSunOfTodayIsShownAtOnce) {
  SunParams params = GivenSun();
  EXPECT_EQ(AskSun({PressEscape()}, params), kCancel);
  EXPECT_EQ(First().title, "Sun over a place");
  EXPECT_EQ(First().controls.at(id::kPlace).text, "Europe/Berlin");
  EXPECT_THAT(First().controls.at(id::kPlaces).rows, ElementsAre("Europe/Berlin"));
  EXPECT_EQ(First().controls.at(id::kDate).text, "2026-11-23");
  EXPECT_EQ(First().controls.at(id::kLevels).text, "100,100,100,100,100");
  EXPECT_THAT(First().controls.at(id::kTwilight).rows, ElementsAre("No twilight", "Civil", "Nautical"));
  EXPECT_EQ(First().controls.at(id::kTwilight).row, 1);
  EXPECT_THAT(Result(0), HasSubstr(" % off\r\nSunrise there: 07:42, sunset: 16:03"));
  ASSERT_THAT(shown, SizeIs(1));
  EXPECT_EQ(LastName(), "Sun 11-23");
}

TEST_F(GenerateDialogs, EachFieldChangesTheSun) {
  SunParams params = GivenSun();
  AskSun({Type(id::kDate, "2026-06-21"), Type(id::kLevels, "50, 40, 30, 20, 10"),
          Type(id::kHours, "14:00-22:00"), Type(id::kMoonlight, "5=20"), Pick(id::kTwilight, 0), Press(kOk)},
         params);
  EXPECT_EQ(LastName(), "Sun 06-21");
  EXPECT_NEAR(At(0, 18), 50, 1.5);
  EXPECT_NEAR(At(4, 18), 10, 1.5);
  EXPECT_EQ(At(0, 12), 0);
  EXPECT_EQ(params.light.twilight, Twilight::None);
  EXPECT_EQ(params.light.utcOffset, 120);
  ASSERT_TRUE(params.light.moonlight);
  EXPECT_EQ(params.light.hours->begin, 14 * 60);
}

TEST_F(GenerateDialogs, HoursMayTellTheBeginAlone) {
  SunParams params = GivenSun();
  AskSun({Type(id::kHours, "11:00"), Press(kOk)}, params);
  EXPECT_EQ(params.light.begin, 11 * 60);
  EXPECT_FALSE(params.light.hours);
  AskSun({Type(id::kHours, ""), Press(kOk)}, params);
  EXPECT_FALSE(params.light.begin);
}

TEST_F(GenerateDialogs, PlacesAreFoundAsOneTypes) {
  SunParams params = GivenSun();
  AskSun({Type(id::kPlace, "germany"), Look(), Pick(id::kPlaces, 1), Press(kOk)}, params);
  EXPECT_THAT(Last().controls.at(id::kPlaces).rows, ElementsAre("Europe/Berlin", "Europe/Busingen"));
  EXPECT_STREQ(params.clock->name, "Europe/Busingen");
  EXPECT_EQ(params.place, "Europe/Busingen");
  AskSun({Type(id::kPlace, "-18.3, 147.7"), Look(), Press(kOk)}, params);
  EXPECT_THAT(Last().controls.at(id::kPlaces).rows, SizeIs(1));
  EXPECT_EQ(params.light.position.latitude, -18.3);
  EXPECT_EQ(params.light.utcOffset, 600) << "the clocks of the nearest place";
}

TEST_F(GenerateDialogs, WhatCannotBeReadIsNamedAndShowsNothing) {
  struct Row {
    int field;
    const char* text;
    const char* label;
  };
  const Row rows[] = {{id::kPlace, "Atlantis", "Place, country, or latitude,longitude"},
                      {id::kDate, "2026-02-30", "Date"},
                      {id::kDate, "", "Date"},
                      {id::kLevels, "1,2,3", "Most light of channels 1 to 5, in percent"},
                      {id::kHours, "25:00", "Hours, as 10:00-22:00, or begin, as 10:00"},
                      {id::kMoonlight, "6=20", "Moonlight, as 5=20: channel 5, 20 %"}};
  for (const Row& row : rows) {
    SunParams params = GivenSun();
    EXPECT_EQ(AskSun({Type(row.field, row.text), Look(), Press(kCancel)}, params), kCancel);
    EXPECT_EQ(Result(1), std::string("This cannot be read: ") + row.label);
    EXPECT_FALSE(OkIsEnabled(1)) << row.label;
    EXPECT_FALSE(shown.back()) << row.label;
  }
}

TEST_F(GenerateDialogs, EnterDoesNothingUntilItCanBeRead) {
  SunParams params = GivenSun();
  EXPECT_EQ(AskSun({Type(id::kDate, "nonsense"), PressEnter(), Type(id::kDate, "2026-01-01"), PressEnter()},
                   params),
            kOk);
  EXPECT_EQ(LastName(), "Sun 01-01");
}

TEST_F(GenerateDialogs, ASeasonShowsThisWeek) {
  SunParams params = GivenSun();
  AskSun({Type(id::kYear, "2027"), Press(kOk)}, params, DlgSun::Of::Season);
  EXPECT_EQ(First().title, "Season of 52 weeks");
  EXPECT_EQ(First().controls.at(id::kYear).text, "2026");
  EXPECT_EQ(LastName(), "Week 47");
  EXPECT_EQ(DateText(params.light.date), "2027-11-22");
  AskSun({Type(id::kYear, "1949"), Look(), PressEscape()}, params, DlgSun::Of::Season);
  EXPECT_EQ(Result(1), "This cannot be read: Year");
}

TEST_F(GenerateDialogs, TheMoonShinesInTheModeThatThereIs) {
  MoonParams params = Given<MoonParams>();
  params.others = &normal;
  Fill<DlgMoon>({Type(id::kDate, "2026-11-24"), Type(id::kMoonlight, "5=30"), Type(id::kNight, "22:00-05:00"),
                 Press(kOk)},
                params);
  EXPECT_EQ(First().controls.at(id::kMoonlight).text, "5=20");
  EXPECT_EQ(First().controls.at(id::kNight).text, "21:00-06:00");
  EXPECT_EQ(LastName(), "Moon 11-24");
  EXPECT_EQ(At(4, 1), 30);
  EXPECT_TRUE(shown.back()->mode.channels[0] == normal.channels[0]);
  Fill<DlgMoon>({Type(id::kMoonlight, ""), Look(), PressEscape()}, params);
  EXPECT_EQ(Result(1), "This cannot be read: Moonlight, as 5=20: channel 5, 20 %");
}

TEST_F(GenerateDialogs, ARampDayIsWhatIsTold) {
  RampDayParams params = Given<RampDayParams>();
  Fill<DlgRampDay>({Type(id::kSunrise, "9:00"), Type(id::kSunset, "19:00"), Type(id::kRamp, "30"),
                    Type(id::kStagger, "-10"), Type(id::kLevels, "80"), Type(id::kBreak, "12:00-14:00"),
                    Type(id::kBreakLevel, "50"), Type(id::kMoonlight, "1=10"), Press(kOk)},
                   params);
  EXPECT_EQ(LastName(), "Ramp day");
  EXPECT_EQ(At(4, 11), 80);
  EXPECT_EQ(At(4, 13), 40);
  EXPECT_EQ(params.day.stagger, -10);
  for (const auto& [field, text] : {std::pair{id::kRamp, "0"},
                                    {id::kStagger, "121"},
                                    {id::kSunset, "noon"},
                                    {id::kBreak, "12:00"},
                                    {id::kBreakLevel, ""}}) {
    Fill<DlgRampDay>({Type(field, text), Look(), PressEscape()}, params);
    EXPECT_FALSE(OkIsEnabled(1)) << field;
  }
}

TEST_F(GenerateDialogs, AnAcclimationKnowsItsDay) {
  AcclimationParams params = Given<AcclimationParams>();
  params.full = &normal;
  Fill<DlgAcclimation>(
      {Type(id::kPercent, "50"), Type(id::kDays, "11"), Type(id::kFirstDay, "2026-11-18"), Press(kOk)},
      params);
  EXPECT_EQ(First().controls.at(id::kPercent).text, "40");
  EXPECT_EQ(First().controls.at(id::kFirstDay).text, "2026-11-23");
  EXPECT_THAT(First().controls.at(id::kWhat).rows,
              ElementsAre("Today's light, as a new mode", "Each day, as a file"));
  EXPECT_EQ(LastName(), "Day 6 of 11");
  EXPECT_EQ(At(0, 11), 60) << "75 % of 80";
  EXPECT_FALSE(params.eachDay);
  Fill<DlgAcclimation>({Pick(id::kWhat, 1), Press(kOk)}, params);
  EXPECT_TRUE(params.eachDay);
  for (const auto& [field, text] :
       {std::pair{id::kPercent, "101"}, {id::kDays, "367"}, {id::kDays, "0"}, {id::kFirstDay, "x"}}) {
    Fill<DlgAcclimation>({Type(field, text), Look(), PressEscape()}, params);
    EXPECT_FALSE(OkIsEnabled(1)) << field << text;
  }
}

TEST_F(GenerateDialogs, AnythingMayBeTyped) {
  const std::string texts[] = {"🐠🪸", std::string(3000, '9'), "-", ",,,,", "=", "NaN", "1e99", "\t",
                               ":-:"};
  for (const std::string& text : texts) {
    SunParams sun = GivenSun();
    for (const int field : {id::kPlace, id::kDate, id::kLevels, id::kHours, id::kMoonlight})
      AskSun({Paste(field, text), PressEscape()}, sun);
    RampDayParams ramp = Given<RampDayParams>();
    for (const int field :
         {id::kSunrise, id::kSunset, id::kRamp, id::kStagger, id::kLevels, id::kBreak, id::kBreakLevel})
      Fill<DlgRampDay>({Paste(field, text), PressEscape()}, ramp);
  }
}

}  // namespace
