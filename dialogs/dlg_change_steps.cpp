#include "dialogs/dlg_change_steps.h"

#include <cstddef>
#include <utility>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "common/message.h"
#include "dialogs/change_answers.h"
#include "dialogs/dialog_template.h"
#include "dialogs/read_text.h"
#include "dialogs/template_texts.h"
#include "program/change/change_words.h"

namespace dialogs {

namespace {

using namespace change_steps_control;
using namespace TCBase::Program;

// More than any good answer takes.
constexpr std::int32_t kAnswerUnits = 20;
constexpr AnswerKind kTime{AnswerKind::Form::Time};

// Which steps are meant; the numbers of the rows.
enum Which : std::int32_t { kSelectedSteps, kSelectedChannel, kAllChannels };

std::string ReadAnswerText(const DialogTexts& texts, int control) {
  return Utf8FromWide(ReadText(texts, control, kAnswerUnits + 1));
}

std::optional<Answer> ReadField(const DialogTexts& texts, int control, const AnswerKind& kind,
                                std::u16string& fault) {
  auto answer = ReadAnswer(kind, ReadAnswerText(texts, control));
  if (!answer && fault.empty()) fault = TellExpected(kind);
  return answer;
}

// An empty field is no end of the span.
std::optional<std::int32_t> ReadEnd(const DialogTexts& texts, int control, std::int32_t without,
                                    std::u16string& fault) {
  if (ReadAnswerText(texts, control).empty()) return without;
  const auto answer = ReadField(texts, control, kTime, fault);
  return answer ? std::optional(answer->whole) : std::nullopt;
}

void ShowField(DialogWindow& window, int label, int field, const AnswerKind& kind) {
  const bool isUsed = kind.form != AnswerKind::Form::None;
  window.SetText(label, isUsed ? Message(kind.label).ToWide() : std::u16string());
  window.SetText(field, WideFromUtf8(std::string(kind.first)));
  window.SetEnabled(field, isUsed);
}

const ChangeRow& ChosenRow(const DialogLists& lists) {
  return ChangeRows()[static_cast<std::size_t>(lists.SelectedData(kWhat))];
}

}  // namespace

DlgChangeSteps::DlgChangeSteps(DialogsPort& port, ChangeStepsParams& params)
    : DlgBase(port, template_id::kChangeSteps), params_(params) {}

void DlgChangeSteps::OnInit(DialogWindow& window) {
  window.MoveBeside(params_.beside);
  TranslateTemplateTexts(window, templateId);
  for (const int field : {kFirst, kSecond, kFrom, kTo}) window.LimitText(field, kAnswerUnits);
  FillLists(window);
  ShowFields(window);
  isReady_ = true;
  Update(window);
}

void DlgChangeSteps::FillLists(DialogLists& lists) const {
  std::int32_t number = 0;
  for (const ChangeRow& row : ChangeRows()) lists.AddRow(kWhat, Message(row.name).ToWide(), number++);
  lists.SelectRow(kWhat, 0);
  if (!params_.selected.empty()) lists.AddRow(kWhich, Message("Selected steps").ToWide(), kSelectedSteps);
  if (params_.channel >= 0) lists.AddRow(kWhich, Message("Selected channel").ToWide(), kSelectedChannel);
  lists.AddRow(kWhich, Message("All channels").ToWide(), kAllChannels);
  // One selected step comes from looking at it; several were chosen.
  const bool isOneStep = params_.selected.size() == 1 && params_.channel >= 0;
  lists.SelectRow(kWhich, isOneStep ? 1 : 0);
}

void DlgChangeSteps::ShowFields(DialogWindow& window) {
  const bool wasReady = std::exchange(isReady_, false);
  const ChangeRow& row = ChosenRow(window);
  ShowField(window, kFirstLabel, kFirst, row.first);
  ShowField(window, kSecondLabel, kSecond, row.second);
  isReady_ = wasReady;
}

void DlgChangeSteps::OnControl(DialogWindow& window, int control, int code) {
  const bool isList = control == kWhat || control == kWhich;
  if (!isReady_ || code != (isList ? kSelectionChanged : kTextChanged)) return;
  if (control == kWhat) ShowFields(window);
  Update(window);
}

void DlgChangeSteps::Update(DialogWindow& window) {
  std::u16string told;
  const auto change = ReadChange(window, told);
  const auto scope = ReadScope(window, told);
  isPossible_ = change && scope;
  if (isPossible_) {
    const ChangeResult result = params_.show(*change, *scope);
    isPossible_ = result.refusal == ChangeRefusal::None;
    told = WideFromUtf8(TellResult(result));
  } else {
    params_.takeBack();
  }
  window.SetText(kResult, told);
  window.SetEnabled(kOk, isPossible_);
}

std::optional<ModeChange> DlgChangeSteps::ReadChange(const DialogWindow& window,
                                                     std::u16string& fault) const {
  const ChangeRow& row = ChosenRow(window);
  const auto first = ReadField(window, kFirst, row.first, fault);
  const auto second = ReadField(window, kSecond, row.second, fault);
  return first && second ? std::optional(row.make(*first, *second)) : std::nullopt;
}

std::optional<ChangeScope> DlgChangeSteps::ReadScope(const DialogWindow& window,
                                                     std::u16string& fault) const {
  const auto from = ReadEnd(window, kFrom, 0, fault);
  const auto to = ReadEnd(window, kTo, kMinutesPerDay - 1, fault);
  if (!from || !to) return std::nullopt;
  ChangeScope scope;
  const bool isWholeDay = *from == 0 && *to == kMinutesPerDay - 1;
  if (!isWholeDay) scope.span = TimeSpan{*from, *to};
  const std::int32_t which = window.SelectedData(kWhich);
  if (which == kSelectedSteps) scope.stepIds = params_.selected;
  if (which == kSelectedChannel) scope.channels = ChannelSet().set(static_cast<std::size_t>(params_.channel));
  return scope;
}

void DlgChangeSteps::OnOk(DialogWindow& window) {
  if (isPossible_) DlgBase::OnOk(window);
}

}  // namespace dialogs
