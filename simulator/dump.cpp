#include "simulator/dump.h"

#include <cstdio>

#include <nlohmann/json.hpp>

namespace sim {

namespace {

using Json = nlohmann::ordered_json;

Json JsonOf(const StoredMode& mode) {
  Json steps = Json::array();
  for (const TCBase::Program::ModeStep& step : mode.steps) {
    char time[32];
    std::snprintf(time, sizeof time, "%02d:%02d", step.hour, step.minute);
    steps.push_back({{"time", time}, {"values", step.values}});
  }
  return {{"name", mode.name}, {"whole", mode.closed}, {"steps", std::move(steps)}};
}

const char* SecurityText(int security) {
  switch (security) {
    case 0:
      return "open";
    case 1:
      return "wpa";
    case 2:
      return "wpa2";
    default:
      return "unknown";
  }
}

const char* EncryptionText(int encryption) {
  switch (encryption) {
    case 0:
      return "none";
    case 1:
      return "aes";
    case 2:
      return "tkip";
    default:
      return "unknown";
  }
}

Json JsonOf(const std::optional<Wifi>& wifi) {
  if (!wifi) return nullptr;
  return {{"ssid", wifi->ssid},
          {"security", SecurityText(wifi->security)},
          {"encryption", EncryptionText(wifi->encryption)},
          {"password", wifi->password},
          {"whole", wifi->complete}};
}

}  // namespace

std::string DumpOf(const Controller& controller, const std::string& name) {
  const Memory& memory = controller.GetMemory();
  Json banks = Json::array();
  for (const auto& [bank, mode] : memory.banks) {
    Json entry = {{"bank", bank}};
    entry.update(JsonOf(mode));
    banks.push_back(std::move(entry));
  }
  const Json dump = {
      {"name", name},
      {"clock", memory.clock ? Json(MomentText(*memory.clock)) : Json()},
      {"clears", memory.clears},
      {"demo", {{"playing", memory.playing}, {"name", memory.playName}, {"live", memory.live}}},
      {"wifi", JsonOf(memory.wifi)},
      {"banks", std::move(banks)},
      {"frames", controller.FrameCount()},
      {"objections", controller.Violations()},
  };
  constexpr int kIndent = 1;
  return dump.dump(kIndent, ' ', false, Json::error_handler_t::replace) + '\n';
}

}  // namespace sim
