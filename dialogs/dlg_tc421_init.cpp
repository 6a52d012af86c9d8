#include "dialogs/dlg_tc421_init.h"

#include <string>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "common/message.h"
#include "dialogs/dialog_template.h"
#include "dialogs/template_texts.h"

namespace dialogs {

DlgTC421_Init::DlgTC421_Init(DialogsPort& port) : DlgBase(port, template_id::kTC421Init) {}

void DlgTC421_Init::OnInit(DialogWindow& window) {
  TranslateTemplateTexts(window, templateId);
  std::string text = Translate("Hold [Menu] button until \"Set:softAP...\" appears on the TC421 display.");
  text += "\r\n\r\n" + Translate("This will put TC421 device into Access Point mode.");
  text += "\r\n" + Translate("New WiFi network named \"Smart-######\" will get created.");
  text += "\r\n\r\n" + Translate("Connect your laptop to this WiFi network!");
  text += "\r\n" + Translate("After successful connection press Next to search for your TC421 device.");
  window.SetText(tc421_init_control::kText, WideFromUtf8(text));
}

}  // namespace dialogs
