"""A city's passenger airport code and its weather station code."""

import re

from .main_airports import CLOSED_TO_PASSENGERS
from .sources import distance_km, fold

ICAO = re.compile(r"^[A-Z]{4}$")
IATA = re.compile(r"^[A-Z]{3}$")


class AirportIndex:
    def __init__(self, rows):
        self.rows = []
        for row in rows:
            self.rows.append({
                "iata": row.get("iata_code", "") if IATA.match(row.get("iata_code", "")) else "",
                "icao": self._icao(row),
                "large": row["type"] == "large_airport",
                "scheduled": row.get("scheduled_service") == "yes",
                "international": "international" in row["name"].casefold(),
                "town": fold(row.get("municipality", "")),
                "town_parts": self._town_parts(row.get("municipality", "")),
                "keywords": {fold(k) for k in row.get("keywords", "").split(",")},
                "country": row["iso_country"],
                "lat": float(row["latitude_deg"]),
                "lon": float(row["longitude_deg"]),
                "name": row["name"],
            })
        self.rows.sort(key=lambda r: (r["lat"], r["lon"], r["iata"], r["icao"]))
        # One IATA code can stand on several rows (a heliport beside its airport):
        # the scheduled, then large row's ICAO code is the airport's.
        self.icao_by_iata = {}
        for row in sorted(self.rows, key=lambda r: (not r["scheduled"], not r["large"])):
            if row["iata"] and row["icao"]:
                self.icao_by_iata.setdefault(row["iata"], row["icao"])

    @staticmethod
    def _town_parts(municipality):
        """The places a compound town names: "Pendik, Istanbul" names Pendik
        and Istanbul, "Shanghai (Pudong)" Shanghai and Pudong."""
        parts = re.split(r"[,()]", municipality)
        return {fold(p) for p in parts if fold(p)}

    @staticmethod
    def _passenger(row):
        return bool(row["iata"]) and row["scheduled"] and row["iata"] not in CLOSED_TO_PASSENGERS

    @staticmethod
    def _icao(row):
        for code in (row.get("icao_code", ""), row.get("gps_code", ""), row.get("ident", "")):
            if code and ICAO.match(code):
                return code
        return ""

    def _near(self, lat, lon, km):
        box = km / 111.0 + 0.01
        for row in self.rows:
            if abs(row["lat"] - lat) <= box:
                d = distance_km(lat, lon, row["lat"], row["lon"])
                if d <= km:
                    yield d, row

    def _nearest(self, lat, lon, wanted):
        for km in (50, 150, 400, 1500, 20000):
            found = [(d, r) for d, r in self._near(lat, lon, km) if wanted(r)]
            if found:
                return min(found, key=lambda x: (x[0], x[1]["iata"], x[1]["icao"]))[1]
        return None

    def passenger_airport(self, names, lat, lon):
        """The airport row a city flies from: one of its own (scheduled flights,
        its town the city's name, else one of its other names, else a part of
        a compound town, else a keyword) preferring large, then the closer
        name, then international, then near ones; else a large one close by;
        else the nearest with a code. Airports closed to passengers never count."""
        towns = [fold(n) for n in names]

        def ownership(row):
            if row["town"] == towns[0]:
                return 0
            if row["town"] in towns:
                return 1
            if any(t in row["town_parts"] for t in towns):
                return 2
            return 3 if any(t in row["keywords"] for t in towns) else 4

        own = [(ownership(r), d, r) for d, r in self._near(lat, lon, 60) if self._passenger(r)]
        own = [x for x in own if x[0] < 4]
        if own:
            return min(own, key=lambda x: (not x[2]["large"], x[0], not x[2]["international"],
                                           x[1]))[2]
        close = [(d, r) for d, r in self._near(lat, lon, 30) if self._passenger(r)]
        if close:
            return min(close, key=lambda x: (not x[1]["large"], x[0]))[1]
        return self._nearest(lat, lon, self._passenger) or \
            self._nearest(lat, lon, lambda r: r["iata"] and r["iata"] not in CLOSED_TO_PASSENGERS)

    def station(self, airport, lat, lon):
        """The ICAO code of the city's main airport (IATA code `airport`) when it
        has one; else the nearest airport with scheduled flights and a
        four-letter code, else the nearest airfield with one."""
        if airport in self.icao_by_iata:
            return self.icao_by_iata[airport]
        row = self._nearest(lat, lon, lambda r: r["icao"] and r["scheduled"]) or \
            self._nearest(lat, lon, lambda r: r["icao"])
        return row["icao"] if row else ""

    def icao_codes(self):
        return {r["icao"] for r in self.rows if r["icao"]}

    def large_international(self):
        return [r for r in self.rows if r["large"] and self._passenger(r)]

    def codes(self):
        return {r["iata"] for r in self.rows if r["iata"]}
