"""Area codes from libphonenumber's geocoding prefixes.

The geocoding maps national number prefixes to place descriptions. A city's
area code is the shortest prefix whose place is the city. Where several
prefixes are equally short: when most of one parent's ten children name the
city, the parent is the code (Dubai: 42 to 48 make 4); else the one under which most
longer prefixes name the city too (Rio's 21), the highest on a tie (Madrid's
91 rather than its newer 81). In the North American plan the code is the
lowest whole area code named after the city (the original; overlays came
later), else the area code of most of the city's exchanges.
"""

import collections
import re

from . import sources
from .sources import fold

# Where the geocoding names a city's numbers by a prefix shorter than its
# area code: Argentina's "1" is Buenos Aires' 11.
WIDER_THAN_CODE = {("AR", "1"): "11"}
# Numbering plans (by dialling code) whose area codes all have one length,
# where the geocoding names a city by a longer prefix (Sydney's 2 as 299...)
# or a region by a shorter one (Brazil's "1" for São Paulo state). Australia's
# plan holds Christmas Island and the Cocos Islands too.
FIXED_LENGTH = {"55": 2, "61": 1, "64": 1}
# Where the geocoding names a city's numbers under another name than the
# city's: (ISO country, city) -> the geocoding's name, tried before the city's
# own. A territory in a larger country's plan is named as a whole (Guernsey
# 1481 in the United Kingdom's); Vatican City's numbers are Rome's 06 (its
# own name stands on the longer 06698, an exchange).
GEOCODING_NAMES = {
    ("CH", "Bern"): "Berne", ("ZA", "Pretoria"): "Tshwane", ("XK", "Pristina"): "Prishtina",
    ("GG", "Saint Peter Port"): "Guernsey", ("JE", "Saint Helier"): "Jersey",
    ("IM", "Douglas"): "Isle of Man", ("CX", "Flying Fish Cove"): "Christmas Island",
    ("CC", "West Island"): "Cocos Island", ("VA", "Vatican City"): "Rome",
}

# Countries whose numbers begin with a region's digit after the country code
# (Paris 1, Kuala Lumpur 3, La Paz 2) where no geocoding names the towns: the
# digit by the town's GeoNames division (admin1, or admin2 for France's
# departments), and by town where a region has several codes (Sarawak,
# Sabah), only its capital's is one digit (Kathmandu, Baghdad), or a
# territory's numbers carry its region code within a plan the geocoding does
# not name it in (Åland's 18 in Finland's, Norfolk Island's 3 in 672).
REGION_CODES = {
    "FR": ("admin2", {
        **{d: "1" for d in ("75", "77", "78", "91", "92", "93", "94", "95")},
        **{d: "2" for d in ("14", "18", "22", "27", "28", "29", "35", "36", "37", "41", "44",
                            "45", "49", "50", "53", "56", "61", "72", "76", "85")},
        **{d: "3" for d in ("02", "08", "10", "21", "25", "39", "51", "52", "54", "55", "57",
                            "58", "59", "60", "62", "67", "68", "70", "71", "80", "88", "89",
                            "90")},
        **{d: "4" for d in ("01", "03", "04", "05", "06", "07", "11", "13", "15", "26", "2A",
                            "2B", "30", "34", "38", "42", "43", "48", "63", "66", "69", "73",
                            "74", "83", "84")},
        **{d: "5" for d in ("09", "12", "16", "17", "19", "23", "24", "31", "32", "33", "40",
                            "46", "47", "64", "65", "79", "81", "82", "86", "87")},
    }),
    # Johor 7; Kedah, Perlis, Penang 4; Kelantan, Pahang, Terengganu 9;
    # Melaka, Negeri Sembilan 6; Perak 5; Selangor, Kuala Lumpur, Putrajaya 3.
    "MY": ("admin1", {"01": "7", "02": "4", "03": "9", "04": "6", "05": "6", "06": "9",
                      "07": "5", "08": "4", "09": "4", "12": "3", "13": "9", "14": "3",
                      "17": "3"}),
    # La Paz, Oruro, Potosí 2; Santa Cruz, Beni, Pando 3; Cochabamba, Chuquisaca, Tarija 4.
    "BO": ("admin1", {"04": "2", "05": "2", "07": "2", "08": "3", "03": "3", "06": "3",
                      "02": "4", "01": "4", "09": "4"}),
    # Pichincha, Santo Domingo 2; Tungurahua 3; Guayas 4; Manabí 5; Esmeraldas 6;
    # Azuay, El Oro 7.
    "EC": ("admin1", {"18": "2", "26": "2", "19": "3", "10": "4", "14": "5", "09": "6",
                      "02": "7", "08": "7"}),
    # Metro Manila 2.
    "PH": ("admin1", {"NCR": "2"}),
    # Baghdad 1.
    "IQ": ("admin1", {"07": "1"}),
}
CITY_CODES = {
    ("MY", "Kuching"): "82", ("MY", "Sibu"): "84", ("MY", "Miri"): "85", ("MY", "Bintulu"): "86",
    ("MY", "Kota Kinabalu"): "88", ("MY", "Sandakan"): "89", ("MY", "Tawau"): "89",
    ("MY", "Lahad Datu"): "89", ("NP", "Kathmandu"): "1", ("NP", "Patan"): "1",
    ("NP", "Bhaktapur"): "1", ("AX", "Mariehamn"): "18", ("NF", "Kingston"): "3",
}

