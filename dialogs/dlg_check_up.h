#pragma once

#include <memory>
#include <vector>

#include "dialogs/dialog.h"
#include "doctor/bundle.h"
#include "doctor/examination.h"

namespace dialogs {

struct CheckUpParams {
  doctor::Subject subject;
  doctor::Versions versions;                 // of the program and what it is built on, its own first
  std::vector<doctor::BundleFile> bundle{};  // what is to be saved, if the answer is kSaveBundle
};

/// Looks at what usually goes wrong, and packs what was found for a question to others, once the user has
/// seen all that would be in it.
class DlgCheckUp final : public DlgBase {
 public:
  /// DoModal's answer where the user wants the bundle saved.
  static constexpr int kSaveBundle = 3;
  /// What is posted to the dialog as things are found.
  static constexpr std::uint32_t kFound = 1034;

  /// `params` outlives the dialog.
  DlgCheckUp(DialogsPort& port, CheckUpParams& params);
  /// Waits for an examination that is under way to end behind the thing that it looks at.
  ~DlgCheckUp() override;

  void OnInit(DialogWindow& window) override;
  void OnEvent(DialogWindow& window, std::uint32_t event) override;

 private:
  class Examiner;

  void OnControl(DialogWindow& window, int control, int code) override;
  void LookAround(DialogWindow& window);
  void ShowFindings(DialogWindow& window);
  void ShowBundle(DialogWindow& window);

  CheckUpParams& params_;
  std::vector<doctor::Finding> findings_;
  std::unique_ptr<Examiner> examiner_;
};

}  // namespace dialogs
