// Makes the pictures of docs/languages.md: the window in each language, with an example loaded and a menu
// open. What the user of this machine has in the Documents folder stays as it is.
//   desktop_languages EXAMPLE FOLDER        writes FOLDER/language-de.png and so on

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "OvkLib/src/ovk_xml.h"
#include "app/commands.h"
#include "app/window/numbers.h"
#include "common/files.h"
#include "common/xml_file.h"
#include "program/settings.h"
#include "tests/desktop/desktop_driver.h"
#include "tests/desktop/first_day.h"

namespace {

// Opens the Mode menu with the keyboard and goes to the last submenu, which opens too.
void OpenMenu(User& user) {
  user.PressKey(VK_F10);
  for (int i = 0; i < app::menu::kMode; ++i) user.PressKey(VK_RIGHT);
  for (int i = 0; i < 3; ++i) user.PressKey(VK_DOWN);
  user.PressKey(VK_RIGHT);
}

bool TakePicture(const std::string& language, const std::filesystem::path& example,
                 const std::filesystem::path& file) {
  const desktop::FirstDay firstDay;
  Settings settings(DocumentPath(Settings::fileName));
  settings.SetValue("last_open_file", Utf8FromPath(example));
  settings.SetValue("locale", language);
  settings.Save();
  desktop::DesktopUser user;
  user.Start();
  if (!user.Choose(app::command::kAddEmulator)) return false;
  OpenMenu(user);
  return user.TakePicture(file);  // the program is ended with its menu open
}

}  // namespace

int main(int count, char** arguments) {
  testing::InitGoogleTest(&count, arguments);
  if (count < 3) return 2;
  const std::filesystem::path example = std::filesystem::absolute(PathFromUtf8(arguments[1]));
  const std::filesystem::path folder = PathFromUtf8(arguments[2]);
  ovk::xml::element document;
  if (!ovk::xml::load(std::filesystem::path(LUMARINE_SOURCE_DIR) / "resources" / "translations.xml",
                      document))
    return 1;
  for (const auto& language : document.child("languages").children) {
    const std::string id(language->attribute_or_empty("id").view());
    if (!TakePicture(id, example, folder / ("language-" + id + ".png"))) return 1;
  }
  return 0;
}
