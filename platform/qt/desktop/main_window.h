#pragma once

// The main window: its events go to app::MainWindow, which tells what is done with them.

#include <QMainWindow>
#include <QTimer>

#include <map>
#include <memory>
#include <optional>

#include "app/main_window.h"
#include "app/window/ports.h"
#include "platform/qt/desktop/mailbox.h"
#include "platform/qt/desktop/svg_picture.h"

namespace qt {

class MainWindow final : public app::MainWindowPort {
 public:
  MainWindow();
  ~MainWindow() override;
  MainWindow(const MainWindow&) = delete;
  MainWindow& operator=(const MainWindow&) = delete;

  /// Before the window is made.
  void Connect(app::MainWindow& logic) { logic_ = &logic; }
  /// Makes the window, not shown yet.
  void Create(const QString& title);
  /// Shows the window before the application has filled it: the first start's half second of rest is spent
  /// with a window on the screen.
  void ShowControls();
  /// And the window's icon: drawing it in all its sizes takes as long as the window itself.
  void LoadLogo();
  void DeleteLogo() { logo_.reset(); }

  // From Create() on.

  QMainWindow& Window() const { return *window_; }
  /// The part inside frame and menu, which holds the controls.
  QWidget& Inside() const { return *window_->centralWidget(); }
  /// The widget is the window or in it, and the window stands.
  bool Owns(const QWidget& widget) const;
  /// The command comes to the application with the next events.
  void PostCommand(int command);
  /// The application hears of it at once, unless the window has gone.
  void Notify(int id, int code);
  void Scrolled(app::Control control, int code, int position);
  void MenuOpens();

  /// For as long as it lives the window takes no input.
  class Blocked {
   public:
    explicit Blocked(MainWindow& window) : window_(window) { ++window_.blocks_; }
    ~Blocked() { --window_.blocks_; }
    Blocked(const Blocked&) = delete;
    Blocked& operator=(const Blocked&) = delete;

   private:
    MainWindow& window_;
  };

  bool HasQuit() const { return exitCode_.has_value(); }
  int ExitCode() const { return exitCode_.value_or(0); }

  void SetTitle(std::u16string_view title) override;
  app::Size ClientSize() const override;
  void Show() override;
  void TakeFocus() override;
  bool TakesInput() const override { return blocks_ == 0; }
  void StartTimer(int id, int milliseconds) override;
  void StopTimer(int id) override;
  void ShowWork(const app::WorkSign& sign) override;
  bool OpenFile(const std::filesystem::path& file) override;
  void PaintLogo(const Rect& area) override;
  void Destroy() override;
  void PostQuit(int exitCode) override;
  void Post(std::uint32_t event, std::uintptr_t first, std::intptr_t second) override;

 private:
  class Frame;
  class Background;

  bool Stands() const { return window_ != nullptr && !gone_; }
  /// Lets the system make the window and paint it.
  void AwaitFrame();
  void OnResize();

  app::MainWindow* logic_ = nullptr;
  std::unique_ptr<QMainWindow> window_;
  bool gone_ = false;
  bool shown_ = false;  // by the application
  bool painted_ = false;
  int blocks_ = 0;
  std::optional<int> exitCode_;
  std::map<int, std::unique_ptr<QTimer>> timers_;
  std::optional<SvgPicture> logo_;
  QPainter* painter_ = nullptr;  // while a paint event is handled
  Mailbox mailbox_;
};

}  // namespace qt
