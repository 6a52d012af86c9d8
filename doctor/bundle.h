#pragma once

// What a user sends along with a question: the report, versions, settings and logs in one ZIP file. Nothing
// in it names the user, the computer, the home folder, a wireless network or its password. It is made in
// memory first, so that the user sees all of it before it is written.

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "doctor/examination.h"
#include "doctor/finding.h"

namespace doctor {

/// One file of a bundle.
struct BundleFile {
  std::string name;     // "report.txt": ASCII, no folders
  std::string content;  // as it will be read by others: all is struck out that they are not to know
};

/// A name and a value: {"Lumarine", "4.7 build 496"}, {"Qt", "6.4.2"}.
using Versions = std::vector<std::pair<std::string, std::string>>;

/// A bundle of `findings`. `versions` is what the calling program knows of itself, its own name and version
/// first; those of the system and of this library are added. Reads the files that `subject` names; one that
/// is not there or cannot be read is not in the bundle. Of a long log the last part is in it. Any thread;
/// takes some milliseconds a megabyte of log.
std::vector<BundleFile> MakeBundle(const Subject& subject, const std::vector<Finding>& findings,
                                   const Versions& versions);

/// Writes a bundle as a ZIP file, all or nothing, in the place of a file that is there already. The same
/// files give the same bytes. On failure a line on statusLog and false; `reason` as of WriteFileBytes.
bool WriteBundle(const std::filesystem::path& file, const std::vector<BundleFile>& bundle,
                 std::string* reason = nullptr);

}  // namespace doctor
