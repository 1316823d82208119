"""The independent check: every city's local time as the program computes it
(zone key and rule) against the tz zone of the boundary polygon that holds
the city, at every hour of the check years and a minute either side of each
transition."""

from dataclasses import dataclass, field
from zoneinfo import ZoneInfo

from . import zones


@dataclass
class Check:
    instants: int = 0
    wrong: int = 0
    # (country, city, polygon zone, shown zone, key, rule, wrong, worst, why)
    deviations: list = field(default_factory=list)
    # (country, city, GeoNames' zone, polygon zone, largest difference in minutes)
    corrected: list = field(default_factory=list)


def zone_difference(first, second):
    """The largest difference in minutes between two zones' clocks in the
    check years, hour by hour and around each transition of either."""
    if first == second:
        return 0
    a, b = ZoneInfo(first), ZoneInfo(second)
    points = set(zones.samples(first)) | set(zones.samples(second))
    return max(abs(int((t.astimezone(a).utcoffset() - t.astimezone(b).utcoffset())
                       .total_seconds()) // 60) for t in points)


def check_against_polygons(ordered, rules, compare=zones.compare, samples=zones.samples):
    """`ordered` is [(country name, [city])], each city with .polygon, .tz,
    .key, .rule (its number in `rules`, 0 for none), .clocks_why, .zone_why,
    .geonames_tz and .tz_check (the key choice's own (wrong, worst, count)
    against .tz, reused where the polygon's zone is the shown one)."""
    result = Check()
    outcomes = {}
    for country, group in ordered:
        for c in group:
            rule = rules[c.rule - 1] if c.rule else None
            triple = (c.polygon, c.key, rule)
            if triple not in outcomes and c.polygon == c.tz and c.tz_check is not None:
                outcomes[triple] = c.tz_check
            if triple not in outcomes:
                points = samples(c.polygon)
                outcomes[triple] = compare(c.polygon, c.key, rule, points) + (len(points),)
            wrong, worst, count = outcomes[triple]
            result.instants += count
            result.wrong += wrong
            if wrong:
                why = c.clocks_why or c.zone_why
                result.deviations.append((country, c.name, c.polygon, c.tz, c.key, c.rule, wrong,
                                          worst, why))
            if c.geonames_tz != c.polygon:
                worst_before = zone_difference(c.geonames_tz, c.polygon)
                if worst_before:
                    result.corrected.append((country, c.name, c.geonames_tz, c.polygon,
                                             worst_before))
    return result
