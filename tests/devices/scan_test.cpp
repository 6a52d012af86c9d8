// The scan: who is found, how long it takes, and what the user reads.

#include "devices/scan.h"

#include <chrono>
#include <future>
#include <optional>
#include <thread>

#include "devices/jobs.h"
#include "devices/shown_name.h"
#include "devices/tc421.h"
#include "tests/devices/network_test.h"

namespace {

using sim_network::Datagram;
using TCBase::DeviceInfo;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

std::string Probe() {
  std::string probe;
  TC421::Packet_Find().Serialize(probe);
  return probe;
}

class ScanTest : public NetworkTest {
 protected:
  static std::vector<DeviceInfo> ScanOnce() {
    std::vector<DeviceInfo> found;
    TCBase::ScanDevices(found, 1.0F);
    return found;
  }
  static void FindNobody() {
    sim_network::SetAnswer([](const Datagram&) { return std::vector<Datagram>(); });
  }
};

TEST_F(ScanTest, ADeviceIsFoundWithTheNameItReportsAndItsAddress) {
  const std::vector<DeviceInfo> found = ScanOnce();
  ASSERT_THAT(found, SizeIs(1));
  EXPECT_EQ(found[0].model, TCBase::ModelTC421UDP);
  EXPECT_EQ(found[0].name, "Smart-123456");
  EXPECT_EQ(found[0].address, TCBase::MakeIpv4Address(kTank, 5000));
  EXPECT_FALSE(found[0].selected);
  ExpectNoNetworkViolations();
}

TEST_F(ScanTest, AnswersInTheFirstRoundEndTheScanAfterOneSecond) {
  sim_network::PlugIn(kPond, "Pond");
  EXPECT_EQ(ToText(ScanOnce()), "Smart-123456 Pond");
  EXPECT_NEAR(virtual_clock::Seconds(), 1.0, 1e-9);
  ASSERT_THAT(sim_network::Traffic(), SizeIs(1));
  EXPECT_EQ(sim_network::Traffic()[0].to, TCBase::MakeIpv4Address({255, 255, 255, 255}, 5000));
  EXPECT_EQ(sim_network::Traffic()[0].bytes, Probe());
}

TEST_F(ScanTest, NobodyIsLookedForThreeTimesForASecondEach) {
  FindNobody();
  EXPECT_THAT(ScanOnce(), IsEmpty());
  EXPECT_THAT(sim_network::Traffic(), SizeIs(3));
  EXPECT_NEAR(virtual_clock::Seconds(), 3.0, 1e-9);
}

TEST_F(ScanTest, AnAnswerInTheSecondRoundEndsTheRoundsWithThatRoundsFullWait) {
  FindNobody();
  virtual_clock::At(1.35, [] { sim_network::Arrive(From(kTank, GivenReply(0x17, "Tank"))); });
  virtual_clock::At(1.85, [] { sim_network::Arrive(From(kPond, GivenReply(0x17, "Pond"))); });
  EXPECT_EQ(ToText(ScanOnce()), "Tank Pond");
  EXPECT_THAT(sim_network::Traffic(), SizeIs(2));
  EXPECT_NEAR(virtual_clock::Seconds(), 2.0, 1e-9);
}

TEST_F(ScanTest, TheComputersOwnBroadcastEchoAddsNothing) {
  FindNobody();
  EXPECT_THAT(ScanOnce(), IsEmpty());
  // It did come, and looks like an answer but for being the question.
  EXPECT_EQ(CountOf(TakeTrace(), "recvfrom 192.168.4.2:5000\n"), 3);
}

TEST_F(ScanTest, ADeviceThatAnswersTwiceIsListedTwice) {
  sim_network::SetAnswer([](const Datagram& reply) { return std::vector{reply, reply}; });
  EXPECT_EQ(ToText(ScanOnce()), "Smart-123456 Smart-123456");
}

TEST_F(ScanTest, AReplyOfAnotherCodeOrAnotherLengthIsDropped) {
  sim_network::SetAnswer([](const Datagram& reply) {
    return std::vector{From(kTank, GivenReply(0x18, "no")), From(kTank, reply.bytes.substr(0, 63)),
                       From(kTank, reply.bytes + "x")};
  });
  EXPECT_THAT(ScanOnce(), IsEmpty());
  EXPECT_EQ(CountOf(TakeTrace(), "Received invalid packet size\n"), 6);
}

TEST_F(ScanTest, ARoundSeesTenDatagrams) {
  sim_network::SetAnswer([](const Datagram& reply) { return std::vector(100, reply); });
  // One of the ten is the echo.
  EXPECT_THAT(ScanOnce(), SizeIs(9));
}

TEST_F(ScanTest, ASecondCopyOfTheProgramOnThePortMakesItFindNothing) {
  sim_network::HoldPort(true);
  std::vector<DeviceInfo> found{SelectedTank()};
  TCBase::ScanDevices(found, 1.0F);
  EXPECT_EQ(TakeTrace(), "9:26:53:589 ScanDevices\n9:26:53:589 bind error: Address already in use\n");
  // What the caller had is not touched.
  EXPECT_THAT(found, SizeIs(1));
  EXPECT_THAT(sim_network::Traffic(), IsEmpty());
  EXPECT_DOUBLE_EQ(virtual_clock::Seconds(), 0.0);
  EXPECT_THAT(TCBase::FindNetworkDevices(), IsEmpty());
  EXPECT_EQ(TakeStatus(), "Searching for network devices...\nFound 0 device(s)\n");
}

TEST_F(ScanTest, ASendThatFailsIsLikeNobodyThere) {
  sim_network::Inject(sim_network::Call::Send, 1, 3);
  EXPECT_THAT(ScanOnce(), IsEmpty());
  EXPECT_EQ(CountOf(TakeTrace(), "sendto error: simulated fault\n"), 3);
  EXPECT_NEAR(virtual_clock::Seconds(), 3.0, 1e-9);
}

// The name that a controller reports goes into its frames. A host name in its place would make it deaf, and
// the port that stands in the text is what keeps the host name out.
TEST_F(ScanTest, ADeviceKeepsItsNameSinceTheTextThatIsLookedUpHasAPort) {
  sim_network::NameHost(kTank, "tank.example.net");
  const std::vector<DeviceInfo> found = TCBase::FindNetworkDevices();
  EXPECT_EQ(ToText(found), "Smart-123456");
  EXPECT_EQ(TakeStatus(),
            "Searching for network devices...\nFound 1 device(s)\n"
            "Trying to find hostname for 192.168.4.7:5000...\n"
            "Hostname not found, using Smart-123456\n");
  EXPECT_THAT(sim_network::Lookups(), IsEmpty());
}

TEST_F(ScanTest, ADeviceThatAnswersFromPortZeroIsNamedAfterItsHost) {
  sim_network::NameHost(kTank, "tank.example.net");
  sim_network::SetAnswer(
      [](const Datagram& reply) { return std::vector{From(reply.from.address, reply.bytes, 0)}; });
  sim_network::PlugIn(kPond, "Pond");
  // Names are looked up in real time, which a busy machine may not have: no second is counted here.
  EXPECT_EQ(ToText(TCBase::FindNetworkDevices(std::chrono::minutes(5))), "tank.example.net Pond");
  EXPECT_EQ(TakeStatus(),
            "Searching for network devices...\nFound 2 device(s)\n"
            "Trying to find hostname for 192.168.4.7...\nFound hostname tank.example.net\n"
            "Trying to find hostname for 192.168.4.9...\nHostname not found, using Pond\n");
  EXPECT_THAT(sim_network::Lookups(), ElementsAre(kTank, kPond));
}

// A hostile neighbour.

TEST_F(ScanTest, NameServicesThatDoNotAnswerAreGivenASecondOfRealTimeForEach) {
  sim_network::NameHost(kTank, "tank.example.net");
  sim_network::SetAnswer(
      [](const Datagram& reply) { return std::vector{From(reply.from.address, reply.bytes, 0)}; });
  sim_network::HoldLookups(true);
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_EQ(ToText(TCBase::FindNetworkDevices()), "Smart-123456");
  EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::seconds(1));
  EXPECT_THAT(TakeStatus(), HasSubstr("Hostname not found, using Smart-123456\n"));
  // Who asks is a thread of its own, and on a busy machine may get to it behind the second.
  const auto limit = begin + std::chrono::minutes(1);
  while (sim_network::Lookups().empty() && std::chrono::steady_clock::now() < limit)
    std::this_thread::yield();
  EXPECT_THAT(sim_network::Lookups(), ElementsAre(kTank));
  sim_network::HoldLookups(false);
}

