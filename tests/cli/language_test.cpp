// The language of the messages.

#include <string>

#include "cli/language.h"
#include "common/xml_file.h"
#include "localisation/translation_store.h"
#include "tests/cli/command_fixture.h"

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

struct Row {
  const char* locale;
  const char* id;
};

TEST(LanguageOfLocale, NamesTheTranslation) {
  const Row rows[] = {
      {"de_DE.UTF-8", "de"},
      {"de", "de"},
      {"de_AT@euro", "de"},
      {"sk_SK", "sk"},
      {"it_CH.utf8", "it"},
      {"cs_CZ.UTF-8", "cz"},
      {"cs", "cz"},
      {"fr_FR", "fr"},
      {"fr_CA.UTF-8", "fr"},
      {"pl_PL", "pl"},
      {"es_MX.UTF-8", "es"},
      {"es.utf8", "es"},
      // All else is English.
      {"en_GB.UTF-8", "en"},
      {"C", "en"},
      {"POSIX", "en"},
      {"C.UTF-8", "en"},
      {"", "en"},
      {"hu_HU.UTF-8", "en"},
      {"cz", "en"},
      {"fr01", "en"},
      {"deu_DE", "en"},
      {"DE", "en"},
      {"d", "en"},
      {"_DE", "en"},
      {"german", "en"},
      {"\xFF\xFE", "en"},
  };
  for (const Row& row : rows) EXPECT_EQ(cli::LanguageOfLocale({row.locale}), row.id) << row.locale;
}

TEST(LanguageOfLocale, TheFirstThatIsSetDecides) {
  EXPECT_EQ(cli::LanguageOfLocale({"", "", "de_DE"}), "de");
  EXPECT_EQ(cli::LanguageOfLocale({"", "pl_PL", "de_DE"}), "pl");
  EXPECT_EQ(cli::LanguageOfLocale({"C", "pl_PL", "de_DE"}), "en");
  EXPECT_EQ(cli::LanguageOfLocale({"", "", ""}), "en");
  EXPECT_EQ(cli::LanguageOfLocale({}), "en");
}

constexpr char kDocument[] = R"(<localisation>
  <languages><language id='de' name='Deutsch'/><language id='cz' name='Czech'/></languages>
  <strings>
    <string id='Error loading program {1}'><de>{1} kann nicht geladen werden</de></string>
    <string id='Modes that {1} did not confirm: {2}'><de>Von {1} nicht bestätigt: {2}</de></string>
    <string id='No controller found. &quot;--device emulator&quot; works without one.'><de>Keines da.</de></string>
    <string id='Normal'><de>Alltag</de></string>
    <string id='Password:'><de>Kennwort:</de></string>
    <string id='Saved program {1}'><de>{1} ist gespeichert</de><cz>{1} je uložen</cz></string>
    <string id='Steps for mode: {1}'><de>Schritte von {1}</de></string>
    <string id='Uploading finished'><de>Fertig</de></string>
    <string id='{1} cannot be read, or is no light program'><de>{1} ist kein Lichtprogramm</de></string>
  </strings>
</localisation>)";

class LanguageTest : public CommandTest {
 protected:
  void TearDown() override {
    EXPECT_EQ(translations.GetLanguageId(), "en") << "behind a command";
    CommandTest::TearDown();
  }

  const TranslationStore& translations = GivenTranslations(kDocument);
};

TEST_F(LanguageTest, WithoutAWordItIsEnglish) {
  EXPECT_EQ(Run({"new", "@tank.xml"}).err, "Saved program tank.xml\n");
}

TEST_F(LanguageTest, TheEnvironmentSaysWhichItIs) {
  language = "cz";
  EXPECT_EQ(Run({"new", "@tank.xml"}).err, "tank.xml je uložen\n");
  language = "de";
  EXPECT_EQ(Run({"new", "@tank.xml"}).err, "tank.xml ist gespeichert\n");
  EXPECT_EQ(Load("tank.xml").modes.front().name, "Alltag") << "as the desktop program names it";
}

TEST_F(LanguageTest, AnOptionOverridesTheEnvironment) {
  language = "de";
  EXPECT_EQ(Run({"--language", "cz", "new", "@tank.xml"}).err, "tank.xml je uložen\n");
  EXPECT_EQ(Run({"--language", "en", "new", "@tank.xml"}).err, "Saved program tank.xml\n");
  EXPECT_EQ(Run({"--language=cz", "new", "@tank.xml"}).err, "tank.xml je uložen\n");
  EXPECT_EQ(Run({"new", "@tank.xml", "--language", "cz"}).err, "tank.xml je uložen\n") << "also behind";
  EXPECT_EQ(Run({"new", "--language", "cz", "@tank.xml"}).err, "tank.xml je uložen\n") << "and between";
}

