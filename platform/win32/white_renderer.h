#pragma once

#include "chart/renderer_base.h"
#include "platform/win32/chart_window.h"

namespace win32 {

/// Keeps the chart white.
class WhiteRenderer final : public UX::RendererBase {
 public:
  WhiteRenderer(const UX::ChartScene& scene, const ChartWindow& chart) : RendererBase(scene), chart_(chart) {}

  void Initialise() override {}
  void Release() override {}
  void Render() override;
  void Update() override {}
  void Rebuild() override {}
  void Relayout() override {}
  void MouseMoved(std::int32_t, std::int32_t) override {}
  bool IsAnimating() override { return false; }

 private:
  const ChartWindow& chart_;
};

}  // namespace win32
