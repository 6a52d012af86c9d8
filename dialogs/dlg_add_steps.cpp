#include "dialogs/dlg_add_steps.h"

#include <vector>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "common/message.h"
#include "dialogs/dialog_template.h"
#include "dialogs/read_text.h"
#include "program/steps_text.h"

namespace dialogs {

namespace {

constexpr TextKey kHelp(
    "Enter steps in this format:\r\n\r\nhh:mm value [J]\r\n\r\nExample:\r\n\r\n08:00 0\r\n10:00 80 J\r\n"
    "12:00 0\r\n13:40 50\r\n15:00 0\r\n\r\nUse \"J\" to make step\r\n\"jump\" instead of \"fade\"");

}  // namespace

DlgAddSteps::DlgAddSteps(DialogsPort& port, AddStepsParams& params)
    : DlgBase(port, template_id::kAddSteps), params_(params) {}

void DlgAddSteps::OnInit(DialogWindow& window) {
  window.MoveTo(params_.x, params_.y);
  window.SetTitle(params_.title);
  window.SetText(add_steps_control::kSteps, params_.text);
  window.SetText(add_steps_control::kHelp, Message(kHelp).ToWide());
  window.SetText(kOk, Message("OK").ToWide());
  window.SetText(kCancel, Message("Cancel").ToWide());
  UpdateStepCount(window);
}

void DlgAddSteps::OnControl(DialogWindow& window, int control, int code) {
  if (control == add_steps_control::kSteps && code == kTextChanged) UpdateStepCount(window);
}

void DlgAddSteps::UpdateStepCount(DialogTexts& texts) {
  const std::u16string text = ReadText(texts, add_steps_control::kSteps);
  if (text.empty()) return;
  std::vector<TCBase::Program::Step> steps;
  TCBase::Program::ParseStepsText(Utf8FromWide(text), steps);
  texts.SetText(add_steps_control::kCount,
                Message("Text contains {1} steps", static_cast<std::int32_t>(steps.size())).ToWide());
}

void DlgAddSteps::OnOk(DialogWindow& window) {
  if (StoreText(window, add_steps_control::kSteps, params_.text) == Stored::Empty) return;
  DlgBase::OnOk(window);
}

}  // namespace dialogs
