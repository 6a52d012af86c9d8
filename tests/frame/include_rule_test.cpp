#include "tests/frame/include_rule.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include "tests/support/files.h"

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

// Of the program, as this build links it.
const IncludeRule& RuleOfTheBuild() {
  static const IncludeRule rule = [] {
    std::istringstream lines(BytesOf(LUMARINE_INCLUDE_RULE));
    return IncludeRule(lines);
  }();
  return rule;
}

// The faults of a file that has this one line.
std::vector<std::string> Faults(std::string_view path, std::string_view line) {
  return RuleOfTheBuild().Faults(path, line);
}

TEST(IncludeRule, HoldsForEveryFileOfTheProject) {
  const std::filesystem::path root = LUMARINE_SOURCE_DIR;
  const IncludeRule& rule = RuleOfTheBuild();
  const auto files = rule.ProjectSources(root);
  ASSERT_GT(files.size(), 400U) << "the sources were not found";
  for (const auto& file : files) {
    EXPECT_THAT(rule.Faults(file.generic_string(), BytesOf(root / file)), IsEmpty());
  }
}

TEST(IncludeRule, ALibraryMayIncludeItselfAndWhatItLinks) {
  EXPECT_THAT(RuleOfTheBuild().Faults("devices/worker.cpp",
                                      "#include \"devices/worker.h\"\n"
                                      "#include <vector>\n"
                                      "#include \"program/program.h\"\n"
                                      "#include \"OvkLib/src/ovk_text.h\"\n"
                                      "#include <hidapi/hidapi.h>\n"),
              IsEmpty());
}

TEST(IncludeRule, AFaultIsToldWithItsLine) {
  EXPECT_THAT(
      Faults("program/program.h", "#pragma once\n#include \"devices/worker.h\"\n"),
      ElementsAre("program/program.h:2 includes devices/worker.h, which is no header of what its library or "
                  "program links"));
}

struct Leak {
  const char* file;
  const char* header;
};
void PrintTo(const Leak& leak, std::ostream* out) {
  *out << leak.file << " includes " << leak.header;
}

class Leaks : public ::testing::TestWithParam<Leak> {};

TEST_P(Leaks, AreFound) {
  const auto& [file, header] = GetParam();
  EXPECT_THAT(Faults(file, "  #  include \"" + std::string(header) + "\""), ElementsAre(HasSubstr(", ")));
  EXPECT_THAT(Faults(file, "#include <" + std::string(header) + ">"), ElementsAre(HasSubstr(", ")));
}

INSTANTIATE_TEST_SUITE_P(
    OfOurs, Leaks,
    ::testing::Values(
        Leak{"OvkLib/src/ovk_text.cpp", "common/log.h"}, Leak{"program/step.cpp", "devices/worker.h"},
        Leak{"localisation/translation_store.cpp", "program/program.h"},
        Leak{"chart/bumper.cpp", "devices/worker.h"}, Leak{"dialogs/dialog.cpp", "chart/canvas.h"},
        Leak{"app/commands.cpp", "platform/win32/menu.h"}, Leak{"cli/main.cpp", "platform/win32/menu.h"},
        Leak{"cli/edit.cpp", "app/commands.h"}, Leak{"cli/edit.cpp", "chart/canvas.h"},
        Leak{"simulator/tc421sim.cpp", "app/commands.h"}, Leak{"simulator/tc421.cpp", "devices/tc421.h"},
        Leak{"app/app_state.cpp", "app/commands.h"},
        Leak{"app/app_state.h", "app/handlers/language_commands.h"},
        Leak{"app/commands.cpp", "app/main_window.h"}, Leak{"app/chart/chart_hit.cpp", "app/app_state.h"},
        Leak{"common/log.cpp", "tests/support/virtual_clock.h"}, Leak{"a_new_folder/x.cpp", "common/log.h"}));

INSTANTIATE_TEST_SUITE_P(OfLibraries, Leaks,
                         ::testing::Values(Leak{"program/step.cpp", "hidapi/hidapi.h"},
                                           Leak{"app/commands.cpp", "nlohmann/json.hpp"},
                                           Leak{"common/log.cpp", "gtest/gtest.h"},
                                           Leak{"app/commands.cpp", "emmintrin.h"}));

TEST(IncludeRule, TestsMayIncludeEveryFolder) {
  EXPECT_THAT(Faults("bench/x.cpp", "#include \"tests/support/virtual_clock.h\""), IsEmpty());
  EXPECT_THAT(Faults("tests/program/x.cpp", "#include \"app/commands.h\""), IsEmpty());
}

