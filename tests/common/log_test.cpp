#include "common/log.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <mutex>
#include <numeric>
#include <set>
#include <thread>

#include "tests/support/fake_translator.h"
#include "tests/support/golden.h"
#include "tests/support/virtual_clock.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Takes all that waits in a channel.
std::vector<std::string> Taken(LogChannel& channel) {
  std::vector<std::string> items;
  channel.textHandler = [&items](const std::string& text) { items.push_back(text); };
  channel.Drain();
  channel.textHandler = nullptr;
  return items;
}

class Log : public testing::Test {
 protected:
  void SetUp() override {
    virtual_clock::Reset();
    for (LogChannel* channel : {&statusLog, &warningLog, &deviceLog}) channel->Drain();
  }
};

std::vector<unsigned char> CountingBytes(std::size_t length) {
  std::vector<unsigned char> bytes(length);
  std::iota(bytes.begin(), bytes.end(), static_cast<unsigned char>(0));
  return bytes;
}

std::string DumpOf(const std::vector<unsigned char>& bytes) {
  LogDeviceDump(bytes.data(), bytes.size());
  const std::vector<std::string> items = Taken(deviceLog);
  EXPECT_EQ(items.size(), 2U);
  EXPECT_EQ(items.back(), "\r\n");
  return items.front();
}

TEST_F(Log, ALineIsTwoItemsTheTextAndItsEnd) {
  LogPlain("one");
  LogPlain("two");
  EXPECT_THAT(Taken(statusLog), ElementsAre("one", "\r\n", "two", "\r\n"));
}

TEST_F(Log, AChannelWithoutHandlersKeepsWhatItIsGiven) {
  LogPlain("kept");
  LogPlain("and kept");
  EXPECT_EQ(Taken(statusLog).size(), 4U);
}

TEST_F(Log, DrainWithoutTextHandlerEmptiesTheQueueAndShowsNothing) {
  LogPlain("lost");
  statusLog.Drain();
  EXPECT_THAT(Taken(statusLog), IsEmpty());
}

TEST_F(Log, EveryEndOfALineWakesOnce) {
  int wakes = 0;
  statusLog.wakeHandler = [&wakes] { ++wakes; };
  statusLog.Append("no wake yet");
  EXPECT_EQ(wakes, 0);
  statusLog.EndLine();
  LogPlain("second line");
  EXPECT_EQ(wakes, 2);
  statusLog.wakeHandler = nullptr;
  LogPlain("nobody listens");
  EXPECT_EQ(wakes, 2);
}

TEST_F(Log, AWakeHandlerMayDrainOnTheCallingThread) {
  std::string shown;
  statusLog.textHandler = [&shown](const std::string& text) { shown += text; };
  statusLog.wakeHandler = [] { statusLog.Drain(); };
  LogPlain("a");
  LogPlain("b");
  EXPECT_EQ(shown, "a\r\nb\r\n");
  statusLog.wakeHandler = nullptr;
  statusLog.textHandler = nullptr;
}

TEST_F(Log, AHandlerMayLogItself) {
  std::vector<std::string> shown;
  statusLog.textHandler = [&shown](const std::string& text) {
    shown.push_back(text);
    if (text == "first") LogPlain("from the handler");
  };
  LogPlain("first");
  statusLog.Drain();
  EXPECT_THAT(shown, ElementsAre("first", "\r\n"));
  statusLog.Drain();
  EXPECT_THAT(shown, ElementsAre("first", "\r\n", "from the handler", "\r\n"));
  statusLog.textHandler = nullptr;
}

TEST_F(Log, ABatchShowsWhatWasSaidBeforeAWarningBeforeIt) {
  std::vector<std::string> shown;
  const auto show = [&shown](const std::string& text) {
    if (text != "\r\n") shown.push_back(text);
  };
  // While the first line is being shown another thread says two more.
  statusLog.textHandler = [&show](const std::string& text) {
    show(text);
    if (text != "begins") return;
    LogPlain("ended");
    LogWarning("not confirmed");
  };
  warningLog.textHandler = show;
  LogPlain("begins");
  LogWarning("too many");
  statusLog.DrainBefore(warningLog);
  statusLog.DrainBefore(warningLog);
  EXPECT_THAT(shown, ElementsAre("begins", "too many", "ended", "not confirmed"));
  statusLog.textHandler = nullptr;
  warningLog.textHandler = nullptr;
}

TEST_F(Log, StatusAndWarningLinesHaveNoStamp) {
  LogStatus(Message("Channel {1}", 3));
  LogWarning("Too many steps");
  EXPECT_THAT(Taken(statusLog), ElementsAre("Channel 3", "\r\n"));
  EXPECT_THAT(Taken(warningLog), ElementsAre("Too many steps", "\r\n"));
}

TEST_F(Log, DeviceLinesCarryTheLocalTimeWithAnUnpaddedHour) {
  virtual_clock::SetLocalTime({2026, 3, 14, 9, 5, 3, 7});
  LogDevice("ClearAll");
  virtual_clock::SetLocalTime({2026, 3, 14, 23, 59, 59, 999});
  LogDevice("");
  EXPECT_THAT(Taken(deviceLog), ElementsAre("9:05:03:007 ClearAll", "\r\n", "23:59:59:999 ", "\r\n"));
}

TEST_F(Log, ADumpOfNoBytesIsTheEmptyTextWithItsLineEnd) {
  LogDeviceDump(nullptr, 0);
  EXPECT_THAT(Taken(deviceLog), ElementsAre("", "\r\n"));
}

