#pragma once

// What of the main window shows the document, and how somebody who has changed the document asks for it to be
// shown anew.

#include <cstdint>
#include <functional>

namespace app {

/// A set of the parts below.
using Parts = std::uint32_t;

namespace part {
inline constexpr Parts kNothing = 0;
inline constexpr Parts kChart = 1U << 0;  // painted anew
inline constexpr Parts kLane = 1U << 1;   // of the chart, the selected lane; nothing without one
inline constexpr Parts kRenderer =
    1U << 2;  // what the renderer keeps: places, and names and colours as pictures
inline constexpr Parts kPlaces = 1U << 3;       // of that, what goes by the view
inline constexpr Parts kModeList = 1U << 4;     // and the description
inline constexpr Parts kDescription = 1U << 5;  // of the current mode, with its number of steps
inline constexpr Parts kReadOuts = 1U << 6;  // time and values under the mouse, unless a demo shows its own
inline constexpr Parts kPower = 1U << 7;     // the power slider
inline constexpr Parts kScrollBar = 1U << 8;
inline constexpr Parts kZoomSlider = 1U << 9;
inline constexpr Parts kDeviceList = 1U << 10;
inline constexpr Parts kTitle = 1U << 11;
inline constexpr Parts kDemo =
    1U << 12;  // state, time and values of the demo, and the controls that it greys
inline constexpr Parts kMenusInDemo = 1U << 13;  // the menu bar at once, as while a demo runs
inline constexpr Parts kMenusAtRest = 1U << 14;  // the same, as without one
inline constexpr Parts kTexts = 1U << 15;  // in the language in use: menu bar, labels, and the demo's part
inline constexpr Parts kFocus = 1U << 16;  // goes to the main window, where the keys work
}  // namespace part

/// Brings parts of the window up to date. User interface thread.
using Refresh = std::function<void(Parts)>;

}  // namespace app