TEST_F(ScanTest, AFloodStretchesNoRound) {
  int received = 0;
  sim_network::SetFlood([&received] {
    ++received;
    return From(kStranger, std::string(static_cast<std::size_t>(received % 70), '\x17'));
  });
  ScanOnce();
  EXPECT_LE(virtual_clock::Seconds(), 3.0 + 1e-9);
  EXPECT_LE(received, 30);
}

TEST_F(ScanTest, ANameOfAnyBytesStaysAsItIsAndIsShownHarmlessly) {
  const std::string name = "\x1B[2J\xFF\r\nTank\xE2\x80\xAE";
  sim_network::SetAnswer(
      [&name](const Datagram&) { return std::vector{From(kTank, GivenReply(0x17, name))}; });
  const std::vector<DeviceInfo> found = TCBase::FindNetworkDevices();
  ASSERT_THAT(found, SizeIs(1));
  EXPECT_EQ(found[0].name, name);
  const std::string kShown = "\uFFFD[2J\uFFFD\uFFFD\uFFFDTank\uFFFD";
  EXPECT_THAT(TakeStatus(), testing::EndsWith("Hostname not found, using " + kShown + "\n"));
  DeviceInfo selected = found[0];
  selected.selected = true;
  TCBase::TimeSyncJob({selected}, {}, {2026, 1, 1, 0, 0, 0, 0}, context)();
  EXPECT_EQ(sim_network::Traffic().back().bytes.substr(49, 12), name.substr(0, 12));
  EXPECT_THAT(TakeStatus(), testing::StartsWith("Configuring device " + kShown + "\n"));
}

