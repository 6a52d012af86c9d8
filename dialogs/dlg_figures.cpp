#include "dialogs/dlg_figures.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "common/message.h"
#include "dialogs/dialog_template.h"
#include "dialogs/read_text.h"
#include "dialogs/template_texts.h"
#include "program/figures/amount.h"
#include "program/figures/figures_table.h"

namespace dialogs {

namespace {

using namespace figures_control;
using namespace TCBase::Program;

constexpr std::size_t kColumnLetters = 11;
constexpr std::int32_t kFieldLength = 12;

// A field that holds no number.
struct Fault {
  int control;
  std::string text;
  std::int32_t most;
};

// Calls `action(control, fact)` for each field but that of the level, in the order of the fields.
template <class Facts, class Action>
void ForEachAmount(Facts& facts, const Action& action) {
  for (std::size_t i = 0; i < kChannelCount; ++i) action(kFirstWatts + static_cast<int>(i), facts.watts[i]);
  for (std::size_t i = 0; i < kChannelCount; ++i) action(kFirstPar + static_cast<int>(i), facts.par[i]);
  action(kPrice, facts.price);
}

// What the fields say; those that hold no number leave what stands in `facts`. Answers the first of them.
std::optional<Fault> ReadFields(const DialogWindow& window, LampFacts& facts) {
  std::optional<Fault> fault;
  const auto read = [&](int control, double& fact, const auto& parse, double most) {
    const std::string text = Utf8FromWide(ReadText(window, control));
    const std::optional<double> number = parse(text);
    if (number) fact = *number;
    if (!number && !fault) fault = {control, text, static_cast<std::int32_t>(most)};
  };
  ForEachAmount(facts, [&](int control, double& fact) { read(control, fact, ParseAmount, kMostAmount); });
  read(kLevel, facts.level, ParseLevel, kMostPercent);
  return fault;
}

std::u16string TextOf(const std::vector<TableRow>& table) {
  std::string text;
  for (const TableRow& row : table) {
    for (std::size_t i = 0; i < row.size(); ++i) text += (i == 0 ? "" : "\t") + row[i];
    if (&row != &table.back()) text += "\r\n";
  }
  return WideFromUtf8(text);
}

}  // namespace

DlgFigures::DlgFigures(DialogsPort& port, FiguresParams& params)
    : DlgBase(port, template_id::kFigures), params_(params) {}

void DlgFigures::OnInit(DialogWindow& window) {
  TranslateTemplateTexts(window, templateId);
  window.SetTitle(Message("Figures of mode {1}", CurrentMode(params_.document).name).ToWide());
  window.SetTabStops(kTable, kFiguresFirstColumn, kFiguresColumn);
  NameColumns(window);
  FillFields(window);
  filled_ = true;
  ShowFigures(window);
}

void DlgFigures::NameColumns(DialogWindow& window) {
  int column = 0;
  for (const std::string& name : ColumnNames(params_.document, kColumnLetters)) {
    window.SetText(kFirstName + column, WideFromUtf8(name));
    window.SetText(kFirstWattsName + column, Message("{1}: watts at 100 %", name).ToWide());
    window.SetText(kFirstParName + column, Message("{1}: PAR at 100 %", name).ToWide());
    ++column;
  }
}

void DlgFigures::FillFields(DialogWindow& window) {
  const auto fill = [&](int control, const std::string& text) {
    window.LimitText(control, kFieldLength);
    window.SetText(control, WideFromUtf8(text));
  };
  ForEachAmount(params_.facts, [&](int control, double fact) { fill(control, AmountText(fact)); });
  fill(kLevel, LevelText(params_.facts.level));
}

void DlgFigures::OnControl(DialogWindow& window, int control, int code) {
  if (code == kTextChanged && filled_ && control != kTable) ShowFigures(window);
}

void DlgFigures::ShowFigures(DialogWindow& window) {
  LampFacts facts;
  const std::optional<Fault> fault = ReadFields(window, facts);
  const ModeFigures figures = FiguresOf(CurrentMode(params_.document), facts);
  window.SetText(kTable, TextOf(FiguresTable(ColumnNames(params_.document, kColumnLetters), figures, facts)));
  window.SetText(kNote,
                 fault ? Message("\"{1}\" is not a number from 0 to {2}.", fault->text, fault->most).ToWide()
                       : WideFromUtf8(FiguresNote()));
}

void DlgFigures::OnOk(DialogWindow& window) {
  LampFacts facts;
  if (const std::optional<Fault> fault = ReadFields(window, facts)) return window.GiveFocus(fault->control);
  params_.facts = facts;
  DlgBase::OnOk(window);
}

}  // namespace dialogs
