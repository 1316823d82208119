"""Which cities the world files hold, and their names and countries."""

import collections

from .sources import Place, distance_km, fold

HALF_MILLION = 500_000
TARGET_CITIES = 2600
ZONE_TOWN_KM = 25
# Two places of one country with the same name this close are one town that
# GeoNames lists twice (a city and its municipality).
SAME_TOWN_KM = 20
# GeoNames rows that are wrong in a way that matters here: geonameid -> why.
SKIPPED_PLACES = {
    1270926: "a village of Haryana named Gorakhpur that carries the population (1.3 million) "
             "of Gorakhpur, Uttar Pradesh",
}


class Selection:
    def __init__(self, places, country_names):
        self.by_country = collections.defaultdict(list)
        for p in places:
            if p.country in country_names and p.geonameid not in SKIPPED_PLACES:
                self.by_country[p.country].append(p)
        self.chosen = {}
        self.synthesised = []

    def add(self, place, reason):
        place.reasons.add(reason)
        self.chosen[place.geonameid] = place

    def named(self, country, name, lat=None, lon=None, tz=None, km=150):
        """The place of a country with this name (or alternate name), nearest
        to a point when one is given, else the most populous."""
        want = fold(name)
        found = [p for p in self.by_country.get(country, [])
                 if (tz is None or p.tz == tz)
                 and (fold(p.name) == want or any(fold(a) == want for a in p.alternates))]
        if lat is not None:
            found = [p for p in found if distance_km(lat, lon, p.lat, p.lon) <= km]
            return min(found, key=lambda p: distance_km(lat, lon, p.lat, p.lon), default=None)
        return max(found, key=lambda p: (fold(p.name) == want, p.population, -p.geonameid),
                   default=None)

    def near(self, lat, lon, km, country=None, tz=None):
        return [(distance_km(lat, lon, p.lat, p.lon), p)
                for c in ([country] if country else list(self.by_country))
                for p in self.by_country.get(c, [])
                if (tz is None or p.tz == tz) and abs(p.lat - lat) < km / 100
                and distance_km(lat, lon, p.lat, p.lon) <= km]


def select(places, countries, zone_rows, airport_index, name_of=lambda p: p.name):
    """Capitals, tzdata's zone locations, cities of half a million, cities with
    a large international airport, then the most populous others up to the target."""
    sel = Selection(places, countries)

    for code, info in countries.items():
        capitals = [p for p in sel.by_country.get(code, []) if p.code == "PPLC"]
        if not capitals and info.get("capital"):
            found = sel.named(code, info["capital"])
            capitals = [found] if found else []
        if not capitals and sel.by_country.get(code):
            capitals = [max(sel.by_country[code], key=lambda p: (p.population, -p.geonameid))]
        for p in capitals:
            sel.add(p, "capital")

    for codes, lat, lon, zone in zone_rows:
        name = zone.split("/")[-1].replace("_", " ")
        codes = [c for c in codes if c in countries]
        if not codes:
            continue
        found = next((p for p in (sel.named(c, name, lat, lon, km=150) for c in codes) if p),
                     None)
        if not found:
            # A zone named after its country or island (America/Barbados,
            # Pacific/Fiji): the largest town near tzdata's point stands for it.
            nearby = [x for c in codes for x in sel.near(lat, lon, ZONE_TOWN_KM, c, tz=zone)]
            found = max(nearby, key=lambda x: (x[1].population, -x[0]))[1] if nearby else None
        if not found:
            found = Place(-len(sel.synthesised) - 1, name, [], lat, lon, "ZONE", codes[0], 0,
                          zone)
            sel.synthesised.append(found)
        found.tz = zone  # the location stands for its zone
        sel.add(found, "zone")

    for code, group in sel.by_country.items():
        for p in group:
            if p.population >= HALF_MILLION:
                sel.add(p, "half-million")

    for airport in airport_index.large_international():
        country = airport["country"]
        if country not in countries:
            continue
        found = None
        if airport["town"]:
            nearby = [(d, p) for d, p in sel.near(airport["lat"], airport["lon"], 80, country)
                      if fold(p.name) == airport["town"]]
            found = min(nearby, key=lambda x: x[0])[1] if nearby else None
        if not found:
            nearby = sel.near(airport["lat"], airport["lon"], 50, country)
            found = max(nearby, key=lambda x: (x[1].population, -x[0]))[1] if nearby else None
        if found:
            sel.add(found, "airport")

    rest = sorted((p for group in sel.by_country.values() for p in group
                   if p.geonameid not in sel.chosen),
                  key=lambda p: (-p.population, p.geonameid))
    for p in rest:
        if len(sel.chosen) >= TARGET_CITIES and \
                len(merge_duplicates(sel.chosen.values(), name_of)) >= TARGET_CITIES:
            break
        sel.add(p, "population")
    return merge_duplicates(sel.chosen.values(), name_of)


PRIORITY = ["capital", "zone", "half-million", "airport", "population"]


def rank(place):
    return (min(PRIORITY.index(r) for r in place.reasons), -place.population, place.geonameid)


def merge_duplicates(places, name_of=lambda p: p.name):
    """Places of one country listed under one name (`name_of`) within SAME_TOWN_KM of each other
    are one town: the one chosen for the strongest reason, then the most
    populous, stays and takes the others' reasons. Namesakes farther apart
    all stay (their names are told apart later)."""
    groups = collections.defaultdict(list)
    for p in sorted(places, key=rank):
        groups[(p.country, name_of(p))].append(p)
    kept = []
    for group in groups.values():
        mine = []
        for p in group:
            twin = next((k for k in mine
                         if distance_km(p.lat, p.lon, k.lat, k.lon) <= SAME_TOWN_KM), None)
            if twin:
                twin.reasons |= p.reasons
            else:
                mine.append(p)
        kept += mine
    return sorted(kept, key=lambda p: p.geonameid)


def sort_key(name):
    return (fold(name), name)
