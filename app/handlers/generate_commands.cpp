#include "app/handlers/generate_commands.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "app/document/preview.h"
#include "app/document/save_question.h"
#include "common/files.h"
#include "common/log.h"
#include "common/message.h"
#include "common/platform.h"
#include "dialogs/dlg_generate.h"
#include "program/generate/season.h"
#include "program/generate/series.h"
#include "program/mode_commands.h"

namespace app {

using namespace TCBase::Program;
namespace generate = TCBase::Program::Generate;

namespace {

constexpr Parts kShown = part::kChart | part::kModeList | part::kPower;

// The place that was asked for last; at first one where days are long all year.
constexpr char kPlaceSetting[] = "place";
constexpr char kFirstPlace[] = "Asia/Singapore";

constexpr FileFilter kProgramFilter{u"XML Program", u"*.XML"};

// The day that a dialog tells, shown on the chart while it stands open, as a mode behind all others.
class ShownDay {
 public:
  ShownDay(AppState& state, dialogs::GenerateParams& params)
      : state_(state),
        preview_(
            state.selection, state.undoStack, [&state](Parts parts) { state.Refresh(parts); }, kShown) {
    params.today = generate::DateOf(platform::LocalTime());
    params.show = [this](const generate::Generated* day) { Show(day); };
  }

  void TakeBack() { preview_.TakeBack(); }

  Changed Keep() {
    if (!preview_.Keep()) return Changed::No;
    ForgetSelection(state_.selection);
    LogStatus(Message("Added new mode: {1}", day_.mode.name));
    LogStatus(dialogs::FitText(day_));
    return Changed::Yes;
  }

 private:
  void Show(const generate::Generated* day) {
    if (day == nullptr) return preview_.TakeBack();
    day_ = *day;
    preview_.Show([this](ModeListView& program) {
      RenumberSteps(day_.mode);
      AppendMode(program, day_.mode);
    });
  }

  AppState& state_;
  Preview preview_;
  generate::Generated day_;
};

bool IsOk(dialogs::DlgBase&& dialog) {
  return dialog.DoModal() == dialogs::kOk;
}

dialogs::SunParams SunDialog(const CommandContext& context) {
  dialogs::SunParams params;
  params.place = context.shell.settings.FindValue(kPlaceSetting);
  if (params.place.empty()) params.place = kFirstPlace;
  return params;
}

// Files that exist are replaced only if the user says so; the question names the first of them.
void SaveFiles(const CommandContext& context, const std::vector<generate::SeriesFile>& files) {
  std::filesystem::path path = files.front().name;
  if (!context.shell.questions.AskSaveFile(kProgramFilter, path)) return;
  const std::filesystem::path folder = path.parent_path();
  generate::SeriesSaved saved = generate::SaveSeries(folder, files, false);
  if (saved.outcome == generate::SeriesSaved::Exists) {
    if (!AskToReplace(context.shell.questions, saved.path)) return;
    saved = generate::SaveSeries(folder, files, true);
  }
  if (saved.outcome == generate::SeriesSaved::Done)
    LogStatus(
        Message("Saved {2} programs in {1}", Utf8FromPath(folder), static_cast<std::int32_t>(files.size())));
}

std::vector<generate::SeriesFile> WeeksOf(const ModeListView& program, const dialogs::SunParams& params) {
  const std::chrono::year year = params.light.date.year();
  std::vector<generate::SeriesFile> files;
  for (generate::Generated& week :
       generate::MakeSeason(params.light, generate::WeeklyUtcOffsets(*params.clock, year))) {
    files.push_back({generate::WeekFileName(static_cast<int>(files.size()) + 1), program});
    AppendMode(files.back().document, std::move(week.mode));
  }
  return files;
}

std::vector<generate::SeriesFile> DaysOf(const ModeListView& program,
                                         const generate::Acclimation& acclimation) {
  std::vector<generate::SeriesFile> files;
  for (int day = 1; day <= acclimation.days; ++day) {
    ModeListView& document =
        files.emplace_back(generate::SeriesFile{generate::DayFileName(day), program}).document;
    CurrentMode(document) = generate::MakeAcclimationDay(CurrentMode(program), acclimation, day).mode;
  }
  return files;
}

}  // namespace

Changed NewFromSun(CommandContext& context) {
  dialogs::SunParams params = SunDialog(context);
  ShownDay day(context.state, params);
  if (!IsOk(dialogs::DlgSun(context.shell.dialogs, params, dialogs::DlgSun::Of::Day))) return Changed::No;
  context.shell.settings.SetValue(kPlaceSetting, params.place);
  return day.Keep();
}

Changed NewFromMoon(CommandContext& context) {
  const Mode others = context.state.CurrentMode();
  dialogs::MoonParams params;
  params.others = &others;
  ShownDay day(context.state, params);
  return IsOk(dialogs::DlgMoon(context.shell.dialogs, params)) ? day.Keep() : Changed::No;
}

Changed NewFromRampDay(CommandContext& context) {
  dialogs::RampDayParams params;
  ShownDay day(context.state, params);
  return IsOk(dialogs::DlgRampDay(context.shell.dialogs, params)) ? day.Keep() : Changed::No;
}

Changed NewFromAcclimation(CommandContext& context) {
  const ModeListView program = context.state.program;
  dialogs::AcclimationParams params;
  params.full = &CurrentMode(program);
  ShownDay day(context.state, params);
  if (!IsOk(dialogs::DlgAcclimation(context.shell.dialogs, params))) return Changed::No;
  if (!params.eachDay) return day.Keep();
  day.TakeBack();
  SaveFiles(context, DaysOf(program, params.acclimation));
  return Changed::No;
}

Changed NewFromSeason(CommandContext& context) {
  const ModeListView program = context.state.program;
  dialogs::SunParams params = SunDialog(context);
  ShownDay day(context.state, params);
  if (!IsOk(dialogs::DlgSun(context.shell.dialogs, params, dialogs::DlgSun::Of::Season))) return Changed::No;
  day.TakeBack();
  context.shell.settings.SetValue(kPlaceSetting, params.place);
  SaveFiles(context, WeeksOf(program, params));
  return Changed::No;
}

}  // namespace app
