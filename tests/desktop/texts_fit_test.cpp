// What the program says in each language, measured in the controls that say it, at 96 dots to the inch. The
// texts come from the program itself: it runs headless, with long names in it, and the templates are those of
// Lumarine.exe. Fonts differ a little from one Windows to the next, so each text must leave some room; only
// the line over the chart may fill it.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <initializer_list>
#include <map>
#include <string>
#include <vector>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "app/commands.h"
#include "app/window/control_table.h"
#include "app/window/numbers.h"
#include "common/files.h"
#include "common/message.h"
#include "dialogs/dialog.h"
#include "dialogs/dialog_template.h"
#include "program/settings.h"
#include "tests/app/app_test.h"
#include "tests/desktop/program_resources.h"
#include "tests/support/sim_network.h"

// after windows.h
#include <commctrl.h>

namespace {

using namespace in_dialog;
using app::Control;
using dialogs::ControlKind;
using dialogs::ControlTemplate;
using dialogs::kOk;
namespace command = app::command;
namespace template_id = dialogs::template_id;
namespace search_id = dialogs::tc421_search_control;
namespace config_id = dialogs::tc421_config_control;

// What a text leaves of its room.
constexpr int kSparePercent = 5;
// Of a button, on each side: its edge and the rectangle of the focus.
constexpr int kButtonEdge = 4;
// Where the heading of a group begins and must end.
constexpr int kGroupEdge = 9;
constexpr int kSunkenEdge = 1;
// Of a title in the menu bar, on each side.
constexpr int kMenuEdge = 8;
// Of a dialog's title, on each side.
constexpr int kCaptionEdge = 4;

// As long as they may be.
constexpr char kSsid[] = "The aquarium in the living-room!";
constexpr char kSmart[] = "Smart-######";
constexpr sim_network::Address kTank{192, 168, 4, 7};

int WithSpare(int pixels) {
  return pixels + pixels * kSparePercent / 100;
}

int WithoutSpare(int pixels) {
  return pixels * 100 / (100 + kSparePercent);
}

std::wstring Wide(const std::string& text) {
  const std::u16string wide = WideFromUtf8(text);
  return {wide.begin(), wide.end()};
}

// Lumarine.exe, not running.
class Executable {
 public:
  Executable() : module_(LoadLibraryExW(desktop::ProgramFile().c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE)) {}
  Executable(const Executable&) = delete;
  Executable& operator=(const Executable&) = delete;
  ~Executable() { FreeLibrary(module_); }

  HMODULE module() const { return module_; }

 private:
  const HMODULE module_;
};

// Writes with a font, on nothing.
class Pen {
 public:
  explicit Pen(HFONT font) : context_(CreateCompatibleDC(nullptr)), before_(SelectObject(context_, font)) {}
  Pen(const Pen&) = delete;
  Pen& operator=(const Pen&) = delete;
  ~Pen() {
    SelectObject(context_, before_);
    DeleteDC(context_);
  }

  // On one line; an "&" before a letter takes no room where `format` is 0.
  SIZE Line(const std::string& text, UINT format = 0) const {
    return Measured(text, 0, DT_SINGLELINE | format);
  }
  // With lines broken between words.
  SIZE Lines(const std::string& text, int width, UINT format) const {
    return Measured(text, width, DT_WORDBREAK | DT_EXPANDTABS | format);
  }

 private:
  SIZE Measured(const std::string& text, int width, UINT format) const {
    RECT place{0, 0, width, 0};
    DrawTextW(context_, Wide(text).c_str(), -1, &place, DT_CALCRECT | format);
    return {place.right, place.bottom};
  }

  const HDC context_;
  const HGDIOBJ before_;
};

// A dialog's window from its template, which nobody sees.
class Form {
 public:
  Form(const Executable& program, int number)
      : window_(CreateDialogParamW(program.module(), MAKEINTRESOURCEW(number), nullptr, &Procedure, 0)) {}
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;
  ~Form() { DestroyWindow(window_); }

  HFONT Font() const { return reinterpret_cast<HFONT>(SendMessageW(window_, WM_GETFONT, 0, 0)); }
  int Width() const {
    RECT place{};
    GetWindowRect(window_, &place);
    return place.right - place.left;
  }
  SIZE SizeOf(int control) const {
    RECT place{};
    GetClientRect(GetDlgItem(window_, control), &place);
    return {place.right, place.bottom};
  }
  // Where an edit field writes.
  SIZE RoomIn(int field) const {
    RECT place{};
    SendMessageW(GetDlgItem(window_, field), EM_GETRECT, 0, reinterpret_cast<LPARAM>(&place));
    return {place.right - place.left, place.bottom - place.top};
  }

