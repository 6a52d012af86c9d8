// What Linux says of itself.

#include "doctor/system_texts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using platform::Firewall;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(SystemTexts, TheSocketsOnAPort) {
  constexpr char kTable[] =
      "  sl  local_address rem_address   st tx_queue rx_queue tr tm->when retrnsmt   uid  timeout inode ref "
      "pointer "
      "drops\n"
      "  101: 00000000:1388 00000000:0000 07 00000000:00000000 00:00000000 00000000     0        0 23456 2 0 "
      "0\n"
      "  102: 0100007F:1389 00000000:0000 07 00000000:00000000 00:00000000 00000000     0        0 23457 2 0 "
      "0\n"
      "  103: 0100007F:1388 00000000:0000 07 00000000:00000000 00:00000000 00000000  1000        0 23458 2 0 "
      "0\n"
      "cut\n";
  EXPECT_THAT(doctor::SocketsOnPort(kTable, 5000), ElementsAre("23456", "23458"));
  EXPECT_THAT(doctor::SocketsOnPort(kTable, 5002), IsEmpty());
  EXPECT_THAT(doctor::SocketsOnPort("", 5000), IsEmpty());
  constexpr char kTable6[] =
      "  1: 00000000000000000000000000000000:1388 0:0000 07 0:0 00:0 0 0 0 1 2 0 0\n"
      "  2: 0000000000000000FFFF00000100007F:1388 0:0000 07 0:0 00:0 0 0 0 2 2 0 0\n"
      "  3: 000080FE00000000FF005450B6AD1DFE:1388 0:0000 07 0:0 00:0 0 0 0 3 2 0 0\n";
  EXPECT_THAT(doctor::SocketsOnPort(kTable6, 5000), ElementsAre("1", "2"));
}

TEST(SystemTexts, Ports) {
  for (const char* const ports : {"5000", "80,5000", "4000:6000", "1,4999-5000"})
    EXPECT_TRUE(doctor::HoldsPort(ports, 5000)) << ports;
  for (const char* const ports : {"", "500", "50000", "5001-6000", "x", "5000x", ":", "-"})
    EXPECT_FALSE(doctor::HoldsPort(ports, 5000)) << ports;
}

TEST(SystemTexts, Ufw) {
  EXPECT_TRUE(doctor::IsUfwOn("# x\nENABLED=yes\nLOGLEVEL=low\n"));
  EXPECT_FALSE(doctor::IsUfwOn("ENABLED=no\n"));
  EXPECT_FALSE(doctor::IsUfwOn("#ENABLED=yes\n"));
  EXPECT_FALSE(doctor::IsUfwOn(""));
  const auto passage = [](const char* tuple) {
    return doctor::PassageOfUfw(std::string("*filter\n") + tuple, 5000);
  };
  EXPECT_EQ(passage("### tuple ### allow udp 5000 0.0.0.0/0 any 0.0.0.0/0 in\n"), Firewall::Open);
  EXPECT_EQ(passage("### tuple ### allow any 5000 0.0.0.0/0 any 0.0.0.0/0 in\n"), Firewall::Open);
  EXPECT_EQ(passage("### tuple ### allow udp 4000:6000 0.0.0.0/0 any 0.0.0.0/0 in_eth0\n"), Firewall::Open);
  EXPECT_EQ(passage("### tuple ### allow tcp 5000 0.0.0.0/0 any 0.0.0.0/0 in\n"), Firewall::Closed);
  EXPECT_EQ(passage("### tuple ### deny udp 5000 0.0.0.0/0 any 0.0.0.0/0 in\n"), Firewall::Closed);
  EXPECT_EQ(passage("### tuple ### allow udp 5000 0.0.0.0/0 any 0.0.0.0/0 out\n"), Firewall::Closed);
  EXPECT_EQ(passage(""), Firewall::Closed);
}

std::string Chain(const std::string& rules, const char* policy) {
  return std::string(
             "table inet filter {\n\tchain input {\n\t\ttype filter hook input priority filter; policy ") +
         policy + ";\n" + rules +
         "\t}\n\tchain output {\n\t\ttype filter hook output priority 0; policy drop;\n\t}\n}\n";
}

TEST(SystemTexts, Nftables) {
  struct Row {
    std::string rules;
    const char* policy;
    Firewall::State state;
    Firewall::Passage passage;
  };
  const std::string usual =
      "\t\tct state established,related accept\n\t\tiif \"lo\" accept\n\t\tip protocol icmp accept\n\t\ttcp "
      "dport { "
      "22, 80 } accept\n";
  const Row rows[] = {
      {"", "accept", Firewall::Absent, Firewall::Open},
      {"", "drop", Firewall::On, Firewall::Closed},
      {usual, "drop", Firewall::On, Firewall::Closed},
      {usual + "\t\tudp dport 5000 accept\n", "drop", Firewall::On, Firewall::Open},
      {usual + "\t\tudp dport { 53, 4000-6000 } accept\n", "drop", Firewall::On, Firewall::Open},
      {usual + "\t\tudp dport 5353 accept\n", "drop", Firewall::On, Firewall::Closed},
      {"\t\tudp dport 5000 drop\n", "accept", Firewall::On, Firewall::Closed},
      {"\t\tudp dport 5000 counter packets 0 bytes 0 reject\n", "accept", Firewall::On, Firewall::Closed},
      {"\t\tudp dport != 5001 drop\n", "accept", Firewall::On, Firewall::Untold},
      {"\t\tudp dport 5001 drop\n", "accept", Firewall::On, Firewall::Open},
      {"\t\tjump ufw-before-input\n", "drop", Firewall::On, Firewall::Untold},
      {"\t\tip saddr 192.168.0.0/16 accept\n", "drop", Firewall::On, Firewall::Untold},
      {"\t\tudp dport @open accept\n", "drop", Firewall::On, Firewall::Untold},
      {"\t\tcounter packets 1 bytes 2 accept\n", "drop", Firewall::On, Firewall::Open},
  };
  for (const Row& row : rows) {
    const Firewall firewall = doctor::FirewallOfNft(Chain(row.rules, row.policy), 5000);
    EXPECT_EQ(firewall.state, row.state) << row.rules << row.policy;
    EXPECT_EQ(firewall.passage, row.passage) << row.rules << row.policy;
  }
  EXPECT_EQ(doctor::FirewallOfNft("", 5000).state, Firewall::Absent);
  EXPECT_EQ(doctor::FirewallOfNft(Chain("", "accept") + Chain("", "drop"), 5000).passage, Firewall::Closed)
      << "a datagram has to pass all of them";
}

TEST(SystemTexts, OsRelease) {
  EXPECT_EQ(doctor::OsReleaseValue("NAME=x\nPRETTY_NAME=\"Debian GNU/Linux 12\"\n", "PRETTY_NAME"),
            "Debian GNU/Linux 12");
  EXPECT_EQ(doctor::OsReleaseValue("XNAME=y\n", "NAME"), "");
}

}  // namespace
