#pragma once

// What the tests of the dialogs share: dialogs in memory, and a user who fills them.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "dialogs/dialog.h"
#include "tests/support/headless_dialogs.h"

class DialogsTest : public testing::Test {
 protected:
  /// Opens the dialog for a user who does this.
  template <class Dialog, class... Params>
  int Fill(DialogScript script, Params&... params) {
    port.seen.clear();
    port.scripts.push_back(std::move(script));
    return Dialog(port, params...).DoModal();
  }

  /// As it came up.
  const SeenDialog& First() const { return port.seen.front(); }
  /// At the last Look(), or as it came up.
  const SeenDialog& Last() const { return port.seen.back(); }

  headless::Dialogs port;
};
