// Target, brushes, shapes and figures. Texts and labels are in d2d_canvas_text.cpp.

#include "platform/win32/d2d_canvas.h"

#include <variant>

#include "platform/win32/com_result.h"

namespace win32 {

namespace {

constexpr float kBrightest = 255.0F;
constexpr UINT32 kOpaque = 0xFF000000;

D2D1_POINT_2F At(const UX::Point& point) {
  return {point.x, point.y};
}

D2D1_RECT_F Edges(const UX::Rectangle& box) {
  return {box.x, box.y, box.x + box.width, box.y + box.height};
}

D2D1_ROUNDED_RECT Rounded(const UX::RoundedRectangle& shape) {
  return {Edges(shape.box), shape.radius, shape.radius};
}

D2D1_ELLIPSE Ellipse(const UX::Circle& circle) {
  return {At(circle.center), circle.radius, circle.radius};
}

struct Filler {
  ID2D1RenderTarget& target;
  ID2D1Brush* brush;

  void operator()(const UX::Line&) const {}
  void operator()(const UX::Rectangle& box) const { target.FillRectangle(Edges(box), brush); }
  void operator()(const UX::RoundedRectangle& box) const { target.FillRoundedRectangle(Rounded(box), brush); }
  void operator()(const UX::Circle& circle) const { target.FillEllipse(Ellipse(circle), brush); }
};

struct Stroker {
  ID2D1RenderTarget& target;
  ID2D1Brush* brush;
  float width;