TEST(IncludeRule, IncludesAreWrittenFromTheRoot) {
  EXPECT_THAT(Faults("common/log.cpp", "#include \"log.h\""), ElementsAre(HasSubstr("not a path")));
  EXPECT_THAT(Faults("tests/common/log_test.cpp", "#include \"log.h\""),
              ElementsAre(HasSubstr("not a path")));
}

TEST(IncludeRule, EachLibraryOfAFolderHasARuleOfItsOwn) {
  std::istringstream lines(
      "app/state.cpp app/state.h : app/state.h app/chart/hit.h common/log.h\n"
      "app/commands.cpp app/commands.h : app/commands.h app/state.h app/chart/hit.h common/log.h\n"
      "app/chart/hit.cpp app/chart/hit.h : app/chart/hit.h common/log.h\n"
      "app/main.cpp : app/commands.h\n"
      "common/log.h : common/log.h\n");
  const IncludeRule rule(lines);
  struct Row {
    const char* file;
    std::vector<std::string> headers;  // that it may include
  };
  const Row rows[] = {
      {"app/state.cpp", {"app/state.h", "app/chart/hit.h", "common/log.h"}},
      {"app/state.h", {"app/state.h", "app/chart/hit.h", "common/log.h"}},
      {"app/commands.cpp", {"app/state.h", "app/commands.h", "app/chart/hit.h", "common/log.h"}},
      {"app/chart/hit.cpp", {"app/chart/hit.h", "common/log.h"}},
      {"app/main.cpp", {"app/commands.h"}},
      {"common/log.h", {"common/log.h"}},
  };
  for (const auto& [file, headers] : rows) {
    std::vector<std::string> allowed;
    for (const char* const header :
         {"app/state.h", "app/commands.h", "app/chart/hit.h", "app/chart/unlisted.h", "common/log.h"}) {
      if (rule.Faults(file, "#include \"" + std::string(header) + "\"").empty()) allowed.emplace_back(header);
    }
    EXPECT_EQ(allowed, headers) << file;
  }
}

TEST(IncludeRule, AFileOfNoLibraryMayIncludeNothingOfOurs) {
  EXPECT_THAT(Faults("app/new.cpp", "#include \"common/log.h\""), ElementsAre(HasSubstr("in no library")));
  EXPECT_THAT(Faults("a_new_folder/x.cpp", "#include \"common/log.h\""),
              ElementsAre(HasSubstr("in no library")));
}

TEST(IncludeRule, WhatHasNoNameIsNobodys) {
  for (const char* const file : {"common/log.cpp", "tests/common/log_test.cpp"})
    EXPECT_THAT(Faults(file, "#include <>"), ElementsAre(HasSubstr("outside the rooms"))) << file;
}

class PlatformHeaders : public ::testing::TestWithParam<const char*> {};

TEST_P(PlatformHeaders, StayInTheirRooms) {
  const std::string line = std::string("  #  include <") + GetParam() + ">";
  for (const char* const file : {"app/main_loop.cpp", "program/step.cpp", "tests/devices/worker_test.cpp"})
    EXPECT_THAT(Faults(file, line), ElementsAre(HasSubstr("outside the rooms")));
  for (const char* const file :
       {"platform/win32/clock.cpp", "platform/posix/clock.cpp", "OvkLib/src/UWP/ovk_win_error.cpp",
        "tests/desktop/input.cpp", "tests/common/files_posix_test.cpp", "tests/common/files_win32_test.cpp"})
    EXPECT_THAT(Faults(file, line), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Every, PlatformHeaders,
                         ::testing::Values("windows.h", "Windows.h", "winsock2.h", "ws2tcpip.h", "d2d1.h",
                                           "d2d1_1.h", "dwrite.h", "commctrl.h", "wlanapi.h", "shellapi.h",
                                           "richedit.h", "sys/socket.h", "netinet/in.h", "arpa/inet.h",
                                           "unistd.h", "termios.h", "QWidget", "QtGui/QPainter"));

TEST(IncludeRule, StandardHeadersAreNotThePlatforms) {
  EXPECT_THAT(Faults("common/log.cpp", "#include <queue>\n#include <cstdint>\n"), IsEmpty());
  EXPECT_THAT(Faults("common/log.cpp", "#include <stdint.h>"), ElementsAre(HasSubstr("outside the rooms")));
}

}  // namespace
