// The computer's clock, which controllers are set by, and what can be said of theirs.

#include "common/platform.h"
#include "doctor/checks.h"
#include "doctor/device_log.h"
#include "doctor/moments.h"

namespace doctor {

namespace {

// This program is newer than the one, and outlived by the other.
constexpr int kFirstYear = 2024;
constexpr int kLastYear = 2100;
// A clock of quartz is a minute off after a month or two.
constexpr int kDaysOfTrust = 30;
constexpr std::size_t kSearchedBytes = 4 << 20;

Finding Clock(Sign sign, const Sentence& found, const Sentence& advice = Sentence()) {
  return {sign, "computer-clock", Sentence(TextKey("Clock of this computer")), found, advice};
}

// Whether clocks here show UTC in summer and in winter: no zone has been chosen, most likely.
bool ShowsUtc(const DateTime& now) {
  constexpr int kNoon = 12;
  const auto winter = platform::UtcOffsetMinutes({now.year, 1, 1, kNoon});
  const auto summer = platform::UtcOffsetMinutes({now.year, 7, 1, kNoon});
  return winter == 0 && summer == 0;
}

Finding Controllers(Sign sign, const Sentence& found, const Sentence& advice = Sentence()) {
  return {sign, "controller-clock", Sentence(TextKey("Clocks of controllers")), found, advice};
}

Sentence SetIt() {
  return Sentence(TextKey("Compare its display with this computer's clock, and set it if it differs: {1}"),
                  {"lumarinectl sync-time"});
}

Finding SetAt(const DateTime& time, const DateTime& now) {
  const std::string when = ToMinuteText(time);
  const std::int64_t days = DaysBetween(time, now);
  if (platform::UtcOffsetMinutes(time) != platform::UtcOffsetMinutes(now))
    return Controllers(
        Sign::Look,
        Sentence(TextKey("One was last set at {1}, before the clocks here were changed: it does not "
                         "know of daylight saving."),
                 {when}),
        SetIt());
  if (days < 0 || days > kDaysOfTrust)
    return Controllers(
        Sign::Look, Sentence(TextKey("One was last set to {1}, as the device log says."), {when}), SetIt());
  return Controllers(Sign::Good,
                     Sentence(TextKey("One was last set to {1}, as the device log says."), {when}));
}

}  // namespace

Findings CheckComputerClock(const Subject&) {
  const DateTime now = platform::LocalTime();
  const auto offset = platform::UtcOffsetMinutes(now);
  const Sentence shown(TextKey("It shows {1}, {2}."), {ToMinuteText(now), OffsetText(offset.value_or(0))});
  if (now.year < kFirstYear || now.year > kLastYear)
    return {Clock(Sign::Broken, shown, Sentence(TextKey("Set it: controllers are given this time.")))};
  if (ShowsUtc(now))
    return {Clock(
        Sign::Look, shown,
        Sentence(TextKey("Choose your time zone, if this is not the time on your wall: controllers are given "
                         "this time.")))};
  switch (platform::WhoKeepsTheClock()) {
    case platform::ClockKeeper::Network:
      return {Clock(Sign::Good, Sentence(TextKey("It shows {1}, {2}, and is set by the network."),
                                         {ToMinuteText(now), OffsetText(offset.value_or(0))}))};
    case platform::ClockKeeper::Nobody:
      return {Clock(
          Sign::Look,
          Sentence(TextKey("It shows {1}, {2}, and nobody sets it."),
                   {ToMinuteText(now), OffsetText(offset.value_or(0))}),
          Sentence(TextKey("Compare it with another clock, or have the system set it by the network.")))};
    case platform::ClockKeeper::Unknown:
      break;
  }
  return {Clock(Sign::Good, shown)};
}

Findings CheckControllerClock(const Subject& subject) {
  std::string log;
  const DateTime now = platform::LocalTime();
  if (ReadEnd(subject.deviceLogFile, kSearchedBytes, log))
    if (const auto time = ReadLogEnd(log).timeSync; time && IsMoment(*time)) return {SetAt(*time, now)};
  return {Controllers(
      Sign::Look,
      Sentence(TextKey("A controller can be told the time, but not asked for it, and the device log "
                       "does not say when that was.")),
      SetIt())};
}

}  // namespace doctor
