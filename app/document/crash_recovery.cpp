#include "app/document/crash_recovery.h"

#include <cerrno>
#include <string>
#include <system_error>
#include <utility>

#include "common/file_replace.h"
#include "common/files.h"
#include "common/log.h"
#include "common/message.h"
#include "common/platform.h"
#include "common/xml_file.h"

namespace app {

namespace {

namespace fs = std::filesystem;
using TCBase::Program::ReadRecovery;
using TCBase::Program::RecoveryReading;

constexpr int kMostRunning = 99;  // copies of the program, and what they left behind

fs::path FileOf(const fs::path& folder, int number, const char* extension) {
  return folder / ("recovery-" + std::to_string(number) + extension);
}
fs::path ContentOf(const fs::path& folder, int number) {
  return FileOf(folder, number, ".xml");
}
std::unique_ptr<platform::ProcessClaim> Claim(const fs::path& folder, int number) {
  return platform::ClaimFile(FileOf(folder, number, ".lock"));
}

void RemoveFile(const fs::path& path) {
  std::error_code ignored;  // it is offered at the next start then
  fs::remove(path, ignored);
}

// Out of the way of the next start, but not gone.
void PutAside(const fs::path& path) {
  fs::path aside = path;
  aside.replace_extension(".broken");
  std::error_code error;
  fs::rename(path, aside, error);
  if (!error)
    LogStatus(Message("{1} cannot be read and is kept as {2}", Utf8FromPath(path), Utf8FromPath(aside)));
}

}  // namespace

CrashRecovery::CrashRecovery(std::optional<fs::path> folder) : folder_(std::move(folder)) {}

CrashRecovery::~CrashRecovery() {
  if (!thread_.joinable()) return;
  {
    const std::lock_guard guard(lock_);
    mayEnd_ = true;
  }
  changedOrder_.notify_all();
  thread_.join();
}

void CrashRecovery::Follow(const Document& document, double now) {
  if (!IsTimeToLook(now)) return;
  nextLook_ = now + kSecondsBetweenLooks;
  if (!document.isUnsaved) {
    if (isKept_) HandOn({});
    isKept_ = false;
    movingSince_.reset();
    return;
  }
  ProgramSnapshot program(document.program, seen_);
  const bool isAtRest = program.IsSameAs(seen_);
  seen_ = std::move(program);
  if (!isAtRest) changed_ = platform::LocalTime();
  if (IsKept(seen_, document) && !MustTryAgain(now)) return;
  if (!movingSince_) movingSince_ = now;
  if (!isAtRest && now - *movingSince_ < kMostSecondsUnkept) return;

  HandOn({Order::Content{seen_, document.file, document.mark, changed_}});
  kept_ = seen_;
  keptFile_ = document.file;
  keptMark_ = document.mark;
  isKept_ = true;
  movingSince_.reset();
  nextTry_ = now + kSecondsBeforeNextTry;
}

bool CrashRecovery::IsKept(const ProgramSnapshot& program, const Document& document) const {
  return isKept_ && program.IsSameAs(kept_) && document.file == keptFile_ && document.mark == keptMark_;
}

bool CrashRecovery::MustTryAgain(double now) {
  const std::lock_guard guard(lock_);
  return now >= nextTry_ && std::exchange(hasFailed_, false);
}

void CrashRecovery::HandOn(Order order) {
  {
    const std::lock_guard guard(lock_);
    order_ = std::move(order);  // one that was not begun has become pointless
  }
  if (!thread_.joinable()) thread_ = std::thread([this] { ObeyOrders(); });
  changedOrder_.notify_all();
}

void CrashRecovery::Settle() {
  std::unique_lock guard(lock_);
  changedOrder_.wait(guard, [this] { return !order_ && !isObeying_; });
}

void CrashRecovery::End() {
  if (thread_.joinable()) Settle();
  if (claim_) RemoveFile(path_);
  claim_.reset();
  isKept_ = false;
}

void CrashRecovery::ObeyOrders() {
  std::unique_lock guard(lock_);
  for (;;) {
    changedOrder_.wait(guard, [this] { return order_ || mayEnd_; });
    if (!order_) return;
    const Order order = *std::exchange(order_, std::nullopt);
    isObeying_ = true;
    guard.unlock();
    Obey(order);
    guard.lock();
    isObeying_ = false;
    changedOrder_.notify_all();
  }
}

void CrashRecovery::Obey(const Order& order) {
  if (!order.content) {
    if (claim_) RemoveFile(path_);
    return;
  }
  const int error = Write(*order.content);
  if (error == 0) {
    hasToldFailure_ = false;
    return;
  }
  if (!std::exchange(hasToldFailure_, true)) {
    LogStatus(Message("What is not saved cannot be kept for the case of a crash: {1}",
                      std::generic_category().message(error)));
  }
  const std::lock_guard guard(lock_);
  hasFailed_ = true;
}

int CrashRecovery::Write(const Order::Content& content) {
  if (const int error = claim_ ? 0 : ClaimNumber(); error != 0) return error;
  TCBase::Program::RecoveryFile recovery;
  content.program.CopyTo(recovery.document);
  recovery.file = Utf8FromPath(content.file);
  recovery.mark = content.mark;
  recovery.changed = content.changed;
  const std::string text = ToRecoveryText(recovery);
  if (text.size() > ovk::xml::kMostXmlBytes) return EFBIG;  // it could not be read again
  return ReplaceFileBytes(*platform::SystemFileCalls(), path_, text);
}

int CrashRecovery::ClaimNumber() {
  std::error_code error;
  fs::create_directories(*folder_, error);
  for (int number = 1; number <= kMostRunning; ++number) {
    auto claim = Claim(*folder_, number);
    // What stands there by itself was left behind, to be offered at a later start.
    if (!claim || MayBeThere(ContentOf(*folder_, number))) continue;
    claim_ = std::move(claim);
    path_ = ContentOf(*folder_, number);
    return 0;
  }
  return error ? error.default_error_condition().value() : EACCES;
}

std::vector<CrashRecovery::LeftBehind> CrashRecovery::Find() const {
  std::vector<LeftBehind> found;
  for (int number = 1; folder_ && number <= kMostRunning; ++number) {
    if (auto left = Read(number)) found.push_back(std::move(*left));
  }
  return found;
}

std::optional<CrashRecovery::LeftBehind> CrashRecovery::Read(int number) const {
  const fs::path path = ContentOf(*folder_, number);
  if (!MayBeThere(path)) return std::nullopt;
  LeftBehind left{Claim(*folder_, number), path, {}};
  std::string bytes;
  // Whoever had it may have ended properly meanwhile. What the drive does not give now it may give later.
  if (!left.claim || !ReadFileBytes(path, bytes, ovk::xml::kMostXmlBytes)) return std::nullopt;
  const auto reading = ReadRecovery(bytes, left.content);
  if (reading == RecoveryReading::Good) return left;
  if (reading == RecoveryReading::Broken) PutAside(path);
  if (reading == RecoveryReading::Newer) {
    LogStatus(Message("{1} was left by a newer version of the program, which can open it", path));
  }
  return std::nullopt;
}

void CrashRecovery::Adopt(LeftBehind found) {
  End();
  claim_ = std::move(found.claim);
  path_ = std::move(found.path);
  isKept_ = true;
  kept_ = {};
}

void CrashRecovery::Discard(LeftBehind found) {
  RemoveFile(found.path);
}

}  // namespace app
