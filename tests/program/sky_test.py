#!/usr/bin/env python3
"""Sun, moon and clocks as lumarinectl tells them, beside what others know of them: ephem for the sky, the system's time
zones for the clocks.
    sky_test.py LUMARINECTL
"""
import datetime
import json
import subprocess
import sys
import zoneinfo

try:
    import ephem
except ImportError:
    print("python3-ephem is not installed")
    sys.exit(77)

LUMARINECTL = sys.argv[1]
UTC = datetime.timezone.utc
faults = []
checked = 0


def told(*words):
    return json.loads(subprocess.run([LUMARINECTL, *words, "--json"], check=True, capture_output=True).stdout)


def check(good, what):
    global checked
    checked += 1
    if not good:
        faults.append(what)


# Places of all latitudes and sides, and among the dates the solstices: 69.65 and 78.22 have polar days and nights.
PLACES = {
    "Singapore": (1.35, 103.82), "Manaus": (-3.13, -60.02), "Quito": (-0.22, -78.51), "Cairns": (-16.92, 145.77),
    "Honolulu": (21.31, -157.86), "Sydney": (-33.87, 151.21), "Cape Town": (-33.92, 18.42), "Madrid": (40.42, -3.70),
    "New York": (40.71, -74.01), "Berlin": (52.52, 13.40), "London": (51.51, -0.13), "Anchorage": (61.22, -149.90),
    "Helsinki": (60.17, 24.94), "Ushuaia": (-54.80, -68.30), "Apia": (-13.83, -171.77), "Tokyo": (35.68, 139.69),
    "Tromsoe": (69.65, 18.96), "Longyearbyen": (78.22, 15.65), "McMurdo": (-77.85, 166.67), "Suva": (-18.14, 178.44),
}
DATES = ["2024-02-29", "2026-03-20", "2026-06-21", "2026-09-10", "2026-11-05", "2026-12-21", "2033-04-17"]
# A solar altitude, the name of its rise and its set, and whether that is of the sun's edge.
EVENTS = [("-0:34", "sunrise", "sunset", False), ("-6", "dawn", "dusk", True),
          ("-12", "nauticalDawn", "nauticalDusk", True)]
SLOWEST = 6.0  # degrees an hour; where the sun moves slower, along the horizon, a minute is less than a second of arc


def expected(observer, start, rising, center):
    """Minutes from `start`, or nothing if it does not happen within a day."""
    observer.date = start
    find = observer.next_rising if rising else observer.next_setting
    try:
        minute = (find(ephem.Sun(), use_center=center) - ephem.Date(start)) * 1440
    except (ephem.AlwaysUpError, ephem.NeverUpError):
        return None
    return minute if minute < 1440 else None


def altitude(observer, start, minute):
    """Degrees of the sun's centre."""
    observer.date = start + datetime.timedelta(minutes=minute)
    return float(ephem.Sun(observer).alt) * 57.29578


def speed(observer, start, minute):
    """Degrees an hour at which the sun climbs."""
    return abs(altitude(observer, start, minute + 5) - altitude(observer, start, minute - 5)) * 6


def crosses(observer, start, minute, horizon):
    """Whether ephem's own sun goes through there. Its search gives up on some days on which the sun hardly does."""
    return (altitude(observer, start, minute - 1) < horizon) != (altitude(observer, start, minute + 1) < horizon)


def check_sun(place, date):
    latitude, longitude = PLACES[place]
    offset = round(longitude / 15) * 60  # so that the day begins about midnight
    clock = f"{'-' if offset < 0 else '+'}{abs(offset) // 60:02}:00"
    sun = told("generate", "sun", f"--at={latitude},{longitude}", "--date", date, f"--utc-offset={clock}")
    start = datetime.datetime.fromisoformat(date) - datetime.timedelta(minutes=offset)
    for horizon, rise, fall, center in EVENTS:
        for name, rising in ((rise, True), (fall, False)):
            observer = ephem.Observer()
            observer.lat, observer.lon, observer.pressure = str(latitude), str(longitude), 0
            observer.horizon = horizon
            minute = expected(observer, start, rising, center)
            what = f"{name} at {place} on {date}: {sun[name]}, ephem has {minute}"
            if sun[name] is None:
                check(minute is None, what)
                continue
            hours, minutes = map(int, sun[name].split(":"))
            if minute is None:
                check(center and crosses(observer, start, hours * 60 + minutes, float(horizon)), what)
                continue
            allowed = 1.0 if speed(observer, start, minute) >= SLOWEST else 2.0
            check(abs(hours * 60 + minutes - minute) <= allowed, what)


def moment(text):
    return datetime.datetime.strptime(text, "%Y-%m-%d %H:%M")


def check_moons():
    """Each new and full moon from 2024 to 2034, and how much of the moon shines."""
    for key, following in (("nextNewMoon", ephem.next_new_moon), ("nextFullMoon", ephem.next_full_moon)):
        when = following("2024/1/1")
        while when.datetime().year <= 2034:
            day = (when.datetime() - datetime.timedelta(days=2)).date()
            ours = moment(told("generate", "moon", "--date", str(day))[key])
            difference = abs((ours - when.datetime()).total_seconds())
            check(difference <= 3600, f"{key} {when}: {ours}")
            when = following(when + 1)
    for day in range(0, 4000, 37):
        date = datetime.date(2024, 1, 1) + datetime.timedelta(days=day)
        part = told("generate", "moon", "--date", str(date))["illuminated"]
        theirs = ephem.Moon(ephem.Date(date + datetime.timedelta(days=1))).phase
        check(abs(part - theirs) <= 1, f"the moon on {date}: {part} %, ephem has {theirs} %")


def check_clocks():
    """Each place on two days of this year, for which the zones have the rules that were built in."""
    year = datetime.date.today().year + 1
    for place in told("places"):
        for date in (f"{year}-01-15", f"{year}-07-15"):
            noon = datetime.datetime.fromisoformat(date).replace(hour=12, tzinfo=zoneinfo.ZoneInfo(place["name"]))
            theirs = noon.utcoffset().total_seconds() / 60
            ours = told("generate", "sun", "--place", place["name"], "--date", date)["utcOffset"]
            check(ours == theirs, f"{place['name']} on {date}: {ours}, the zone has {theirs}")


for place in PLACES:
    for date in DATES:
        check_sun(place, date)
check_moons()
check_clocks()
for fault in faults:
    print(fault)
print(f"{checked} checked, {len(faults)} wrong")
sys.exit(1 if faults or checked < 1500 else 0)
