#pragma once

// UX::Canvas over Direct2D and DirectWrite, in a window. Its unit is that of the application, 1/96 inch: on
// a finer screen the same picture has more pixels.

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "chart/canvas.h"
#include "chart/figure.h"
#include "platform/win32/windows_headers.h"
// after windows.h
#include <d2d1_1.h>
#include <dwrite.h>
#include <wrl/client.h>

namespace win32 {

using Microsoft::WRL::ComPtr;

/// User interface thread, where its factory lives. What makes something throws _com_error with the result of
/// the call that failed; drawing does not fail, EndFrame tells.
class D2DCanvas final : public UX::Canvas {
 public:
  D2DCanvas() = default;
  D2DCanvas(const D2DCanvas&) = delete;
  D2DCanvas& operator=(const D2DCanvas&) = delete;

  /// Before everything else.
  void MakeFactories();
  void ReleaseFactories();

  /// A new target for a window, whose client area is not empty, in dots to the inch of its screen. Brushes,
  /// fonts and labels are to be set anew.
  void MakeTarget(HWND window, UINT dpi);
  bool HasTarget() const { return target_ != nullptr; }
  /// Whether nothing can be drawn, or nobody could see it.
  bool IsHidden() const;
  /// Between these two a frame is drawn, on white.
  void BeginFrame();
  /// What became of the frame: D2DERR_RECREATE_TARGET if the target is lost.
  HRESULT EndFrame();

  /// Null if there is no memory for it.
  ComPtr<ID2D1PathGeometry> MakeGeometry(const UX::Figure& figure) const;

  void SetBrush(UX::Brush brush, UX::Color color, float opacity) override;
  void SetOpacity(UX::Brush brush, float opacity) override;
  void SetFont(UX::TextFormat format, const UX::Font& font) override;
  void SetTransform(const UX::Transform& transform) override;
  void Fill(const UX::Shape& shape, UX::Brush brush) override;
  void Stroke(const UX::Shape& shape, UX::Brush brush, float width) override;
  void FillFigure(const UX::Figure& figure, UX::Brush brush) override;
  void StrokeFigure(const UX::Figure& figure, UX::Brush brush, float width) override;
  void FillColumns(const UX::Rectangle& box, std::span<const UX::Color> colors) override;
  UX::TextSize LayOutText(UX::TextFormat format, std::string_view text, const UX::TextSize& limits) override;
  void DrawLayout(UX::Brush brush) override;
  /// What reaches beyond the window's size is cut off.
  void BeginLabel(UX::Label label, std::int32_t width, std::int32_t height) override;
  void EndLabel() override;
  void DrawLabel(UX::Label label) override;

 private:
  using SolidBrush = ComPtr<ID2D1SolidColorBrush>;
  using TextFormat = ComPtr<IDWriteTextFormat>;
  using Bitmap = ComPtr<ID2D1Bitmap1>;

  struct Channel {
    Bitmap channelNames;
    SolidBrush brush;
  };

  SolidBrush& BrushOf(UX::Brush brush);
  TextFormat& FormatOf(UX::TextFormat format);
  Bitmap& BitmapOf(UX::Label label);
  void MakeLabelContext(const D2D1_SIZE_F& size);
  /// The way from where the transform puts the origin to the nearest pixel of the device, in units. A label
  /// that lay between pixels would be resampled, and its letters blurred. The transform must not scale.
  D2D1_POINT_2F OffsetToWholePixel() const;

  ComPtr<ID2D1Factory> factory_;
  ComPtr<IDWriteFactory> writeFactory_;
  ComPtr<ID2D1HwndRenderTarget> target_;

  SolidBrush blackBrush_;
  SolidBrush whiteBrush_;
  SolidBrush darkGrayBrush_;
  SolidBrush grayBrush_;
  SolidBrush lightSalmonBrush_;
  SolidBrush orangeBrush_;
  SolidBrush salmonBrush_;
  SolidBrush lightSkyBlueBrush_;
  SolidBrush cornflowerBlueBrush_;
  TextFormat smallFormat_;
  TextFormat mediumFormat_;
  TextFormat largeFormat_;
  std::array<Channel, TCBase::Program::kChannelCount> channels_;
  Bitmap hoursLabels_;
  std::array<Bitmap, 10> percentLabels_;
  ComPtr<ID2D1Bitmap> columns_;       // of FillColumns, kept while their number stays
  std::vector<UINT32> columnPixels_;  // 0xAARRGGBB, kept for its memory

  // While something is drawn.
  ID2D1RenderTarget* drawn_ = nullptr;       // the target, or the context of a label
  ComPtr<IDWriteTextLayout> layout_;         // of the text laid out last
  ComPtr<ID2D1DeviceContext> labelContext_;  // labels are drawn with it
  UX::Label label_ = UX::Label::End;         // the one that is drawn
};

}  // namespace win32
