#pragma once

// What is built into the programs, which stand beside the test program.

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <string>
#include <string_view>

#include "platform/win32/windows_headers.h"

namespace desktop {

inline std::filesystem::path ProgramFile(const std::string& name = "Lumarine.exe") {
  std::array<wchar_t, 1024> own{};
  GetModuleFileNameW(nullptr, own.data(), static_cast<DWORD>(own.size()));
  return std::filesystem::path(own.data()).parent_path() / name;
}

/// A test that looks into Lumarine.exe without starting it.
class ProgramResources : public testing::Test {
 protected:
  void SetUp() override {
    program_ = LoadLibraryExW(ProgramFile().c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    ASSERT_NE(program_, nullptr) << ProgramFile();
  }
  ~ProgramResources() override { FreeLibrary(program_); }

  /// Empty, if there is no such resource.
  std::string_view Bytes(int id, const wchar_t* type) const {
    const HRSRC found = FindResourceW(program_, MAKEINTRESOURCEW(id), type);
    if (found == nullptr) return {};
    return {static_cast<const char*>(LockResource(LoadResource(program_, found))),
            SizeofResource(program_, found)};
  }

  HMODULE program_ = nullptr;
};

inline std::string Ascii(std::wstring_view text) {
  std::string result;
  for (const wchar_t character : text) result += static_cast<char>(character < 128 ? character : L'?');
  return result;
}

}  // namespace desktop
