#pragma once

#include <condition_variable>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "app/document/program_snapshot.h"
#include "common/process_claim.h"
#include "program/recovery_file.h"

namespace app {

/// Keeps what is not saved of the document at hand for the case that the process ends by force, as
/// "recovery-1.xml" and so on in the folder for the program's state. Each running copy of the program has a
/// number of its own from the first change on, by a claim ("recovery-1.lock"), so that a file that nobody has
/// claimed was left behind. User interface thread; files are written by a thread of its own.
class CrashRecovery {
 public:
  /// The document as it is now.
  struct Document {
    const TCBase::Program::ModeListView& program;
    bool isUnsaved = false;
    std::filesystem::path file;  // its own; empty if it has none
    std::uint64_t mark = 0;      // of that file's content, as in RecoveryFile
  };

  /// What a process left behind that did not end properly. Nobody else is offered it while this lives.
  struct LeftBehind {
    std::unique_ptr<platform::ProcessClaim> claim;
    std::filesystem::path path;
    TCBase::Program::RecoveryFile content;
  };

  /// How often Follow looks, in seconds. What was the same at two looks has come to rest; what keeps moving
  /// is kept as it is now and then.
  static constexpr double kSecondsBetweenLooks = 0.5;
  static constexpr double kMostSecondsUnkept = 5.0;
  /// Before what could not be written is tried again.
  static constexpr double kSecondsBeforeNextTry = 10.0;

  /// Without a folder nothing is kept. The folder is made when there is something to keep.
  explicit CrashRecovery(std::optional<std::filesystem::path> folder);
  /// Leaves what is kept where it is, as the end of a process by force does.
  ~CrashRecovery();

  /// Whether it is time for Follow, `now` in seconds of any clock.
  bool IsTimeToLook(double now) const { return folder_ && now >= nextLook_; }
  /// Looks at the document, and hands it on to be written where there is something new to keep.
  void Follow(const Document& document, double now);
  /// Waits until all that Follow has handed on is on disk.
  void Settle();
  /// The proper end: nothing is to be recovered.
  void End();

  /// All that was left behind, the lowest number first. What cannot be read is put aside under another name,
  /// what is from a newer version stays where it is; the log tells of both.
  std::vector<LeftBehind> Find() const;
  /// The document at hand is this one from now on, and its file goes when that is saved.
  void Adopt(LeftBehind found);
  /// The user does not want it.
  static void Discard(LeftBehind found);

 private:
  // What the other thread is to do next; without content it removes the file.
  struct Order {
    struct Content {
      ProgramSnapshot program;
      std::filesystem::path file;
      std::uint64_t mark = 0;
      DateTime changed;
    };
    std::optional<Content> content;
  };

  bool IsKept(const ProgramSnapshot& program, const Document& document) const;
  bool MustTryAgain(double now);
  void HandOn(Order order);
  void ObeyOrders();
  void Obey(const Order& order);
  /// The C library's number of the error, 0 for done.
  int Write(const Order::Content& content);
  /// As above.
  int ClaimNumber();
  std::optional<LeftBehind> Read(int number) const;

  const std::optional<std::filesystem::path> folder_;

  // What was seen and handed on.
  ProgramSnapshot seen_;
  ProgramSnapshot kept_;
  std::filesystem::path keptFile_;
  std::uint64_t keptMark_ = 0;
  bool isKept_ = false;  // something is
  DateTime changed_;
  double nextLook_ = 0.0;
  std::optional<double> movingSince_;
  double nextTry_ = 0.0;

  std::mutex lock_;
  std::condition_variable changedOrder_;
  // Guarded by lock_.
  std::optional<Order> order_;
  bool isObeying_ = false;
  bool hasFailed_ = false;
  bool mayEnd_ = false;

  // The other thread's, while it runs.
  std::unique_ptr<platform::ProcessClaim> claim_;
  std::filesystem::path path_;
  bool hasToldFailure_ = false;

  std::thread thread_;  // from the first order on
};

}  // namespace app
