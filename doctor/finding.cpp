#include "doctor/finding.h"

#include <algorithm>

namespace doctor {

std::string_view NameOf(Sign sign) {
  switch (sign) {
    case Sign::Good:
      return "good";
    case Sign::Look:
      return "look";
    case Sign::Broken:
      break;
  }
  return "broken";
}

Sign WorstOf(const std::vector<Finding>& findings) {
  Sign worst = Sign::Good;
  for (const Finding& finding : findings) worst = std::max(worst, finding.sign);
  return worst;
}

}  // namespace doctor
