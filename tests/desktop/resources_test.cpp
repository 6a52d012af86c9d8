// What is built into Lumarine.exe, held against the application's tables.

#include "platform/win32/resource_ids.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <set>
#include <span>
#include <string>
#include <vector>

#include "app/commands.h"
#include "localisation/translation_store.h"
#include "tests/desktop/program_resources.h"
#include "tests/support/files.h"

namespace {

using desktop::Ascii;
namespace resource = win32::resource;

class Resources : public desktop::ProgramResources {
 protected:
  std::string String(int id) const {
    std::array<wchar_t, 200> text{};
    LoadStringW(program_, static_cast<UINT>(id), text.data(), static_cast<int>(text.size()));
    return Ascii(text.data());
  }

  // Side lengths of the pictures of an icon.
  std::multiset<int> IconSizes(int id) const;
};

std::multiset<int> Resources::IconSizes(int id) const {
  // A group begins with two zero-or-kind words and a count; its entries of 14 bytes begin with the width,
  // where 0 stands for 256.
  const std::string_view group = Bytes(id, MAKEINTRESOURCEW(14));
  std::multiset<int> sizes;
  for (std::size_t at = 6; at + 14 <= group.size(); at += 14) {
    const int width = static_cast<unsigned char>(group[at]);
    sizes.insert(width == 0 ? 256 : width);
  }
  return sizes;
}

std::string TextOf(HMENU menu, int position) {
  std::array<wchar_t, 200> text{};
  GetMenuStringW(menu, static_cast<UINT>(position), text.data(), static_cast<int>(text.size()),
                 MF_BYPOSITION);
  return Ascii(text.data());
}

UINT TypeOf(HMENU menu, int position) {
  MENUITEMINFOW info{};
  info.cbSize = sizeof info;
  info.fMask = MIIM_FTYPE;
  GetMenuItemInfoW(menu, static_cast<UINT>(position), TRUE, &info);
  return info.fType;
}

void ExpectEntries(HMENU menu, std::span<const app::MenuEntry> entries, const std::string& name) {
  SCOPED_TRACE(name);
  ASSERT_NE(menu, nullptr);
  const int count = GetMenuItemCount(menu);
  ASSERT_LE(count, static_cast<int>(entries.size()));
  int position = 0;
  // What stands behind them in the table is appended when the program starts.
  for (const app::MenuEntry& entry : entries.first(static_cast<std::size_t>(count))) {
    SCOPED_TRACE(position);
    using Kind = app::MenuEntry::Kind;
    EXPECT_EQ(TypeOf(menu, position) == MFT_SEPARATOR, entry.kind == Kind::Separator);
    EXPECT_EQ(TextOf(menu, position), std::string(entry.text) + std::string(entry.suffix));
    if (entry.kind == Kind::Command) {
      EXPECT_EQ(static_cast<int>(GetMenuItemID(menu, position)), entry.command);
    }
    if (entry.kind == Kind::Submenu) {
      ExpectEntries(GetSubMenu(menu, position), entry.entries, std::string(entry.text));
    }
    ++position;
  }
}

TEST_F(Resources, MenusAreWhatThoseOfTheCommandsBeginWith) {
  const HMENU bar = LoadMenuW(program_, MAKEINTRESOURCEW(resource::kMenu));
  ASSERT_NE(bar, nullptr);
  ASSERT_EQ(GetMenuItemCount(bar), static_cast<int>(app::MenuTable().size()));
  int position = 0;
  for (const app::MenuPopup& popup : app::MenuTable()) {
    EXPECT_EQ(TextOf(bar, position), std::string(popup.text));
    // MF_HELP in the resource, which is the same bit as this.
    EXPECT_EQ((TypeOf(bar, position) & MFT_RIGHTJUSTIFY) != 0, popup.rightJustified)
        << std::string(popup.text);
    ExpectEntries(GetSubMenu(bar, position), popup.entries, std::string(popup.text));
    ++position;
  }
  DestroyMenu(bar);
}

// "alt 47 104" and so on, as the program has it.
std::string Told(const ACCEL& row) {
  EXPECT_EQ(row.fVirt & (FCONTROL | FSHIFT), 0);
  const char* const kind = (row.fVirt & FVIRTKEY) != 0 ? "key " : (row.fVirt & FALT) != 0 ? "alt " : "char ";
  return kind + std::to_string(row.key) + " " + std::to_string(row.cmd);
}

// The same of a command's key.
std::string Told(const app::Accelerator& row) {
  using Kind = app::KeyStroke::Kind;
  const auto& [stroke, command] = row;
  // Ctrl makes the first control character of A.
  const int key = stroke.kind == Kind::CtrlLetter ? stroke.key - 'A' + 1 : stroke.key;
  const char* const kind = stroke.kind == Kind::Key            ? "key "
                           : stroke.kind == Kind::AltCharacter ? "alt "
                                                               : "char ";
  return kind + std::to_string(key) + " " + std::to_string(command);
}

TEST_F(Resources, AcceleratorsAreTheKeysOfTheCommandsInTheirOwnOrder) {
  const HACCEL table = LoadAcceleratorsW(program_, MAKEINTRESOURCEW(resource::kAccelerators));
  ASSERT_NE(table, nullptr);
  std::array<ACCEL, 100> rows{};
  const int count = CopyAcceleratorTableW(table, rows.data(), static_cast<int>(rows.size()));
  std::vector<std::string> keys;
  for (int i = 0; i < count; ++i) keys.push_back(Told(rows[static_cast<std::size_t>(i)]));
  EXPECT_THAT(keys, testing::ElementsAre("alt 47 104", "alt 63 104", "char 25 32786", "char 26 32785",
                                         "key 107 32921", "key 109 32922", "key 106 32923", "key 33 32924",
                                         "key 34 32925", "key 36 32926", "key 35 32927", "key 46 32930",
                                         "key 8 32930"));
  std::vector<std::string> expected;
  for (const app::Accelerator& row : app::AcceleratorTable()) expected.push_back(Told(row));
  EXPECT_THAT(expected, testing::IsSupersetOf(keys));
}

TEST_F(Resources, NamesOfTheWindowAndItsClass) {
  EXPECT_EQ(String(resource::kTitle), "Lumarine");
  EXPECT_EQ(String(resource::kWindowClass), "LUMARINE");
}

TEST_F(Resources, IconsComeInTheSizesThatWindowsShows) {
  EXPECT_EQ(IconSizes(resource::kLargeIcon), (std::multiset<int>{16, 20, 24, 32, 40, 48, 64, 128, 256}));
  EXPECT_EQ(IconSizes(resource::kSmallIcon), (std::multiset<int>{16, 20, 24, 32}));
}

TEST_F(Resources, BothDocumentsOfTextsAreBuiltIn) {
  const std::filesystem::path source = std::filesystem::path(LUMARINE_SOURCE_DIR) / "resources";
  EXPECT_EQ(Bytes(TranslationStore::kDocumentResource, L"XML"), BytesOf(source / "translations.xml"));
  EXPECT_EQ(Bytes(TranslationStore::kMoreResource, L"XML"), BytesOf(source / "translations-more.xml"));
}

TEST_F(Resources, LogoIsAPictureOfTwiceTheSizeItIsShownIn) {
  const std::string_view png = Bytes(resource::kLogo, L"PNG");
  ASSERT_GT(png.size(), 24U);
  EXPECT_EQ(png.substr(1, 3), "PNG");
  const auto number = [&](std::size_t at) {
    return static_cast<unsigned char>(png[at + 2]) * 256 + static_cast<unsigned char>(png[at + 3]);
  };
  EXPECT_EQ(number(16), 512);
  EXPECT_EQ(number(20), 200);
}

}  // namespace
