#pragma once

// The light program: what the user designs, saves and sends to a controller. Plain values and free functions;
// nothing here points into anything else, so a document is copied, compared and handed to another thread as a
// whole. No function of this header fails, reports or throws (but for memory), except where it says so.

#include <array>
#include <concepts>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "program/time_of_day.h"

namespace TCBase::Program {

/// Output channels of a controller; fixed by the hardware of every model.
inline constexpr int kChannelCount = 5;
/// Merged steps that a mode may hold (the controllers' own limit), and the count that calls for a warning.
inline constexpr int kMaxModeSteps = 48;
inline constexpr int kManyModeSteps = 20;
/// Fewest steps that editing leaves in a channel.
inline constexpr int kMinChannelSteps = 2;

/// Full light, in percent.
inline constexpr int kMostPercent = 100;

/// One point of a channel's curve. Smallest unit of time is the minute.
struct Step {
  std::int32_t hour = 0;    // 0 to 23; a file may bring any number
  std::int32_t minute = 0;  // 0 to 59; a file may bring any number
  float value = 0.0F;       // percent, 0 to 100; truncated to a whole number wherever it leaves the editor
  bool jump = false;        // holds its value up to the next step, else fades to it
  std::uint32_t id = 0;     // serial number, tells steps apart across changes; neither stored nor compared

  /// All but `id`.
  friend bool operator==(const Step& a, const Step& b) {
    return a.hour == b.hour && a.minute == b.minute && a.value == b.value && a.jump == b.jump;
  }
};

/// Steps in ascending order of their minute, at most one a minute. The order is kept by those who write
/// (InsertStepSorted, SortSteps, RemoveDuplicateTimes) and never relied on by those who read: files and typed
/// text can bring another.
using Channel = std::vector<Step>;

/// One selectable program of a controller.
struct Mode {
  std::string name;         // UTF-8; dialogs limit it to 15 characters, a device shows the first 7
  std::string description;  // UTF-8; never sent to a device
  std::array<Channel, kChannelCount> channels;
};

/// What is told of one physical output; shared by all modes of a document.
struct ChannelInfo {
  std::string name;  // UTF-8; dialogs limit it to 20 characters; empty is shown as "Channel {1}"
  std::string description;
  std::uint32_t color = 0xFFFFFFFF;  // 0xAARRGGBB, alpha always 0xFF
};

/// The document.
struct ModeListView {
  std::array<ChannelInfo, kChannelCount> channelInfos;
  std::vector<Mode> modes;  // never empty while the program runs
  // The stretch of the day that the chart shows, in seconds; copied and undone with the document, but neither
  // compared nor saved.
  std::int32_t viewStart = 0;
  std::int32_t viewEnd = kSecondsPerDay;
  std::int32_t currentMode = 0;  // index into `modes`
};

/// Whether two documents hold the same program: names, descriptions and steps of the modes, colours and names
/// of the channels. A channel's description, the view and the current mode are left out.
bool operator==(const ModeListView& a, const ModeListView& b);

/// One row of a mode's merged step list, the shape in which a mode leaves the editor.
struct ModeStep {
  std::int32_t hour = 0;
  std::int32_t minute = 0;
  std::array<std::int32_t, kChannelCount> values{};  // whole percents
  std::array<bool, kChannelCount> jumps{};

