#include "program/generate/place.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>
#include <numbers>
#include <string>

#include "program/generate/clock_rule.h"

namespace TCBase::Program::Generate {

namespace {

char Folded(char letter) {
  return letter == '_' ? ' ' : static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
}

bool SameLetter(char a, char b) {
  return Folded(a) == Folded(b);
}

bool SameText(std::string_view a, std::string_view b) {
  return std::ranges::equal(a, b, SameLetter);
}

bool Contains(std::string_view text, std::string_view word) {
  return std::search(text.begin(), text.end(), word.begin(), word.end(), SameLetter) != text.end() ||
         word.empty();
}

// Behind the last slash.
std::string_view TownOf(const Place& place) {
  const std::string_view name = place.name;
  return name.substr(name.rfind('/') + 1);
}

double Radians(double degrees) {
  return degrees * std::numbers::pi / 180;
}

// The cosine of the angle between both, seen from the centre of the earth.
double Nearness(const Position& a, const Position& b) {
  return std::sin(Radians(a.latitude)) * std::sin(Radians(b.latitude)) +
         std::cos(Radians(a.latitude)) * std::cos(Radians(b.latitude)) *
             std::cos(Radians(a.longitude - b.longitude));
}

std::optional<double> ParseDegrees(std::string_view text) {
  double degrees = 0;
  if (text.starts_with('+')) text.remove_prefix(1);
  const auto result = std::from_chars(text.data(), text.data() + text.size(), degrees);
  return result.ec == std::errc() && result.ptr == text.data() + text.size() ? std::optional(degrees)
                                                                             : std::nullopt;
}

}  // namespace

bool IsOnEarth(const Position& position) {
  return std::abs(position.latitude) <= 90 && std::abs(position.longitude) <= 180;
}

std::vector<const Place*> FindPlaces(std::string_view word) {
  std::vector<const Place*> found;
  for (const Place& place : Places()) {
    if (Contains(place.name, word) || Contains(place.country, word)) found.push_back(&place);
  }
  return found;
}

const Place* FindPlace(std::string_view name) {
  const auto places = Places();
  const auto whole =
      std::ranges::find_if(places, [name](const Place& place) { return SameText(place.name, name); });
  if (whole != places.end()) return &*whole;
  const auto isTown = [name](const Place& place) { return SameText(TownOf(place), name); };
  const auto town = std::ranges::find_if(places, isTown);
  return std::ranges::count_if(places, isTown) == 1 ? &*town : nullptr;
}

const Place& NearestPlace(const Position& position) {
  return *std::ranges::max_element(Places(), {},
                                   [&](const Place& place) { return Nearness(place.position, position); });
}

int UtcOffsetOf(const Place& place, const Date& date) {
  return UtcOffsetAtNoon(place.clockRule, date).value_or(0);
}

std::optional<Position> ParsePosition(std::string_view text) {
  const std::size_t comma = text.find(',');
  if (comma == std::string_view::npos) return std::nullopt;
  std::string_view east = text.substr(comma + 1);
  while (east.starts_with(' ')) east.remove_prefix(1);
  const auto latitude = ParseDegrees(text.substr(0, comma));
  const auto longitude = ParseDegrees(east);
  if (!latitude || !longitude) return std::nullopt;
  const Position position{*latitude, *longitude};
  return IsOnEarth(position) ? std::optional(position) : std::nullopt;
}

}  // namespace TCBase::Program::Generate
