#include <nlohmann/json.hpp>

#include <sstream>

#include "tests/cli/command_fixture.h"
#include "tests/support/golden.h"

namespace {

using nlohmann::json;
using testing::HasSubstr;

class FramesTest : public CommandTest {
 protected:
  static std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
  }

  static std::string Hex(const std::string& frame) {
    std::string text = sim::ToHex(frame);
    std::erase(text, ' ');
    return text;
  }
};

TEST_F(FramesTest, PrintsALineForEachFrame) {
  GivenProgram("tank.xml", GivenRamps({"One", "Two"}));
  const Outcome outcome = Run({"frames", "@tank.xml", "--model", "tc420"});
  EXPECT_EQ(outcome.status, kSuccess);
  EXPECT_EQ(outcome.err, "Uploading mode: One\nUploading mode: Two\n");
  const auto lines = Lines(outcome.out);
  EXPECT_EQ(lines.size(), 2U * (1 + 2 + 1) + 1U);
  for (const std::string& line : lines) {
    EXPECT_EQ(line.size(), 128U);
    EXPECT_EQ(line.find_first_not_of("0123456789ABCDEF"), std::string::npos);
  }
  golden::Expect("tests/cli/golden/frames_of_two_modes.txt", outcome.out);
}

// The command is of use only if it tells the truth.
TEST_F(FramesTest, AreTheFramesThatAControllerReceives) {
  auto document = GivenRamps({"One", "", "Three"});
  document.modes.push_back(GivenModeOfRows("Full", 60));
  GivenProgram("tank.xml", document);
  sim_hidapi::PlugIn(sim_hidapi::Family::TC420);
  const auto printed = Lines(Run({"frames", "@tank.xml"}).out);
  Run({"upload", "@tank.xml", "--device", "tc420"});
  std::vector<std::string> received;
  for (const auto& frame : sim_hidapi::Frames(sim_hidapi::Family::TC420))
    received.push_back(Hex(frame.frame));
  EXPECT_EQ(printed, received);
}

TEST_F(FramesTest, OfATC421AreThoseThatItReceives) {
  auto document = GivenRamps({"One", "", "Three"});
  document.modes.push_back(GivenModeOfRows("Full", 60));
  GivenProgram("tank.xml", document);
  const auto hexOf = [](const std::vector<sim::Received>& frames) {
    std::vector<std::string> lines;
    lines.reserve(frames.size());
    for (const auto& frame : frames) lines.push_back(Hex(frame.frame));
    return lines;
  };
  sim_hidapi::PlugIn(sim_hidapi::Family::TC421);
  Run({"upload", "@tank.xml", "--device", "tc421"});
  EXPECT_EQ(Lines(Run({"frames", "@tank.xml", "--model", "tc421-usb"}).out),
            hexOf(sim_hidapi::Frames(sim_hidapi::Family::TC421)));

  constexpr sim_network::Address kAddress{192, 168, 4, 1};
  sim_network::PlugIn(kAddress, "Smart-123456");
  Run({"upload", "@tank.xml", "--device", "udp:Smart-123456@192.168.4.1"});
  EXPECT_EQ(Lines(Run({"frames", "@tank.xml", "--model", "tc421-udp", "--device-name", "Smart-123456"}).out),
            hexOf(sim_network::FramesOf(kAddress)));
}

// They are printed, not sent: the pauses of an upload have no place in it.
TEST_F(FramesTest, TakeNoTime) {
  GivenProgram("tank.xml", GivenRamps({"One"}));
  const double before = virtual_clock::Seconds();
  Run({"frames", "@tank.xml", "--model", "tc421-udp"});
  EXPECT_EQ(virtual_clock::Seconds(), before);
}

TEST_F(FramesTest, OnlyANetworkControllerHasAName) {
  GivenProgram("tank.xml", GivenRamps({"One"}));
  const Outcome outcome = Run({"frames", "@tank.xml", "--model", "tc421-usb", "--device-name", "Smart"});
  EXPECT_EQ(outcome.status, kWrongUsage);
  EXPECT_THAT(outcome.err, HasSubstr("--device-name goes with --model tc421-udp only"));
}

TEST_F(FramesTest, AsJsonAreTheSame) {
  GivenProgram("tank.xml", GivenRamps({"One"}));
  const auto lines = Lines(Run({"frames", "@tank.xml"}).out);
  const Outcome outcome = Run({"frames", "@tank.xml", "--json"});
  EXPECT_EQ(json::parse(outcome.out), json({{"model", "tc420"}, {"frames", lines}}));
}

TEST_F(FramesTest, AModeThatAControllerRefusesIsReportedAndTheOthersPrinted) {
  auto document = GivenRamps({"One", "", "Three"});
  for (auto& channel : document.modes[2].channels) channel.resize(1);
  GivenProgram("tank.xml", document);
  const Outcome outcome = Run({"frames", "@tank.xml"});
  EXPECT_EQ(outcome.status, kOperationFailed);
  EXPECT_EQ(outcome.err,
            "Uploading mode: One\n"
            "Uploading mode: \nUpload error\n"
            "Uploading mode: Three\nUpload error\n");
  EXPECT_EQ(Lines(outcome.out).size(), 1U + 2U + 1U + 1U);
}

TEST_F(FramesTest, AControllerHasNoRoomForASixtyFifthMode) {
  auto document = GivenRamps({"Mode"});
  document.modes.resize(65, document.modes[0]);
  GivenProgram("tank.xml", document);
  const Outcome outcome = Run({"frames", "@tank.xml"});
  EXPECT_EQ(outcome.status, kOperationFailed);
  EXPECT_THAT(outcome.err, HasSubstr("Upload error\n"));
  EXPECT_EQ(Lines(outcome.out).size(), 64U * 4U + 1U);
}

}  // namespace
