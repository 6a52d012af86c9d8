// Names and passwords, struck out of texts.

#include "doctor/secrets.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using doctor::Secrets;

Secrets OfAnna() {
  return Secrets({{"/home/anna"}, {"anna", "Anna M\xC3\xBCller"}, {"reef-pc.lan"}});
}

TEST(Secrets, AreReplacedByWords) {
  const std::pair<const char*, const char*> rows[] = {
      {"/home/anna/Documents/tank.xml", "~/Documents/tank.xml"},
      {"/home/anna", "~"},
      {"of anna at reef-pc.lan, reef-pc", "of (user) at (computer), (computer)"},
      {"ANNA at REEF-PC", "(user) at (computer)"},
      {"by Anna M\xC3\xBCller", "by (user)"},
      {"/home/annabel/x", "/home/(user)/x"},
      {"/srv/anna_2/joanna", "/srv/(user)_2/jo(user)"},
      {"nothing of it", "nothing of it"},
      {"", ""},
  };
  for (const auto& [text, clean] : rows) EXPECT_EQ(OfAnna().Strike(text), clean) << text;
}

TEST(Secrets, AreNamesInAnyonesPaths) {
  const Secrets secrets{{}};
  const std::pair<const char*, const char*> rows[] = {
      {"/home/bob/x and /home/carol", "/home/(user)/x and /home/(user)"},
      {"/media/bob/STICK/a.xml", "/media/(user)/STICK/a.xml"},
      {R"(C:\Users\Bob Smith\Documents\a.xml)", R"(C:\Users\(user)\Documents\a.xml)"},
      {R"(c:\users\bob)", R"(c:\users\(user))"},
      {R"(<last_open_file>D:\Users\Bob Smith</last_open_file>)",
       R"(<last_open_file>D:\Users\(user)</last_open_file>)"},
      {"/home/", "/home/"},
      {"/home//x", "/home//x"},
  };
  for (const auto& [text, clean] : rows) EXPECT_EQ(secrets.Strike(text), clean) << text;
}

TEST(Secrets, AreHomesOfWindowsWithEitherSlash) {
  const Secrets secrets({{R"(C:\Users\Anna)", R"(C:\Users\ANNAMU~1)"}, {}, {}});
  EXPECT_EQ(secrets.Strike(R"(c:\users\anna\Documents, C:/Users/Anna/x, C:\Users\ANNAMU~1\Temp)"),
            R"(~\Documents, ~/x, ~\Temp)");
}

TEST(Secrets, OfAFewLettersAreWholeWords) {
  const Secrets secrets({{}, {"pi"}, {"x"}});
  EXPECT_EQ(secrets.Strike("pi pick api pi, x box x_1"),
            "(user) pick api (user), (computer) box (computer)_1");
}

TEST(Secrets, AreNoNamesThatEverybodyHas) {
  const Secrets secrets({{"/", ""}, {"root", ""}, {"localhost", ""}});
  EXPECT_EQ(secrets.Strike("root may write / on localhost"), "root may write / on localhost");
}

TEST(Secrets, AreFoundInXml) {
  const Secrets secrets({{}, {"O'Neil & Co"}, {}});
  EXPECT_EQ(secrets.Strike("O'Neil & Co, O&apos;Neil &amp; Co"), "(user), (user)");
}

TEST(Secrets, AreLongestFirst) {
  Secrets secrets({{}, {"reef"}, {}});
  secrets.Add("reef tank");
  EXPECT_EQ(secrets.Strike("reef tank reef"), "(struck out) (user)");
}

TEST(Secrets, ThatMayBePartOfAnyWordAreNotLookedFor) {
  Secrets secrets{{}};
  secrets.Add("a");
  secrets.Add("");
  EXPECT_EQ(secrets.Strike("a banana"), "a banana");
}

TEST(Secrets, AreMarkedInBytes) {
  Secrets secrets{{}};
  secrets.Add("coral");
  std::vector<bool> struck(9, false);
  secrets.Mark(std::string_view("x\0coral\0y", 9), struck);
  EXPECT_THAT(struck, testing::ElementsAre(false, false, true, true, true, true, true, false, false));
}

}  // namespace