TEST_F(ScanTest, ANameWithoutAnEndIsSixtyBytesLong) {
  sim_network::SetAnswer([](const Datagram& reply) {
    return std::vector{From(kTank, reply.bytes.substr(0, 4) + std::string(60, 'n'))};
  });
  const std::vector<DeviceInfo> found = ScanOnce();
  ASSERT_THAT(found, SizeIs(1));
  EXPECT_EQ(found[0].name, std::string(60, 'n'));
}

TEST(ShownNameTest, OnlyWhatCanDoHarmIsReplaced) {
  EXPECT_EQ(TCBase::ShownName("Smart-123456"), "Smart-123456");
  EXPECT_EQ(TCBase::ShownName("Korallenbecken \u00FC \u2713 \U0001F41F"),
            "Korallenbecken \u00FC \u2713 \U0001F41F");
  EXPECT_EQ(TCBase::ShownName(""), "");
  EXPECT_EQ(TCBase::ShownName("a\tb\x7F"
                              "c\u0085d\u200B\u2066e"),
            "a\uFFFDb\uFFFDc\uFFFDd\uFFFD\uFFFDe");
  EXPECT_EQ(TCBase::ShownName("\xC3(\xED\xA0\x80"), "\uFFFD(\uFFFD\uFFFD");
}

// The job.

class Window : public EventTarget {
 public:
  void Post(std::uint32_t event, std::uintptr_t first, std::intptr_t second) override {
    posted_.set_value(std::to_string(event) + " " + std::to_string(first) + " " + std::to_string(second));
  }
  std::string Await() { return posted_.get_future().get(); }

 private:
  std::promise<std::string> posted_;
};

class ScanJobTest : public ScanTest {
 protected:
  void TearDown() override {
    worker_.reset();
    ScanTest::TearDown();
  }
  std::string Run() {
    const auto window = std::make_shared<Window>();
    worker_->AddJob(TCBase::ScanJob(*worker_, window, 1025));
    return window->Await();
  }
  std::optional<TCBase::Worker> worker_{std::in_place};
};

TEST_F(ScanJobTest, WhatWasFoundIsInTheListWhenTheWindowHears) {
  EXPECT_EQ(Run(), "1025 0 0");
  EXPECT_EQ(ToText(worker_->GetDevices()), "Smart-123456");
}

TEST_F(ScanJobTest, AScanReplacesWhatAnEarlierOneFoundAndLeavesTheRest) {
  sim_hidapi::PlugIn(sim_hidapi::Family::TC420);
  worker_.emplace(TCBase::Discovery::AtOnce);
  Run();  // USB is looked at behind a job, and so before the next one
  worker_->ReplaceNetworkDevices({SelectedTank(), GivenNetworkDevice(kPond, "Gone")});
  sim_network::PlugIn(kPond, "Zoo");
  Run();
  EXPECT_EQ(ToText(worker_->GetDevices()), "Smart-123456 TC420 Zoo");
  FindNobody();
  Run();
  EXPECT_EQ(ToText(worker_->GetDevices()), "TC420");
}

// The list is not locked any more when a window hears of a scan.
TEST_F(ScanJobTest, AWindowMayAskForTheListWhileItIsToldOfAScan) {
  class AskingWindow : public EventTarget {
   public:
    explicit AskingWindow(const TCBase::Worker& worker) : worker_(worker) {}
    void Post(std::uint32_t, std::uintptr_t, std::intptr_t) override {
      listed_.set_value(ToText(worker_.GetDevices()));
    }
    std::string Await() { return listed_.get_future().get(); }

   private:
    const TCBase::Worker& worker_;
    std::promise<std::string> listed_;
  };
  const auto window = std::make_shared<AskingWindow>(*worker_);
  worker_->AddJob(TCBase::ScanJob(*worker_, window, 1025));
  EXPECT_EQ(window->Await(), "Smart-123456");
}

TEST_F(ScanJobTest, AWindowThatHasGoneHarmsNothing) {
  std::weak_ptr<Window> watched;
  {
    const auto window = std::make_shared<Window>();
    watched = window;
    worker_->AddJob(TCBase::ScanJob(*worker_, window, 1025));
  }
  Run();
  EXPECT_TRUE(watched.expired());
}

TEST_F(ScanTest, NothingIsSentWhileNothingIsAskedFor) {
  {
    TCBase::Worker worker;
    std::promise<void> passed;
    worker.AddJob([] {});
    worker.AddJob([&passed] { passed.set_value(); });
    passed.get_future().wait();
  }
  EXPECT_THAT(sim_network::Traffic(), IsEmpty());
  EXPECT_EQ(sim_network::OpenSockets(), 0);
}

}  // namespace
