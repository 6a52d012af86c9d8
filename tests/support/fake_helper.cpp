#include "tests/support/fake_helper.h"

namespace {

platform::HelperResult next;
int successes = 0;  // of the next ones, before that
std::vector<std::vector<std::string>> starts;

}  // namespace

void fake_helper::Reset() {
  next = {};
  successes = 0;
  starts.clear();
}

void fake_helper::EndWith(platform::HelperResult result, int before) {
  next = result;
  successes = before;
}

const std::vector<std::vector<std::string>>& fake_helper::Starts() {
  return starts;
}

platform::HelperResult platform::RunHelper(const std::string& name,
                                           const std::vector<std::string>& arguments) {
  std::vector<std::string>& start = starts.emplace_back(arguments);
  start.insert(start.begin(), name);
  if (successes == 0) return next;
  --successes;
  return {};
}

platform::HelperResult platform::RunSystemProgram(const std::string& name,
                                                  const std::vector<std::string>& arguments) {
  return RunHelper(name, arguments);
}
