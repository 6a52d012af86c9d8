// Thinning out to a tolerance. The errors by which a mode is brought within the limit of rows (optimize.h)
// are in whole percent and each against what is left at that moment, so they may add up; here each is against
// the channel as it was.

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

#include "program/change/kinds.h"

namespace TCBase::Program {

namespace {

// What curves of floats may be off by rounding.
constexpr double kRounding = 0.0005;

class Thinner {
 public:
  explicit Thinner(const Draft& draft);

  // Takes the cheapest step away; false if there is none at that price.
  bool TakeOne(double tolerance);
  bool IsGone(std::size_t index) const { return knots_[index].gone; }

 private:
  struct Knot {
    std::size_t before;  // among those that are left
    std::size_t after;
    double cost = 0.0;
    bool gone = false;
  };

  // Minutes from one step to another on the ring.
  double Minutes(std::size_t from, std::size_t to) const {
    return RingMinute(MinuteOfDay(draft_[to].step) - MinuteOfDay(draft_[from].step));
  }
  const Step& At(std::size_t index) const { return draft_[index].step; }
  std::size_t Next(std::size_t index) const { return (index + 1) % knots_.size(); }
  double Worst(std::size_t from, std::size_t to) const;
  void FindCost(std::size_t index);

  const Draft& draft_;
  std::vector<Knot> knots_;
  std::size_t left_;
};

Thinner::Thinner(const Draft& draft) : draft_(draft), knots_(draft.size()), left_(draft.size()) {
  for (std::size_t i = 0; i < knots_.size(); ++i) {
    knots_[i].before = (i + knots_.size() - 1) % knots_.size();
    knots_[i].after = Next(i);
  }
  for (std::size_t i = 0; i < knots_.size(); ++i) FindCost(i);
}

// How far the curve is off where it goes from one step to another past all between them. Between two steps of
// the old curve both are straight, so that it is most off at their ends, just before the second one included.
double Thinner::Worst(std::size_t from, std::size_t to) const {
  const double start = At(from).value;
  const double rise = At(from).jump ? 0.0 : (At(to).value - start) / Minutes(from, to);
  double worst = 0.0;
  for (std::size_t i = from; i != to; i = Next(i)) {
    const auto line = [&](double minutes) { return start + rise * minutes; };
    const double end = Minutes(from, i) + Minutes(i, Next(i));
    const double arrival = At(i).jump ? At(i).value : At(Next(i)).value;
    worst =
        std::max({worst, std::fabs(At(i).value - line(Minutes(from, i))), std::fabs(arrival - line(end))});
  }
  return worst;
}

void Thinner::FindCost(std::size_t index) {
  Knot& knot = knots_[index];
  knot.cost = draft_[index].meant && left_ > kMinChannelSteps ? Worst(knot.before, knot.after)
                                                              : std::numeric_limits<double>::infinity();
}

bool Thinner::TakeOne(double tolerance) {
  const auto cheapest = std::ranges::min_element(knots_, {}, [](const Knot& knot) {
    return knot.gone ? std::numeric_limits<double>::infinity() : knot.cost;
  });
  if (left_ <= kMinChannelSteps || cheapest->gone || !(cheapest->cost <= tolerance + kRounding)) return false;
  cheapest->gone = true;
  --left_;
  knots_[cheapest->before].after = cheapest->after;
  knots_[cheapest->after].before = cheapest->before;
  FindCost(cheapest->before);
  FindCost(cheapest->after);
  return true;
}

}  // namespace

void Apply(const ThinOut& change, Draft& draft) {
  if (draft.size() <= kMinChannelSteps) return;
  Thinner thinner(draft);
  while (thinner.TakeOne(double{change.tolerance})) {
  }
  for (std::size_t i = 0; i < draft.size(); ++i) draft[i].gone = thinner.IsGone(i);
}

}  // namespace TCBase::Program
