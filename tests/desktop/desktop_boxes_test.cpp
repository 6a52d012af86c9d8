// The system's message boxes over the real window, in three languages: what they say is there to the last
// line, with its buttons, and Enter presses the first of them.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "app/window/numbers.h"
#include "program/builtin_modes.h"
#include "program/program_file.h"
#include "program/settings.h"
#include "tests/desktop/desktop_driver.h"
#include "tests/desktop/dialogs.h"
#include "tests/desktop/first_day.h"
#include "tests/desktop/window_text.h"
#include "tests/support/patience.h"
#include "tests/support/temporary_folder.h"

namespace {

using app::Answer;
using app::Buttons;
using testing::HasSubstr;
using testing::Not;
namespace command = app::command;

constexpr int kMessageText = 0xFFFF;

HWND MainWindow() {
  return FindWindowW(L"LUMARINE", nullptr);
}

// The message box over the main window; null if there is none.
HWND FindBox() {
  HWND box = nullptr;
  while ((box = FindWindowExW(nullptr, box, L"#32770", nullptr)) != nullptr) {
    if (GetWindow(box, GW_OWNER) == MainWindow() && IsWindowVisible(box) &&
        desktop::dialogs::IsMessageBox(box))
      return box;
  }
  return nullptr;
}

RECT PlaceOf(HWND window) {
  RECT place{};
  GetWindowRect(window, &place);
  return place;
}

bool LiesWithin(const RECT& outer, const RECT& inner) {
  RECT both{};
  UnionRect(&both, &outer, &inner);
  return EqualRect(&both, &outer);
}

// The room that a text takes, written as boxes write it.
SIZE SizeOf(const std::u16string& text, LONG width) {
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
  const HFONT font = CreateFontIndirectW(&metrics.lfMessageFont);
  const HDC context = CreateCompatibleDC(nullptr);
  const HGDIOBJ before = SelectObject(context, font);
  RECT place{0, 0, width, 0};
  DrawTextW(context, std::wstring(text.begin(), text.end()).c_str(), -1, &place,
            DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX | DT_EXPANDTABS);
  SelectObject(context, before);
  DeleteDC(context);
  DeleteObject(font);
  return {place.right, place.bottom};
}

class DesktopBoxes : public testing::TestWithParam<const char*> {
 protected:
  void SetUp() override {
    Settings settings(firstDay.documents() / Settings::fileName);
    settings.SetValue("locale", GetParam());
    settings.Save();
    user.Start();
  }
  void TearDown() override {
    if (user.IsRunning()) user.Close();
    EXPECT_FALSE(user.IsRunning());
  }

  // Has a box come up by a command, looks at it and answers it.
  void ExpectBox(const std::string& name, int number, Buttons buttons, Answer answer) {
    SCOPED_TRACE(name);
    PostMessageW(MainWindow(), WM_COMMAND, static_cast<WPARAM>(number), 0);
    HWND box = nullptr;
    ASSERT_TRUE(WaitUntil([&] {
      box = FindBox();
      return box != nullptr && FocusIn(box) != 0 && IsPainted(box);
    }));
    const app::Question question = desktop::dialogs::ReadMessageBox(box);
    EXPECT_EQ(question.buttons, buttons);
    EXPECT_EQ(FocusIn(box), FirstButton(box)) << "the one that Enter presses";
    EXPECT_NE(question.title, u"");
    EXPECT_THAT(Utf8FromWide(question.text), Not(HasSubstr("{"))) << "something was not filled in";
    ExpectAllIsShown(box, question);
    LeavePicture(name);
    desktop::dialogs::Answer(box, answer);
    ASSERT_TRUE(WaitUntil([box] { return !IsWindow(box); }));
    user.Wait(0.0);
  }

  const desktop::FirstDay firstDay;
  const TemporaryFolder work;
  desktop::DesktopUser user;

 private:
  static bool IsPainted(HWND box) {
    for (HWND child = GetWindow(box, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
      if (GetUpdateRect(child, nullptr, FALSE)) return false;
    }
    return !GetUpdateRect(box, nullptr, FALSE);
  }
  // The button that has the focus; 0 if none has.
  static int FocusIn(HWND box) {
    GUITHREADINFO thread{};
    thread.cbSize = sizeof thread;
    GetGUIThreadInfo(GetWindowThreadProcessId(box, nullptr), &thread);
    return IsChild(box, thread.hwndFocus) ? GetDlgCtrlID(thread.hwndFocus) : 0;
  }
  static int FirstButton(HWND box) {
    for (const int button : {IDYES, IDOK}) {
      if (GetDlgItem(box, button) != nullptr) return button;
    }
    return IDCANCEL;  // that of a lone OK, in some systems
  }
  static void ExpectAllIsShown(HWND box, const app::Question& question) {
    const RECT screen{0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
    EXPECT_TRUE(LiesWithin(screen, PlaceOf(box)));
    for (HWND child = GetWindow(box, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
      if (IsWindowVisible(child)) {
        EXPECT_TRUE(LiesWithin(PlaceOf(box), PlaceOf(child)));
      }
    }
    const RECT text = PlaceOf(GetDlgItem(box, kMessageText));
    const SIZE needed = SizeOf(question.text, text.right - text.left);
    EXPECT_LE(needed.cx, text.right - text.left);
    EXPECT_LE(needed.cy, text.bottom - text.top);
  }
  void LeavePicture(const std::string& name) {
    const std::filesystem::path pictures = std::filesystem::absolute(LUMARINE_PICTURE_DIR);
    std::filesystem::create_directories(pictures);
    EXPECT_TRUE(user.TakePicture(pictures / ("box-" + name + "-" + GetParam() + ".png")));
  }
};

// A mode with more steps than some controllers take.
TCBase::Program::ModeListView LongProgram() {
  TCBase::Program::ModeListView document = TCBase::Program::NewProgram();
  for (int minute = 0; minute < 30; ++minute) {
    document.modes[1].channels[0].push_back({10, minute, static_cast<float>(minute % 2 * 50)});
  }
  TCBase::Program::SortSteps(document.modes[1].channels[0]);
  return document;
}

TEST_P(DesktopBoxes, ShowAllThatTheySay) {
  ASSERT_TRUE(SaveProgram(LongProgram(), work / "long.xml"));
  ASSERT_TRUE(user.Choose(command::kAddEmulator));
  user.WillPick({work / "long.xml"});
  ASSERT_TRUE(user.Choose(command::kLoadProgram));

  ExpectBox("known-issues", command::kKnownIssues, Buttons::Ok, Answer::Ok);
  ExpectBox("many-steps", command::kUploadProgram, Buttons::YesNo, Answer::No);
  ASSERT_TRUE(user.Choose(command::kEndpointStart));
  ExpectBox("modified", command::kExit, Buttons::YesNoCancel, Answer::Cancel);
  ASSERT_TRUE(user.Choose(command::kUndo));
}

INSTANTIATE_TEST_SUITE_P(Languages, DesktopBoxes, testing::Values("en", "de", "cz"),
                         [](const auto& tested) { return std::string(tested.param); });

}  // namespace