 private:
  static INT_PTR CALLBACK Procedure(HWND, UINT, WPARAM, LPARAM) { return FALSE; }

  const HWND window_;
};

class TextsFit : public AppTest, public testing::WithParamInterface<const char*> {
 protected:
  void SetUp() override {
    const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_DATE_CLASSES | ICC_BAR_CLASSES};
    InitCommonControlsEx(&classes);
    ASSERT_NE(program_.module(), nullptr) << desktop::ProgramFile();
    ASSERT_EQ(GetDpiForSystem(), UINT{USER_DEFAULT_SCREEN_DPI});
    AppTest::SetUp();
    sim_network::Reset();
    ASSERT_TRUE(user.ReadTranslations(std::filesystem::path(LUMARINE_SOURCE_DIR) / "resources"));
    Settings settings(folder / Settings::fileName);
    settings.SetValue("locale", GetParam());
    settings.Save();
    user.Start();
  }

  void ExpectLinesToFit(const Pen& pen, const std::string& text, const SIZE& room, UINT format) {
    const int width = WithoutSpare(room.cx);
    const SIZE needed = pen.Lines(text, width, format);
    EXPECT_LE(needed.cx, width) << text;  // a word that is too long stays so
    EXPECT_LE(needed.cy, room.cy) << text;
  }
  void Expect(const SIZE& needed, const SIZE& room, const std::string& text) {
    EXPECT_LE(WithSpare(needed.cx), room.cx) << text;
    EXPECT_LE(needed.cy, room.cy) << text;
  }

  // Dialogs

  // Looks at the dialogs that came up, each of which is of this template.
  void ExpectDialogsToFit(int number) {
    const std::vector<SeenDialog> seen = user.Dialogs();
    EXPECT_FALSE(seen.empty()) << number;
    for (const SeenDialog& dialog : seen) ExpectToFit(dialog, number);
  }

  void ExpectToFit(const SeenDialog& dialog, int number) {
    SCOPED_TRACE("dialog " + std::to_string(number));
    const Form form(program_, number);
    ExpectTitleToFit(dialog.title, form.Width());
    for (const ControlTemplate& control : dialogs::FindTemplate(number)->controls) {
      const auto said = dialog.controls.find(control.id);
      if (said == dialog.controls.end() || !said->second.visible) continue;
      SCOPED_TRACE("control " + std::to_string(control.id));
      ExpectToFit(said->second, control, form);
    }
  }

  void ExpectTitleToFit(const std::string& title, int width) {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    const HFONT font = CreateFontIndirectW(&metrics.lfCaptionFont);
    const int frame = GetSystemMetrics(SM_CXFIXEDFRAME) + kCaptionEdge;
    const int room = width - 2 * frame - GetSystemMetrics(SM_CXSIZE);
    EXPECT_LE(WithSpare(Pen(font).Line(title, DT_NOPREFIX).cx), room) << title;
    DeleteObject(font);
  }

  void ExpectToFit(const SeenControl& said, const ControlTemplate& control, const Form& form) {
    const Pen pen(form.Font());
    const SIZE size = form.SizeOf(control.id);
    switch (control.kind) {
      case ControlKind::Label: {
        // The room is a line's, or that of many lines.
        const UINT format = (control.traits & dialogs::trait::kAmpersands) != 0 ? DT_NOPREFIX : 0U;
        ExpectLinesToFit(pen, said.text, size, format);
        break;
      }
      case ControlKind::Button:
        Expect(pen.Line(said.text), {size.cx - 2 * kButtonEdge, size.cy}, said.text);
        break;
      case ControlKind::GroupBox:
        Expect(pen.Line(said.text), {size.cx - 2 * kGroupEdge, size.cy}, said.text);
        break;
      case ControlKind::Edit:
        // What the program itself writes into a field to be read.
        if (control.id == dialogs::add_steps_control::kHelp) {
          ExpectLinesToFit(pen, said.text, form.RoomIn(control.id), DT_EDITCONTROL | DT_NOPREFIX);
        }
        break;
      default:
        for (const std::string& row : said.rows) {
          const int arrow = GetSystemMetrics(SM_CXVSCROLL) + kButtonEdge;
          EXPECT_LE(WithSpare(pen.Line(row, DT_NOPREFIX).cx), size.cx - arrow) << row;
        }
    }
  }

  // The main window

