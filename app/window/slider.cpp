#include "app/window/slider.h"

#include <algorithm>

namespace app {

void Slider::SetRange(std::int32_t maximum, std::int32_t page, std::int32_t tick) {
  maximum_ = maximum;
  position_ = std::min(position_, maximum);
  controls_.SetSliderRange(control_, maximum, page, tick);
}

void Slider::SetPosition(std::int32_t position) {
  position_ = std::clamp(position, 0, maximum_);
  controls_.SetSliderPosition(control_, position_);
}

}  // namespace app
