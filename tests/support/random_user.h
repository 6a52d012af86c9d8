#pragma once

// A user without sense, over the words of user.h: gives any command, types whatever fits and does not fit,
// answers every question somehow, and has files broken, deleted and replaced while they are open. What he
// does is a list of deeds (deeds.h); each is whole, so that no button or key stays held behind it.

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/support/deeds.h"
#include "tests/support/dice.h"
#include "tests/support/improviser.h"
#include "tests/support/user.h"

class RandomUser;

/// A thing that he does; it answers in a few words what it came to.
struct DeedRow {
  Habit habit;
  std::function<std::string(RandomUser&)> act;
};

class RandomUser final : public Improviser {
 public:
  /// What is around the user.
  struct Place {
    std::filesystem::path folder;   // of his own, to be filled with files
    std::filesystem::path samples;  // good program files
    /// The computer, its networks, browser and other programs are real: nothing is done that reaches them.
    bool isReal = false;
    /// A point of the chart where there is something, if the shell knows; asked before chance is.
    std::function<std::optional<std::pair<int, int>>(Dice&)> pointOfInterest = {};
  };

  /// The user and whatever `more` refers to outlive this one. The program need not run yet.
  RandomUser(User& user, Place place, std::vector<DeedRow> more = {});
  ~RandomUser() override;
  RandomUser(const RandomUser&) = delete;
  RandomUser& operator=(const RandomUser&) = delete;

  Habits GetHabits() const;
  /// Does it and starts the program again if it has ended. What it came to, in a few words. Throws what the
  /// user throws, and std::runtime_error for a dialog that cannot be left.
  std::string Do(const Deed& deed);
  /// The same for something that is no deed, with its own chance.
  void DoNow(std::uint64_t chance, const std::function<void()>& act);

  // What the deeds use.

  User& user() { return user_; }
  Dice& dice() { return dice_; }
  const Place& place() const { return place_; }
  /// A file of the folder, there or not.
  std::filesystem::path AnyFile();
  /// A point that lies on the chart, mostly.
  std::pair<int, int> AnyPoint();
  /// Anything that somebody might write somewhere.
  std::string AnyText();
  /// Anything that he might write where times and percents are asked for.
  std::string AnyNumbers();

  // Improviser

  app::Answer Answer(const app::Question& question) override;
  std::vector<std::filesystem::path> Pick() override;
  DialogStep NextStep(const SeenDialog& dialog) override;

 private:
  void Begin();

  User& user_;
  const Place place_;
  std::vector<DeedRow> rows_;
  Dice dice_{0};
  std::vector<int> dialog_;  // the controls of the one that stands open
  int steps_ = 0;            // taken in it
  int patience_ = 0;         // how many he takes before he wants to leave it
};

/// What can be done in every shell.
std::vector<DeedRow> CommonDeeds();
/// What happens to his files without him.
std::vector<DeedRow> FileDeeds();
/// What only real windows can do; the deeds are to be done by the same user.
class WindowUser;
std::vector<DeedRow> WindowDeeds(WindowUser& user);
