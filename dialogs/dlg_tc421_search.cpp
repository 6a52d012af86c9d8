#include "dialogs/dlg_tc421_search.h"

#include <cstddef>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "devices/controller_models.h"
#include "devices/jobs.h"
#include "devices/shown_name.h"
#include "dialogs/dialog_template.h"
#include "dialogs/template_texts.h"

namespace dialogs {

namespace {

void EnableNext(DialogWindow& window) {
  window.SetEnabled(kOk, window.SelectedData(tc421_search_control::kFound) >= 0);
}

}  // namespace

DlgTC421_Search::DlgTC421_Search(DialogsPort& port, TCBase::Worker& worker)
    : DlgBase(port, template_id::kTC421Search), worker_(worker) {}

void DlgTC421_Search::OnInit(DialogWindow& window) {
  TranslateTemplateTexts(window, templateId);
  window.SetEnabled(kOk, false);
}

void DlgTC421_Search::OnControl(DialogWindow& window, int control, int code) {
  switch (control) {
    case tc421_search_control::kSearch:
      return worker_.AddJob(TCBase::ScanJob(worker_, window.Target(), kScanFinished));
    case tc421_search_control::kFound:
      if (code == kSelectionChanged) EnableNext(window);
      return;
    default:
      return;
  }
}

void DlgTC421_Search::OnEvent(DialogWindow& window, std::uint32_t event) {
  if (event == kScanFinished) ShowFound(window);
}

void DlgTC421_Search::ShowFound(DialogWindow& window) {
  devices_ = worker_.GetDevices();
  window.ClearRows(tc421_search_control::kFound);
  for (std::size_t i = 0; i < devices_.size(); ++i) {
    if (!IsOnNetwork(devices_[i])) continue;
    window.AddRow(tc421_search_control::kFound, WideFromUtf8(TCBase::ShownName(devices_[i].name)),
                  static_cast<std::int32_t>(i));
  }
  if (window.RowCount(tc421_search_control::kFound) == 1) window.SelectRow(tc421_search_control::kFound, 0);
  EnableNext(window);
}

void DlgTC421_Search::OnOk(DialogWindow& window) {
  const auto chosen = static_cast<std::size_t>(window.SelectedData(tc421_search_control::kFound));
  if (chosen >= devices_.size()) return;
  device_ = devices_[chosen];
  DlgBase::OnOk(window);
}

}  // namespace dialogs
