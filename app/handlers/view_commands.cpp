#include "app/handlers/view_commands.h"

#include "program/view.h"

namespace app {

using namespace TCBase::Program;

Changed ZoomIn(CommandContext& context) {
  ViewZoomIn(context.state.program);
  return Changed::Yes;
}

Changed ZoomOut(CommandContext& context) {
  ViewZoomOut(context.state.program);
  return Changed::Yes;
}

Changed ShowWholeDay(CommandContext& context) {
  SetViewHours(context.state.program, kMaxViewHours);
  return Changed::Yes;
}

Changed Pan(CommandContext& context, std::int32_t seconds) {
  PanView(context.state.program, seconds);
  return Changed::Yes;
}

Changed ToggleLightStrip(CommandContext& context) {
  Settings& settings = context.shell.settings;
  const bool shown = !settings.IsOn(Settings::kLightStrip);
  settings.SetOn(Settings::kLightStrip, shown);
  context.state.chartLayout.ShowStrip(shown);
  return Changed::Yes;
}

}  // namespace app
