// From nothing to the first whole picture: what a user waits for after the double click, less the platform's
// windows and drawing, and less the half second that the program waits on purpose, which passes at once here.

#include <benchmark/benchmark.h>

#include <filesystem>
#include <memory>
#include <random>
#include <string>

#include "common/files.h"
#include "program/builtin_modes.h"
#include "program/program_file.h"
#include "tests/support/headless_user.h"

namespace {

// A Documents folder with settings that name a program of the example's size.
class Documents {
 public:
  Documents()
      : path_(std::filesystem::temp_directory_path() /
              ("lumarine-bench-" + std::to_string(std::random_device()()))) {
    std::filesystem::create_directories(path_);
    const std::filesystem::path example =
        std::filesystem::path(LUMARINE_SOURCE_DIR) / "examples" / "planted-tank.xml";
    Settings settings(path_ / Settings::fileName);
    settings.SetValue("last_open_file", Utf8FromPath(example));
    settings.Save();
  }
  ~Documents() { std::filesystem::remove_all(path_); }
  Documents(const Documents&) = delete;
  Documents& operator=(const Documents&) = delete;

  const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path path_;
};

// The application's objects alone, the worker's thread among them.
void LoadPhase(benchmark::State& state) {
  const Documents documents;
  Settings settings(documents.path() / Settings::fileName);
  TranslationStore translations("", "");
  for (auto _ : state) {
    headless::Desktop desktop(settings, translations, documents.path() / "LumarineLog.txt");
    benchmark::DoNotOptimize(desktop.application->state.program);
    state.PauseTiming();
    desktop.application.reset();  // joins the thread, which may be asleep
    state.ResumeTiming();
  }
}
BENCHMARK(LoadPhase)->Unit(benchmark::kMicrosecond);

// Settings read, program loaded, controls filled, log drained, chart asked to draw.
void StartToFirstFrame(benchmark::State& state) {
  const Documents documents;
  for (auto _ : state) {
    headless::HeadlessUser user(documents.path());
    user.Start();
    if (user.GetDesktop().Renderer().frames == 0) state.SkipWithError("no picture");
    state.PauseTiming();
    user.Close();
    state.ResumeTiming();
  }
}
BENCHMARK(StartToFirstFrame)->Unit(benchmark::kMicrosecond);

}  // namespace
