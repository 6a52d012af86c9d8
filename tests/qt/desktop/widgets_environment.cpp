// What widgets need around all tests of the program.

#include <gtest/gtest.h>

#include <QApplication>

#include <cstdlib>
#include <memory>

namespace {

class WidgetsEnvironment : public testing::Environment {
 public:
  void SetUp() override {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    setenv("LC_ALL", "C.UTF-8", 1);
    application_ = std::make_unique<QApplication>(count_, arguments_);
  }
  void TearDown() override { application_.reset(); }

 private:
  int count_ = 1;
  char name_[15] = "qt_shell_tests";
  char* arguments_[2] = {name_, nullptr};
  std::unique_ptr<QApplication> application_;
};

const testing::Environment* const environment = testing::AddGlobalTestEnvironment(new WidgetsEnvironment);

}  // namespace
