#pragma once

// How the application asks for a name and a description, and where its dialogs come up.

#include <cstdint>
#include <string_view>

#include "common/geometry.h"
#include "dialogs/dlg_mode_name.h"

namespace app {

// Where dialogs come up, in the main window's client area; above the anchor that is at the bottom.
Point DialogPlace(const Rect& anchor);
Point DialogPlaceAbove(const Rect& anchor);

/// A dialog that belongs to no part of the window comes up here.
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
