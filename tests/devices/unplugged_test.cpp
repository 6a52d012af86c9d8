// A controller that fails at any frame of any operation, in each way that it can: whoever reads that all went
// well finds it so in the controller, every operation comes to its end, and the next one goes well.

#include <algorithm>
#include <string>
#include <tuple>

#include "tests/devices/every_operation.h"
#include "tests/support/run_length.h"

namespace {

using namespace every_operation;
using TCBase::OperationReport;
using TCBase::OperationResult;

enum class Way { Gone, Silent, ShortAnswer, Error };
constexpr Way kWays[] = {Way::Gone, Way::Silent, Way::ShortAnswer, Way::Error};

const char* NameOf(Way way) {
  constexpr const char* kNames[] = {"Gone", "Silent", "ShortAnswer", "Error"};
  return kNames[static_cast<int>(way)];
}

void FailOnUsb(Way way, sim_hidapi::Family family) {
  switch (way) {
    case Way::Gone:
      return sim_hidapi::PullOut(family);
    case Way::Silent:
      return sim_hidapi::SetAnswer(sim_hidapi::Silent());
    case Way::ShortAnswer:
      return sim_hidapi::SetAnswer(sim_hidapi::Sized({3}));
    default:
      for (const auto call : {sim_hidapi::Call::Read, sim_hidapi::Call::Write})
        sim_hidapi::Inject({.call = call, .times = sim_hidapi::kForever});
  }
}

void FailOnNetwork(Way way) {
  switch (way) {
    case Way::Gone:
      return sim_network::SetWeather({.loss = 1.0}, {.loss = 1.0}, 1);
    case Way::Silent:
      return sim_network::SetWeather({}, {.loss = 1.0}, 1);
    case Way::ShortAnswer:
      return sim_network::SetAnswer([](const sim_network::Datagram& reply) {
        return std::vector<sim_network::Datagram>{{reply.from, reply.bytes.substr(0, 3)}};
      });
    default:
      sim_network::Inject(sim_network::Call::Send, 1, sim_hidapi::kForever);
  }
}

// Three tries of two seconds for each frame, and what an operation waits between them.
double MostSeconds(const Fair& fair) {
  return fair.seconds + 7.0 * (fair.frames + 2);
}

class Unplugged : public NetworkTest, public testing::WithParamInterface<std::tuple<Case, Way>> {
 protected:
  const virtual_clock::Alone alone;
};

TEST_P(Unplugged, AtAnyFrameIsAFailureThatIsToldOrNone) {
  const auto& [where, way] = GetParam();
  const auto [link, work] = where;
  const Fair fair = FairRun(work, link, demoState);
  const int stride = std::max(1, IsLongRun() ? 1 : fair.frames / 8);
  for (int frame = 0; frame <= fair.frames; frame += stride) {
    SCOPED_TRACE("frame " + std::to_string(frame) + " of " + std::to_string(fair.frames));
    StartOver(link);
    AtFrame failing(frame, [link = link, way = way] {
      link == Link::Network ? FailOnNetwork(way) : FailOnUsb(way, FamilyOf(link));
    });
    const OperationReport report = Do(work, link, demoState, failing);
    EXPECT_LE(virtual_clock::Seconds(), MostSeconds(fair));
    EXPECT_EQ(demoState.state, TCBase::StateIdle);
    const sim::Memory memory = MemoryOf(link);
    if (report.result == OperationResult::Done) {
      EXPECT_TRUE(HasAll(work, memory, fair.memory));
    }
    // What a failed upload does not name as missing is there.
    if (work == Work::Upload && report.result == OperationResult::Failed) {
      for (int bank = 0; const auto& mode : Program().modes) {
        const auto& missing = report.unconfirmedModes;
        const bool isNamed = std::find(missing.begin(), missing.end(), mode.name) != missing.end();
        EXPECT_TRUE(isNamed || HasMode(memory, fair.memory, bank)) << mode.name;
        ++bank;
      }
    }
    if (frame == 0 && way == Way::Gone && link != Link::Network) {
      EXPECT_EQ(report.result, OperationResult::NotConnected);
    }
    EXPECT_EQ(sim_hidapi::OpenHandles() + sim_network::OpenSockets(), 0);
    TakeStatus();
    TakeWarnings();
    TakeTrace();
  }
  // A controller is there again.
  FairRun(work, link, demoState);
}

std::string NameOfCase(const testing::TestParamInfo<Unplugged::ParamType>& test) {
  const auto& [where, way] = test.param;
  return std::string(NameOf(where.link)) + NameOf(where.work) + NameOf(way);
}

INSTANTIATE_TEST_SUITE_P(Everywhere, Unplugged,
                         testing::Combine(testing::ValuesIn(Cases()), testing::ValuesIn(kWays)), &NameOfCase);

}  // namespace
