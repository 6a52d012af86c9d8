#include "tests/program/program_fixture.h"

#include <iomanip>
#include <sstream>
#include <utility>

#include "common/log.h"

namespace TCBase::Program {

void PrintTo(const Step& step, std::ostream* out) {
  *out << program_test::Told({step});
}

void PrintTo(const ModeStep& row, std::ostream* out) {
  *out << row.hour << ':' << row.minute;
  for (std::size_t c = 0; c < row.values.size(); ++c)
    *out << ' ' << row.values[c] << (row.jumps[c] ? "J" : "");
}

}  // namespace TCBase::Program

namespace program_test {

Channel GivenChannel(std::string_view steps) {
  Channel channel;
  std::istringstream all{std::string(steps)};
  for (std::string told; std::getline(all, told, ',');) {
    std::istringstream words(told);
    Step step;
    char colon = 0;
    char jump = 0;
    words >> step.hour >> colon >> step.minute >> step.value;
    step.jump = words >> jump && jump == 'J';
    channel.push_back(step);
  }
  return channel;
}

Mode GivenMode(std::initializer_list<std::string_view> channels) {
  Mode mode;
  std::size_t c = 0;
  for (const std::string_view steps : channels) mode.channels.at(c++) = GivenChannel(steps);
  return mode;
}

Mode GivenModeOfMergedSteps(int count, int minutesApart) {
  Mode mode;
  for (int i = 0; i < count; ++i) {
    const int minute = i * minutesApart;
    mode.channels[static_cast<std::size_t>(i) % kChannelCount].push_back(
        {minute / 60, minute % 60, static_cast<float>(i * 37 % 101)});
  }
  return mode;
}

ModeListView GivenDocument(Mode mode) {
  ModeListView document;
  document.modes.push_back(std::move(mode));
  return document;
}

std::vector<ModeStep> Rows(const Mode& mode) {
  std::vector<ModeStep> rows;
  CollectModeSteps(mode, rows);
  return rows;
}

std::string Told(const Channel& channel) {
  std::ostringstream told;
  told << std::setfill('0');
  for (const Step& step : channel) {
    if (told.tellp() > 0) told << ", ";
    told << std::setw(2) << step.hour << ':' << std::setw(2) << step.minute << ' ' << step.value;
    if (step.jump) told << " J";
  }
  return told.str();
}

std::uint32_t Serial(const Channel& channel, std::size_t index) {
  return channel.at(index).id;
}

std::vector<std::uint32_t> Serials(const Channel& channel) {
  std::vector<std::uint32_t> serials;
  for (const Step& step : channel) serials.push_back(step.id);
  return serials;
}

StatusLines::StatusLines() {
  statusLog.textHandler = nullptr;
  statusLog.Drain();
  statusLog.textHandler = [this](const std::string& text) { text_ += text; };
}

StatusLines::~StatusLines() {
  statusLog.Drain();
  statusLog.textHandler = nullptr;
}

std::vector<std::string> StatusLines::Take() {
  statusLog.Drain();
  std::vector<std::string> lines;
  const std::string text = std::exchange(text_, {});
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t end = text.find("\r\n", start);
    if (end == std::string::npos) break;
    lines.push_back(text.substr(start, end - start));
    start = end + 2;
  }
  return lines;
}

}  // namespace program_test
