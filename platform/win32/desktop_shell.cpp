#include "platform/win32/desktop_shell.h"

#include <memory>

#include "platform/win32/renderer_dx.h"

namespace win32 {

DesktopShell::DesktopShell(HINSTANCE instance, int showCommand)
    : mainWindow_(showCommand, controls_, logo_),
      dialogs_(instance, mainWindow_),
      platform_(instance, {mainWindow_, controls_, menu_, events_, logo_}) {}

app::Shell DesktopShell::Ports() {
  const auto makeRenderer = [this](const UX::ChartScene& scene) {
    plainRenderer_ = std::make_unique<UX::RendererGDI>(scene, chartWindow_);
    plainRenderer_->window = &chartWindow_;
    return std::make_unique<UX::RendererDX>(scene, chartWindow_);
  };
  return {platform_,  mainWindow_, chartWindow_, controls_, logPane_,    menu_,
          questions_, dialogs_,    stepTable_,   events_,   makeRenderer};
}

void DesktopShell::Connect(app::Application& application) {
  mainWindow_.Connect(application.mainWindow);
  chartWindow_.Connect(application.chartWindow);
  stepTable_.Connect(application.stepTableWindow);
}

}  // namespace win32
