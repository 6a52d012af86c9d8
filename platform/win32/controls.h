#pragma once

// The child controls of the main window, made from app::ControlTable().

#include <array>
#include <optional>

#include "app/window/ports.h"
#include "platform/win32/chart_window.h"
#include "platform/win32/default_font.h"
#include "platform/win32/windows_headers.h"

namespace win32 {

class Controls final : public app::ControlsPort {
 public:
  /// The chart's window is one of the controls; `chart` stands behind it and outlives it.
  explicit Controls(ChartWindow& chart) : chart_(chart) {}
  Controls(const Controls&) = delete;
  Controls& operator=(const Controls&) = delete;

  /// Whose children the controls are to be.
  void SetParent(HWND window) { parent_ = window; }
  /// Null before the control is made.
  HWND HandleOf(app::Control control) const { return items_[static_cast<std::size_t>(control)].handle; }
  std::optional<app::Control> Find(HWND handle) const;

  /// Gives all controls the default font.
  void SetDefaultFont();
  /// The main window has come to a screen of another resolution: font and places follow.
  void TakeScale();

  void Create(const app::ControlRow& row, std::u16string_view text, const Rect& place) override;
  void Move(app::Control control, const Rect& place) override;
  void SetText(app::Control control, std::u16string_view text) override;
  void SetEnabled(app::Control control, bool enabled) override;
  /// The system's accessibility reads texts and roles of the controls by itself; names of our own it is not
  /// told yet.
  void SetName(app::Control, std::u16string_view) override {}
  void SetDescription(app::Control, std::u16string_view) override {}
  void SetRows(app::Control list, const std::vector<app::ListRow>& rows) override;
  std::vector<std::int32_t> SelectedRows(app::Control list) const override;
  std::int32_t CurrentRow(app::Control list) const override;
  std::int32_t RowData(app::Control list, std::int32_t row) const override;
  void SetScrollBar(const TCBase::Program::ViewScrollInfo& info) override;
  void SetSliderRange(app::Control slider, std::int32_t maximum, std::int32_t page,
                      std::int32_t tick) override;
  void SetSliderPosition(app::Control slider, std::int32_t position) override;

 private:
  struct Item {
    HWND handle = nullptr;
    Rect place;  // in units
  };

  void SelectRow(app::Control list, std::int32_t row);
  std::int32_t RowCount(app::Control list) const;
  LRESULT Send(app::Control control, UINT message, WPARAM first = 0, LPARAM second = 0) const;

  ChartWindow& chart_;
  HWND parent_ = nullptr;
  std::array<Item, app::kControlCount> items_;
  DefaultFont font_;
};

}  // namespace win32
