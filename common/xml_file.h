#pragma once

// XML trees on disk.

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>

#include "OvkLib/src/ovk_xml.h"
namespace ovk::xml {

/// Longest file that `load` takes and `save` writes: room for a thousand modes with as many steps as
/// controllers take.
inline constexpr std::size_t kMostXmlBytes = std::size_t{16} * 1024 * 1024;

/// Reads a file into `root`, without the blanks around texts that the indentation makes. False, with `root`
/// as it was, if the file cannot be read, is longer than kMostXmlBytes, would take more than kMostTreeBytes
/// or is no XML; logs nothing. `reason`, which may be null, gets the C library's text of why the file cannot
/// be read, and stays as it was if that is not it.
bool load(const std::filesystem::path& path, element& root, std::string* reason = nullptr);

/// Writes a file that `load` reads, all or nothing. False and a line on statusLog if that fails, also if it
/// would be longer than kMostXmlBytes: better unsaved and known than saved and never to be opened again.
/// `reason`, which may be null, gets what WriteFileBytes gives; `mark`, which may be null, the ContentMark()
/// of what was written.
bool save(const std::filesystem::path& path, const element& root, std::string* reason = nullptr,
          std::uint64_t* mark = nullptr);

}  // namespace ovk::xml
