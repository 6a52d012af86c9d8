// The Linux desktop program at work, without a screen: how long the chart's frames take while a step is
// dragged, and what of memory stays behind resizes, zooms and the frames of a demo.
//   qt_desktop_work [TIMES]    1000 drags and 10000 of each other unless told otherwise; prints lines "what:
//   figure"

#include <malloc.h>
#include <unistd.h>
#include <QApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QMainWindow>
#include <QMouseEvent>
#include <QTemporaryDir>
#include <QWheelEvent>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

#include "app/application.h"
#include "app/window/control_table.h"
#include "app/window/numbers.h"
#include "platform/qt/desktop/desktop_shell.h"
#include "platform/qt/desktop/text.h"
#include "program/program_file.h"

namespace {

constexpr int kSteps = 48;
constexpr int kMovesOfADrag = 10;

// Takes the time of each frame of the chart.
class FrameTimes final : public QObject {
 public:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::Paint || isPainting_) return false;
    isPainting_ = true;
    QElapsedTimer timer;
    timer.start();
    QCoreApplication::sendEvent(watched, event);
    milliseconds.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
    isPainting_ = false;
    return true;
  }

  void Print(const char* what) {
    if (milliseconds.empty()) return;
    std::ranges::sort(milliseconds);
    std::printf("%s: %zu frames, median %.2f ms, 99 of 100 within %.2f ms, slowest %.2f ms\n", what,
                milliseconds.size(), milliseconds[milliseconds.size() / 2],
                milliseconds[milliseconds.size() * 99 / 100], milliseconds.back());
    milliseconds.clear();
  }

  std::vector<double> milliseconds;

 private:
  bool isPainting_ = false;
};

// Five channels of 48 steps each.
std::filesystem::path LargeProgram(const QTemporaryDir& folder) {
  TCBase::Program::ModeListView program = TCBase::Program::NewProgram();
  for (std::size_t channel = 0; channel < TCBase::Program::kChannelCount; ++channel) {
    TCBase::Program::Channel& steps = program.modes.front().channels.at(channel);
    steps.clear();
    for (int step = 0; step < kSteps; ++step) {
      const int minute = step * 30 + static_cast<int>(channel);
      steps.push_back({minute / 60, minute % 60, static_cast<float>((step * 37 + 20) % 101), false});
    }
  }
  const std::filesystem::path file = qt::PathOf(folder.filePath(QStringLiteral("large.xml")));
  if (!SaveProgram(program, file)) std::exit(1);
  return file;
}

long ResidentKilobytes() {
  malloc_trim(0);
  std::ifstream statm("/proc/self/statm");
  long size = 0;
  long resident = 0;
  statm >> size >> resident;
  return resident * (sysconf(_SC_PAGESIZE) / 1024);
}

class Bench {
 public:
  Bench(app::Application& application, QMainWindow& window)
      : application_(application),
        window_(window),
        chart_(*window.findChild<QWidget*>(
            QStringLiteral("control-%1").arg(static_cast<int>(app::Control::ChartWindow)))) {
    chart_.installEventFilter(&times_);
  }

  // A drag leaves an entry in the history and a line in the log, so the memory is asked for behind them.
  void All(int times) {
    Resize(times);
    Zoom(times);
    Demo(times);
  }

  void Drag(int count) {
    for (int i = 0; i < count; ++i) {
      const int x = 60 + i * 13 % 700;
      Mouse(QEvent::MouseButtonPress, x, 60, Qt::LeftButton);
      for (int move = 1; move <= kMovesOfADrag; ++move) {
        Mouse(QEvent::MouseMove, x + move, 60 + move, Qt::LeftButton);
        Frame();
      }
      Mouse(QEvent::MouseButtonRelease, x + kMovesOfADrag, 70, Qt::NoButton);
    }
    times_.Print("dragging a step");
  }

 private:
  void Resize(int count) {
    for (int i = 0; i < count; ++i) {
      window_.resize(900 + i * 7 % 300, 720 + i * 5 % 200);
      Frame();
    }
    window_.resize(1024, 738);
    times_.Print("resizing the window");
  }

  void Zoom(int count) {
    for (int i = 0; i < count; ++i) {
      const QPoint turn(0, i / 20 % 2 == 0 ? 120 : -120);
      QWheelEvent wheel(QPointF(400, 300), QPointF(400, 300), {}, turn, Qt::NoButton, Qt::ControlModifier,
                        Qt::NoScrollPhase, false);
      QCoreApplication::sendEvent(&chart_, &wheel);
      Frame();
    }
    times_.Print("zooming");
  }

  // What the worker would set, a second of the day a frame.
  void Demo(int count) {
    const auto& mode = application_.state.CurrentMode();
    for (int i = 0; i < count; ++i) {
      const int second = i * 9 % 86400;
      application_.state.demoState.SetStep(TCBase::Program::StepAt(mode, second));
      application_.state.demoState.SetRunning(second, TCBase::StatePlaying);
      application_.mainWindow.OnTimer(app::kDemoTimer);
      Frame();
    }
    application_.state.demoState.SetRunning(-1, TCBase::StateIdle);
    times_.Print("a demo's frames");
  }

  void Mouse(QEvent::Type type, int x, int y, Qt::MouseButton held) {
    const QPointF place(x, y);
    QMouseEvent event(type, place, chart_.mapToGlobal(place),
                      type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, held, Qt::NoModifier);
    QCoreApplication::sendEvent(&chart_, &event);
  }

  void Frame() {
    application_.Turn();
    chart_.repaint();
  }

  app::Application& application_;
  QMainWindow& window_;
  QWidget& chart_;
  FrameTimes times_;
};

}  // namespace

int main(int count, char** arguments) {
  QApplication desktop(count, arguments);
  const int times = count > 1 ? std::max(1, std::atoi(arguments[1])) : 10000;
  const QTemporaryDir folder;
  Settings settings(qt::PathOf(folder.filePath(QStringLiteral("settings.xml"))));
  qt::DesktopShell shell;
  const app::Shell plain = shell.Ports();
  app::Shell ports{plain.platform,
                   plain.mainWindow,
                   plain.chartWindow,
                   plain.controls,
                   plain.logPane,
                   plain.menu,
                   plain.questions,
                   plain.dialogs,
                   plain.stepTable,
                   plain.events,
                   plain.makeRenderer,
                   settings,
                   {},
                   {},
                   qt::PathOf(folder.filePath(QStringLiteral("state"))),
                   {LargeProgram(folder)}};
  app::Application application(ports);
  shell.Connect(application);
  if (!application.StartUp()) return 1;

  QMainWindow* window = nullptr;
  for (QWidget* widget : QApplication::topLevelWidgets()) {
    if (widget->objectName() == QStringLiteral("main-window")) window = static_cast<QMainWindow*>(widget);
  }
  if (window == nullptr) return 1;
  Bench bench(application, *window);
  bench.Drag(times / 10 + 1);
  bench.All(times / 10 + 1);  // what grows once is grown
  const long before = ResidentKilobytes();
  std::printf("--\n");
  bench.All(times);
  std::printf("memory: %ld KB before, %ld KB after\n", before, ResidentKilobytes());
  std::fflush(stdout);
  std::_Exit(0);
}
