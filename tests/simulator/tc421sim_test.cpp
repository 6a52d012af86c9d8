// tc421sim as its users run it, on a simulated network and on virtual time.

#include "simulator/tc421sim.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include <sstream>

#include "common/files.h"
#include "tests/simulator/search_frame.h"
#include "tests/support/files.h"
#include "tests/support/sim_network.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/virtual_clock.h"

namespace {

using nlohmann::json;
using sim::Request;
using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

constexpr sim_network::Address kAsker{192, 168, 4, 7};

class Tc421SimTest : public testing::Test {
 protected:
  void SetUp() override {
    virtual_clock::Reset();
    sim_network::Reset();
  }
  void TearDown() override { EXPECT_EQ(sim_network::OpenSockets(), 0); }

  // Runs it for two seconds. `during` is asked before each look at the network.
  int Run(
      const std::vector<std::string>& arguments,
      const std::function<Request()>& during = [] { return Request::None; }) {
    return sim::RunTc421Sim(arguments, out, err, [&] {
      const Request request = during();
      return virtual_clock::Seconds() >= 2.0 ? Request::Stop : request;
    });
  }

  std::string DumpFile() const { return Utf8FromPath(folder / "memory.json"); }
  json Dump() const { return json::parse(BytesOf(PathFromUtf8(DumpFile()))); }

  std::ostringstream out;
  std::ostringstream err;
  TemporaryFolder folder;
};

TEST_F(Tc421SimTest, HelpTellsEveryOptionAndTheExitStatus) {
  EXPECT_EQ(Run({"--help"}), 0);
  for (const char* const option : {"--name", "--bind", "--port", "--loss", "--delay", "--repeat", "--shorten",
                                   "--corrupt", "--answers", "--seed", "--wrong-ack", "--dump", "--frames"})
    EXPECT_THAT(out.str(), HasSubstr(std::string("\n  ") + option));
  EXPECT_THAT(out.str(), AllOf(HasSubstr("Examples:"), HasSubstr("Exit status: 0 ended")));
}

TEST_F(Tc421SimTest, SaysWhenItListensAndAnswers) {
  virtual_clock::At(1.0, [] { sim_network::Arrive({TCBase::MakeIpv4Address(kAsker, 4321), SearchFrame()}); });
  EXPECT_EQ(Run({"--name", "Bed"}), 0);
  EXPECT_EQ(out.str(), "listening on 0.0.0.0:5000 as \"Bed\"\n192.168.4.7:4321  search\n");
  const auto traffic = sim_network::Traffic();
  ASSERT_EQ(traffic.size(), 1U);
  EXPECT_EQ(traffic[0].to, TCBase::MakeIpv4Address(kAsker, 4321)) << "to the port that asked";
  EXPECT_EQ(traffic[0].bytes.substr(4, 3), "Bed");
}

TEST_F(Tc421SimTest, WritesItsMemoryAtTheEnd) {
  virtual_clock::At(1.5, [] { sim_network::Arrive({TCBase::MakeIpv4Address(kAsker, 5000), SearchFrame()}); });
  EXPECT_EQ(Run({"--dump", DumpFile()}), 0);
  EXPECT_EQ(Dump()["frames"], 1);
  EXPECT_EQ(Dump()["name"], "Smart-123456");
}

TEST_F(Tc421SimTest, WritesItsMemoryWhenAsked) {
  std::vector<Request> requests = {Request::None, Request::Dump};
  json early;
  Run({"--dump", DumpFile()}, [&] {
    if (requests.empty()) {
      if (early.is_null()) early = Dump();
      return Request::None;
    }
    const Request next = requests.back();
    requests.pop_back();
    return next;
  });
  EXPECT_EQ(early["frames"], 0);
}

TEST_F(Tc421SimTest, ADumpThatCannotBeWrittenIsTold) {
  const std::string nowhere = Utf8FromPath(folder / "none" / "memory.json");
  EXPECT_EQ(Run({"--dump", nowhere}), 4);
  EXPECT_THAT(err.str(), StartsWith("tc421sim: " + nowhere + " cannot be written: "));
}

TEST_F(Tc421SimTest, APortThatIsTakenIsTold) {
  sim_network::HoldPort(true);
  EXPECT_EQ(Run({}), 1);
  EXPECT_EQ(err.str(), "tc421sim: no listening on 0.0.0.0:5000: Address already in use\n");
  EXPECT_THAT(out.str(), IsEmpty());
}

TEST_F(Tc421SimTest, WrongUsageIsExplained) {
  const std::vector<std::string> rows[] = {
      {"--loss", "1.5"},   {"--loss", "much"}, {"--delay", "-1"}, {"--delay", "60001"}, {"--answers", "-1"},
      {"--port", "70000"}, {"--bind", "here"}, {"--seed", "-1"},  {"--frobnicate"},     {"tank.xml"},
  };
  for (const auto& row : rows) {
    err.str({});
    EXPECT_EQ(Run(row), 2) << row[0];
    EXPECT_THAT(err.str(), StartsWith("tc421sim: ")) << row[0];
  }
}

}  // namespace