TEST_F(Log, ADumpOfSixteenBytesIsOneRow) {
  golden::Expect("tests/common/golden/dump_of_16_bytes.txt", DumpOf(CountingBytes(16)));
}

TEST_F(Log, ADumpOfSeventeenBytesHasARowOfOneByteAndFifteenEmptyColumns) {
  golden::Expect("tests/common/golden/dump_of_17_bytes.txt", DumpOf(CountingBytes(17)));
}

TEST_F(Log, ADumpShowsPrintableBytesAsText) {
  golden::Expect("tests/common/golden/dump_of_all_bytes.txt", DumpOf(CountingBytes(256)));
}

TEST_F(Log, ARowOfADumpLooksLikeThis) {
  const std::string text = "Lumarine\x7F\x80";
  EXPECT_EQ(DumpOf({text.begin(), text.end()}),
            "0000  4C 75 6D 61 72 69 6E 65  7F 80                      Lumarine .. \n");
}

TEST_F(Log, AHintShowsOnceInARun) {
  ShownHints shown;
  Hint("Click a lane to add a step", shown);
  Hint("Click a lane to add a step", shown);
  EXPECT_THAT(Taken(statusLog), ElementsAre("Hint: Click a lane to add a step", "\r\n"));
  Hint("Click a lane to add a step", shown);
  EXPECT_THAT(Taken(statusLog), IsEmpty());
  Hint("Press DELETE", shown);
  EXPECT_THAT(Taken(statusLog), ElementsAre("Hint: Press DELETE", "\r\n"));
}

TEST_F(Log, AHintShowsInTheLanguageOfTheMomentAndOnceWhateverTheLanguage) {
  ShownHints shown;
  {
    const FakeTranslator german(
        [](std::string_view key) { return key == "Hint: {1}" ? "Tipp: {1}" : "de: " + std::string(key); });
    Hint("Press DELETE", shown);
    EXPECT_THAT(Taken(statusLog), ElementsAre("Tipp: de: Press DELETE", "\r\n"));
  }
  {
    const FakeTranslator slovak(
        [](std::string_view key) { return key == "Hint: {1}" ? "Tip: {1}" : "sk: " + std::string(key); });
    Hint("Press DELETE", shown);
  }
  Hint("Press DELETE", shown);
  EXPECT_THAT(Taken(statusLog), IsEmpty());
}

// Logs while the process still loads, as the worker does.
const struct EarlyWriter {
  EarlyWriter() {
    LogPlain("from a constructor");
    items = Taken(statusLog);
  }
  std::vector<std::string> items;
} earlyWriter;

TEST_F(Log, WorksBeforeMain) {
  EXPECT_THAT(earlyWriter.items, ElementsAre("from a constructor", "\r\n"));
}

// The program at its busiest: threads write to a channel while the user interface thread attaches the
// handlers, drains, and takes them away. No item may be lost or doubled, and the thread sanitizer watches.
TEST_F(Log, ThreadsMayWriteWhileHandlersComeAndGo) {
  constexpr int kThreads = 4;
  constexpr int kLines = 500;
  LogChannel channel;
  std::multiset<std::string> shown;
  std::atomic<int> wakes = 0;
  std::atomic<int> running = kThreads;

  std::vector<std::thread> writers;
  writers.reserve(kThreads);
  for (int thread = 0; thread < kThreads; ++thread) {
    writers.emplace_back([&channel, &running, thread] {
      for (int line = 0; line < kLines; ++line) {
        channel.Append(std::to_string(thread) + ":" + std::to_string(line));
        channel.EndLine();
      }
      --running;
    });
  }
  while (running > 0) {
    channel.wakeHandler = [&wakes] { ++wakes; };
    channel.textHandler = [&shown](const std::string& text) { shown.insert(text); };
    channel.Drain();
    channel.wakeHandler = nullptr;
    channel.textHandler = nullptr;
  }
  for (std::thread& writer : writers) writer.join();
  channel.textHandler = [&shown](const std::string& text) { shown.insert(text); };
  channel.Drain();

  EXPECT_EQ(shown.size(), static_cast<std::size_t>(2 * kThreads * kLines));
  EXPECT_EQ(shown.count("\r\n"), static_cast<std::size_t>(kThreads * kLines));
  EXPECT_EQ(shown.count("3:499"), 1U);
  EXPECT_LE(wakes, kThreads * kLines);
}

TEST_F(Log, TwoThreadsMayDrainAtOnceEachItsOwnBatch) {
  constexpr int kLines = 500;
  LogChannel channel;
  std::mutex mutex;
  std::multiset<std::string> shown;
  channel.textHandler = [&](const std::string& text) {
    const std::lock_guard guard(mutex);
    shown.insert(text);
  };
  channel.wakeHandler = [&channel] { channel.Drain(); };
  const auto write = [&channel](const char* name) {
    for (int line = 0; line < kLines; ++line) {
      channel.Append(name);
      channel.EndLine();
    }
  };
  std::thread other(write, "worker");
  write("user interface");
  other.join();
  EXPECT_EQ(shown.count("worker"), static_cast<std::size_t>(kLines));
  EXPECT_EQ(shown.count("user interface"), static_cast<std::size_t>(kLines));
  EXPECT_EQ(shown.count("\r\n"), static_cast<std::size_t>(2 * kLines));
}

}  // namespace
