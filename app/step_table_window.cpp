#include "app/step_table_window.h"

#include <algorithm>

#include "app/app_state.h"
#include "app/commands.h"

namespace app {

void StepTableWindow::OnClose() {
  state_.stepTable.Close();
}

void StepTableWindow::OnSelect(const TableSelection& selection) {
  state_.stepTable.OnSelect(selection);
}

bool StepTableWindow::OnEdit() {
  return state_.stepTable.OnEdit();
}

bool StepTableWindow::OnTyped(std::int32_t row, int column, std::u16string_view text, bool goesOn) {
  return state_.stepTable.OnTyped(row, column, text, goesOn);
}

void StepTableWindow::OnEditGivenUp() {
  state_.stepTable.OnEditGivenUp();
}

bool StepTableWindow::OnKey(TableSheet sheet, int key, bool ctrl) {
  if (state_.stepTable.OnKey(sheet, key, ctrl)) return true;
  if (!ctrl) return false;
  const std::vector<Accelerator> keys = AcceleratorTable();
  const auto found = std::ranges::find_if(keys, [key](const Accelerator& accelerator) {
    return accelerator.key.kind == KeyStroke::Kind::CtrlLetter && accelerator.key.key == key;
  });
  if (found == keys.end()) return false;
  commands_.DispatchKey(found->command);
  return true;
}

}  // namespace app
