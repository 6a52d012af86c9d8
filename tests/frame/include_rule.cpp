#include "tests/frame/include_rule.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <regex>
#include <sstream>

namespace {

// They look at all folders of the program, and none of those looks at them.
constexpr auto kOnlookers = std::to_array<std::string_view>({"tests/", "bench/", "fuzz/"});

// What a build for another system may leave out. It is judged in the builds that have it.
constexpr auto kOfSomeSystems =
    std::to_array<std::string_view>({"platform/", "OvkLib/src/UWP/", "simulator/main.cpp"});

// The rooms of the platform's own headers.
constexpr auto kPlatformRooms = std::to_array<std::string_view>({
    "platform/",
    "OvkLib/src/UWP/",
    "tests/desktop/",
    "tests/qt/",
    "tests/qt_desktop/",
    "bench/qt_",
    // How much a block on the heap really takes.
    "bench/xml_bench.cpp",
    // The calls to the system that it lets fail.
    "tests/faults/system_faults.cpp",
});

// Headers of others that no library of CMake's brings to what stands there.
struct Others {
  std::string_view folder;
  std::string_view header;
};
constexpr auto kOthers = std::to_array<Others>({
    {"OvkLib/", "emmintrin.h"},  // the processor's own, of every compiler
    {"tests/", "gtest/"},
    {"tests/", "gmock/"},
    {"tests/", "hidapi/"},
    {"tests/", "nlohmann/"},
    {"tests/doctor/", "zlib.h"},
    {"bench/", "benchmark/"},
    {"bench/", "fmt/"},
    {"bench/", "expat.h"},
    {"bench/", "pugixml.hpp"},
    {"bench/", "tinyxml2.h"},
    {"fuzz/", "hidapi/"},
});

bool IsStandard(const std::string& header) {
  // Those of C++20; the ones of C only by their names in C++.
  static const std::set<std::string, std::less<>> names = [] {
    std::istringstream words(
        "algorithm any array atomic barrier bit bitset charconv chrono codecvt compare complex concepts "
        "condition_variable coroutine deque exception execution filesystem format forward_list fstream "
        "functional "
        "future initializer_list iomanip ios iosfwd iostream istream iterator latch limits list locale map "
        "memory "
        "memory_resource mutex new numbers numeric optional ostream queue random ranges ratio regex "
        "scoped_allocator "
        "semaphore set shared_mutex source_location span sstream stack stdexcept stop_token streambuf string "
        "string_view strstream syncstream system_error thread tuple type_traits typeindex typeinfo "
        "unordered_map "
        "unordered_set utility valarray variant vector version cassert cctype cerrno cfenv cfloat cinttypes "
        "climits "
        "clocale cmath csetjmp csignal cstdarg cstddef cstdint cstdio cstdlib cstring ctime cuchar cwchar "
        "cwctype");
    return std::set<std::string, std::less<>>(std::istream_iterator<std::string>(words), {});
  }();
  return names.contains(header);
}

// Whether one of the prefixes begins the path.
template <class Prefixes>
bool Begins(const Prefixes& prefixes, std::string_view path) {
  return std::ranges::any_of(prefixes, [&](std::string_view prefix) { return path.starts_with(prefix); });
}

bool IsInPlatformRoom(std::string_view path) {
  const bool testsOneSystem = path.ends_with("_posix_test.cpp") || path.ends_with("_win32_test.cpp");
  return Begins(kPlatformRooms, path) || (path.starts_with("tests/") && testsOneSystem);
}

// Whether the header is one of the names, or below one that is a folder.
bool Names(std::string_view name, std::string_view header) {
  return name.ends_with('/') ? header.starts_with(name) : header == name;
}

bool IsOfOthers(std::string_view path, std::string_view header) {
  return std::ranges::any_of(kOthers, [&](const Others& others) {
    return path.starts_with(others.folder) && Names(others.header, header);
  });
}

bool Holds(const std::vector<std::string>& headers, std::string_view header) {
  return std::ranges::any_of(headers, [&](const std::string& name) { return Names(name, header); });
}

// Up to a word that is a colon, or to the end.
std::vector<std::string> Words(std::istream& stream) {
  std::vector<std::string> words;
  for (std::string word; stream >> word && word != ":";) words.push_back(word);
  return words;
}

}  // namespace

IncludeRule::IncludeRule(std::istream& lines) : roots_(kOnlookers.begin(), kOnlookers.end()) {
  // What stands for another system is not in every build.
  roots_.insert("platform/");
  std::string line;
  while (std::getline(lines, line)) {
    std::istringstream words(line);
    const std::vector<std::string> files = Words(words);
    const auto headers = std::make_shared<const Headers>(Words(words));
    for (const std::string& file : files) {
      files_[file] = headers;
      roots_.insert(file.substr(0, file.find('/')) + "/");
    }
  }
}

const IncludeRule::Headers* IncludeRule::HeadersFor(std::string_view path) const {
  const auto found = files_.find(path);
  return found == files_.end() ? nullptr : found->second.get();
}

std::string IncludeRule::FaultOfOurs(std::string_view path, std::string_view header) const {
  if (Begins(kOnlookers, path)) return {};
  if (Begins(kOnlookers, header)) return "which is for tests only";
  if (const Headers* const headers = HeadersFor(path))
    return Holds(*headers, header) ? "" : "which is no header of what its library or program links";
  return Begins(kOfSomeSystems, path) ? "" : "but is itself in no library and no program";
}

std::string IncludeRule::Fault(std::string_view path, const std::string& header, bool quoted) const {
  if (Begins(roots_, header)) return FaultOfOurs(path, header);
  if (quoted) return "not a path from the project's root";
  if (IsStandard(header) || IsOfOthers(path, header)) return {};
  if (const Headers* const headers = HeadersFor(path); headers != nullptr && Holds(*headers, header))
    return {};
  return IsInPlatformRoom(path) ? "" : "a platform's or a stranger's, outside the rooms of these";
}

std::vector<std::string> IncludeRule::Faults(std::string_view path, std::string_view source) const {
  static const std::regex include(R"(^[ \t]*#[ \t]*include[ \t]*([<"])([^>"]*)[>"])");
  std::vector<std::string> faults;
  std::istringstream lines{std::string(source)};
  std::string line;
  for (int number = 1; std::getline(lines, line); ++number) {
    if (line.find("include") == std::string::npos) continue;
    std::smatch match;
    if (!std::regex_search(line, match, include)) continue;
    const std::string fault = Fault(path, match[2], match[1] == "\"");
    if (fault.empty()) continue;
    std::ostringstream sentence;
    sentence << path << ":" << number << " includes " << match[2] << ", " << fault;
    faults.push_back(sentence.str());
  }
  return faults;
}

std::vector<std::filesystem::path> IncludeRule::ProjectSources(const std::filesystem::path& root) const {
  std::vector<std::filesystem::path> files;
  for (const auto& folder : roots_) {
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root / folder)) {
      const auto extension = entry.path().extension();
      if (extension == ".h" || extension == ".cpp") files.push_back(entry.path().lexically_relative(root));
    }
  }
  return files;
}
