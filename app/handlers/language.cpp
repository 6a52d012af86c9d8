#include "app/handlers/language.h"

#include <cstdint>
#include <string>

#include "common/log.h"
#include "common/message.h"

namespace app {

void ApplyLanguage(AppState& state, const Shell& shell, std::string_view id) {
  shell.translations.SetLanguage(id);
  state.menuBar->ApplyTexts();
  state.Refresh(part::kRenderer | part::kChart | part::kModeList);
  state.ctrls->TranslateLabels();
  state.ctrls->ShowDemoStatus(state.demoState);
}

void AnnounceLanguage(TranslationStore& translations) {
  const ovk::xml::element* const language =
      translations.GetLanguages().find_child_by_id("language", translations.GetLanguageId());
  if (language == nullptr) return LogStatus(Message("Language set to English"));
  const std::int32_t named = language->find_attribute("name");
  const std::string_view name = named < 0 ? "English" : language->attributes[named].value.view();
  std::string text = Message("Language set to {1}", name).utf8();
  const std::string_view author = language->attribute_or_empty("author").view();
  if (!author.empty()) text += ", " + Message("translated by {1}!", author).utf8();
  LogPlain(text);
}

}  // namespace app
