#pragma once

#include "app/window/ports.h"
#include "platform/qt/desktop/main_window.h"

namespace qt {

class Questions final : public app::QuestionsPort {
 public:
  /// Questions come up over `owner`, which outlives them.
  explicit Questions(MainWindow& owner) : owner_(owner) {}

  app::Answer Ask(const app::Question& question) override;
  std::vector<std::filesystem::path> AskOpenFiles(const app::FileFilter& filter, bool multiple) override;
  bool AskSaveFile(const app::FileFilter& filter, std::filesystem::path& path) override;

 private:
  MainWindow& owner_;
  std::filesystem::path folder_;  // of the file that was chosen last; empty before
};

}  // namespace qt
