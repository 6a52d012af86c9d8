#include "app/document/save_question.h"

#include <system_error>

#include "common/message.h"

namespace app {

namespace {

namespace fs = std::filesystem;

bool IsSameFile(const fs::path& a, const fs::path& b) {
  std::error_code ignored;
  return fs::equivalent(a, b, ignored);
}

}  // namespace

bool AskToReplace(QuestionsPort& questions, const fs::path& path) {
  // Devices and folders have no content that could be lost. Where the system does not tell what is there, a
  // file might be.
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  if (fs::status_known(status) && !fs::is_regular_file(status)) return true;
  Question question{Message("File exists").ToWide(), Message("{1} exists. Replace it?", path).ToWide(),
                    Buttons::YesNo, Icon::Warning};
  question.enterSaysNo = true;
  return questions.Ask(question) == Answer::Yes;
}

bool AskWhereToSave(QuestionsPort& questions, const FileFilter& filter, fs::path& path, const fs::path& own) {
  return questions.AskSaveFile(filter, path) && (IsSameFile(path, own) || AskToReplace(questions, path));
}

}  // namespace app
