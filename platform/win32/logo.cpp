#include "platform/win32/logo.h"

// after windows.h
#include <objidl.h>
// after objidl.h
#include <gdiplus.h>
#include <shlwapi.h>

#include "common/platform.h"
#include "platform/win32/resource_ids.h"

namespace win32 {

namespace {

struct Release {
  void operator()(IStream* stream) const { stream->Release(); }
};

}  // namespace

struct Logo::Picture {
  // The bitmap reads from the stream as long as it lives.
  std::unique_ptr<IStream, Release> stream;
  Gdiplus::Bitmap bitmap;

  explicit Picture(IStream* bytes) : stream(bytes), bitmap(bytes) {}
};

Logo::Logo() = default;
Logo::~Logo() = default;

void Logo::Load() {
  const auto bytes = platform::FindResourceBytes(resource::kLogo, "PNG");
  if (!bytes) return;
  IStream* const stream =
      SHCreateMemStream(reinterpret_cast<const BYTE*>(bytes->data()), static_cast<UINT>(bytes->size()));
  if (stream != nullptr) picture_ = std::make_unique<Picture>(stream);
}

void Logo::Delete() {
  picture_.reset();
}

void Logo::Paint(HDC target, const RECT& place) const {
  if (!picture_) return;
  Gdiplus::Graphics graphics(target);
  graphics.SetInterpolationMode(Gdiplus::InterpolationModeHighQualityBicubic);
  graphics.SetPixelOffsetMode(Gdiplus::PixelOffsetModeHalf);
  graphics.DrawImage(&picture_->bitmap, static_cast<INT>(place.left), static_cast<INT>(place.top),
                     static_cast<INT>(place.right - place.left), static_cast<INT>(place.bottom - place.top));
}

}  // namespace win32
