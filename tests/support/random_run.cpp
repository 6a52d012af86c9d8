#include "tests/support/random_run.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iostream>

#include "tests/support/files.h"

namespace {

// What the last words of the process are made of.
std::atomic<std::size_t> deedAtHand = 0;
std::string fileAtHand;

[[maybe_unused]] void TellOfDeed() {
  std::fprintf(stderr,
               "\nThis was deed %zu of %s. To shorten it, with the program and its filter of before:\n"
               "  tests/support/shorten_deeds.py %s PROGRAM --gtest_filter=...\n",
               deedAtHand.load() + 1, fileAtHand.c_str(), fileAtHand.c_str());
}

std::size_t Number(const char* variable, std::size_t otherwise) {
  const char* const value = std::getenv(variable);
  return value == nullptr || *value == '\0' ? otherwise : std::strtoull(value, nullptr, 10);
}

// What a fault is whichever numbers and names it tells.
std::string KindOf(const std::string& fault) {
  return fault.substr(0, fault.find_first_of(":\"0123456789"));
}

// `deeds` end with the one that failed.
void Fail(const RandomRun& run, Deeds deeds, const std::string& fault, const std::string& from) {
  const std::size_t before = deeds.size();
  std::vector<std::string> remarks;
  std::cout << "  " << fault << "\n  in " << from << ", being shortened" << std::endl;
  const auto fails = [&](const Deeds& tried) {
    remarks.clear();
    return KindOf(run.live(tried, remarks)) == KindOf(fault);
  };
  const std::filesystem::path folder = std::filesystem::temp_directory_path();
  FileWith(folder / ("lumarine-" + from + "-whole.txt"), TextOf(deeds));
  deeds = Shortened(std::move(deeds), fails, static_cast<int>(Number("LUMARINE_TRIES", run.mostTries)));
  remarks.clear();
  const std::string last = run.live(deeds, remarks);
  const std::filesystem::path file = folder / ("lumarine-" + from + ".txt");
  FileWith(file, TextOf(deeds, remarks));
  FAIL() << fault << "\nin " << from << ", shortened from " << before << " deeds to " << deeds.size()
         << ", which say: " << (last.empty() ? "nothing, this time" : last) << "\n\n"
         << TextOf(deeds, remarks) << "\nOnce more:\n  LUMARINE_DEEDS=" << file.string() << ' ' << run.command
         << '\n';
}

}  // namespace

// Where the program is built with a sanitizer, which calls it before the process ends.
extern "C" [[gnu::weak]] void __sanitizer_set_death_callback(void (*callback)());

bool IsReplay() {
  const char* const file = std::getenv("LUMARINE_DEEDS");
  return file != nullptr && *file != '\0';
}

void NoteDeed(std::size_t place) {
  deedAtHand = place;
}

void RunRandomly(const RandomRun& run, std::size_t deeds, std::size_t deedsOfALife) {
#ifndef _WIN32
  if (__sanitizer_set_death_callback != nullptr) __sanitizer_set_death_callback(TellOfDeed);
#endif
  const auto live = [&](Deeds& life, const std::string& from) {
    fileAtHand = (std::filesystem::temp_directory_path() / ("lumarine-running-" + from + ".txt")).string();
    FileWith(fileAtHand, TextOf(life));
    std::vector<std::string> remarks;
    const std::string fault = run.live(life, remarks);
    std::filesystem::remove(fileAtHand);
    life.resize(remarks.size());
    return fault;
  };
  if (IsReplay()) {
    const Deeds replayed = DeedsFrom(BytesOf(std::getenv("LUMARINE_DEEDS")));
    std::vector<std::string> remarks;
    const std::string fault = run.live(replayed, remarks);
    EXPECT_EQ(fault, "") << TextOf(replayed, remarks);
    return;
  }
  deeds = Number("LUMARINE_DEED_COUNT", deeds);
  const auto begin = std::chrono::steady_clock::now();
  std::size_t done = 0;
  for (std::size_t seed = Number("LUMARINE_SEED", 1); done < deeds; ++seed) {
    Deeds life = DeedsOf(seed, std::min(deedsOfALife, deeds - done), run.habits);
    const std::string from = "seed-" + std::to_string(seed);
    const std::string fault = live(life, from);
    if (!fault.empty()) return Fail(run, life, fault, from);
    if (testing::Test::HasFailure()) return;
    done += life.size();
    if (seed % 50 == 0) std::cout << "  " << done << " deeds, up to seed " << seed << std::endl;
  }
  const std::chrono::duration<double> took = std::chrono::steady_clock::now() - begin;
  std::cout << "  " << done << " deeds in " << took.count() << " s" << std::endl;
}
