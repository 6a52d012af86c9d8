// What the user sees of the window.

#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QWindow>
#include <algorithm>

#include "common/files.h"
#include "tests/qt_desktop/gui_thread.h"
#include "tests/qt_desktop/input.h"
#include "tests/qt_desktop/qt_user.h"
#include "tests/qt_desktop/texts.h"

namespace qt_desktop {

using app::Control;

std::vector<std::string> QtUser::List(Control list) {
  return FromGui([&] {
    std::vector<std::string> rows;
    const QListWidget& widget = ListWidget(list);
    for (int row = 0; row < widget.count(); ++row) rows.push_back(Utf8(widget.item(row)->text()));
    return rows;
  });
}

std::vector<int> QtUser::SelectedRows(Control list) {
  return FromGui([&] {
    std::vector<int> rows;
    const QListWidget& widget = ListWidget(list);
    for (int row = 0; row < widget.count(); ++row) {
      if (widget.item(row)->isSelected()) rows.push_back(row);
    }
    return rows;
  });
}

std::string QtUser::Text(Control control) {
  return FromGui([&] {
    const QWidget& widget = Widget(control);
    const auto* const label = qobject_cast<const QLabel*>(&widget);
    return Utf8(label != nullptr ? label->text() : dynamic_cast<const QPushButton&>(widget).text());
  });
}

bool QtUser::IsEnabled(Control control) {
  return FromGui([&] { return Widget(control).isEnabled(); });
}

int QtUser::SliderPosition(Control slider) {
  return FromGui([&] { return Bar(slider).sliderPosition(); });
}

Rect QtUser::Place(Control control) {
  return FromGui([&] {
    const QWidget& widget = Widget(control);
    const QPoint corner = widget.mapTo(Window().centralWidget(), QPoint(0, 0));
    return Rect{corner.x(), corner.y(), widget.width(), widget.height()};
  });
}

app::Size QtUser::ClientSize() {
  return FromGui([this] {
    const QSize size = Window().centralWidget()->size();
    return app::Size{size.width(), size.height()};
  });
}

std::string QtUser::Title() {
  return FromGui([this] { return Utf8(Window().windowHandle()->title()); });
}

std::string QtUser::Log() {
  return FromGui([this] { return Utf8(LogPane().toPlainText()); });
}

void QtUser::ClickLog() {
  input::Click(OnScreen(Control::LogPane, 5, 8));
  Settle();
}

UX::Color QtUser::LogColor(const std::string& line) {
  return FromGui([&] {
    QPlainTextEdit& log = LogPane();
    QTextCursor first = log.document()->find(QString::fromStdString(line));
    EXPECT_FALSE(first.isNull()) << line << " is not in the log";
    first.setPosition(first.selectionStart() + 1);
    const QTextCharFormat format = first.charFormat();
    const bool hasOwn = format.hasProperty(QTextFormat::ForegroundBrush);
    const QColor color = hasOwn ? format.foreground().color() : log.palette().color(QPalette::Text);
    return UX::Color{static_cast<std::uint8_t>(color.red()), static_cast<std::uint8_t>(color.green()),
                     static_cast<std::uint8_t>(color.blue())};
  });
}

bool QtUser::TakePicture(const std::filesystem::path& file) {
  return FromGui([&] {
    return Window()
        .screen()
        ->grabWindow(Window().winId())
        .save(QString::fromStdString(Utf8FromPath(file)), "PNG");
  });
}

PixelPicture QtUser::ChartPicture() {
  const QImage image = FromGui([this] {
    const QWidget& chart = Widget(Control::ChartWindow);
    const QPoint corner = chart.mapTo(&Window(), QPoint(0, 0));
    return Window()
        .screen()
        ->grabWindow(Window().winId(), corner.x(), corner.y(), chart.width(), chart.height())
        .toImage()
        .convertToFormat(QImage::Format_RGB32);
  });
  PixelPicture picture(image.width(), image.height());
  for (int y = 0; y < image.height(); ++y) {
    const auto* const row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
    std::transform(row, row + image.width(), picture.pixels().begin() + std::ptrdiff_t{y} * image.width(),
                   [](QRgb pixel) { return pixel & 0xFFFFFF; });
  }
  return picture;
}

}  // namespace qt_desktop
