"""Checks of the names cities are listed under. Run: cd scripts && python3 -m unittest discover -p "test_*.py"
"""

import collections
import unittest
from types import SimpleNamespace

from worlddata import names
from worlddata.cities import merge_duplicates
from worlddata.sources import Place


def place(name, country, alternates=(), lat=0.0, lon=0.0, population=0, reasons=("population",),
          geonameid=1):
    return Place(geonameid, name, list(alternates), lat, lon, "PPL", country, population, "",
                 reasons=set(reasons))


def city(name, country, admin1, lat, lon, population):
    return SimpleNamespace(name=name, country=country, admin1=admin1, lat=lat, lon=lon,
                           population=population)


class PlainForm(unittest.TestCase):
    def test_administrative_words_marks_and_apostrophes(self):
        countries = {"Kuwait", "Guatemala"}
        cases = [
            ("Makati City", "PH", "Makati"),
            ("City of Balikpapan", "ID", "Balikpapan"),
            ("Dededo Village", "GU", "Dededo"),
            ("Kyain Seikgyi Township", "MM", "Kyain Seikgyi"),
            ("Fukui-shi", "JP", "Fukui"),
            ("Ansan-si", "KR", "Ansan"),
            ("New York City", "US", "New York"),
            ("Kuwait City", "KW", "Kuwait City"),  # the short form is the country
            ("Guatemala City", "GT", "Guatemala City"),
            ("Quezon City", "PH", "Quezon City"),  # Quezon is a province
            ("Salt Lake City", "US", "Salt Lake City"),
            ("Alīgarh", "IN", "Aligarh"),
            ("Kōriyama", "JP", "Koriyama"),
            ("Al Manşūrah", "EG", "Al Mansurah"),
            ("Cần Thơ", "VN", "Can Tho"),
            ("Ðà Lạt", "VN", "Da Lat"),  # the stroke does not decompose
            ("Arkhangel’sk", "RU", "Arkhangelsk"),  # the soft sign is not written
            ("Namp’o", "KP", "Nampo"),
            ("Xi’an", "CN", "Xi'an"),  # separates syllables
            ("Zürich", "CH", "Zürich"),  # Latin-script accents stay
            ("São Paulo", "BR", "São Paulo"),
            ("Saint John’s", "AG", "Saint John's"),
            ("Nuku‘alofa", "TO", "Nuku'alofa"),
        ]
        for name, country, expected in cases:
            self.assertEqual(names.plain_form(name, country, countries), expected, name)


class CuratedNames(unittest.TestCase):
    def test_curated_name_must_be_one_of_the_places_names(self):
        english = {("DE", "Köln"): "Cologne", ("MX", "Juárez"): "Ciudad Juárez",
                   ("HT", "Delmas 73"): "Delmas"}
        cases = [
            (place("Köln", "DE", ["Koeln", "Cologne"]), "Cologne"),
            (place("Juárez", "MX", ["Ciudad Juarez"]), "Ciudad Juárez"),  # accents fold
            (place("Delmas 73", "HT"), "Delmas"),  # part of the name itself
            (place("Bonn", "DE", ["Bonna"]), "Bonn"),  # no row: the plain form
        ]
        for p, expected in cases:
            self.assertEqual(names.common_name(p, (), english), expected)
        with self.assertRaises(names.CuratedNameError):
            names.common_name(place("Köln", "DE", ["Koeln"]), (), english)

    def test_shipped_table_gives_each_country_distinct_names(self):
        seen = collections.defaultdict(list)
        for (country, old), new in names.ENGLISH.items():
            self.assertNotEqual(old, new)
            seen[(country, new)].append(old)
        self.assertEqual({k: v for k, v in seen.items() if len(v) > 1}, {})


class Namesakes(unittest.TestCase):
    def regions(self, country, admin1):
        return {"OR": "Oregon", "ME": "Maine", "19": "Liaoning"}.get(admin1)

    def test_region_or_nearest_larger_city_tells_them_apart(self):
        cities = [
            city("Portland", "US", "OR", 45.5, -122.7, 632309),
            city("Portland", "US", "ME", 43.7, -70.3, 66881),
            city("Portland", "AU", "VIC", -38.3, 141.6, 10000),  # another country
            city("Jinzhou", "CN", "19", 41.1, 121.1, 604269),
            city("Jinzhou", "CN", "19", 39.1, 121.7, 215386),
            city("Dalian", "CN", "19", 38.9, 121.6, 3000000),
            city("Shenyang", "CN", "19", 41.8, 123.4, 5000000),
        ]
        renamed, missing = names.tell_apart(cities, self.regions)
        self.assertEqual([c.name for c in cities], [
            "Portland, Oregon", "Portland, Maine", "Portland", "Jinzhou, Liaoning",
            "Jinzhou, Dalian", "Dalian", "Shenyang"])
        self.assertEqual((renamed, missing), (4, set()))

    def test_missing_region_is_reported(self):
        cities = [city("Suzhou", "CN", "04", 31.3, 120.6, 5345961),
                  city("Suzhou", "CN", "01", 33.6, 117.0, 205130)]
        _, missing = names.tell_apart(cities, self.regions)
        self.assertEqual(missing, {("CN", "04"), ("CN", "01")})


class SameTown(unittest.TestCase):
    def test_one_town_listed_twice_is_merged_namesakes_stay(self):
        capital = place("Balikpapan", "ID", lat=-1.24, lon=116.89, population=700000,
                        reasons=("capital",), geonameid=2)
        twin = place("City of Balikpapan", "ID", lat=-1.27, lon=116.83, population=433866,
                     reasons=("airport",), geonameid=3)
        far = place("Balikpapan", "ID", lat=-3.0, lon=116.8, population=1000, geonameid=4)
        kept = merge_duplicates([twin, capital, far],
                                lambda p: names.plain_form(p.name, p.country))
        self.assertEqual([p.geonameid for p in kept], [2, 4])
        self.assertEqual(capital.reasons, {"capital", "airport"})


if __name__ == "__main__":
    unittest.main()
