#include "simulator/faults.h"

namespace sim {

std::vector<std::string> Faults::ArrivalsOf(const std::string& answer) {
  if (answersLeft_ > 0) --answersLeft_;
  std::vector<std::string> arriving;
  if (Happens(options_.loss)) return arriving;
  const int copies = Happens(options_.repeat) ? 2 : 1;
  for (int copy = 0; copy < copies; ++copy) {
    std::string bytes = answer;
    if (Happens(options_.shorten)) bytes.resize(Below(bytes.size()));
    if (Happens(options_.corrupt) && !bytes.empty()) {
      char& byte = bytes[Below(bytes.size())];
      byte = static_cast<char>(byte ^ static_cast<char>(1 + Below(255)));
    }
    arriving.push_back(std::move(bytes));
  }
  return arriving;
}

bool Faults::Happens(double chance) {
  constexpr double kNumbers = 4294967296.0;  // that the generator draws from
  return static_cast<double>(random_()) / kNumbers < chance;
}

}  // namespace sim
