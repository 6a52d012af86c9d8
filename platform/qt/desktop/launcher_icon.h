#pragma once

#include "app/window/ports.h"

namespace qt {

/// Shows on the program's icon how far the work is, where the desktop has a launcher or a dock that listens:
/// the signal com.canonical.Unity.LauncherEntry.Update on the session's bus, which GNOME's docks, KDE's task
/// bar and others take. One who does not know the state "unmeasured" sees an empty bar.
void ShowOnLauncherIcon(const app::WorkSign& sign);

}  // namespace qt
