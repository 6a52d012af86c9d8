#pragma once

// The platform's own file calls with a test between them and the code.

#include <algorithm>
#include <cstddef>
#include <functional>
#include <memory>
#include <string_view>
#include <utility>

#include "common/file_replace.h"

class FileCallsBetween : public platform::FileCalls {
 public:
  using Result = platform::FileCallResult;
  using Path = std::filesystem::path;

  /// `before` is told of each call before it is made. Where it answers anything but Done, that is the call's
  /// result, and the call is not made.
  explicit FileCallsBetween(std::function<Result(std::string_view call)> before)
      : before_(std::move(before)) {}

  Result Inspect(const Path& path, platform::FileTarget& target) override {
    return Make("Inspect", [&] { return calls_->Inspect(path, target); });
  }
  Result Create(const Path& path, bool guarded) override {
    return Make("Create", [&] { return calls_->Create(path, guarded); });
  }
  Result TakePermissions(const platform::FileTarget& old) override {
    return Make("TakePermissions", [&] { return calls_->TakePermissions(old); });
  }
  Result Open(const platform::FileTarget& target) override {
    return Make("Open", [&] { return calls_->Open(target); });
  }
  Result Write(std::string_view bytes, std::size_t& written) override {
    return Make("Write", [&] { return calls_->Write(bytes.substr(0, mostAtOnce), written); });
  }
  Result Flush() override {
    return Make("Flush", [&] { return calls_->Flush(); });
  }
  Result Close() override {
    const Result result = before_("Close");
    const Result real = calls_->Close();  // closed after a failure, too
    return result.outcome == Result::Done ? real : result;
  }
  Result Replace(const Path& from, const Path& to, const Path& backup) override {
    return Make("Replace", [&] { return calls_->Replace(from, to, backup); });
  }
  Result Move(const Path& from, const Path& to) override {
    return Make("Move", [&] { return calls_->Move(from, to); });
  }
  Result Remove(const Path& path) override {
    return Make("Remove", [&] { return calls_->Remove(path); });
  }
  void FlushFolder(const Path& folder) override {
    if (before_("FlushFolder").outcome == Result::Done) calls_->FlushFolder(folder);
  }

  std::size_t mostAtOnce = std::string_view::npos;

 private:
  template <class Call>
  Result Make(std::string_view name, Call call) {
    const Result result = before_(name);
    return result.outcome == Result::Done ? call() : result;
  }

  std::function<Result(std::string_view call)> before_;
  const std::unique_ptr<platform::FileCalls> calls_ = platform::SystemFileCalls();
};
