#include "platform/qt/picture/picture.h"

#include <QBuffer>
#include <QByteArray>
#include <QImage>
#include <QMarginsF>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>

#include <algorithm>
#include <cmath>

#include "chart/bumper.h"
#include "chart/chart_drawing.h"
#include "chart/chart_layout.h"
#include "common/platform.h"
#include "common/timer.h"
#include "platform/qt/canvas/qt_canvas.h"
#include "platform/qt/canvas/svg_canvas.h"

namespace qt {

namespace {

using TCBase::Program::ModeListView;

// Longer than anything on the chart moves.
constexpr int kRestMilliseconds = 2000;

// Puts a demo at one moment.
void ShowMoment(TCBase::DemoState& demo, const TCBase::Program::Mode& mode, std::int32_t minuteOfDay) {
  const std::int32_t second = minuteOfDay * TCBase::Program::kSecondsPerMinute;
  demo.SetStep(TCBase::Program::StepAt(mode, second));
  demo.SetRunning(second, TCBase::StatePaused);
}

// A chart window of the picture's size, with nobody at the mouse.
class Chart {
 public:
  Chart(const ModeListView& document, const PictureRequest& request) : document_(document) {
    if (request.minuteOfDay) {
      ShowMoment(demo_, CurrentMode(document), *request.minuteOfDay);
    }
    layout_.ShowStrip(request.strip);
    if (request.compared) overlay_.comparison = {UX::Comparison::With::Kept, *request.compared};
    const UX::Rect none =
        layout_.ChartWindowRect();  // of a window without size: what is around it, below zero
    layout_.Update(request.width - none.width, request.height - none.height);
    AwaitRest();
  }

  void DrawOn(QPaintDevice& device, Surface surface, double scale) {
    QtCanvas canvas(surface, scale);
    drawing_.Rebuild(canvas);
    Rehearse(canvas);
    QPainter painter(&device);
    const UX::Rect area = layout_.ChartWindowRect();
    painter.fillRect(0, 0, area.width, area.height, Qt::white);
    canvas.Begin(painter);
    drawing_.Draw(canvas);
    canvas.End();
  }

  std::string DrawSvg() {
    SvgCanvas canvas;
    drawing_.Rebuild(canvas);
    drawing_.Draw(canvas);  // a rehearsal, as below
    AwaitRest();
    canvas.BeginFrame();
    drawing_.Draw(canvas);
    const UX::Rect area = layout_.ChartWindowRect();
    return canvas.Document(area.width, area.height);
  }

 private:
  // What moves starts with a frame, and is where it belongs in the next one.
  void Rehearse(QtCanvas& canvas) {
    QImage nowhere(1, 1, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&nowhere);
    canvas.Begin(painter);
    drawing_.Draw(canvas);
    canvas.End();
    AwaitRest();
  }

  void AwaitRest() {
    platform::SleepMilliseconds(kRestMilliseconds);
    now_ = frameClock_.Now();
  }

  timer_base::TimerFeatures<TimerCore_Counter> frameClock_;
  double now_ = 0.0;
  ModeListView document_;
  TCBase::Program::StepSelection selection_{document_};
  TCBase::Program::StepSelection hoverStep_{document_};
  UX::ChartLayout layout_{now_};
  TCBase::DemoState demo_;
  UX::ChartOverlay overlay_;
  UX::ChartDrawing drawing_{
      {document_, selection_, hoverStep_, layout_, demo_, now_, UX::kNoGroup, overlay_}};
};

int PixelsOf(std::int32_t units, double scale) {
  return std::max(1, static_cast<int>(std::lround(units * scale)));
}

bool DrawPng(Chart& chart, const PictureRequest& request, QBuffer& file) {
  QImage image(PixelsOf(request.width, request.scale), PixelsOf(request.height, request.scale),
               QImage::Format_RGB32);
  if (image.isNull()) return false;
  // A last pixel that the size does not quite reach.
  image.fill(Qt::white);
  image.setDevicePixelRatio(request.scale);
  chart.DrawOn(image, Surface::Pixels, request.scale);
  return image.save(&file, "PNG");
}

bool DrawPdf(Chart& chart, const PictureRequest& request, QBuffer& file) {
  // A point for a pixel: Qt knows page sizes in whole points only.
  constexpr int kPointsPerInch = 72;
  QPdfWriter pdf(&file);
  pdf.setCreator(QStringLiteral("Lumarine"));
  pdf.setTitle(QStringLiteral("Light program"));
  pdf.setResolution(kPointsPerInch);
  pdf.setPageSize(
      QPageSize(QSizeF(request.width, request.height), QPageSize::Point, QString(), QPageSize::ExactMatch));
  pdf.setPageMargins({});
  chart.DrawOn(pdf, Surface::Vectors, 1.0);
  return true;
}

}  // namespace

std::optional<std::string> DrawPicture(const ModeListView& document, const PictureRequest& request) {
  Chart chart(document, request);
  if (request.format == PictureFormat::Svg) return chart.DrawSvg();
  QByteArray bytes;
  QBuffer file(&bytes);
  file.open(QIODevice::WriteOnly);
  const bool drawn =
      request.format == PictureFormat::Png ? DrawPng(chart, request, file) : DrawPdf(chart, request, file);
  file.close();
  if (!drawn) return std::nullopt;
  return std::string(bytes.constData(), static_cast<std::size_t>(bytes.size()));
}

}  // namespace qt
