#pragma once

// The chart of a mode as a picture file, drawn by the same code as the screen's.

#include <cstdint>
#include <optional>
#include <string>

#include "program/program.h"

namespace qt {

enum class PictureFormat { Png, Svg, Pdf };

struct PictureRequest {
  PictureFormat format = PictureFormat::Png;
  std::int32_t width = 900;  // of the chart window; pixels, in a PDF points
  std::int32_t height = 600;
  double scale = 1.0;                       // of a PNG: its pixels for each of the above
  std::optional<std::int32_t> minuteOfDay;  // where the cursor of a demo stands, if one is to be shown
  bool strip = false;                       // of mixed light, above the lanes
  std::optional<TCBase::Program::Mode> compared = {};  // as thin lines behind the curves
};

/// The bytes of a picture of the document's current mode, with all motion at rest; nothing if there is no
/// memory for it. Same request, same bytes, but for a PDF, which holds the time. Needs a QGuiApplication.
/// Makes use of the clock: it sleeps until motion has come to rest.
std::optional<std::string> DrawPicture(const TCBase::Program::ModeListView& document,
                                       const PictureRequest& request);

}  // namespace qt
