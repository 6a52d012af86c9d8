#include "app/commands.h"

#include "app/handlers/change_steps.h"
#include "app/handlers/channel_commands.h"
#include "app/handlers/command_context.h"
#include "app/handlers/device_commands.h"
#include "app/handlers/edit_commands.h"
#include "app/handlers/exchange_commands.h"
#include "app/handlers/file_commands.h"
#include "app/handlers/generate_commands.h"
#include "app/handlers/help_commands.h"
#include "app/handlers/language_commands.h"
#include "app/handlers/mode_commands.h"
#include "app/handlers/view_commands.h"
#include "app/window/numbers.h"
#include "program/endpoint.h"
#include "program/templates.h"

namespace app {

namespace {

using namespace TCBase::Program;
using enum When;
using Undo::ByHandler;
using Undo::Snapshot;

constexpr Parts kSteps = part::kChart | part::kDescription;
constexpr Parts kModes = part::kChart | part::kModeList;
constexpr Parts kMade = kModes | part::kPower;
constexpr Parts kAfterHistory = part::kModeList | part::kPower | part::kRenderer | part::kChart;
constexpr Parts kView = part::kRenderer | part::kChart | part::kScrollBar | part::kZoomSlider;
// The zoom slider's label and the window's title stay as they are.
constexpr Parts kLanguage = part::kTexts | part::kRenderer | part::kChart | part::kModeList;
constexpr int kPanStep = 15 * 60;

constexpr TextKey kTemplates("New from template");
constexpr TextKey kDemoSpeed("Demo speed");
constexpr TextKey kEndpoints("Add endpoint steps");
constexpr TextKey kAlignment("Align steps");
constexpr TextKey kNewFrom("New from ...");

// clang-format off
constexpr Command kCommands[] = {
    // File
    {.number = command::kNewProgram, .text = TextKey("New Program"), .menu = menu::kFile, .when = WithoutDemo,
     .handler = NewProgram, .always = part::kRenderer},
    {.number = command::kLoadProgram, .text = TextKey("Load Program"), .menu = menu::kFile, .when = WithoutDemo,
     .handler = LoadProgram, .always = part::kRenderer},
    {.number = command::kSaveProgram, .text = TextKey("Save Program"), .menu = menu::kFile, .handler = SaveProgram},
    {.number = command::kSaveProgramAs, .text = TextKey("Save Program As"), .menu = menu::kFile,
     .handler = SaveProgramAs},
    {.number = command::kImportTmf, .text = TextKey("Import TMF"), .suffix = " (PLED)", .menu = menu::kFile,
     .beginsGroup = true, .undo = Snapshot, .handler = With<ImportModes, &kTmf>, .refreshes = kModes},
    {.number = command::kExportTmf, .text = TextKey("Export TMF"), .suffix = " (PLED)", .menu = menu::kFile,
     .handler = With<ExportMode, &kTmf>},
    {.number = command::kImportLmf, .text = TextKey("Import LMF"), .suffix = " (LEDControl)", .menu = menu::kFile,
     .beginsGroup = true, .undo = Snapshot, .handler = With<ImportModes, &kLmf>, .refreshes = kModes},
    {.number = command::kExportLmf, .text = TextKey("Export LMF"), .suffix = " (LEDControl)", .menu = menu::kFile,
     .handler = With<ExportMode, &kLmf>},
    {.number = command::kExportRaw, .text = TextKey("Export RAW"), .menu = menu::kFile, .beginsGroup = true,
     .handler = With<ExportMode, &kRaw>},
    {.number = command::kProgramInfo, .text = TextKey("Program info"), .menu = menu::kFile, .beginsGroup = true,
     .handler = ShowProgramInfo},
    {.number = command::kExit, .text = TextKey("Exit"), .menu = menu::kFile, .beginsGroup = true, .handler = Exit},
    {.number = command::kReefTemplate, .text = TextKey("Reef"), .menu = menu::kFile, .submenu = kTemplates,
     .beginsGroup = true, .when = WithoutDemo, .handler = With<NewFromTemplate, &kReefTemplate>, .always = part::kRenderer},
    {.number = command::kPlantedTankTemplate, .text = TextKey("Planted tank"), .menu = menu::kFile, .submenu = kTemplates,
     .when = WithoutDemo, .handler = With<NewFromTemplate, &kPlantedTankTemplate>, .always = part::kRenderer},
    {.number = command::kSeedlingsTemplate, .text = TextKey("Seedlings"), .menu = menu::kFile, .submenu = kTemplates,
     .when = WithoutDemo, .handler = With<NewFromTemplate, &kSeedlingsTemplate>, .always = part::kRenderer},
    {.number = command::kRefugiumTemplate, .text = TextKey("Refugium"), .menu = menu::kFile, .submenu = kTemplates,
     .when = WithoutDemo, .handler = With<NewFromTemplate, &kRefugiumTemplate>, .always = part::kRenderer},
    {.number = command::kBlackwaterTemplate, .text = TextKey("Blackwater"), .menu = menu::kFile, .submenu = kTemplates,
     .when = WithoutDemo, .handler = With<NewFromTemplate, &kBlackwaterTemplate>, .always = part::kRenderer},

    // Edit
    {.number = command::kUndo, .text = TextKey("Undo"), .menu = menu::kEdit, .keys = {Ctrl('Z')},
     .when = WithoutDemo, .handler = UndoChange, .refreshes = kAfterHistory},
    {.number = command::kRedo, .text = TextKey("Redo"), .menu = menu::kEdit, .keys = {Ctrl('Y')},
     .when = WithoutDemo, .handler = RedoChange, .refreshes = kAfterHistory},
    {.number = command::kSelectAllSteps, .text = TextKey("Select all steps"), .menu = menu::kEdit,
     .beginsGroup = true, .keys = {Ctrl('A')}, .when = WithoutDemo, .handler = SelectAllSteps,
     .refreshes = part::kPower | part::kDescription},
    {.number = command::kCarefulMouse, .text = TextKey("Careful mouse"), .menu = menu::kEdit, .beginsGroup = true,
     .setting = kCarefulMouseSetting, .handler = ToggleCarefulMouse},

    // Device
    {.number = command::kSyncTime, .text = TextKey("Sync time"), .menu = menu::kDevice, .when = WithoutDemo,
     .handler = SyncTime},
    {.number = command::kSetTime, .text = TextKey("Set time"), .menu = menu::kDevice, .when = WithoutDemo,
     .handler = SetTime},
    {.number = command::kUploadProgram, .text = TextKey("Upload program"), .menu = menu::kDevice,
     .when = WithoutDemo, .handler = UploadProgram},
    {.number = command::kClearAll, .text = TextKey("Clear all"), .menu = menu::kDevice, .beginsGroup = true,
     .when = WithoutDemo, .handler = ClearAll},
    {.number = command::kPlayDemo, .text = TextKey("Play demo"), .menu = menu::kDevice, .beginsGroup = true,
     .when = WithoutDemo, .handler = PlayOrPauseDemo, .always = part::kMenusInDemo},
    {.number = command::kStopDemo, .text = TextKey("Stop demo"), .menu = menu::kDevice, .when = DuringDemo,
     .handler = StopDemo, .always = part::kMenusAtRest},
    {.number = command::kSpeedFast, .text = TextKey("Fast (60 secs)"), .menu = menu::kDevice, .submenu = kDemoSpeed,
     .when = WithoutDemo, .handler = ChooseDemoSpeed},
    {.number = command::kSpeedNormal, .text = TextKey("Normal (180 secs)"), .menu = menu::kDevice,
     .submenu = kDemoSpeed, .when = WithoutDemo, .handler = ChooseDemoSpeed},
    {.number = command::kSpeedSlow, .text = TextKey("Slow (300 secs)"), .menu = menu::kDevice, .submenu = kDemoSpeed,
     .when = WithoutDemo, .handler = ChooseDemoSpeed},
    {.number = command::kSpeedCustom, .text = TextKey("Custom..."), .menu = menu::kDevice, .submenu = kDemoSpeed,
     .beginsGroup = true, .when = WithoutDemo, .handler = AskDemoSpeed},
    {.number = command::kScanWifi, .text = TextKey("Scan WiFi devices"), .menu = menu::kDevice, .beginsGroup = true,
     .when = WithoutDemo, .handler = ScanWifi},
    {.number = command::kSetupWifi, .text = TextKey("Setup TC421 WiFi"), .menu = menu::kDevice, .beginsGroup = true,
     .when = WithoutDemo, .handler = SetupWifi},
    {.number = command::kAddEmulator, .text = TextKey("Add emulator"), .menu = menu::kDevice, .beginsGroup = true,
     .handler = AddEmulator, .refreshes = part::kDeviceList},

    // Channel. The first two have the chart itself repaint what they change, as the same keys on the chart do.
    {.number = command::kDeleteStep, .text = TextKey("Delete step"), .menu = menu::kChannel,
     .keys = {Key(key::kDelete), Key(key::kBackspace)}, .needsStep = true, .undo = ByHandler, .handler = DeleteStep,
     .refreshes = part::kPower | part::kDescription},
    {.number = command::kToggleJump, .text = TextKey("Toggle step jump type"), .menu = menu::kChannel,
     .beginsGroup = true, .needsStep = true, .undo = ByHandler, .handler = ToggleJump},
    {.number = command::kCopySteps, .text = TextKey("Copy steps"), .menu = menu::kChannel, .beginsGroup = true,
     .undo = Snapshot, .handler = CopySteps, .refreshes = part::kChart},
    {.number = command::kPasteSteps, .text = TextKey("Paste steps"), .menu = menu::kChannel, .undo = Snapshot,
     .handler = PasteSteps, .refreshes = kSteps},
    {.number = command::kMoveStepsUp, .text = TextKey("Move all steps up"), .menu = menu::kChannel,
     .beginsGroup = true, .undo = ByHandler, .handler = MoveStepsUp, .refreshes = part::kChart},
    {.number = command::kMoveStepsDown, .text = TextKey("Move all steps down"), .menu = menu::kChannel,
     .undo = ByHandler, .handler = MoveStepsDown, .refreshes = part::kChart},
    {.number = command::kClearSteps, .text = TextKey("Clear all steps"), .menu = menu::kChannel, .undo = Snapshot,
     .handler = ClearSteps, .refreshes = kSteps},
    {.number = command::kManualStepsAdd, .text = TextKey("Manual steps add..."), .menu = menu::kChannel,
     .beginsGroup = true, .undo = ByHandler, .handler = AddTypedSteps, .refreshes = kSteps, .always = part::kFocus},
    {.number = command::kManualStepsEdit, .text = TextKey("Manual steps edit..."), .menu = menu::kChannel,
     .undo = ByHandler, .handler = EditTypedSteps, .refreshes = kSteps, .always = part::kFocus},
    {.number = command::kRenameChannel, .text = TextKey("Rename channel"), .menu = menu::kChannel,
     .beginsGroup = true, .undo = ByHandler, .handler = RenameChannel, .refreshes = part::kRenderer | part::kChart,
     .always = part::kFocus},
    {.number = command::kChannelColor, .text = TextKey("Change channel color"), .menu = menu::kChannel,
     .undo = Snapshot, .handler = ChangeColor, .refreshes = part::kLane, .always = part::kRenderer | part::kFocus},
    {.number = command::kStepTable, .text = TextKey("Step table"), .menu = menu::kChannel, .beginsGroup = true,
     .keys = {Ctrl('T')}, .handler = ShowStepTable},
    {.number = command::kChangeSteps, .text = TextKey("Change steps..."), .menu = menu::kChannel, .beginsGroup = true,
     .undo = ByHandler, .handler = ChangeSteps, .refreshes = kSteps | part::kPower, .always = part::kFocus},

    // Mode
    {.number = command::kOptimizeForTC421, .text = TextKey("Optimize mode for TC421"), .menu = menu::kMode,
     .undo = Snapshot, .handler = OptimizeModeForTC421, .refreshes = kSteps},
    {.number = command::kEndpointStart, .text = TextKey("At the start (00:00)"), .menu = menu::kMode,
     .submenu = kEndpoints, .beginsGroup = true, .undo = ByHandler, .handler = With<AddEndpoint, kDayStart>, .refreshes = kSteps},
    {.number = command::kEndpointEnd, .text = TextKey("At the end (23:59)"), .menu = menu::kMode,
     .submenu = kEndpoints, .undo = ByHandler, .handler = With<AddEndpoint, kDayEnd>, .refreshes = kSteps},
    {.number = command::kAlign3, .text = TextKey("3 minute intervals"), .menu = menu::kMode, .submenu = kAlignment,
     .beginsGroup = true, .undo = Snapshot, .handler = With<Align, 3>, .refreshes = kSteps},
    {.number = command::kAlign5, .text = TextKey("5 minute intervals"), .menu = menu::kMode, .submenu = kAlignment,
     .undo = Snapshot, .handler = With<Align, 5>, .refreshes = kSteps},
    {.number = command::kAlign10, .text = TextKey("10 minute intervals"), .menu = menu::kMode, .submenu = kAlignment,
     .undo = Snapshot, .handler = With<Align, 10>, .refreshes = kSteps},
    {.number = command::kAlign15, .text = TextKey("15 minute intervals"), .menu = menu::kMode, .submenu = kAlignment,
     .undo = Snapshot, .handler = With<Align, 15>, .refreshes = kSteps},
    {.number = command::kAlign30, .text = TextKey("30 minute intervals"), .menu = menu::kMode, .submenu = kAlignment,
     .undo = Snapshot, .handler = With<Align, 30>, .refreshes = kSteps},
    {.number = command::kAlign60, .text = TextKey("1 hour intervals"), .menu = menu::kMode, .submenu = kAlignment,
     .undo = Snapshot, .handler = With<Align, 60>, .refreshes = kSteps},
    {.number = command::kCompareWithSaved, .text = TextKey("Compare with what was saved"), .menu = menu::kMode,
     .beginsGroup = true, .handler = CompareWithSaved, .refreshes = part::kChart},
    {.number = command::kCompareWithThis, .text = TextKey("Compare others with this mode"), .menu = menu::kMode,
     .handler = CompareWithThis, .refreshes = part::kChart},
    {.number = command::kLightStrip, .text = TextKey("Show light strip"), .menu = menu::kMode,
     .setting = Settings::kLightStrip, .handler = ToggleLightStrip, .refreshes = part::kRenderer | part::kChart},
    {.number = command::kFigures, .text = TextKey("Figures..."), .menu = menu::kMode, .beginsGroup = true,
     .handler = ShowFigures},
    {.number = command::kNewFromSun, .text = TextKey("Sun over a place"), .menu = menu::kMode, .submenu = kNewFrom,
     .beginsGroup = true, .when = WithoutDemo, .undo = ByHandler, .handler = NewFromSun, .refreshes = kMade,
     .always = part::kFocus},
    {.number = command::kNewFromMoon, .text = TextKey("Moonlight"), .menu = menu::kMode, .submenu = kNewFrom,
     .when = WithoutDemo, .undo = ByHandler, .handler = NewFromMoon, .refreshes = kMade, .always = part::kFocus},
    {.number = command::kNewFromRampDay, .text = TextKey("Ramp day"), .menu = menu::kMode, .submenu = kNewFrom,
     .when = WithoutDemo, .undo = ByHandler, .handler = NewFromRampDay, .refreshes = kMade, .always = part::kFocus},
    {.number = command::kNewFromAcclimation, .text = TextKey("Acclimation"), .menu = menu::kMode,
     .submenu = kNewFrom, .when = WithoutDemo, .undo = ByHandler, .handler = NewFromAcclimation, .refreshes = kMade,
     .always = part::kFocus},
    {.number = command::kNewFromSeason, .text = TextKey("Season of 52 weeks"), .menu = menu::kMode,
     .submenu = kNewFrom, .when = WithoutDemo, .handler = NewFromSeason, .always = part::kFocus},

    // Language: which others there are is up to the translations.
    {.number = command::kEnglish, .lastNumber = command::kLastLanguage, .text = TextKey("English"),
     .menu = menu::kLanguage, .handler = ChooseLanguage, .refreshes = kLanguage},

    // Help
    {.number = command::kLogging, .text = TextKey("Logging"), .menu = menu::kHelp, .handler = ToggleLogging},
    {.number = command::kKnownIssues, .text = TextKey("Known issues ..."), .menu = menu::kHelp, .beginsGroup = true,
     .handler = ShowKnownIssues},
    {.number = command::kExportTranslation, .text = TextKey("Export localization XML"), .menu = menu::kHelp,
     .beginsGroup = true, .handler = ExportTranslation},
    {.number = command::kTestTranslation, .text = TextKey("Test localization XML"), .menu = menu::kHelp,
     .handler = TestTranslation, .refreshes = kLanguage},
    {.number = command::kAbout, .text = TextKey("About ..."), .menu = menu::kHelp, .beginsGroup = true,
     .keys = {Alt('/'), Alt('?')}, .handler = ShowAbout},
    {.number = command::kGuide, .text = TextKey("User guide"), .menu = menu::kHelp, .beginsGroup = true,
     .handler = ShowGuide},
    {.number = command::kCheckUp, .text = TextKey("Check-up ..."), .menu = menu::kHelp, .handler = CheckUp},

    // No menu item
    {.number = command::kZoomIn, .keys = {Key(key::kNumpadAdd)}, .handler = ZoomIn, .refreshes = kView},
    {.number = command::kZoomOut, .keys = {Key(key::kNumpadSubtract)}, .handler = ZoomOut, .refreshes = kView},
    {.number = command::kZoomAll, .keys = {Key(key::kNumpadMultiply)}, .handler = ShowWholeDay, .refreshes = kView},
    {.number = command::kPanBack, .keys = {Key(key::kPageUp)}, .handler = With<Pan, -kPanStep>, .refreshes = kView},
    {.number = command::kPanForward, .keys = {Key(key::kPageDown)}, .handler = With<Pan, kPanStep>, .refreshes = kView},
    {.number = command::kPanToStart, .keys = {Key(key::kHome)}, .handler = With<Pan, -kSecondsPerDay>,
     .refreshes = kView},
    {.number = command::kPanToEnd, .keys = {Key(key::kEnd)}, .handler = With<Pan, kSecondsPerDay>, .refreshes = kView},
    {.number = command::kRandomMode, .handler = AddRandomMode, .refreshes = kModes},
    {.number = command::kMergeTranslations, .handler = MergeTranslation},

    // What the controls say of themselves
    {.number = control_id::kModeList, .code = kListSelectionChanged, .when = WithoutDemo, .handler = SelectMode,
     .refreshes = kSteps | part::kPower, .always = part::kFocus},
    {.number = control_id::kModeList, .code = kListDoubleClick, .when = WithoutDemo, .handler = EditMode,
     .refreshes = part::kModeList, .always = part::kFocus},
    {.number = control_id::kAddMode, .when = WithoutDemo, .undo = ByHandler, .handler = AddMode, .refreshes = kModes,
     .always = part::kFocus},
    {.number = control_id::kDeleteMode, .when = WithoutDemo, .undo = ByHandler, .handler = DeleteMode, .refreshes = kModes,
     .always = part::kFocus},
    {.number = control_id::kDeviceList, .code = kListSelectionChanged, .handler = ReadDeviceSelection,
     .always = part::kFocus},
    {.number = control_id::kDeviceList, .code = kListDoubleClick, .handler = RenameDevice, .refreshes = part::kFocus},
    {.number = control_id::kPlay, .handler = PlayOrPauseDemo, .always = part::kMenusInDemo},
    {.number = control_id::kStop, .handler = StopDemo, .always = part::kMenusAtRest},
};
// clang-format on

}  // namespace

std::span<const Command> CommandTable() {
  return kCommands;
}

std::vector<MenuPopup> MenuTable() {
  return BuildMenus(kCommands);
}

std::vector<Accelerator> AcceleratorTable() {
  return BuildAccelerators(kCommands);
}

void Commands::Dispatch(int number, int code) {
  if (const Command* const command = FindCommand(kCommands, number, code)) Run(*command, number, false);
}

void Commands::DispatchKey(int number) {
  const Command* const command = FindCommand(kCommands, number, 0);
  if (command == nullptr || !IsEnabled(*command, state_.demoState.IsRunning(), state_.selection)) return;
  Run(*command, number, true);
}

void Commands::Run(const Command& command, int number, bool fromKey) {
  if (command.undo == Snapshot) state_.undoStack.Snapshot();
  CommandContext context{state_, shell_, number, fromKey};
  const Changed changed = command.handler(context);
  state_.Refresh(command.always | (changed == Changed::Yes ? command.refreshes : part::kNothing));
}

}  // namespace app
