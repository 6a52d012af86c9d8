// The scripts of what a person does, on the Qt window.

#include <gtest/gtest.h>

#include "tests/qt_desktop/qt_user.h"
#include "tests/support/scripts.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/window_scripts.h"

namespace {

template <class Script>
class ScriptOn : public testing::TestWithParam<Script> {
 protected:
  void Run() {
    const std::filesystem::path source(LUMARINE_SOURCE_DIR);
    const std::filesystem::path pictures(LUMARINE_PICTURE_DIR);
    std::filesystem::create_directories(pictures);
    qt_desktop::QtUser user({documents.path(), source / "resources"});
    this->GetParam().run(user, {source / "examples", documents.path(), work.path(), source / "resources",
                                pictures / this->GetParam().name});
  }

  const TemporaryFolder documents;
  const TemporaryFolder work;
};

template <class Script>
std::string NameOf(const testing::TestParamInfo<Script>& tested) {
  return tested.param.name;
}

using QtScriptTest = ScriptOn<scripts::Script>;

TEST_P(QtScriptTest, RunsOnTheQtWindow) {
  Run();
}

INSTANTIATE_TEST_SUITE_P(All, QtScriptTest, testing::ValuesIn(scripts::All().begin(), scripts::All().end()),
                         NameOf<scripts::Script>);

using QtWindowTest = ScriptOn<scripts::WindowScript>;

TEST_P(QtWindowTest, RunsOnTheQtWindow) {
  Run();
}

INSTANTIATE_TEST_SUITE_P(OfWindows, QtWindowTest, testing::ValuesIn(scripts::OfWindows()),
                         NameOf<scripts::WindowScript>);

}  // namespace
