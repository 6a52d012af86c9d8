// common/helper_program.h on Windows, where no program of ours has a helper or needs one of the system's.

#include "common/helper_program.h"

namespace platform {

HelperResult RunHelper(const std::string&, const std::vector<std::string>&) {
  return {HelperResult::Unsupported, 0};
}

HelperResult RunSystemProgram(const std::string&, const std::vector<std::string>&) {
  return {HelperResult::Unsupported, 0};
}

}  // namespace platform
