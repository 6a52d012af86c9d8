// What each dialog that makes a mode asks for.

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "common/message.h"
#include "dialogs/dialog_template.h"
#include "dialogs/dlg_generate.h"
#include "program/generate/season.h"
#include "program/generate/typed.h"

namespace dialogs {

namespace id = generate_control;
using namespace TCBase::Program::Generate;

namespace {

template <int least, int most>
std::optional<int> ParseNumber(std::string_view text) {
  int number = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool good = result.ec == std::errc() && result.ptr == text.data() + text.size() && number >= least &&
                    number <= most;
  return good ? std::optional(number) : std::nullopt;
}

void Put(DialogTexts& texts, int field, const std::string& text) {
  texts.SetText(field, WideFromUtf8(text));
}

std::string NumberText(float number) {
  std::array<char, 32> text;
  const auto end = std::to_chars(text.data(), text.data() + text.size(), number).ptr;
  return {text.data(), end};
}

std::string LevelsText(const Levels& levels) {
  std::string text;
  for (const float level : levels) {
    if (!text.empty()) text += ',';
    text += NumberText(level);
  }
  return text;
}

std::string HoursText(const Hours& hours) {
  std::string text = MinuteText(hours.begin);
  text += '-';
  return text += MinuteText(hours.end);
}

std::string MoonlightText(const std::optional<Moonlight>& moonlight) {
  return moonlight ? std::to_string(moonlight->channel + 1) + '=' + NumberText(moonlight->level) : "";
}

void PutList(DialogLists& lists, int list, std::initializer_list<TextKey> texts, int chosen) {
  std::int32_t row = 0;
  for (const TextKey text : texts) lists.AddRow(list, Message(text).ToWide(), row++);
  lists.SelectRow(list, chosen);
}

// "11-23"
std::string MonthAndDay(const Date& date) {
  return DateText(date).substr(5);
}

// Those that the text may mean; of a position the nearest.
void PutPlaces(DialogLists& lists, const std::string& text) {
  lists.ClearRows(id::kPlaces);
  const auto add = [&](const Place& place) {
    lists.AddRow(id::kPlaces, WideFromUtf8(place.name), static_cast<std::int32_t>(&place - Places().data()));
  };
  if (const auto position = ParsePosition(text)) {
    add(NearestPlace(*position));
  } else {
    for (const Place* const place : FindPlaces(text)) add(*place);
  }
  lists.SelectRow(id::kPlaces, 0);
}

}  // namespace

// The sun

DlgSun::DlgSun(DialogsPort& port, SunParams& params, Of what)
    : DlgGenerate(port, what == Of::Season ? template_id::kSeason : template_id::kSun, params),
      params_(params),
      isSeason_(what == Of::Season) {}

void DlgSun::Fill(DialogWindow& window) {
  const SunLight& light = params_.light;
  Put(window, id::kPlace, params_.place);
  PutPlaces(window, params_.place);
  const std::string today = DateText(params_.today);
  Put(window, isSeason_ ? id::kYear : id::kDate, isSeason_ ? today.substr(0, 4) : today);
  PutList(window, id::kTwilight, {TextKey("No twilight"), TextKey("Civil"), TextKey("Nautical")},
          static_cast<int>(light.twilight));
  Put(window, id::kLevels, LevelsText(light.levels));
  Put(window, id::kHours,
      light.hours   ? HoursText(*light.hours)
      : light.begin ? MinuteText(*light.begin)
                    : std::string());
  Put(window, id::kMoonlight, MoonlightText(light.moonlight));
}

void DlgSun::OnField(DialogWindow& window, int field) {
  if (field == id::kPlace) PutPlaces(window, Utf8FromWide(window.Text(id::kPlace, 128)));
}

void DlgSun::ReadPlace(Fields& fields) {
  const std::int32_t row = fields.Row(id::kPlaces);
  if (row < 0) return fields.Note(id::kPlace);
  params_.place = fields.Text(id::kPlace);
  params_.clock = &Places()[static_cast<std::size_t>(row)];
  params_.light.position = ParsePosition(params_.place).value_or(params_.clock->position);
  if (!ParsePosition(params_.place)) params_.place = params_.clock->name;
}

void DlgSun::ReadDate(Fields& fields) {
  Date& date = params_.light.date;
  if (isSeason_) {
    const int year = fields.Read(id::kYear, ParseNumber<kFirstYear, kLastYear>, kFirstYear);
    date = MiddleOfWeek(std::chrono::year{year}, WeekOfYear(params_.today));
  } else {
    date = fields.Read(id::kDate, ParseDate, params_.today);
  }
}

// As the sun is there, wherever the hours put it.
std::string DlgSun::Remark() const {
  const SunLight& light = params_.light;
  const SunDay sun(light.position, light.date, light.utcOffset);
  const auto rise = sun.Rise(kSunriseAltitude);
  const auto set = sun.Set(kSunriseAltitude);
  if (!rise || !set) return {};
  return Message("Sunrise there: {1}, sunset: {2}", NearestMinuteText(*rise), NearestMinuteText(*set)).utf8();
}

Generated DlgSun::Make(Fields& fields) {
  SunLight& light = params_.light;
  ReadPlace(fields);
  ReadDate(fields);
  if (params_.clock != nullptr) light.utcOffset = UtcOffsetOf(*params_.clock, light.date);
  light.twilight = static_cast<Twilight>(std::max(fields.Row(id::kTwilight), 0));
  light.levels = fields.Read(id::kLevels, ParseLevels, light.levels);
  light.begin = ParseMinute(fields.Text(id::kHours));
  light.hours = light.begin ? std::nullopt : fields.ReadOptional<Hours>(id::kHours, ParseHours);
  light.moonlight = fields.ReadOptional<Moonlight>(id::kMoonlight, ParseMoonlight);
  Generated day = MakeSunMode(light);
  day.mode.name =
      isSeason_ ? WeekName(WeekOfYear(light.date)) : Translate("Sun") + ' ' + MonthAndDay(light.date);
  return day;
}

// The moon

DlgMoon::DlgMoon(DialogsPort& port, MoonParams& params)
    : DlgGenerate(port, template_id::kMoon, params), params_(params) {}

void DlgMoon::Fill(DialogWindow& window) {
  Put(window, id::kDate, DateText(params_.today));
  Put(window, id::kMoonlight, MoonlightText(params_.night.moonlight));
  Put(window, id::kNight, HoursText(params_.night.night));
}

Generated DlgMoon::Make(Fields& fields) {
  MoonNight& night = params_.night;
  night.date = fields.Read(id::kDate, ParseDate, params_.today);
  night.moonlight = fields.Read(id::kMoonlight, ParseMoonlight, night.moonlight);
  night.night = fields.Read(id::kNight, ParseHours, night.night);
  Generated day = MakeMoonMode(night, *params_.others);
  day.mode.description.clear();
  day.mode.name = Translate("Moon") + ' ' + MonthAndDay(night.date);
  return day;
}

// A day of ramps

DlgRampDay::DlgRampDay(DialogsPort& port, RampDayParams& params)
    : DlgGenerate(port, template_id::kRampDay, params), params_(params) {}

void DlgRampDay::Fill(DialogWindow& window) {
  const RampDay& day = params_.day;
  Put(window, id::kSunrise, MinuteText(day.day.begin));
  Put(window, id::kSunset, MinuteText(day.day.end));
  Put(window, id::kRamp, std::to_string(day.ramp));
  Put(window, id::kStagger, std::to_string(day.stagger));
  Put(window, id::kLevels, LevelsText(day.levels));
  Put(window, id::kBreak, day.middayBreak ? HoursText(day.middayBreak->hours) : "");
  Put(window, id::kBreakLevel, NumberText(day.middayBreak.value_or(MiddayBreak{}).percent));
  Put(window, id::kMoonlight, MoonlightText(day.moonlight));
}

Generated DlgRampDay::Make(Fields& fields) {
  RampDay& day = params_.day;
  day.date = params_.today;
  day.day.begin = fields.Read(id::kSunrise, ParseMinute, day.day.begin);
  day.day.end = fields.Read(id::kSunset, ParseMinute, day.day.end);
  day.ramp = fields.Read(id::kRamp, ParseNumber<1, 720>, day.ramp);
  day.stagger = fields.Read(id::kStagger, ParseNumber<-120, 120>, day.stagger);
  day.levels = fields.Read(id::kLevels, ParseLevels, day.levels);
  const auto hours = fields.ReadOptional<Hours>(id::kBreak, ParseHours);
  const float percent = fields.Read(id::kBreakLevel, ParsePercent, MiddayBreak{}.percent);
  day.middayBreak = hours ? std::optional(MiddayBreak{*hours, percent}) : std::nullopt;
  day.moonlight = fields.ReadOptional<Moonlight>(id::kMoonlight, ParseMoonlight);
  Generated made = MakeRampDay(day);
  made.mode.name = Translate("Ramp day");
  return made;
}

// A slow start

DlgAcclimation::DlgAcclimation(DialogsPort& port, AcclimationParams& params)
    : DlgGenerate(port, template_id::kAcclimation, params), params_(params) {}

void DlgAcclimation::Fill(DialogWindow& window) {
  Put(window, id::kPercent, NumberText(params_.acclimation.percent));
  Put(window, id::kDays, std::to_string(params_.acclimation.days));
  Put(window, id::kFirstDay, DateText(params_.today));
  PutList(window, id::kWhat, {TextKey("Today's light, as a new mode"), TextKey("Each day, as a file")}, 0);
}

Generated DlgAcclimation::Make(Fields& fields) {
  Acclimation& acclimation = params_.acclimation;
  acclimation.percent = fields.Read(id::kPercent, ParsePercent, acclimation.percent);
  acclimation.days = fields.Read(id::kDays, ParseNumber<1, kMostAcclimationDays>, acclimation.days);
  const Date first = fields.Read(id::kFirstDay, ParseDate, params_.today);
  params_.eachDay = fields.Row(id::kWhat) == 1;
  const int day = std::clamp(DayOfAcclimation(first, params_.today), 1, acclimation.days);
  Generated made = MakeAcclimationDay(*params_.full, acclimation, day);
  made.mode.name = DayOfAcclimationName(day, acclimation.days);
  return made;
}

}  // namespace dialogs
