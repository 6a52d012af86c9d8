#pragma once

#include "app/window/ports.h"
#include "platform/win32/main_window.h"

namespace win32 {

/// Message boxes and file dialogs, over the main window.
class Questions final : public app::QuestionsPort {
 public:
  explicit Questions(const MainWindow& owner) : owner_(owner) {}

  app::Answer Ask(const app::Question& question) override;
  std::vector<std::filesystem::path> AskOpenFiles(const app::FileFilter& filter, bool multiple) override;
  bool AskSaveFile(const app::FileFilter& filter, std::filesystem::path& path) override;

 private:
  const MainWindow& owner_;
};

}  // namespace win32
