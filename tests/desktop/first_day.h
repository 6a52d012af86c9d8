#pragma once

#include <filesystem>

#include "common/platform.h"
#include "tests/support/temporary_folder.h"

namespace desktop {

/// The Documents folder as on the program's first day. What the user of this machine has there is put aside
/// and comes back.
class FirstDay {
 public:
  FirstDay() : documents_(platform::DocumentsFolder().value()) {
    for (const wchar_t* name : kFiles) Move(documents_ / name, aside_ / name);
    if (std::filesystem::exists(state_)) std::filesystem::rename(state_, stateAside_);
  }
  ~FirstDay() {
    for (const wchar_t* name : kFiles) {
      std::filesystem::remove(documents_ / name);
      Move(aside_ / name, documents_ / name);
    }
    std::filesystem::remove_all(state_);
    if (std::filesystem::exists(stateAside_)) std::filesystem::rename(stateAside_, state_);
  }
  FirstDay(const FirstDay&) = delete;
  FirstDay& operator=(const FirstDay&) = delete;

  const std::filesystem::path& documents() const { return documents_; }

 private:
  static constexpr const wchar_t* kFiles[] = {L"LumarineConfig.xml", L"LumarineLog.txt",
                                              L"LumarineRecovery-1.xml"};

  static void Move(const std::filesystem::path& from, const std::filesystem::path& to) {
    if (!std::filesystem::exists(from)) return;
    std::filesystem::copy_file(from, to);  // there is no renaming from one drive to another
    std::filesystem::remove(from);
  }

  const std::filesystem::path documents_;
  const TemporaryFolder aside_;
  const std::filesystem::path state_ = platform::StateFolder().value();
  const std::filesystem::path stateAside_ = state_.native() + L" aside";
};

}  // namespace desktop
