// What the desktop program costs while nothing moves: the headless shell on the real clock, left alone for
// ten seconds, or as many as are asked for. Prints the share of one core that the process took, the worker's
// polling included.
//   app_idle [SECONDS]

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>

#include "common/platform.h"
#include "tests/support/headless_user.h"
#include "tests/support/virtual_clock.h"

// The shell in memory asks the tests' clock; here that is the platform's, which waits for nobody.

double virtual_clock::Seconds() {
  return static_cast<double>(platform::ClockTicks()) / static_cast<double>(platform::ClockFrequency());
}

virtual_clock::Waiting::Waiting() = default;
// With nobody waited for it has nothing to end; clang asks that its members have some use.
virtual_clock::Waiting::~Waiting() {
  counts_ = false;
  run_ = 0;
}

int main(int argc, char** argv) {
  constexpr double kSettleSeconds = 2.0;  // the chart is drawn for a second after the last input
  const double idleSeconds = argc > 1 ? std::strtod(argv[1], nullptr) : 10.0;
  if (!(idleSeconds > 0.0)) {
    std::fputs("usage: app_idle [SECONDS]\n", stderr);
    return 2;
  }
  const std::filesystem::path folder = std::filesystem::temp_directory_path() / "lumarine-idle";
  std::filesystem::create_directories(folder);
  {
    headless::HeadlessUser user(folder);
    user.Start();
    user.Wait(kSettleSeconds);
    const std::clock_t before = std::clock();
    user.Wait(idleSeconds);
    const double used = static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC;
    std::printf("%.2f %% of a core while idle\n", used / idleSeconds * 100.0);
    user.Close();
  }
  std::filesystem::remove_all(folder);
}
