#pragma once

#include <memory>
#include <type_traits>

#include "platform/win32/windows_headers.h"

namespace win32 {

/// The system's default font for controls, in the size that a screen's resolution asks for.
class DefaultFont {
 public:
  /// Makes the font for a resolution in dots to the inch. The former font is gone afterwards, so `use` must
  /// give its users the new one.
  template <class Use>
  void Take(UINT dpi, const Use& use) {
    Owned fresh = Make(dpi);
    use(fresh ? fresh.get() : Stock());
    owned_ = std::move(fresh);
  }

 private:
  struct Delete {
    void operator()(HFONT font) const { DeleteObject(font); }
  };
  using Owned = std::unique_ptr<std::remove_pointer_t<HFONT>, Delete>;

  static HFONT Stock();
  /// Null where the stock font itself has the right size.
  static Owned Make(UINT dpi);

  Owned owned_;
};

}  // namespace win32
