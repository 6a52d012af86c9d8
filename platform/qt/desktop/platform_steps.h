#pragma once

#include "app/window/ports.h"
#include "platform/qt/desktop/event_queue.h"
#include "platform/qt/desktop/main_window.h"
#include "platform/qt/desktop/menu.h"

namespace qt {

/// The pieces that the steps bring up and down.
struct Pieces {
  MainWindow& mainWindow;
  Menu& menu;
  EventQueue& events;
};

class PlatformSteps final : public app::PlatformPort {
 public:
  explicit PlatformSteps(const Pieces& pieces) : pieces_(pieces) {}

  bool Do(app::PlatformStep step) override;

 private:
  const Pieces pieces_;
};

}  // namespace qt
