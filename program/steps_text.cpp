#include "program/steps_text.h"

#include <algorithm>
#include <cstddef>
#include <limits>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "OvkLib/src/ovk_text.h"
#include "common/log.h"
#include "common/message.h"
#include "common/truncate.h"

namespace TCBase::Program {

namespace {

// Line feeds count as blanks: a text with CR LF has one at the front of every line but the first.
constexpr char kBlanks[] = " \t\n\v\f\r";

// The C library's atoi, with the nearest limit for a number that is too large, where the library's result is
// undefined.
std::int32_t ReadNumber(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) text.remove_prefix(1);
  constexpr std::int64_t kTooLarge = std::int64_t{std::numeric_limits<std::int32_t>::max()} + 1;
  std::int64_t number = 0;
  for (const char c : text) {
    if (c < '0' || c > '9') break;
    number = std::min(number * 10 + (c - '0'), kTooLarge);
  }
  return static_cast<std::int32_t>(negative ? -number : std::min(number, kTooLarge - 1));
}

Step ReadStepWords(const std::vector<std::string>& words) {
  Step step{ReadNumber(words[0]), ReadNumber(words[1])};
  step.value = static_cast<float>(std::clamp(ReadNumber(words[2]), 0, kMostPercent));
  step.jump = words.size() == 4 && (words[3] == "J" || words[3] == "j");
  Normalize(step);
  return step;
}

std::string ToLine(const Step& step) {
  std::string line = ToTimeText(step) + ' ' + ToDecimal(TruncateToInt(step.value));
  if (step.jump) line += " J";
  return line + "\r\n";
}

std::string ToLine(const ModeStep& row) {
  std::string line = TimeText({row.hour, row.minute}) + " [";
  for (std::size_t c = 0; c < row.values.size(); ++c) {
    line += ToDecimal(row.values[c]);
    if (row.jumps[c]) line += 'J';
    if (c + 1 < row.values.size()) line += ", ";
  }
  return line + ']';
}

}  // namespace

std::int32_t ParseStepsText(std::string_view text, std::vector<Step>& steps) {
  steps.clear();
  std::int32_t passedOver = 0;
  std::vector<std::string> lines;
  Tokenize(text, "\r", lines);
  std::vector<std::string> words;
  for (const std::string& line : lines) {
    words.clear();
    Tokenize(line, " :", words);
    if (words.size() == 3 || words.size() == 4) {
      steps.push_back(ReadStepWords(words));
    } else if (line.find_first_not_of(kBlanks) != std::string::npos) {
      ++passedOver;
    }
  }
  return passedOver;
}

void InsertStepsSorted(Channel& channel, const std::vector<Step>& steps) {
  Channel added = steps;
  RenumberSteps(added);
  // Each step would go in front of those of its minute.
  std::reverse(added.begin(), added.end());
  SortSteps(added);

  Channel merged;
  merged.reserve(channel.size() + added.size());
  auto next = added.begin();
  for (const Step& step : channel) {
    // The first step of the channel that is not earlier is the place, in whatever order the channel is.
    while (next != added.end() && MinuteOfDay(*next) <= MinuteOfDay(step)) merged.push_back(*next++);
    merged.push_back(step);
  }
  merged.insert(merged.end(), next, added.end());
  channel.swap(merged);
}

std::int32_t AddStepsFromText(Channel& channel, std::string_view text) {
  std::vector<Step> steps;
  const std::int32_t passedOver = ParseStepsText(text, steps);
  for (const Step& step : steps) LogStatus(Message("Added new step {1}.", ToDescription(step)));
  InsertStepsSorted(channel, steps);
  return passedOver;
}

std::int32_t ReplaceStepsFromText(Channel& channel, std::string_view text) {
  channel.clear();
  return AddStepsFromText(channel, text);
}

std::u16string StepsToText(const Channel& channel) {
  std::string text;
  for (const Step& step : channel) text += ToLine(step);
  return WideFromUtf8(text);
}

std::vector<std::string> ModeStepLines(const ModeListView& document) {
  std::vector<std::string> lines;
  std::vector<ModeStep> rows;
  for (const Mode& mode : document.modes) {
    lines.push_back(Message("Steps for mode: {1}", mode.name).utf8());
    CollectModeSteps(mode, rows);
    for (const ModeStep& row : rows) lines.push_back(ToLine(row));
  }
  return lines;
}

void LogModeSteps(const ModeListView& document) {
  for (const std::string& line : ModeStepLines(document)) LogPlain(line);
}

}  // namespace TCBase::Program
