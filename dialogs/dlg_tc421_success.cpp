#include "dialogs/dlg_tc421_success.h"

#include <string>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "common/message.h"
#include "devices/shown_name.h"
#include "dialogs/dialog_template.h"
#include "dialogs/template_texts.h"

namespace dialogs {

using TCBase::ShownName;

DlgTC421_Success::DlgTC421_Success(DialogsPort& port, const TCBase::DeviceInfo& device,
                                   const TCBase::WifiNetworkConfig& config)
    : DlgBase(port, template_id::kTC421Success), device_(device), config_(config) {}

void DlgTC421_Success::OnInit(DialogWindow& window) {
  TranslateTemplateTexts(window, templateId);
  std::string text =
      Message("Successfully configured WiFi on the TC421 device: {1}", ShownName(device_.name)).utf8();
  text += "\r\n\r\n" + Translate("You should now see \"Set:station...\" text on the display.");
  text += "\r\n" + Message("Device is now trying to connect to the configured WiFi network: {1}",
                           ShownName(config_.ssid))
                       .utf8();
  text +=
      "\r\n\r\n" + Translate("After successful connection, reconnect your laptop to the same WiFi network.");
  text +=
      "\r\n" + Translate("Then you will be able to find your TC421 through \"Scan WiFi devices\" command");
  text += "\r\n" + Translate("and upload program or synchronize time over your configured WiFi network!");
  window.SetText(tc421_success_control::kText, WideFromUtf8(text));
}

}  // namespace dialogs
