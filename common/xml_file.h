#pragma once

// XML trees on disk.

#include <cstddef>
#include <filesystem>

#include "OvkLib/src/ovk_xml.h"

namespace ovk::xml {

/// Longest file that `load` takes. In memory the smallest elements have forty times the room that they have
/// in the file; a program of five hundred modes with as many steps as controllers take has a third of this.
inline constexpr std::size_t kMostXmlBytes = std::size_t{16} * 1024 * 1024;

/// Reads a file into `root`, without the blanks around texts that the indentation makes. False, with `root`
/// as it was, if the file cannot be read, is longer than kMostXmlBytes or is no XML; logs nothing.
bool load(const std::filesystem::path& path, element& root);

/// Writes a file that `load` reads, all or nothing. False and a line on statusLog if that fails.
bool save(const std::filesystem::path& path, const element& root);

}  // namespace ovk::xml
