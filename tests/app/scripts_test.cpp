// The scripts of what a person does, on the headless shell.

#include "tests/support/scripts.h"

#include <gtest/gtest.h>

#include "tests/app/app_test.h"

namespace {

class ScriptTest : public AppTest, public testing::WithParamInterface<scripts::Script> {};

TEST_P(ScriptTest, RunsHeadless) {
  const std::filesystem::path work = folder / "work";
  std::filesystem::create_directory(work);
  const scripts::Folders folders{std::filesystem::path(LUMARINE_SOURCE_DIR) / "examples", folder.path(),
                                 work};
  GetParam().run(user, folders);
}

INSTANTIATE_TEST_SUITE_P(All, ScriptTest, testing::ValuesIn(scripts::All().begin(), scripts::All().end()),
                         [](const auto& tested) { return std::string(tested.param.name); });

}  // namespace
