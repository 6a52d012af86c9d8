#pragma once

// A dialog's window, as the dialog's rules see it.

#include <QDialog>

#include <memory>
#include <string>
#include <string_view>

#include "dialogs/dialog.h"
#include "dialogs/dialog_template.h"
#include "platform/qt/desktop/mailbox.h"

namespace qt {

class OpenDialog final : public dialogs::DialogWindow {
 public:
  /// Makes the window from its template, not shown yet. Its place is told in `owner`. All of these outlive
  /// it.
  OpenDialog(const dialogs::DialogTemplate& row, dialogs::DlgBase& dialog, QWidget& owner);
  ~OpenDialog() override;
  OpenDialog(const OpenDialog&) = delete;
  OpenDialog& operator=(const OpenDialog&) = delete;

  /// Shows the window and answers what End was given.
  int Run();

  void MoveTo(std::int32_t x, std::int32_t y) override;
  void MoveBeside(const Rect& area) override;
  void SetTitle(std::u16string_view title) override;
  void SetText(int control, std::u16string_view text) override;
  std::u16string Text(int control, std::size_t units) const override;
  void SetEnabled(int control, bool enabled) override;
  void Hide(int control) override;
  void GiveFocus(int control) override;
  void LimitText(int control, std::int32_t units) override;
  void AcceptDigitsOnly(int control) override;
  void SetTabStops(int control, std::int32_t first, std::int32_t step) override;
  void ClearRows(int control) override;
  void AddRow(int control, std::u16string_view text, std::int32_t data) override;
  int RowCount(int control) const override;
  void SelectRow(int control, int row) override;
  void SelectText(int control, std::u16string_view text) override;
  std::int32_t SelectedData(int control) const override;
  void SetDateTime(int control, const DateTime& time, std::u16string_view format) override;
  DateTime GetDateTime(int control) const override;
  void Tell(std::u16string_view title, std::u16string_view text, dialogs::Icon icon) override;
  void OpenLink(std::u16string_view target) override;
  std::shared_ptr<EventTarget> Target() override { return target_; }
  void End(int result) override;

 private:
  class Frame;

  void MakeControls();
  void Connect(const dialogs::ControlTemplate& row, QWidget& widget);
  void Notify(int control, int code);
  /// What the Enter key means where the control that has the focus leaves it to the dialog.
  void PressEnter();
  void NameFields();
  void FocusFirst();
  void KeepOnScreen();
  /// Null if there is no such control.
  QWidget* Item(int control) const;
  template <class Widget>
  Widget* As(int control) const;
  const dialogs::ControlTemplate& RowOf(int control) const;

  const dialogs::DialogTemplate& template_;
  dialogs::DlgBase& dialog_;
  QWidget& owner_;
  const std::unique_ptr<Frame> frame_;
  const std::shared_ptr<Mailbox> target_;
  bool focusGiven_ = false;
  bool ended_ = false;
};

}  // namespace qt
