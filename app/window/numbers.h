#pragma once

// The numbers by which the shells and the application name things to each other: commands, notification and
// scroll codes, posted events, timers, keys.

#include <cstdint>

namespace app {

/// What the user can ask for: menu items, accelerator keys.
namespace command {
// File
inline constexpr int kNewProgram = 32784;
inline constexpr int kLoadProgram = 32777;
inline constexpr int kSaveProgram = 32781;
inline constexpr int kSaveProgramAs = 32782;
inline constexpr int kImportTmf = 32776;
inline constexpr int kExportTmf = 32938;
inline constexpr int kImportLmf = 32944;
inline constexpr int kExportLmf = 32945;
inline constexpr int kExportRaw = 32946;
inline constexpr int kProgramInfo = 32773;
inline constexpr int kExit = 105;
inline constexpr int kReefTemplate = 33020;
inline constexpr int kPlantedTankTemplate = 33021;
inline constexpr int kSeedlingsTemplate = 33022;
inline constexpr int kRefugiumTemplate = 33023;
inline constexpr int kBlackwaterTemplate = 33024;
// Edit
inline constexpr int kUndo = 32785;
inline constexpr int kRedo = 32786;
inline constexpr int kSelectAllSteps = 33010;
inline constexpr int kCarefulMouse = 33011;
// Device
inline constexpr int kSyncTime = 32790;
inline constexpr int kSetTime = 32791;
inline constexpr int kUploadProgram = 32792;
inline constexpr int kClearAll = 32793;
inline constexpr int kPlayDemo = 32794;
inline constexpr int kStopDemo = 32795;
inline constexpr int kSpeedFast = 32914;
inline constexpr int kSpeedNormal = 32915;
inline constexpr int kSpeedSlow = 32916;
inline constexpr int kSpeedCustom = 32917;
inline constexpr int kScanWifi = 32910;
inline constexpr int kSetupWifi = 32911;
inline constexpr int kAddEmulator = 32929;
// Channel
inline constexpr int kDeleteStep = 32930;
inline constexpr int kToggleJump = 32904;
inline constexpr int kCopySteps = 32908;
inline constexpr int kPasteSteps = 32909;
inline constexpr int kMoveStepsUp = 32897;
inline constexpr int kMoveStepsDown = 32898;
inline constexpr int kClearSteps = 32907;
inline constexpr int kManualStepsAdd = 32918;
inline constexpr int kManualStepsEdit = 32919;
inline constexpr int kRenameChannel = 32896;
inline constexpr int kChannelColor = 32899;
inline constexpr int kStepTable = 33012;
inline constexpr int kChangeSteps = 33016;
// Mode
inline constexpr int kOptimizeForTC421 = 32913;
inline constexpr int kEndpointStart = 32940;
inline constexpr int kEndpointEnd = 32941;
inline constexpr int kAlign3 = 32932;
inline constexpr int kAlign5 = 32933;
inline constexpr int kAlign10 = 32934;
inline constexpr int kAlign15 = 32935;
inline constexpr int kAlign30 = 32936;
inline constexpr int kAlign60 = 32937;
inline constexpr int kCompareWithSaved = 33013;
inline constexpr int kCompareWithThis = 33014;
inline constexpr int kLightStrip = 33015;
inline constexpr int kFigures = 33017;
inline constexpr int kNewFromSun = 33030;
inline constexpr int kNewFromMoon = 33031;
inline constexpr int kNewFromRampDay = 33032;
inline constexpr int kNewFromAcclimation = 33033;
inline constexpr int kNewFromSeason = 33034;
// Language: English, and from kFirstLanguage on the others by their place among the translations.
inline constexpr int kEnglish = 32796;
inline constexpr int kFirstLanguage = 32797;
inline constexpr int kLastLanguage = 32895;
// Help
inline constexpr int kLogging = 32774;
inline constexpr int kKnownIssues = 32939;
inline constexpr int kExportTranslation = 32943;
inline constexpr int kTestTranslation = 32942;
inline constexpr int kAbout = 104;
inline constexpr int kGuide = 33000;
inline constexpr int kCheckUp = 33001;
// No menu item
inline constexpr int kZoomIn = 32921;
inline constexpr int kZoomOut = 32922;
inline constexpr int kZoomAll = 32923;
inline constexpr int kPanBack = 32924;
inline constexpr int kPanForward = 32925;
inline constexpr int kPanToStart = 32926;
inline constexpr int kPanToEnd = 32927;
inline constexpr int kRandomMode = 32928;
inline constexpr int kMergeTranslations = 32947;
}  // namespace command

/// How long the commands for it let a demo of a day take; any other time is kSpeedCustom.
struct DemoSpeed {
  int command;
  std::int32_t seconds;
};
inline constexpr DemoSpeed kDemoSpeeds[] = {
    {command::kSpeedFast, 60}, {command::kSpeedNormal, 180}, {command::kSpeedSlow, 300}};

/// What a list says of itself in its command event, once the row is selected. A double click comes behind the
/// selection that its first click made.
inline constexpr int kListSelectionChanged = 1;
inline constexpr int kListDoubleClick = 2;

/// What scroll bars and sliders say. A slider stands elsewhere already when it tells of a key, of a click
/// beside its thumb or of a drag; a scroll bar stays where it is, but for the thumb that follows the mouse.
/// The application then puts either to its place. Buttons say 0 in their command event, as menu items do.
namespace scroll {
inline constexpr int kLineBack = 0;  // arrow to the left: of the bar, or a slider's key, the one upwards, too
inline constexpr int kLineForward = 1;
inline constexpr int kPageBack = 2;  // a click beside the thumb, or a slider's Page Up key
inline constexpr int kPageForward = 3;
inline constexpr int kThumbReleased = 4;
inline constexpr int kThumbMoving = 5;  // the one code that comes with a position
inline constexpr int kFirst = 6;        // a slider's Home key
inline constexpr int kLast = 7;
inline constexpr int kEnd = 8;  // the key or button is up; comes last, after a drag behind kThumbReleased
}  // namespace scroll

/// Events posted to the main window, from any thread.
enum AppEvent : std::uint32_t {
  WM_LOG_PENDING = 1024,      // log text waits for the log pane
  WM_SCAN_FINISHED = 1025,    // a network scan has ended
  WM_DEVICES_CHANGED = 1026,  // a controller came (second parameter 1) or went (0)
  WM_DEMO_STATE = 1027,       // the demo's display goes back to rest
};

/// The main window's one timer: refreshes the display of a running demo.
inline constexpr int kDemoTimer = 300;
inline constexpr int kDemoTimerMilliseconds = 100;

/// Key numbers of key events: capitals and digits are their own ASCII, others stand here. A shell need not
/// tell of keys without a number.
namespace key {
inline constexpr int kBackspace = 8;
inline constexpr int kTab = 9;
inline constexpr int kEnter = 13;
inline constexpr int kEscape = 27;
inline constexpr int kSpace = 32;
inline constexpr int kPageUp = 33;
inline constexpr int kPageDown = 34;
inline constexpr int kEnd = 35;
inline constexpr int kHome = 36;
inline constexpr int kLeft = 37;
inline constexpr int kUp = 38;
inline constexpr int kRight = 39;
inline constexpr int kDown = 40;
inline constexpr int kInsert = 45;
inline constexpr int kDelete = 46;
inline constexpr int kJ = 74;
inline constexpr int kNumpadMultiply = 106;
inline constexpr int kNumpadAdd = 107;
inline constexpr int kNumpadSubtract = 109;
inline constexpr int kF1 = 112;
inline constexpr int kF2 = 113;
}  // namespace key

}  // namespace app
