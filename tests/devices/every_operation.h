#pragma once

// Each operation on each way to a controller, for tests of what may befall all of them at any moment.

#include <array>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "devices/operations.h"
#include "devices/wifi.h"
#include "tests/devices/network_test.h"

namespace every_operation {

enum class Link { TC420, TC421, Network };
inline constexpr Link kLinks[] = {Link::TC420, Link::TC421, Link::Network};

enum class Work { SyncTime, Clear, Upload, Demo, Wifi };
inline constexpr Work kWorks[] = {Work::SyncTime, Work::Clear, Work::Upload, Work::Demo, Work::Wifi};

inline const char* NameOf(Link link) {
  return link == Link::TC420 ? "TC420" : link == Link::TC421 ? "TC421" : "Network";
}
inline const char* NameOf(Work work) {
  constexpr const char* kNames[] = {"SyncTime", "Clear", "Upload", "Demo", "Wifi"};
  return kNames[static_cast<int>(work)];
}

inline sim_hidapi::Family FamilyOf(Link link) {
  return link == Link::TC420 ? sim_hidapi::Family::TC420 : sim_hidapi::Family::TC421;
}
inline TCBase::DeviceInfo DeviceOf(Link link) {
  return link == Link::TC420 ? SelectedTC420() : link == Link::TC421 ? SelectedTC421() : SelectedTank();
}
inline sim::Memory MemoryOf(Link link) {
  return link == Link::Network ? sim_network::MemoryOf(kTank) : sim_hidapi::MemoryOf(FamilyOf(link));
}

/// A new day with a new controller at the end of the link.
inline void StartOver(Link link) {
  virtual_clock::Reset();
  sim_hidapi::Reset();
  sim_network::Reset();
  if (link == Link::Network) {
    sim_network::PlugIn(kTank, "Smart-123456");
  } else {
    sim_hidapi::PlugIn(FamilyOf(link));
  }
}

inline constexpr int kDemoSeconds = 2;
inline const DateTime kTime{2026, 3, 14, 15, 9, 26, 0};

inline TCBase::Program::ModeListView Program() {
  return GivenProgram({GivenMode("First", {{"00:00", {1, 2, 3, 4, 5}}, {"12:00", {90, 80, 70, 60, 50}}}),
                       GivenMode("Second", {{"06:00", {9, 8, 7, 6, 5}}, {"23:30", {0, 99, 0, 99, 0}}})});
}

/// Calls `at` when the frame with this number has left, counted from 1; with 0 before anything else.
class AtFrame : public TCBase::OperationObserver {
 public:
  AtFrame(int frame, std::function<void()> at) : frame_(frame), at_(std::move(at)) {
    if (frame_ == 0) at_();
  }
  void FrameSent() override {
    if (++sent_ == frame_) at_();
  }
  int Sent() const { return sent_; }

 private:
  int frame_;
  std::function<void()> at_;
  int sent_ = 0;
};

inline TCBase::OperationReport Do(Work work, Link link, TCBase::DemoState& demo,
                                  TCBase::OperationObserver& observer) {
  const TCBase::DeviceInfo device = DeviceOf(link);
  const TCBase::OperationContext context{.demo = demo, .observer = observer};
  switch (work) {
    case Work::SyncTime:
      return SyncTimeOperation(device, Program(), kTime, context);
    case Work::Clear:
      return ClearAllOperation(device, Program(), context);
    case Work::Upload:
      return UploadOperation(device, Program(), context);
    case Work::Demo:
      return DemoOperation(device, Program(), kDemoSeconds, context);
    default:
      return SetupWifi(device, {"Reef", "a long secret", TCBase::EncryptionAES, TCBase::SecurityWPA2},
                       observer);
  }
}

/// Each operation on each link, but that WiFi is set up over the network only.
struct Case {
  Link link;
  Work work;
};
inline std::vector<Case> Cases() {
  std::vector<Case> cases;
  for (const Link link : kLinks) {
    for (const Work work : kWorks) {
      if (work != Work::Wifi || link == Link::Network) cases.push_back({link, work});
    }
  }
  return cases;
}

inline bool HasMode(const sim::Memory& memory, const sim::Memory& whole, int bank) {
  const auto stored = memory.banks.find(bank);
  const sim::StoredMode& wanted = whole.banks.at(bank);
  return stored != memory.banks.end() && stored->second.closed && stored->second.name == wanted.name &&
         stored->second.steps == wanted.steps;
}

inline auto Fields(const DateTime& time) {
  return std::array{time.year, time.month, time.day, time.hour, time.minute, time.second};
}

/// Whether the controller holds what the operation brings to one where nothing happens.
inline bool HasAll(Work work, const sim::Memory& memory, const sim::Memory& whole) {
  switch (work) {
    case Work::SyncTime:
      return memory.clock && Fields(*memory.clock) == Fields(kTime);
    case Work::Clear:
      return memory.clears >= 1;
    case Work::Upload:
      return HasMode(memory, whole, 0) && HasMode(memory, whole, 1);
    case Work::Demo:
      return true;  // it leaves nothing there
    default:
      return memory.wifi && memory.wifi->ssid == whole.wifi->ssid &&
             memory.wifi->password == whole.wifi->password && memory.wifi->complete;
  }
}

/// One operation on one link where nothing happens: how many frames leave, how long it takes, and what the
/// controller holds then.
struct Fair {
  int frames = 0;
  double seconds = 0.0;
  sim::Memory memory;
};
inline Fair FairRun(Work work, Link link, TCBase::DemoState& demo) {
  StartOver(link);
  AtFrame counter(-1, {});
  EXPECT_EQ(Do(work, link, demo, counter).result, TCBase::OperationResult::Done);
  TakeStatus();
  TakeTrace();
  return {counter.Sent(), virtual_clock::Seconds(), MemoryOf(link)};
}

}  // namespace every_operation
