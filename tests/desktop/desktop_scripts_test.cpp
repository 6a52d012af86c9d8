// The scripts of what a person does, on the real window.

#include <gtest/gtest.h>

#include "tests/desktop/desktop_driver.h"
#include "tests/desktop/first_day.h"
#include "tests/support/scripts.h"
#include "tests/support/temporary_folder.h"

namespace {

class DesktopScriptTest : public testing::TestWithParam<scripts::Script> {
 protected:
  const desktop::FirstDay firstDay;
  const TemporaryFolder work;
};

TEST_P(DesktopScriptTest, RunsOnTheRealWindow) {
  // With its drive, as the file dialogs tell paths.
  const std::filesystem::path source = std::filesystem::absolute(LUMARINE_SOURCE_DIR);
  desktop::DesktopUser user;
  GetParam().run(user, {source / "examples", firstDay.documents(), work.path(), source / "resources"});
}

INSTANTIATE_TEST_SUITE_P(All, DesktopScriptTest,
                         testing::ValuesIn(scripts::All().begin(), scripts::All().end()),
                         [](const auto& tested) { return std::string(tested.param.name); });

}  // namespace
