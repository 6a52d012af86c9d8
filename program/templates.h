#pragma once

// Programs to start from, for what people light most: a day of five channels each, with a sentence about what
// it is for and where its levels come from.

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

#include "common/message.h"
#include "program/program.h"

namespace TCBase::Program {

/// Dark, up, level, down, dark again; the end may be on the next day. All steps stand on half hours and fade,
/// so that a TC421 plays them as they are.
struct Ramp {
  TimeOfDay begin;
  TimeOfDay full;
  TimeOfDay fading;
  TimeOfDay end;
  float percent = 0.0F;
};

struct TemplateChannel {
  TextKey name;
  std::uint32_t color;  // 0xFFRRGGBB
  Ramp ramp;
};

struct ProgramTemplate {
  std::string_view id;  // by which the command line calls it
  TextKey name;         // of the item and of the mode, at most 15 characters in any language
  TextKey sentence;
  std::array<TemplateChannel, kChannelCount> channels;
};

extern const ProgramTemplate kReefTemplate;
extern const ProgramTemplate kPlantedTankTemplate;
extern const ProgramTemplate kSeedlingsTemplate;
extern const ProgramTemplate kRefugiumTemplate;
extern const ProgramTemplate kBlackwaterTemplate;

/// All of them, in the order in which they are shown.
std::span<const ProgramTemplate* const> ProgramTemplates();
/// Null, if there is none of that id.
const ProgramTemplate* FindTemplate(std::string_view id);

/// A program of the template's mode, with the sentence for its description, and of the one for cleaning.
/// Names and descriptions are translated when it is made.
ModeListView NewProgramFrom(const ProgramTemplate& from);

}  // namespace TCBase::Program
