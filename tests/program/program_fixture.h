#pragma once

// The words that the tests of light programs are told in.

#include <cstdint>
#include <initializer_list>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "program/program.h"

namespace TCBase::Program {

// How values look in a failed test.
void PrintTo(const Step& step, std::ostream* out);
void PrintTo(const ModeStep& row, std::ostream* out);

}  // namespace TCBase::Program

namespace program_test {

using namespace TCBase::Program;

/// A channel told as in "10:00 80 J, 12:00 0", in that order; values may have fractions, numbers any size.
Channel GivenChannel(std::string_view steps);

/// A mode with these channels first, and empty ones behind.
Mode GivenMode(std::initializer_list<std::string_view> channels);

/// A mode of that many merged steps: minute after minute (or as told), one channel after the other in turn.
Mode GivenModeOfMergedSteps(int count, int minutesApart = 1);

/// A document with that mode alone.
ModeListView GivenDocument(Mode mode);

/// The merged table.
std::vector<ModeStep> Rows(const Mode& mode);

/// A channel as it is told to GivenChannel.
std::string Told(const Channel& channel);

std::uint32_t Serial(const Channel& channel, std::size_t index);
std::vector<std::uint32_t> Serials(const Channel& channel);

/// What goes to the status log while it lives, line by line.
class StatusLines {
 public:
  StatusLines();
  ~StatusLines();
  StatusLines(const StatusLines&) = delete;
  StatusLines& operator=(const StatusLines&) = delete;

  /// The lines since the last call.
  std::vector<std::string> Take();

 private:
  std::string text_;
};

}  // namespace program_test
