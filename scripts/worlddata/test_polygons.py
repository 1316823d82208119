"""Checks of the zone from coordinates and of the check against it.
Run: cd scripts && python3 -m unittest discover -p "test_*.py"
"""

import unittest
from types import SimpleNamespace

from worlddata import polygons
from worlddata.check import check_against_polygons, zone_difference

LINKS = {"Asia/Kashgar": "Asia/Urumqi", "Europe/Kiev": "Europe/Kyiv"}


class PolygonZone(unittest.TestCase):
    def test_one_zone_from_the_polygons_at_a_point(self):
        cases = [
            (["Europe/London"], "Europe/London"),
            (["Europe/Kiev"], "Europe/Kyiv"),  # the canonical name
            (["Asia/Urumqi", "Asia/Shanghai"], "Asia/Urumqi"),  # the region's own polygon
            (["Asia/Shanghai", "Asia/Kashgar"], "Asia/Urumqi"),
            (["Etc/GMT-8", "Asia/Shanghai"], "Asia/Shanghai"),  # land wins over sea
            (["Etc/GMT-8"], None),
            ([], None),
        ]
        for zones, expected in cases:
            self.assertEqual(polygons.polygon_zone(zones, LINKS), expected, zones)

    def test_unsettled_overlap_stops(self):
        with self.assertRaises(polygons.PolygonError):
            polygons.polygon_zone(["Europe/Kyiv", "Europe/Simferopol"], LINKS)

    def test_clocks_read_follow_the_curated_table(self):
        zone, why = polygons.shown_zone("Asia/Urumqi")
        self.assertEqual(zone, "Asia/Shanghai")
        self.assertIn("Beijing time", why)
        self.assertEqual(polygons.shown_zone("Europe/Simferopol"), ("Europe/Simferopol", ""))

    def test_points_at_sea_are_looked_up_again_unrounded(self):
        answers = {(22.0, 114.0): ["Etc/GMT-8"], (22.004, 114.003): ["Asia/Hong_Kong"],
                   (51.5, 0.0): ["Europe/London"], (0.0, 0.0): ["Etc/GMT"],
                   (0.001, 0.001): ["Etc/GMT"]}
        calls = []

        def lookup(points):
            calls.append(list(points))
            return [answers[p] for p in points]

        found = polygons.locate([(22.0, 114.0), (51.5, 0.0)], lookup, LINKS,
                                [(22.004, 114.003), (51.5001, 0.0)])
        self.assertEqual(found, ["Asia/Hong_Kong", "Europe/London"])
        self.assertEqual(calls[1], [(22.004, 114.003)])  # only the point at sea again
        with self.assertRaises(polygons.PolygonError):
            polygons.locate([(0.0, 0.0)], lookup, LINKS, [(0.001, 0.001)])


def city(name, polygon, tz, key, rule, geonames_tz=None, clocks_why="", zone_why="",
         tz_check=None):
    return SimpleNamespace(name=name, polygon=polygon, tz=tz, key=key, rule=rule,
                           geonames_tz=geonames_tz or polygon, clocks_why=clocks_why,
                           zone_why=zone_why, tz_check=tz_check)


class CheckAgainstPolygons(unittest.TestCase):
    def test_zone_difference_is_the_clocks_not_the_names(self):
        cases = [
            ("Europe/London", "Europe/Dublin", 0),  # Irish negative DST, same clocks
            ("Asia/Urumqi", "Asia/Shanghai", 120),
            ("Europe/Kyiv", "Europe/Simferopol", 60),  # equal in summer only
            ("America/Chicago", "America/Chicago", 0),
        ]
        for first, second, expected in cases:
            self.assertEqual(zone_difference(first, second), expected, (first, second))

    def test_deviations_reasons_and_corrections(self):
        compared = []

        def compare(zone, key, rule, points):
            compared.append((zone, key, rule))
            return {"Asia/Urumqi": (len(points), 120)}.get(zone, (0, 0))

        rules = [("LastSunMar 01:00", "LastSunOct 00:59")]
        ordered = [
            ("China", [
                city("Urumqi", "Asia/Urumqi", "Asia/Shanghai", 210, 0,
                     geonames_tz="Asia/Urumqi", clocks_why="Beijing time"),
                city("Kashgar", "Asia/Urumqi", "Asia/Shanghai", 210, 0,
                     geonames_tz="Asia/Urumqi", clocks_why="Beijing time"),
                city("Zhanjiang", "Asia/Shanghai", "Asia/Shanghai", 210, 0,
                     geonames_tz="Asia/Urumqi", tz_check=(0, 0, 17520)),
            ]),
            ("United Kingdom", [
                city("London", "Europe/London", "Europe/London", 85, 1, tz_check=(0, 0, 17524)),
            ]),
            ("Australia", [
                city("Eucla", "Australia/Eucla", "Australia/Eucla", 230, 0,
                     zone_why="standard offset 525 min not in the zone table",
                     tz_check=(17520, 15, 17520)),
            ]),
        ]
        result = check_against_polygons(ordered, rules, compare=compare,
                                         samples=lambda zone: [0] * 17520)
        # The chooser's own outcome is reused where the polygon's zone is shown;
        # Urumqi and Kashgar share one comparison.
        self.assertEqual(compared, [("Asia/Urumqi", 210, None)])
        self.assertEqual(result.instants, 17520 * 4 + 17524)
        self.assertEqual(result.wrong, 17520 * 3)
        self.assertEqual([row[1] for row in result.deviations], ["Urumqi", "Kashgar", "Eucla"])
        self.assertEqual(result.deviations[0][2:], ("Asia/Urumqi", "Asia/Shanghai", 210, 0,
                                                    17520, 120, "Beijing time"))
        self.assertEqual(result.deviations[2][8], "standard offset 525 min not in the zone table")
        self.assertEqual(result.corrected,
                         [("China", "Zhanjiang", "Asia/Urumqi", "Asia/Shanghai", 120)])


if __name__ == "__main__":
    unittest.main()
