#pragma once

// A person at the command line: types commands, reads what they print, presses Ctrl+C, plugs controllers in.
// Runs on virtual time with simulated controllers.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>
#include <functional>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "cli/lumarinectl.h"
#include "localisation/translation_store.h"
#include "program/program.h"
#include "tests/support/sim_hidapi.h"
#include "tests/support/sim_network.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/virtual_clock.h"

inline constexpr int kSuccess = 0;
inline constexpr int kOperationFailed = 1;
inline constexpr int kWrongUsage = 2;
inline constexpr int kNoDevice = 3;
inline constexpr int kFileFailed = 4;

/// A console in memory.
class FakeConsole : public Console {
 public:
  bool OutputIsTerminal() const override { return terminal; }
  bool ErrorIsTerminal() const override { return terminal; }
  bool OutputShowsColours() const override { return colours; }
  bool ErrorShowsProgress() const override { return terminalShowsProgress; }
  int Width() const override { return width; }
  bool InputIsTerminal() const override { return terminal; }
  std::optional<std::string> ReadSecret(std::string_view prompt, std::size_t most) override;
  std::optional<std::string> ReadLine(std::string_view prompt, std::size_t most) override;
  std::unique_ptr<InterruptWatch> WatchInterrupts(std::function<void()> action) override;

  /// Presses Ctrl+C; false if nobody watches. Any thread, while the command runs.
  bool Interrupt() const;

  bool terminal = false;
  bool colours = false;
  bool terminalShowsProgress = false;
  int width = 80;
  std::optional<std::string> secret;  // the line that is typed, or piped
  std::optional<std::string> answer;  // to a question
  std::string prompts;                // that were shown

 private:
  std::function<void()> action_;  // set before the command's threads start and cleared after they end
};

/// How a command ended, with the test's folder taken out of the texts.
struct Outcome {
  int status = -1;
  std::string out;
  std::string err;
};

using Words = std::vector<std::string>;

class CommandTest : public testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  /// Types a command. A word that begins with "@" is a file in the test's folder; "1=@blue.txt" works too.
  Outcome Run(const Words& words);

  /// The same with standard output breaking after this many bytes.
  Outcome RunIntoFullDisk(const Words& words, std::size_t room);

  /// Once standard error says `text`, `action` runs `seconds` later by the clock.
  void After(const std::string& text, double seconds, std::function<void()> action);

  // Files, by the names that commands get them by, with the "@".

  std::string PathOf(const std::string& name) const;
  void GivenFile(const std::string& name, std::string_view content) const;
  /// Writes a program, as the program itself does.
  void GivenProgram(const std::string& name, const TCBase::Program::ModeListView& document) const;
  /// Writes the built-in program.
  void GivenBuiltIn(const std::string& name) const;
  std::string ContentOf(const std::string& name) const;
  bool Exists(const std::string& name) const;
  TCBase::Program::ModeListView Load(const std::string& name) const;

  FakeConsole console;
  /// What the environment asks for.
  std::string language = "en";
  /// What other languages are read from.
  TranslationStore& GivenTranslations(std::string_view document);

 private:
  struct Hook {
    std::string text;
    std::function<void()> action;
  };
  Outcome RunWith(const Words& words, std::ostream& out, const std::function<std::string()>& printed);
  std::string WithoutFolder(std::string text) const;

  std::optional<TranslationStore> translations_;
  TemporaryFolder folder_;
  std::vector<Hook> hooks_;
};

/// A program of modes with these names, each with one ramp from 08:00 to 20:00 in all channels.
TCBase::Program::ModeListView GivenRamps(std::initializer_list<std::string> names);

/// A mode of `rows` merged rows, one a minute from 00:00 on.
TCBase::Program::Mode GivenModeOfRows(const std::string& name, int rows);

/// The steps "08:00 40, 09:30 80J".
std::string StepsOf(const TCBase::Program::Channel& channel);

/// A transcript as the golden files hold it.
std::string Transcript(const std::string& command, const Outcome& outcome);
