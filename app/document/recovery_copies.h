#pragma once

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "program/program.h"

namespace app {

/// Copies of programs that could not be saved, as program files "LumarineRecovery-1.xml" and so on in one
/// folder, from where the next start offers them. The document at hand has at most one copy. A copy goes only
/// when its program is saved or the user gives it up; whatever happens to the process, it stays until then. A
/// program that the user has saved under such a name is no copy, but a file like any other.
/// User interface thread.
class RecoveryCopies {
 public:
  struct Copy {
    std::filesystem::path path;
    std::string file;  // where the program should have been saved, in UTF-8
  };

  explicit RecoveryCopies(std::filesystem::path folder) : folder_(std::move(folder)) {}

  /// Writes the copy of the document at hand, or writes it anew; `file` is where it should have been saved.
  /// An empty path if that fails; a former copy of it stays then. The reason is in the log, but where no
  /// name is left for a copy.
  std::filesystem::path Keep(const TCBase::Program::ModeListView& document,
                             const std::filesystem::path& file);
  /// The document at hand is this copy from now on.
  void Adopt(const Copy& copy) { own_ = copy.path; }
  /// The document at hand has been saved to `file`: its copy goes, if it has one that is not that file.
  void OnSaved(const std::filesystem::path& file);
  /// Another document takes the place of the one at hand, whose copy stays for the next start.
  void OnReplaced() { own_.clear(); }

  /// All copies that can be read, the oldest number first, but for that of the document at hand.
  std::vector<Copy> Find() const;
  /// The user does not want it.
  static void Discard(const Copy& copy);

 private:
  /// A name that no file has; empty if there is none left.
  std::filesystem::path FreeName() const;

  const std::filesystem::path folder_;
  std::filesystem::path own_;  // of the document at hand; empty without one
};

}  // namespace app
