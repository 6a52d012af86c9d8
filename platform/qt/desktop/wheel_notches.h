#pragma once

namespace qt {

/// Gathers the small turns of a touchpad or a smooth wheel into whole notches.
class WheelNotches {
 public:
  static constexpr int kNotch = 120;

  /// The whole notches that have come together with this turn, 120 for each; the rest waits for the next one.
  int WholeNotches(int turned) {
    // A turn the other way is meant to be seen at once.
    if ((turned < 0) != (rest_ < 0)) rest_ = 0;
    rest_ += turned;
    const int whole = rest_ / kNotch * kNotch;
    rest_ -= whole;
    return whole;
  }

 private:
  int rest_ = 0;
};

}  // namespace qt
