#include "dialogs/dlg_tc421_config.h"

#include <cstddef>
#include <string>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "common/message.h"
#include "devices/shown_name.h"
#include "dialogs/dialog_template.h"
#include "dialogs/read_text.h"
#include "dialogs/template_texts.h"

namespace dialogs {

namespace {

using TCBase::EncryptionAES;
using TCBase::EncryptionTKIP;
using TCBase::SecurityOpen;
using TCBase::SecurityWPA;
using TCBase::SecurityWPA2;

constexpr std::size_t kNetworkUnits = 128;
constexpr std::size_t kWordUnits = 40;

// The same in every language. A row's number is of no use here: words are read back as words.
template <class Value>
void AddWords(DialogLists& lists, int list, std::initializer_list<Value> values) {
  for (const Value value : values) lists.AddRow(list, WideFromUtf8(NameOf(value)), value);
}

std::string ReadUtf8(const DialogTexts& texts, int control, std::size_t units) {
  return Utf8FromWide(ReadText(texts, control, units));
}

void Tell(DialogWindow& window, TextKey title, TextKey text, Icon icon) {
  window.Tell(Message(title).ToWide(), Message(text).ToWide(), icon);
}

}  // namespace

DlgTC421_Config::DlgTC421_Config(DialogsPort& port, const TCBase::DeviceInfo& device)
    : DlgBase(port, template_id::kTC421Config), device_(device) {}

void DlgTC421_Config::OnInit(DialogWindow& window) {
  TranslateTemplateTexts(window, templateId);
  window.SetText(tc421_config_control::kDevice, WideFromUtf8(TCBase::ShownName(device_.name)));
  AddWords(window, tc421_config_control::kSecurity, {SecurityOpen, SecurityWPA, SecurityWPA2});
  AddWords(window, tc421_config_control::kEncryption, {EncryptionAES, EncryptionTKIP});
  FillNetworks(window);
  window.SetEnabled(kOk, false);
}

void DlgTC421_Config::FillNetworks(DialogLists& lists) {
  TCBase::ListWifiNetworks(networks_);
  for (std::size_t i = 0; i < networks_.size(); ++i) {
    lists.AddRow(tc421_config_control::kNetwork, WideFromUtf8(networks_[i].ssid),
                 static_cast<std::int32_t>(i));
  }
  if (networks_.empty()) return;
  lists.SelectRow(tc421_config_control::kNetwork, 0);
  TakeOverNetwork(lists);
}

// "Invalid" is in neither list, and leaves what stands there for the user to check.
void DlgTC421_Config::TakeOverNetwork(DialogLists& lists) const {
  const auto chosen = static_cast<std::size_t>(lists.SelectedData(tc421_config_control::kNetwork));
  if (chosen >= networks_.size()) return;
  const TCBase::WifiNetwork& network = networks_[chosen];
  lists.SelectText(tc421_config_control::kSecurity,
                   WideFromUtf8(TCBase::NameOf(TCBase::SecurityOf(network))));
  lists.SelectText(tc421_config_control::kEncryption,
                   WideFromUtf8(TCBase::NameOf(TCBase::EncryptionOf(network))));
}

void DlgTC421_Config::OnControl(DialogWindow& window, int control, int code) {
  switch (control) {
    case tc421_config_control::kNetwork:
      if (code == kSelectionChanged) TakeOverNetwork(window);
      return;
    case tc421_config_control::kSetUp:
      return SetUp(window);
    default:
      return;
  }
}

void DlgTC421_Config::OnOk(DialogWindow& window) {
  if (isSetUp_) DlgBase::OnOk(window);
}

void DlgTC421_Config::ReadConfig(const DialogTexts& texts) {
  config_.ssid = ReadUtf8(texts, tc421_config_control::kNetwork, kNetworkUnits);
  config_.password = ReadUtf8(texts, tc421_config_control::kPassword, kNetworkUnits);
  config_.encryption =
      TCBase::ParseWifiEncryption(ReadUtf8(texts, tc421_config_control::kEncryption, kWordUnits));
  config_.security = TCBase::ParseWifiSecurity(ReadUtf8(texts, tc421_config_control::kSecurity, kWordUnits));
}

void DlgTC421_Config::SetUp(DialogWindow& window) {
  ReadConfig(window);
  if (config_.security != SecurityOpen && config_.password.empty()) {
    return Tell(window, TextKey("WiFi password"), TextKey("WiFi password can not be empty"), Icon::Error);
  }
  if (TCBase::SetupWifi(device_, config_).result != TCBase::OperationResult::Done) {
    return Tell(window, TextKey("WiFi configuration error"),
                TextKey("Error configuring TC421 device to use selected WiFi network!"), Icon::Error);
  }
  Tell(window, TextKey("WiFi configuration success"),
       TextKey("Successfully configured TC421 device to use selected WiFi network!"), Icon::Information);
  isSetUp_ = true;
  // The order matters: the focus goes from the one to the other.
  window.SetEnabled(kOk, true);
  window.SetEnabled(tc421_config_control::kSetUp, false);
}

}  // namespace dialogs
