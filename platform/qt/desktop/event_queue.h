#pragma once

#include <QObject>

#include <vector>

#include "app/main_window.h"
#include "app/window/command.h"
#include "app/window/ports.h"
#include "platform/qt/desktop/chart_window.h"
#include "platform/qt/desktop/main_window.h"

namespace qt {

/// Qt's event loop, turned by the application. Qt takes an event and sends it on in one go; the keys of
/// commands are caught on their way.
class EventQueue final : public QObject, public app::EventSource {
 public:
  /// Both outlive the queue.
  EventQueue(const MainWindow& window, const ChartWindow& chart);

  /// Before the keys are used.
  void Connect(app::MainWindow& logic) { logic_ = &logic; }
  void UseAccelerators(std::vector<app::Accelerator> accelerators);

  bool Take() override;
  bool OfferToAccelerators() override { return false; }
  void Dispatch() override {}
  void AwaitEvent(int milliseconds) override;
  bool IsQuit() const override { return window_.HasQuit(); }
  int ExitCode() const override { return window_.ExitCode(); }

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  /// The command of a key that is pressed in the main window, with nothing over it; 0 if there is none.
  int CommandFor(const QObject& watched, const QEvent& event) const;

  const MainWindow& window_;
  const ChartWindow& chart_;
  app::MainWindow* logic_ = nullptr;
  std::vector<app::Accelerator> accelerators_;
};

}  // namespace qt
