"""Checks of the airport choice. Run: cd scripts && python3 -m unittest discover -p "test_*.py"
"""

import unittest
from types import SimpleNamespace

from worlddata import main_airports
from worlddata.airports import AirportIndex


def airport(iata, icao, kind, town, lat, lon, name="Airport", scheduled="yes", keywords=""):
    return {"iata_code": iata, "icao_code": icao, "gps_code": "", "ident": icao,
            "type": kind, "scheduled_service": scheduled, "name": name,
            "municipality": town, "keywords": keywords, "iso_country": "XX",
            "latitude_deg": str(lat), "longitude_deg": str(lon)}


# A city at (41.0, 29.0) with a closed large airport nearest, two large ones
# whose towns are compound, a medium one of its own name and a large one of
# another town.
ROWS = [
    airport("ISL", "LTBA", "large_airport", "Bakırköy, Istanbul", 41.0, 28.9),
    airport("SAW", "LTFJ", "large_airport", "Pendik, Istanbul", 40.9, 29.3,
            name="Sabiha Gökçen International Airport"),
    airport("IST", "LTFM", "large_airport", "Arnavutköy, Istanbul", 41.27, 28.75),
    airport("MED", "XXMD", "medium_airport", "Istanbul", 41.05, 29.0),
    airport("OTH", "XXOT", "large_airport", "Elsewhere (Somewhere)", 41.0, 29.05),
    airport("FUO", "ZGFS", "medium_airport", "Foshan (Nanhai)", 23.1, 113.1),
    airport("CAN", "ZGGG", "large_airport", "Guangzhou (Huadu)", 23.39, 113.3),
]


class PassengerAirport(unittest.TestCase):
    def setUp(self):
        self.index = AirportIndex(ROWS)

    def pick(self, names, lat, lon):
        return self.index.passenger_airport(names, lat, lon)["iata"]

    def test_choice_order(self):
        cases = [
            # Own large airports (compound towns) before an own medium one and a
            # nearer large one of another town; the closed one never; then
            # 'International' in the name.
            (["Istanbul"], 41.0, 29.0, "SAW"),
            # No own airport: the nearest large one within 30 km, not the closed one.
            (["Bağcılar"], 41.03, 28.86, "OTH"),
            # An own large airport named by its compound town beats a nearer medium one.
            (["Guangzhou"], 23.13, 113.26, "CAN"),
            # The town's own name when it is the only one.
            (["Foshan"], 23.02, 113.12, "FUO"),
        ]
        for names, lat, lon, expected in cases:
            self.assertEqual(self.pick(names, lat, lon), expected, names)

    def test_closed_airport_stays_a_weather_station(self):
        self.assertEqual(self.index.station("", 41.0, 28.9), "LTBA")
        self.assertNotIn("ISL", [r["iata"] for r in self.index.large_international()])

    def test_station_is_the_main_airports(self):
        index = AirportIndex(ROWS + [
            airport("NOC", "", "medium_airport", "Istanbul", 41.01, 29.01),
            # A heliport sharing IST's code: the scheduled airport's ICAO code wins.
            airport("IST", "XXHP", "small_airport", "Istanbul", 41.0, 29.0, scheduled="no"),
            airport("", "XXUN", "small_airport", "Nowhere", 10.0, 10.0, scheduled="no"),
        ])
        cases = [
            # The main airport's own code, though other airports lie nearer.
            ("IST", 41.0, 29.0, "LTFM"),
            ("SAW", 41.0, 29.0, "LTFJ"),
            # A main airport without an ICAO code: the nearest scheduled airport with one.
            ("NOC", 41.0, 29.0, "XXOT"),
            # No main airport: the nearest scheduled airport, else any airfield.
            ("", 23.1, 113.1, "ZGFS"),
            # The unscheduled airfield next door loses to a scheduled airport far off.
            ("", 10.0, 10.01, "LTBA"),
            ("ZZZ", 10.0, 10.01, "LTBA"),
        ]
        for code, lat, lon, expected in cases:
            self.assertEqual(index.station(code, lat, lon), expected, code)
        unscheduled = AirportIndex([airport("", "XXUN", "small_airport", "Nowhere", 10.0, 10.0,
                                            scheduled="no")])
        self.assertEqual(unscheduled.station("", 10.0, 10.01), "XXUN")


class CuratedTable(unittest.TestCase):
    def cities(self):
        return [SimpleNamespace(country="XX", name="Istanbul", airport="SAW"),
                SimpleNamespace(country="XX", name="Guangzhou", airport="CAN")]

    def test_apply_overrides_and_reports_changes(self):
        cities = self.cities()
        table = {("XX", "Istanbul"): ("IST", "busiest"), ("XX", "Guangzhou"): ("CAN", "own")}
        changed = main_airports.apply(cities, AirportIndex(ROWS).codes(), table)
        self.assertEqual(changed, [("XX", "Istanbul", "SAW", "IST")])
        self.assertEqual([c.airport for c in cities], ["IST", "CAN"])

    def test_stale_rows_stop_the_generator(self):
        codes = AirportIndex(ROWS).codes()
        with self.assertRaisesRegex(main_airports.CuratedAirportError, "ZZZ"):
            main_airports.apply(self.cities(), codes, {("XX", "Istanbul"): ("ZZZ", "gone")})
        with self.assertRaisesRegex(main_airports.CuratedAirportError, "Atlantis"):
            main_airports.apply(self.cities(), codes, {("XX", "Atlantis"): ("IST", "none")})
        # The closed list's codes are checked against the data as well.
        with self.assertRaisesRegex(main_airports.CuratedAirportError, "ISL"):
            main_airports.check_codes(codes - {"ISL"}, {})

    def test_station_exceptions(self):
        cities = [SimpleNamespace(country="XX", name="Istanbul", station="LTFM"),
                  SimpleNamespace(country="XX", name="Guangzhou", station="ZGGG")]
        icao = AirportIndex(ROWS).icao_codes()
        main_airports.apply_stations(cities, icao, {("XX", "Istanbul"): ("LTBA", "old slot")})
        self.assertEqual([c.station for c in cities], ["LTBA", "ZGGG"])
        with self.assertRaisesRegex(main_airports.CuratedAirportError, "ZZZZ"):
            main_airports.apply_stations(cities, icao, {("XX", "Istanbul"): ("ZZZZ", "gone")})
        with self.assertRaisesRegex(main_airports.CuratedAirportError, "Atlantis"):
            main_airports.apply_stations(cities, icao, {("XX", "Atlantis"): ("LTBA", "none")})

    def test_london_keeps_the_default_slots_station(self):
        code, why = main_airports.STATION_EXCEPTIONS[("GB", "London")]
        self.assertEqual(code, "EGLC")
        self.assertIn("default clock slot", why)
        self.assertEqual(main_airports.MAIN_AIRPORTS[("GB", "London")][0], "LHR")


if __name__ == "__main__":
    unittest.main()
