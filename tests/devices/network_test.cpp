#include "tests/devices/network_test.h"

using TCBase::DeviceInfo;

DeviceInfo GivenNetworkDevice(const sim_network::Address& address, const std::string& name) {
  DeviceInfo info = GivenDevice(TCBase::ModelTC421UDP, name);
  info.address = TCBase::MakeIpv4Address(address, 5000);
  return info;
}

DeviceInfo SelectedTank() {
  return GivenNetworkDevice(kTank, "Smart-123456");
}

sim_network::Datagram From(const sim_network::Address& address, std::string bytes, std::uint16_t port) {
  return {TCBase::MakeIpv4Address(address, port), std::move(bytes)};
}

std::string GivenReply(std::uint8_t code, std::string_view text) {
  std::string reply(64, '\0');
  reply[2] = static_cast<char>(code);
  reply.replace(4, text.size(), text);
  return reply;
}

void NetworkTest::SetUp() {
  DeviceTest::SetUp();
  sim_network::PlugIn(kTank, "Smart-123456");
}

std::string NetworkTest::SentCommands() {
  std::string text;
  std::string last;
  int run = 0;
  const auto end = [&] {
    if (run > 1) text.append("*").append(std::to_string(run));
  };
  for (const sim_network::Sent& sent : sim_network::Traffic()) {
    std::string command = sim::ToHex(sent.bytes.substr(2, 2));
    std::erase(command, ' ');
    if (command == last) {
      ++run;
      continue;
    }
    end();
    if (!text.empty()) text += ' ';
    text += command;
    last = command;
    run = 1;
  }
  end();
  return text;
}

void NetworkTest::ExpectNoNetworkViolations() {
  EXPECT_THAT(sim_network::Violations(), testing::IsEmpty());
}