  void ExpectLabelToFit(Control label) { ExpectLabelToFit(label, user.Text(label)); }
  void ExpectLabelToFit(Control label, const std::string& text) {
    const UX::Rect place = app::RowOf(label).place.In(app::kLeastWindowWidth, app::kLeastWindowHeight);
    const Pen pen(static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT)));
    Expect(pen.Line(text, DT_NOPREFIX), {place.width - 2 * kSunkenEdge, place.height - 2 * kSunkenEdge},
           text);
  }

  // How wide the least window is inside its frame.
  static int LeastClientWidth() {
    RECT frame{};
    AdjustWindowRect(&frame, WS_OVERLAPPEDWINDOW, TRUE);
    return app::kLeastWindowWidth - (frame.right - frame.left);
  }
  // Pixels that the line over the chart has too few for what it says.
  int CutFromTheModeDescription() {
    const std::string text = user.Text(Control::ModeDescription);
    const UX::Rect place =
        app::RowOf(Control::ModeDescription).place.In(LeastClientWidth(), app::kLeastWindowHeight);
    const Pen pen(static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT)));
    return pen.Line(text, DT_NOPREFIX).cx - (place.width - 2 * kSunkenEdge);
  }

  const Executable program_;
};

TEST_P(TextsFit, LabelsOfTheMainWindow) {
  for (const Control label : {Control::PowerTitleLabel, Control::DevicesLabel, Control::ZoomLabel}) {
    ExpectLabelToFit(label);
  }
  ExpectLabelToFit(Control::DemoStatusLabel, Translate("Demo controls"));
  ExpectLabelToFit(Control::DemoStatusLabel, Message("Ready ({1}s)", Settings::kMaxDemoSpeed).utf8());
  ExpectLabelToFit(Control::DemoStatusLabel, Translate("Paused"));
  ExpectLabelToFit(Control::DemoStatusLabel, Translate("Playing"));
  ExpectLabelToFit(Control::ModeDescription, Message("Mode {1} (Steps: {2})", "WWWWWWWWWWWWWWW", 240).utf8());
}

TEST_P(TextsFit, NamesOfTheBuiltInModesInTheirList) {
  for (const std::string& name : user.List(Control::ModeList)) ExpectLabelToFit(Control::ModeList, name);
}

TEST_P(TextsFit, DescriptionsOfTheBuiltInModesBehindTheirNames) {
  const int modes = static_cast<int>(user.List(Control::ModeList).size());
  ASSERT_EQ(modes, 2);
  for (int mode = 0; mode < modes; ++mode) {
    user.ClickRow(Control::ModeList, mode);
    const std::string said = user.Text(Control::ModeDescription);
    // The English of "Normal" is a key, which stays as it is; it shows whole from a window of 840 on.
    const bool isCut = GetParam() == std::string("en") && mode == 0;
    EXPECT_EQ(CutFromTheModeDescription() > 0, isCut) << said << ": " << CutFromTheModeDescription();
  }
}

TEST_P(TextsFit, TheMenuBarOnOneLine) {
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
  const HFONT font = CreateFontIndirectW(&metrics.lfMenuFont);
  int width = 0;
  for (const app::MenuPopup& popup : app::MenuTable()) {
    width += Pen(font).Line(Translate(popup.text)).cx + 2 * kMenuEdge;
  }
  DeleteObject(font);
  EXPECT_LE(WithSpare(width), app::kLeastWindowWidth - 2 * GetSystemMetrics(SM_CXSIZEFRAME));
}

TEST_P(TextsFit, DialogsOfNames) {
  GivenSelection(0, 0);
  for (int i = 0; i < 2; ++i) user.WillFill({PressEscape()});
  user.Press(Control::AddModeButton);
  user.DoubleClickRow(Control::ModeList, 0);
  GivenSelection(0, 0);
  user.WillFill({PressEscape()});
  ASSERT_TRUE(user.Choose(command::kRenameChannel));
  GivenDevices({"TC421-1"});
  user.WillFill({PressEscape()});
  user.DoubleClickRow(Control::DeviceList, 0);
  ExpectDialogsToFit(template_id::kModeName);
}

TEST_P(TextsFit, DialogsOfValues) {
  user.WillFill({PressEscape()});
  ASSERT_TRUE(user.Choose(command::kSpeedCustom));
  ExpectDialogsToFit(template_id::kGetValue);
  user.WillFill({PressEscape()});
  ASSERT_TRUE(user.Choose(command::kSetTime));
  ExpectDialogsToFit(template_id::kGetDateTime);
}

TEST_P(TextsFit, DialogsOfSteps) {
  GivenSelection(0, 0);
  std::string manySteps;
  for (int minute = 0; minute < 99; ++minute) manySteps += "12:00 50\r\n";
  user.WillFill({Paste(dialogs::add_steps_control::kSteps, manySteps), Look(), PressEscape()});
  ASSERT_TRUE(user.Choose(command::kManualStepsAdd));
  user.WillFill({PressEscape()});
  ASSERT_TRUE(user.Choose(command::kManualStepsEdit));
  ExpectDialogsToFit(template_id::kAddSteps);
}

