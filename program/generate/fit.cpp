#include "program/generate/fit.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

#include "program/curve.h"

namespace TCBase::Program::Generate {

namespace {

// From one row to the next on the ring: minutes from 0 to 1439, the length up to 1440.
struct FitSegment {
  int begin;
  int length;
  float error = 0.0F;  // at the worst minute between both rows
  int worst = 0;       // that minute
};

float RoundedAt(const MinuteCurve& curve, int minute) {
  return std::round(curve[static_cast<std::size_t>(minute % kMinutesPerDay)]);
}

// Fills in what is worst between the rows at both ends.
FitSegment Measured(const DayCurves& wanted, FitSegment segment) {
  for (const MinuteCurve& curve : wanted) {
    const float from = RoundedAt(curve, segment.begin);
    const float slope =
        (RoundedAt(curve, segment.begin + segment.length) - from) / static_cast<float>(segment.length);
    for (int i = 1; i < segment.length; ++i) {
      const int minute = (segment.begin + i) % kMinutesPerDay;
      const float error =
          std::abs(from + slope * static_cast<float>(i) - curve[static_cast<std::size_t>(minute)]);
      if (error > segment.error) {
        segment.error = error;
        segment.worst = minute;
      }
    }
  }
  return segment;
}

int BrightestMinute(const DayCurves& wanted) {
  int brightest = 0;
  float most = -1.0F;
  for (std::size_t minute = 0; minute < kMinutesPerDay; ++minute) {
    float sum = 0.0F;
    for (const MinuteCurve& curve : wanted) sum += curve[minute];
    if (sum <= most) continue;
    most = sum;
    brightest = static_cast<int>(minute);
  }
  return brightest;
}

// The minutes of the rows, in order.
std::vector<int> ChooseRows(const DayCurves& wanted, int mostRows) {
  std::vector<FitSegment> segments = {Measured(wanted, {BrightestMinute(wanted), kMinutesPerDay})};
  while (static_cast<int>(segments.size()) < mostRows) {
    const auto worst = std::ranges::max_element(segments, {}, &FitSegment::error);
    if (worst->error <= kGoodFit) break;
    const FitSegment whole = *worst;
    const int length = (whole.worst - whole.begin + kMinutesPerDay) % kMinutesPerDay;
    *worst = Measured(wanted, {whole.begin, length});
    segments.push_back(Measured(wanted, {whole.worst, whole.length - length}));
  }
  std::vector<int> rows;
  for (const FitSegment& segment : segments) rows.push_back(segment.begin);
  std::ranges::sort(rows);
  return rows;
}

Step StepAtMinute(int minute, float percent) {
  return MakeStep(minute * kSecondsPerMinute, percent);
}

// Steps at the rows, but for those in the midst of rows that are all the same. A channel that never changes
// has the first and the last row.
Channel StepsAt(const std::vector<int>& rows, const MinuteCurve& curve) {
  Channel channel;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const float percent = RoundedAt(curve, rows[i]);
    const float before = RoundedAt(curve, rows[(i + rows.size() - 1) % rows.size()]);
    const float after = RoundedAt(curve, rows[(i + 1) % rows.size()]);
    if (percent != before || percent != after) channel.push_back(StepAtMinute(rows[i], percent));
  }
  if (channel.empty()) {
    for (const int row : {rows.front(), rows.back()})
      channel.push_back(StepAtMinute(row, RoundedAt(curve, row)));
  }
  return channel;
}

DayCurves AllInRange(DayCurves curves) {
  for (MinuteCurve& curve : curves) std::ranges::transform(curve, curve.begin(), PercentInRange);
  return curves;
}

}  // namespace

float PercentInRange(float percent) {
  return percent > 0.0F ? std::min(percent, static_cast<float>(kMostPercent)) : 0.0F;
}

DayCurves CurvesOf(const Mode& mode) {
  DayCurves curves;
  for (std::size_t c = 0; c < curves.size(); ++c) {
    CurveCursor cursor(mode.channels[c]);
    for (std::size_t minute = 0; minute < kMinutesPerDay; ++minute)
      curves[c][minute] = PercentInRange(cursor.At(static_cast<std::int64_t>(minute) * kSecondsPerMinute));
  }
  return curves;
}

float FitError(const Mode& mode, const DayCurves& wanted) {
  const DayCurves curves = CurvesOf(mode);
  float error = 0.0F;
  for (std::size_t c = 0; c < curves.size(); ++c) {
    for (std::size_t minute = 0; minute < kMinutesPerDay; ++minute)
      error = std::max(error, std::abs(curves[c][minute] - PercentInRange(wanted[c][minute])));
  }
  return error;
}

Generated FitCurves(const DayCurves& wanted, int mostRows) {
  const DayCurves curves = AllInRange(wanted);
  std::vector<int> rows = ChooseRows(curves, std::clamp(mostRows, kFewestRows, kMaxModeSteps));
  // Light that never changes needs no row, and two steps all the same.
  if (rows.size() == 1) rows = {0, kMinutesPerDay / 2};
  Generated fit;
  for (std::size_t c = 0; c < curves.size(); ++c) fit.mode.channels[c] = StepsAt(rows, curves[c]);
  fit.error = FitError(fit.mode, curves);
  return fit;
}

Generated RoundedToFit(const Mode& wanted, int mostRows) {
  const DayCurves curves = CurvesOf(wanted);
  Generated rounded{wanted};
  for (Channel& channel : rounded.mode.channels) {
    ForEachStep(channel, [](Step& step) { step.value = std::round(PercentInRange(step.value)); });
    RenumberSteps(channel);
  }
  if (CountModeSteps(wanted) > std::clamp(mostRows, kFewestRows, kMaxModeSteps)) {
    rounded = FitCurves(curves, mostRows);
    rounded.mode.name = wanted.name;
    rounded.mode.description = wanted.description;
  }
  rounded.error = FitError(rounded.mode, curves);
  return rounded;
}

}  // namespace TCBase::Program::Generate
