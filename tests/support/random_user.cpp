#include "tests/support/random_user.h"

#include <array>
#include <stdexcept>

#include "common/files.h"
#include "common/platform.h"
#include "dialogs/dialog.h"
#include "dialogs/dialog_template.h"

namespace {

using dialogs::ControlKind;
using dialogs::ControlTemplate;
namespace trait = dialogs::trait;

constexpr int kMostDialogSteps = 400;

// Names that scripts, file systems and other programs stumble over.
constexpr const char* kFileNames[] = {"a.xml",      "b.xml",        "day.tmf",
                                      "day.lmf",    "day.csv",      "Žluť 日の出 🐠.xml",
                                      "report.zip", "no extension", "texts.xml"};

constexpr const char* kTexts[] = {
    "",
    " ",
    "Reef",
    "Sunset & <dusk> \"'",
    "Žluťoučký kůň",
    "日の出と月",
    "🐠🪸 reef 🌊🐠🪸 reef 🌊",
    "\u202Eשקיעה של הים\u202C",
    "e\u0301b\u0308\u0301\u0301\u0301",
    "\x01\x02\x07\x1B[31m\x7F",
    "tab\there",
    "two\nlines",
    "{1} {2} %s %n",
    "&&&&",
    "\xED\xA0\x80 half a pair \xED\xB0\x80",
    "\xFF\xFE no text",
    "../../etc/passwd",
    "C:\\nowhere\\x.xml",
    "]]><![CDATA[",
    "NaN",
};

constexpr const char* kNumbers[] = {"0",
                                    "1",
                                    "-1",
                                    "50",
                                    "100",
                                    "101",
                                    "2147483648",
                                    "-2147483649",
                                    "1e308",
                                    "1e-45",
                                    "NaN",
                                    "-inf",
                                    "0x10",
                                    "1,5",
                                    "62.5",
                                    "99999999999999999999999999",
                                    "24:00",
                                    "23:59",
                                    "-0:01",
                                    "8:60",
                                    "٣٤",
                                    "12",
                                    "60",
                                    "180",
                                    "08:00 40",
                                    "25:61 -7 J",
                                    "00:00-23:59",
                                    "12:00 100 J\n12:00 0",
                                    "06:00 0\n09:30 85\n20:00 85 J\n21:00 0"};

// What the user can get to and do something with.
bool IsReachable(const ControlTemplate& row, const SeenControl& seen) {
  return seen.visible && seen.enabled && !Has(row, trait::kReadOnly) && !Has(row, trait::kNoTabStop) &&
         row.kind != ControlKind::Label && row.kind != ControlKind::GroupBox &&
         row.kind != ControlKind::ProgramIcon;
}

// The template of a dialog, told by its controls: titles are in the language in use.
const dialogs::DialogTemplate* TemplateOf(const SeenDialog& dialog) {
  for (const dialogs::DialogTemplate& form : dialogs::Templates()) {
    std::size_t known = 0;
    bool hasAll = true;
    for (const ControlTemplate& row : form.controls) {
      if (row.id == dialogs::kNoControl) continue;
      ++known;
      hasAll = hasAll && dialog.controls.contains(row.id);
    }
    if (hasAll && known == dialog.controls.size()) return &form;
  }
  return nullptr;
}

std::vector<int> ControlsOf(const SeenDialog& dialog) {
  std::vector<int> controls;
  for (const auto& [id, seen] : dialog.controls) controls.push_back(id);
  return controls;
}

}  // namespace

RandomUser::RandomUser(User& user, Place place, std::vector<DeedRow> more)
    : user_(user), place_(std::move(place)), rows_(CommonDeeds()) {
  for (std::vector<DeedRow>* rows : {&more}) rows_.insert(rows_.end(), rows->begin(), rows->end());
  const std::vector<DeedRow> files = FileDeeds();
  rows_.insert(rows_.end(), files.begin(), files.end());
  user_.WillImprovise(this);
}

RandomUser::~RandomUser() {
  user_.WillImprovise(nullptr);
}

Habits RandomUser::GetHabits() const {
  Habits habits;
  for (const DeedRow& row : rows_) habits.push_back(row.habit);
  return habits;
}

void RandomUser::Begin() {
  dialog_.clear();
  steps_ = 0;
}

std::string RandomUser::Do(const Deed& deed) {
  dice_ = Dice(deed.chance);
  Begin();
  std::string told;
  for (const DeedRow& row : rows_) {
    if (row.habit.word == deed.word) told = row.act(*this);
  }
  if (!user_.IsRunning()) {
    user_.StartWith({});
    told += ", started anew";
  }
  // What he saw is of no use to him, and would only grow.
  user_.Questions();
  user_.Dialogs();
  return told;
}

void RandomUser::DoNow(std::uint64_t chance, const std::function<void()>& act) {
  dice_ = Dice(chance);
  Begin();
  act();
}

