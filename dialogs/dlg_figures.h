#pragma once

#include "dialogs/dialog.h"
#include "program/figures/lamp_facts.h"
#include "program/program.h"

namespace dialogs {

struct FiguresParams {
  /// Whose current mode it is about; there is one.
  const TCBase::Program::ModeListView& document;
  TCBase::Program::LampFacts facts;  // in, and out on OK
};

/// Shows what the mode's day comes to, as a table with tabs that can be copied into a spreadsheet, and asks
/// for what that takes. The table follows each key. What is no number counts as not told until it is one, and
/// OK waits for it.
class DlgFigures final : public DlgBase {
 public:
  /// `params` outlives the dialog.
  DlgFigures(DialogsPort& port, FiguresParams& params);

  void OnInit(DialogWindow& window) override;

 private:
  void NameColumns(DialogWindow& window);
  void FillFields(DialogWindow& window);
  void OnControl(DialogWindow& window, int control, int code) override;
  void OnOk(DialogWindow& window) override;
  void ShowFigures(DialogWindow& window);

  FiguresParams& params_;
  bool filled_ = false;  // what the fields tell of is the user's doing
};

}  // namespace dialogs
