#include "tests/frame/include_rule.h"

#include <algorithm>
#include <array>
#include <optional>
#include <regex>

namespace {

// A folder may include from itself and from the ones before it.
constexpr std::array<std::string_view, 11> kLayers = {
    "OvkLib/",  "common/", "program/",  "localisation/", "devices/",   "chart/",
    "dialogs/", "app/",    "platform/", "cli/",          "simulator/",
};

// Not layers: they look at all of the above, and none of the above looks at them.
constexpr std::array<std::string_view, 3> kOnlookers = {"tests/", "bench/", "fuzz/"};

// The rooms of the platform's own headers.
constexpr std::array<std::string_view, 5> kPlatformRooms = {"platform/", "OvkLib/src/UWP/", "tests/desktop/",
                                                            "tests/qt/", "bench/qt_chart_bench.cpp"};

std::optional<size_t> LayerOf(std::string_view path) {
  const auto layer = std::ranges::find_if(kLayers, [&](auto name) { return path.starts_with(name); });
  if (layer == kLayers.end()) return std::nullopt;
  return static_cast<size_t>(layer - kLayers.begin());
}

template <size_t N>
bool StartsWithAny(std::string_view path, const std::array<std::string_view, N>& prefixes) {
  return std::ranges::any_of(prefixes, [&](auto prefix) { return path.starts_with(prefix); });
}

bool IsPlatformHeader(const std::string& header) {
  static const std::regex platform(
      R"((windows|winsock2?|ws2tcpip|wlanapi|d2d1.*|dwrite.*|gdiplus|commctrl|commdlg|shlobj.*|objbase|combaseapi)\.h)"
      R"(|sys/socket\.h|netinet/.*|arpa/.*|netdb\.h|net/if\.h|ifaddrs\.h|Q[A-Z].*|Qt.*/.*)",
      std::regex::icase);
  // Qt's class headers start with a capital Q; the rest of the list is told apart by its name whatever the
  // case.
  if (header.starts_with('q')) return false;
  return std::regex_match(header, platform);
}

void JudgeProjectInclude(std::string_view path, const std::string& header, const std::string& where,
                         std::vector<std::string>& faults) {
  const bool onlooker = StartsWithAny(path, kOnlookers);
  if (StartsWithAny(header, kOnlookers)) {
    if (!onlooker) faults.push_back(where + "includes " + header + ", which is for tests only");
    return;
  }
  const auto from = LayerOf(path);
  const auto to = LayerOf(header);
  if (!to) {
    faults.push_back(where + "includes " + header + ", not a path from the project's root");
  } else if (!onlooker && !from) {
    faults.push_back(where + "stands in no folder of the architecture");
  } else if (from && *to > *from) {
    faults.push_back(where + "includes " + header + " from a folder below its own");
  }
}

}  // namespace

std::vector<std::string> IncludeFaults(std::string_view path, std::string_view source) {
  static const std::regex include(R"(^[ \t]*#[ \t]*include[ \t]*([<"])([^>"]*)[>"])");
  std::vector<std::string> faults;
  int number = 0;
  while (!source.empty()) {
    const size_t end = std::min(source.find('\n'), source.size());
    const std::string line(source.substr(0, end));
    source.remove_prefix(std::min(end + 1, source.size()));
    ++number;
    std::smatch match;
    if (!std::regex_search(line, match, include)) continue;
    const std::string header = match[2];
    std::string where(path);
    where.append(":").append(std::to_string(number)).append(" ");
    if (IsPlatformHeader(header) && !StartsWithAny(path, kPlatformRooms)) {
      faults.push_back(where.append("includes ").append(header).append(" outside the platform's rooms"));
    } else if (match[1] == "\"") {
      JudgeProjectInclude(path, header, where, faults);
    }
  }
  return faults;
}

std::vector<std::filesystem::path> ProjectSources(const std::filesystem::path& root) {
  std::vector<std::filesystem::path> files;
  const auto collect = [&](std::string_view folder) {
    if (!std::filesystem::exists(root / folder)) return;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root / folder)) {
      const auto extension = entry.path().extension();
      if (extension == ".h" || extension == ".cpp") files.push_back(entry.path().lexically_relative(root));
    }
  };
  for (const auto folder : kLayers) collect(folder);
  for (const auto folder : kOnlookers) collect(folder);
  return files;
}
