#pragma once

// XML trees on disk.

#include <filesystem>

#include "OvkLib/src/ovk_xml.h"

namespace ovk::xml {

/// Reads a file into `root`, without the blanks around texts that the indentation makes. False, with `root`
/// as it was, if the file cannot be read or is no XML; logs nothing.
bool load(const std::filesystem::path& path, element& root);

/// Writes a file that `load` reads, all or nothing. False and a line on statusLog if that fails.
bool save(const std::filesystem::path& path, const element& root);

}  // namespace ovk::xml
