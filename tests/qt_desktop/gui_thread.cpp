#include "tests/qt_desktop/gui_thread.h"

#include <qpa/qwindowsysteminterface.h>

#include <QCoreApplication>
#include <QEvent>
#include <QObject>

#include <future>
#include <memory>
#include <thread>
#include <utility>

namespace qt_desktop {

namespace {

class Errand final : public QEvent {
 public:
  explicit Errand(std::function<void()> act) : QEvent(User), act_(std::move(act)) {}
  void Run() const { act_(); }

 private:
  const std::function<void()> act_;
};

class Porter final : public QObject {
 public:
  bool event(QEvent* event) override {
    if (event->type() != QEvent::User) return QObject::event(event);
    static_cast<Errand*>(event)->Run();
    return true;
  }
};

// Of the windows' thread.
std::unique_ptr<Porter> porter;
std::function<void()> waitingProgram;

void Post(std::function<void()> act, int priority) {
  QCoreApplication::postEvent(porter.get(), new Errand(std::move(act)), priority);
}

void PostAndWait(const std::function<void()>& act, int priority) {
  const auto errand = std::make_shared<std::packaged_task<void()>>(act);
  Post([errand] { (*errand)(); }, priority);
  errand->get_future().wait();
}

}  // namespace

void InGui(const std::function<void()>& act) {
  PostAndWait(act, Qt::NormalEventPriority);
}

void PostToGui(std::function<void()> act) {
  Post(std::move(act), Qt::NormalEventPriority);
}

void AwaitGui() {
  // Behind all that is posted by then. Input has a queue of its own.
  bool inputWaits = true;
  while (inputWaits) {
    PostAndWait([&] { inputWaits = QWindowSystemInterface::windowSystemEventsQueued() > 0; },
                Qt::LowEventPriority);
  }
}

void StartInGui(std::function<void()> program) {
  InGui([&] { waitingProgram = std::move(program); });
}

int ServeGui(const std::function<int()>& user) {
  porter = std::make_unique<Porter>();
  int result = 0;
  bool isOver = false;
  std::thread thread([&] {
    result = user();
    PostToGui([&] { isOver = true; });
  });
  while (!isOver) {
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    // Not within an event: what is to be deleted later goes by the depth of the loops.
    if (waitingProgram) std::exchange(waitingProgram, {})();
  }
  thread.join();
  porter.reset();
  return result;
}

}  // namespace qt_desktop
