#pragma once

// The one place where commands are carried out, whether they come from a menu item, a key, a button or a
// list. User interface thread.

#include <string>
#include <string_view>

#include "app/app_state.h"
#include "app/ports.h"
#include "dialogs/dlg_mode_name.h"

namespace app {

class Commands {
 public:
  /// Both outlive the commands. Nothing is carried out before AppState::BuildControls.
  Commands(AppState& state, const Shell& shell) : state_(state), shell_(shell) {}

  /// Carries out a command or what a control says of itself. Unknown numbers do nothing.
  void Dispatch(int id, int code);

  /// Whether `number` is carried out.
  static bool IsServed(int number);

 private:
  using Handler = void (Commands::*)(int argument);

  /// Whether an entry of the history is made before the handler acts; where it is made later, or only if
  /// something changed, the handler sees to it.
  enum class Undo { None, Snapshot };

  /// Handlers of several commands tell them apart by `argument`.
  struct Row {
    int number;
    Undo undo;
    Handler handler;
    int argument = 0;
  };
  struct ControlCommand {
    int id;
    int code;  // kAnyCode for all
    Handler handler;
    int argument = 0;
  };
  static constexpr int kAnyCode = -1;

  static const Row kRows[];
  static const ControlCommand kControlCommands[];
  static const Row* Find(int number);

  // File
  void NewProgram(int);
  void LoadProgram(int);
  void SaveProgram(int);
  void SaveProgramAs(int);
  enum Exchange { Tmf, Lmf, Raw };
  void ImportModes(int format);
  void ExportMode(int format);
  void ProgramInfo(int);
  void Exit(int);
  // Edit
  void UndoChange(int);
  void RedoChange(int);
  void RefreshAfterHistory();
  // Device
  void SyncTime(int);
  void UploadProgram(int);
  void ClearAll(int);
  void PlayDemo(int);
  void StopDemo(int);
  void SetDemoSpeed(int seconds);
  void AskDemoSpeed(int);
  void SetTime(int);
  void ScanWifi(int);
  void SetupWifi(int);
  void AddEmulator(int);
  void ReadDeviceSelection(int);
  void RenameDevice(int);
  void AskDeviceName(const std::string& device);
  // Channel
  void DeleteStep(int);
  void ToggleJump(int);
  void CopySteps(int);
  void PasteSteps(int);
  void MoveSteps(int down);
  void ClearSteps(int);
  void NextColor(int);
  void EditChannel(int);
  void AddManualSteps(int);
  void EditManualSteps(int);
  enum class TypedSteps { Added, InPlaceOfAll };
  void TypeSteps(std::string_view title, TypedSteps use);
  // Mode
  void OptimizeForTC421(int);
  void AddEndpoint(int second);
  void Align(int minutes);
  void SelectMode(int);
  void AddMode(int);
  void AppendMode(const dialogs::ModeNameParams& params);
  void EditMode(int);
  dialogs::ModeNameParams ModeDialog(std::string_view title);
  void DeleteMode(int);
  void AddRandomMode(int);
  void ShowLastMode();
  // View
  void ZoomIn(int);
  void ZoomOut(int);
  void ShowHours(int hours);
  void Pan(int seconds);
  // Help
  void ToggleLogging(int);
  void ShowKnownIssues(int);
  void ShowAbout(int);
  // Languages
  void OnLanguageCommand(int number);
  void OnExportTranslation(int);
  void OnTestTranslation(int);
  void OnMergeTranslation(int);
  /// Asks for a translators' file and adds it as a language. False, if nothing was loaded; the user has been
  /// told unless it was he who cancelled.
  bool LoadTranslationWithDialog(std::string_view id, std::string_view name);

  AppState& state_;
  const Shell& shell_;
  bool fromKey_ = false;  // the command last given came from an accelerator key
};

}  // namespace app
