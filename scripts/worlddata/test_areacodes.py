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


if __name__ == "__main__":
    unittest.main()
