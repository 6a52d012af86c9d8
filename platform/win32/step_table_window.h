#pragma once

#include <array>
#include <span>
#include <string>
#include <vector>

#include "app/step_table_window.h"
#include "app/window/step_table_port.h"
#include "platform/win32/default_font.h"
#include "platform/win32/main_window.h"
#include "platform/win32/step_sheet.h"
#include "platform/win32/window_events.h"

namespace win32 {

/// The window of the step table, made anew each time that it is opened: a tab for each sheet, their lists,
/// and a line for what is wrong. Its events go to app::StepTableWindow.
class StepTableWindow final : public app::StepTablePort {
 public:
  /// The main window, which owns this one, outlives it.
  explicit StepTableWindow(const MainWindow& owner) : owner_(owner) {}
  StepTableWindow(const StepTableWindow&) = delete;
  StepTableWindow& operator=(const StepTableWindow&) = delete;

  /// Before the window is opened.
  void Connect(app::StepTableWindow& logic);

  void Open() override;
  void Close() override;
  void SetTitle(std::u16string_view title) override;
  void SetHeadings(app::TableSheet sheet, std::u16string_view name, const app::TableRow& columns) override;
  void SetRows(app::TableSheet sheet, const std::vector<app::TableRow>& rows) override;
  void SetSelection(const app::TableSelection& selection) override;
  void SetFault(std::u16string_view text) override;
  void SetClipboard(std::u16string_view text) override;
  std::u16string Clipboard() const override;

  // For the window procedure.
  void Attach(HWND handle) { handle_ = handle; }
  static std::span<const Handler<StepTableWindow>> Handlers();

 private:
  LRESULT OnClose(const Event& event);
  LRESULT OnDestroy(const Event& event);
  LRESULT OnSize(const Event& event);
  LRESULT OnNotify(const Event& event);
  LRESULT OnFocus(const Event& event);
  LRESULT OnStaticColor(const Event& event);
  LRESULT OnDpiChanged(const Event& event);
  LRESULT OnSelectionChanged(const Event& event);
  LRESULT OnOtherSheet(const Event& event);

  void Create();
  void TakeIcons();
  void MakeChildren();
  RECT PlaceBesideOwner() const;
  void TakeFont();
  void PlaceChildren();
  int FaultHeight(int width) const;
  void ShowSheet();
  StepSheet& Seen();
  StepSheet& Sheet(app::TableSheet sheet) { return sheets_.at(static_cast<std::size_t>(sheet)); }

  const MainWindow& owner_;
  app::StepTableWindow* logic_ = nullptr;
  HWND handle_ = nullptr;  // null while it is closed, and so are its children
  HWND tabs_ = nullptr;
  HWND fault_ = nullptr;
  std::array<StepSheet, app::kTableSheetCount> sheets_{StepSheet(app::TableSheet::Steps),
                                                       StepSheet(app::TableSheet::Merged)};
  std::wstring faultText_;
  DefaultFont font_;
};

}  // namespace win32
