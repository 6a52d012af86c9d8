#include "dialogs/dlg_check_up.h"

#include <algorithm>
#include <cstddef>
#include <mutex>
#include <string>
#include <thread>
#include <utility>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "common/message.h"
#include "dialogs/dialog_template.h"
#include "dialogs/template_texts.h"
#include "doctor/report.h"

namespace dialogs {

namespace {

using namespace check_up_control;

// Of each file of a bundle the field shows no more than this many bytes: a log may be long.
constexpr std::size_t kShownBytes = 12'000;

// Edit fields want line ends of two characters.
std::u16string ForField(const std::string& text) {
  std::string lines;
  for (const char c : text) {
    if (c == '\n' && !lines.ends_with('\r')) lines += '\r';
    lines += c;
  }
  return WideFromUtf8(lines);
}

// A cut stands between two characters.
std::string BeginningOf(const std::string& text) {
  if (text.size() <= kShownBytes) return text;
  std::size_t end = kShownBytes;
  while (end > 0 && (text[end] & 0xC0) == 0x80) --end;
  return text.substr(0, end) + "\n[...]\n";
}

std::string TextOf(const doctor::BundleFile& file) {
  const auto bytes = static_cast<std::int64_t>(file.content.size());
  return "=== " + file.name + " (" + std::to_string(bytes) + " B)\n" + BeginningOf(file.content) + "\n";
}

}  // namespace

// One examination, on a thread of its own.
class DlgCheckUp::Examiner {
 public:
  Examiner(doctor::Subject subject, std::shared_ptr<EventTarget> dialog)
      : dialog_(std::move(dialog)),
        thread_([this, subject = std::move(subject)](const std::stop_token& stop) {
          doctor::Examine(
              subject, [this](const doctor::Finding& finding) { Tell(&finding); }, stop);
          Tell(nullptr);
        }) {}

  // What was found since the last call, and whether that is all.
  std::pair<std::vector<doctor::Finding>, bool> Take() {
    const std::lock_guard lock(mutex_);
    return {std::exchange(found_, {}), done_};
  }

 private:
  // Null at the end.
  void Tell(const doctor::Finding* finding) {
    {
      const std::lock_guard lock(mutex_);
      if (finding != nullptr) found_.push_back(*finding);
      done_ = finding == nullptr;
    }
    dialog_->Post(kFound, 0, 0);
  }

  const std::shared_ptr<EventTarget> dialog_;
  std::mutex mutex_;
  std::vector<doctor::Finding> found_;  // guarded by mutex_
  bool done_ = false;                   // the same
  std::jthread thread_;                 // last: runs as soon as it is there
};

DlgCheckUp::DlgCheckUp(DialogsPort& port, CheckUpParams& params)
    : DlgBase(port, template_id::kCheckUp), params_(params) {}

DlgCheckUp::~DlgCheckUp() = default;

void DlgCheckUp::OnInit(DialogWindow& window) {
  TranslateTemplateTexts(window, templateId);
  window.GiveFocus(kOk);
  LookAround(window);
}

void DlgCheckUp::LookAround(DialogWindow& window) {
  for (const int button : {kAgain, kPack, kSave}) window.SetEnabled(button, false);
  window.SetText(kReport, {});
  window.SetText(kSummary, Message("Looking ...").ToWide());
  findings_.clear();
  examiner_ = std::make_unique<Examiner>(params_.subject, window.Target());
}

void DlgCheckUp::OnEvent(DialogWindow& window, std::uint32_t event) {
  if (event == kFound && examiner_) ShowFindings(window);
}

void DlgCheckUp::ShowFindings(DialogWindow& window) {
  auto [found, done] = examiner_->Take();
  std::ranges::move(found, std::back_inserter(findings_));
  std::string text;
  for (const doctor::Finding& finding : findings_) text += LinesOf(finding, doctor::Signs::LooseWords);
  window.SetText(kReport, ForField(text));
  if (!done) return;
  examiner_.reset();
  window.SetText(kSummary, WideFromUtf8(doctor::SummaryOf(findings_).Text()));
  for (const int button : {kAgain, kPack}) window.SetEnabled(button, true);
}

void DlgCheckUp::OnControl(DialogWindow& window, int control, int code) {
  if (code != kClicked) return;
  if (control == kAgain) LookAround(window);
  if (control == kPack) ShowBundle(window);
  if (control == kSave) window.End(kSaveBundle);
}

void DlgCheckUp::ShowBundle(DialogWindow& window) {
  params_.bundle = MakeBundle(params_.subject, findings_, params_.versions);
  std::string text;
  for (const doctor::BundleFile& file : params_.bundle) text += TextOf(file);
  window.SetText(kReport, ForField(text));
  window.SetText(
      kSummary,
      Message("This would be saved. Nothing in it names you, your computer or your networks.").ToWide());
  window.SetEnabled(kSave, true);
}

}  // namespace dialogs
