#include "dialogs/dlg_generate.h"

#include <cmath>
#include <cstdio>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "dialogs/dialog_template.h"
#include "dialogs/read_text.h"
#include "dialogs/template_texts.h"

namespace dialogs {

namespace {

// The label stands in the template in front of its field, and has the number before it.
std::string_view LabelOf(int templateId, int field) {
  for (const ControlTemplate& control : FindTemplate(templateId)->controls) {
    if (control.id == field - 1) return control.text;
  }
  return {};
}

}  // namespace

std::string DlgGenerate::Fields::Text(int field) const {
  std::string text = Utf8FromWide(ReadText(window_, field));
  std::erase(text, ' ');
  return text;
}

void DlgGenerate::Fields::Note(int field) {
  if (fault_ == 0) fault_ = field;
}

void DlgGenerate::OnInit(DialogWindow& window) {
  TranslateTemplateTexts(window, templateId);
  Fill(window);
  isFilled_ = true;
  Update(window);
}

void DlgGenerate::OnControl(DialogWindow& window, int control, int code) {
  if (!isFilled_ || (code != kTextChanged && code != kSelectionChanged)) return;
  OnField(window, control);
  Update(window);
}

void DlgGenerate::Update(DialogWindow& window) {
  Fields fields(window);
  const generate::Generated day = Make(fields);
  isMade_ = fields.fault() == 0;
  window.SetEnabled(kOk, isMade_);
  const std::string said =
      isMade_ ? FitText(day).utf8() + "\r\n" + Remark()
              : Message("This cannot be read: {1}", Translate(LabelOf(templateId, fields.fault()))).utf8();
  window.SetText(generate_control::kResult, WideFromUtf8(said));
  shared_.show(isMade_ ? &day : nullptr);
}

void DlgGenerate::OnOk(DialogWindow& window) {
  if (isMade_) DlgBase::OnOk(window);
}

Message FitText(const generate::Generated& day) {
  char error[16];
  std::snprintf(error, sizeof error, "%.1f", std::ceil(static_cast<double>(day.error) * 10) / 10);
  return Message("{2} rows, at most {1} % off", error, CountModeSteps(day.mode));
}

std::string DayOfAcclimationName(int day, int days) {
  return Message("Day {1} of {2}", day, days).utf8();
}

}  // namespace dialogs
