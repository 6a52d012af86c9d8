#pragma once

// The chart in words, for those who cannot see it.

#include <string>

#include "app/window/ports.h"
#include "program/program.h"

namespace app {

/// Tells the chart's control what is selected. User interface thread.
class ChartDescription {
 public:
  /// Both outlive the description.
  ChartDescription(ControlsPort& controls, const TCBase::Program::StepSelection& selection)
      : controls_(controls), selection_(selection) {}

  /// After whatever may have changed the selection, its channel, or the language. The control is told of
  /// another text alone.
  void Update();

 private:
  ControlsPort& controls_;
  const TCBase::Program::StepSelection& selection_;
  std::u16string told_;
};

}  // namespace app
