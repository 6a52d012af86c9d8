#pragma once

// The child controls of the main window, made from app::ControlTable().

#include <QPointer>
#include <QWidget>

#include <array>
#include <functional>

#include "app/window/ports.h"
#include "platform/qt/desktop/chart_window.h"
#include "platform/qt/desktop/main_window.h"

class QListWidget;
class QPlainTextEdit;

namespace qt {

class Controls final : public app::ControlsPort {
 public:
  /// The chart's window is one of the controls. Both outlive the controls.
  Controls(MainWindow& window, ChartWindow& chart) : window_(window), chart_(chart) {}

  /// Null before it is made.
  QPlainTextEdit* Log() const;

  void Create(const app::ControlRow& row, std::u16string_view text, const Rect& place) override;
  void Move(app::Control control, const Rect& place) override;
  void SetText(app::Control control, std::u16string_view text) override;
  void SetEnabled(app::Control control, bool enabled) override;
  void SetName(app::Control control, std::u16string_view name) override;
  void SetDescription(app::Control control, std::u16string_view text) override;
  void SetRows(app::Control list, const std::vector<app::ListRow>& rows) override;
  std::vector<std::int32_t> SelectedRows(app::Control list) const override;
  std::int32_t CurrentRow(app::Control list) const override;
  std::int32_t RowData(app::Control list, std::int32_t row) const override;
  void SetScrollBar(const TCBase::Program::ViewScrollInfo& info) override;
  void SetSliderRange(app::Control slider, std::int32_t maximum, std::int32_t page,
                      std::int32_t tick) override;
  void SetSliderPosition(app::Control slider, std::int32_t position) override;

 private:
  QWidget* At(app::Control control) const { return widgets_[static_cast<std::size_t>(control)]; }
  template <class Widget>
  Widget* As(app::Control control) const;
  /// Lets what the user does to the control go to the application.
  void Connect(const app::ControlRow& row, QWidget& widget);
  void ConnectList(int id, QListWidget& list);

  MainWindow& window_;
  ChartWindow& chart_;
  std::array<QPointer<QWidget>, app::kControlCount> widgets_;
};

}  // namespace qt
