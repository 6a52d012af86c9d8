#pragma once

// What is true of the program whatever its user does, looked at from outside and from inside of the headless
// shell. Each check throws Broken at the first thing that is not so.

#include <cstdint>
#include <stdexcept>
#include <string>

#include "tests/support/headless_user.h"

struct Broken : std::runtime_error {
  using std::runtime_error::runtime_error;
};

class ProgramTruths {
 public:
  /// The user outlives this; his desktop draws (headless::DrawingRenderer).
  explicit ProgramTruths(headless::HeadlessUser& user) : user_(user) {}

  /// What costs little, for each deed, whether or not something may have been undone by it.
  void CheckState(bool mayHaveUndone);
  /// The document that undo and redo give, the one that comes back from a file, and what a frame shows: for
  /// some deeds.
  void CheckUndo();
  void CheckFile();
  void CheckChart();
  /// Every item of the menus, as their menus open.
  void CheckMenus();
  /// The history back to its begin and forth again.
  void CheckWholeHistory();

 private:
  void CheckDocument();
  void CheckSelection();
  void CheckLists();
  void CheckTexts();
  void CheckScrollBar(bool mayHaveUndone);
  void CheckTable();
  void CheckControls();

  headless::HeadlessUser& user_;
  std::int32_t depth_ = 0;      // of the history, after the deed before
  bool scrollBarLags_ = false;  // behind the view
};
