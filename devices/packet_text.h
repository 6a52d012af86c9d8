#pragma once

// The lines of the device log that the packets of both protocols share. Untranslated.

#include <cstdint>
#include <string>
#include <string_view>

#include "common/date_time.h"
#include "program/program.h"

namespace TCBase {

/// "Packet_TimeSync(Year=2026, Month=03, Day=14, Hour=09, Minute=26, Second=53)"
std::string DescribeTimeSync(const DateTime& time);
/// "Packet_ModeInit(Bank=0, Length=48, Name=Normal)"
std::string DescribeModeInit(int bank, std::size_t stepCount, std::string_view name);
/// "Packet_ModeStep(Hour=08, Minute=05, Steps=(0 10 20 30 100"; what follows differs between the protocols.
std::string DescribeModeStep(const Program::ModeStep& step);
/// "Packet_PlayInit(Name=Normal)"
std::string DescribePlayInit(std::string_view name);
/// "Packet_PlaySetChannels(0 10 20 30 100)"
std::string DescribePlaySetChannels(const Program::ModeStep& step);
/// "Packet_SetWiFi_SSID(SSID=Reef, Security=2, Encryption=1)"
std::string DescribeSetWiFi_SSID(std::string_view ssid, std::int32_t security, std::int32_t encryption);
/// "Packet_SetWiFi_Password(Password=secret)", in clear.
std::string DescribeSetWiFi_Password(std::string_view password);
/// "Packet_SetWiFi_Open(SSID=Reef)"
std::string DescribeSetWiFi_Open(std::string_view ssid);

}  // namespace TCBase
