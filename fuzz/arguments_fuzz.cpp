// Lines as the words of a command line, in a folder with a program and a mode file of each kind, before
// controllers on USB and the network. Whatever they are, the command ends with one of its statuses, tells why
// where it failed, prints nothing that a terminal obeys, and leaves no handle, no socket and no controller in
// doubt; wrong usage touches nothing.

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "cli/lumarinectl.h"
#include "common/log.h"
#include "fuzz/input.h"
#include "fuzz/working_folder.h"
#include "localisation/translation_store.h"
#include "program/builtin_modes.h"
#include "program/lmf.h"
#include "program/program_file.h"
#include "program/tmf.h"
#include "tests/support/fake_helper.h"
#include "tests/support/sim_hidapi.h"
#include "tests/support/sim_network.h"
#include "tests/support/virtual_clock.h"

namespace {

using fuzz::Require;

constexpr std::size_t kMostWords = 40;
constexpr int kWrongUsage = 2;
constexpr int kLastStatus = 4;

// A person reads the messages, and nobody types.
class ReadConsole : public Console {
 public:
  bool OutputIsTerminal() const override { return false; }
  bool ErrorIsTerminal() const override { return true; }
  bool OutputShowsColours() const override { return false; }
  bool ErrorShowsProgress() const override { return false; }
  int Width() const override { return 80; }
  bool InputIsTerminal() const override { return false; }
  std::optional<std::string> ReadSecret(std::string_view, std::size_t most) override {
    return std::string("a secret of the house").substr(0, most);
  }
  std::optional<std::string> ReadLine(std::string_view, std::size_t) override { return "yes"; }
  std::unique_ptr<InterruptWatch> WatchInterrupts(std::function<void()>) override {
    return std::make_unique<InterruptWatch>();
  }
};

// The files that a command finds, by their names.
const std::map<std::string, std::string>& GivenFiles() {
  static const std::map<std::string, std::string> files = [] {
    using namespace TCBase::Program;
    const ModeListView program = NewProgram();
    Require(SaveProgram(program, fuzz::ThisFolder() / "a.xml"));
    std::map<std::string, std::string> made = {{"a.xml", fuzz::ThisFolder().Read("a.xml")}};
    WriteTmf(program.modes[0], made["a.tmf"]);
    WriteLmf(program.modes[0], made["a.lmf"]);
    made["a.txt"] = "08:00 10\n20:00 80 J\n";
    return made;
  }();
  return files;
}

// Words stay in the folder: none goes up or to another one.
std::vector<std::string> WordsOf(fuzz::Input input) {
  std::vector<std::string> words;
  while (!input.IsEmpty() && words.size() < kMostWords) {
    std::string word(input.TakeLine());
    std::erase_if(word, [](char c) { return c == '/' || c == '\\' || c == '\0'; });
    words.push_back(std::move(word));
  }
  return words;
}

std::map<std::string, std::string> FilesThere() {
  std::map<std::string, std::string> files;
  for (const auto& entry : std::filesystem::directory_iterator("."))
    files[entry.path().filename().string()] =
        entry.is_regular_file() ? fuzz::ThisFolder().Read(entry.path().c_str()) : "";
  return files;
}

bool IsHarmless(char c) {
  return c == '\n' || c == '\r' || (static_cast<unsigned char>(c) >= 0x20 && c != 0x7F);
}

TranslationStore& Translations() {
  static TranslationStore& store = *new TranslationStore(
      "<l><languages><language id='de'/></languages><strings><string "
      "id='Undo'><de>Zur</de></string></strings></l>");
  return store;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::vector<std::string> words = WordsOf(fuzz::Input(data, size));
  for (const auto& [name, bytes] : GivenFiles()) fuzz::ThisFolder().Write(name.c_str(), bytes);
  virtual_clock::Reset();
  sim_hidapi::Reset();
  sim_network::Reset();
  fake_helper::Reset();
  sim_hidapi::PlugIn(sim_hidapi::Family::TC420);

  ReadConsole console;
  std::ostringstream out;
  std::ostringstream err;
  const int status = cli::RunLumarinectl(words, {"en", &Translations}, out, err, console);

  Require(status >= 0 && status <= kLastStatus);
  const std::string told = err.str();
  Require(status == 0 || !told.empty() || !out.str().empty());
  for (const char c : told) Require(IsHarmless(c));
  Require(sim_hidapi::OpenHandles() == 0 && sim_hidapi::Violations().empty());
  Require(sim_network::OpenSockets() == 0 && sim_network::Violations().empty());
  if (status == kWrongUsage) Require(FilesThere() == GivenFiles() && sim_network::Traffic().empty());
  fuzz::ThisFolder().Empty();
  return 0;
}
