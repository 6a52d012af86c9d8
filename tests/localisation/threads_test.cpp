// The store between the threads: the worker translates while the user interface thread translates, walks the
// languages, changes them and exports. The thread sanitizer watches.

#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "common/message.h"
#include "localisation/translation_store.h"
#include "tests/localisation/translations.h"

namespace {

class TranslatingThreads : public Translations {
 protected:
  static constexpr int kRounds = 500;
  static constexpr int kWorkers = 2;

  // Runs `work` with the number of each round on threads of their own, and `beside` on this one, at least
  // once, until all of them are done.
  template <class Work, class Beside>
  void Run(Work work, Beside beside) {
    std::atomic<int> running = kWorkers;
    std::vector<std::thread> workers;
    workers.reserve(kWorkers);
    for (int worker = 0; worker < kWorkers; ++worker) {
      workers.emplace_back([&, worker] {
        for (int round = 0; round < kRounds; ++round) work(worker, round);
        --running;
      });
    }
    do {
      beside();
    } while (running > 0);
    for (std::thread& worker : workers) worker.join();
  }
};

TEST_F(TranslatingThreads, GetTheTextsOfTheLanguageWhileKeysAreAdded) {
  store->SetLanguage("de");
  std::atomic<int> wrong = 0;
  Run(
      [&](int worker, int round) {
        const std::string key =
            "a longer key of worker " + std::to_string(worker) + ", " + std::to_string(round);
        if (store->Translate("Step {1}") != "Schritt {1}" || store->Translate(key) != key) ++wrong;
      },
      [&] {
        if (store->Translate("Undo") != "Rückgängig") ++wrong;
      });
  EXPECT_EQ(wrong, 0);
  EXPECT_EQ(Entries(), 3 + kWorkers * kRounds);
}

TEST_F(TranslatingThreads, AddAKeyOnce) {
  store->SetLanguage("de");
  Run([&](int, int round) { store->Translate("key " + std::to_string(round)); },
      [&] { store->Translate("key " + std::to_string(kRounds - 1)); });
  EXPECT_EQ(Entries(), 3 + kRounds);
}

TEST_F(TranslatingThreads, DoNotDisturbTheMenuThatWalksTheLanguages) {
  store->SetLanguage("de");
  const ovk::xml::element& languages = store->GetLanguages();
  int wrong = 0;
  Run([&](int, int round) { store->Translate("key " + std::to_string(round)); },
      [&] {
        std::string all;
        for (const auto& language : languages.children) {
          all.append(language->attribute_or_empty("name").view()).append(" ");
        }
        if (all != "Deutsch Slovak ") ++wrong;
      });
  EXPECT_EQ(wrong, 0);
}

TEST_F(TranslatingThreads, SeeOneLanguageOrTheOtherWhileItChanges) {
  std::atomic<int> wrong = 0;
  Run(
      [&](int, int) {
        const std::string text = store->Translate("Undo");
        if (text != "Undo" && text != "Rückgängig" && text != "Späť") ++wrong;
      },
      [&] {
        for (const char* id : {"de", "sk", "en"}) store->SetLanguage(id);
      });
  EXPECT_EQ(wrong, 0);
}

TEST_F(TranslatingThreads, WorkWhileLanguagesAreLoadedExportedAndCopied) {
  store->SetLanguage("de");
  const auto file =
      File("<strings><string id='Redo'><translate>Wiederholen, noch einmal</translate></string></strings>");
  Run([&](int worker,
          int round) { store->Translate("a longer key, " + std::to_string(worker * kRounds + round)); },
      [&] {
        EXPECT_TRUE(store->LoadTranslationFile(file, "de", "Deutsch, wie man es hier spricht"));
        EXPECT_TRUE(store->ExportTranslationFile(folder / "out.xml"));
        ovk::xml::element copy = store->CopyTree();
        RemoveLanguage(copy, "sk");
        EscapeLineBreaks(copy);
      });
  EXPECT_EQ(store->Translate("Redo"), "Wiederholen, noch einmal");
}

TEST_F(TranslatingThreads, HaveACopyOfTheTreeToThemselves) {
  const std::string longText = "<strings><string id='Redo'><translate>so lang, dass es sich teilen liesse";
  for (int round = 0; round < 50; ++round) {
    // What it was made from goes on this side, and the copy on the other.
    std::thread other([copy = store->CopyTree()] {});
    EXPECT_TRUE(store->LoadTranslation(longText + std::to_string(round) + "</translate></string></strings>",
                                       "de", "Deutsch, wie man es hier spricht " + std::to_string(round)));
    other.join();
  }
}

TEST_F(TranslatingThreads, BuildMessagesOnBothSidesOfAChangeOfLanguage) {
  store->AnswerMessages();
  std::atomic<int> wrong = 0;
  Run(
      [&](int, int) {
        const std::string text = Message("Step {1}", 3).utf8();
        if (text != "Step 3" && text != "Schritt 3") ++wrong;
      },
      [&] {
        store->SetLanguage("de");
        store->SetLanguage("en");
      });
  EXPECT_EQ(wrong, 0);
}

TEST(TranslationStores, AreMadeOnceWhoeverIsFirst) {
  std::vector<std::thread> threads;
  std::vector<TranslationStore*> seen(8);
  threads.reserve(seen.size());
  for (TranslationStore*& store : seen) {
    threads.emplace_back([&store] { store = &TranslationStore::Instance(); });
  }
  for (std::thread& thread : threads) thread.join();
  for (const TranslationStore* store : seen) EXPECT_EQ(store, seen[0]);
}

}  // namespace
