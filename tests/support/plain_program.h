#pragma once

// Plain definitions of what program/ does in a faster way: each spells out, step by step and without regard
// to time, what the result is. The tests hold the fast ways against them to the bit, order of removals and
// log lines included; a change of a rule begins here.

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "program/optimize.h"
#include "program/program.h"

namespace TCBase::Program::Plain {

/// The curve: see ChannelValueAt.
float ChannelValueAt(const Channel& channel, std::int64_t second);
/// Every minute of the day, every channel: see CollectModeSteps and CountModeSteps.
void CollectModeSteps(const Mode& mode, std::vector<ModeStep>& rows);
int CountModeSteps(const Mode& mode);
/// Compares the curve with a copy that lacks the step: see RemovalError.
std::int32_t RemovalError(const Channel& channel, std::size_t index);
/// Looks at every step of every channel anew: see FindCheapestStep.
StepRemoval FindCheapestStep(const Mode& mode);
/// One search per step removed: see RemoveExactSteps and OptimizeModeTo.
void RemoveExactSteps(Mode& mode);
bool OptimizeModeTo(Mode& mode, int maxSteps);
/// Inserts one step after the other: see InsertStepsSorted.
void InsertStepsSorted(Channel& channel, const std::vector<Step>& steps);
/// Every second of the day, every channel: see WriteRaw.
bool WriteRaw(const Mode& mode, std::string& data);

}  // namespace TCBase::Program::Plain
