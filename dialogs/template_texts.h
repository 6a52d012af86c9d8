#pragma once

#include "dialogs/dialog.h"

namespace dialogs {

/// Puts the texts of the template, its title among them, into the user's language. For dialogs whose texts
/// stand there and nowhere else.
void TranslateTemplateTexts(DialogWindow& window, int templateId);

}  // namespace dialogs
