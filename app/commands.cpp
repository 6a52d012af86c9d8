// The table of commands and what looks into it. The handlers stand in file_commands.cpp, edit_commands.cpp,
// exchange_commands.cpp, device_commands.cpp, channel_commands.cpp, mode_commands.cpp and
// language_commands.cpp.

#include "app/commands.h"

#include <algorithm>
#include <iterator>

#include "app/numbers.h"
#include "program/endpoint.h"

namespace app {

namespace {

/// Told apart by number, not by row: which there are is up to the translations.
bool IsLanguage(int number) {
  return number >= command::kEnglish && number <= command::kLastLanguage;
}

}  // namespace

const Commands::Row Commands::kRows[] = {
    // File
    {command::kNewProgram, Undo::None, &Commands::NewProgram},
    {command::kLoadProgram, Undo::None, &Commands::LoadProgram},
    {command::kSaveProgram, Undo::None, &Commands::SaveProgram},
    {command::kSaveProgramAs, Undo::None, &Commands::SaveProgramAs},
    {command::kImportTmf, Undo::Snapshot, &Commands::ImportModes, Tmf},
    {command::kExportTmf, Undo::None, &Commands::ExportMode, Tmf},
    {command::kImportLmf, Undo::Snapshot, &Commands::ImportModes, Lmf},
    {command::kExportLmf, Undo::None, &Commands::ExportMode, Lmf},
    {command::kExportRaw, Undo::None, &Commands::ExportMode, Raw},
    {command::kProgramInfo, Undo::None, &Commands::ProgramInfo},
    {command::kExit, Undo::None, &Commands::Exit},
    // Edit
    {command::kUndo, Undo::None, &Commands::UndoChange},
    {command::kRedo, Undo::None, &Commands::RedoChange},
    // Device
    {command::kSyncTime, Undo::None, &Commands::SyncTime},
    {command::kSetTime, Undo::None, &Commands::SetTime},
    {command::kUploadProgram, Undo::None, &Commands::UploadProgram},
    {command::kClearAll, Undo::None, &Commands::ClearAll},
    {command::kPlayDemo, Undo::None, &Commands::PlayDemo},
    {command::kStopDemo, Undo::None, &Commands::StopDemo},
    {command::kSpeedFast, Undo::None, &Commands::SetDemoSpeed, 60},
    {command::kSpeedNormal, Undo::None, &Commands::SetDemoSpeed, 180},
    {command::kSpeedSlow, Undo::None, &Commands::SetDemoSpeed, 300},
    {command::kSpeedCustom, Undo::None, &Commands::AskDemoSpeed},
    {command::kScanWifi, Undo::None, &Commands::ScanWifi},
    {command::kSetupWifi, Undo::None, &Commands::SetupWifi},
    {command::kAddEmulator, Undo::None, &Commands::AddEmulator},
    // Channel. The first two make their own entries, as the same keys on the chart do.
    {command::kDeleteStep, Undo::None, &Commands::DeleteStep},
    {command::kToggleJump, Undo::None, &Commands::ToggleJump},
    {command::kCopySteps, Undo::Snapshot, &Commands::CopySteps},
    {command::kPasteSteps, Undo::Snapshot, &Commands::PasteSteps},
    {command::kMoveStepsUp, Undo::None, &Commands::MoveSteps, false},
    {command::kMoveStepsDown, Undo::None, &Commands::MoveSteps, true},
    {command::kClearSteps, Undo::Snapshot, &Commands::ClearSteps},
    {command::kManualStepsAdd, Undo::None, &Commands::AddManualSteps},
    {command::kManualStepsEdit, Undo::None, &Commands::EditManualSteps},
    {command::kRenameChannel, Undo::None, &Commands::EditChannel},
    {command::kChannelColor, Undo::Snapshot, &Commands::NextColor},
    // Mode
    {command::kOptimizeForTC421, Undo::Snapshot, &Commands::OptimizeForTC421},
    {command::kEndpointStart, Undo::None, &Commands::AddEndpoint, TCBase::Program::kDayStart},
    {command::kEndpointEnd, Undo::None, &Commands::AddEndpoint, TCBase::Program::kDayEnd},
    {command::kAlign3, Undo::Snapshot, &Commands::Align, 3},
    {command::kAlign5, Undo::Snapshot, &Commands::Align, 5},
    {command::kAlign10, Undo::Snapshot, &Commands::Align, 10},
    {command::kAlign15, Undo::Snapshot, &Commands::Align, 15},
    {command::kAlign30, Undo::Snapshot, &Commands::Align, 30},
    {command::kAlign60, Undo::Snapshot, &Commands::Align, 60},
    // Help
    {command::kLogging, Undo::None, &Commands::ToggleLogging},
    {command::kKnownIssues, Undo::None, &Commands::ShowKnownIssues},
    {command::kExportTranslation, Undo::None, &Commands::OnExportTranslation},
    {command::kTestTranslation, Undo::None, &Commands::OnTestTranslation},
    {command::kAbout, Undo::None, &Commands::ShowAbout},
    // No menu item
    {command::kZoomIn, Undo::None, &Commands::ZoomIn},
    {command::kZoomOut, Undo::None, &Commands::ZoomOut},
    {command::kZoomAll, Undo::None, &Commands::ShowHours, 24},
    {command::kPanBack, Undo::None, &Commands::Pan, -900},
    {command::kPanForward, Undo::None, &Commands::Pan, 900},
    // Any distance stops at the ends of the day.
    {command::kPanToStart, Undo::None, &Commands::Pan, -TCBase::Program::kSecondsPerDay},
    {command::kPanToEnd, Undo::None, &Commands::Pan, TCBase::Program::kSecondsPerDay},
    {command::kRandomMode, Undo::None, &Commands::AddRandomMode},
    {command::kMergeTranslations, Undo::None, &Commands::OnMergeTranslation},
};

const Commands::ControlCommand Commands::kControlCommands[] = {
    {control_id::kModeList, kListSelectionChanged, &Commands::SelectMode},
    {control_id::kModeList, kListDoubleClick, &Commands::EditMode},
    {control_id::kAddMode, kAnyCode, &Commands::AddMode},
    {control_id::kDeleteMode, kAnyCode, &Commands::DeleteMode},
    {control_id::kDeviceList, kListSelectionChanged, &Commands::ReadDeviceSelection},
    {control_id::kDeviceList, kListDoubleClick, &Commands::RenameDevice},
    {control_id::kPlay, kAnyCode, &Commands::PlayDemo},
    {control_id::kStop, kAnyCode, &Commands::StopDemo},
};

void Commands::Dispatch(int id, int code) {
  for (const ControlCommand& row : kControlCommands) {
    if (row.id != id || (row.code != code && row.code != kAnyCode)) continue;
    return (this->*row.handler)(row.argument);
  }
  if (IsLanguage(id)) return OnLanguageCommand(id);
  const Row* row = Find(id);
  if (row == nullptr) return;
  if (row->undo == Undo::Snapshot) state_.undoStack.Snapshot();
  fromKey_ = code == kFromKey;
  (this->*row->handler)(row->argument);
}

bool Commands::IsServed(int number) {
  return IsLanguage(number) || Find(number) != nullptr;
}

const Commands::Row* Commands::Find(int number) {
  const auto found = std::find_if(std::begin(kRows), std::end(kRows),
                                  [number](const Row& row) { return row.number == number; });
  return found == std::end(kRows) ? nullptr : found;
}

}  // namespace app
