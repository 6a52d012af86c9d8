#pragma once

// Changes of many steps of a mode at once: which steps are meant, what is done to them, and what came of it.
// Window and command line both change a mode by ChangeMode. Pure functions; any thread.

#include <bitset>
#include <cstdint>
#include <optional>
#include <variant>
#include <vector>

#include "program/program.h"

namespace TCBase::Program {

using ChannelSet = std::bitset<kChannelCount>;

/// A stretch of the day with both of its ends, in minutes from 0 to 1439. One that ends before it begins goes
/// round midnight.
struct TimeSpan {
  std::int32_t from = 0;
  std::int32_t to = kMinutesPerDay - 1;

  constexpr bool Holds(std::int64_t minute) const {
    return from <= to ? from <= minute && minute <= to : from <= minute || minute <= to;
  }
};

/// Which steps a change is for: those that all three allow.
struct ChangeScope {
  ChannelSet channels = ChannelSet().set();
  std::optional<TimeSpan> span = {};                       // without one, the day
  std::optional<std::vector<std::uint32_t>> stepIds = {};  // ascending; without them, all steps
};

// The changes. Minutes are whole ones. What is out of the range told here is refused.

/// Farthest shift, in minutes: a day.
inline constexpr std::int32_t kMostShift = kMinutesPerDay;
/// Greatest factor of a scale or a stretch, in percent.
inline constexpr float kMostScalePercent = 1000.0F;
inline constexpr float kLeastStretchPercent = 1.0F;

/// Later, or earlier with a negative number, up to kMostShift. A step that would leave the day comes in again
/// at its other end, or with `stopAtEnds` stays at the end: several that meet there keep a minute between
/// them, so that what the evening ends with still ends it.
struct ShiftTime {
  std::int32_t minutes = 0;
  bool stopAtEnds = false;
};

/// Up or down by -100 to 100 percent points. Levels stop at 0 and 100, as in all that follows.
struct ShiftPercent {
  float percent = 0.0F;
};

/// Distances from the level `about`, 0 to 100, become `percent` of what they are: 0 to kMostScalePercent.
struct ScalePercent {
  float percent = 100.0F;
  float about = 0.0F;
};

/// Times before and behind a minute of the day become `percent` as far from it: kLeastStretchPercent to
/// kMostScalePercent. The day is a ring: what is less than twelve hours earlier counts as before. Steps stop
/// twelve hours away, and those that meet keep a minute between them.
struct StretchTime {
  float percent = 100.0F;
  std::int32_t about = kMinutesPerDay / 2;
};

/// The day read backwards: what was so long before a minute of the day is so long behind it. Jumps stay
/// jumps: the curve is the mirrored one at each second, but for the one at which a jump arrives. Where light
/// fades behind a jump, a fade of one minute stands for the jump, and the channel gets a step more. What
/// lasts but a minute between two jumps may be lost.
struct MirrorTime {
  std::int32_t about = kMinutesPerDay / 2;
};

/// All jump, or all fade.
struct SetJump {
  bool jump = true;
};

/// The steps that are meant, which must all be of one channel, also in others, at `percent` of their levels:
/// 0 to kMostScalePercent. The others get the whole curve in place of their own where the scope names neither
/// a span nor steps, the span's in place of their own within a span, and single steps in place of those on
/// their minutes. Copies have ids of their own.
struct CopyToChannels {
  ChannelSet to;
  float percent = 100.0F;
};

/// Takes away the steps that the curve needs least, as long as it is nowhere more than this off: 0 to 100
/// percent points.
struct ThinOut {
  float tolerance = 1.0F;
};

/// Each to a multiple of so many minutes, 1 to 720: the nearest that is on the day. Of several with the same
/// one the first and the last stay, so that a steep rise stays one: the one that is further off takes the
/// multiple beside it. If that is not free it goes, too.
struct RoundTimes {
  std::int32_t minutes = 5;
};

/// Each to the nearest multiple of so many percent, 1 to 100, that is at most 100.
struct RoundPercents {
  std::int32_t percent = 5;
};

using ModeChange = std::variant<ShiftTime, ShiftPercent, ScalePercent, StretchTime, MirrorTime, SetJump,
                                CopyToChannels, ThinOut, RoundTimes, RoundPercents>;

/// Why nothing was changed.
enum class ChangeRefusal {
  None,
  NumberOutOfRange,  // of the change, or of the scope's span
  NoSteps,           // the scope names none
  SeveralChannels,   // to copy from
  NoOtherChannel,    // to copy to
  TooFewSteps,       // a channel would keep fewer than kMinChannelSteps
  TooManyRows,       // more merged steps than kMaxModeSteps, and more than before
};

struct ChangeResult {
  ChangeRefusal refusal = ChangeRefusal::None;
  int steps = 0;    // that the scope names
  int altered = 0;  // of the mode's that stayed: at another time or level, or another way to the next
  int removed = 0;
  int added = 0;
  int rows = 0;  // merged steps that the mode would have; 0 with NumberOutOfRange and NoSteps

  bool Changed() const {
    return refusal == ChangeRefusal::None && (altered != 0 || removed != 0 || added != 0);
  }
};

/// Changes the mode, or leaves all of it as it is: if the change is refused, and if it changes nothing. A
/// channel that is changed is left in order: ascending, one step a minute, times on the day, values from 0 to
/// 100 (what is no number counts as 0). Of the steps on one minute the one that was changed stays. Steps that
/// stay keep their ids. Takes time in proportion to the steps (n log n), thinning out with their square, of
/// which a channel has at most 1440 once it is in order.
ChangeResult ChangeMode(Mode& mode, const ModeChange& change, const ChangeScope& scope);

}  // namespace TCBase::Program
