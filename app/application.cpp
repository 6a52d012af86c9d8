// The order in which things come up and go down.

#include "app/application.h"

#include "app/handlers/demo_control.h"
#include "app/handlers/device_log.h"
#include "app/handlers/language_commands.h"
#include "app/main_loop.h"
#include "app/window/numbers.h"
#include "common/files.h"
#include "common/log.h"
#include "common/message.h"

namespace app {

Application::Application(const Shell& shell)
    : state(shell),
      mainWindow(state, commands_, shell_),
      chartWindow(state),
      stepTableWindow(state, commands_),
      shell_(shell),
      commands_(state, shell_) {}

Application::~Application() {
  // The handlers refer to the controls; the worker may log until it is gone.
  state.worker.Shutdown();
  if (state.ctrls) state.ctrls->DisconnectLogs();
}

int Application::Run() {
  if (!StartUp()) return 0;
  while (Turn()) {
  }
  ShutDown();
  return shell_.events.ExitCode();
}

bool Application::Turn() {
  const bool goesOn = TurnMainLoop({shell_.events, *state.renderer, state.chartLayout, state.demoState,
                                    state.frameClock, state.idleTimer, state.now});
  // Whatever the turn has changed.
  state.stepTable.Follow();
  return goesOn;
}

bool Application::StartUp() {
  PlatformPort& platform = shell_.platform;
  platform.Do(PlatformStep::PrepareControls);
  platform.Do(PlatformStep::StartGraphics);
  platform.Do(PlatformStep::StartNetwork);
  ConfigureDeviceLog(shell_.settings, shell_.deviceLogFile);
  BeginLanguage();
  platform.Do(PlatformStep::LoadNames);
  platform.Do(PlatformStep::PrepareMainWindow);
  platform.Do(PlatformStep::PrepareChartWindow);
  if (!InitInstance()) return false;

  shell_.mainWindow.StartTimer(kDemoTimer, kDemoTimerMilliseconds);
  state.worker.Attach(&shell_.mainWindow, WM_DEVICES_CHANGED);
  LogStatus(
      Message("Loaded program contains {1} modes", static_cast<std::int32_t>(state.program.modes.size())));
  const TCBase::Program::Mode& mode = state.CurrentMode();
  LogStatus(Message("Mode {1} steps count: {2}", mode.name, CountModeSteps(mode)));
  platform.Do(PlatformStep::TakeAccelerators);
  // The timer runs by now: it moves the lanes on while a question stands open.
  if (state.document->OfferRecovered()) state.Refresh(part::kRenderer);
  return true;
}

void Application::BeginLanguage() {
  shell_.translations.SetLanguage(shell_.settings.GetValue("locale"));
  // The built-in program is made before its language is known. Made anew, the one that a first start shows is
  // no change against it.
  state.program = TCBase::Program::NewProgram();
  state.savedProgram.copy = state.program;
  AnnounceLanguage(shell_.translations);
}

bool Application::InitInstance() {
  if (!shell_.platform.Do(PlatformStep::CreateMainWindow)) return false;
  state.BuildControls(shell_, CommandTable());
  const Size client = shell_.mainWindow.ClientSize();
  state.chartLayout.Update(client.width, client.height);
  state.ctrls->CreateControls();
  shell_.platform.Do(PlatformStep::ShowControls);
  state.Refresh(part::kModeList | part::kScrollBar | part::kZoomSlider);
  state.ctrls->SetDevices(state.worker.GetDevices());
  state.renderer->window = &shell_.chartWindow;
  NotifyDemoIdle(shell_.mainWindow);
  state.renderer->Initialise();
  shell_.platform.Do(PlatformStep::LoadLogo);
  shell_.mainWindow.Show();
  ConnectWindow();
  OpenFirstProgram();
  state.Refresh(part::kRenderer);
  return true;
}

void Application::ConnectWindow() {
  shell_.platform.Do(PlatformStep::TakeMenu);
  state.menuBar->ApplyTexts();
  state.menuBar->MarkLogging(shell_.settings.LoggingEnabled());
  state.Refresh(part::kPower);
  // What was logged since the start has waited and appears with the next line.
  state.ctrls->ConnectLogs();
}

void Application::OpenFirstProgram() {
  if (state.document->Open(shell_.filesToOpen)) return;
  const std::string last = shell_.settings.GetValue("last_open_file");
  if (!last.empty() && state.document->LoadFile(PathFromUtf8(last))) {
    state.document->AfterLoad();
    state.document->SyncBaseline();
  } else {
    state.document->NewProgram();
  }
}

void Application::ShutDown() {
  state.document->EndRecovery();
  state.demoState.PostCommand(TCBase::CommandStop);
  state.worker.Shutdown();
  state.renderer->Release();
  shell_.platform.Do(PlatformStep::DeleteLogo);
  shell_.platform.Do(PlatformStep::StopGraphics);
  shell_.platform.Do(PlatformStep::StopHid);
  shell_.platform.Do(PlatformStep::StopNetwork);
}

}  // namespace app
