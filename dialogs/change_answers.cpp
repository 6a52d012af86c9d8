#include "dialogs/change_answers.h"

#include <algorithm>

#include "program/change/read_number.h"

namespace dialogs {

namespace {

using namespace TCBase::Program;
using enum AnswerKind::Form;

constexpr TextKey kByTime("By (minutes or hh:mm)");
constexpr TextKey kToPercent("To (percent)");
constexpr auto kMostPercents = static_cast<std::int32_t>(kMostScalePercent);

template <bool kStopAtEnds>
ModeChange MakeShift(const Answer& first, const Answer&) {
  return ShiftTime{first.whole, kStopAtEnds};
}

template <bool kJump>
ModeChange MakeJump(const Answer&, const Answer&) {
  return SetJump{kJump};
}

// clang-format off
constexpr ChangeRow kRows[] = {
    {TextKey("Shift in time, round the day"), {Shift, kByTime, "0:00"}, {}, MakeShift<false>},
    {TextKey("Shift in time, up to the ends of the day"), {Shift, kByTime, "0:00"}, {}, MakeShift<true>},
    {TextKey("Shift percent"), {Number, TextKey("By (percent points)"), "0", -kMostPercent, kMostPercent}, {},
     [](const Answer& first, const Answer&) -> ModeChange { return ShiftPercent{first.number}; }},
    {TextKey("Scale percent"), {Number, kToPercent, "100", 0, kMostPercents},
     {Number, TextKey("About the level (percent)"), "0", 0, kMostPercent},
     [](const Answer& first, const Answer& second) -> ModeChange { return ScalePercent{first.number, second.number}; }},
    {TextKey("Stretch in time"), {Number, kToPercent, "100", 1, kMostPercents}, {Time, TextKey("About (hh:mm)"), "12:00"},
     [](const Answer& first, const Answer& second) -> ModeChange { return StretchTime{first.number, second.whole}; }},
    {TextKey("Mirror in time"), {Time, TextKey("About (hh:mm)"), "12:00"}, {},
     [](const Answer& first, const Answer&) -> ModeChange { return MirrorTime{first.whole}; }},
    {TextKey("Hold the value up to the next step (jump)"), {}, {}, MakeJump<true>},
    {TextKey("Fade to the next step"), {}, {}, MakeJump<false>},
    {TextKey("Copy to other channels"), {Channels, TextKey("To channels (such as 2,3)"), ""},
     {Number, TextKey("At (percent)"), "100", 0, kMostPercents},
     [](const Answer& first, const Answer& second) -> ModeChange { return CopyToChannels{first.channels, second.number}; }},
    {TextKey("Thin out"), {Number, TextKey("At most off (percent)"), "1", 0, kMostPercent}, {},
     [](const Answer& first, const Answer&) -> ModeChange { return ThinOut{first.number}; }},
    {TextKey("Round times"), {Whole, TextKey("To multiples of (minutes)"), "5", 1, kMinutesPerDay / 2}, {},
     [](const Answer& first, const Answer&) -> ModeChange { return RoundTimes{first.whole}; }},
    {TextKey("Round percents"), {Whole, TextKey("To multiples of (percent)"), "5", 1, kMostPercent}, {},
     [](const Answer& first, const Answer&) -> ModeChange { return RoundPercents{first.whole}; }},
};
// clang-format on

std::string_view WithoutSpaces(std::string_view text) {
  const std::size_t first = std::min(text.find_first_not_of(' '), text.size());
  return text.substr(first, text.find_last_not_of(' ') + 1 - first);
}

// "2,5" is a number to most of our users.
std::string WithPoint(std::string_view text) {
  std::string number(text);
  std::ranges::replace(number, ',', '.');
  return number;
}

template <class T, class Make>
std::optional<Answer> AnswerOf(const std::optional<T>& read, Make make) {
  return read ? std::optional<Answer>(make(*read)) : std::nullopt;
}

Answer OfWhole(std::int32_t whole) {
  return {.whole = whole};
}

}  // namespace

std::span<const ChangeRow> ChangeRows() {
  return kRows;
}

std::optional<Answer> ReadAnswer(const AnswerKind& kind, std::string_view text) {
  text = WithoutSpaces(text);
  switch (kind.form) {
    case Shift:
      return AnswerOf(ReadShift(text), OfWhole);
    case Number:
      return AnswerOf(
          ReadNumber(WithPoint(text), static_cast<float>(kind.least), static_cast<float>(kind.most)),
          [](float number) { return Answer{.number = number}; });
    case Whole:
      return AnswerOf(ReadWhole(text, kind.least, kind.most), OfWhole);
    case Time:
      return AnswerOf(ReadTime(text), OfWhole);
    case Channels:
      return AnswerOf(ReadChannels(text), [](ChannelSet channels) { return Answer{.channels = channels}; });
    case None:
      break;
  }
  return Answer{};
}

std::u16string TellExpected(const AnswerKind& kind) {
  switch (kind.form) {
    case Shift:
      return Message("Minutes are expected, or hh:mm, up to a day: 90, -90 or 1:30.").ToWide();
    case Number:
      return Message("A number from {1} to {2} is expected.", kind.least, kind.most).ToWide();
    case Whole:
      return Message("A whole number from {1} to {2} is expected.", kind.least, kind.most).ToWide();
    case Channels:
      return Message("Numbers of channels from 1 to 5 are expected, with commas between them: 2,3.").ToWide();
    case Time:
    case None:
      break;
  }
  return Message("A time from 00:00 to 23:59 is expected.").ToWide();
}

}  // namespace dialogs
