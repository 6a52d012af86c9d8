#pragma once

// How the application asks for a name and a description, and where its dialogs come up.

#include <cstdint>
#include <string_view>

#include "chart/chart_layout.h"
#include "dialogs/dlg_mode_name.h"

namespace app {

/// In the main window's client area.
struct Point {
  std::int32_t x = 0;
  std::int32_t y = 0;
};

/// Where a dialog comes up; above the anchor that is at the bottom.
Point DialogPlace(const UX::Rect& anchor);
Point DialogPlaceAbove(const UX::Rect& anchor);

/// Of a dialog that belongs to no part of the window.
inline constexpr Point kDialogPlace{60, 50};

// UTF-16 units that can be entered.
inline constexpr std::int32_t kModeNameLength = 15;
inline constexpr std::int32_t kChannelNameLength = 20;
inline constexpr std::int32_t kDeviceNameLength = 15;

/// Keys of the translation.
struct NameDialogTexts {
  std::string_view title;
  std::string_view nameLabel;
  std::string_view descriptionLabel;
  std::int32_t maxLength;
};

/// A dialog with these texts, empty fields and nothing to copy from.
dialogs::ModeNameParams NameDialog(const NameDialogTexts& texts, const Point& place);

}  // namespace app
