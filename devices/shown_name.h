#pragma once

// Names that came over the network, made fit to be seen.

#include <string>
#include <string_view>

namespace TCBase {

/// `name` as it is shown in lists, lines and terminals. Anybody on the network can send a name of any bytes:
/// what is not UTF-8, control characters and characters that turn the direction of a text around or cannot be
/// seen become U+FFFD. Frames, comparisons and settings keep to the name as it came.
std::string ShownName(std::string_view name);

}  // namespace TCBase
