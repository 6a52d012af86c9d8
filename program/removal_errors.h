#pragma once

// The removal errors (see RemovalError in optimize.h) of one channel while its steps are taken away one by
// one. A step is named by its index in the channel as it was at the start, whatever has gone since: the order
// of those indices is the order of the steps that are left.

#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

#include "program/program.h"

namespace TCBase::Program {

/// How cheap a step is, as one number that sorts by error and of equal errors by index.
class RemovalRank {
 public:
  /// The rank behind every step: nothing can be removed.
  constexpr RemovalRank() = default;
  constexpr RemovalRank(std::int32_t error, std::size_t index)
      : key_(std::int64_t{error} * (std::int64_t{1} << 32) + static_cast<std::uint32_t>(index)) {}

  constexpr bool IsStep() const { return key_ != std::numeric_limits<std::int64_t>::max(); }
  constexpr std::int32_t Error() const { return static_cast<std::int32_t>(key_ >> 32); }
  constexpr std::uint32_t Index() const { return static_cast<std::uint32_t>(key_); }

  friend constexpr bool operator==(const RemovalRank&, const RemovalRank&) = default;
  friend constexpr bool operator<(const RemovalRank& a, const RemovalRank& b) { return a.key_ < b.key_; }

 private:
  std::int64_t key_ = std::numeric_limits<std::int64_t>::max();
};

/// The errors of a channel in order, as nearly all are: within the day, ascending, several steps on one
/// minute allowed. An error there depends on the neighbours alone, and so a removal touches two errors, in
/// O(log n).
class OrderedErrors {
 public:
  /// Whether a channel is of this kind.
  static bool Suits(const Channel& channel);

  /// The channel must outlive the object and stay as it is.
  explicit OrderedErrors(const Channel& channel);

  /// The cheapest step; none if the channel has too few to lose one.
  RemovalRank Cheapest() const { return left_ > kMinChannelSteps ? ranks_[1] : RemovalRank(); }
  /// Takes away a step that Cheapest() named.
  void Remove(std::uint32_t index);

 private:
  struct Links {
    std::uint32_t before;
    std::uint32_t after;
  };

  bool SharesMinute(std::uint32_t a, std::uint32_t b) const;
  std::int32_t ErrorOf(std::uint32_t index) const;
  void RankAll();
  void SetRank(std::uint32_t index, RemovalRank rank);

  const Channel& channel_;
  std::size_t left_;
  std::uint32_t first_ = 0;   // the first step that is left
  std::vector<Links> links_;  // a ring of the steps that are left
  // A tree in one array: a leaf for each step from [n] on, in [1] to [n - 1] the lower of the two below.
  std::vector<RemovalRank> ranks_;
};

/// The errors of any channel. A removal can change every error there, and costs O(n log n).
class UnorderedErrors {
 public:
  explicit UnorderedErrors(const Channel& channel);

  RemovalRank Cheapest() const { return cheapest_; }
  void Remove(std::uint32_t index);

 private:
  void FindCheapest();
  void IndexTimes();
  std::size_t FirstNotBefore(std::int64_t second) const;
  std::size_t NextNotBefore(std::size_t index, std::int64_t second) const;
  float ValueWithout(std::size_t missing, std::size_t to, std::int64_t second) const;
  std::int32_t ErrorOf(std::size_t position) const;

  Channel left_;                        // the steps that are left
  std::vector<std::uint32_t> indices_;  // and their indices at the start
  RemovalRank cheapest_;
  // Made anew of `left_` for each search.
  std::vector<std::int64_t> times_;
  std::vector<std::size_t>
      records_;  // the steps that are later than all before them: only these close a stretch
  std::vector<std::size_t> next_;  // for each step, the next one that is not earlier
};

}  // namespace TCBase::Program
