// What the platform says of the computer that the tests run on, as far as that is the same everywhere.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "devices/datagrams.h"
#include "doctor/computer_facts.h"
#include "doctor/network_facts.h"

namespace {

using platform::Adapter;
using platform::Holder;

constexpr std::uint16_t kPort = 50137;

TEST(ComputerFacts, WhoHasAPort) {
  platform::StartNetwork();
  EXPECT_THAT(platform::HoldersOfUdpPort(kPort), testing::IsEmpty());
  const platform::DatagramSocket socket = platform::OpenDatagrams();
  ASSERT_TRUE(platform::BindDatagrams(socket, TCBase::MakeIpv4Address(TCBase::kAnyAddress, kPort)));
  const std::vector<Holder> holders = platform::HoldersOfUdpPort(kPort);
  platform::CloseDatagrams(socket);
  ASSERT_EQ(holders.size(), 1U);
  // Wine does not tell whose it is.
  const bool isTold = holders.front().process != 0;
  EXPECT_EQ(holders.front().isThisOne, isTold);
  EXPECT_EQ(holders.front().program.starts_with("computer_facts_"), isTold);
}

TEST(ComputerFacts, EveryComputerHasALoopback) {
  const std::vector<Adapter> adapters = platform::NetworkAdapters();
  const auto loopback = std::ranges::find(adapters, Adapter::Loopback, &Adapter::kind);
  ASSERT_NE(loopback, adapters.end());
  EXPECT_TRUE(loopback->isUp);
  EXPECT_THAT(loopback->addresses, testing::Contains("127.0.0.1"));
}

TEST(ComputerFacts, BroadcastsLeaveByOneOfTheAdapters) {
  const std::vector<Adapter> adapters = platform::NetworkAdapters();
  const std::string name = platform::BroadcastAdapter();
  EXPECT_TRUE(name.empty() || std::ranges::find(adapters, name, &Adapter::name) != adapters.end()) << name;
  EXPECT_THAT(platform::BroadcastCommand("eth7"), testing::HasSubstr("eth7"));
}

TEST(ComputerFacts, TheUserAndTheComputerHaveNames) {
  const platform::Identity identity = platform::WhoThisIs();
  for (const auto* const names : {&identity.homes, &identity.users, &identity.hosts}) {
    EXPECT_THAT(*names, testing::Not(testing::IsEmpty()));
    EXPECT_THAT(*names, testing::Each(testing::Not(testing::IsEmpty())));
  }
}

TEST(ComputerFacts, TheSystemHasAVersion) {
  const auto versions = platform::SystemVersions();
  ASSERT_FALSE(versions.empty());
  EXPECT_EQ(versions.front().first, "System");
  EXPECT_NE(versions.front().second, "");
}

TEST(ComputerFacts, LocalTimeIsSomewhereAroundUtc) {
  constexpr int kHalfADay = 14 * 60;
  const auto offset = platform::UtcOffsetMinutes({2026, 1, 1, 12, 0, 0, 0});
  ASSERT_TRUE(offset.has_value());
  EXPECT_LE(std::abs(*offset), kHalfADay);
}

// What it says depends on the computer; that it comes back and is whole does not.
TEST(ComputerFacts, TheFirewallAndTheClockAreAsked) {
  const platform::Firewall firewall = platform::QueryFirewall(kPort);
  EXPECT_TRUE(firewall.state != platform::Firewall::On || !firewall.name.empty());
  const platform::ClockKeeper keeper = platform::WhoKeepsTheClock();
  EXPECT_GE(static_cast<int>(keeper), static_cast<int>(platform::ClockKeeper::Network));
  EXPECT_LE(static_cast<int>(keeper), static_cast<int>(platform::ClockKeeper::Unknown));
}

}  // namespace
