// The windows of dialogs, opened from the templates in Lumarine.exe over no main window. Each dialog ends
// before it is shown, or by an event that it posts to itself.

#include "platform/win32/dialog_windows.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <utility>

#include "dialogs/dialog_template.h"
#include "platform/win32/open_dialog.h"
#include "tests/desktop/program_resources.h"

namespace {

using dialogs::DialogWindow;
using dialogs::kCancel;
using dialogs::kOk;
namespace template_id = dialogs::template_id;

constexpr int kName = dialogs::mode_name_control::kName;
constexpr int kDescription = dialogs::mode_name_control::kDescription;
constexpr int kCopyFrom = dialogs::mode_name_control::kCopyFrom;
constexpr std::size_t kManyUnits = 2048;

// A dialog without rules: it does what a test says.
class Dialog final : public dialogs::DlgBase {
 public:
  using DlgBase::DlgBase;

  void OnInit(DialogWindow& window) override { onInit(window); }
  void OnCommand(DialogWindow& window, int control, int code) override { onCommand(window, control, code); }
  void OnEvent(DialogWindow& window, std::uint32_t event) override { onEvent(window, event); }

  std::function<void(DialogWindow&)> onInit = [](DialogWindow&) {};
  std::function<void(DialogWindow&, int, int)> onCommand = [](DialogWindow&, int, int) {};
  std::function<void(DialogWindow&, std::uint32_t)> onEvent = [](DialogWindow&, std::uint32_t) {};
};

class DialogWindows : public desktop::ProgramResources {
 protected:
  // Opens a dialog for as long as `look` takes.
  void In(int number, const std::function<void(DialogWindow&)>& look) {
    win32::DialogWindows windows(program_, noMainWindow_);
    Dialog dialog(windows, number);
    dialog.onInit = [&](DialogWindow& window) {
      look(window);
      window.End(kOk);
    };
    EXPECT_EQ(dialog.DoModal(), kOk);
  }

  win32::Controls noControls_{noChart_};
  win32::MainWindow noMainWindow_{SW_HIDE, noControls_, noLogo_};

