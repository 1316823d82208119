#!/usr/bin/python3
"""Compares 'zonara sun' with PyEphem's sunrise and sunset, as a plausibility check.

A development tool, not a test: it needs Debian's python3-ephem, which the build does
not. It writes a small world file set (one country, cities from the equator to beyond
the polar circles) into a temporary root, asks 'zonara --tsv sun CITY --date D' for
each city and date, and compares the UT times with PyEphem's for the standard sunrise
(upper limb on a horizon 34' down, no extra refraction), which is what the almanac
method's zenith of 90 deg 50' approximates. Prints each pair, the days where one says
the sun rises and the other does not, and the largest and typical differences.

    scripts/check-sun-times.py [--zonara build/bin/zonara] [--verbose]
"""

import argparse
import datetime
import glob
import math
import os
import statistics
import subprocess
import sys
import tempfile

try:
    import ephem
except ImportError:
    sys.exit("check-sun-times: needs PyEphem (apt-get install python3-ephem)")

# name, latitude, longitude (degrees, north and east positive; two decimals, as stored)
CITIES = [
    ("Quito", -0.18, -78.47),
    ("Singapore", 1.35, 103.82),
    ("Nairobi", -1.29, 36.82),
    ("Honolulu", 21.31, -157.86),
    ("Delhi", 28.61, 77.21),
    ("LosAngeles", 34.05, -118.24),
    ("Tokyo", 35.69, 139.69),
    ("NewYork", 40.71, -74.01),
    ("London", 51.51, -0.13),
    ("Moscow", 55.76, 37.62),
    ("Anchorage", 61.22, -149.90),
    ("Reykjavik", 64.15, -21.94),
    ("Fairbanks", 64.84, -147.72),
    ("Rovaniemi", 66.50, 25.73),
    ("Murmansk", 68.97, 33.09),
    ("Tromso", 69.65, 18.96),
    ("Longyearbyen", 78.22, 15.65),
    ("CapeTown", -33.92, 18.42),
    ("Sydney", -33.87, 151.21),
    ("BuenosAires", -34.60, -58.38),
    ("Auckland", -36.85, 174.76),
    ("PuntaArenas", -53.16, -70.91),
    ("Ushuaia", -54.80, -68.30),
    ("McMurdo", -77.85, 166.67),
]

DATES = [
    "2026-01-15", "2026-02-20", "2026-03-20", "2026-05-01", "2026-06-21",
    "2026-08-15", "2026-09-23", "2026-11-01", "2026-12-21", "2000-06-21",
]

POLAR_TEXTS = {"Up all day": "up", "Down all day": "down"}


def find_zonara(given):
    if given:
        return given
    here = os.path.dirname(os.path.abspath(__file__))
    found = sorted(glob.glob(os.path.join(here, "..", "build*", "bin", "zonara")),
                   key=os.path.getmtime, reverse=True)
    if not found:
        sys.exit("check-sun-times: no build*/bin/zonara; pass --zonara PATH")
    return found[0]


def write_world(root):
    data = os.path.join(root, "Data")
    os.makedirs(data)
    with open(os.path.join(data, "country40.dat"), "wb") as f:
        f.write(b"0\t0\tTest\r\n")
    with open(os.path.join(data, "city40.dat"), "wb") as f:
        for name, lat, lon in CITIES:
            line = f"0\t{name}\t{lon:.2f}\t{lat:.2f}\tXXX\t0\t0\t85\t0\t\t\r\n"
            f.write(line.encode())
    with open(os.path.join(data, "daylight40.dat"), "wb") as f:
        f.write(b"")


def zonara_times(zonara, root, name, date):
    out = subprocess.run([zonara, "--root", root, "--tsv", "sun", name, "--date", date],
                         capture_output=True, text=True, check=True).stdout
    fields = out.rstrip("\n").split("\t")
    return fields[3], fields[4]


def as_minutes(text):
    """'HH:MM:SS' to minutes of the day, or 'up'/'down' for a polar day or night."""
    if text in POLAR_TEXTS:
        return POLAR_TEXTS[text]
    h, m, s = (int(x) for x in text.split(":"))
    return h * 60 + m + s / 60


def ephem_times(lat, lon, date):
    """Sunrise and sunset of the local day as UT minutes of the day, or 'up'/'down'."""
    obs = ephem.Observer()
    obs.lat, obs.lon = str(lat), str(lon)
    obs.elevation = 0
    obs.pressure = 0
    obs.horizon = "-0:34"
    day = datetime.datetime.strptime(date, "%Y-%m-%d")
    # Local mean noon of the date, in UT.
    obs.date = ephem.Date(day + datetime.timedelta(hours=12 - lon / 15))
    sun = ephem.Sun()
    result = []
    for method in (obs.previous_rising, obs.next_setting):
        try:
            t = method(sun).datetime()
            result.append(t.hour * 60 + t.minute + t.second / 60 + t.microsecond / 6e7)
        except ephem.AlwaysUpError:
            result.append("up")
        except ephem.NeverUpError:
            result.append("down")
    return result


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--zonara", help="the zonara executable")
    parser.add_argument("--verbose", action="store_true", help="print every comparison")
    args = parser.parse_args()
    zonara = find_zonara(args.zonara)

    diffs = []
    worst = []
    state_mismatches = []
    with tempfile.TemporaryDirectory() as root:
        write_world(root)
        for name, lat, lon in CITIES:
            for date in DATES:
                ours = [as_minutes(t) for t in zonara_times(zonara, root, name, date)]
                theirs = ephem_times(lat, lon, date)
                for event, a, b in zip(("sunrise", "sunset"), ours, theirs):
                    if isinstance(a, str) or isinstance(b, str):
                        if a != b:
                            state_mismatches.append((name, date, event, a, b))
                        continue
                    d = (a - b + 720) % 1440 - 720
                    diffs.append(abs(d))
                    worst.append((abs(d), name, lat, date, event, d))
                    if args.verbose:
                        print(f"{name:13} {lat:7.2f} {date} {event:7} zonara {a:7.2f} "
                              f"ephem {b:7.2f} diff {d:+6.2f} min")

    worst.sort(reverse=True)
    print(f"{len(diffs)} events compared over {len(CITIES)} cities and {len(DATES)} dates")
    print(f"difference in minutes: median {statistics.median(diffs):.2f}, "
          f"mean {statistics.mean(diffs):.2f}, "
          f"95th percentile {sorted(diffs)[math.ceil(0.95 * len(diffs)) - 1]:.2f}, "
          f"largest {worst[0][0]:.2f}")
    print("largest differences:")
    for size, name, lat, date, event, d in worst[:8]:
        print(f"  {name:13} lat {lat:7.2f} {date} {event:7} {d:+7.2f} min")
    print(f"{len(state_mismatches)} days where only one side has the event:")
    for name, date, event, a, b in state_mismatches:
        print(f"  {name:13} {date} {event:7} zonara {a} ephem {b}")


if __name__ == "__main__":
    main()
