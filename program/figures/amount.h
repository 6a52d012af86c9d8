#pragma once

// Numbers with a fraction, as people type and read them.

#include <optional>
#include <string>
#include <string_view>

namespace TCBase::Program {

/// The largest amount that is taken: no lamp and no price comes near it.
inline constexpr double kMostAmount = 1e6;

/// The number of "24", "0.32" or "0,32", from 0 to kMostAmount; nothing for any other text. Blanks around it
/// do not matter, and blanks alone are 0.
std::optional<double> ParseAmount(std::string_view text);

/// The shortest text that ParseAmount makes the same number of: "24", "0.32". Empty for 0.
std::string AmountText(double amount);

/// With so many digits behind the point, at most 9, rounded: "0.67". `value` is finite and below 1e15.
std::string FixedText(double value, int digits);

}  // namespace TCBase::Program
