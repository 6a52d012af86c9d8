#pragma once

// Numbers of the pictures that are built into the program, all of the kind "SVG".

namespace qt::resource {

inline constexpr int kIcon = 107;
inline constexpr int kLogo = 134;

}  // namespace qt::resource
