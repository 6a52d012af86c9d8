#include "tests/support/seen_truths.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <exception>
#include <optional>
#include <stdexcept>

#include "program/builtin_modes.h"
#include "program/program_file.h"
#include "tests/support/files.h"
#include "tests/support/random_run.h"

namespace {

using app::Control;
namespace command = app::command;

constexpr std::size_t kMenusEvery = 10;
constexpr std::size_t kFileEvery = 25;

void Require(bool isTrue, const std::string& otherwise) {
  if (!isTrue) throw std::runtime_error(otherwise);
}

void CheckLists(User& user) {
  Require(user.Title().starts_with("Lumarine - "), "the title is " + user.Title());
  const auto modes = static_cast<int>(user.List(Control::ModeList).size());
  const std::vector<int> selected = user.SelectedRows(Control::ModeList);
  Require(selected.size() == 1 && selected.front() < modes, "there is no one mode selected");
  const auto devices = static_cast<int>(user.List(Control::DeviceList).size());
  for (const int row : user.SelectedRows(Control::DeviceList))
    Require(row < devices, "a device is selected that is not there");
}

void CheckTable(User& user) {
  if (!user.HasTable()) return;
  const auto rows = static_cast<int>(user.TableRows(app::TableSheet::Steps).size());
  for (const int row : user.SelectedTableRows()) Require(row < rows, "a row is selected that is not there");
}

// What may not be given during a demo, and what may only then.
void CheckMenus(User& user) {
  const auto seen = [&user] {
    return std::pair(user.MenuItem(command::kNewProgram).enabled, user.MenuItem(command::kStopDemo).enabled);
  };
  // A demo may begin or end between two looks.
  for (int looks = 0; looks < 20; ++looks) {
    if (const auto [atRest, inDemo] = seen(); atRest != inDemo) return;
    user.Wait(0.2);
  }
  throw std::runtime_error("a new program and the end of a demo are enabled alike");
}

// The program as it is saved now; nothing where somebody does not want it saved.
std::optional<std::string> Saved(User& user, const std::filesystem::path& file) {
  std::error_code ignored;
  remove(file, ignored);
  user.WillPick({file});
  if (!user.Choose(command::kSaveProgramAs) || !exists(file)) return std::nullopt;
  return BytesOf(file);
}

void CheckFile(User& user, const std::filesystem::path& folder) {
  using namespace TCBase::Program;
  const std::filesystem::path file = folder / "as it is.xml";
  const std::optional<std::string> before = Saved(user, file);
  Require(before.has_value(), "the program could not be saved");
  ModeListView loaded = NewProgram();
  Require(LoadProgram(file, loaded), "what was saved cannot be loaded");
  std::vector<std::string> names;
  for (const Mode& mode : loaded.modes) names.push_back(mode.name);
  Require(names.size() == user.List(Control::ModeList).size(),
          "the file holds another number of modes than are listed");
  // Undo may have nothing to undo, and then leaves redo nothing to do.
  if (!user.Choose(command::kUndo) || !user.Choose(command::kRedo)) return;
  const std::optional<std::string> after = Saved(user, file);
  Require(after.has_value(), "the program could not be saved again");
  if (*after == *before) return;
  // The wheel changes what no undo brings back: it counts from the second time on.
  if (!user.Choose(command::kUndo) || !user.Choose(command::kRedo)) return;
  Require(Saved(user, file) == after, "undo and redo give another program");
}

}  // namespace

std::string LiveOnAWindow(User& user, RandomUser& random, const std::filesystem::path& folder,
                          const Deeds& deeds, std::vector<std::string>& remarks) {
  // What the drivers find wrong counts as well.
  testing::TestPartResultArray found;
  const testing::ScopedFakeTestPartResultReporter reporter(
      testing::ScopedFakeTestPartResultReporter::INTERCEPT_ALL_THREADS, &found);
  try {
    user.Start();
    for (std::size_t i = 0; i < deeds.size(); ++i) {
      NoteDeed(i);
      remarks.emplace_back();
      remarks.back() = random.Do(deeds[i]);
      CheckLists(user);
      CheckTable(user);
      if (i % kMenusEvery == 0) CheckMenus(user);
      if (i % kFileEvery == kFileEvery - 1) random.DoNow(deeds[i].chance, [&] { CheckFile(user, folder); });
      if (found.size() > 0) return found.GetTestPartResult(0).message();
    }
  } catch (const std::exception& fault) {
    return fault.what();
  }
  return {};
}
