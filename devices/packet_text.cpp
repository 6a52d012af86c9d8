#include "devices/packet_text.h"

#include "OvkLib/src/ovk_format.h"
#include "devices/packet_base.h"

namespace TCBase {

namespace {

void AddText(ovk::format& line, std::string_view text) {
  line.arg(text.data(), static_cast<std::int32_t>(text.size()));
}

std::string ToText(const ovk::format& line) {
  return std::string(line.text().view());
}

// "0 10 20 30 100", as sent.
std::string DescribeValues(const Program::ModeStep& step) {
  std::string values;
  for (const std::int32_t value : step.values) {
    if (!values.empty()) values += ' ';
    values += std::to_string(WirePercent(value));
  }
  return values;
}

}  // namespace

std::string DescribeTimeSync(const DateTime& time) {
  ovk::format line("Packet_TimeSync(Year={1}, Month={2}, Day={3}, Hour={4}, Minute={5}, Second={6})");
  line.arg(time.year, 4);
  for (const int field : {time.month, time.day, time.hour, time.minute, time.second}) line.arg(field, 2);
  return ToText(line);
}

std::string DescribeModeInit(int bank, std::size_t stepCount, std::string_view name) {
  ovk::format line("Packet_ModeInit(Bank={1}, Length={2}, Name={3})");
  line.arg(bank, 0);
  line.arg(static_cast<std::int32_t>(stepCount), 0);
  AddText(line, name);
  return ToText(line);
}

std::string DescribeModeStep(const Program::ModeStep& step) {
  ovk::format line("Packet_ModeStep(Hour={1}, Minute={2}, Steps=(");
  line.arg(step.hour, 2);
  line.arg(step.minute, 2);
  return ToText(line) + DescribeValues(step);
}

std::string DescribePlayInit(std::string_view name) {
  ovk::format line("Packet_PlayInit(Name={1})");
  AddText(line, name);
  return ToText(line);
}

std::string DescribePlaySetChannels(const Program::ModeStep& step) {
  return "Packet_PlaySetChannels(" + DescribeValues(step) + ")";
}

std::string DescribeSetWiFi_SSID(std::string_view ssid, std::int32_t security, std::int32_t encryption) {
  ovk::format line("Packet_SetWiFi_SSID(SSID={1}, Security={2}, Encryption={3})");
  AddText(line, ssid);
  line.arg(security, 0);
  line.arg(encryption, 0);
  return ToText(line);
}

std::string DescribeSetWiFi_Password(std::string_view password) {
  ovk::format line("Packet_SetWiFi_Password(Password={1})");
  AddText(line, password);
  return ToText(line);
}

std::string DescribeSetWiFi_Open(std::string_view ssid) {
  ovk::format line("Packet_SetWiFi_Open(SSID={1})");
  AddText(line, ssid);
  return ToText(line);
}

}  // namespace TCBase
