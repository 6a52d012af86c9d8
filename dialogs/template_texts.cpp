#include "dialogs/template_texts.h"

#include "common/message.h"
#include "dialogs/dialog_template.h"

namespace dialogs {

void TranslateTemplateTexts(DialogWindow& window, int templateId) {
  const DialogTemplate* form = FindTemplate(templateId);
  if (form == nullptr) return;
  window.SetTitle(Message(form->title).ToWide());
  for (const ControlTemplate& control : form->controls) {
    if (!control.text.empty()) window.SetText(control.id, Message(control.text).ToWide());
  }
}

}  // namespace dialogs
