#pragma once

// A hidapi for tests: the library's C functions over simulated controllers that can be plugged in, pulled
// out, slowed down and made to fail. All functions may be called on any thread; slow calls take their time on
// the clock of common/platform.h.

#include <cstddef>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "simulator/controller.h"

namespace sim_hidapi {

enum class Family { TC420, TC421 };

/// Nothing plugged in, no faults, prompt answers, nothing recorded. No handle may be open.
void Reset();

/// Plugs in a controller: the one that was pulled out first, with its memory, else a new one.
void PlugIn(Family family);
/// Pulls out the controller that was plugged in first. Handles that are open to it fail from now on.
void PullOut(Family family);

/// What the controllers of a family have seen since Reset(), and the memory of the first one.
std::vector<sim::Received> Frames(Family family);
sim::Memory MemoryOf(Family family);

/// All that went wrong: frames that no controller understands, and misuse of the library.
std::vector<std::string> Violations();
int OpenHandles();

/// Whether this user may open the controllers of a family; so it is until told otherwise.
void SetAllowed(Family family, bool allowed);

/// Where the rules are that give the rights; nothing for a system without, as it is until told otherwise.
void SetRulesFolder(std::optional<std::filesystem::path> folder);

/// Where packages bring rules to; nowhere until told otherwise.
void SetPackagedRulesFolders(std::vector<std::filesystem::path> folders);

// How controllers answer.

/// From the reply that the controller would give, the reports in which it arrives.
using Reports = std::function<std::vector<std::string>(const std::string& reply)>;

struct Answer {
  Reports reports;
  int poll = 1;  // the read, counted from 1, that finds the first report
};
/// One report, at once.
Answer Prompt();
/// No report, ever.
Answer Silent();
/// One report, at the given read.
Answer AtPoll(int poll);
/// The reply cut or filled up to the given sizes, once for each of them.
Answer Sized(std::vector<std::size_t> sizes);

/// From now on, for all controllers.
void SetAnswer(Answer answer);

// Faults.

enum class Call { Enumerate, Open, SetNonblocking, Write, Read };

struct Fault {
  Call call;
  int nth = 1;      // the first call that it befalls, counted from now
  int times = 1;    // how many calls in a row
  int result = -1;  // what a failing call answers; of Enumerate and Open: null
  const wchar_t* text = L"simulated fault";
};
/// Makes calls fail. They then do nothing.
void Inject(const Fault& fault);

/// How many calls have failed so since Reset().
int FaultsStruck();
/// Nothing fails any more.
void LiftFaults();

inline constexpr int kForever = 1'000'000'000;

/// From now on every such call takes this long.
void SlowDown(Call call, int milliseconds);

}  // namespace sim_hidapi
