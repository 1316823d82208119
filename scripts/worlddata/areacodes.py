"""Area codes from libphonenumber's geocoding prefixes.

The geocoding maps national number prefixes to place names. A city's area
code is the shortest prefix whose place is the city (the most used one when
several are equally short, the higher on a tie); in the North American plan
it is the three-digit area code with the most exchanges naming the city.
"""

from .sources import fold, geocoding

# Countries whose area codes all have this many digits, where the geocoding
# names a whole region by a shorter prefix (Brazil's "1" for São Paulo).
FIXED_LENGTH = {"BR": 2, "AR": 2}


def _place_names(description):
    head = description.split(",")[0].split(" - ")[0]
    return {fold(part) for part in head.split("/")} | {fold(head)}


class AreaCodes:
    def __init__(self):
        self.maps = {}

    def _map(self, dial):
        if dial not in self.maps:
            by_name = {}
            for prefix, description in geocoding(dial).items():
                for name in _place_names(description):
                    by_name.setdefault(name, []).append(prefix)
            self.maps[dial] = by_name
        return self.maps[dial]

    def has_data(self, dial):
        return bool(self._map(dial))

    def lookup(self, dial, country, names):
        by_name = self._map(dial)
        prefixes = []
        for name in names:
            prefixes = by_name.get(fold(name), [])
            if prefixes:
                break
        if not prefixes:
            return ""
        shortest = 3 if dial == "1" else min(len(p) for p in prefixes)
        counts = {}
        for p in prefixes:
            if len(p) >= shortest:
                counts[p[:shortest]] = counts.get(p[:shortest], 0) + 1
        code = max(counts, key=lambda p: (counts[p], p))
        width = FIXED_LENGTH.get(country, 0)
        if len(code) < width:
            longer = sorted(p[:width] for p in prefixes if len(p) >= width and p.startswith(code))
            code = max(set(longer), key=lambda p: (longer.count(p), p)) if longer else ""
        return code
