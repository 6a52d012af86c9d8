// common/platform.h, the system, on Windows: folders and resources. Files are in file_replace.cpp.

#include <memory>
#include <string>

#include "common/platform.h"
#include "platform/win32/windows_headers.h"
// after windows.h
#include <shlobj.h>

namespace platform {

namespace {

std::optional<std::filesystem::path> KnownFolder(const KNOWNFOLDERID& id) {
  PWSTR folder = nullptr;
  const HRESULT result = SHGetKnownFolderPath(id, KF_FLAG_CREATE, nullptr, &folder);
  // The buffer is to be freed after a failure too.
  const std::unique_ptr<wchar_t, decltype(&CoTaskMemFree)> held(folder, &CoTaskMemFree);
  if (FAILED(result)) return std::nullopt;
  return std::filesystem::path(folder);
}

}  // namespace

std::optional<std::filesystem::path> DocumentsFolder() {
  return KnownFolder(FOLDERID_Documents);
}

std::optional<std::filesystem::path> StateFolder() {
  const auto folder = KnownFolder(FOLDERID_LocalAppData);
  if (!folder) return std::nullopt;
  return *folder / L"Lumarine";
}

std::optional<std::filesystem::path> FindCompanionFile(const std::string& name) {
  constexpr DWORD kMostLetters = 32'768;  // of a path with long names
  std::wstring program(kMostLetters, L'\0');
  program.resize(GetModuleFileNameW(nullptr, program.data(), kMostLetters));
  const std::filesystem::path folder = std::filesystem::path(program).parent_path();
  const std::filesystem::path file(std::u8string(name.begin(), name.end()));
  std::error_code error;
  for (const auto& place : {folder / file, folder.parent_path() / "share" / "lumarine" / file})
    if (std::filesystem::is_regular_file(place, error)) return place;
  return std::nullopt;
}

std::optional<std::string_view> FindResourceBytes(int id, std::string_view type) {
  const HMODULE program = nullptr;
  const std::wstring wideType(type.begin(), type.end());  // types are plain ASCII words
  const HRSRC found = FindResourceW(program, MAKEINTRESOURCEW(id), wideType.c_str());
  if (found == nullptr) return std::nullopt;
  const HGLOBAL loaded = LoadResource(program, found);
  const DWORD size = SizeofResource(program, found);
  const void* bytes = loaded != nullptr ? LockResource(loaded) : nullptr;
  if (bytes == nullptr || size == 0) return std::nullopt;
  return std::string_view(static_cast<const char*>(bytes), size);
}

}  // namespace platform
