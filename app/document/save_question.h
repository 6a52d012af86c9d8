#pragma once

#include <filesystem>

#include "app/window/ports.h"

namespace app {

/// Asks before a file that is there is replaced. False if the user does not want that.
bool AskToReplace(QuestionsPort& questions, const std::filesystem::path& path);

/// Asks where to save, and once more before a file that is there already is replaced. `path` is the name to
/// start from, and the chosen one on return. `own` is the file that the user has open: choosing it is no more
/// than a plain save, which asks nothing either; an empty path means that there is none. False if the user
/// does not want to save; there is nothing to say then.
bool AskWhereToSave(QuestionsPort& questions, const FileFilter& filter, std::filesystem::path& path,
                    const std::filesystem::path& own = {});

}  // namespace app