std::filesystem::path RandomUser::AnyFile() {
  return place_.folder / PathFromUtf8(dice_.AnyOf(kFileNames));
}

std::pair<int, int> RandomUser::AnyPoint() {
  if (place_.pointOfInterest && dice_.OneIn(2)) {
    if (const auto point = place_.pointOfInterest(dice_)) return *point;
  }
  const Rect chart = user_.Place(app::Control::ChartWindow);
  return {dice_.Between(-10, chart.width + 10), dice_.Between(-10, chart.height + 10)};
}

std::string RandomUser::AnyText() {
  if (dice_.OneIn(30)) return std::string(static_cast<std::size_t>(dice_.Between(16, 300)), 'w');
  return dice_.OneIn(6) ? AnyNumbers() : dice_.AnyOf(kTexts);
}

std::string RandomUser::AnyNumbers() {
  if (dice_.OneIn(3)) return dice_.AnyOf(kNumbers);
  if (dice_.OneIn(2)) return std::to_string(dice_.Below(101));
  return std::to_string(dice_.Below(24)) + ":" + std::to_string(dice_.Between(10, 59));
}

app::Answer RandomUser::Answer(const app::Question& question) {
  using enum app::Answer;
  constexpr std::array kYesNo{Yes, No};
  constexpr std::array kYesNoCancel{Yes, No, Cancel};
  switch (question.buttons) {
    case app::Buttons::YesNo:
      return dice_.AnyOf(kYesNo);
    case app::Buttons::YesNoCancel:
      return dice_.AnyOf(kYesNoCancel);
    default:
      return Ok;
  }
}

std::vector<std::filesystem::path> RandomUser::Pick() {
  if (dice_.OneIn(5)) return {};
  std::filesystem::path file = AnyFile();
  // A file that is not there is no file to a window of the system, which then goes on asking.
  if (std::error_code ignored; place_.isReal && !is_regular_file(file, ignored)) {
    remove_all(file, ignored);
    copy_file(place_.samples, file, ignored);
  }
  return {file};
}

DialogStep RandomUser::NextStep(const SeenDialog& dialog) {
  using namespace in_dialog;
  if (std::vector<int> controls = ControlsOf(dialog); controls != dialog_) {
    dialog_ = std::move(controls);
    patience_ = dice_.Below(8);
    steps_ = 0;
  }
  if (++steps_ > kMostDialogSteps)
    throw std::runtime_error("the dialog \"" + dialog.title + "\" cannot be left");
  const dialogs::DialogTemplate* const form = TemplateOf(dialog);
  std::vector<const ControlTemplate*> reachable;
  if (form != nullptr) {
    for (const ControlTemplate& row : form->controls) {
      const auto seen = dialog.controls.find(row.id);
      if (seen != dialog.controls.end() && IsReachable(row, seen->second)) reachable.push_back(&row);
    }
  }
  if (reachable.empty() || steps_ > patience_ + 3) return PressEscape();
  if (steps_ > patience_) {
    const auto ok = dialog.controls.find(dialogs::kOk);
    if (dice_.OneIn(3)) return PressEscape();
    if (ok != dialog.controls.end() && ok->second.visible && ok->second.enabled) return Press(dialogs::kOk);
    return PressEnter();
  }
  if (dice_.OneIn(12)) {
    return Meanwhile([seconds = dice_.Below(3)] { platform::SleepMilliseconds(20 + seconds * 400); });
  }
  const ControlTemplate& row = *dice_.AnyOf(reachable);
  const SeenControl& seen = dialog.controls.at(row.id);
  switch (row.kind) {
    case ControlKind::Edit: {
      const std::string text = dice_.OneIn(3) ? AnyText() : AnyNumbers();
      return dice_.OneIn(2) ? Paste(row.id, text) : Type(row.id, text);
    }
    case ControlKind::ComboBox:
      if (seen.rows.empty() || dice_.OneIn(3)) return Type(row.id, AnyText());
      [[fallthrough]];
    case ControlKind::ListBox:
    case ControlKind::DropDownList:
      if (seen.rows.empty()) return GoTo(row.id);
      return in_dialog::Pick(row.id,
                             dice_.Below(static_cast<int>(std::min<std::size_t>(seen.rows.size(), 90))));
    case ControlKind::DateTimePicker:
      return SetDateTime(row.id,
                         {dice_.Between(seen.time.year - 3, seen.time.year + 3), dice_.Between(1, 12),
                          dice_.Between(1, 28), dice_.Below(24), dice_.Below(60), dice_.Below(60), 0});
    case ControlKind::Button:
      if (Has(row, trait::kLink) && place_.isReal) return GoTo(row.id);
      return Press(row.id);
    default:
      return GoTo(row.id);
  }
}
