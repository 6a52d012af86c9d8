#pragma once

// The thread of the windows, as the thread of the tests sees it. The program runs there as it does from its
// own main, and the user sits before it in a thread of his own: so a dialog, a menu or a held button holds up
// the program alone.

#include <functional>
#include <type_traits>
#include <utility>

namespace qt_desktop {

/// Has the windows' thread do something, in whichever loop it turns, and waits until that is done. Nothing
/// that may open a dialog: this thread is the one that would answer it.
void InGui(const std::function<void()>& act);

/// The same, for what is looked up there.
template <class Look>
auto FromGui(const Look& look) {
  std::invoke_result_t<Look> seen{};
  InGui([&] { seen = look(); });
  return seen;
}

/// The same without waiting.
void PostToGui(std::function<void()> act);

/// Waits until the windows' thread has taken the input that it has, and what was posted to it.
void AwaitGui();

/// Has the windows' thread run a whole program, as its main would, and does not wait.
void StartInGui(std::function<void()> program);

/// In the windows' thread, where the application object stands: has `user` run in a thread of his own and
/// does what is asked for above until that has ended. What it returned.
int ServeGui(const std::function<int()>& user);

}  // namespace qt_desktop
