"""Putting the sources together into cities with every field filled."""

import collections
import urllib.parse
from dataclasses import dataclass

from . import areacodes, main_airports, names, polygons, sources, zones
from .airports import AirportIndex
from .areacodes import AreaCodes
from .cities import select, sort_key
from .writers import coordinate

AREA_NEIGHBOUR_KM = 40
UNITED_KINGDOM_RULE = ("LastSunMar 01:00", "LastSunOct 00:59")


@dataclass
class City:
    name: str
    country: str  # ISO code
    lat: float
    lon: float
    tz: str  # the zone the city's clocks show
    polygon: str = ""  # the zone of the boundary polygon that holds the city
    geonames_tz: str = ""
    clocks_why: str = ""  # why tz differs from polygon
    zone_why: str = ""  # what the zone table or the notation lacks to show tz exactly
    tz_check: tuple = None  # (wrong instants, worst minutes, instants) of key and rule against tz
    admin1: str = ""
    airport: str = ""
    station: str = ""
    dial: str = ""
    area: str = ""
    key: int = 85
    rule: int = 0
    rule_texts: tuple = None
    query: str = ""
    population: int = 0
    reasons: tuple = ()


@dataclass
class World:
    ordered: list  # [(country name, [City])] in file order
    rules: list  # [(start text, end text)]
    area_codes: AreaCodes
    disambiguated: int  # cities whose name got a region or a nearby city
    reasons: dict  # reason -> count of cities chosen for it


def cities_by_reason(cities):
    return dict(collections.Counter(r for c in cities for r in c.reasons))


# Countries whose numbers are dialled under another country's code than the
# one countries-list gives: ISO code -> (dialling code, why).
DIALLED_AS = {
    "VA": ("39", "Vatican City's numbers are in Italy's plan under Rome's 06 (+39 06 698 ...); "
                 "the code 379 set aside for it is not in use"),
}


def dial_codes(countries):
    """ISO code -> (country dialling code, area code shared by the whole
    country): the plan's own code; a North American country's three-digit
    area code goes into the area field."""
    used = collections.Counter(p for info in countries.values() for p in info["phone"])
    result = {}
    for code, info in countries.items():
        if code in DIALLED_AS:
            result[code] = (DIALLED_AS[code][0], "")
            continue
        phones = [str(p) for p in info["phone"]]
        own = [p for p in phones if used[int(p)] == 1] or phones
        phone = own[0]
        if phone.startswith("1") and len(phone) == 4:
            result[code] = ("1", phone[1:])
        else:
            result[code] = (phone, "")
    return result


class ZoneChoice:
    """Per tzdata zone: the key and rule that match it best, and how well."""

    def __init__(self, windows, golden_places, zone_places):
        self.windows, self.golden, self.places = windows, golden_places, zone_places
        self.cache = {}

    def choose(self, tz, lat, lon):
        if tz in self.cache:
            return self.cache[tz]
        lat, lon = self.places.get(tz, (lat, lon))
        offsets = zones.offsets_in(tz, zones.CHECK_YEARS)
        standard = offsets[0]
        options = []
        key = zones.choose_key(standard, self.windows.get(tz), lat, lon, self.golden)
        keys = [key] if key is not None else sorted(
            {zones.nearest_key(standard), zones.nearest_key(offsets[-1])})
        rules = [None]
        if len(offsets) > 1:
            derived = zones.derive_rule(tz, standard, offsets[-1]) if len(offsets) == 2 else None
            if derived:
                rules.insert(0, derived)
        points = zones.samples(tz)
        for k in keys:
            for rule in rules:
                wrong, worst = zones.compare(tz, k, rule, points)
                options.append((wrong, worst, k, rule))
                if wrong == 0:
                    break
        wrong, worst, k, rule = min(options, key=lambda o: (o[0], o[1], o[3] is None))
        reason = ""
        if wrong:
            if key is None:
                reason = f"standard offset {standard} min not in the zone table"
            elif len(offsets) > 2:
                reason = "offsets change in 2026-2027: " + ",".join(map(str, offsets))
            elif offsets[-1] - standard != 60:
                reason = f"daylight saving of {offsets[-1] - standard} min"
            else:
                reason = "transitions no rule form names in both years"
        self.cache[tz] = (k, rule, wrong, worst, len(points), reason)
        return self.cache[tz]


