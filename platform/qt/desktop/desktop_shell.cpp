#include "platform/qt/desktop/desktop_shell.h"

#include <QApplication>

#include <memory>

#include "platform/qt/desktop/renderer.h"

namespace qt {

DesktopShell::DesktopShell() {
  // The application tells when it is over.
  QApplication::setQuitOnLastWindowClosed(false);
}

app::Shell DesktopShell::Ports() {
  const auto makeRenderer = [this](const UX::ChartScene& scene) {
    return std::make_unique<Renderer>(scene, chartWindow_, events_);
  };
  app::Shell ports{platform_,  mainWindow_, chartWindow_, controls_, logPane_,    menu_,
                   questions_, dialogs_,    stepTable_,   events_,   makeRenderer};
  ports.versions = {{"Qt", qVersion()}};
  return ports;
}

void DesktopShell::Connect(app::Application& application) {
  mainWindow_.Connect(application.mainWindow);
  chartWindow_.Connect(application.chartWindow);
  events_.Connect(application.mainWindow);
  stepTable_.Connect(application.stepTableWindow);
}

}  // namespace qt
