#include "platform/qt/desktop/platform_steps.h"

#include <hidapi/hidapi.h>

#include "app/commands.h"
#include "devices/datagrams.h"
#include "platform/qt/desktop/control_widgets.h"

namespace qt {

bool PlatformSteps::Do(app::PlatformStep step) {
  using enum app::PlatformStep;
  switch (step) {
    case StartNetwork:
      platform::StartNetwork();
      break;
    case CreateMainWindow:
      pieces_.mainWindow.Create(QStringLiteral("Lumarine"));
      pieces_.menu.Build(app::MenuTable());
      break;
    case SetDefaultFont:
      pieces_.mainWindow.Inside().setFont(ControlFont());
      break;
    case ShowControls:
      pieces_.mainWindow.ShowControls();
      break;
    case LoadLogo:
      pieces_.mainWindow.LoadLogo();
      break;
    case TakeAccelerators:
      pieces_.events.UseAccelerators(app::AcceleratorTable());
      break;
    case DeleteLogo:
      pieces_.mainWindow.DeleteLogo();
      break;
    case StopHid:
      hid_exit();
      break;
    case StopNetwork:
      platform::StopNetwork();
      break;
    // Qt has done these by itself.
    case PrepareControls:
    case StartGraphics:
    case LoadNames:
    case PrepareMainWindow:
    case PrepareChartWindow:
    case TakeMenu:
    case StopGraphics:
      break;
  }
  return true;
}

}  // namespace qt
