# Writes the places of the time zone database as a C++ source, the table that program/generate/place.h declares.
#   cmake -D ZONEINFO=/usr/share/zoneinfo -D OUT=place_table.cpp -P ReadPlaces.cmake
# All of it is in the public domain: zone.tab has a line for each place with its country, its position as ISO 6709 writes it
# and the zone's name; iso3166.tab has the countries' names; a compiled zone ends with a line that tells the rule by which
# its clocks go from now on, as POSIX has it in TZ.

foreach(needed zone.tab iso3166.tab)
  if(NOT EXISTS ${ZONEINFO}/${needed})
    message(FATAL_ERROR "${ZONEINFO}/${needed} is not there: it comes with the package tzdata")
  endif()
endforeach()

file(STRINGS ${ZONEINFO}/iso3166.tab countries REGEX "^[A-Z][A-Z]\t" ENCODING UTF-8)
foreach(line IN LISTS countries)
  if(line MATCHES "^([A-Z][A-Z])\t(.+)$")
    set(country_${CMAKE_MATCH_1} "${CMAKE_MATCH_2}")
  endif()
endforeach()

# What ISO 6709 writes as "-3352" or "+0401612", in degrees, as an expression for the compiler.
function(degrees text result)
  string(REGEX MATCH "^([-+])0*([0-9]+)([0-9][0-9])$" matched "${text}")
  set(seconds 00)
  string(LENGTH "${text}" length)
  if(length GREATER 6)
    string(REGEX MATCH "^([-+])0*([0-9]+)([0-9][0-9])([0-9][0-9])$" matched "${text}")
    set(seconds ${CMAKE_MATCH_4})
  endif()
  # As numbers with a point they are decimal, whatever zeros they begin with.
  set(${result} "${CMAKE_MATCH_1}(${CMAKE_MATCH_2}. + ${CMAKE_MATCH_3}. / 60 + ${seconds}. / 3600)" PARENT_SCOPE)
endfunction()

set(rows)
file(STRINGS ${ZONEINFO}/zone.tab places REGEX "^[A-Z][A-Z]\t" ENCODING UTF-8)
foreach(line IN LISTS places)
  if(NOT line MATCHES "^([A-Z][A-Z])\t([-+][0-9]+)([-+][0-9]+)\t([^\t]+)")
    message(FATAL_ERROR "zone.tab has a line of another form: ${line}")
  endif()
  set(country "${country_${CMAKE_MATCH_1}}")
  set(north ${CMAKE_MATCH_2})
  set(east ${CMAKE_MATCH_3})
  set(name ${CMAKE_MATCH_4})
  degrees(${north} latitude)
  degrees(${east} longitude)
  # The last text in the file; before it stand names of clocks, and numbers that look like letters.
  file(STRINGS ${ZONEINFO}/${name} rules REGEX "^(<[-+0-9]+>|[A-Za-z][A-Za-z][A-Za-z]+)[-+]?[0-9][0-9:]*([<A-Za-z][-+<>A-Za-z0-9:,./]*)?$")
  list(LENGTH rules count)
  if(count EQUAL 0)
    message(FATAL_ERROR "${ZONEINFO}/${name} does not end with a rule")
  endif()
  list(GET rules -1 rule)
  list(APPEND rows "    {\"${name}\", \"${country}\", {${latitude}, ${longitude}}, \"${rule}\"},")
endforeach()
list(SORT rows)
list(LENGTH rows count)
if(count LESS 300)
  message(FATAL_ERROR "${ZONEINFO}/zone.tab has ${count} places only")
endif()
list(JOIN rows "\n" rows)
file(CONFIGURE OUTPUT ${OUT} @ONLY CONTENT [[
// Made by cmake/ReadPlaces.cmake from the time zone database.

#include "program/generate/place.h"

namespace TCBase::Program::Generate {

namespace {

constexpr Place kPlaceTable[] = {
@rows@
};

}  // namespace

std::span<const Place> Places() {
  return kPlaceTable;
}

}  // namespace TCBase::Program::Generate
]])
