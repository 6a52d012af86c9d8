#pragma once

// Slider and scroll bar, which tell of what the user does in the codes of app::scroll.

#include <QScrollBar>
#include <QSlider>

#include <cstdint>
#include <functional>
#include <utility>

#include "platform/qt/desktop/wheel_notches.h"

namespace qt {

/// A code of app::scroll, with the thumb's position where the code is kThumbMoving.
using TellScroll = std::function<void(int code, int position)>;

/// What both have in common: the wheel and the end of a press.
template <class Base>
class TellingBar : public Base {
 public:
  void Connect(TellScroll tell) { tell_ = std::move(tell); }

 protected:
  explicit TellingBar(QWidget* parent) : Base(Qt::Horizontal, parent) {}

  void Tell(int code, int position = 0) const {
    if (tell_) tell_(code, position);
  }
  void mouseReleaseEvent(QMouseEvent* event) override;
  /// A step for each notch; the fractions of a touchpad gather.
  void wheelEvent(QWheelEvent* event) override;

 private:
  TellScroll tell_;
  WheelNotches wheel_;
};

/// Lies, its least position stands on the left. It has moved already when it tells of that.
class Slider final : public TellingBar<QSlider> {
 public:
  explicit Slider(QWidget* parent);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  void OnAction(int action);
};

/// Stays where it is whatever the user does, but for the thumb that the mouse drags.
class ScrollBar final : public TellingBar<QScrollBar> {
 public:
  explicit ScrollBar(QWidget* parent);

  /// The thumb covers `page` from `position` on, of the stretch from `minimum` to `maximum`.
  void SetStretch(std::int32_t minimum, std::int32_t maximum, std::int32_t page, std::int32_t position);

 protected:
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  void OnAction(int action);

  int position_ = 0;  // that was set last
};

}  // namespace qt
