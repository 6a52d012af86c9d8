// What the task bar is told of the work in hand, by a list of the test's own; and that the system's is asked
// for.

#include "platform/win32/taskbar_button.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <shobjidl.h>

#include <string>
#include <vector>

namespace {

using app::WorkSign;
using testing::ElementsAre;

// Counts its references and notes the calls.
class NotedList final : public ITaskbarList3 {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
  ULONG STDMETHODCALLTYPE Release() override { return --references; }
  HRESULT STDMETHODCALLTYPE HrInit() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE AddTab(HWND) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE DeleteTab(HWND) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE ActivateTab(HWND) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SetActiveAlt(HWND) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE MarkFullscreenWindow(HWND, WINBOOL) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SetProgressValue(HWND, ULONGLONG done, ULONGLONG whole) override {
    calls.push_back("value " + std::to_string(done) + " of " + std::to_string(whole));
    return E_FAIL;
  }
  HRESULT STDMETHODCALLTYPE SetProgressState(HWND, TBPFLAG state) override {
    calls.push_back("state " + std::to_string(state));
    return E_FAIL;
  }
  HRESULT STDMETHODCALLTYPE RegisterTab(HWND, HWND) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE UnregisterTab(HWND) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SetTabOrder(HWND, HWND) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SetTabActive(HWND, HWND, DWORD) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE ThumbBarAddButtons(HWND, UINT, LPTHUMBBUTTON) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE ThumbBarUpdateButtons(HWND, UINT, LPTHUMBBUTTON) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE ThumbBarSetImageList(HWND, HIMAGELIST) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SetOverlayIcon(HWND, HICON, LPCWSTR) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SetThumbnailTooltip(HWND, LPCWSTR) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SetThumbnailClip(HWND, RECT*) override { return E_NOTIMPL; }

  ULONG references = 1;
  std::vector<std::string> calls;
};

TEST(TaskbarButton, ShowsWorkByStateAndPercentage) {
  NotedList list;
  {
    win32::TaskbarButton button(list);
    button.Show(nullptr, {WorkSign::Running, 30});
    button.Show(nullptr, {WorkSign::Paused, 31});
    button.Show(nullptr, {WorkSign::Unmeasured});
    button.Show(nullptr, {});
  }
  EXPECT_THAT(list.calls,
              ElementsAre("state 2", "value 30 of 100", "state 8", "value 31 of 100", "state 1", "state 0"));
  EXPECT_EQ(list.references, 1U);
}

TEST(TaskbarButton, AsksTheSystemForItsTaskBarAndLeavesNothingBehind) {
  {
    win32::TaskbarButton button;
    button.Show(nullptr, {WorkSign::Running, 30});
    button.Show(nullptr, {});
  }
  IUnknown* list = nullptr;
  EXPECT_EQ(CoCreateInstance(CLSID_TaskbarList, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&list)),
            CO_E_NOTINITIALIZED)
      << "the thread is as it was";
}

}  // namespace
