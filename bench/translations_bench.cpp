// The translations: what the program's start pays for them, and what each text does.

#include <benchmark/benchmark.h>

#include <filesystem>
#include <string>

#include "OvkLib/src/ovk_xml.h"
#include "common/files.h"
#include "common/message.h"
#include "localisation/translation_store.h"

namespace {

std::string ProgramDocument(const char* name) {
  std::string bytes;
  ReadFileBytes(std::filesystem::path(LUMARINE_SOURCE_DIR) / "resources" / name, bytes);
  return bytes;
}

const std::string kDocument = ProgramDocument("translations.xml");
const std::string kMore = ProgramDocument("translations-more.xml");
// One near the front of the document, one at its end, and one that it does not have.
constexpr std::string_view kKeys[] = {"Add Steps", "{1}, Version {2}.{3}, Build {4}", "not in the document"};

void StartTheProgram(benchmark::State& state) {
  for (auto _ : state) {
    TranslationStore store(kDocument, kMore);
    benchmark::DoNotOptimize(store.GetLanguages().children.count());
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(kDocument.size() + kMore.size()));
}
BENCHMARK(StartTheProgram)->Unit(benchmark::kMicrosecond);

void TranslateToSpanish(benchmark::State& state) {
  TranslationStore store(kDocument, kMore);
  store.SetLanguage("es");
  const std::string_view key = kKeys[state.range(0)];
  state.SetLabel(std::string(key));
  for (auto _ : state) benchmark::DoNotOptimize(store.Translate(key).data());
}
BENCHMARK(TranslateToSpanish)->DenseRange(0, 2);

void MessageOfTwoTexts(benchmark::State& state) {
  const bool english = state.range(0) == 0;
  TranslationStore store(kDocument, kMore);
  store.AnswerMessages();
  store.SetLanguage(english ? "en" : "es");
  state.SetLabel(english ? "English" : "Spanish");
  for (auto _ : state) {
    benchmark::DoNotOptimize(Message("Error creating file {1}, error: {2}", "a", "b").utf8().data());
  }
}
BENCHMARK(MessageOfTwoTexts)->DenseRange(0, 1);

void ExportSpanish(benchmark::State& state) {
  TranslationStore store(kDocument, kMore);
  store.SetLanguage("es");
  for (auto _ : state) {
    ovk::string bytes;
    ovk::xml::serialize(bytes, store.ExportTranslation(), 0);
    benchmark::DoNotOptimize(bytes.length());
  }
}
BENCHMARK(ExportSpanish)->Unit(benchmark::kMicrosecond);

void LoadATranslation(benchmark::State& state) {
  TranslationStore store(kDocument, kMore);
  store.SetLanguage("es");
  ovk::string bytes;
  ovk::xml::serialize(bytes, store.ExportTranslation(), 0);
  for (auto _ : state) store.LoadTranslation(bytes.view(), "test", "Test Translation");
}
BENCHMARK(LoadATranslation)->Unit(benchmark::kMicrosecond);

// Entries for nobody: each is looked for among all keys.
void LoadAMillionEntries(benchmark::State& state) {
  TranslationStore store(kDocument, kMore);
  std::string bytes = "<a>";
  for (int i = 0; i < 1'000'000; ++i) bytes += "<b><c/></b>";
  bytes += "</a>";
  for (auto _ : state) store.LoadTranslation(bytes, "test", "Test Translation");
}
BENCHMARK(LoadAMillionEntries)->Unit(benchmark::kMillisecond);

}  // namespace
