#include "tests/desktop/program_under_test.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <filesystem>
#include <iterator>
#include <utility>
#include <vector>

#include "tests/desktop/input.h"
#include "tests/desktop/window_text.h"
#include "tests/support/patience.h"

namespace desktop {

namespace {

constexpr wchar_t kMainClass[] = L"LUMARINE";
constexpr int kFirstTitleLength = 8;  // "Lumarine"

std::filesystem::path Folder() {
  std::array<wchar_t, 1024> own{};
  GetModuleFileNameW(nullptr, own.data(), static_cast<DWORD>(own.size()));
  return std::filesystem::path(own.data()).parent_path();
}

std::vector<HWND> WindowsOf(DWORD process) {
  struct Search {
    DWORD process;
    std::vector<HWND> found;
  } search{process, {}};
  const auto look = [](HWND window, LPARAM parameter) -> BOOL {
    auto& to = *reinterpret_cast<Search*>(parameter);
    DWORD owner = 0;
    GetWindowThreadProcessId(window, &owner);
    if (owner == to.process && IsWindowVisible(window)) to.found.push_back(window);
    return TRUE;
  };
  EnumWindows(look, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

std::vector<HWND> ChildrenOf(HWND window) {
  std::vector<HWND> children;
  const auto collect = [](HWND child, LPARAM parameter) -> BOOL {
    reinterpret_cast<std::vector<HWND>*>(parameter)->push_back(child);
    return TRUE;
  };
  EnumChildWindows(window, collect, reinterpret_cast<LPARAM>(&children));
  return children;
}

}  // namespace

ProgramUnderTest::ProgramUnderTest(const std::vector<std::filesystem::path>& files) {
  memory_.reset(CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, sizeof(probe::Findings),
                                   probe::kMemory));
  findings_ = static_cast<probe::Findings*>(MapViewOfFile(memory_.get(), FILE_MAP_WRITE, 0, 0, 0));
  *findings_ = {};

  std::wstring command = L"\"" + (Folder() / L"Lumarine.exe").native() + L"\"";
  for (const std::filesystem::path& file : files) command += L" \"" + file.native() + L"\"";
  STARTUPINFOW how{};
  how.cb = sizeof how;
  PROCESS_INFORMATION started{};
  if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &how,
                      &started)) {
    ADD_FAILURE() << "Lumarine.exe does not start: error " << GetLastError();
    return;
  }
  process_.reset(started.hProcess);
  processId_ = started.dwProcessId;
  CloseHandle(started.hThread);
  FindMainWindow();
  if (mainWindow_ == nullptr) return;
  InstallProbe();
  EXPECT_TRUE(WaitUntil([this] {
    SetForegroundWindow(mainWindow_);
    return GetForegroundWindow() == mainWindow_;
  })) << "the window does not come to the front";
}

ProgramUnderTest::~ProgramUnderTest() {
  if (!HasEnded()) TerminateProcess(process_.get(), 1);
  UnmapViewOfFile(findings_);
}

void ProgramUnderTest::FindMainWindow() {
  const auto isComplete = [this] {
    for (const HWND window : WindowsOf(processId_)) {
      if (ClassOf(window) == kMainClass) mainWindow_ = window;
    }
    // The title tells of the program from the last step of the start on.
    return mainWindow_ != nullptr && GetWindowTextLengthW(mainWindow_) > kFirstTitleLength;
  };
  ASSERT_TRUE(WaitUntil([&] { return isComplete() || HasEnded(); })) << "Lumarine.exe has no window";
  ASSERT_FALSE(HasEnded()) << "Lumarine.exe has ended";
}

void ProgramUnderTest::InstallProbe() {
  const HMODULE library = LoadLibraryW((Folder() / probe::kLibrary).c_str());
  ASSERT_NE(library, nullptr) << "the probe is not there";
  const auto find = [library](const char* name) {
    return reinterpret_cast<HOOKPROC>(reinterpret_cast<void (*)()>(GetProcAddress(library, name)));
  };
  const DWORD thread = GetWindowThreadProcessId(mainWindow_, nullptr);
  sentHook_.reset(SetWindowsHookExW(WH_CALLWNDPROC, find(probe::kSentHook), library, thread));
  takenHook_.reset(SetWindowsHookExW(WH_GETMESSAGE, find(probe::kTakenHook), library, thread));
  ASSERT_TRUE(sentHook_ && takenHook_) << "the probe does not get into the program";
}

HWND ProgramUnderTest::Child(app::Control control) const {
  // The rows of the table are made in its order, and each new child is the last one.
  const std::vector<HWND> children = ChildrenOf(mainWindow_);
  const auto index = static_cast<std::size_t>(control);
  return index < children.size() ? children[index] : nullptr;
}

HWND ProgramUnderTest::Dialog() const {
  for (const HWND window : WindowsOf(processId_)) {
    if (window != mainWindow_ && ClassOf(window) == L"#32770") return window;
  }
  return nullptr;
}

bool ProgramUnderTest::HasEnded() const {
  return process_ == nullptr || WaitForSingleObject(process_.get(), 0) == WAIT_OBJECT_0;
}

void ProgramUnderTest::ExpectEnd() {
  const auto patience = static_cast<DWORD>(std::chrono::milliseconds(kPatience).count());
  ASSERT_EQ(WaitForSingleObject(process_.get(), patience), WAIT_OBJECT_0) << "the program does not end";
  DWORD code = 0;
  GetExitCodeProcess(process_.get(), &code);
  EXPECT_EQ(code, 0U) << "the exit code";
}

void ProgramUnderTest::PostMark() {
  static const UINT message = RegisterWindowMessageW(probe::kMark);
  PostMessageW(mainWindow_, message, static_cast<WPARAM>(++mark_), 0);
}

void ProgramUnderTest::PressInputMark() {
  ++inputMarks_;
  input::PressKey(probe::kInputMark);
}

const probe::Findings& ProgramUnderTest::LookAtMenu(int command) const {
  static const UINT message = RegisterWindowMessageW(probe::kLookAtMenu);
  SendMessageW(mainWindow_, message, static_cast<WPARAM>(command), 0);
  return *findings_;
}

void ProgramUnderTest::Drop(const std::vector<std::filesystem::path>& files) {
  static const UINT message = RegisterWindowMessageW(probe::kDrop);
  std::wstring names;
  for (const std::filesystem::path& file : files) names += file.native() + L'\0';
  ASSERT_LT(names.size(), std::size(findings_->files));
  std::fill(std::copy(names.begin(), names.end(), findings_->files), std::end(findings_->files), L'\0');
  SendMessageW(mainWindow_, message, 0, 0);
}

DateTime ProgramUnderTest::LookAtPicker(HWND picker) const {
  static const UINT message = RegisterWindowMessageW(probe::kLookAtPicker);
  SendMessageW(picker, message, 0, 0);
  const SYSTEMTIME& time = findings_->time;
  return {time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond, time.wMilliseconds};
}

const probe::Findings& ProgramUnderTest::LookAtThumb(app::Control control) const {
  static const UINT message = RegisterWindowMessageW(probe::kLookAtThumb);
  SendMessageW(Child(control), message, 0, 0);
  return *findings_;
}

COLORREF ProgramUnderTest::LookAtColor(LONG character) const {
  static const UINT message = RegisterWindowMessageW(probe::kLookAtColor);
  SendMessageW(Child(app::Control::LogPane), message, static_cast<WPARAM>(character), 0);
  return findings_->color;
}

}  // namespace desktop
