#pragma once

// What can befall a datagram on a bad network, by chance and seed.

#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace sim {

struct FaultOptions {
  // Chances of 0 to 1.
  double loss = 0.0;          // of requests, and of answers
  double repeat = 0.0;        // of answers: it comes twice
  double shorten = 0.0;       // of answers: bytes are missing at the end
  double corrupt = 0.0;       // of answers: one byte is another
  int delayMilliseconds = 0;  // of every answer
  int answers = -1;           // after so many it is as good as switched off; negative for never
  std::uint32_t seed = 1;
};

/// The same options and the same datagrams meet the same fate, on every platform. One thread.
class Faults {
 public:
  explicit Faults(const FaultOptions& options)
      : options_(options), answersLeft_(options.answers), random_(options.seed) {}

  /// The controller neither hears nor answers any more.
  bool IsOff() const { return answersLeft_ == 0; }

  bool LosesRequest() { return Happens(options_.loss); }

  /// What arrives of an answer, which is not empty: nothing, one datagram, or two.
  std::vector<std::string> ArrivalsOf(const std::string& answer);

 private:
  bool Happens(double chance);
  /// A random number from 0 to `count` - 1; `count` is more than 0.
  std::size_t Below(std::size_t count) { return random_() % count; }

  const FaultOptions options_;
  int answersLeft_;      // negative without an end
  std::mt19937 random_;  // and no distribution, which every library makes its own way
};

}  // namespace sim
