#pragma once

// How the application asks for a name and a description, and where its dialogs come up.

#include <cstdint>

#include "common/geometry.h"
#include "common/message.h"
#include "dialogs/dlg_mode_name.h"

namespace app {

// Where dialogs come up, in the main window's client area; above the anchor that is at the bottom.
Position DialogPlace(const Rect& anchor);
Position DialogPlaceAbove(const Rect& anchor);

/// A dialog that belongs to no part of the window comes up here.
inline constexpr Position kDialogPlace{60, 50};

// UTF-16 units that can be entered.
inline constexpr std::int32_t kModeNameLength = 15;
inline constexpr std::int32_t kChannelNameLength = 20;
inline constexpr std::int32_t kDeviceNameLength = 15;

/// What a dialog that asks for a name says, and how long a name it takes.
struct NameQuestion {
  TextKey title;
  TextKey nameLabel;
  TextKey descriptionLabel;
  std::int32_t maxLength;
};

/// The dialog with empty fields and nothing to copy from.
dialogs::ModeNameParams NameDialog(const NameQuestion& question, const Position& place);

}  // namespace app
