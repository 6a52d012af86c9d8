#include "dialogs/dlg_about.h"

#include <string>
#include <string_view>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "OvkLib/src/ovk_format.h"
#include "common/message.h"
#include "dialogs/dialog_template.h"
#include "dialogs/product.h"

namespace dialogs {

namespace {

struct Link {
  int control;
  std::string_view caption;
  std::string_view target;
};
constexpr Link kLinks[] = {
    {about_control::kEmailLink, product::kEmailCaption, product::kEmailTarget},
    {about_control::kWebLink, product::kWebCaption, product::kWebTarget},
    {about_control::kGroupLink, product::kGroupCaption, product::kGroupTarget},
};

std::u16string ProgramText() {
  const std::string_view arguments[] = {product::kName, product::kMajor, product::kMinor, product::kBuild};
  std::string text;
  ovk::fill(text, Translate("{1}, Version {2}.{3}, Build {4}"), arguments);
  return WideFromUtf8(text + " (64-bit)");
}

}  // namespace

DlgAbout::DlgAbout(DialogsPort& port) : DlgBase(port, template_id::kAbout) {}

void DlgAbout::OnInit(DialogWindow& window) {
  window.SetTitle(Message("About...").ToWide());
  window.SetText(about_control::kProgram, ProgramText());
  window.Hide(about_control::kNote);
  window.Hide(about_control::kNoteButton);
  window.SetText(about_control::kCopyright, WideFromUtf8(product::kCopyright));
  window.SetText(about_control::kFirstTerms, Message(product::kFirstTerms).ToWide());
  window.SetText(about_control::kSecondTerms, Message(product::kSecondTerms).ToWide());
  for (const Link& link : kLinks) window.SetText(link.control, Message(link.caption).ToWide());
  // The first control is a link, and Enter on it would open a mail program.
  window.GiveFocus(kOk);
}

void DlgAbout::OnControl(DialogWindow& window, int control, int) {
  for (const Link& link : kLinks) {
    if (link.control == control) window.OpenLink(WideFromUtf8(link.target));
  }
}

}  // namespace dialogs
