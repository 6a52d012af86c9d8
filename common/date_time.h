#pragma once

// A calendar moment as a person reads it off a clock.

#include <string>

/// Local or entered time; no zone, no conversion. Years are full (2026), months 1 to 12, days 1 to 31,
/// hours 0 to 23, minutes and seconds 0 to 59, milliseconds 0 to 999.
struct DateTime {
  int year = 0;
  int month = 0;
  int day = 0;
  int hour = 0;
  int minute = 0;
  int second = 0;
  int millisecond = 0;
};

/// "2026-11-23 20:15"
std::string ToMinuteText(const DateTime& time);
