#pragma once

// The desktop's file dialogs.

#include <QString>

#include <filesystem>
#include <vector>

#include "app/window/ports.h"

class QWidget;

namespace qt {

/// A filter as Qt takes it. Desktops tell capitals from small letters, so a pattern names both of each
/// letter.
QString FilterText(const app::FileFilter& filter);

/// As QuestionsPort tells of them. `folder` is where the dialog begins; the Documents folder if it is empty.
std::vector<std::filesystem::path> AskOpenFiles(QWidget* owner, const std::filesystem::path& folder,
                                                const app::FileFilter& filter, bool multiple);
bool AskSaveFile(QWidget* owner, const std::filesystem::path& folder, const app::FileFilter& filter,
                 std::filesystem::path& path);

}  // namespace qt
