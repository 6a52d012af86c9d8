// The bundle: what is in it, and what is not.

#include "doctor/bundle.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "common/files.h"
#include "common/log.h"
#include "tests/support/files.h"
#include "tests/support/scripted_computer.h"
#include "tests/support/temporary_folder.h"

namespace {

namespace fs = std::filesystem;

using doctor::BundleFile;
using doctor::Finding;
using doctor::Sentence;
using doctor::Sign;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

class Bundle : public testing::Test {
 protected:
  void SetUp() override {
    subject_.settingsFile = folder_ / "LumarineConfig.xml";
    subject_.deviceLogFile = folder_ / "LumarineLog.txt";
    scripted_computer::Facts facts;
    facts.identity = {{"/home/anna"}, {"anna"}, {"reef-pc"}};
    facts.versions = {{"System", "Linux of reef-pc"}};
    scripted_computer::Set(facts);
  }
  void TearDown() override { scripted_computer::Set({}); }

  std::vector<BundleFile> Make() {
    const Finding finding{Sign::Look, "settings", Sentence(TextKey("Settings")),
                          Sentence(TextKey("{1} is installed."), {"/home/anna/x"}),
                          Sentence(TextKey("{1} is written."), {"anna"})};
    return MakeBundle(subject_, {finding}, {{"Lumarine", "1.0"}, {"Program", "test"}});
  }
  static std::string ContentOf(const std::vector<BundleFile>& bundle, const std::string& name) {
    const auto file = std::ranges::find(bundle, name, &BundleFile::name);
    EXPECT_NE(file, bundle.end()) << name;
    return file != bundle.end() ? file->content : "";
  }

  TemporaryFolder folder_;
  doctor::Subject subject_;
};

TEST_F(Bundle, HoldsReportAndVersionsWithoutNames) {
  const auto bundle = Make();
  ASSERT_EQ(bundle.size(), 3U);
  EXPECT_EQ(ContentOf(bundle, "report.txt"),
            "[look]   Settings: ~/x is installed.\n           (user) is written.\n\nNothing is broken. To "
            "look at: 1\n");
  EXPECT_EQ(ContentOf(bundle, "report.json"),
            R"({"version":"1.0","worst":"look","findings":[{"id":"settings","sign":"look","what":"Settings",)"
            R"("found":"~/x is installed.","advice":"(user) is written."}]})"
            "\n");
  EXPECT_THAT(
      ContentOf(bundle, "versions.txt"),
      testing::StartsWith("Lumarine: 1.0\nProgram: test\nSystem: Linux of (computer)\nhidapi: simulated\n"
                          "zlib: 1."));
}

TEST_F(Bundle, HoldsSettingsAndLogWithoutNames) {
  FileWith(subject_.settingsFile,
           "<config><last_open_file>/home/anna/secret coral.xml</last_open_file></config>");
  FileWith(subject_.deviceLogFile, "9:05:03:007 Packet_SetWiFi_Password(Password=secret coral)\r\n");
  const auto bundle = Make();
  ASSERT_EQ(bundle.size(), 5U);
  EXPECT_EQ(ContentOf(bundle, "LumarineConfig.xml"),
            "<config><last_open_file>~/(struck out).xml</last_open_file></config>")
      << "a password is struck out wherever it stands";
  EXPECT_EQ(ContentOf(bundle, "LumarineLog.txt"),
            "9:05:03:007 Packet_SetWiFi_Password(Password=(struck out)\r\n");
}

TEST_F(Bundle, HoldsTheEndOfALongLog) {
  std::string log;
  while (log.size() < 1'000'000) log += "9:05:03:007 hid_read: " + std::to_string(log.size()) + "\r\n";
  FileWith(subject_.deviceLogFile, log);
  const std::string content = ContentOf(Make(), "LumarineLog.txt");
  EXPECT_LE(content.size(), 256U << 10);
  EXPECT_GT(content.size(), (256U << 10) - 100);
  EXPECT_TRUE(log.ends_with(content));
  EXPECT_TRUE(content.starts_with("9:05:03:007 "));
}

TEST_F(Bundle, IsWrittenAllOrNothing) {
  const auto bundle = Make();
  const fs::path file = folder_ / "question.zip";
  ASSERT_TRUE(WriteBundle(file, bundle));
  const std::string first = BytesOf(file);
  EXPECT_TRUE(first.starts_with("PK\x03\x04"));
  ASSERT_TRUE(WriteBundle(file, bundle));
  EXPECT_EQ(BytesOf(file), first);
  std::string reason;
  EXPECT_FALSE(WriteBundle(folder_ / "none" / "question.zip", bundle, &reason));
  EXPECT_NE(reason, "");
  statusLog.Drain();
}

}  // namespace
