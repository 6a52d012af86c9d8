#pragma once

// The three log channels and what writes to them. A writer never touches a window and never waits for one: it
// appends to a queue under a short lock and rings a wake-up. Who drains the queue, and on which thread, is a
// property of the channel.

#include <cstddef>
#include <functional>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "common/message.h"

/// A callable that one thread may replace while others call it. A call that has begun ends with the callable
/// it began with, possibly after the replacement: what a handler refers to must outlive the threads that log.
template <class... Arguments>
class LogHandler {
 public:
  using Function = std::function<void(Arguments...)>;

  LogHandler() = default;
  LogHandler(const LogHandler&) = delete;

  /// An empty function, or nullptr, takes the handler away.
  LogHandler& operator=(Function function) {
    auto shared = function ? std::make_shared<const Function>(std::move(function)) : nullptr;
    const std::lock_guard guard(lock_);
    function_.swap(shared);  // the old one goes after the guard: its destruction is the owner's code
    return *this;
  }

  /// The present callable, null if there is none.
  std::shared_ptr<const Function> Get() const {
    const std::lock_guard guard(lock_);
    return function_;
  }

 private:
  mutable std::mutex lock_;
  std::shared_ptr<const Function> function_;
};

/// A queue of text on its way to wherever the handlers take it. A channel without handlers keeps what it is
/// given. All operations may be called on any thread; no lock is held while a handler runs, so handlers may
/// log.
class LogChannel {
 public:
  /// Queues a piece of text (UTF-8).
  void Append(std::string text);

  /// Queues the end of a line as an item of its own, and wakes whoever drains.
  void EndLine();

  /// Hands all that is queued to the text handler, item by item. Without a text handler the items are
  /// dropped. Two threads may drain at once, each over what it took; items of different threads may
  /// interleave.
  void Drain();

  /// Drains this channel, then `warnings`, as one batch: a line of this one that was written before a warning
  /// is shown before it, even while other threads write.
  void DrainBefore(LogChannel& warnings);

  /// Assigned on the user interface thread, at any time.
  LogHandler<const std::string&> textHandler;
  LogHandler<> wakeHandler;

 private:
  std::vector<std::string> Take();
  void Show(const std::vector<std::string>& items) const;

  std::mutex lock_;
  std::vector<std::string> queue_;  // guarded by lock_
};

namespace log_detail {
// Built on first use and never destroyed: the worker logs while the process still loads, and the settings are
// written, and may fail, when it ends.
LogChannel& Status();
LogChannel& Warning();
LogChannel& Device();
}  // namespace log_detail

/// All ordinary messages.
inline LogChannel& statusLog = log_detail::Status();
/// Warnings: too many steps in a mode, an upload that is not confirmed, a WiFi set-up that sent nothing, a
/// controller that this user may not open.
inline LogChannel& warningLog = log_detail::Warning();
/// Device traffic; untranslated.
inline LogChannel& deviceLog = log_detail::Device();

/// A line on statusLog, without time stamp.
void LogStatus(const Message& message);
void LogPlain(std::string_view text);

/// A line on warningLog.
void LogWarning(std::string_view text);

/// A line on deviceLog, stamped with the local time: "9:05:03:007 text".
void LogDevice(std::string_view text);

/// A dump of `length` bytes on deviceLog, without stamp, in rows of 16: offset, hexadecimal, text. Nothing
/// but the line end for a length of 0.
void LogDeviceDump(const void* bytes, std::size_t length);

/// The keys of the hints that a run has shown.
using ShownHints = std::set<std::string, std::less<>>;

/// Logs "Hint: " and the text for `key`, the English sentence, on statusLog and adds the key to `shown`.
/// Nothing if it is in there, whatever the language was. On the thread that `shown` belongs to.
void Hint(std::string_view key, ShownHints& shown);
