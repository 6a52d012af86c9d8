#include "platform/qt/desktop/main_window.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QDesktopServices>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QKeyEvent>
#include <QLayout>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QUrl>

#include <vector>

#include "app/window/control_table.h"
#include "platform/qt/desktop/accessible_role.h"
#include "platform/qt/desktop/keys.h"
#include "platform/qt/desktop/launcher_icon.h"
#include "platform/qt/desktop/resource_ids.h"
#include "platform/qt/desktop/text.h"

namespace qt {

namespace {

// About what a desktop's title bar takes of a window's height. What is told of the main window counts its
// frame, and Qt knows a frame only once the window is there.
constexpr int kTitleBarHeight = 30;

// A display that has not painted the window in this time paints it later.
constexpr int kFrameMilliseconds = 500;

std::vector<std::filesystem::path> FilesIn(const QMimeData& data) {
  std::vector<std::filesystem::path> files;
  for (const QUrl& url : data.urls()) {
    if (url.isLocalFile()) files.push_back(PathOf(url.toLocalFile()));
  }
  return files;
}

app::SizeKind SizeKindOf(const QWidget& window) {
  if (window.isMinimized()) return app::SizeKind::Minimized;
  return window.isMaximized() || window.isFullScreen() ? app::SizeKind::Maximized : app::SizeKind::Restored;
}

}  // namespace

// The window with its frame.
class MainWindow::Frame final : public QMainWindow {
 public:
  explicit Frame(MainWindow& window) : window_(window) { setAcceptDrops(true); }

 protected:
  void closeEvent(QCloseEvent* event) override {
    if (window_.Stands()) window_.logic_->OnClose();
    // A session that ends asks in this way, too, and goes on ending only if nobody refuses.
    event->setAccepted(!window_.Stands());
  }

  void changeEvent(QEvent* event) override {
    QMainWindow::changeEvent(event);
    if (event->type() != QEvent::WindowStateChange || !window_.shown_ || !window_.Stands()) return;
    const bool wasMinimized =
        (static_cast<QWindowStateChangeEvent*>(event)->oldState() & Qt::WindowMinimized) != 0;
    if (wasMinimized || isMinimized()) window_.logic_->OnSize(SizeKindOf(*this));
  }

  void dragEnterEvent(QDragEnterEvent* event) override {
    if (event->mimeData()->hasUrls()) event->acceptProposedAction();
  }

  void dropEvent(QDropEvent* event) override {
    event->acceptProposedAction();
    const std::vector<std::filesystem::path> files = FilesIn(*event->mimeData());
    if (!files.empty() && window_.Stands()) window_.logic_->OnDrop(files);
  }

  void customEvent(QEvent* event) override {
    if (event->type() != PostedEvent::Kind() || !window_.Stands()) return;
    const auto& posted = static_cast<const PostedEvent&>(*event);
    window_.logic_->OnEvent(posted.event, posted.first, posted.second);
  }

 private:
  MainWindow& window_;
};

// The inside. Mouse events come here where no control is, or one that is greyed.
class MainWindow::Background final : public QWidget {
 public:
  // It has the focus when it is given it; a click leaves the focus where it is.
  Background(MainWindow& window, QWidget* parent) : QWidget(parent), window_(window) {}

 protected:
  void resizeEvent(QResizeEvent*) override { window_.OnResize(); }

  void paintEvent(QPaintEvent*) override {
    if (!window_.Stands()) return;
    QPainter painter(this);
    window_.painter_ = &painter;
    window_.logic_->OnPaint();
    window_.painter_ = nullptr;
    window_.painted_ = true;
  }

  void mousePressEvent(QMouseEvent* event) override {
    if (event->button() == Qt::LeftButton && window_.Stands()) window_.logic_->OnLeftButtonDown();
  }

  void keyPressEvent(QKeyEvent* event) override {
    // Controls pass on what they do not want.
    if (const int key = KeyNumber(*event); hasFocus() && key != 0) window_.logic_->OnKeyDown(key);
  }

  void keyReleaseEvent(QKeyEvent* event) override {
    if (event->isAutoRepeat()) return;
    if (const int key = KeyNumber(*event); hasFocus() && key != 0) window_.logic_->OnKeyUp(key);
  }

