#pragma once

// Whole files and resources as byte strings, and paths as text.

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <iosfwd>
#include <string>
#include <string_view>

/// Longest file that ReadFileBytes takes. The program's own files are far below a megabyte.
inline constexpr std::size_t kMostFileBytes = std::size_t{64} * 1024 * 1024;

/// Opens a file, or whatever else stands there, to be read. 0, or the C library's number of the error. Opened
/// again where a signal breaks that off, as happens on a drive of another computer.
int OpenToRead(const std::filesystem::path& path, std::ifstream& file);

/// Reads a whole file. False, with `out` as it was, if it is no regular file, cannot be read or is longer
/// than `most` bytes; `reason`, which may be null, then gets the C library's text of why. Logs nothing.
bool ReadFileBytes(const std::filesystem::path& path, std::string& out, std::size_t most = kMostFileBytes,
                   std::string* reason = nullptr);

/// Writes a file. Without `append` it is all or nothing: the old content is there until the new one is
/// complete on disk. On failure logs "Error creating file {1}, error: {2}" on statusLog and returns false. A
/// file that had to be written in place may have taken a part then; the log names the copy of what it was to
/// hold. `reason`, which may be null, gets what was logged behind the file's name.
bool WriteFileBytes(const std::filesystem::path& path, std::string_view data, bool append = false,
                    std::string* reason = nullptr);

/// Tells contents of files apart, by chance and not by malice: FNV-1a, 64 bits.
std::uint64_t ContentMark(std::string_view bytes);

/// Whether something stands at a path, or might: the system does not tell, as of a drive that is gone. Ask
/// this before something is replaced unasked.
bool MayBeThere(const std::filesystem::path& path);

/// Copies the resource `id` of the kind `type` of this executable. False, with `out` as it was, if it is
/// absent or empty.
bool LoadResourceBytes(int id, std::string_view type, std::string& out);

/// Paths as UTF-8 text and back; text that is no path of the platform is carried as well as it can be.
std::string Utf8FromPath(const std::filesystem::path& path);
std::filesystem::path PathFromUtf8(std::string_view text);
