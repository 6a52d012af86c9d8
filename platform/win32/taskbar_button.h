#pragma once

#include <memory>

#include "app/window/ports.h"
#include "platform/win32/windows_headers.h"

struct ITaskbarList3;

namespace win32 {

/// Shows on a window's button in the task bar how far the work is.
class TaskbarButton {
 public:
  TaskbarButton();
  /// What `list` answers is not looked at. For a list that is there already.
  explicit TaskbarButton(ITaskbarList3& list);
  ~TaskbarButton();
  TaskbarButton(const TaskbarButton&) = delete;
  TaskbarButton& operator=(const TaskbarButton&) = delete;

  /// Nothing where the system has no task bar. The first call that shows something asks the system for it, on
  /// the thread that makes all of them.
  void Show(HWND window, const app::WorkSign& sign);

 private:
  struct Release {
    void operator()(ITaskbarList3* list) const;
  };

  void Open();

  bool opened_ = false;
  bool startedCom_ = false;
  std::unique_ptr<ITaskbarList3, Release> list_;
};

}  // namespace win32
