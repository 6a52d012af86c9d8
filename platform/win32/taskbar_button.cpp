#include "platform/win32/taskbar_button.h"

#include <shobjidl.h>

namespace win32 {

namespace {

constexpr ULONGLONG kWhole = 100;

TBPFLAG StateOf(app::WorkSign::Kind kind) {
  switch (kind) {
    case app::WorkSign::Unmeasured:
      return TBPF_INDETERMINATE;
    case app::WorkSign::Running:
      return TBPF_NORMAL;
    case app::WorkSign::Paused:
      return TBPF_PAUSED;
    default:
      return TBPF_NOPROGRESS;
  }
}

}  // namespace

void TaskbarButton::Release::operator()(ITaskbarList3* list) const {
  list->Release();
}

TaskbarButton::TaskbarButton() = default;

TaskbarButton::TaskbarButton(ITaskbarList3& list) : opened_(true), list_(&list) {
  list.AddRef();
}

TaskbarButton::~TaskbarButton() {
  list_.reset();
  if (startedCom_) CoUninitialize();
}

void TaskbarButton::Open() {
  opened_ = true;
  startedCom_ = SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED));
  ITaskbarList3* list = nullptr;
  if (FAILED(CoCreateInstance(CLSID_TaskbarList, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&list)))) return;
  list_.reset(list);
  if (FAILED(list->HrInit())) list_.reset();
}

void TaskbarButton::Show(HWND window, const app::WorkSign& sign) {
  if (!opened_) Open();
  if (!list_) return;
  list_->SetProgressState(window, StateOf(sign.kind));
  const bool measured = sign.kind == app::WorkSign::Running || sign.kind == app::WorkSign::Paused;
  if (measured) list_->SetProgressValue(window, static_cast<ULONGLONG>(sign.percent), kWhole);
}

}  // namespace win32
