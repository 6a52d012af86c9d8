// What happens to a random user's files without him.

#include <array>
#include <string>
#include <system_error>

#include "common/files.h"
#include "tests/support/random_user.h"

namespace {

namespace fs = std::filesystem;

void Write(const fs::path& file, std::string_view bytes) {
  std::error_code ignored;
  if (is_directory(file, ignored)) remove_all(file, ignored);
  WriteFileBytes(file, bytes);
}

std::string Attribute(std::string_view name, std::string_view value) {
  return ' ' + std::string(name) + "='" + std::string(value) + '\'';
}

// A program that is well-formed, and that no editor would have written.
std::string OddProgram(Dice& dice) {
  constexpr const char* kNumbers[] = {
      "0",  "7",   "12",  "23", "24",         "59",          "60", "-1",
      "50", "100", "101", "-5", "2147483647", "-2147483648", "x",  "99999999999999"};
  std::string text = "<modelist>";
  for (int modes = dice.Between(1, 5); modes > 0; --modes) {
    text += "<mode" + Attribute("name", "odd &#x20;&lt;&#233; " + std::to_string(modes)) + '>';
    for (int channels = dice.OneIn(10) ? dice.Below(8) : 5; channels > 0; --channels) {
      text += "<channel>";
      for (int steps = dice.OneIn(5) ? dice.Below(60) : dice.Below(6); steps > 0; --steps) {
        text += "<step" + Attribute("hour", dice.AnyOf(kNumbers)) +
                Attribute("minute", dice.AnyOf(kNumbers)) + Attribute("value", dice.AnyOf(kNumbers)) +
                (dice.OneIn(3) ? " jump='1'/>" : "/>");
      }
      text += "</channel>";
    }
    text += "</mode>";
  }
  return text + "<channel_info><channel_info name='A' r='300' g='-1' b='7'/></channel_info></modelist>";
}

std::string Damage(RandomUser& monkey, const fs::path& file) {
  Dice& dice = monkey.dice();
  std::string bytes;
  ReadFileBytes(file, bytes);
  if (bytes.empty()) bytes = "<modelist>";
  const int size = static_cast<int>(bytes.size());
  if (dice.OneIn(2)) {
    bytes.resize(static_cast<std::size_t>(dice.Below(size)));
  } else {
    for (int i = dice.Between(1, 9); i > 0; --i)
      bytes[static_cast<std::size_t>(dice.Below(size))] = static_cast<char>(dice.Below(256));
  }
  Write(file, bytes);
  return "damaged";
}

std::string Befall(RandomUser& monkey, const fs::path& file) {
  std::error_code ignored;
  switch (monkey.dice().Below(7)) {
    case 0:
      remove_all(file, ignored);
      return "deleted";
    case 1:
    case 2:
      return Damage(monkey, file);
    case 3:
      // Nothing can be put in its place.
      remove_all(file, ignored);
      create_directories(file / "in the way", ignored);
      return "a folder";
    case 4:
      Write(file, OddProgram(monkey.dice()));
      return "an odd program";
    case 5:
      permissions(file, monkey.dice().OneIn(2) ? fs::perms::none : fs::perms::owner_all, ignored);
      return "other rights";
    default: {
      std::string bytes;
      ReadFileBytes(monkey.place().samples, bytes);
      Write(file, bytes);
      return "a good program";
    }
  }
}

}  // namespace

std::vector<DeedRow> FileDeeds() {
  return {{{"file", 8}, [](RandomUser& monkey) {
             const fs::path file = monkey.AnyFile();
             return Utf8FromPath(file.filename()) + ": " + Befall(monkey, file);
           }}};
}
