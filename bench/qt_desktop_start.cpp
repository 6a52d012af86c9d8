// The desktop program, from the start of the process to its first painted frame, as bench/desktop_startup.sh
// compares it with an empty window; with the word "complete" behind it, to the frame that shows the loaded
// program, which the application's half second of rest comes before.

#include <QApplication>
#include <QEvent>
#include <QWidget>

#include <cstdlib>
#include <string_view>

#include "app/application.h"
#include "app/window/control_table.h"
#include "platform/qt/desktop/desktop_shell.h"

namespace {

bool IsChart(const QObject& object) {
  return object.objectName() == QStringLiteral("control-%1").arg(static_cast<int>(app::Control::ChartWindow));
}

// Ends the process when the chart has been painted, once the program is to be seen there.
class LastFrame final : public QObject {
 public:
  bool wanted = false;

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (!wanted || event->type() != QEvent::Paint || !IsChart(*watched)) return false;
    wanted = false;
    QCoreApplication::sendEvent(watched, event);
    std::_Exit(0);
  }
};

}  // namespace

int main(int count, char** arguments) {
  QApplication desktop(count, arguments);
  LastFrame frame;
  QApplication::instance()->installEventFilter(&frame);
  const bool complete = count > 2 && std::string_view(arguments[2]) == "complete";
  frame.wanted = !complete;
  qt::DesktopShell shell;
  app::Shell ports = shell.Ports();
  if (count > 1) ports.filesToOpen.emplace_back(arguments[1]);
  app::Application application(ports);
  shell.Connect(application);
  if (!application.StartUp()) return 1;
  frame.wanted = true;
  while (application.Turn()) {
  }
  return 1;
}
