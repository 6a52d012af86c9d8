// A random user in front of the headless shell, and what is true behind each of his deeds.

#include <gtest/gtest.h>

#include <algorithm>
#include <exception>
#include <string_view>

#include "common/platform.h"
#include "tests/app/program_truths.h"
#include "tests/app/random_world.h"
#include "tests/support/drawing_renderer.h"
#include "tests/support/files.h"
#include "tests/support/heap_count.h"
#include "tests/support/random_run.h"
#include "tests/support/run_length.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/virtual_clock.h"

namespace {

namespace fs = std::filesystem;

// Checks that take long come at every so many deeds, each at its own.
constexpr std::size_t kUndoEvery = 5;
constexpr std::size_t kChartEvery = 3;
constexpr std::size_t kFileEvery = 17;
constexpr std::size_t kMenusEvery = 7;
constexpr std::size_t kHistoryEvery = 211;
constexpr std::size_t kDeedsOfALife = 1000;
// A remark for each deed, twice, and some.
constexpr std::int64_t kMostBlocksMore = 5000;

// What the shell writes down would grow with the life, and nobody reads it.
void ForgetWhatTheShellRecorded(headless::Desktop& desktop) {
  desktop.journal.clear();
  desktop.chart.invalidated.clear();
  desktop.controls.moved.clear();
  desktop.questions.filesAsked.clear();
  desktop.dialogs.told.clear();
  desktop.dialogs.links.clear();
  desktop.work.clear();
  desktop.opened.clear();
}

class Life {
 public:
  Life() {
    ResetWorld();
    static headless::HeadlessUser words{{}};
    static const bool read = words.ReadTranslations(fs::path(LUMARINE_SOURCE_DIR) / "resources");
    EXPECT_TRUE(read);
    user_.translations = words.translations;
    user_.moreTranslations = words.moreTranslations;
    user_.makeRenderer = [](const UX::ChartScene& scene, headless::Journal& journal) {
      auto renderer = std::make_unique<headless::DrawingRenderer>(scene, journal);
      renderer->keepsText = IsReplay();
      renderer->keepsFrames = true;
      return renderer;
    };
    fs::create_directory(folder_ / "files");
  }

  std::string Live(const Deeds& deeds, std::vector<std::string>& remarks) {
    try {
      // Takes part in the clock from now on, before the worker does.
      platform::SleepMilliseconds(1);
      user_.Start();
      for (const Deed& deed : deeds) {
        NoteDeed(place_);
        TakeTurnsWithTheWorker();
        if (place_ % kChartEvery == 0) Rest();
        remarks.emplace_back();
        remarks.back() = monkey_.Do(deed);
        Check(deed);
        ++place_;
      }
    } catch (const std::exception& fault) {
      return fault.what();
    }
    return {};
  }

  static Habits GetHabits() {
    Life life;
    return life.monkey_.GetHabits();
  }

 private:
  // User and worker wake at moments of their own: so one of them runs while the other sleeps, and a life is
  // the same each time.
  void TakeTurnsWithTheWorker() {
    const headless::Journal& journal = user_.GetDesktop().journal;
    if (std::ranges::find(journal, "show") != journal.end()) virtual_clock::Advance(0.0003);
  }

  // As long as the main loop draws by itself nobody sees what was not asked to be drawn.
  void Rest() {
    user_.Wait(0.3);  // for lanes on their way
    virtual_clock::Advance(1.0);
    user_.GetDesktop().chart.dirty = true;
    KeepFrames(true);
    user_.Settle();
  }
  void KeepFrames(bool kept) {
    dynamic_cast<headless::DrawingRenderer&>(user_.GetDesktop().Renderer()).keepsFrames = kept;
  }

  void Check(const Deed& deed) {
    constexpr std::string_view kMayUndo[] = {"command", "edit", "keys", "table"};
    truths_.CheckState(std::ranges::find(kMayUndo, deed.word) != std::end(kMayUndo));
    if (place_ % kChartEvery == 0) truths_.CheckChart();
    KeepFrames(false);
    if (place_ % kFileEvery == 0) truths_.CheckFile();
    if (place_ % kMenusEvery == 0) truths_.CheckMenus();
    if (place_ % kUndoEvery == 0) monkey_.DoNow(deed.chance, [this] { truths_.CheckUndo(); });
    if (place_ % kHistoryEvery == 0) truths_.CheckWholeHistory();
    ForgetWhatTheShellRecorded(user_.GetDesktop());
  }

  TemporaryFolder folder_;
  headless::HeadlessUser user_{folder_.path()};
  RandomUser monkey_{user_,
                     {folder_ / "files", fs::path(LUMARINE_SOURCE_DIR) / "examples" / "reef-day.xml", false,
                      [this](Dice& dice) { return PointOfInterest(user_, dice); }},
                     WorldDeeds(user_)};
  ProgramTruths truths_{user_};
  std::size_t place_ = 0;
};

TEST(DeedsTest, AreTheSameForASeedAndComeBackFromText) {
  const Habits habits{{"press", 3}, {"wait", 1}};
  const Deeds deeds = DeedsOf(7, 50, habits);
  EXPECT_EQ(DeedsOf(7, 50, habits), deeds);
  EXPECT_NE(DeedsOf(8, 50, habits), deeds);
  EXPECT_EQ(DeedsFrom(TextOf(deeds, {"12,13", "a remark # in two"})), deeds);
  EXPECT_EQ(DeedsFrom("no deed\n\npress 12 # 13\npress x\n"), (Deeds{{"press", 12}}));
}

TEST(DeedsTest, AreShortenedToThoseThatFailTogether) {
  const Deeds deeds = DeedsOf(1, 500, {{"press", 1}});
  const Deeds two{deeds[17], deeds[321]};
  const auto fails = [&two](const Deeds& tried) {
    return std::ranges::all_of(
        two, [&tried](const Deed& deed) { return std::ranges::find(tried, deed) != tried.end(); });
  };
  EXPECT_EQ(Shortened(deeds, fails, 1000), two);
  EXPECT_TRUE(fails(Shortened(deeds, fails, 3))) << "what is left after few tries fails as well";
}

TEST(RandomUserTest, WhateverHeDoesTheProgramKeepsWhatItPromises) {
  RandomRun run;
  run.habits = Life::GetHabits();
  run.command = "GTEST_FILTER='RandomUserTest.*' ctest --preset native-debug -R app_random_tests -V";
  std::int64_t settled = 0;
  int lives = 0;
  run.live = [&](const Deeds& deeds, std::vector<std::string>& remarks) -> std::string {
    if (std::string fault = Life().Live(deeds, remarks); !fault.empty()) return fault;
    const std::int64_t held = heap_count::blocks;
    // Texts, tables and queues have found their sizes after a few lives.
    if (++lives <= 3) settled = held;
    if (held <= settled + kMostBlocksMore) return {};
    return "the heap holds " + std::to_string(held) + " blocks behind a life, after " +
           std::to_string(settled);
  };
  RunRandomly(run, Rounds(1000, 1'000'000), kDeedsOfALife);
}

}  // namespace
