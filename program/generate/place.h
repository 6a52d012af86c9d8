#pragma once

// Where on earth a day is: a position, and the places that the time zone database knows.

#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "program/generate/calendar.h"

namespace TCBase::Program::Generate {

/// Degrees, north and east positive: latitude -90 to 90, longitude -180 to 180.
struct Position {
  double latitude = 0;
  double longitude = 0;
};

/// Whether both are in range; not a number is not.
bool IsOnEarth(const Position& position);

/// A row of the database's table zone.tab: the largest town of a country, or of a part of it that has a clock
/// of its own.
struct Place {
  const char* name;     // "Europe/Berlin", in ASCII
  const char* country;  // "Germany", in UTF-8
  Position position;
  const char* clockRule;  // as in UtcOffsetAtNoon
};

/// All of them, ordered by name.
std::span<const Place> Places();

/// Those of which name or country contains the word, in their order; all for an empty one. ASCII letters
/// count in either case, and a blank finds the underscore of a name.
std::vector<const Place*> FindPlaces(std::string_view word);

/// The place of that name, with or without what stands before its last slash: "Europe/Berlin", "berlin". Null
/// if there is none, or several are called so.
const Place* FindPlace(std::string_view name);

/// The place that is nearest, by the great circle. Of what is not on earth any.
const Place& NearestPlace(const Position& position);

/// Minutes that the clocks of the place are before UTC at noon of the day.
int UtcOffsetOf(const Place& place, const Date& date);

/// "48.14,11.58": latitude and longitude in degrees. Nothing for any other text, nor for what is not on
/// earth.
std::optional<Position> ParsePosition(std::string_view text);

}  // namespace TCBase::Program::Generate
