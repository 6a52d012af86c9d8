#pragma once

// The power slider: the highest value of the selected channel, shown and changed. User interface thread.

#include <cstdint>
#include <utility>

#include "app/document/undo_stack.h"
#include "app/window/refresh.h"
#include "app/window/slider.h"
#include "program/program.h"

namespace app {

class ChannelPowerControl {
 public:
  /// All of these outlive the control.
  ChannelPowerControl(const TCBase::Program::StepSelection& selection, UndoStack& undoStack, Slider& slider,
                      Refresh refresh)
      : selection_(selection), undoStack_(undoStack), slider_(slider), refresh_(std::move(refresh)) {}

  /// Shows the selected channel's power, 0 without one; nothing happens if the slider stands there already.
  /// The slider is disabled at 0: a channel without light cannot be scaled.
  void Update();

  /// The slider's scroll event. A drag of the thumb makes one entry in the history, every other move one of
  /// its own.
  void OnSlider(int code, int position);

  /// The wheel, turned with Shift held: a percent up or down, without an entry in the history; the log says
  /// once where it began. The slider does not show it before the next Update().
  void OnWheel(int delta);

 private:
  const TCBase::Program::StepSelection& selection_;
  UndoStack& undoStack_;
  Slider& slider_;
  const Refresh refresh_;

  void LogBeforeWheel(float power) const;

  /// The channel that the wheel changed last, and the power that it left there.
  struct Wheeled {
    std::int32_t mode = -1;
    std::int32_t channel = -1;
    float power = 0.0F;

    friend bool operator==(const Wheeled&, const Wheeled&) = default;
  };
  Wheeled wheeled_;

  bool powerTracking_ = false;  // the thumb is being dragged
  std::int32_t lastPower_ = 0;  // where the slider was when the history was last written
};

}  // namespace app
