#pragma once

// What can be done to steps in the dialog that changes them: what each change asks for, and how it is made of
// the answers.

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "common/message.h"
#include "program/change/mode_change.h"

namespace dialogs {

/// What stands in a field, once it has been read.
struct Answer {
  float number = 0.0F;
  std::int32_t whole = 0;  // minutes, percent
  TCBase::Program::ChannelSet channels = {};
};

/// What a field asks for.
struct AnswerKind {
  enum class Form { None, Shift, Number, Whole, Time, Channels };

  Form form = Form::None;  // None: the change has no use for the field
  TextKey label = {};
  std::string_view first = {};  // stands there at first
  std::int32_t least = 0;       // of a Number or a Whole
  std::int32_t most = 0;
};

struct ChangeRow {
  TextKey name;
  AnswerKind first;
  AnswerKind second;
  TCBase::Program::ModeChange (*make)(const Answer& first, const Answer& second);
};

/// In the order in which they are offered.
std::span<const ChangeRow> ChangeRows();

/// Reads what was typed, without the spaces around it; a number may have a comma for its point. Nothing for
/// what the kind does not ask for.
std::optional<Answer> ReadAnswer(const AnswerKind& kind, std::string_view text);
/// What is expected in such a field; translated.
std::u16string TellExpected(const AnswerKind& kind);

}  // namespace dialogs
