#pragma once

// The pictures of docs/dialogs.md, README.md and the guide, for every shell alike: what is done to the
// program, and when a picture is taken. A shell's own program fills in the hands.

#include <cstdint>
#include <filesystem>
#include <string>

#include "app/window/ports.h"
#include "common/geometry.h"

namespace portraits {

/// The program with its window open. Nothing here waits for what it has opened.
class Sitter {
 public:
  virtual ~Sitter() = default;

  /// Gives a command, as its menu item does.
  virtual void Choose(int command) = 0;
  /// Closes the main window by its frame.
  virtual void AskToClose() = 0;
  /// In the chart's coordinates.
  virtual void ClickChart(std::int32_t x, std::int32_t y) = 0;
  virtual void OpenChartMenu(std::int32_t x, std::int32_t y) = 0;
  /// In the units of app::ControlTable().
  virtual app::Size ClientSize() = 0;

  // What is in front: the main window, or a dialog, question or menu over it, or the step table.

  virtual bool IsMainWindowInFront() = 0;
  /// The dialog in front has such a control, which is enabled.
  virtual bool HasControl(int control) = 0;
  /// Writes into a field in place of what stands there; lines end with "\n". UTF-8.
  virtual void Type(int control, const std::string& text) = 0;
  virtual void Pick(int control, int row) = 0;
  virtual void Press(int control) = 0;
  /// The Escape key.
  virtual void Leave() = 0;
  /// Its place on the screen with its frame, in pixels.
  virtual Rect Frame() = 0;
  /// Writes all that the screen shows as a PNG file.
  virtual bool Photograph(const std::filesystem::path& file) = 0;
};

/// Takes the pictures of a list: "dialogs", for which a controller must be on the network, "window" or
/// "guide". Each goes to `folder` as the whole screen; standard output says "file.png WIDTHxHEIGHT+X+Y", the
/// part of it that is meant. False, if something does not come up.
bool Take(Sitter& sitter, const std::string& list, const std::filesystem::path& folder);

}  // namespace portraits