# Countries and territories none of whose cities has an area code, by why:
# the reason's text for data/sources/README.md and the ISO codes it covers.
# The generator stops when a country without codes is missing here or a
# listed one gains a code, so that the list stays true to the data.
NO_AREA_CODES = {
    "closed": (
        "closed numbering plans: no area codes, the whole national number is dialled "
        "everywhere",
        {"AD", "AW", "BH", "BN", "BZ", "CK", "CR", "CY", "DJ", "DK", "EE", "FJ", "FK", "FM",
         "FO", "GI", "GQ", "GS", "GT", "HK", "HT", "IO", "KW", "LI", "LV", "MC", "MH", "MO",
         "MT", "MU", "NC", "NI", "NR", "NU", "PA", "PF", "PG", "PM", "PN", "PW", "QA", "RW",
         "SB", "SC", "SG", "SM", "SR", "ST", "SV", "TD", "TF", "TK", "WF"}),
    "unnamed": (
        "area codes that no data set reachable here names (libphonenumber has no geocoding "
        "for the country, or names only its provinces: Turkmenistan's Ahal is 1, Ashgabat "
        "12)",
        {"ER", "KH", "LA", "LR", "MW", "SS", "TM", "UZ"}),
    "repeated": (
        "French overseas departments and collectivities: the number after the dialling code "
        "begins with that code again (+594 594, +262 262, +262 269 in Mayotte), part of the "
        "number and no area code",
        {"BL", "GF", "GP", "MF", "MQ", "RE", "YT"}),
    "in dialling code": (
        "the island's or territory's digits are part of its dialling code already (Bonaire "
        "599 7, Curaçao 599 9, Svalbard 47 79)",
        {"BQ", "CW", "SJ"}),
}


class AreaCodeError(Exception):
    pass


def check_without_codes(with_codes, table=None):
    """`with_codes` maps each ISO country code to whether any of its cities
    has an area code. Raises AreaCodeError naming the countries without codes
    that the table (NO_AREA_CODES) does not explain, those it lists that have
    one and those it gives more than one reason."""
    table = NO_AREA_CODES if table is None else table
    every = collections.Counter(code for _, codes in table.values() for code in codes)
    listed = set(every)
    twice = sorted(c for c, n in every.items() if n > 1)
    unexplained = sorted(c for c, has in with_codes.items() if not has and c not in listed)
    wrong = sorted(c for c in listed if with_codes.get(c))
    problems = []
    if twice:
        problems.append("more than one reason in NO_AREA_CODES: " + ", ".join(twice))
    if unexplained:
        problems.append("no area code and no reason in NO_AREA_CODES: " + ", ".join(unexplained))
    if wrong:
        problems.append("listed in NO_AREA_CODES but given area codes: " + ", ".join(wrong))
    if problems:
        raise AreaCodeError("; ".join(problems))


