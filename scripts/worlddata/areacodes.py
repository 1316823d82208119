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

from .sources import fold, geocoding

# Where the geocoding names a city's numbers by a prefix shorter than its
# area code: Argentina's "1" is Buenos Aires' 11.
WIDER_THAN_CODE = {("AR", "1"): "11"}
# Countries whose area codes all have one length, where the geocoding names a
# city by a longer prefix (Sydney's 2 as 299...) or a region by a shorter one
# (Brazil's "1" for São Paulo state).
FIXED_LENGTH = {"BR": 2, "AU": 1, "NZ": 1}
# Where the geocoding names a city's numbers under another name than the
# city's: (ISO country, city) -> the geocoding's name.
GEOCODING_NAMES = {("CH", "Bern"): "Berne", ("ZA", "Pretoria"): "Tshwane"}

# Countries whose numbers begin with a region's digit after the country code
# (Paris 1, Kuala Lumpur 3, La Paz 2) where no geocoding names the towns: the
# digit by the town's GeoNames division (admin1, or admin2 for France's
# departments), and by town where a region has several codes (Sarawak,
# Sabah) or only its capital's is one digit (Kathmandu, Baghdad).
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
    ("NP", "Bhaktapur"): "1",
}


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
    def __init__(self):
        self.maps = {}

    def _map(self, dial):
        if dial not in self.maps:
            by_name = {}
            for prefix, description in geocoding(dial).items():
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
        width = FIXED_LENGTH.get(country, 0)
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
