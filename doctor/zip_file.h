#pragma once

// A ZIP file of a few texts.

#include <string>
#include <vector>

#include "doctor/bundle.h"

namespace doctor {

/// The files, in their order, deflated, each readable by everybody and dated to 1980-01-01: the same files
/// give the same bytes. Names are ASCII and no two are equal; all together is less than two gigabytes.
std::string ZipOf(const std::vector<BundleFile>& files);

}  // namespace doctor
