#include "tests/cli/command_fixture.h"

#include <memory>
#include <sstream>

#include "common/files.h"
#include "common/log.h"
#include "program/builtin_modes.h"
#include "program/program_file.h"
#include "tests/support/fake_helper.h"
#include "tests/support/files.h"

namespace {

using TCBase::Program::Mode;
using TCBase::Program::ModeListView;

// A stream that runs actions when it is told certain texts. Written to by one thread at a time.
class ListeningBuffer : public std::streambuf {
 public:
  explicit ListeningBuffer(std::function<void(const std::string&)> heard) : heard_(std::move(heard)) {}
  const std::string& text() const { return text_; }

 protected:
  std::streamsize xsputn(const char* bytes, std::streamsize count) override {
    text_.append(bytes, static_cast<std::size_t>(count));
    heard_(text_);
    return count;
  }
  int_type overflow(int_type byte) override {
    const char character = traits_type::to_char_type(byte);
    xsputn(&character, 1);
    return byte;
  }

 private:
  std::string text_;
  std::function<void(const std::string&)> heard_;
};

// A disk with room for so many bytes.
class FullDiskBuffer : public std::streambuf {
 public:
  explicit FullDiskBuffer(std::size_t room) : room_(room) {}
  const std::string& text() const { return text_; }

 protected:
  int_type overflow(int_type byte) override {
    if (text_.size() == room_) return traits_type::eof();
    text_ += traits_type::to_char_type(byte);
    return byte;
  }

 private:
  std::size_t room_;
  std::string text_;
};

class FakeWatch : public Console::InterruptWatch {
 public:
  explicit FakeWatch(std::function<void()>& action) : action_(action) {}
  ~FakeWatch() override { action_ = nullptr; }

 private:
  std::function<void()>& action_;
};

}  // namespace

std::unique_ptr<Console::InterruptWatch> FakeConsole::WatchInterrupts(std::function<void()> action) {
  action_ = std::move(action);
  return std::make_unique<FakeWatch>(action_);
}

std::optional<std::string> FakeConsole::ReadSecret(std::string_view prompt, std::size_t most) {
  if (terminal) prompts += prompt;
  if (!secret) return std::nullopt;
  return secret->substr(0, most);
}

std::optional<std::string> FakeConsole::ReadLine(std::string_view prompt, std::size_t most) {
  if (terminal) prompts += prompt;
  if (!answer) return std::nullopt;
  return answer->substr(0, most);
}

bool FakeConsole::Interrupt() const {
  if (action_) action_();
  return static_cast<bool>(action_);
}

void CommandTest::SetUp() {
  virtual_clock::Reset();
  sim_hidapi::Reset();
  sim_network::Reset();
  fake_helper::Reset();
}

void CommandTest::TearDown() {
  EXPECT_THAT(sim_hidapi::Violations(), testing::IsEmpty());
  EXPECT_EQ(sim_hidapi::OpenHandles(), 0);
  EXPECT_THAT(sim_network::Violations(), testing::IsEmpty());
  EXPECT_EQ(sim_network::OpenSockets(), 0);
}

Outcome CommandTest::RunWith(const Words& words, std::ostream& out,
                             const std::function<std::string()>& printed) {
  std::vector<std::string> arguments;
  for (std::string word : words) {
    // In a controller's word it stands for itself.
    const std::size_t at = word.starts_with("udp:") ? std::string::npos : word.find('@');
    if (at != std::string::npos) word.replace(at, std::string::npos, PathOf(word.substr(at + 1)));
    arguments.push_back(std::move(word));
  }
  ListeningBuffer errBuffer([this](const std::string& text) {
    for (Hook& hook : hooks_)
      if (hook.action && text.find(hook.text) != std::string::npos) std::exchange(hook.action, nullptr)();
  });
  std::ostream err(&errBuffer);
  const auto translations = [this]() -> TranslationStore& { return translations_.value(); };
  const int status = cli::RunLumarinectl(arguments, {language, translations}, out, err, console);
  return {status, WithoutFolder(printed()), WithoutFolder(errBuffer.text())};
}

TranslationStore& CommandTest::GivenTranslations(std::string_view document) {
  translations_.emplace(document).AnswerMessages();
  return *translations_;
}

Outcome CommandTest::Run(const Words& words) {
  std::ostringstream out;
  return RunWith(words, out, [&] { return out.str(); });
}

Outcome CommandTest::RunIntoFullDisk(const Words& words, std::size_t room) {
  FullDiskBuffer buffer(room);
  std::ostream out(&buffer);
  return RunWith(words, out, [&] { return buffer.text(); });
}

void CommandTest::After(const std::string& text, double seconds, std::function<void()> action) {
  // The worker idles through virtual time until it has its job, so moments are counted from what it says.
  hooks_.push_back({text, [seconds, run = std::move(action)] {
                      virtual_clock::At(virtual_clock::Seconds() + seconds, run);
                    }});
}

std::string CommandTest::WithoutFolder(std::string text) const {
  const std::string prefix = Utf8FromPath(folder_.path() / "");
  for (std::size_t at = 0; (at = text.find(prefix, at)) != std::string::npos;) text.erase(at, prefix.size());
  return text;
}

std::string CommandTest::PathOf(const std::string& name) const {
  return Utf8FromPath(folder_ / PathFromUtf8(name));
}

void CommandTest::GivenFile(const std::string& name, std::string_view content) const {
  FileWith(PathFromUtf8(PathOf(name)), content);
}

void CommandTest::GivenProgram(const std::string& name, const ModeListView& document) const {
  ASSERT_TRUE(SaveProgram(document, PathFromUtf8(PathOf(name))));
  statusLog.Drain();
}

void CommandTest::GivenBuiltIn(const std::string& name) const {
  GivenProgram(name, TCBase::Program::NewProgram());
}

std::string CommandTest::ContentOf(const std::string& name) const {
  return BytesOf(PathFromUtf8(PathOf(name)));
}

bool CommandTest::Exists(const std::string& name) const {
  return std::filesystem::exists(PathFromUtf8(PathOf(name)));
}

ModeListView CommandTest::Load(const std::string& name) const {
  ModeListView document;
  EXPECT_TRUE(LoadProgram(PathFromUtf8(PathOf(name)), document)) << name;
  statusLog.Drain();
  return document;
}

ModeListView GivenRamps(std::initializer_list<std::string> names) {
  ModeListView document = TCBase::Program::NewProgram();
  document.modes.clear();
  for (const std::string& name : names) {
    Mode mode;
    mode.name = name;
    for (auto& channel : mode.channels) channel = {{8, 0, 0.0F, false}, {20, 0, 100.0F, false}};
    document.modes.push_back(std::move(mode));
  }
  return document;
}

Mode GivenModeOfRows(const std::string& name, int rows) {
  Mode mode;
  mode.name = name;
  for (auto& channel : mode.channels)
    for (int minute = 0; minute < rows; ++minute)
      channel.push_back({minute / 60, minute % 60, static_cast<float>(minute * minute % 97), false});
  return mode;
}

std::string StepsOf(const TCBase::Program::Channel& channel) {
  std::string text;
  for (const TCBase::Program::Step& step : channel) {
    if (!text.empty()) text += ", ";
    text += ToTimeText(step) + " " + std::to_string(static_cast<int>(step.value)) + (step.jump ? "J" : "");
  }
  return text;
}

std::string Transcript(const std::string& command, const Outcome& outcome) {
  return "$ lumarinectl " + command + "\n-- standard output\n" + outcome.out + "-- standard error\n" +
         outcome.err + "-- exit status " + std::to_string(outcome.status) + "\n\n";
}
