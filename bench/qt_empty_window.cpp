// An empty window of Qt's in the size of ours, from the start of the process to its first painted frame. What
// bench/desktop_startup.sh compares the desktop program with.

#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>

#include <cstdlib>

namespace {

class Inside final : public QWidget {
 protected:
  void paintEvent(QPaintEvent*) override { std::_Exit(0); }
};

}  // namespace

int main(int count, char** arguments) {
  QApplication desktop(count, arguments);
  QMainWindow window;
  window.menuBar()->addMenu(QStringLiteral("File"));
  window.setCentralWidget(new Inside);
  window.resize(1024, 768);
  window.show();
  return QApplication::exec();
}
