#pragma once

// One run of the program behind the Qt window, in this process. As far as one can see it is a process of its
// own: the logs are empty, the translations have recorded nothing, and settings come from the file that the
// run before left at its end.

#include <atomic>
#include <filesystem>
#include <string>
#include <vector>

namespace qt_desktop {

class ProgramUnderTest {
 public:
  struct Folders {
    std::filesystem::path documents;  // for settings, device log and copies
    std::filesystem::path resources;  // with the documents of the translations
  };

  /// Begins to start the program with files on its command line.
  ProgramUnderTest(const Folders& folders, const std::vector<std::filesystem::path>& files);
  /// Ends the program, if it still runs, without a question.
  ~ProgramUnderTest();
  ProgramUnderTest(const ProgramUnderTest&) = delete;
  ProgramUnderTest& operator=(const ProgramUnderTest&) = delete;

  /// Its window stands, and its main loop turns.
  bool HasStarted() const { return hasStarted_; }
  bool HasEnded() const { return hasEnded_; }

 private:
  void Run(const Folders& folders, const std::vector<std::filesystem::path>& files);

  std::atomic<bool> hasStarted_ = false;
  std::atomic<bool> hasEnded_ = false;
  std::atomic<bool> isGivenUp_ = false;
};

}  // namespace qt_desktop
