"""Checks of the area codes. Run: cd scripts && python3 -m unittest discover -p "test_*.py"
"""

import unittest

from worlddata import areacodes


class RegionDigits(unittest.TestCase):
    def test_digit_by_region_or_town(self):
        cases = [
            ("FR", "Paris", "11", "75", "1"),
            ("FR", "Versailles", "11", "78", "1"),
            ("FR", "Rennes", "53", "35", "2"),
            ("FR", "Strasbourg", "44", "67", "3"),
            ("FR", "Marseille", "93", "13", "4"),
            ("FR", "Ajaccio", "94", "2A", "4"),
            ("FR", "Bordeaux", "75", "33", "5"),
            ("FR", "Toulouse", "76", "31", "5"),
            ("MY", "Kuala Lumpur", "14", "", "3"),
            ("MY", "Ipoh", "07", "", "5"),
            ("MY", "George Town", "09", "", "4"),
            ("MY", "Kuching", "11", "", "82"),  # Sarawak: by town
            ("BO", "La Paz", "04", "", "2"),
            ("BO", "Santa Cruz", "08", "", "3"),
            ("NP", "Kathmandu", "3", "", "1"),
            ("NP", "Pokhara", "4", "", ""),  # two digits, unknown here
            ("AX", "Mariehamn", "", "", "18"),  # Åland in Finland's plan
            ("NF", "Kingston", "", "", "3"),
            ("DK", "Copenhagen", "17", "", ""),  # a closed plan
        ]
        for country, name, admin1, admin2, expected in cases:
            self.assertEqual(areacodes.region_code(country, name, admin1, admin2), expected,
                             name)

    def test_every_metropolitan_department_has_one_digit(self):
        _, codes = areacodes.REGION_CODES["FR"]
        departments = {f"{n:02d}" for n in range(1, 96) if n != 20} | {"2A", "2B"}
        self.assertEqual(set(codes), departments)


class GeocodingNames(unittest.TestCase):
    def test_descriptions_name_the_city(self):
        cases = [
            ("Bucharest and Ilfov County", False, "bucharest"),
            ("Damascus and rural areas", False, "damascus"),
            ("Havana City", False, "havana"),
            ("Greater Jakarta", False, "jakarta"),
            ("Sarajevo Canton", False, "sarajevo"),
            ("Brits/Tshwane", False, "tshwane"),
            ("Portland, OR", True, "portland"),
        ]
        for description, need_region, name in cases:
            self.assertIn(name, areacodes._place_names(description, need_region), description)
        self.assertEqual(areacodes._place_names("Oregon", True), set())


# A few prefixes of the geocoding data as libphonenumber writes them.
GEOCODING = {
    "44": {"20": "London", "1481": "Guernsey", "1534": "Jersey", "1556": "Castle Douglas",
           "1624": "Isle of Man"},
    "39": {"06": "Rome", "06698": "Vatican City", "02": "Milan"},
    "383": {"38": "Prishtina", "28": "Mitrovica", "280": "Gjilan"},
    "61": {"8513": "Port Hedland/Christmas Island/Cocos Island/Karratha",
           "89164": "Christmas Island", "89162": "Cocos Island", "299": "Sydney",
           "2": "Sydney"},
    "41": {"31": "Berne", "44": "Zurich"},
}


class Lookup(unittest.TestCase):
    def test_city_or_the_name_its_numbers_stand_under(self):
        codes = areacodes.AreaCodes(lambda dial: GEOCODING.get(dial, {}))
        cases = [
            ("GB", "London", "44", "20"),
            ("GG", "Saint Peter Port", "44", "1481"),
            ("JE", "Saint Helier", "44", "1534"),
            ("IM", "Douglas", "44", "1624"),  # not Castle Douglas
            ("VA", "Vatican City", "39", "06"),  # Rome's code, not the exchange
            ("XK", "Pristina", "383", "38"),
            ("AU", "Sydney", "61", "2"),
            ("CX", "Flying Fish Cove", "61", "8"),  # Australia's plan: one digit
            ("CC", "West Island", "61", "8"),
            ("CH", "Bern", "41", "31"),
            ("GB", "Saint Peter Port", "44", ""),  # the curated name is the territory's
        ]
        for country, name, dial, expected in cases:
            names = areacodes.names_to_try(country, name, name, [], dial)
            self.assertEqual(codes.lookup(dial, country, names), expected, name)


class CountriesWithoutCodes(unittest.TestCase):
    TABLE = {"closed": ("closed plans", {"DK", "MT"}), "unnamed": ("no data", {"UZ"})}

    def test_every_gap_has_one_reason(self):
        cases = [
            ({"DK": False, "MT": False, "UZ": False, "FR": True}, ""),
            ({"DK": False, "UZ": False}, ""),  # a listed country not shipped
            ({"DK": False, "MT": False, "UZ": False, "GG": False}, "no reason in"),
            ({"DK": True, "MT": False, "UZ": False}, "given area codes: DK"),
        ]
        for with_codes, problem in cases:
            if not problem:
                areacodes.check_without_codes(with_codes, self.TABLE)
                continue
            with self.assertRaisesRegex(areacodes.AreaCodeError, problem):
                areacodes.check_without_codes(with_codes, self.TABLE)
        twice = {**self.TABLE, "other": ("again", {"MT"})}
        with self.assertRaisesRegex(areacodes.AreaCodeError, "more than one reason in .*: MT"):
            areacodes.check_without_codes({"MT": False}, twice)


if __name__ == "__main__":
    unittest.main()
