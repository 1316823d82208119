"""Checks of the rule notation pieces. Run: cd scripts && python3 -m unittest discover -p "test_*.py"
"""

import datetime as dt
import unittest

from worlddata import zones


class RuleTexts(unittest.TestCase):
    def test_resolve_reads_every_form_like_the_program(self):
        cases = [
            ("LastSunOct 01:00", 2006, (10, 29, 1, 0)),
            ("FirstSunAfter08Mar 02:00", 2026, (3, 8, 2, 0)),
            ("FirstSunNov 00:59", 2026, (11, 1, 0, 59)),
            ("LastSatAfter06Nov 23:59", 2026, (10, 31, 23, 59)),  # steps into October
            ("LastFriAfter29Mar 02:00", 2026, (3, 27, 2, 0)),
            ("15Oct 03", 2026, (10, 15, 3, 0)),  # no minutes given
            ("LastXyzMar 01:00", 2026, (3, 29, 1, 0)),  # unknown weekday counts as Sunday
        ]
        for text, year, expected in cases:
            self.assertEqual(zones.resolve(text, year), expected, text)

    def test_best_form_prefers_forms_that_hold_every_year(self):
        # Second Sunday of March, 02:00, for ten years: only the After form names it.
        moments = {}
        for year in zones.FORM_YEARS:
            day = dt.date(year, 3, 8)
            while day.weekday() != 6:
                day += dt.timedelta(days=1)
            moments[year] = dt.datetime(year, 3, day.day, 2, 0)
        text, score = zones.best_form(moments)
        self.assertEqual(score, len(zones.FORM_YEARS))
        self.assertEqual(text, "FirstSunAfter08Mar 02:00")

    def test_local_time_bounds_are_inclusive_in_standard_time(self):
        rule = ("LastSunMar 01:00", "LastSunOct 00:59")
        utc = dt.timezone.utc
        at = lambda *a: dt.datetime(*a, tzinfo=utc)  # noqa: E731
        self.assertEqual(zones.local_time(at(2026, 3, 29, 1, 0), 85, rule)[1], 1)
        self.assertEqual(zones.local_time(at(2026, 3, 29, 0, 59), 85, rule)[1], 0)
        self.assertEqual(zones.local_time(at(2026, 10, 25, 0, 59), 85, rule)[1], 1)
        self.assertEqual(zones.local_time(at(2026, 10, 25, 1, 0), 85, rule)[1], 0)

    def test_uk_and_us_zones_derive_their_rules(self):
        self.assertEqual(zones.derive_rule("Europe/London", 0, 60),
                         ("LastSunMar 01:00", "LastSunOct 00:59"))
        self.assertEqual(zones.derive_rule("America/New_York", -300, -240),
                         ("FirstSunAfter08Mar 02:00", "FirstSunNov 00:59"))
        self.assertEqual(zones.compare("Europe/Dublin", 85,
                                       ("LastSunMar 01:00", "LastSunOct 00:59")), (0, 0))


if __name__ == "__main__":
    unittest.main()
