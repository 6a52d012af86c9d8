#pragma once

// Message boxes and file dialogs over the main window, which Qt has made. The windows' thread looks at them;
// their input comes from the user's.

#include <QDialog>
#include <filesystem>
#include <vector>

#include "app/window/ports.h"

namespace qt_desktop::dialogs {

/// The dialog that waits for the user; null if there is none. Windows' thread, as for the next three.
QDialog* InFront();
bool IsFileDialog(const QDialog& dialog);
bool IsMessageBox(const QDialog& dialog);
/// The middle of a widget on the screen.
QPoint MiddleOf(const QWidget& widget);

/// What a message box asks. User's thread, as for the next two.
app::Question ReadMessageBox(const QDialog& box);
/// Clicks the button. The test fails if there is none.
void Answer(const QDialog& box, app::Answer answer);
/// Types the files, and presses Enter; without any the dialog is cancelled.
void Pick(const QDialog& dialog, const std::vector<std::filesystem::path>& files);

}  // namespace qt_desktop::dialogs
