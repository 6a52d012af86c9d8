// Processes that are killed at any moment of a user's work, and what the next start has of it.
//
// A user at random works in a process of his own, on the headless shell, as long in real time as on the
// shell's clock. He notes each state of the document before he goes on, when one has been at rest for two
// seconds, and what he is about to save. The process is killed; then the program is started again here and
// the answers are held against the notes.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <memory>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "app/document/program_document.h"
#include "app/window/command.h"
#include "chart/chart_layout.h"
#include "common/files.h"
#include "program/builtin_modes.h"
#include "program/program_file.h"
#include "program/recovery_file.h"
#include "tests/support/files.h"
#include "tests/support/headless_user.h"
#include "tests/support/run_length.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/virtual_clock.h"

namespace {

namespace fs = std::filesystem;
namespace command = app::command;
using app::Answer;
using std::chrono::milliseconds;
using TCBase::Program::ModeListView;

// All of a document that comes back, as text.
std::string TextOf(const ModeListView& document) {
  return TCBase::Program::ToRecoveryText({document, {}, 0, {}});
}

// What the user has noted, in the order in which it happened. A note is whole or not there: it is one write.
struct Note {
  enum Kind : char {
    Document = 'D',  // the document is this by now
    Saved = 'S',     // it is this, and nothing of it is unsaved
    Rested = 'R',    // the last one has not changed for as long as is promised
    Saving = 'F',    // the user's file may be this from now on
  };
  Kind kind;
  std::string text;
};

class Notes {
 public:
  explicit Notes(const fs::path& file) : file_(file, std::ios::binary | std::ios::app) {}
  void Add(Note::Kind kind, const std::string& text) {
    file_ << static_cast<char>(kind) << ' ' << text.size() << '\n' << text << std::flush;
  }

 private:
  std::ofstream file_;
};

std::vector<Note> ReadNotes(const fs::path& path) {
  std::vector<Note> notes;
  std::ifstream file(path, std::ios::binary);
  char kind = 0;
  std::size_t size = 0;
  while (file.get(kind) && file >> size && file.get() == '\n') {
    std::string text(size, '\0');
    if (!file.read(text.data(), static_cast<std::streamsize>(size))) break;
    notes.push_back({static_cast<Note::Kind>(kind), std::move(text)});
  }
  return notes;
}

fs::path FileIn(const fs::path& folder) {
  return folder / "Tank.xml";
}

// The one who works until he is killed.
class RandomUser {
 public:
  RandomUser(const fs::path& folder, std::uint32_t seed)
      : folder_(folder), notes_(folder / "notes"), user_(folder), random_(seed) {}

  void Begin() {
    user_.Start();
    // Every second one begins with a file.
    if (Below(2) == 0) SaveAs();
    NoteDocument();
    std::ofstream(folder_ / "begun");
  }
  void Go() {
    constexpr std::array kCommands{command::kAlign60,   command::kEndpointStart, command::kEndpointEnd,
                                   command::kUndo,      command::kUndo,          command::kRedo,
                                   command::kNewProgram};
    switch (Below(10)) {
      case 0:
        SaveAs();
        break;
      case 1:
      case 2:
      case 3:
        Drag();
        break;
      case 4:
        user_.WillAnswer(Answer::No);
        user_.Choose(command::kNewProgram);
        user_.GetDesktop().questions.answers.clear();
        break;
      default:
        user_.SendCommand(kCommands[static_cast<std::size_t>(Below(kCommands.size() - 1))]);
        break;
    }
    NoteDocument();
    Pause(Below(4) == 0 ? 100 * Below(30) : 10 * Below(20));
  }

 private:
  int Below(std::size_t limit) { return static_cast<int>(random_() % limit); }
  const ModeListView& Program() { return user_.State().program; }

  void NoteDocument() {
    std::string text = TextOf(Program());
    const bool isSaved = app::SameProgram(Program(), user_.State().savedProgram.copy);
    if (text == noted_ && isSaved == notedAsSaved_) return;
    notes_.Add(isSaved ? Note::Saved : Note::Document, text);
    noted_ = std::move(text);
    notedAsSaved_ = isSaved;
    atRest_ = 0;
  }
  void Pause(int forMilliseconds) {
    constexpr int kPiece = 50;
    for (int left = forMilliseconds; left > 0; left -= kPiece) {
      std::this_thread::sleep_for(milliseconds(kPiece));
      user_.Wait(kPiece / 1000.0);
      atRest_ += kPiece;
      if (atRest_ == kPromised) notes_.Add(Note::Rested, {});
    }
  }
  void Drag() {
    if (Program().modes.empty()) return;
    const auto& mode = user_.State().CurrentMode();
    const auto channel = static_cast<std::size_t>(Below(mode.channels.size()));
    if (mode.channels[channel].empty()) return;
    const auto& step = mode.channels[channel][static_cast<std::size_t>(Below(mode.channels[channel].size()))];
    const UX::Rect lane = user_.State().chartLayout.LaneRect(static_cast<int>(channel));
    user_.MoveMouse(UX::TimeToX(lane, Program(), (std::int64_t{step.hour} * 60 + step.minute) * 60),
                    UX::PercentToY(lane, step.value));
    user_.HoldButton();
    for (int move = Below(8); move > 0; --move) {
      user_.MoveMouse(static_cast<int>(lane.x) + Below(600), static_cast<int>(lane.y) + Below(60));
      NoteDocument();
      Pause(50);
    }
    user_.ReleaseButton();
  }
  void SaveAs() {
    notes_.Add(Note::Saving, TextAsSaved());
    user_.WillPick({FileIn(folder_)});
    user_.WillAnswer(Answer::Yes);
    user_.SendCommand(command::kSaveProgramAs);
    user_.GetDesktop().questions.answers.clear();
  }
  std::string TextAsSaved() {
    ovk::xml::element root;
    BuildProgramXml(Program(), root);
    ovk::string text;
    ovk::xml::serialize(text, root, 0);
    return std::string(text.view());
  }