def names_to_try(country, name, geonames_name, alternates, dial):
    """The names a city's numbers may stand under in the geocoding, in the
    order tried: the curated geocoding name, the GeoNames name, the listed
    name, and other names only where the data qualifies every town by its
    state (elsewhere an alternate name is often a region's: Quezon City's
    "Quezon")."""
    curated = GEOCODING_NAMES.get((country, name))
    return ([curated] if curated else []) + [geonames_name, name] + \
        (list(alternates) if dial == "1" else [])


def region_code(country, name, admin1, admin2):
    """The area code a region's digit gives, or "" where the table has none."""
    if (country, name) in CITY_CODES:
        return CITY_CODES[(country, name)]
    if country not in REGION_CODES:
        return ""
    field, codes = REGION_CODES[country]
    return codes.get(admin2 if field == "admin2" else admin1, "")


def _place_names(description, need_region):
    parts = description.split(",")
    if need_region and len(parts) < 2:
        return set()  # a state or province, not a town
    head = re.sub(r" \(.*\)$", "", parts[0].split(" - ")[0])
    # "Bucharest and Ilfov County", "Damascus and rural areas": the city first.
    head = head.split(" and ")[0].removeprefix("Greater ")
    for suffix in (" Local", " province", " Province", " City", " Canton"):
        head = head.removesuffix(suffix)
    return {fold(part) for part in head.split("/")} | {fold(head)}


class AreaCodes:
    def __init__(self, geocoding=sources.geocoding):
        """`geocoding` maps a dialling code to its {prefix: place description}."""
        self.geocoding = geocoding
        self.maps = {}

    def _map(self, dial):
        if dial not in self.maps:
            by_name = {}
            for prefix, description in self.geocoding(dial).items():
                if description.endswith(" D.C."):  # the District, written like a town
                    description = description[:-5] + ", DC"
                region = description.split(",")[-1].strip() if "," in description else ""
                for name in _place_names(description, dial == "1"):
                    by_name.setdefault(name, []).append((prefix, region))
            self.maps[dial] = by_name
        return self.maps[dial]

    def has_data(self, dial):
        return bool(self._map(dial))

    def lookup(self, dial, country, names, region=""):
        """The area code of a city known by these names; region, where given,
        keeps only places of that region (a US state: Portland, OR)."""
        by_name = self._map(dial)
        prefixes = []
        for name in names:
            found = by_name.get(fold(name), [])
            prefixes = [p for p, r in found if not region or r == region]
            if prefixes:
                break
        if not prefixes:
            return ""
        if dial == "1":
            return self._north_american(prefixes)
        shortest = min(len(p) for p in prefixes)
        candidates = sorted(p for p in prefixes if len(p) == shortest)
        parents = collections.Counter(p[:-1] for p in candidates)
        parent, children = max(parents.items(), key=lambda item: (item[1], item[0]))
        if len(candidates) > 1 and parent and children >= 5:
            code = parent
        else:
            weight = {c: sum(p.startswith(c) for p in prefixes) for c in candidates}
            code = max(candidates, key=lambda c: (weight[c], c))
        code = WIDER_THAN_CODE.get((country, code), code)
        width = FIXED_LENGTH.get(dial, 0)
        if width and len(code) > width:
            code = code[:width]
        elif len(code) < width:
            longer = sorted(p[:width] for p in prefixes if len(p) >= width and p.startswith(code))
            code = max(set(longer), key=lambda p: (longer.count(p), p)) if longer else ""
        return code

    @staticmethod
    def _north_american(prefixes):
        whole = sorted(p for p in prefixes if len(p) == 3)
        if whole:
            return whole[0]
        counts = collections.Counter(p[:3] for p in prefixes)
        return max(counts.items(), key=lambda item: (item[1], -int(item[0])))[0]
