#pragma once

// Findings written out.

#include <string>
#include <vector>

#include "doctor/finding.h"

namespace doctor {

/// How signs are shown.
enum class Signs {
  Words,       // "[broken]", aligned: plain, for files, pipes and old terminals
  LooseWords,  // the same for letters of different widths, where nothing can be aligned
  Coloured,    // a coloured mark, by the escapes of terminals; UTF-8
};

/// A finding in the language of now: a line with its sign, what was looked at and how it is, and, indented
/// below, what to do if there is something. No control characters but those of the colours; ends with a line
/// feed.
std::string LinesOf(const Finding& finding, Signs signs);
/// All of them, and a line that sums up.
std::string TextOf(const std::vector<Finding>& findings, Signs signs);

/// The line that sums up, without a line end: "Nothing is broken. To look at: 2." for instance.
Sentence SummaryOf(const std::vector<Finding>& findings);

/// For other programs, in English: an object with "version", as the program calls its own, "worst", and
/// "findings", a list of objects with "id", "sign", "what", "found" and "advice", which may be empty. Signs
/// are "good", "look" and "broken". ASCII, on one line that ends with a line feed.
std::string JsonOf(const std::vector<Finding>& findings, const std::string& version);

}  // namespace doctor