TEST_P(TextsFit, TheDialogThatChangesSteps) {
  namespace change = dialogs::change_steps_control;
  GivenSelection(0, 0);
  std::vector<DialogStep> script;
  const int changes = 12;
  for (int row = 0; row < changes; ++row) {
    script.push_back(Pick(change::kWhat, row));
    script.push_back(Look());
    // What is told where something is wrong.
    if (row == 6 || row == 7) continue;
    script.push_back(Paste(change::kFirst, "?"));
    script.push_back(Look());
  }
  script.insert(script.end(), {Pick(change::kWhat, 10), Type(change::kFirst, "720"), Look()});
  script.insert(script.end(), {Pick(change::kWhat, 0), Type(change::kFirst, "0:07"), Look()});
  script.insert(script.end(), {Pick(change::kWhat, 8), Type(change::kFirst, "2"), Pick(change::kWhich, 2),
                               Look(), PressEscape()});
  user.WillFill(script);
  ASSERT_TRUE(user.Choose(command::kChangeSteps));
  ExpectDialogsToFit(template_id::kChangeSteps);
}

TEST_P(TextsFit, DialogsOfNewModes) {
  namespace id = dialogs::generate_control;
  struct Row {
    int command;
    int dialog;
    int fault;  // the field with the longest label
  };
  for (const Row& row : {Row{command::kNewFromSun, template_id::kSun, id::kLevels},
                         Row{command::kNewFromMoon, template_id::kMoon, id::kMoonlight},
                         Row{command::kNewFromRampDay, template_id::kRampDay, id::kLevels},
                         Row{command::kNewFromAcclimation, template_id::kAcclimation, id::kPercent},
                         Row{command::kNewFromSeason, template_id::kSeason, id::kLevels}}) {
    user.WillFill({Look(), Type(row.fault, "x"), Look(), PressEscape()});
    ASSERT_TRUE(user.Choose(row.command));
    ExpectDialogsToFit(row.dialog);
  }
}

TEST_P(TextsFit, Figures) {
  namespace figures = dialogs::figures_control;
  user.WillFill({Type(figures::kFirstWatts, "24"), Type(figures::kFirstPar, "180"),
                 Type(figures::kPrice, "0.32"), Look(), Type(figures::kLevel, "999999999999"), Look(),
                 PressEscape()});
  ASSERT_TRUE(user.Choose(command::kFigures));
  ExpectDialogsToFit(template_id::kFigures);
}

TEST_P(TextsFit, About) {
  user.WillFill({PressEscape()});
  ASSERT_TRUE(user.Choose(command::kAbout));
  ExpectDialogsToFit(template_id::kAbout);
}

TEST_P(TextsFit, TheCheckUp) {
  namespace check_up = dialogs::check_up_control;
  const auto canPack = [](const SeenDialog& seen) { return seen.controls.at(check_up::kPack).enabled; };
  user.WillFill({Look(), Await(canPack), Look(), Press(check_up::kPack), Look(), PressEscape()});
  ASSERT_TRUE(user.Choose(command::kCheckUp));
  ExpectDialogsToFit(template_id::kCheckUp);
}

TEST_P(TextsFit, TheWifiWizard) {
  sim_network::PlugIn(kTank, kSmart);
  sim_network::SetWifi(platform::WifiQuery::Answered,
                       {{kSsid, platform::WifiAuthentication::Open, platform::WifiCipher::Ccmp}});
  const DialogStep found =
      Await([](const SeenDialog& seen) { return seen.controls.at(search_id::kFound).rows.size() == 1; });
  user.WillFill({Press(kOk)});
  user.WillFill({Press(search_id::kSearch), found, Look(), Press(kOk)});
  user.WillFill({Press(config_id::kSetUp), Press(kOk)});
  user.WillFill({Press(kOk)});
  ASSERT_TRUE(user.Choose(command::kSetupWifi));
  const std::vector<SeenDialog> seen = user.Dialogs();
  const std::initializer_list<int> pages = {template_id::kTC421Init, template_id::kTC421Search,
                                            template_id::kTC421Search, template_id::kTC421Config,
                                            template_id::kTC421Success};
  ASSERT_EQ(seen.size(), pages.size());
  for (std::size_t i = 0; i < seen.size(); ++i) ExpectToFit(seen[i], pages.begin()[i]);
}

INSTANTIATE_TEST_SUITE_P(Languages, TextsFit,
                         testing::Values("en", "de", "sk", "it", "cz", "fr01", "fr", "pl", "es"),
                         [](const auto& tested) { return std::string(tested.param); });

}  // namespace
