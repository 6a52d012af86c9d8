#include "tests/support/fake_helper.h"

namespace {

platform::HelperResult next;
std::vector<std::vector<std::string>> starts;

}  // namespace

void fake_helper::Reset() {
  next = {};
  starts.clear();
}

void fake_helper::EndWith(platform::HelperResult result) {
  next = result;
}

const std::vector<std::vector<std::string>>& fake_helper::Starts() {
  return starts;
}

platform::HelperResult platform::RunHelper(const std::string& name,
                                           const std::vector<std::string>& arguments) {
  std::vector<std::string>& start = starts.emplace_back(arguments);
  start.insert(start.begin(), name);
  return next;
}
