// Bytes as a document, a window, a view, a mouse and a demo: frames hold the contract of the canvas.

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <tuple>
#include <utility>

#include "chart/chart_drawing.h"
#include "program/demo_state.h"
#include "tests/support/checking_canvas.h"
#include "tests/support/virtual_clock.h"

namespace {

using namespace TCBase::Program;

// Takes values off the front of the bytes; zeros when there are none left.
class Bytes {
 public:
  Bytes(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}

  bool IsEmpty() const { return size_ == 0; }
  template <class Value>
  Value Take() {
    Value value{};
    const std::size_t taken = size_ < sizeof value ? size_ : sizeof value;
    if (taken > 0) std::memcpy(&value, data_, taken);
    data_ += taken;
    size_ -= taken;
    return value;
  }
  std::int32_t TakeBelow(std::uint32_t limit) {
    return static_cast<std::int32_t>(Take<std::uint32_t>() % limit);
  }

 private:
  const std::uint8_t* data_;
  std::size_t size_;
};

// Half of the steps as a user would make them, the others with any bits.
Step TakeStep(Bytes& bytes, std::uint8_t kind) {
  Step step;
  if ((kind & 16) != 0) {
    step.hour = bytes.Take<std::int32_t>();
    step.minute = bytes.Take<std::int32_t>();
    step.value = bytes.Take<float>();
  } else {
    step.hour = bytes.Take<std::uint8_t>() % 24;
    step.minute = bytes.Take<std::uint8_t>() % 60;
    step.value = static_cast<float>(bytes.Take<std::uint8_t>() % 101);
  }
  step.jump = (kind & 32) != 0;
  step.id = NextStepId();
  return step;
}

// What is shown of the document.
struct Scene {
  explicit Scene(Bytes& bytes)
      : width(bytes.Take<std::uint16_t>()),
        height(bytes.Take<std::uint16_t>()),
        // Any view that a document can have, the empty one included.
        viewStart(bytes.TakeBelow(kSecondsPerDay + 1)),
        viewEnd(viewStart + bytes.TakeBelow(static_cast<std::uint32_t>(kSecondsPerDay - viewStart + 1))),
        selected{bytes.Take<std::int8_t>(), bytes.Take<std::int8_t>()},
        hovered{bytes.Take<std::int8_t>(), bytes.Take<std::int8_t>()},
        focusedLane(bytes.Take<std::int8_t>()),
        mouse{bytes.Take<std::int16_t>(), bytes.Take<std::int16_t>()},
        demoSecond(bytes.Take<std::int32_t>()) {
    for (std::int32_t& value : demoValues) value = bytes.Take<std::uint8_t>() % 101;
  }

  using Pair = std::pair<std::int32_t, std::int32_t>;
  std::int32_t width;
  std::int32_t height;
  std::int32_t viewStart;
  std::int32_t viewEnd;
  Pair selected;  // channel and step
  Pair hovered;
  std::int32_t focusedLane;
  Pair mouse;
  std::int32_t demoSecond;
  std::array<std::int32_t, kChannelCount> demoValues{};
};

class Chart {
 public:
  explicit Chart(ModeListView program) : document_(std::move(program)) {}

  // Rebuilds, moves the mouse and draws while everything is in motion.
  void Show(const Scene& scene) {
    layout_.Update(scene.width, scene.height);
    document_.viewStart = scene.viewStart;
    document_.viewEnd = scene.viewEnd;
    std::tie(selection_.channel, selection_.step) = scene.selected;
    std::tie(hover_.channel, hover_.step) = scene.hovered;
    layout_.FocusLane(scene.focusedLane);
    ModeStep sent;
    sent.values = scene.demoValues;
    demo_.SetStep(sent);
    demo_.SetRunning(scene.demoSecond, TCBase::StatePlaying);
    drawing_.Rebuild(canvas_);
    drawing_.MouseMoved(scene.mouse.first, scene.mouse.second);
    for (int frame = 0; frame < 3; ++frame) {
      drawing_.Update();
      drawing_.Draw(canvas_);
      now_ += 0.06;
      virtual_clock::Advance(0.06);
    }
  }
  bool HasFault() const { return !canvas_.fault.empty(); }

 private:
  ModeListView document_;
  StepSelection selection_{document_};
  StepSelection hover_{document_};
  TCBase::DemoState demo_;
  double now_ = 100.0;
  UX::ChartLayout layout_{now_};
  UX::ChartDrawing drawing_{{document_, selection_, hover_, layout_, demo_, now_}};
  chart_test::CheckingCanvas canvas_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  virtual_clock::Reset();
  Bytes bytes(data, size);
  const Scene scenes[] = {Scene(bytes), Scene(bytes), Scene(bytes)};
  ModeListView document;
  document.modes.resize(1);
  while (!bytes.IsEmpty()) {
    const auto kind = bytes.Take<std::uint8_t>();
    document.modes[0].channels[kind % kChannelCount].push_back(TakeStep(bytes, kind));
  }

  Chart chart(std::move(document));
  for (const Scene& scene : scenes) chart.Show(scene);
  if (chart.HasFault()) std::abort();
  return 0;
}
