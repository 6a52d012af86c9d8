#pragma once

// Slider and scroll bar, which tell of what the user does in the codes of app::scroll.

#include <QScrollBar>
#include <QSlider>

#include <cstdint>
#include <functional>

namespace qt {

/// A code of app::scroll, with the thumb's position where the code is kThumbMoving.
using TellScroll = std::function<void(int code, int position)>;

/// Lies, its least position stands on the left. It has moved already when it tells of that.
class Slider final : public QSlider {
 public:
  explicit Slider(QWidget* parent);

  void Connect(TellScroll tell) { tell_ = std::move(tell); }

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  void OnAction(int action);

  TellScroll tell_;
};

/// Stays where it is whatever the user does, but for the thumb that the mouse drags.
class ScrollBar final : public QScrollBar {
 public:
  explicit ScrollBar(QWidget* parent);

  void Connect(TellScroll tell) { tell_ = std::move(tell); }
  /// The thumb covers `page` from `position` on, of the stretch from `minimum` to `maximum`.
  void SetStretch(std::int32_t minimum, std::int32_t maximum, std::int32_t page, std::int32_t position);

 protected:
  void mouseReleaseEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  void OnAction(int action);

  TellScroll tell_;
  int position_ = 0;  // that was set last
};

}  // namespace qt
