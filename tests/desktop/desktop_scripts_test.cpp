// The scripts of what a person does, on the real window.

#include <gtest/gtest.h>

#include "common/platform.h"
#include "tests/desktop/desktop_driver.h"
#include "tests/support/scripts.h"
#include "tests/support/temporary_folder.h"

namespace {

constexpr const wchar_t* kFiles[] = {L"LumarineConfig.xml", L"LumarineLog.txt"};

/// The Documents folder as on the program's first day. What the user of this machine has there is put aside
/// and comes back.
class FirstDay {
 public:
  FirstDay() : documents_(platform::DocumentsFolder().value()) {
    for (const wchar_t* name : kFiles) Move(documents_ / name, aside_ / name);
  }
  ~FirstDay() {
    for (const wchar_t* name : kFiles) {
      std::filesystem::remove(documents_ / name);
      Move(aside_ / name, documents_ / name);
    }
  }
  FirstDay(const FirstDay&) = delete;
  FirstDay& operator=(const FirstDay&) = delete;

  const std::filesystem::path& documents() const { return documents_; }

 private:
  static void Move(const std::filesystem::path& from, const std::filesystem::path& to) {
    if (!std::filesystem::exists(from)) return;
    std::filesystem::copy_file(from, to);
    std::filesystem::remove(from);
  }

  const std::filesystem::path documents_;
  const TemporaryFolder folder_;
  const std::filesystem::path aside_ = folder_.path();
};

class DesktopScriptTest : public testing::TestWithParam<scripts::Script> {
 protected:
  const FirstDay firstDay;
  const TemporaryFolder work;
};

TEST_P(DesktopScriptTest, RunsOnTheRealWindow) {
  // With its drive, as the file dialogs tell paths.
  const std::filesystem::path examples = std::filesystem::absolute(LUMARINE_SOURCE_DIR) / "examples";
  desktop::DesktopUser user;
  GetParam().run(user, {examples, firstDay.documents(), work.path()});
}

INSTANTIATE_TEST_SUITE_P(All, DesktopScriptTest,
                         testing::ValuesIn(scripts::All().begin(), scripts::All().end()),
                         [](const auto& tested) { return std::string(tested.param.name); });

}  // namespace