TEST_F(LanguageTest, TheEnvironmentMayAskForOneThatIsNotThere) {
  language = "pl";
  const Outcome outcome = Run({"new", "@tank.xml"});
  EXPECT_EQ(outcome.status, kSuccess);
  EXPECT_EQ(outcome.err, "Saved program tank.xml\n");
}

TEST_F(LanguageTest, AnUnknownOneIsWrongUsageAndTheKnownOnesAreListed) {
  for (const char* const id : {"xx", "", "DE", "de_DE", "d e", "-", "language"}) {
    const Outcome outcome = Run({"--language", id, "new", "@tank.xml"});
    EXPECT_EQ(outcome.status, kWrongUsage) << id;
    EXPECT_THAT(outcome.err,
                AllOf(StartsWith("lumarinectl: --language: "),
                      HasSubstr(std::string("there is no language ") + id + ", there are en, de, cz")));
    EXPECT_THAT(outcome.out, IsEmpty());
  }
  EXPECT_EQ(Run({"--language"}).status, kWrongUsage);
  EXPECT_EQ(Run({"--language", "de", "--language", "cz", "new", "@tank.xml"}).status, kWrongUsage);
  EXPECT_EQ(Run({"--language", "de"}).status, kWrongUsage) << "which is no command";
  EXPECT_FALSE(Exists("tank.xml"));
}

TEST_F(LanguageTest, TheWorkerSpeaksItToo) {
  GivenBuiltIn("tank.xml");
  language = "de";
  EXPECT_THAT(Run({"upload", "@tank.xml", "--device", "emulator"}).err, HasSubstr("\nFertig\n"));
}

TEST_F(LanguageTest, WhatTheCommandLineAddsIsTranslated) {
  language = "de";
  GivenFile("bad.xml", "not a program");
  EXPECT_THAT(Run({"info", "@bad.xml"}).err, HasSubstr("\nlumarinectl: bad.xml ist kein Lichtprogramm\n"));
  EXPECT_EQ(Run({"devices"}).err, "Keines da.\n");
  GivenProgram("tank.xml", GivenRamps({""}));
  EXPECT_THAT(Run({"upload", "@tank.xml", "--device", "emulator"}).err,
              HasSubstr("\nVon emulator nicht bestätigt: \"\"\n"));
  console.terminal = true;
  Run({"wifi-setup", "--device", "udp:A@192.168.4.1", "--ssid", "Home", "--security", "wpa2"});
  EXPECT_EQ(console.prompts, "Kennwort: ");
}

TEST_F(LanguageTest, TablesForPeopleAreTranslated) {
  GivenBuiltIn("tank.xml");
  language = "de";
  EXPECT_THAT(Run({"info", "@tank.xml"}).out, HasSubstr("Schritte von Normal\n"));
}

TEST_F(LanguageTest, WhatOtherProgramsReadIsTheSameInEveryLanguage) {
  GivenBuiltIn("tank.xml");
  const Words commands[] = {{"info", "@tank.xml", "--json"},
                            {"curve", "@tank.xml", "--mode", "1"},
                            {"curve", "@tank.xml", "--mode", "1", "--json"},
                            {"frames", "@tank.xml"},
                            {"frames", "@tank.xml", "--json"},
                            {"devices", "--json"},
                            {"figures", "@tank.xml", "--json"},
                            {"templates", "--json"},
                            {"scan", "--json"}};
  for (const Words& command : commands) {
    language = "en";
    const Outcome english = Run(command);
    language = "de";
    EXPECT_EQ(Run(command).out, english.out) << command.front();
  }
}

TEST_F(LanguageTest, HelpAndFaultsOfTheCommandLineStayEnglish) {
  const Words commands[] = {{"--help"}, {"edit", "--help"}, {"polish"}, {}, {"info"}};
  for (const Words& command : commands) {
    language = "en";
    const Outcome english = Run(command);
    language = "de";
    const Outcome german = Run(command);
    EXPECT_EQ(german.out, english.out);
    EXPECT_EQ(german.err, english.err);
    EXPECT_EQ(german.status, english.status);
  }
}

TEST_F(LanguageTest, TheHelpListsTheLanguagesOfTheProgram) {
  ovk::xml::element document;
  ASSERT_TRUE(ovk::xml::load(LUMARINE_SOURCE_DIR "/resources/translations.xml", document));
  std::string ids = "en";
  const auto& languages = document.child("languages").children;
  for (std::int32_t i = 0; i < languages.count(); ++i) {
    ids += i + 1 == languages.count() ? " or " : ", ";
    ids += languages[i]->attribute_or_empty("id").view();
  }
  EXPECT_THAT(Run({"--help"}).out, HasSubstr("The language of messages: " + ids + "; "));
}

}  // namespace