  void operator()(const UX::Line& line) const { target.DrawLine(At(line.from), At(line.to), brush, width); }
  void operator()(const UX::Rectangle& box) const { target.DrawRectangle(Edges(box), brush, width); }
  void operator()(const UX::RoundedRectangle& box) const {
    target.DrawRoundedRectangle(Rounded(box), brush, width);
  }
  void operator()(const UX::Circle& circle) const { target.DrawEllipse(Ellipse(circle), brush, width); }
};

void AddContour(ID2D1GeometrySink& sink, std::span<const UX::Point> points, bool closed) {
  sink.BeginFigure(At(points.front()), D2D1_FIGURE_BEGIN_FILLED);
  for (const UX::Point& point : points.subspan(1)) sink.AddLine(At(point));
  sink.EndFigure(closed ? D2D1_FIGURE_END_CLOSED : D2D1_FIGURE_END_OPEN);
}

}  // namespace

// The target

void D2DCanvas::MakeFactories() {
  ThrowIfFailed(D2D1CreateFactory(D2D1_FACTORY_TYPE_SINGLE_THREADED, factory_.ReleaseAndGetAddressOf()));
  ThrowIfFailed(DWriteCreateFactory(DWRITE_FACTORY_TYPE_SHARED, __uuidof(IDWriteFactory),
                                    reinterpret_cast<IUnknown**>(writeFactory_.ReleaseAndGetAddressOf())));
}

void D2DCanvas::ReleaseFactories() {
  writeFactory_.Reset();
  factory_.Reset();
}

void D2DCanvas::MakeTarget(HWND window, UINT dpi) {
  RECT client{};
  GetClientRect(window, &client);
  D2D1_RENDER_TARGET_PROPERTIES properties{};
  properties.pixelFormat = {DXGI_FORMAT_UNKNOWN, D2D1_ALPHA_MODE_PREMULTIPLIED};
  // Told, since the default is the resolution of the first screen, not of this window's.
  properties.dpiX = properties.dpiY = static_cast<float>(dpi);
  const D2D1_HWND_RENDER_TARGET_PROPERTIES place{
      window,
      {static_cast<UINT32>(client.right), static_cast<UINT32>(client.bottom)},
      D2D1_PRESENT_OPTIONS_NONE};
  // One target at a time in a window.
  labelContext_.Reset();
  columns_.Reset();
  target_.Reset();
  ThrowIfFailed(factory_->CreateHwndRenderTarget(properties, place, target_.GetAddressOf()));
  drawn_ = target_.Get();
}

bool D2DCanvas::IsHidden() const {
  return !HasTarget() || (target_->CheckWindowState() & D2D1_WINDOW_STATE_OCCLUDED) != 0;
}

void D2DCanvas::BeginFrame() {
  target_->BeginDraw();
  SetTransform(UX::kIdentity);
  target_->Clear(D2D1::ColorF(D2D1::ColorF::White));
}

HRESULT D2DCanvas::EndFrame() {
  layout_.Reset();
  return target_->EndDraw();
}

// Brushes

D2DCanvas::SolidBrush& D2DCanvas::BrushOf(UX::Brush brush) {
  static constexpr auto kPlain = std::to_array<SolidBrush D2DCanvas::*>({
      &D2DCanvas::blackBrush_,
      &D2DCanvas::whiteBrush_,
      &D2DCanvas::darkGrayBrush_,
      &D2DCanvas::grayBrush_,
      &D2DCanvas::lightSalmonBrush_,
      &D2DCanvas::orangeBrush_,
      &D2DCanvas::salmonBrush_,
      &D2DCanvas::lightSkyBlueBrush_,
      &D2DCanvas::cornflowerBlueBrush_,
  });
  static_assert(kPlain.size() == static_cast<std::size_t>(UX::Brush::FirstChannel));
  const auto index = static_cast<std::size_t>(brush);
  return index < kPlain.size() ? this->*kPlain[index] : channels_.at(index - kPlain.size()).brush;
}

void D2DCanvas::SetBrush(UX::Brush brush, UX::Color color, float opacity) {
  const D2D1_COLOR_F opaque{static_cast<float>(color.red) / kBrightest,
                            static_cast<float>(color.green) / kBrightest,
                            static_cast<float>(color.blue) / kBrightest, 1.0F};
  SolidBrush& made = BrushOf(brush);
  ThrowIfFailed(target_->CreateSolidColorBrush(opaque, made.ReleaseAndGetAddressOf()));
  made->SetOpacity(opacity);
}

void D2DCanvas::SetOpacity(UX::Brush brush, float opacity) {
  BrushOf(brush)->SetOpacity(opacity);
}

// Shapes and figures

void D2DCanvas::SetTransform(const UX::Transform& transform) {
  const auto [scale, offset] = transform;
  drawn_->SetTransform(D2D1::Matrix3x2F(scale, 0.0F, 0.0F, scale, offset.x, offset.y));
}

void D2DCanvas::Fill(const UX::Shape& shape, UX::Brush brush) {
  std::visit(Filler{*drawn_, BrushOf(brush).Get()}, shape);
}

void D2DCanvas::Stroke(const UX::Shape& shape, UX::Brush brush, float width) {
  std::visit(Stroker{*drawn_, BrushOf(brush).Get(), width}, shape);
}

void D2DCanvas::FillFigure(const UX::Figure& figure, UX::Brush brush) {
  if (const auto geometry = MakeGeometry(figure)) drawn_->FillGeometry(geometry.Get(), BrushOf(brush).Get());
}

void D2DCanvas::StrokeFigure(const UX::Figure& figure, UX::Brush brush, float width) {
  if (const auto geometry = MakeGeometry(figure)) {
    drawn_->DrawGeometry(geometry.Get(), BrushOf(brush).Get(), width);
  }
}

void D2DCanvas::FillColumns(const UX::Rectangle& box, std::span<const UX::Color> colors) {
  columnPixels_.clear();
  for (const UX::Color& color : colors) {
    columnPixels_.push_back(kOpaque | static_cast<UINT32>(color.red) << 16 |
                            static_cast<UINT32>(color.green) << 8 | color.blue);
  }
  const D2D1_SIZE_U size{static_cast<UINT32>(colors.size()), 1};
  const UINT32 pitch = size.width * sizeof columnPixels_.front();
  if (columns_ == nullptr || columns_->GetPixelSize().width != size.width) {
    const D2D1_BITMAP_PROPERTIES properties{
        {DXGI_FORMAT_B8G8R8A8_UNORM, D2D1_ALPHA_MODE_PREMULTIPLIED}, 0.0F, 0.0F};
    const HRESULT made =
        target_->CreateBitmap(size, nullptr, 0, properties, columns_.ReleaseAndGetAddressOf());
    if (FAILED(made)) return;
  }
  columns_->CopyFromMemory(nullptr, columnPixels_.data(), pitch);
  drawn_->DrawBitmap(columns_.Get(), Edges(box), 1.0F, D2D1_BITMAP_INTERPOLATION_MODE_NEAREST_NEIGHBOR);
}

ComPtr<ID2D1PathGeometry> D2DCanvas::MakeGeometry(const UX::Figure& figure) const {
  ComPtr<ID2D1PathGeometry> geometry;
  ComPtr<ID2D1GeometrySink> sink;
  if (FAILED(factory_->CreatePathGeometry(geometry.GetAddressOf()))) return nullptr;
  if (FAILED(geometry->Open(sink.GetAddressOf()))) return nullptr;
  for (const UX::Figure::Contour& contour : figure.Contours()) {
    AddContour(*sink.Get(), figure.PointsOf(contour), contour.closed);
  }
  if (FAILED(sink->Close())) return nullptr;
  return geometry;
}

}  // namespace win32
