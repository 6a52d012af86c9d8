#pragma once

#include <cstdint>

#include "app/window/ports.h"

namespace app {

/// A slider of the main window. A platform's slider has moved already when it tells of a click beside its
/// thumb or of a key, and by a distance of its own. The rules count from where the slider stood before, so
/// its position is the one that was set last, and the control is never asked for it. User interface thread.
class Slider {
 public:
  /// `maximum` is what the control has from the platform; the least position is 0. Nothing is sent to the
  /// control before it is set.
  Slider(ControlsPort& controls, Control control, std::int32_t maximum)
      : controls_(controls), control_(control), maximum_(maximum) {}
  Slider(const Slider&) = delete;
  Slider& operator=(const Slider&) = delete;

  /// `tick` 0 leaves the ticks as they are.
  void SetRange(std::int32_t maximum, std::int32_t page, std::int32_t tick);
  /// Positions off the range go to its nearest end.
  void SetPosition(std::int32_t position);
  std::int32_t Position() const { return position_; }
  void SetEnabled(bool enabled) { controls_.SetEnabled(control_, enabled); }

 private:
  ControlsPort& controls_;
  const Control control_;
  std::int32_t maximum_;
  std::int32_t position_ = 0;
};

}  // namespace app