def build():
    countries = sources.countries()
    places = sources.geonames_places()
    airport_index = AirportIndex(sources.airports())
    zone_rows = sources.zone_table("zone1970.tab")
    country_names = {info["name"] for info in countries.values()}
    listed_as = {}

    def name_of(p):
        if p.geonameid not in listed_as:
            listed_as[p.geonameid] = names.common_name(p, country_names)
        return listed_as[p.geonameid]

    chosen = select(places, countries, zone_rows, airport_index, name_of)

    windows, golden = sources.windows_zones()
    links = sources.zone_links()
    zone_places = {}
    for _, lat, lon, zone in sources.zone_table("zone.tab") + zone_rows:
        zone_places[links.get(zone, zone)] = (lat, lon)
    golden_places = {w: zone_places[z] for w, z in golden.items() if z in zone_places}
    chooser = ZoneChoice(windows, golden_places, zone_places)

    # The zone from the coordinates the files carry wins over GeoNames' zone.
    shipped = [(float(coordinate(p.lat)), float(coordinate(p.lon))) for p in chosen]
    polygon_of = polygons.locate(shipped, sources.polygon_zones, links,
                                 [(p.lat, p.lon) for p in chosen])

    dials = dial_codes(countries)
    area_codes = AreaCodes()
    cities = []
    for p, polygon in zip(chosen, polygon_of):
        tz, why = polygons.shown_zone(polygon)
        city = City(name_of(p), p.country, p.lat, p.lon, tz,
                    polygon=polygon, geonames_tz=links.get(p.tz, p.tz), clocks_why=why,
                    admin1=p.admin1, population=p.population, reasons=tuple(sorted(p.reasons)))
        airport = airport_index.passenger_airport([p.name] + p.alternates, p.lat, p.lon)
        city.airport = airport["iata"] if airport else ""
        city.dial, city.area = dials[p.country]
        if not city.area:
            known_as = areacodes.names_to_try(p.country, city.name, p.name, p.alternates,
                                              city.dial)
            state = p.admin1 if p.country == "US" else ""
            city.area = area_codes.lookup(city.dial, p.country, known_as, state) or \
                areacodes.region_code(p.country, city.name, p.admin1, p.admin2)
        city.key, city.rule_texts, wrong, worst, count, city.zone_why = \
            chooser.choose(tz, p.lat, p.lon)
        city.tz_check = (wrong, worst, count)
        cities.append(city)

    regions = names.region_names(sources.subdivisions(), names.REGIONS)
    disambiguated, missing = names.tell_apart(cities, regions)
    if missing:
        raise names.CuratedNameError("names.REGIONS lacks the regions " + ", ".join(
            f"{country} {admin1}" for country, admin1 in sorted(missing)))
    for city in cities:
        city.query = urllib.parse.quote_plus(f"{city.name}, {city.country}")

    # Between several large airports the heuristic only guesses: the curated
    # table names the main one of the cities that have several.
    main_airports.apply(cities, airport_index.codes())
    # The station is the main airport's, so it follows the curated choice.
    for city in cities:
        city.station = airport_index.station(city.airport, city.lat, city.lon)
    main_airports.apply_stations(cities, airport_index.icao_codes())

    # A place the numbering data does not name (a suburb, a town of a region
    # named only as a region) shares the code of the nearest named city close by.
    named = collections.defaultdict(list)
    for city in cities:
        if city.area:
            named[city.country].append(city)
    for city in cities:
        if not city.area and area_codes.has_data(city.dial):
            near = [(sources.distance_km(city.lat, city.lon, c.lat, c.lon), c.name, c.area)
                    for c in named[city.country]]
            near = [n for n in near if n[0] <= AREA_NEIGHBOUR_KM]
            if near:
                city.area = min(near)[2]

    with_codes = collections.defaultdict(bool)
    for city in cities:
        with_codes[city.country] |= bool(city.area)
    areacodes.check_without_codes(with_codes)

    # Rule 1 is the United Kingdom's, the default clock's; the rest in order of use.
    grouped = collections.defaultdict(list)
    for city in cities:
        grouped[countries[city.country]["name"]].append(city)
    ordered = sorted(grouped.items(), key=lambda item: sort_key(item[0]))
    for _, group in ordered:
        group.sort(key=lambda c: sort_key(c.name))
    rules = [UNITED_KINGDOM_RULE]
    for _, group in ordered:
        for city in group:
            if city.rule_texts and city.rule_texts not in rules:
                rules.append(city.rule_texts)
            city.rule = rules.index(city.rule_texts) + 1 if city.rule_texts else 0
    assert len(rules) <= 127, "rule numbers are kept in 8 bits"
    return World(ordered, rules, area_codes, disambiguated, cities_by_reason(cities))
