#pragma once

// Keys, from Qt's words to those of the application.

#include <span>

#include "app/window/command.h"

class QKeyEvent;

namespace qt {

/// The number of namespace app::key, or that of the capital letter or digit; 0 for other keys. Where the
/// keyboard has no Latin letters a key goes by its place.
int KeyNumber(const QKeyEvent& event);

/// The command whose key this is; 0 if it is none's.
int CommandOf(const QKeyEvent& event, std::span<const app::Accelerator> accelerators);

}  // namespace qt
