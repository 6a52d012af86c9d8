#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "dialogs/dialog.h"
#include "program/change/mode_change.h"

namespace dialogs {

struct ChangeStepsParams {
  Rect beside;                            // is to be seen, in the main window's client area
  std::vector<std::uint32_t> selected{};  // ids of the selected steps, ascending
  std::int32_t channel = -1;              // the selected one; -1 for none
  /// Shows the change in place of the one before, and tells what came of it. Called with each answer.
  std::function<TCBase::Program::ChangeResult(const TCBase::Program::ModeChange&,
                                              const TCBase::Program::ChangeScope&)>
      show;
  /// Nothing is changed as long as an answer is wrong.
  std::function<void()> takeBack;
};

/// Asks what is to be done to which steps, and shows it at once. What is typed wrong is told and changes
/// nothing; OK is only for what can be done, and leaves it as it was shown last. Whether that is kept, and
/// what becomes of it behind Cancel, is the caller's.
class DlgChangeSteps final : public DlgBase {
 public:
  /// `params` outlives the dialog.
  DlgChangeSteps(DialogsPort& port, ChangeStepsParams& params);

  void OnInit(DialogWindow& window) override;

 private:
  void OnOk(DialogWindow& window) override;
  void OnControl(DialogWindow& window, int control, int code) override;
  void FillLists(DialogLists& lists) const;
  /// The fields become those of the chosen change.
  void ShowFields(DialogWindow& window);
  void Update(DialogWindow& window);
  /// Nothing where an answer is wrong; `fault` tells why.
  std::optional<TCBase::Program::ModeChange> ReadChange(const DialogWindow& window,
                                                        std::u16string& fault) const;
  std::optional<TCBase::Program::ChangeScope> ReadScope(const DialogWindow& window,
                                                        std::u16string& fault) const;

  ChangeStepsParams& params_;
  bool isReady_ = false;     // not while the dialog itself writes into its fields
  bool isPossible_ = false;  // what is shown now
};

}  // namespace dialogs
