#pragma once

// Numbers of resources/lumarine.rc.

namespace win32::resource {

inline constexpr int kTitle = 103;        // string
inline constexpr int kWindowClass = 109;  // string
inline constexpr int kLargeIcon = 107;
inline constexpr int kSmallIcon = 108;
inline constexpr int kMenu = 109;
inline constexpr int kAccelerators = 109;
inline constexpr int kLogo = 134;  // "PNG"

}  // namespace win32::resource
