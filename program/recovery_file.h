#pragma once

// What is kept of a program that is being edited, for the case that the process ends before it is saved. A
// program file, so that it can also be opened by hand, with more attributes on its root and one more child
// for each step whose percent is no whole number:
//
//   <modelist recovery='1' file='/home/ann/Tank.xml' mark='1311768467463790320' changed='2026-11-23 20:15'
//             current='0'>
//     <mode ...>...</mode>
//     <channel_info>...</channel_info>
//     <fraction mode='0' channel='4' step='2' bits='1111490560'/>      the 32-bit float, as a number
//   </modelist>
//
// Any thread; one object belongs to one.

#include <cstdint>
#include <string>
#include <string_view>

#include "common/date_time.h"
#include "program/program.h"

namespace TCBase::Program {

struct RecoveryFile {
  /// All of it that is not fresh with every start: the view and the numbers of steps are left out.
  ModeListView document;
  /// The program's own file, in UTF-8; empty if it has none.
  std::string file;
  /// ContentMark() of that file as the program knows it; 0 if it never saw any.
  std::uint64_t mark = 0;
  /// When it was changed last, to the minute.
  DateTime changed;
};

std::string ToRecoveryText(const RecoveryFile& recovery);

enum class RecoveryReading {
  Good,
  Newer,   // of a version that this program does not know
  Broken,  // anything else
};

/// Takes any bytes. Unless the answer is Good, `recovery` is in pieces and to be thrown away.
RecoveryReading ReadRecovery(std::string_view bytes, RecoveryFile& recovery);

}  // namespace TCBase::Program
