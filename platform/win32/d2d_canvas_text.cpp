// Texts, and labels, which are pictures of texts.

#include <algorithm>
#include <cmath>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "platform/win32/com_result.h"
#include "platform/win32/d2d_canvas.h"
#include "platform/win32/text.h"

namespace win32 {

namespace {

// Transparent pink below the channels' names, transparent light gray below the axes' numbers. Nothing of
// either is seen.
constexpr D2D1_COLOR_F kNameGround{1.0F, 192.0F / 255.0F, 203.0F / 255.0F, 0.0F};
constexpr D2D1_COLOR_F kAxisGround{211.0F / 255.0F, 211.0F / 255.0F, 211.0F / 255.0F, 0.0F};

bool IsChannelName(UX::Label label) {
  return label >= UX::Label::FirstChannelName;
}

// Whether another percent label follows this one. They are made one after the other and share a context.
bool IsFollowed(UX::Label label) {
  return label >= UX::PercentLabel(10) && label < UX::PercentLabel(100);
}

}  // namespace

// Texts

D2DCanvas::TextFormat& D2DCanvas::FormatOf(UX::TextFormat format) {
  switch (format) {
    case UX::TextFormat::Small:
      return smallFormat_;
    case UX::TextFormat::Medium:
      return mediumFormat_;
    case UX::TextFormat::Large:
      break;
  }
  return largeFormat_;
}

void D2DCanvas::SetFont(UX::TextFormat format, const UX::Font& font) {
  const auto weight = font.bold ? DWRITE_FONT_WEIGHT_BOLD : DWRITE_FONT_WEIGHT_NORMAL;
  TextFormat& made = FormatOf(format);
  ThrowIfFailed(writeFactory_->CreateTextFormat(L"Tahoma", nullptr, weight, DWRITE_FONT_STYLE_NORMAL,
                                                DWRITE_FONT_STRETCH_NORMAL, font.size, L"en-us",
                                                made.ReleaseAndGetAddressOf()));
  made->SetTextAlignment(DWRITE_TEXT_ALIGNMENT_LEADING);
  made->SetParagraphAlignment(DWRITE_PARAGRAPH_ALIGNMENT_NEAR);
}

UX::TextSize D2DCanvas::LayOutText(UX::TextFormat format, std::string_view text, const UX::TextSize& limits) {
  const std::wstring wide = WideText(WideFromUtf8(text));
  DWRITE_TEXT_METRICS metrics{};
  const HRESULT result =
      writeFactory_->CreateTextLayout(wide.c_str(), static_cast<UINT32>(wide.size()), FormatOf(format).Get(),
                                      limits.width, limits.height, layout_.ReleaseAndGetAddressOf());
  if (SUCCEEDED(result)) layout_->GetMetrics(&metrics);
  return {metrics.width, metrics.height};
}

void D2DCanvas::DrawLayout(UX::Brush brush) {
  if (layout_) drawn_->DrawTextLayout({0.0F, 0.0F}, layout_.Get(), BrushOf(brush).Get());
}

// Labels

D2DCanvas::Bitmap& D2DCanvas::BitmapOf(UX::Label label) {
  const auto offset = [label](UX::Label first) {
    return static_cast<std::size_t>(label) - static_cast<std::size_t>(first);
  };
  if (IsChannelName(label)) return channels_.at(offset(UX::Label::FirstChannelName)).channelNames;
  if (label >= UX::Label::FirstPercent) return percentLabels_.at(offset(UX::Label::FirstPercent));
  return hoursLabels_;
}

void D2DCanvas::MakeLabelContext(const D2D1_SIZE_F& size) {
  ComPtr<ID2D1BitmapRenderTarget> compatible;
  ThrowIfFailed(target_->CreateCompatibleRenderTarget(size, compatible.GetAddressOf()));
  ThrowIfFailed(compatible.As(&labelContext_));
}

void D2DCanvas::BeginLabel(UX::Label label, std::int32_t width, std::int32_t height) {
  const D2D1_SIZE_F most = target_->GetSize();
  const D2D1_SIZE_F size{std::clamp(static_cast<float>(width), 1.0F, std::max(1.0F, most.width)),
                         std::clamp(static_cast<float>(height), 1.0F, std::max(1.0F, most.height))};
  if (!labelContext_) MakeLabelContext(size);

  D2D1_BITMAP_PROPERTIES1 properties{};
  properties.pixelFormat = {DXGI_FORMAT_B8G8R8A8_UNORM, D2D1_ALPHA_MODE_PREMULTIPLIED};
  properties.bitmapOptions = D2D1_BITMAP_OPTIONS_TARGET;
  target_->GetDpi(&properties.dpiX, &properties.dpiY);
  const auto pixels = [&](float units) {
    return static_cast<UINT32>(std::ceil(units * properties.dpiX / USER_DEFAULT_SCREEN_DPI));
  };
  Bitmap& bitmap = BitmapOf(label);
  ThrowIfFailed(labelContext_->CreateBitmap({pixels(size.width), pixels(size.height)}, nullptr, 0, properties,
                                            bitmap.ReleaseAndGetAddressOf()));

  labelContext_->BeginDraw();
  labelContext_->SetTarget(bitmap.Get());
  labelContext_->Clear(IsChannelName(label) ? kNameGround : kAxisGround);
  labelContext_->SetPrimitiveBlend(D2D1_PRIMITIVE_BLEND_SOURCE_OVER);
  labelContext_->SetTextAntialiasMode(D2D1_TEXT_ANTIALIAS_MODE_GRAYSCALE);
  drawn_ = labelContext_.Get();
  SetTransform(UX::kIdentity);
  label_ = label;
}

void D2DCanvas::EndLabel() {
  labelContext_->EndDraw();
  layout_.Reset();
  drawn_ = target_.Get();
  if (!IsFollowed(label_)) labelContext_.Reset();
}

D2D1_POINT_2F D2DCanvas::OffsetToWholePixel() const {
  D2D1_MATRIX_3X2_F transform{};
  drawn_->GetTransform(&transform);
  D2D1_POINT_2F dpi{};
  drawn_->GetDpi(&dpi.x, &dpi.y);
  const auto missing = [](float units, float dotsPerInch) {
    const float pixelsPerUnit = dotsPerInch / USER_DEFAULT_SCREEN_DPI;
    return std::round(units * pixelsPerUnit) / pixelsPerUnit - units;
  };
  return {missing(transform._31, dpi.x), missing(transform._32, dpi.y)};
}

void D2DCanvas::DrawLabel(UX::Label label) {
  const Bitmap& bitmap = BitmapOf(label);
  if (!bitmap) return;
  const auto [width, height] = bitmap->GetSize();
  const auto [x, y] = OffsetToWholePixel();
  drawn_->DrawBitmap(bitmap.Get(), D2D1_RECT_F{x, y, x + width, y + height}, 1.0F,
                     D2D1_BITMAP_INTERPOLATION_MODE_LINEAR);
}

}  // namespace win32
