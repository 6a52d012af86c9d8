// Takes pictures of Lumarine.exe for the documents.
//   desktop_portraits LIST FOLDER DOTS [EXAMPLE]     DOTS to the inch; tests/support/portraits.h tells the
//   rest

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "app/window/control_table.h"
#include "common/files.h"
#include "tests/desktop/first_day.h"
#include "tests/desktop/input.h"
#include "tests/desktop/program_under_test.h"
#include "tests/desktop/screen_picture.h"
#include "tests/desktop/step_table_view.h"
#include "tests/desktop/window_text.h"
#include "tests/support/portraits.h"

namespace {

constexpr int kUsualDots = 96;

std::wstring Wide(const std::string& text) {
  const std::u16string wide = WideFromUtf8(text);
  return {wide.begin(), wide.end()};
}

class WindowsSitter final : public portraits::Sitter {
 public:
  WindowsSitter(const std::vector<std::filesystem::path>& files, int dots) : program_(files), dots_(dots) {}

  void Choose(int command) override {
    PostMessageW(program_.mainWindow(), WM_COMMAND, static_cast<WPARAM>(command), 0);
  }
  void AskToClose() override { PostMessageW(program_.mainWindow(), WM_SYSCOMMAND, SC_CLOSE, 0); }
  void ClickChart(std::int32_t x, std::int32_t y) override { input::Click(OnScreen(x, y)); }
  void OpenChartMenu(std::int32_t x, std::int32_t y) override {
    input::Click(OnScreen(x, y), input::Button::Right);
  }
  app::Size ClientSize() override {
    RECT client{};
    GetClientRect(program_.mainWindow(), &client);
    return {static_cast<std::int32_t>(client.right) * kUsualDots / dots_,
            static_cast<std::int32_t>(client.bottom) * kUsualDots / dots_};
  }

  bool IsMainWindowInFront() override { return Front() == program_.mainWindow(); }
  bool HasControl(int control) override {
    const HWND item = Item(control);
    return item != nullptr && IsWindowEnabled(item) != 0;
  }
  void Type(int control, const std::string& text) override {
    const HWND item = Item(control);
    const HWND inner = FindWindowExW(item, nullptr, L"Edit", nullptr);
    const HWND field = inner != nullptr ? inner : item;
    std::string lines;
    for (const char c : text) lines += c == '\n' ? "\r\n" : std::string(1, c);
    SendMessageW(field, EM_SETSEL, 0, -1);
    SendMessageW(field, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(Wide(lines).c_str()));
  }
  void Pick(int control, int row) override {
    SendMessageW(Item(control), CB_SETCURSEL, static_cast<WPARAM>(row), 0);
    SendMessageW(Front(), WM_COMMAND, static_cast<WPARAM>(MAKELONG(control, CBN_SELCHANGE)),
                 reinterpret_cast<LPARAM>(Item(control)));
  }
  void Press(int control) override {
    PostMessageW(Front(), WM_COMMAND, static_cast<WPARAM>(MAKELONG(control, BN_CLICKED)),
                 reinterpret_cast<LPARAM>(Item(control)));
  }
  void Leave() override {
    if (desktop::ClassOf(Front()) != L"#32770") return input::PressKey(VK_ESCAPE);
    PostMessageW(Front(), WM_COMMAND, static_cast<WPARAM>(MAKELONG(IDCANCEL, BN_CLICKED)), 0);
  }
  Rect Frame() override {
    RECT place{};
    GetWindowRect(Front(), &place);
    return {place.left, place.top, place.right - place.left, place.bottom - place.top};
  }
  bool Photograph(const std::filesystem::path& file) override {
    return desktop::ScreenPicture::Take().Write(file);
  }

 private:
  HWND Front() const {
    if (const HWND menu = FindWindowW(L"#32768", nullptr); menu != nullptr && IsWindowVisible(menu))
      return menu;
    const HWND dialog = program_.Dialog();
    const HWND table = desktop::step_table::FindWindowOf(program_.mainWindow());
    return dialog != nullptr ? dialog : table != nullptr ? table : program_.mainWindow();
  }
  HWND Item(int control) const { return GetDlgItem(Front(), control); }
  POINT OnScreen(std::int32_t x, std::int32_t y) const {
    POINT point{x * dots_ / kUsualDots, y * dots_ / kUsualDots};
    ClientToScreen(program_.Child(app::Control::ChartWindow), &point);
    return point;
  }

  const desktop::FirstDay firstDay_;
  desktop::ProgramUnderTest program_;
  const int dots_;
};

}  // namespace

int main(int count, char** arguments) {
  testing::InitGoogleTest(&count, arguments);
  if (count < 4) return 2;
  SetProcessDPIAware();
  std::vector<std::filesystem::path> files;
  if (count > 4) files.push_back(PathFromUtf8(arguments[4]));
  WindowsSitter sitter(files, std::atoi(arguments[3]));
  return portraits::Take(sitter, arguments[1], PathFromUtf8(arguments[2])) ? 0 : 1;
}
