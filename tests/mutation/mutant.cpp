// Goes into each test program of the copy. LUMARINE_MUTANT is the number of the fault that the process has;
// LUMARINE_MUTANTS_REACHED names a file to which each test adds a line "Suite.Name MILLISECONDS NUMBER NUMBER
// ...".

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>

namespace mutants {

constexpr int kMost = 20000;

int NumberInEnvironment() {
  const char* const number = std::getenv("LUMARINE_MUTANT");
  return number != nullptr ? std::atoi(number) : 0;
}

int active = NumberInEnvironment();
unsigned char reached[kMost] = {};

class Reached : public testing::EmptyTestEventListener {
  void OnTestStart(const testing::TestInfo& /*test*/) override { std::ranges::fill(reached, 0); }
  void OnTestEnd(const testing::TestInfo& test) override {
    const char* const file = std::getenv("LUMARINE_MUTANTS_REACHED");
    if (file == nullptr) return;
    std::ofstream out(file, std::ios::app);
    out << test.test_suite_name() << '.' << test.name() << ' ' << test.result()->elapsed_time();
    for (int number = 1; number < kMost; ++number) {
      if (reached[number] != 0) out << ' ' << number;
    }
    out << '\n';
  }
};

const bool listens = (testing::UnitTest::GetInstance()->listeners().Append(new Reached), true);

}  // namespace mutants
