// The scripts of what a person does, on the real window.

#include <gtest/gtest.h>

#include "tests/desktop/desktop_driver.h"
#include "tests/desktop/first_day.h"
#include "tests/support/scripts.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/window_scripts.h"

namespace {

template <class Script>
class ScriptOn : public testing::TestWithParam<Script> {
 protected:
  void Run() {
    // With its drive, as the file dialogs tell paths.
    const std::filesystem::path source = std::filesystem::absolute(LUMARINE_SOURCE_DIR);
    const std::filesystem::path pictures = std::filesystem::absolute(LUMARINE_PICTURE_DIR);
    std::filesystem::create_directories(pictures);
    desktop::DesktopUser user;
    this->GetParam().run(user, {source / "examples", firstDay.documents(), work.path(), source / "resources",
                                pictures / this->GetParam().name});
  }

  const desktop::FirstDay firstDay;
  const TemporaryFolder work;
};

template <class Script>
std::string NameOf(const testing::TestParamInfo<Script>& tested) {
  return tested.param.name;
}

using DesktopScriptTest = ScriptOn<scripts::Script>;

TEST_P(DesktopScriptTest, RunsOnTheRealWindow) {
  Run();
}

INSTANTIATE_TEST_SUITE_P(All, DesktopScriptTest,
                         testing::ValuesIn(scripts::All().begin(), scripts::All().end()),
                         NameOf<scripts::Script>);

using DesktopWindowTest = ScriptOn<scripts::WindowScript>;

TEST_P(DesktopWindowTest, RunsOnTheRealWindow) {
  Run();
}

INSTANTIATE_TEST_SUITE_P(OfWindows, DesktopWindowTest, testing::ValuesIn(scripts::OfWindows()),
                         NameOf<scripts::WindowScript>);

}  // namespace
