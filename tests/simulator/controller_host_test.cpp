// A controller in a bad network, and its memory as other programs read it.

#include "simulator/controller_host.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include <sstream>

#include "simulator/dump.h"
#include "tests/simulator/search_frame.h"

namespace {

using nlohmann::json;

const TCBase::Ipv4Address kComputer = TCBase::MakeIpv4Address({192, 168, 4, 2}, 5000);
const std::string kAnswer = "An answer of some bytes.";

// What becomes of `count` answers.
std::vector<std::vector<std::string>> Fates(const sim::FaultOptions& options, int count) {
  sim::Faults faults(options);
  std::vector<std::vector<std::string>> fates;
  fates.reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) fates.push_back(faults.ArrivalsOf(kAnswer));
  return fates;
}

TEST(FaultsTest, AGoodNetworkDeliversOnce) {
  EXPECT_EQ(Fates({}, 10), std::vector<std::vector<std::string>>(10, {kAnswer}));
}

TEST(FaultsTest, ASeedMakesItsOwnFaultsEachTime) {
  sim::FaultOptions options{.loss = 0.3, .repeat = 0.3, .shorten = 0.3, .corrupt = 0.3, .seed = 7};
  const auto fates = Fates(options, 100);
  EXPECT_EQ(Fates(options, 100), fates);
  options.seed = 8;
  EXPECT_NE(Fates(options, 100), fates);
}

// The generator's numbers are the same everywhere, and so must be what is made of them.
TEST(FaultsTest, ASeedMakesTheSameFaultsOnEveryPlatform) {
  std::string fates;
  for (const auto& fate : Fates({.loss = 0.5, .seed = 7}, 16)) fates += fate.empty() ? '-' : '+';
  EXPECT_EQ(fates, "--+++-----+----+");
}

TEST(FaultsTest, ChancesAreKept) {
  int lost = 0;
  int repeated = 0;
  for (const auto& fate : Fates({.loss = 0.3, .repeat = 0.5}, 10'000)) {
    lost += fate.empty() ? 1 : 0;
    repeated += fate.size() == 2 ? 1 : 0;
  }
  EXPECT_NEAR(lost, 3000, 300);
  EXPECT_NEAR(repeated, 3500, 350);
}

TEST(FaultsTest, ShortIsShorterAndCorruptDiffersInOneByte) {
  for (const auto& fate : Fates({.shorten = 1.0}, 100)) {
    EXPECT_LT(fate.at(0).size(), kAnswer.size());
    EXPECT_EQ(fate.at(0), kAnswer.substr(0, fate.at(0).size()));
  }
  for (const auto& fate : Fates({.corrupt = 1.0}, 100)) {
    ASSERT_EQ(fate.at(0).size(), kAnswer.size());
    int differences = 0;
    for (std::size_t i = 0; i < kAnswer.size(); ++i) differences += fate.at(0)[i] != kAnswer[i] ? 1 : 0;
    EXPECT_EQ(differences, 1);
  }
}

class StationTest : public testing::Test {
 protected:
  sim::ControllerHost GivenHost(const sim::FaultOptions& faults = {}, bool showFrames = false) {
    return {sim::MakeNetworkTC421("Smart"), faults, showFrames, report};
  }

  std::ostringstream report;
};

TEST_F(StationTest, AnswersTheSenderWhenTheDelayHasPassed) {
  sim::ControllerHost host = GivenHost({.delayMilliseconds = 250});
  host.Take(SearchFrame(), kComputer, "him", 10.0);
  EXPECT_FALSE(host.TakeDue(10.2));
  const auto answer = host.TakeDue(10.3);
  ASSERT_TRUE(answer);
  EXPECT_EQ(answer->to, kComputer);
  EXPECT_EQ(answer->bytes.size(), 64U);
  EXPECT_FALSE(host.TakeDue(99.0)) << "it is gone";
  EXPECT_EQ(report.str(), "him  search\n");
}

TEST_F(StationTest, ReportsWhatWasWrong) {
  sim::ControllerHost host = GivenHost({}, true);
  host.Take("abc", kComputer, "him", 0.0);
  EXPECT_EQ(report.str(), "him  61 62 63\nhim  OBJECTION, frame 1: it has 3 bytes\n");
  EXPECT_FALSE(host.TakeDue(99.0));
}

TEST_F(StationTest, ALostRequestIsNotHeard) {
  sim::ControllerHost host = GivenHost({.loss = 1.0});
  host.Take(SearchFrame(), kComputer, "him", 0.0);
  EXPECT_EQ(host.GetController().FrameCount(), 0);
  EXPECT_EQ(report.str(), "him  lost on the way here\n");
}

TEST_F(StationTest, IsOffBehindItsLastAnswer) {
  sim::ControllerHost host = GivenHost({.answers = 2});
  for (int i = 0; i < 4; ++i) host.Take(SearchFrame(), kComputer, "him", 0.0);
  EXPECT_EQ(host.GetController().FrameCount(), 2);
  EXPECT_EQ(report.str(), "him  search\nhim  search\nhim  not heard, it is off\nhim  not heard, it is off\n");
  EXPECT_TRUE(host.TakeDue(99.0) && host.TakeDue(99.0)) << "what it has said is on its way";
  EXPECT_FALSE(host.TakeDue(99.0));
}

TEST_F(StationTest, WhoAsksForeverIsNotRemembered) {
  sim::ControllerHost host = GivenHost({.delayMilliseconds = 60'000});
  for (int i = 0; i < 5000; ++i) host.Take(SearchFrame(), kComputer, "him", 0.0);
  int answers = 0;
  while (host.TakeDue(100.0)) ++answers;
  EXPECT_EQ(answers, 1000);
}

TEST(DumpTest, OfAFreshControllerIsEmpty) {
  const auto controller = sim::MakeNetworkTC421("Smart");
  EXPECT_EQ(json::parse(sim::DumpOf(*controller, "Smart")), json::parse(R"({"name": "Smart", "clock": null,
      "clears": 0, "demo": {"playing": false, "name": "", "live": [0, 0, 0, 0, 0]}, "wifi": null, "banks": [],
      "frames": 0, "objections": []})"));
}

TEST(DumpTest, OfHostileBytesIsStillJson) {
  const auto controller = sim::MakeNetworkTC421("Smart");
  std::string frame(64, '\0');
  frame.replace(0, 11, std::string("\x55\xAA\x18\0\0\4\3\xFF\n\x1B\"", 11));
  frame.replace(49, 5, "Smart");
  unsigned sum = 0;
  for (std::size_t i = 0; i < 49; ++i) sum += static_cast<unsigned char>(frame[i]);
  frame[61] = static_cast<char>(sum & 0xFF);
  EXPECT_EQ(controller->Receive(frame, 0.0).size(), 64U);
  EXPECT_EQ(json::parse(sim::DumpOf(*controller, "Smart"))["wifi"]["ssid"], "\xEF\xBF\xBD\n\x1B\"");
  EXPECT_EQ(controller->Heard(), R"(open WiFi network "\ufffd\n\u001b\"")");
}

}  // namespace
