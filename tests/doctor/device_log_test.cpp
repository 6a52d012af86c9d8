// What is read out of a device log.

#include "doctor/device_log.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "common/files.h"
#include "tests/support/files.h"
#include "tests/support/temporary_folder.h"

namespace {

TEST(DeviceLogLines, BeginWithAStamp) {
  for (const char* const line : {"9:05:03:007 a", "23:59:59:999 ", "0:00:00:000 Packet_Find()"})
    EXPECT_TRUE(doctor::HasStamp(line)) << line;
  for (const char* const line : {"", "9", "9:", "9:05", "9:05:03:07 a", "9:05:03:007", "a:05:03:007 a",
                                 "123:05:03:007 a", "0000  55 AA 18 00 ", " 9:05:03:007 a"})
    EXPECT_FALSE(doctor::HasStamp(line)) << line;
}

TEST(DeviceLogEnd, HasTheLastErrorOfTheLast200Lines) {
  const std::string error = "9:05:03:007 bind error: Address already in use\r\n";
  std::string log = error;
  for (int i = 0; i < 199; ++i) log += "9:05:04:000 hid_read:\r\n";
  EXPECT_EQ(doctor::ReadLogEnd(log).error, "9:05:03:007 bind error: Address already in use");
  log += "9:05:04:000 hid_read:\r\n";
  EXPECT_EQ(doctor::ReadLogEnd(log).error, "");
  EXPECT_EQ(doctor::ReadLogEnd("9:05:04:000 Received invalid packet size").error,
            "9:05:04:000 Received invalid packet size");
  EXPECT_EQ(doctor::ReadLogEnd("an error: without a stamp").error, "");
}

TEST(DeviceLogEnd, HasTheLastTimeThatWasSet) {
  const auto time =
      doctor::ReadLogEnd(
          "1:00:00:000 Packet_TimeSync(Year=2025, Month=01, Day=02, Hour=03, Minute=04, Second=05)\r\n"
          "1:00:00:000 Packet_TimeSync(Year=2026, Month=03, Day=14, Hour=09, Minute=26, Second=53)\r\n"
          "1:00:00:000 Packet_TimeSync(Year=2027, Month=, Day=14)\r\n")
          .timeSync;
  ASSERT_TRUE(time.has_value());
  EXPECT_EQ(time->year, 2026);
  EXPECT_EQ(time->month, 3);
  EXPECT_EQ(time->day, 14);
  EXPECT_EQ(time->hour, 9);
  EXPECT_EQ(time->minute, 26);
  EXPECT_EQ(time->second, 53);
  EXPECT_FALSE(doctor::ReadLogEnd("").timeSync.has_value());
}

TEST(EndsOfFiles, BeginWithALine) {
  const TemporaryFolder folder;
  std::string end;
  EXPECT_FALSE(doctor::ReadEnd(folder / "none", 100, end));
  EXPECT_FALSE(doctor::ReadEnd(folder.path(), 100, end));
  const auto file = FileWith(folder / "log", "one\ntwo\nthree\n");
  ASSERT_TRUE(doctor::ReadEnd(file, 100, end));
  EXPECT_EQ(end, "one\ntwo\nthree\n");
  ASSERT_TRUE(doctor::ReadEnd(file, 9, end));
  EXPECT_EQ(end, "three\n") << "of \"wo\" nobody knows how it began";
  ASSERT_TRUE(doctor::ReadEnd(file, 2, end));
  EXPECT_EQ(end, "");
  ASSERT_TRUE(doctor::ReadEnd(FileWith(folder / "long", "without an end"), 5, end));
  EXPECT_EQ(end, "");
  ASSERT_TRUE(doctor::ReadEnd(FileWith(folder / "empty", ""), 5, end));
  EXPECT_EQ(end, "");
}

}  // namespace