 private:
  MainWindow& window_;
};

MainWindow::MainWindow() = default;

MainWindow::~MainWindow() {
  mailbox_.Close();
  gone_ = true;
}

void MainWindow::Create(const QString& title) {
  window_ = std::make_unique<Frame>(*this);
  window_->setObjectName(QStringLiteral("main-window"));
  window_->setWindowTitle(title);
  window_->setCentralWidget(new Background(*this, window_.get()));
  // It has the keys while no control has them.
  Inside().setAccessibleName(title);
  SetAccessibleRole(Inside(), QAccessible::Pane);
  Inside().setFocus(Qt::OtherFocusReason);
  window_->setMinimumSize(app::kLeastWindowWidth, app::kLeastWindowHeight - kTitleBarHeight);
  const QSize room = window_->screen()->availableSize();
  const QSize wanted(app::kWindowWidth, app::kWindowHeight);
  window_->resize(wanted.boundedTo(room) - QSize(0, kTitleBarHeight));
  mailbox_.Open(*window_);
}

void MainWindow::ShowControls() {
  window_->show();
  AwaitFrame();
}

void MainWindow::LoadLogo() {
  logo_ = SvgPicture::Load(resource::kLogo);
  if (const std::optional<SvgPicture> icon = SvgPicture::Load(resource::kIcon)) {
    window_->setWindowIcon(icon->AsIcon());
  }
}

bool MainWindow::Owns(const QWidget& widget) const {
  return Stands() && widget.window() == window_.get();
}

void MainWindow::PostCommand(int command) {
  QMetaObject::invokeMethod(
      window_.get(), [this, command] { Notify(command, 0); }, Qt::QueuedConnection);
}

void MainWindow::Notify(int id, int code) {
  if (Stands()) logic_->OnCommand(id, code);
}

void MainWindow::Scrolled(app::Control control, int code, int position) {
  if (Stands()) logic_->OnHorizontalScroll(control, code, position);
}

void MainWindow::MenuOpens() {
  if (Stands()) logic_->OnInitMenuPopup();
}

void MainWindow::OnResize() {
  if (shown_ && Stands()) logic_->OnSize(SizeKindOf(*window_));
}

// The port

void MainWindow::SetTitle(std::u16string_view title) {
  if (!Stands()) return;
  // Else Qt takes it for the place of its mark of a changed document.
  QString shown = QtText(title);
  window_->setWindowTitle(shown.replace(QLatin1String("[*]"), QLatin1String("[*][*]")));
}

app::Size MainWindow::ClientSize() const {
  if (!Stands()) return {};
  if (!shown_) window_->layout()->activate();  // the menu bar takes its place
  const QSize size = Inside().size();
  return {size.width(), size.height()};
}

void MainWindow::Show() {
  if (!Stands()) return;
  shown_ = true;
  TakeFocus();  // or nobody has it, and a menu that is left could not give it back
  window_->show();
  logic_->OnSize(SizeKindOf(*window_));
  Inside().update();
  AwaitFrame();
}

void MainWindow::AwaitFrame() {
  painted_ = false;
  QTimer patience;
  patience.setSingleShot(true);
  patience.start(kFrameMilliseconds);
  while (!painted_ && patience.isActive()) {
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::WaitForMoreEvents);
  }
}

void MainWindow::TakeFocus() {
  if (Stands()) Inside().setFocus(Qt::OtherFocusReason);
}

void MainWindow::StartTimer(int id, int milliseconds) {
  if (!Stands()) return;
  auto timer = std::make_unique<QTimer>();
  QObject::connect(timer.get(), &QTimer::timeout, window_.get(), [this, id] {
    if (Stands()) logic_->OnTimer(id);
  });
  timer->start(milliseconds);
  timers_[id] = std::move(timer);
}

void MainWindow::StopTimer(int id) {
  timers_.erase(id);
}

void MainWindow::ShowWork(const app::WorkSign& sign) {
  ShowOnLauncherIcon(sign);
}

bool MainWindow::OpenFile(const std::filesystem::path& file) {
  return QDesktopServices::openUrl(QUrl::fromLocalFile(QtText(file.u16string())));
}

void MainWindow::PaintLogo(const Rect& area) {
  if (logo_ && painter_ != nullptr) logo_->Paint(*painter_, QRect(area.x, area.y, area.width, area.height));
}

void MainWindow::Destroy() {
  if (!Stands()) return;
  logic_->OnDestroy();
  gone_ = true;
  mailbox_.Close();
  timers_.clear();
  // Not deleted: the call may come from one of its own events.
  window_->hide();
}

void MainWindow::PostQuit(int exitCode) {
  QMetaObject::invokeMethod(
      QCoreApplication::instance(), [this, exitCode] { exitCode_ = exitCode; }, Qt::QueuedConnection);
}

void MainWindow::Post(std::uint32_t event, std::uintptr_t first, std::intptr_t second) {
  mailbox_.Post(event, first, second);
}

}  // namespace qt