  friend bool operator==(const ModeStep&, const ModeStep&) = default;
};

/// The chart's current choice. Any channel outside 0 to 4 counts as no selection; `step` may be stale and is
/// checked before each use.
struct StepSelection {
  ModeListView& document;
  std::int32_t channel = -1;
  std::int32_t step = -1;
};

/// Nothing is selected from then on.
inline void ForgetSelection(StepSelection& selection) {
  selection.channel = selection.step = -1;
}

// Steps.

/// Minute of the day; negative or past the end when the step is out of range. 64 bits hold it for any hour.
constexpr std::int64_t MinuteOfDay(const Step& step) {
  return MinuteOfDay(TimeOfDay{step.hour, step.minute});
}
constexpr std::int64_t MinuteOfDay(const ModeStep& step) {
  return MinuteOfDay(TimeOfDay{step.hour, step.minute});
}

/// Second of the day; as above.
constexpr std::int64_t SecondOfDay(const Step& step) {
  return MinuteOfDay(step) * kSecondsPerMinute;
}
constexpr std::int64_t SecondOfDay(const ModeStep& step) {
  return MinuteOfDay(step) * kSecondsPerMinute;
}

/// Puts a Step or ModeStep at a time, or at the minute of a second (see TimeOfDayAt).
template <class AnyStep>
constexpr void SetTime(AnyStep& step, const TimeOfDay& time) {
  step.hour = time.hour;
  step.minute = time.minute;
}
template <class AnyStep>
constexpr void SetTime(AnyStep& step, std::signed_integral auto second) {
  SetTime(step, TimeOfDayAt(second));
}

/// Brings value and time into range: values into 0 to 100, times past the day to 23:59, before it to 00:00.
/// A value that is not a number stays one.
void Normalize(Step& step);
/// "08:05"
std::string ToTimeText(const Step& step);
/// "08:05\n40%", not translated.
std::string ToChartLabel(const Step& step);
/// "(Time: 08:05) (Strength: 40, Jump)", translated.
std::string ToDescription(const Step& step);

// Channels.

/// Percent at a second of the day, the one definition for chart, demo, resampling and exports. The channel is
/// a ring: the last step leads to the first across midnight. Negative seconds count as 0, 86400 as 0 and so
/// on. All steps on one minute give an infinity or not a number. An empty channel gives 0. To ask for many
/// seconds in ascending order take a CurveCursor (curve.h).
float ChannelValueAt(const Channel& channel, std::int64_t second);
/// Highest value; 0 for an empty channel.
float ChannelPower(const Channel& channel);
/// Rescales so that the highest value becomes `power`. Nothing happens to a channel that is all zero, nor
/// with a power below 0.1, nor where either is not a number.
void ScaleChannel(Channel& channel, float power);
/// Inserts a copy with a fresh id before the first step that is not earlier. A step at the same minute stays.
void InsertStepSorted(Channel& channel, const Step& step);
/// Ascending by minute. Steps on one minute keep their order.
void SortSteps(Channel& channel);
/// Keeps the first of each run of adjacent steps with one minute. Expects sorted input.
void RemoveDuplicateTimes(Channel& channel);
/// Gives every step a fresh id, in order.
void RenumberSteps(Channel& channel);
void RenumberSteps(Mode& mode);
/// Calls `action` with each step, in order.
void ForEachStep(Channel& channel, const std::function<void(Step&)>& action);
/// The next value of the process-wide serial counter; any thread. The first is 1, so that 0 is nobody's.
std::uint32_t NextStepId();

/// A step that fades, at the minute of a second, with a fresh id.
Step MakeStep(std::signed_integral auto second, float value) {
  Step step;
  SetTime(step, second);
  step.value = value;
  step.id = NextStepId();
  return step;
}

// Modes.

/// The merged step list: the union of the minutes that any channel uses, ascending, with every channel's
/// value at each, truncated, and the jump flag of the first step that the channel has there. Replaces the
/// contents of `rows`. A step whose hour or minute is out of range is on no minute of the day: it bends its
/// channel's curve but has no row.
void CollectModeSteps(const Mode& mode, std::vector<ModeStep>& rows);
/// What all channels give at a second of the day, as whole percents, with the hour and the minute of that
/// second; no jumps.
ModeStep StepAt(const Mode& mode, std::int32_t second);
/// Number of rows that CollectModeSteps yields.
int CountModeSteps(const Mode& mode);

// The document.

/// The current mode; null if `currentMode` is the index of none.
Mode* FindCurrentMode(ModeListView& document);
const Mode* FindCurrentMode(const ModeListView& document);
/// The current mode, for those who know that the document has one; std::out_of_range if it has none.
Mode& CurrentMode(ModeListView& document);
const Mode& CurrentMode(const ModeListView& document);
/// Removes the current mode unless it is the only one; true if it went.
bool RemoveCurrentMode(ModeListView& document);

}  // namespace TCBase::Program
