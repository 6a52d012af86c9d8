#include "tests/support/language_scripts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "app/window/numbers.h"
#include "common/files.h"
#include "common/xml_file.h"

namespace scripts {

namespace {

using app::Control;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;
namespace command = app::command;

// The first of the menu, and the one that a test adds behind the eight.
constexpr int kGerman = command::kFirstLanguage;
constexpr int kTest = command::kFirstLanguage + 8;

// The German of the program's own documents.
class German {
 public:
  explicit German(const Folders& folders) {
    EXPECT_TRUE(ovk::xml::load(folders.resources / "translations.xml", document_));
    EXPECT_TRUE(ovk::xml::load(folders.resources / "translations-more.xml", more_));
  }

  // For a key, with {1} replaced. Not the key itself: all that is asked for here is translated.
  std::string operator()(std::string_view key, std::string_view argument = {}) {
    ovk::xml::element* entry = document_.child("strings").find_child_by_id("string", key);
    if (entry == nullptr) entry = more_.child("strings").find_child_by_id("string", key);
    if (entry == nullptr) {
      ADD_FAILURE() << "no translation of " << key;
      return std::string(key);
    }
    std::string text(entry->child("de").text.view());
    EXPECT_NE(text, "") << key;
    const std::size_t place = text.find("{1}");
    if (place != std::string::npos) text.replace(place, 3, argument);
    return text;
  }

 private:
  ovk::xml::element document_;
  ovk::xml::element more_;
};

}  // namespace

void SpeakGerman(User& user, const Folders& folders) {
  German german(folders);
  user.Start();
  EXPECT_TRUE(user.MenuItem(command::kEnglish).checked);
  EXPECT_EQ(user.MenuItem(kGerman).text, "Deutsch");
  ASSERT_TRUE(user.Choose(kGerman));
  EXPECT_TRUE(user.MenuItem(kGerman).checked);
  EXPECT_FALSE(user.MenuItem(command::kEnglish).checked);
  EXPECT_EQ(user.MenuItem(command::kUndo).text, german("Undo"));
  EXPECT_EQ(user.MenuItem(command::kAlign60).text, german("1 hour intervals"));
  EXPECT_EQ(user.Text(Control::DevicesLabel), german("Devices"));
  EXPECT_EQ(user.Text(Control::PowerTitleLabel), german("Channel power"));
  EXPECT_EQ(user.Text(Control::DemoStatusLabel), german("Ready ({1}s)", "60"));
  EXPECT_EQ(user.Text(Control::ZoomLabel), "Zoom");
  EXPECT_THAT(user.Log(), HasSubstr(german("Language set to {1}", "Deutsch") + "\r\n"));
  EXPECT_THAT(user.List(Control::ModeList), ElementsAre("Normal", "AlwaysOn"));
  user.Close();
  ASSERT_FALSE(user.IsRunning());

  user.Start();
  EXPECT_THAT(user.Log(), StartsWith(german("Language set to {1}", "Deutsch") + "\r\n"));
  EXPECT_EQ(user.Title(), "Lumarine - " + german("New program"));
  EXPECT_THAT(user.List(Control::ModeList), ElementsAre(german("Normal"), german("AlwaysOn")));
  EXPECT_EQ(user.Text(Control::ZoomLabel), german("Zoom"));
  EXPECT_EQ(user.MenuItem(command::kUndo).text, german("Undo"));
  ASSERT_TRUE(user.Choose(command::kEnglish));
  EXPECT_EQ(user.MenuItem(command::kUndo).text, "Undo");
  EXPECT_EQ(user.Text(Control::DevicesLabel), "Devices");
  EXPECT_EQ(user.Text(Control::DemoStatusLabel), "Ready (60s)");
  EXPECT_THAT(user.Log(), HasSubstr("Language set to English\r\n"));
  user.Close();
  EXPECT_FALSE(user.IsRunning()) << "nothing was changed, so nothing was asked";
}

void TryATranslation(User& user, const Folders& folders) {
  German german(folders);
  const std::filesystem::path file = folders.work / PathFromUtf8("Übersetzung.xml");
  user.Start();
  ASSERT_TRUE(user.Choose(kGerman));
  user.WillPick({file});
  ASSERT_TRUE(user.Choose(command::kExportTranslation));
  EXPECT_THAT(user.Log(),
              HasSubstr("Localization file " + Utf8FromPath(file) + " exported successfully!\r\n"));

  ovk::xml::element texts;
  ASSERT_TRUE(ovk::xml::load(file, texts));
  ovk::xml::element* const devices = texts.find_child_by_id("string", "Devices");
  ASSERT_NE(devices, nullptr);
  EXPECT_EQ(devices->child("translate").text.view(), german("Devices"));
  ovk::xml::element* const resumed = texts.find_child_by_id("string", "Demo playback resumed");
  ASSERT_NE(resumed, nullptr) << "of the second document";
  EXPECT_EQ(resumed->child("translate").text.view(), german("Demo playback resumed"));
  devices->child("translate").text = ovk::string("Apparate 🐠");
  ASSERT_TRUE(ovk::xml::save(file, texts));
  user.WillPick({file});
  ASSERT_TRUE(user.Choose(command::kTestTranslation));
  EXPECT_EQ(user.Text(Control::DevicesLabel), "Apparate 🐠");
  EXPECT_EQ(user.Text(Control::PowerTitleLabel), german("Channel power"));
  EXPECT_THAT(user.Log(),
              HasSubstr(german("Translation file {1} loaded successfully!", Utf8FromPath(file)) + "\r\n"));
  EXPECT_EQ(user.MenuItem(kTest).text, "Test Translation");
  EXPECT_TRUE(user.MenuItem(kTest).checked);
  EXPECT_FALSE(user.MenuItem(kGerman).checked);

  const std::filesystem::path slip = folders.work / "slip.xml";
  ASSERT_TRUE(WriteFileBytes(slip, "<strings><string"));
  user.WillPick({slip});
  user.WillAnswer(app::Answer::Ok);
  ASSERT_TRUE(user.Choose(command::kTestTranslation));
  const std::vector<app::Question> asked = user.Questions();
  ASSERT_THAT(asked, SizeIs(1));
  EXPECT_EQ(asked[0].title, u"Invalid Translation File");
  EXPECT_THAT(Utf8FromWide(asked[0].text), HasSubstr(Utf8FromPath(slip)));
  EXPECT_EQ(user.Text(Control::DevicesLabel), "Apparate 🐠") << "the test before is still on";
  user.WillPick({});
  ASSERT_TRUE(user.Choose(command::kTestTranslation));
  user.Close();
  ASSERT_FALSE(user.IsRunning());

  user.Start();
  EXPECT_TRUE(user.MenuItem(kGerman).checked) << "the one that was chosen from the menu";
  EXPECT_FALSE(user.MenuItem(kTest).exists);
  EXPECT_THAT(user.Log(), Not(HasSubstr("Test Translation")));
  user.Close();
}

}  // namespace scripts
