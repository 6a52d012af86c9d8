#include "app/window/day_time.h"

#include <algorithm>

#include "OvkLib/src/ovk_format.h"
#include "program/program.h"

namespace app {

std::string DayTimeText(std::int32_t second) {
  const std::int32_t shown = std::clamp(second, 0, TCBase::Program::kSecondsPerDay - 1);
  ovk::format text("{1}:{2}:{3}");
  text.arg(shown / 3600, 2);
  text.arg(shown % 3600 / 60, 2);
  text.arg(shown % 60, 2);
  return std::string(text.text().view());
}

}  // namespace app
