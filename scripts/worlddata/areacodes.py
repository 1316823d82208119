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


def _place_names(description, need_region):
    parts = description.split(",")
    if need_region and len(parts) < 2:
        return set()  # a state or province, not a town
    head = re.sub(r" \(.*\)$", "", parts[0].split(" - ")[0])
    for suffix in (" Local", " province", " Province"):
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
