#pragma once

// What each change does to the draft of a channel, and whether its numbers are in range. The steps that are
// meant are changed where they stand in the draft: Finish puts them in order.

#include "program/change/draft.h"

namespace TCBase::Program {

bool IsInRange(const ShiftTime& change);
bool IsInRange(const ShiftPercent& change);
bool IsInRange(const ScalePercent& change);
bool IsInRange(const StretchTime& change);
bool IsInRange(const MirrorTime& change);
bool IsInRange(const SetJump& change);
bool IsInRange(const CopyToChannels& change);
bool IsInRange(const ThinOut& change);
bool IsInRange(const RoundTimes& change);
bool IsInRange(const RoundPercents& change);

void Apply(const ShiftTime& change, Draft& draft);
void Apply(const ShiftPercent& change, Draft& draft);
void Apply(const ScalePercent& change, Draft& draft);
void Apply(const StretchTime& change, Draft& draft);
void Apply(const MirrorTime& change, Draft& draft);
void Apply(const SetJump& change, Draft& draft);
void Apply(const ThinOut& change, Draft& draft);
void Apply(const RoundTimes& change, Draft& draft);
void Apply(const RoundPercents& change, Draft& draft);

/// Puts copies of the steps of `source` that are meant into the draft of another channel.
void CopyInto(const CopyToChannels& change, const ChangeScope& scope, const Draft& source, Draft& target);

}  // namespace TCBase::Program
