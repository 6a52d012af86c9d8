#pragma once

#include <QLabel>
#include <QTabWidget>
#include <QWidget>

#include <array>

#include "app/step_table_window.h"
#include "app/window/step_table_port.h"
#include "platform/qt/desktop/main_window.h"
#include "platform/qt/desktop/step_sheet.h"

namespace qt {

/// The window of the step table, made when it is opened for the first time. Its events go to
/// app::StepTableWindow.
class StepTableWindow final : public app::StepTablePort {
 public:
  /// The table's window is the main one's child, which outlives it.
  explicit StepTableWindow(const MainWindow& owner) : owner_(owner) {}
  StepTableWindow(const StepTableWindow&) = delete;
  StepTableWindow& operator=(const StepTableWindow&) = delete;

  /// Before the window is opened.
  void Connect(app::StepTableWindow& logic) { logic_ = &logic; }

  void Open() override;
  void Close() override;
  void SetTitle(std::u16string_view title) override;
  void SetHeadings(app::TableSheet sheet, std::u16string_view name, const app::TableRow& columns) override;
  void SetRows(app::TableSheet sheet, const std::vector<app::TableRow>& rows) override;
  void SetSelection(const app::TableSelection& selection) override;
  void SetFault(std::u16string_view text) override;
  void SetClipboard(std::u16string_view text) override;
  std::u16string Clipboard() const override;

 private:
  class Frame;

  void Create();
  SheetView* MakeSheet(app::TableSheet sheet);
  void ConnectSteps(SheetView& steps);
  void PlaceBesideOwner();
  bool IsOpen() const;
  SheetView& Sheet(app::TableSheet sheet) const { return *sheets_.at(static_cast<std::size_t>(sheet)); }

  const MainWindow& owner_;
  app::StepTableWindow* logic_ = nullptr;
  // Children of the main window; null until it is opened.
  QWidget* frame_ = nullptr;
  QTabWidget* tabs_ = nullptr;
  std::array<SheetView*, app::kTableSheetCount> sheets_{};
  QLabel* fault_ = nullptr;
};

}  // namespace qt
