#include "tests/frame/include_rule.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

TEST(IncludeRule, HoldsForEveryFileOfTheProject) {
  const std::filesystem::path root = LUMARINE_SOURCE_DIR;
  const auto files = ProjectSources(root);
  ASSERT_GT(files.size(), 20U) << "the sources were not found";
  for (const auto& file : files) {
    std::ifstream stream(root / file, std::ios::binary);
    ASSERT_TRUE(stream) << file;
    const std::string source((std::istreambuf_iterator<char>(stream)), {});
    EXPECT_THAT(IncludeFaults(file.generic_string(), source), IsEmpty());
  }
}

TEST(IncludeRule, AFolderMayIncludeItselfAndTheOnesAboveIt) {
  EXPECT_THAT(IncludeFaults("devices/worker.cpp",
                            "#include \"devices/worker.h\"\n"
                            "#include <vector>\n"
                            "#include \"program/program.h\"\n"
                            "#include \"OvkLib/src/ovk_text.h\"\n"),
              IsEmpty());
}

TEST(IncludeRule, AnIncludeFromBelowIsAFaultWithItsLine) {
  EXPECT_THAT(IncludeFaults("program/program.h", "#pragma once\n#include \"devices/worker.h\"\n"),
              ElementsAre(HasSubstr("program/program.h:2 includes devices/worker.h from a folder below")));
  EXPECT_THAT(IncludeFaults("OvkLib/src/ovk_text.cpp", "#include \"common/log.h\""),
              ElementsAre(HasSubstr("below its own")));
}

TEST(IncludeRule, TheProgramNeverIncludesItsTests) {
  EXPECT_THAT(IncludeFaults("common/log.cpp", "#include \"tests/support/virtual_clock.h\""),
              ElementsAre(HasSubstr("for tests only")));
  EXPECT_THAT(IncludeFaults("bench/x.cpp", "#include \"tests/support/virtual_clock.h\""), IsEmpty());
}

TEST(IncludeRule, IncludesAreWrittenFromTheRoot) {
  EXPECT_THAT(IncludeFaults("common/log.cpp", "#include \"log.h\""), ElementsAre(HasSubstr("not a path")));
}

class PlatformHeaders : public ::testing::TestWithParam<const char*> {};

TEST_P(PlatformHeaders, StayInTheirRooms) {
  const std::string line = std::string("  #  include <") + GetParam() + ">";
  EXPECT_THAT(IncludeFaults("app/main_loop.cpp", line),
              ElementsAre(HasSubstr("outside the platform's rooms")));
  EXPECT_THAT(IncludeFaults("tests/devices/worker_test.cpp", line),
              ElementsAre(HasSubstr("outside the platform's rooms")));
  EXPECT_THAT(IncludeFaults("platform/win32/clock.cpp", line), IsEmpty());
  EXPECT_THAT(IncludeFaults("OvkLib/src/UWP/ovk_win_error.cpp", line), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Every, PlatformHeaders,
                         ::testing::Values("windows.h", "Windows.h", "winsock2.h", "ws2tcpip.h", "d2d1.h",
                                           "d2d1_1.h", "dwrite.h", "commctrl.h", "wlanapi.h", "sys/socket.h",
                                           "netinet/in.h", "arpa/inet.h", "QWidget", "QtGui/QPainter"));

TEST(IncludeRule, StandardHeadersWithLikeNamesAreNotThePlatforms) {
  EXPECT_THAT(IncludeFaults("common/log.cpp", "#include <queue>\n#include <hidapi/hidapi.h>\n"), IsEmpty());
}

}  // namespace
