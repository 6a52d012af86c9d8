// What Qt needs around all tests of the program.

#include <gtest/gtest.h>

#include <QGuiApplication>

#include <cstdlib>
#include <memory>

namespace {

class QtEnvironment : public testing::Environment {
 public:
  void SetUp() override {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    setenv("LC_ALL", "C.UTF-8", 1);
    application_ = std::make_unique<QGuiApplication>(count_, arguments_);
  }
  void TearDown() override { application_.reset(); }

 private:
  int count_ = 1;
  char name_[9] = "qt_tests";
  char* arguments_[2] = {name_, nullptr};
  std::unique_ptr<QGuiApplication> application_;
};

const testing::Environment* const environment = testing::AddGlobalTestEnvironment(new QtEnvironment);

}  // namespace
