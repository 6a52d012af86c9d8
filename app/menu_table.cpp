#include "app/menu_table.h"

#include <array>

#include "app/numbers.h"

namespace app {

namespace {

constexpr MenuEntry Item(int number, std::string_view text, std::string_view suffix = {}) {
  return {MenuEntry::Kind::Command, number, text, suffix};
}

constexpr MenuEntry Submenu(std::string_view text, std::span<const MenuEntry> entries) {
  return {MenuEntry::Kind::Submenu, 0, text, {}, entries};
}

constexpr MenuEntry kSeparator{};

constexpr std::array kFileMenu{
    Item(command::kNewProgram, "New Program"),
    Item(command::kLoadProgram, "Load Program"),
    Item(command::kSaveProgram, "Save Program"),
    Item(command::kSaveProgramAs, "Save Program As"),
    kSeparator,
    Item(command::kImportTmf, "Import TMF", " (PLED)"),
    Item(command::kExportTmf, "Export TMF", " (PLED)"),
    kSeparator,
    Item(command::kImportLmf, "Import LMF", " (LEDControl)"),
    Item(command::kExportLmf, "Export LMF", " (LEDControl)"),
    kSeparator,
    Item(command::kExportRaw, "Export RAW"),
    kSeparator,
    Item(command::kProgramInfo, "Program info"),
    kSeparator,
    Item(command::kExit, "Exit"),
};

constexpr std::array kEditMenu{
    Item(command::kUndo, "Undo"),
    Item(command::kRedo, "Redo"),
};

constexpr std::array kDemoSpeedMenu{
    Item(command::kSpeedFast, "Fast (60 secs)"),  Item(command::kSpeedNormal, "Normal (180 secs)"),
    Item(command::kSpeedSlow, "Slow (300 secs)"), kSeparator,
    Item(command::kSpeedCustom, "Custom..."),
};

constexpr std::array kDeviceMenu{
    Item(command::kSyncTime, "Sync time"),           Item(command::kSetTime, "Set time"),
    Item(command::kUploadProgram, "Upload program"), kSeparator,
    Item(command::kClearAll, "Clear all"),           kSeparator,
    Item(command::kPlayDemo, "Play demo"),           Item(command::kStopDemo, "Stop demo"),
    Submenu("Demo speed", kDemoSpeedMenu),           kSeparator,
    Item(command::kScanWifi, "Scan WiFi devices"),   kSeparator,
    Item(command::kSetupWifi, "Setup TC421 WiFi"),   kSeparator,
    Item(command::kAddEmulator, "Add emulator"),
};

constexpr std::array kChannelMenu{
    Item(command::kDeleteStep, "Delete step"),
    kSeparator,
    Item(command::kToggleJump, "Toggle step jump type"),
    kSeparator,
    Item(command::kCopySteps, "Copy steps"),
    Item(command::kPasteSteps, "Paste steps"),
    kSeparator,
    Item(command::kMoveStepsUp, "Move all steps up"),
    Item(command::kMoveStepsDown, "Move all steps down"),
    Item(command::kClearSteps, "Clear all steps"),
    kSeparator,
    Item(command::kManualStepsAdd, "Manual steps add..."),
    Item(command::kManualStepsEdit, "Manual steps edit..."),
    kSeparator,
    Item(command::kRenameChannel, "Rename channel"),
    Item(command::kChannelColor, "Change channel color"),
};

constexpr std::array kEndpointMenu{
    Item(command::kEndpointStart, "At the start (00:00)"),
    Item(command::kEndpointEnd, "At the end (23:59)"),
};

constexpr std::array kAlignMenu{
    Item(command::kAlign3, "3 minute intervals"),   Item(command::kAlign5, "5 minute intervals"),
    Item(command::kAlign10, "10 minute intervals"), Item(command::kAlign15, "15 minute intervals"),
    Item(command::kAlign30, "30 minute intervals"), Item(command::kAlign60, "1 hour intervals"),
};

constexpr std::array kModeMenu{
    Item(command::kOptimizeForTC421, "Optimize mode for TC421"),
    kSeparator,
    Submenu("Add endpoint steps", kEndpointMenu),
    kSeparator,
    Submenu("Align steps", kAlignMenu),
};

constexpr std::array kLanguageMenu{
    Item(command::kEnglish, "English"),
};

constexpr std::array kHelpMenu{
    Item(command::kLogging, "Logging"),
    kSeparator,
    Item(command::kKnownIssues, "Known issues ..."),
    kSeparator,
    Item(command::kExportTranslation, "Export localization XML"),
    Item(command::kTestTranslation, "Test localization XML"),
    kSeparator,
    Item(command::kAbout, "About ..."),
};

constexpr std::array<MenuPopup, 7> kBar{{
    {"File", kFileMenu},
    {"Edit", kEditMenu},
    {"Device", kDeviceMenu},
    {"Channel", kChannelMenu},
    {"Mode", kModeMenu},
    {"Language", kLanguageMenu},
    {"Help", kHelpMenu, true},
}};

using enum Accelerator::Kind;

constexpr std::array<Accelerator, 13> kAccelerators{{
    {AltCharacter, '/', command::kAbout},
    {AltCharacter, '?', command::kAbout},
    {Character, 25, command::kRedo},  // Ctrl+Y
    {Character, 26, command::kUndo},  // Ctrl+Z
    {VirtualKey, key::kNumpadAdd, command::kZoomIn},
    {VirtualKey, key::kNumpadSubtract, command::kZoomOut},
    {VirtualKey, key::kNumpadMultiply, command::kZoomAll},
    {VirtualKey, key::kPageUp, command::kPanBack},
    {VirtualKey, key::kPageDown, command::kPanForward},
    {VirtualKey, key::kHome, command::kPanToStart},
    {VirtualKey, key::kEnd, command::kPanToEnd},
    {VirtualKey, key::kDelete, command::kDeleteStep},
    {VirtualKey, key::kBackspace, command::kDeleteStep},
}};

}  // namespace

std::span<const MenuPopup> MenuTable() {
  return kBar;
}

std::span<const Accelerator> AcceleratorTable() {
  return kAccelerators;
}

}  // namespace app
