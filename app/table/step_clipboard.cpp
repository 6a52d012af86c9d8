#include "app/table/step_clipboard.h"

#include <algorithm>
#include <cstddef>
#include <optional>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "OvkLib/src/ovk_text.h"
#include "app/table/step_cells.h"

namespace app {

using namespace TCBase::Program;

namespace {

using Words = std::vector<std::string>;

// Not more of a clipboard is looked at: a day has no more minutes, and a line is short.
constexpr std::size_t kMostPasted = std::size_t{1} << 20;

bool HasDigit(std::string_view line) {
  return line.find_first_of("0123456789") != std::string_view::npos;
}

bool IsNumber(const Words& words, std::size_t index) {
  return words.size() > index && words[index].find_first_not_of("0123456789") == std::string::npos;
}

// Cuts the first line off; it ends at CR LF or at either.
std::string_view TakeLine(std::string_view& rest) {
  const std::string_view line = rest.substr(0, rest.find_first_of("\r\n"));
  rest.remove_prefix(line.size());
  rest.remove_prefix(rest.starts_with("\r\n") ? 2 : rest.empty() ? 0 : 1);
  return line;
}

// Empty cells count, as a spreadsheet has them.
Words CellsOf(std::string_view line) {
  Words cells;
  for (std::size_t begin = 0; begin <= line.size();) {
    const std::size_t end = std::min(line.find('\t', begin), line.size());
    cells.emplace_back(line.substr(begin, end - begin));
    begin = end + 1;
  }
  return cells;
}

// Time, percent and what follows. Words may have the hour and the minute apart, as "8 30 40".
Words WordsOf(std::string_view line) {
  Words words;
  Tokenize(line, " ", words);
  if (IsNumber(words, 0) && IsNumber(words, 1) && IsNumber(words, 2)) {
    words[0] += ':' + words[1];
    words.erase(words.begin() + 1);
  }
  return words;
}

// "08:30:00" without the seconds.
std::string_view WithoutSeconds(std::string_view time) {
  const std::size_t first = time.find(':');
  return first == std::string_view::npos ? time : time.substr(0, time.find(':', first + 1));
}

std::optional<Step> StepOfLine(std::string_view line) {
  const bool isCells = line.find('\t') != std::string_view::npos;
  const Words words = isCells ? CellsOf(line) : WordsOf(line);
  if (words.size() < 2) return std::nullopt;
  const std::optional<TimeOfDay> time = TimeFromText(WithoutSeconds(words[0]));
  const std::optional<float> percent = PercentFromText(words[1]);
  if (!time || !percent) return std::nullopt;
  Step step{time->hour, time->minute, *percent};
  // What is no word for a jump is none, as in the text that one types.
  step.jump = words.size() > 2 && JumpFromText(words[2]).value_or(false);
  return step;
}

void KeepLastOfMinute(std::vector<Step>& steps) {
  std::ranges::reverse(steps);
  SortSteps(steps);
  RemoveDuplicateTimes(steps);
}

}  // namespace

std::u16string StepsForClipboard(const std::vector<Step>& steps) {
  std::string text;
  for (const Step& step : steps) {
    text += ToTimeText(step) + "\t " + ExactPercent(step.value) + '\t';
    if (step.jump) text += " J";
    text += "\r\n";
  }
  return WideFromUtf8(text);
}

std::u16string RowsForClipboard(const std::vector<TableRow>& rows) {
  std::u16string text;
  for (const TableRow& row : rows) {
    for (const std::u16string& cell : row) {
      if (&cell != &row.front()) text += u'\t';
      text += cell;
    }
    text += u"\r\n";
  }
  return text;
}

PastedSteps StepsFromClipboard(std::u16string_view text) {
  const std::string utf8 = Utf8FromWide(text.substr(0, kMostPasted));
  PastedSteps pasted;
  std::int32_t number = 0;
  for (std::string_view rest = utf8; !rest.empty();) {
    const std::string_view line = TakeLine(rest);
    ++number;
    if (!HasDigit(line)) continue;
    const std::optional<Step> step = StepOfLine(line);
    if (!step) return {{}, number};
    pasted.steps.push_back(*step);
  }
  KeepLastOfMinute(pasted.steps);
  return pasted;
}

}  // namespace app