 private:
  win32::ChartWindow noChart_;
  win32::Logo noLogo_;
};

TEST_F(DialogWindows, TextsOfAllScriptsComeBackAsTheyWerePutIn) {
  In(template_id::kModeName, [](DialogWindow& window) {
    for (const std::u16string text : {u"Příliš žluťoučký kůň", u"Zażółć gęślą jaźń", u"Φως ημέρας",
                                      u"水槽の照明", u"🐠🌱", u"&Fish & Co"}) {
      window.SetText(kName, text);
      EXPECT_EQ(window.Text(kName, kManyUnits), text);
    }
    window.SetText(kDescription, u"two\r\nlines");
    EXPECT_EQ(window.Text(kDescription, kManyUnits), u"two\r\nlines");
  });
}

TEST_F(DialogWindows, TextIsReadUpToTheSizeOfTheBuffer) {
  In(template_id::kModeName, [](DialogWindow& window) {
    window.SetText(kName, std::u16string(3000, u'x'));
    EXPECT_EQ(window.Text(kName, 2048), std::u16string(2047, u'x'));
    EXPECT_EQ(window.Text(kName, 80), std::u16string(79, u'x'));
    window.SetText(kName, u"");
    EXPECT_EQ(window.Text(kName, 80), u"");
  });
}

TEST_F(DialogWindows, RowsGoByTheirNumberInTheOrderTheyWereAdded) {
  In(template_id::kModeName, [](DialogWindow& window) {
    window.AddRow(kCopyFrom, u"<empty>", 0);
    window.AddRow(kCopyFrom, u"Zebra", 7);
    window.AddRow(kCopyFrom, u"Ξημέρωμα", 5);
    EXPECT_EQ(window.RowCount(kCopyFrom), 3);
    EXPECT_EQ(window.SelectedData(kCopyFrom), -1) << "no row is selected at first";
    window.SelectRow(kCopyFrom, 1);
    EXPECT_EQ(window.SelectedData(kCopyFrom), 7);
    window.SelectText(kCopyFrom, u"Ξημέρωμα");
    EXPECT_EQ(window.SelectedData(kCopyFrom), 5);
    window.SelectText(kCopyFrom, u"Ξημέρωμ");
    EXPECT_EQ(window.SelectedData(kCopyFrom), 5) << "no row is called so";
    window.SelectRow(kCopyFrom, 3);
    EXPECT_EQ(window.SelectedData(kCopyFrom), -1) << "one past the end is no choice";
    window.ClearRows(kCopyFrom);
    EXPECT_EQ(window.RowCount(kCopyFrom), 0);
  });
}

TEST_F(DialogWindows, SortedListsKeepTheNumberOfEachRow) {
  namespace config_id = dialogs::tc421_config_control;
  for (const auto& [form, list] :
       {std::pair(template_id::kTC421Search, dialogs::tc421_search_control::kFound),
        std::pair(template_id::kTC421Config, config_id::kNetwork)}) {
    In(form, [list = list](DialogWindow& window) {
      window.AddRow(list, u"Reef", 0);
      window.AddRow(list, u"Attic", 1);
      window.AddRow(list, u"Reef", 2);
      EXPECT_EQ(window.RowCount(list), 3);
      EXPECT_EQ(window.SelectedData(list), -1);
      window.SelectRow(list, 0);
      EXPECT_EQ(window.SelectedData(list), 1);
      window.SelectRow(list, 1);
      const int first = window.SelectedData(list);
      window.SelectRow(list, 2);
      EXPECT_EQ(first + window.SelectedData(list), 2) << "both of the same name";
      window.ClearRows(list);
      EXPECT_EQ(window.RowCount(list), 0);
      EXPECT_EQ(window.SelectedData(list), -1);
    });
  }
}

TEST_F(DialogWindows, WordsAreSelectedWholeAndReadBack) {
  namespace config_id = dialogs::tc421_config_control;
  In(template_id::kTC421Config, [](DialogWindow& window) {
    for (const char16_t* const word : {u"WPA2", u"Open", u"WPA"})
      window.AddRow(config_id::kSecurity, word, 0);
    EXPECT_EQ(window.Text(config_id::kSecurity, 40), u"");
    window.SelectText(config_id::kSecurity, u"WPA");
    EXPECT_EQ(window.Text(config_id::kSecurity, 40), u"WPA");
    window.SelectText(config_id::kSecurity, u"WPA2");
    EXPECT_EQ(window.Text(config_id::kSecurity, 40), u"WPA2");
    window.SelectText(config_id::kSecurity, u"Invalid");
    EXPECT_EQ(window.Text(config_id::kSecurity, 40), u"WPA2");
  });
}

TEST_F(DialogWindows, AComboBoxShowsItsChoiceAndTakesAnyText) {
  namespace config_id = dialogs::tc421_config_control;
  In(template_id::kTC421Config, [](DialogWindow& window) {
    window.AddRow(config_id::kNetwork, u"水槽 🐠", 0);
    window.SelectRow(config_id::kNetwork, 0);
    EXPECT_EQ(window.Text(config_id::kNetwork, 128), u"水槽 🐠");
    window.SetText(config_id::kNetwork, std::u16string(500, u's'));
    EXPECT_EQ(window.Text(config_id::kNetwork, 128), std::u16string(127, u's'));
  });
}

TEST_F(DialogWindows, DateAndTimeComeBackToTheSecond) {
  In(template_id::kGetDateTime, [](DialogWindow& window) {
    const int picker = dialogs::date_time_control::kDateTime;
    window.SetDateTime(picker, {2024, 2, 29, 23, 59, 58, 123}, u"yyyy-MMM-dd HH:mm:ss");
    const DateTime read = window.GetDateTime(picker);
    EXPECT_EQ(read.year, 2024);
    EXPECT_EQ(read.month, 2);
    EXPECT_EQ(read.day, 29);
    EXPECT_EQ(read.hour, 23);
    EXPECT_EQ(read.minute, 59);
    EXPECT_EQ(read.second, 58);
  });
}

TEST_F(DialogWindows, AControlThatIsNotThereIsHarmless) {
  In(template_id::kAbout, [](DialogWindow& window) {
    window.SetText(4711, u"?");
    window.AddRow(4711, u"?", 1);
    window.LimitText(4711, 1);
    window.AcceptDigitsOnly(4711);
    window.Hide(4711);
    EXPECT_EQ(window.Text(4711, kManyUnits), u"");
  });
}

TEST_F(DialogWindows, AnswerWhatTheyWereEndedWith) {
  win32::DialogWindows windows(program_, noMainWindow_);
  Dialog dialog(windows, template_id::kGetValue);
  dialog.onInit = [](DialogWindow& window) { window.End(kCancel); };
  EXPECT_EQ(dialog.DoModal(), kCancel);
}

TEST_F(DialogWindows, ATemplateThatIsNotThereIsACancelledDialog) {
  win32::DialogWindows windows(program_, noMainWindow_);
  Dialog dialog(windows, 4711);
  EXPECT_EQ(dialog.DoModal(), kCancel);
}

TEST_F(DialogWindows, EventsArriveFromAnotherThreadAndAreLostOnceTheDialogHasGone) {
  win32::DialogWindows windows(program_, noMainWindow_);
  Dialog dialog(windows, template_id::kGetValue);
  std::shared_ptr<EventTarget> target;
  std::thread other;
  std::uint32_t arrived = 0;
  dialog.onInit = [&](DialogWindow& window) {
    target = window.Target();
    // A number that means the default button to the window itself.
    other = std::thread([target] { target->Post(1025, 0, 0); });
  };
  dialog.onEvent = [&](DialogWindow& window, std::uint32_t event) {
    arrived = event;
    window.End(kOk);
  };
  EXPECT_EQ(dialog.DoModal(), kOk);
  other.join();
  EXPECT_EQ(arrived, 1025U);
  target->Post(1025, 0, 0);
}

TEST_F(DialogWindows, CommandsCarryTheControlAndItsNotification) {
  win32::DialogWindows windows(program_, noMainWindow_);
  Dialog dialog(windows, template_id::kGetValue);
  bool changed = false;
  dialog.onInit = [](DialogWindow& window) { window.Target()->Post(1, 0, 0); };
  dialog.onEvent = [](DialogWindow& window, std::uint32_t) {
    window.SetText(dialogs::get_value_control::kValue, u"600");
    window.End(kOk);
  };
  dialog.onCommand = [&](DialogWindow&, int control, int code) {
    changed = changed || (control == dialogs::get_value_control::kValue && code == dialogs::kTextChanged);
  };
  EXPECT_EQ(dialog.DoModal(), kOk);
  EXPECT_TRUE(changed);
}

struct WithinCase {
  const char* name;
  RECT place;
  RECT kept;
};

class DialogPlace : public testing::TestWithParam<WithinCase> {};

TEST_P(DialogPlace, IsKeptOnTheScreen) {
  const RECT kept = win32::Within({0, 0, 1280, 984}, GetParam().place);
  EXPECT_TRUE(EqualRect(&kept, &GetParam().kept))
      << kept.left << ", " << kept.top << ", " << kept.right << ", " << kept.bottom;
}

INSTANTIATE_TEST_SUITE_P(All, DialogPlace,
                         testing::Values(WithinCase{"Inside", {60, 50, 360, 150}, {60, 50, 360, 150}},
                                         WithinCase{"Touching", {980, 884, 1280, 984}, {980, 884, 1280, 984}},
                                         WithinCase{"Below", {60, 950, 360, 1050}, {60, 884, 360, 984}},
                                         WithinCase{"Right", {1200, 50, 1500, 150}, {980, 50, 1280, 150}},
                                         WithinCase{"LeftAbove", {-200, -20, 100, 80}, {0, 0, 300, 100}},
                                         WithinCase{"TooLarge", {-10, 5, 1390, 1105}, {0, 0, 1400, 1100}}),
                         [](const auto& tested) { return std::string(tested.param.name); });

}  // namespace