  static constexpr int kPromised = 2000;  // milliseconds until a change that has come to rest is kept

  const fs::path folder_;
  Notes notes_;
  headless::HeadlessUser user_;
  std::mt19937 random_;
  std::string noted_;
  bool notedAsSaved_ = false;
  int atRest_ = 0;
};

// A process with a user at work.
class Worker {
 public:
  explicit Worker(std::uint32_t seed) : seed_(seed) {
    process_ = fork();
    if (process_ != 0) return;
    virtual_clock::Reset();
    RandomUser user(folder_.path(), seed);
    user.Begin();
    for (;;) user.Go();
  }

  void Kill() {
    kill(process_, SIGKILL);
    int status = 0;
    waitpid(process_, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) << "the user's process ended by itself";
  }
  bool HasBegun() const { return fs::exists(folder_ / "begun"); }
  const fs::path& Folder() const { return folder_.path(); }
  std::uint32_t Seed() const { return seed_; }

 private:
  const std::uint32_t seed_;
  const TemporaryFolder folder_;
  pid_t process_ = -1;
};

// What the notes allow the next start to have: all states since the last that had rested.
struct Allowed {
  std::vector<std::string> documents;
  bool nothing = false;  // one of these was saved, or there was nothing to lose
};
Allowed AllowedBy(const std::vector<Note>& notes) {
  Allowed allowed;
  bool lastIsSaved = false;
  for (const Note& note : notes) {
    if (note.kind == Note::Rested) {
      allowed.documents.erase(allowed.documents.begin(), allowed.documents.end() - 1);
      allowed.nothing = lastIsSaved;
    }
    if (note.kind != Note::Document && note.kind != Note::Saved) continue;
    allowed.documents.push_back(note.text);
    lastIsSaved = note.kind == Note::Saved;
    allowed.nothing = allowed.nothing || lastIsSaved;
  }
  return allowed;
}

// True if there was something to bring back.
bool ExpectNothingBroken(const Worker& worker) {
  SCOPED_TRACE("seed " + std::to_string(worker.Seed()));
  const std::vector<Note> notes = ReadNotes(worker.Folder() / "notes");

  // The user's file is one of those that he saved, whole.
  if (fs::exists(FileIn(worker.Folder()))) {
    const std::string bytes = BytesOf(FileIn(worker.Folder()));
    EXPECT_TRUE(std::ranges::any_of(notes, [&bytes](const Note& note) {
      return note.kind == Note::Saving && note.text == bytes;
    })) << "the user's file is none that was saved";
  }

  virtual_clock::Reset();
  headless::HeadlessUser user(worker.Folder());
  user.WillAnswer(Answer::Yes);
  user.Start();
  const bool wasOffered = user.GetDesktop().questions.answers.empty();
  user.GetDesktop().questions.answers.clear();
  const Allowed allowed = AllowedBy(notes);
  const std::string newProgram = TextOf(TCBase::Program::NewProgram());
  const bool nothingToLose =
      allowed.nothing || std::ranges::find(allowed.documents, newProgram) != allowed.documents.end();
  if (wasOffered) {
    EXPECT_TRUE(std::ranges::find(allowed.documents, TextOf(user.State().program)) != allowed.documents.end())
        << "what was restored is older than what had rested, or never was";
  } else {
    EXPECT_TRUE(nothingToLose) << "nothing was kept";
  }
  return wasOffered;
}

TEST(KilledWork, IsThereAtTheNextStart) {
  constexpr std::size_t kAtATime = 10;
  std::mt19937 random(2026);
  int broughtBack = 0;
  for (std::size_t done = 0; done < Rounds(kAtATime, 1000); done += kAtATime) {
    std::vector<std::unique_ptr<Worker>> workers;
    for (std::size_t i = 0; i < kAtATime; ++i)
      workers.push_back(std::make_unique<Worker>(static_cast<std::uint32_t>(random())));
    for (const auto& worker : workers) {
      while (!worker->HasBegun()) std::this_thread::sleep_for(milliseconds(5));
      std::this_thread::sleep_for(milliseconds(random() % 900));
    }
    for (const auto& worker : workers) worker->Kill();
    for (const auto& worker : workers) broughtBack += ExpectNothingBroken(*worker) ? 1 : 0;
    if (HasFailure()) return;
  }
  EXPECT_GT(broughtBack, 0);
  RecordProperty("brought back", broughtBack);
}

}  // namespace
