#include "program/settings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "common/files.h"
#include "common/platform.h"
#include "tests/program/program_fixture.h"
#include "tests/support/files.h"
#include "tests/support/temporary_folder.h"

namespace {

namespace fs = std::filesystem;
using program_test::StatusLines;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class SettingsFile : public testing::Test {
 protected:
  void Write(std::string_view text) { FileWith(file_, text); }
  std::string Text() const { return BytesOf(file_); }

  void ExpectDefaults() {
    StatusLines lines;
    Settings settings(file_);
    EXPECT_EQ(settings.DemoSpeed(), 60);
    EXPECT_FALSE(settings.LoggingEnabled());
    EXPECT_EQ(settings.GetValue("locale"), "");
    EXPECT_EQ(settings.GetValue("last_open_file"), "");
    EXPECT_EQ(settings.GetDeviceValue("device", "TC421-1", "TC421-1"), "TC421-1");
    EXPECT_THAT(lines.Take(), IsEmpty());
  }

  const TemporaryFolder folder_;
  const fs::path file_ = folder_ / "LumarineConfig.xml";
};

// What stands in for settings.

TEST_F(SettingsFile, WithoutAFileTheDefaultsHold) {
  ExpectDefaults();
}

TEST_F(SettingsFile, OfAFolderGivesTheDefaults) {
  fs::create_directory(file_);
  ExpectDefaults();
}

TEST_F(SettingsFile, OfAHundredMegabytesGivesTheDefaults) {
  std::ofstream(file_).put('<');
  fs::resize_file(file_, 100'000'000);
  ExpectDefaults();
}

TEST_F(SettingsFile, ThatIsNoXmlGivesTheDefaults) {
  for (const std::string_view text :
       {std::string_view(""), std::string_view("no xml"), std::string_view("<config>"),
        std::string_view("<config><locale>de</config>"), std::string_view("\0\xFF\xFE", 3)}) {
    SCOPED_TRACE(text);
    Write(text);
    ExpectDefaults();
  }
}

TEST_F(SettingsFile, OfAnyDepthIsReadAndWrittenBackInItsOwnSize) {
  constexpr int kDepth = 200'000;
  std::string text = "<config><locale>de";
  for (int i = 0; i < kDepth; ++i) text += "<a>";
  for (int i = 0; i < kDepth; ++i) text += "</a>";
  Write(text + "</locale></config>");
  Settings settings(file_);
  EXPECT_EQ(settings.GetValue("locale"), "de");
  EXPECT_TRUE(settings.Save());
  EXPECT_THAT(Text(), testing::SizeIs(testing::Lt(100U)));
}

TEST_F(SettingsFile, MayHaveARootOfAnyName) {
  Write("<other><locale>de</locale></other>");
  Settings settings(file_);
  EXPECT_EQ(settings.GetValue("locale"), "de");
}

TEST_F(SettingsFile, IsWrittenInTheFormThatIsRead) {
  Settings settings(file_);
  settings.SetValue("locale", "de");
  settings.SetDeviceValue("device", "TC421-1", "Riff");
  ASSERT_TRUE(settings.Save());
  EXPECT_EQ(Text(),
            "<config>\r\n"
            "  <locale>de</locale>\r\n"
            "  <device id='TC421-1'>Riff</device>\r\n"
            "</config>\r\n");
}

TEST_F(SettingsFile, HoldsAnEmptyElementForEachKeyThatWasRead) {
  Settings settings(file_);
  settings.GetValue("locale");
  settings.DemoSpeed();
  ASSERT_TRUE(settings.Save());
  EXPECT_THAT(Text(), testing::AllOf(HasSubstr("<locale/>"), HasSubstr("<demo_speed/>")));
  Settings again(file_);
  EXPECT_EQ(again.GetValue("locale"), "");
  EXPECT_EQ(again.DemoSpeed(), 60);
}

TEST_F(SettingsFile, HoldsNoElementForAKeyThatWasOnlyLookedFor) {
  Settings settings(file_);
  EXPECT_EQ(settings.FindValue("light_strip"), "");
  EXPECT_FALSE(settings.IsOn("light_strip"));
  settings.SetValue("locale", "de");
  EXPECT_EQ(settings.FindValue("locale"), "de");
  ASSERT_TRUE(settings.Save());
  EXPECT_THAT(Text(),
              testing::AllOf(HasSubstr("<locale>de</locale>"), testing::Not(HasSubstr("light_strip"))));
}

TEST_F(SettingsFile, AChoiceIsOnForExactlyThatWordAndComesBack) {
  Settings settings(file_);
  for (const char* off : {"", "ON", "on ", "1", "off"}) {
    settings.SetValue("choice", off);
    EXPECT_FALSE(settings.IsOn("choice")) << off;
  }
  settings.SetOn("choice", true);
  settings.SetOn("other", true);
  settings.SetOn("other", false);
  ASSERT_TRUE(settings.Save());
  Settings again(file_);
  EXPECT_TRUE(again.IsOn("choice"));
  EXPECT_FALSE(again.IsOn("other"));
}

TEST_F(SettingsFile, KeepsWhatItDoesNotKnow) {
  Write("<config><from_a_later_version kind='x'>y</from_a_later_version></config>");
  Settings settings(file_);
  ASSERT_TRUE(settings.Save());
  EXPECT_THAT(Text(), HasSubstr("<from_a_later_version kind='x'>y</from_a_later_version>"));
}

TEST_F(SettingsFile, OfAChangedLanguageIsTheOldOneWhereTheProcessWasKilled) {
  Write("<config><locale>de</locale></config>");
  {
    Settings killed(file_);
    killed.SetValue("locale", "zh");
  }
  Settings next(file_);
  EXPECT_EQ(next.GetValue("locale"), "de");
}

TEST_F(SettingsFile, ThatCannotBeWrittenIsTold) {
  fs::create_directory(file_);
  StatusLines lines;
  Settings settings(file_);
  EXPECT_FALSE(settings.Save());
  EXPECT_THAT(lines.Take(), ElementsAre(HasSubstr("Error creating file " + Utf8FromPath(file_))));
}

// As on a drive that fails for a moment: the settings of all the time before would be gone.
TEST_F(SettingsFile, ThatIsThereAndCannotBeReadIsNotReplaced) {
  std::ofstream(file_) << "<config/>";
  fs::resize_file(file_, 2 * kMostFileBytes);
  StatusLines lines;
  Settings settings(file_);
  settings.SetValue("locale", "de");
  EXPECT_FALSE(settings.Save());
  EXPECT_THAT(lines.Take(), ElementsAre(HasSubstr("Error creating file " + Utf8FromPath(file_))));
  EXPECT_EQ(fs::file_size(file_), 2 * kMostFileBytes);
}

// Two running copies of the program.

TEST_F(SettingsFile, OfTwoRunningCopiesHasWhatEachOfThemSetInWhateverOrderTheyEnd) {
  for (const std::string_view before :
       {std::string_view(), std::string_view("<config><locale>en</locale><logging>off</logging></config>")}) {
    for (const bool firstEndsFirst : {true, false}) {
      SCOPED_TRACE(testing::Message() << before << (firstEndsFirst ? " first" : " second"));
      fs::remove(file_);
      if (!before.empty()) Write(before);
      Settings first(file_);
      Settings second(file_);
      first.SetValue("locale", "de");
      first.SetDeviceValue("device", "TC421-1", "Riff");
      second.SetValue("logging", "on");
      second.SetDeviceValue("device", "TC421-2", "Moos");
      second.SetDeviceValue("device_description", "TC421-1", "");
      EXPECT_TRUE((firstEndsFirst ? first : second).Save());
      EXPECT_TRUE((firstEndsFirst ? second : first).Save());
      Settings next(file_);
      EXPECT_EQ(next.GetValue("locale"), "de");
      EXPECT_TRUE(next.LoggingEnabled());
      EXPECT_EQ(next.GetDeviceValue("device", "TC421-1", "lost"), "Riff");
      EXPECT_EQ(next.GetDeviceValue("device", "TC421-2", "lost"), "Moos");
      EXPECT_EQ(next.GetDeviceValue("device_description", "TC421-1", "lost"), "");
    }
  }
}

TEST_F(SettingsFile, OfTwoRunningCopiesHasWhereBothSetAValueThatOfTheLastToEnd) {
  Write("<config><locale>en</locale><device id='TC421-1'>Riff</device></config>");
  Settings first(file_);
  Settings second(file_);
  first.SetValue("locale", "de");
  second.SetValue("locale", "zh");
  first.SetDeviceValue("device", "TC421-1", "Moos");
  second.SetDeviceValue("device", "TC421-1", "Sand");
  EXPECT_TRUE(second.Save());
  EXPECT_TRUE(first.Save());
  Settings next(file_);
  EXPECT_EQ(next.GetValue("locale"), "de");
  EXPECT_EQ(next.GetDeviceValue("device", "TC421-1", "lost"), "Moos");
}

TEST_F(SettingsFile, IsNotChangedByACopyThatOnlyReadOrSetWhatWasThere) {
  Write("<config><demo_speed>90</demo_speed><device id='TC421-1'>Riff</device></config>");
  Settings reader(file_);
  EXPECT_EQ(reader.GetValue("locale"), "");
  reader.SetValue("demo_speed", "90");
  reader.SetValue("last_open_file", "");
  reader.SetDeviceValue("device", "TC421-1", "Riff");
  Settings writer(file_);
  writer.SetValue("locale", "de");
  writer.SetValue("demo_speed", "180");
  writer.SetValue("last_open_file", "tank.lum");
  writer.SetDeviceValue("device", "TC421-1", "Moos");
  ASSERT_TRUE(writer.Save());
  const std::string written = Text();
  EXPECT_TRUE(reader.Save());
  EXPECT_EQ(Text(), written);
}

TEST_F(SettingsFile, LosesAValueThatOneCopyEmptied) {
  Write("<config><last_open_file>tank.lum</last_open_file></config>");
  Settings first(file_);
  Settings second(file_);
  first.SetValue("last_open_file", "");
  EXPECT_TRUE(first.Save());
  EXPECT_TRUE(second.Save());
  EXPECT_EQ(Settings(file_).GetValue("last_open_file"), "");
}

TEST_F(SettingsFile, IsWhatTheCopyHoldsWhereItIsGoneOrBrokenByNow) {
  constexpr std::string_view kOnlyText =
      "<config>\r\n"
      "  <locale>de</locale>\r\n"
      "  <logging>on</logging>\r\n"
      "</config>\r\n";
  for (const std::string_view meanwhile : {"", "<config><locale>en</loc", "no xml"}) {
    SCOPED_TRACE(meanwhile);
    Write("<config><locale>de</locale></config>");
    Settings settings(file_);
    settings.SetValue("logging", "on");
    meanwhile.empty() ? static_cast<void>(fs::remove(file_)) : Write(meanwhile);
    EXPECT_TRUE(settings.Save());
    EXPECT_EQ(Text(), kOnlyText);
  }
}

TEST_F(SettingsFile, OfACopyThatFoundItBrokenKeepsWhatAnotherMadeOfIt) {
  Write("no xml");
  Settings first(file_);
  Settings second(file_);
  first.SetValue("locale", "de");
  EXPECT_EQ(second.GetValue("locale"), "");
  second.SetValue("logging", "on");
  EXPECT_TRUE(first.Save());
  EXPECT_TRUE(second.Save());
  EXPECT_EQ(Text(),
            "<config>\r\n"
            "  <locale>de</locale>\r\n"
            "  <logging>on</logging>\r\n"
            "</config>\r\n");
}

TEST_F(SettingsFile, SavedAgainTakesBackNothingOfWhatAnotherCopySetMeanwhile) {
  Settings first(file_);
  first.SetValue("locale", "de");
  EXPECT_TRUE(first.Save());
  Settings second(file_);
  second.SetValue("locale", "zh");
  EXPECT_TRUE(second.Save());
  first.SetValue("logging", "on");
  EXPECT_TRUE(first.Save());
  EXPECT_EQ(first.GetValue("locale"), "zh");
  EXPECT_EQ(Settings(file_).GetValue("locale"), "zh");
}

TEST_F(SettingsFile, OfCopiesThatEndAtOnceHasWhatEachOfThemSet) {
  constexpr int kCopies = 3;
  for (int round = 0; round < 10; ++round) {
    fs::remove(file_);
    std::vector<std::thread> copies;
    copies.reserve(kCopies);
    for (int copy = 0; copy < kCopies; ++copy) {
      copies.emplace_back([this, copy] {
        Settings settings(file_);
        settings.SetDeviceValue("device", std::to_string(copy), "Riff");
        EXPECT_TRUE(settings.Save());
      });
    }
    for (std::thread& copy : copies) copy.join();
    Settings next(file_);
    for (int copy = 0; copy < kCopies; ++copy)
      EXPECT_EQ(next.GetDeviceValue("device", std::to_string(copy), "lost"), "Riff") << copy;
  }
}

// Two elements of one key, which only a foreign file has: the first is the setting.
TEST_F(SettingsFile, OfOneCopyKeepsItsElementsInTheirOrder) {
  Write(
      "<other kind='x'><b>1</b><device id='A'>1</device><b>2</b><device id='A'>2</device>"
      "<device>none</device><a/></other>");
  Settings settings(file_);
  EXPECT_EQ(settings.GetValue("locale"), "");
  settings.SetDeviceValue("device", "B", "3");
  settings.SetValue("a", "5");
  settings.SetValue("b", "4");
  settings.SetDeviceValue("device", "A", "6");
  settings.GetValue("z");
  EXPECT_TRUE(settings.Save());
  EXPECT_EQ(Text(),
            "<other kind='x'>\r\n"
            "  <b>4</b>\r\n"
            "  <device id='A'>6</device>\r\n"
            "  <b>2</b>\r\n"
            "  <device id='A'>2</device>\r\n"
            "  <device>none</device>\r\n"
            "  <a>5</a>\r\n"
            "  <locale/>\r\n"
            "  <device id='B'>3</device>\r\n"
            "  <z/>\r\n"
            "</other>\r\n");
}

// The values.

struct DemoSpeedCase {
  const char* text;
  std::int32_t seconds;
};

class DemoSpeedSetting : public testing::TestWithParam<DemoSpeedCase> {};

TEST_P(DemoSpeedSetting, IsReadAs) {
  Settings settings("");
  settings.SetValue("demo_speed", GetParam().text);
  EXPECT_EQ(settings.DemoSpeed(), GetParam().seconds);
}

INSTANTIATE_TEST_SUITE_P(Texts, DemoSpeedSetting,
                         testing::Values(DemoSpeedCase{"", 60}, DemoSpeedCase{"180", 180},
                                         DemoSpeedCase{"5", 10}, DemoSpeedCase{"10", 10},
                                         DemoSpeedCase{"86400", 86400}, DemoSpeedCase{"100000", 86400},
                                         DemoSpeedCase{"12x", 12}, DemoSpeedCase{" 30", 30},
                                         DemoSpeedCase{"+30", 30}, DemoSpeedCase{"-30", 10},
                                         DemoSpeedCase{"fast", 10},
                                         DemoSpeedCase{"99999999999999999999", 86400},
                                         DemoSpeedCase{"-99999999999999999999", 10}));

TEST_F(SettingsFile, DemoSpeedIsSetAndTold) {
  StatusLines lines;
  Settings settings(file_);
  settings.SetDemoSpeed(300);
  EXPECT_EQ(settings.DemoSpeed(), 300);
  EXPECT_EQ(settings.GetValue("demo_speed"), "300");
  EXPECT_THAT(lines.Take(), ElementsAre("Demo playback speed set to 300 seconds"));
}

TEST_F(SettingsFile, LoggingIsOnForExactlyThatWord) {
  Settings settings(file_);
  for (const char* off : {"", "ON", "On", "on ", "1", "true", "off"}) {
    settings.SetValue("logging", off);
    EXPECT_FALSE(settings.LoggingEnabled()) << off;
  }
  settings.SetValue("logging", "on");
  EXPECT_TRUE(settings.LoggingEnabled());
}

TEST_F(SettingsFile, ShowsADevicesOwnNameUntilItIsRenamed) {
  Settings settings(file_);
  EXPECT_EQ(settings.GetDeviceValue("device", "TC421-1", "its own"), "its own");
  settings.SetDeviceValue("device", "TC421-1", "Riff");
  settings.SetDeviceValue("device", "TC421-2", "Moos");
  settings.SetDeviceValue("device", "TC421-1", "Riff links");
  settings.SetDeviceValue("device_description", "TC421-1", "im Keller");
  EXPECT_EQ(settings.GetDeviceValue("device", "TC421-1", "its own"), "Riff links");
  EXPECT_EQ(settings.GetDeviceValue("device", "TC421-2", "its own"), "Moos");
  EXPECT_EQ(settings.GetDeviceValue("device_description", "TC421-2", ""), "");
  ASSERT_TRUE(settings.Save());
  EXPECT_THAT(Text(), HasSubstr("<device id='TC421-1'>Riff links</device>"));
}

TEST_F(SettingsFile, AnEmptyValueOfADeviceIsAValueAndNotTheFallback) {
  Settings settings(file_);
  settings.SetDeviceValue("device", "TC421-1", "Riff");
  settings.SetDeviceValue("device", "TC421-1", "");
  EXPECT_EQ(settings.GetDeviceValue("device", "TC421-1", "its own"), "");
  ASSERT_TRUE(settings.Save());
  Settings next(file_);
  EXPECT_EQ(next.GetDeviceValue("device", "TC421-1", "its own"), "");
}

TEST_F(SettingsFile, ANameWithAnAmpersandComesBackThroughItsEntity) {
  Settings settings(file_);
  settings.SetDeviceValue("device", "A & B", "Sonne & Mond <'\">");
  ASSERT_TRUE(settings.Save());
  EXPECT_THAT(Text(), HasSubstr("Sonne &amp; Mond"));
  Settings next(file_);
  EXPECT_EQ(next.GetDeviceValue("device", "A & B", ""), "Sonne & Mond <'\">");
}

// Anybody on the network can send a name of any bytes; to rename such a controller must not cost the rest.
TEST_F(SettingsFile, ADeviceThatReportsANameOfAnyBytesHarmsNoOtherSetting) {
  std::vector<std::string> names = {"]]>", "<!--", "'\"></config>", "&#0;", "\xEF\xBB\xBF", "\xE2\x80\xAE"};
  for (int byte = 1; byte <= 0xFF; ++byte) names.push_back("Tank" + std::string(1, static_cast<char>(byte)));
  for (const std::string& name : names) {
    Settings settings(file_);
    settings.SetValue("locale", "de");
    settings.SetDeviceValue("device", name, "Riff");
    settings.SetDeviceValue("device", "TC421-1", "Moos");
    ASSERT_TRUE(settings.Save());
    Settings next(file_);
    EXPECT_EQ(next.GetValue("locale"), "de") << name;
    EXPECT_EQ(next.GetDeviceValue("device", "TC421-1", ""), "Moos") << name;
    EXPECT_EQ(next.GetDeviceValue("device", name, "lost"), "Riff") << name;
  }
}

TEST_F(SettingsFile, MayBeUsedByTheWindowAndTheWorkerAtOnce) {
  Settings settings(file_);
  settings.SetValue("demo_speed", "10");
  std::vector<std::thread> threads;
  constexpr int kThreads = 4;
  threads.reserve(kThreads);
  for (int thread = 0; thread < kThreads; ++thread) {
    threads.emplace_back([&settings, thread] {
      const std::string id = std::to_string(thread);
      for (int i = 0; i < 300; ++i) {
        settings.SetValue("demo_speed", i % 2 == 0 ? "100" : "1000");
        const std::int32_t speed = settings.DemoSpeed();
        EXPECT_TRUE(speed == 100 || speed == 1000) << speed;
        settings.SetDeviceValue("device", id, std::to_string(i));
        EXPECT_EQ(settings.GetDeviceValue("device", id, ""), std::to_string(i));
        settings.GetValue("key " + id);
      }
    });
  }
  EXPECT_TRUE(settings.Save());
  for (std::thread& thread : threads) thread.join();
}

// The Documents folder.

TEST(DocumentPath, IsTheNameInTheDocumentsFolder) {
  EXPECT_EQ(DocumentPath(u"Licht \u706F.txt"),
            *platform::DocumentsFolder() / PathFromUtf8("Licht \xE7\x81\xAF.txt"));
}

}  // namespace
