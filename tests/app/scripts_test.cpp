// The scripts of what a person does, on the headless shell.

#include "tests/support/scripts.h"

#include <gtest/gtest.h>

#include "tests/app/app_test.h"

namespace {

class ScriptTest : public AppTest, public testing::WithParamInterface<scripts::Script> {};

TEST_P(ScriptTest, RunsHeadless) {
  const std::filesystem::path work = folder / "work";
  std::filesystem::create_directory(work);
  const std::filesystem::path source(LUMARINE_SOURCE_DIR);
  const scripts::Folders folders{source / "examples", folder.path(), work, source / "resources"};
  ASSERT_TRUE(user.ReadTranslations(folders.resources));
  GetParam().run(user, folders);
}

INSTANTIATE_TEST_SUITE_P(All, ScriptTest, testing::ValuesIn(scripts::All().begin(), scripts::All().end()),
                         [](const auto& tested) { return std::string(tested.param.name); });

}  // namespace
