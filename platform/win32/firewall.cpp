// doctor/network_facts.h on Windows: the firewall, which is asked over COM.

#include <memory>
#include <optional>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "common/files.h"
#include "doctor/network_facts.h"
#include "doctor/system_texts.h"
#include "platform/win32/windows_headers.h"
// after windows.h
#include <netfw.h>
#include <oleauto.h>

namespace platform {

namespace {

// As rules have it; the header has no name for it.
constexpr LONG kAnyProtocol = 256;

struct ReleaseIt {
  void operator()(IUnknown* object) const { object->Release(); }
};
template <class Interface>
using Held = std::unique_ptr<Interface, ReleaseIt>;

// COM, for as long as it lives. A thread that uses it already goes on as it is.
class Com {
 public:
  Com() : result_(CoInitializeEx(nullptr, COINIT_MULTITHREADED)) {}
  ~Com() {
    if (SUCCEEDED(result_)) CoUninitialize();
  }
  Com(const Com&) = delete;
  Com& operator=(const Com&) = delete;

 private:
  const HRESULT result_;
};

std::wstring OwnProgram() {
  constexpr DWORD kRoom = 1024;
  wchar_t path[kRoom] = {};
  const DWORD length = GetModuleFileNameW(nullptr, path, kRoom);
  return length < kRoom ? path : L"";
}

// The text that a getter of the rule gives; empty if none.
template <class Getter>
std::wstring TextOf(INetFwRule& rule, Getter getter) {
  BSTR text = nullptr;
  if (FAILED((rule.*getter)(&text)) || text == nullptr) return {};
  std::wstring copy(text, SysStringLen(text));
  SysFreeString(text);
  return copy;
}

bool IsSamePath(const std::wstring& a, const std::wstring& b) {
  return CompareStringOrdinal(a.c_str(), -1, b.c_str(), -1, TRUE) == CSTR_EQUAL;
}

// Whether a rule is about datagrams from outside to the port, of this program or of all.
bool Concerns(INetFwRule& rule, long profiles, std::uint16_t port) {
  VARIANT_BOOL enabled = VARIANT_FALSE;
  NET_FW_RULE_DIRECTION direction = NET_FW_RULE_DIR_OUT;
  LONG protocol = 0;
  long ruleProfiles = 0;
  const bool read = SUCCEEDED(rule.get_Enabled(&enabled)) && SUCCEEDED(rule.get_Direction(&direction)) &&
                    SUCCEEDED(rule.get_Protocol(&protocol)) && SUCCEEDED(rule.get_Profiles(&ruleProfiles));
  const bool applies = read && enabled == VARIANT_TRUE && direction == NET_FW_RULE_DIR_IN &&
                       (protocol == NET_FW_IP_PROTOCOL_UDP || protocol == kAnyProtocol) &&
                       (ruleProfiles & profiles) != 0;
  if (!applies) return false;
  const std::wstring program = TextOf(rule, &INetFwRule::get_ApplicationName);
  const std::wstring service = TextOf(rule, &INetFwRule::get_ServiceName);
  const std::wstring ports = TextOf(rule, &INetFwRule::get_LocalPorts);
  if (!service.empty() || (!program.empty() && !IsSamePath(program, OwnProgram()))) return false;
  return ports.empty() || ports == L"*" || doctor::HoldsPort(Utf8FromPlatformWide(ports), port);
}

// What the rules decide. A rule that forbids goes before those that allow.
Firewall::Passage PassageOf(INetFwPolicy2& policy, long profiles, std::uint16_t port) {
  INetFwRules* rulesFound = nullptr;
  if (FAILED(policy.get_Rules(&rulesFound)) || rulesFound == nullptr) return Firewall::Untold;
  const Held<INetFwRules> rules(rulesFound);
  IUnknown* listFound = nullptr;
  if (FAILED(rules->get__NewEnum(&listFound)) || listFound == nullptr) return Firewall::Untold;
  const Held<IUnknown> list(listFound);
  IEnumVARIANT* entriesFound = nullptr;
  if (FAILED(list->QueryInterface(__uuidof(IEnumVARIANT), reinterpret_cast<void**>(&entriesFound))))
    return Firewall::Untold;
  const Held<IEnumVARIANT> entries(entriesFound);
  Firewall::Passage passage = Firewall::Untold;
  VARIANT entry;
  VariantInit(&entry);
  for (ULONG count = 0; entries->Next(1, &entry, &count) == S_OK; VariantClear(&entry)) {
    INetFwRule* ruleFound = nullptr;
    if (entry.vt != VT_DISPATCH ||
        FAILED(entry.pdispVal->QueryInterface(__uuidof(INetFwRule), reinterpret_cast<void**>(&ruleFound))))
      continue;
    const Held<INetFwRule> rule(ruleFound);
    NET_FW_ACTION action = NET_FW_ACTION_BLOCK;
    if (!Concerns(*rule, profiles, port) || FAILED(rule->get_Action(&action))) continue;
    if (action == NET_FW_ACTION_BLOCK) return Firewall::Closed;
    passage = Firewall::Open;
  }
  return passage;
}

// Whether it is on in one of the profiles of the networks at present; nothing if that cannot be told.
std::optional<bool> IsOn(INetFwPolicy2& policy, long profiles) {
  std::optional<bool> isOn;
  for (const NET_FW_PROFILE_TYPE2 profile :
       {NET_FW_PROFILE2_DOMAIN, NET_FW_PROFILE2_PRIVATE, NET_FW_PROFILE2_PUBLIC}) {
    VARIANT_BOOL enabled = VARIANT_FALSE;
    if ((profiles & profile) == 0 || FAILED(policy.get_FirewallEnabled(profile, &enabled))) continue;
    isOn = isOn.value_or(false) || enabled == VARIANT_TRUE;
  }
  return isOn;
}

}  // namespace

Firewall QueryFirewall(std::uint16_t udpPort) {
  const Com com;
  Firewall firewall{
      Firewall::Unknown, "Windows Firewall", Firewall::Untold,
      "netsh advfirewall firewall add rule name=\"Lumarine\" dir=in action=allow protocol=UDP localport=" +
          std::to_string(udpPort)};
  INetFwPolicy2* found = nullptr;
  const HRESULT made = CoCreateInstance(__uuidof(NetFwPolicy2), nullptr, CLSCTX_INPROC_SERVER,
                                        __uuidof(INetFwPolicy2), reinterpret_cast<void**>(&found));
  if (FAILED(made)) return firewall;
  const Held<INetFwPolicy2> policy(found);
  long profiles = 0;
  if (FAILED(policy->get_CurrentProfileTypes(&profiles))) return firewall;
  const std::optional<bool> isOn = IsOn(*policy, profiles);
  if (!isOn) return firewall;
  firewall.state = *isOn ? Firewall::On : Firewall::Off;
  if (*isOn) firewall.passage = PassageOf(*policy, profiles, udpPort);
  return firewall;
}

}  // namespace platform
