#pragma once

// Who is on the network: a broadcast, and a short wait for answers.

#include <chrono>
#include <cstdint>
#include <vector>

#include "common/event_target.h"
#include "devices/device_info.h"
#include "devices/operation_observer.h"
#include "devices/worker.h"

namespace TCBase {

/// Asks up to three times, listening `seconds` after each, until somebody has answered; whoever answers in
/// that last time is listed too, and twice if he answers twice. Does nothing, with the reason in the device
/// log, while another program has the port, which the observer is told.
void ScanDevices(std::vector<DeviceInfo>& found, float seconds, OperationObserver& observer = NoObserver());

/// How long name services are given to say what they know of an address, in real time.
inline constexpr std::chrono::milliseconds kLookupPatience{1000};

/// A whole scan, which tells the user of its progress: about a second if somebody answers, three if nobody
/// does, and up to `lookupPatience` more for each that the name services are asked of. Nobody is selected in
/// the answer, which is empty while another program has the port; the observer is told.
std::vector<DeviceInfo> FindNetworkDevices(std::chrono::milliseconds lookupPatience = kLookupPatience,
                                           OperationObserver& observer = NoObserver());

/// Such a scan on the thread of `worker`, into its list; then posts `message` to `window`.
void Scan(Worker& worker, EventTarget& window, std::uint32_t message);

}  // namespace TCBase
