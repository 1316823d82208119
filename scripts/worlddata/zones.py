"""Zone keys, daylight-saving rules in Zonara's notation, and the check of
both against tzdata (the machine's zoneinfo)."""

import calendar
import datetime as dt
from zoneinfo import ZoneInfo

from .sources import distance_km

# The fixed zone table: key, offset in minutes, and the Windows zones whose
# name the row carries (CLDR names them; the first is the row's own).
ZONE_TABLE = [
    (0, -720, ["Dateline Standard Time"]),
    (1, -660, ["UTC-11"]),
    (2, -600, ["Hawaiian Standard Time", "Aleutian Standard Time"]),
    (3, -540, ["Alaskan Standard Time", "UTC-09"]),
    (4, -480, ["Pacific Standard Time", "Pacific Standard Time (Mexico)", "UTC-08"]),
    (10, -420, ["Mountain Standard Time", "Mountain Standard Time (Mexico)"]),
    (15, -420, ["US Mountain Standard Time", "Yukon Standard Time"]),
    (20, -360, ["Central Standard Time", "Easter Island Standard Time"]),
    (25, -360, ["Canada Central Standard Time"]),
    (28, -360, ["Central America Standard Time"]),
    (30, -360, ["Central Standard Time (Mexico)"]),
    (35, -300, ["Eastern Standard Time", "Haiti Standard Time", "Cuba Standard Time",
                "Turks And Caicos Standard Time", "Eastern Standard Time (Mexico)"]),
    (40, -300, ["US Eastern Standard Time"]),
    (45, -300, ["SA Pacific Standard Time"]),
    (50, -240, ["Atlantic Standard Time", "Paraguay Standard Time"]),
    (55, -240, ["SA Western Standard Time", "Venezuela Standard Time",
                "Central Brazilian Standard Time"]),
    (56, -240, ["Pacific SA Standard Time"]),
    (60, -210, ["Newfoundland Standard Time"]),
    (63, -180, ["Greenland Standard Time", "Saint Pierre Standard Time"]),
    (65, -180, ["E. South America Standard Time", "Tocantins Standard Time",
                "Bahia Standard Time"]),
    (70, -180, ["SA Eastern Standard Time", "Argentina Standard Time",
                "Montevideo Standard Time", "Magallanes Standard Time"]),
    (75, -120, ["UTC-02", "Mid-Atlantic Standard Time"]),
    (77, -60, ["Cape Verde Standard Time"]),
    (80, -60, ["Azores Standard Time"]),
    (85, 0, ["GMT Standard Time", "Morocco Standard Time"]),
    (90, 0, ["Greenwich Standard Time", "UTC", "Sao Tome Standard Time"]),
    (93, 60, ["W. Central Africa Standard Time", "Morocco Standard Time"]),
    (95, 60, ["Central Europe Standard Time"]),
    (100, 60, ["Central European Standard Time"]),
    (105, 60, ["Romance Standard Time"]),
    (110, 60, ["W. Europe Standard Time"]),
    (115, 120, ["E. Europe Standard Time", "Jordan Standard Time", "Middle East Standard Time",
                "Syria Standard Time", "West Bank Standard Time", "Kaliningrad Standard Time",
                "Libya Standard Time", "Namibia Standard Time", "Sudan Standard Time",
                "South Sudan Standard Time"]),
    (120, 120, ["Egypt Standard Time"]),
    (125, 120, ["FLE Standard Time"]),
    (130, 120, ["GTB Standard Time"]),
    (135, 120, ["Israel Standard Time"]),
    (140, 120, ["South Africa Standard Time"]),
    (145, 180, ["Russian Standard Time", "Belarus Standard Time", "Turkey Standard Time",
                "Volgograd Standard Time"]),
    (150, 180, ["Arab Standard Time"]),
    (153, 180, ["Arabic Standard Time", "Syria Standard Time", "Jordan Standard Time"]),
    (155, 180, ["E. Africa Standard Time"]),
    (160, 210, ["Iran Standard Time"]),
    (165, 240, ["Arabian Standard Time", "Mauritius Standard Time", "Astrakhan Standard Time",
                "Russia Time Zone 3", "Saratov Standard Time"]),
    (170, 240, ["Caucasus Standard Time", "Georgian Standard Time", "Azerbaijan Standard Time"]),
    (175, 270, ["Afghanistan Standard Time"]),
    (180, 300, ["Ekaterinburg Standard Time"]),
    (185, 300, ["West Asia Standard Time", "Pakistan Standard Time", "Qyzylorda Standard Time"]),
    (190, 330, ["India Standard Time", "Sri Lanka Standard Time"]),
    (193, 345, ["Nepal Standard Time"]),
    (195, 360, ["Central Asia Standard Time", "Bangladesh Standard Time"]),
    (197, 360, ["N. Central Asia Standard Time", "Omsk Standard Time"]),
    (200, 360, ["Sri Lanka Standard Time"]),
    (203, 390, ["Myanmar Standard Time"]),
    (205, 420, ["SE Asia Standard Time", "Altai Standard Time", "W. Mongolia Standard Time",
                "Tomsk Standard Time", "N. Central Asia Standard Time"]),
    (207, 420, ["North Asia Standard Time"]),
    (210, 480, ["China Standard Time"]),
    (215, 480, ["Singapore Standard Time"]),
    (220, 480, ["Taipei Standard Time"]),
    (225, 480, ["W. Australia Standard Time"]),
    (227, 480, ["North Asia East Standard Time", "Ulaanbaatar Standard Time"]),
    (230, 540, ["Korea Standard Time", "North Korea Standard Time"]),
    (235, 540, ["Tokyo Standard Time"]),
    (240, 540, ["Yakutsk Standard Time", "Transbaikal Standard Time"]),
    (245, 570, ["AUS Central Standard Time"]),
    (250, 570, ["Cen. Australia Standard Time"]),
    (255, 600, ["AUS Eastern Standard Time"]),
    (260, 600, ["E. Australia Standard Time"]),
    (265, 600, ["Tasmania Standard Time"]),
    (270, 600, ["Vladivostok Standard Time"]),
    (275, 600, ["West Pacific Standard Time"]),
    (280, 660, ["Central Pacific Standard Time", "Magadan Standard Time", "Sakhalin Standard Time",
                "Russia Time Zone 10", "Norfolk Standard Time", "Bougainville Standard Time"]),
    (285, 720, ["Fiji Standard Time", "UTC+12", "Russia Time Zone 11"]),
    (290, 720, ["New Zealand Standard Time"]),
    (300, 780, ["Tonga Standard Time", "UTC+13", "Samoa Standard Time"]),
]
OFFSETS = {key: minutes for key, minutes, _ in ZONE_TABLE}

MONTHS = ["Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"]
WEEKDAYS = ["Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"]

CHECK_YEARS = (2026, 2027)
# Years a rule form is tried on, so that the chosen forms stay right after 2027.
FORM_YEARS = range(2026, 2036)


def zone_row(key):
    """The row a key selects: an exact key, else the lower neighbour, else row 0."""
    previous = ZONE_TABLE[0]
    for row in ZONE_TABLE:
        if row[0] == key:
            return row
        if row[0] > key:
            return previous
        previous = row
    return ZONE_TABLE[0]


def choose_key(standard_minutes, windows_zone, lat, lon, golden_places):
    """The table row with the city's standard offset; among equal offsets the
    row named after the city's Windows zone, else the row whose own zone lies
    nearest. None when no row has the offset."""
    rows = [row for row in ZONE_TABLE if row[1] == standard_minutes]
    if not rows:
        return None
    for key, _, names in rows:
        if windows_zone in names:
            return key

    def far(row):
        place = golden_places.get(row[2][0])
        return distance_km(lat, lon, *place) if place else 1e9

    return min(rows, key=far)[0]


def nearest_key(minutes):
    return min(ZONE_TABLE, key=lambda row: (abs(row[1] - minutes), row[0]))[0]


# --- the rule notation, resolved exactly as the program resolves it ---

def _weekday(year, month, day):
    return (dt.date(year, month, day).weekday() + 1) % 7  # 0 Sunday


def _two_digits(text, pos):
    digits = ""
    for c in text[pos:pos + 2]:
        if not c.isdigit():
            break
        digits += c
    return int(digits) if digits else 0


def resolve(text, year):
    """(month, day, hour, minute) that a rule text names in a year, by fixed
    character positions; the weekday forms step across month ends."""
    if text[:5] == "First":
        kind, pos = "first", 5
    elif text[:4] == "Last":
        kind, pos = "last", 4
    else:
        kind, pos = "fixed", 2
    day, after = None, False
    if kind == "fixed":
        day = _two_digits(text, 0)
    else:
        weekday = WEEKDAYS.index(text[pos:pos + 3]) if text[pos:pos + 3] in WEEKDAYS else 0
        pos += 3
        if text[pos:pos + 4] == "Afte":
            after, day = True, _two_digits(text, pos + 5)
            pos += 7
    name = text[pos:pos + 3]
    month = MONTHS.index(name) + 1 if name in MONTHS else 0
    hour = _two_digits(text, pos + 4)
    minute = _two_digits(text, pos + 7) if len(text) > pos + 6 else 0
    if kind == "fixed":
        return month, day, hour, minute
    if not after:
        day = calendar.monthrange(year, month)[1] if kind == "last" else 1
    date = dt.date(year, month, day)
    step = dt.timedelta(days=-1 if kind == "last" else 1)
    while (date.weekday() + 1) % 7 != weekday:
        date += step
    return date.month, date.day, hour, minute


def local_time(utc, key, rule):
    """The program's local time for a UTC datetime: (datetime, dst state)."""
    local = utc + dt.timedelta(minutes=zone_row(key)[1])
    if rule is None:
        return local, -1
    start, end = (resolve(text, local.year) for text in rule)

    def stamp(m, d, h, mi):
        return ((m * 100 + d) * 100 + h) * 100 + mi

    now = stamp(local.month, local.day, local.hour, local.minute)
    s, e = stamp(*start), stamp(*end)
    in_force = (now >= s or now <= e) if start[0] > end[0] else (s <= now <= e)
    return (local + dt.timedelta(minutes=60), 1) if in_force else (local, 0)


# --- tzdata ---

UTC = dt.timezone.utc


def _offset(zone, instant):
    return int(instant.astimezone(zone).utcoffset().total_seconds()) // 60


def transitions(zone_name, years):
    """UTC instants (to the second) at which the zone's offset changes, with
    the offsets before and after: [(instant, before, after)]."""
    zone = ZoneInfo(zone_name)
    result = []
    t = dt.datetime(years[0], 1, 1, tzinfo=UTC) - dt.timedelta(hours=12)
    end = dt.datetime(years[-1] + 1, 1, 1, tzinfo=UTC)
    step = dt.timedelta(hours=12)
    previous = _offset(zone, t)
    while t < end:
        nxt = t + step
        current = _offset(zone, nxt)
        if current != previous:
            lo, hi = t, nxt
            while hi - lo > dt.timedelta(seconds=1):
                mid = lo + (hi - lo) / 2
                mid = mid.replace(microsecond=0)
                if mid <= lo:
                    break
                if _offset(zone, mid) == previous:
                    lo = mid
                else:
                    hi = mid
            if hi.year in years:
                result.append((hi, previous, current))
            previous = current
        t = nxt
    return result


def samples(zone_name):
    """Every hour of the check years, and a minute either side of each
    transition in them."""
    start = dt.datetime(CHECK_YEARS[0], 1, 1, tzinfo=UTC)
    hours = (dt.datetime(CHECK_YEARS[-1] + 1, 1, 1, tzinfo=UTC) - start) // dt.timedelta(hours=1)
    points = [start + dt.timedelta(hours=h) for h in range(hours)]
    for instant, _, _ in transitions(zone_name, CHECK_YEARS):
        points.append(instant - dt.timedelta(minutes=1))
        points.append(instant + dt.timedelta(minutes=1))
    return points


def compare(zone_name, key, rule, points=None):
    """(wrong samples, largest error in minutes) of a key and rule against tzdata."""
    zone = ZoneInfo(zone_name)
    wrong, worst = 0, 0
    for utc in points if points is not None else samples(zone_name):
        mine, _ = local_time(utc, key, rule)
        theirs = utc + dt.timedelta(minutes=_offset(zone, utc))
        diff = abs(int((mine - theirs).total_seconds()) // 60)
        if diff:
            wrong += 1
            worst = max(worst, diff)
    return wrong, worst


def offsets_in(zone_name, years):
    zone = ZoneInfo(zone_name)
    found = {_offset(zone, dt.datetime(years[0], 1, 1, tzinfo=UTC))}
    for _, before, after in transitions(zone_name, years):
        found.update((before, after))
    return sorted(found)


# --- writing transitions in the notation ---

def _candidates(date):
    """Rule day texts (without the time) that can name this date."""
    weekday = WEEKDAYS[(date.weekday() + 1) % 7]
    texts = []
    for month in (date.month, date.month - 1, date.month + 1):
        if not 1 <= month <= 12:
            continue
        mon = MONTHS[month - 1]
        texts += [f"Last{weekday}{mon}", f"First{weekday}{mon}"]
        texts += [f"First{weekday}After{d:02d}{mon}" for d in range(1, 29)]
        texts += [f"Last{weekday}After{d:02d}{mon}" for d in range(1, 29)]
        if month == date.month:
            texts.append(f"{date.day:02d}{mon}")
    return texts


def _form_rank(text):
    if "After" in text:
        return 1
    return 0 if text[0].isalpha() else 2


def best_form(moments):
    """The rule text that names the given local moments ({year: datetime}) for
    the most years in a row from the first; plain weekday forms before the
    "After" forms before fixed days."""
    years = sorted(moments)
    first = moments[years[0]]
    best, best_score = None, -1
    for day_text in _candidates(first.date()):
        text = f"{day_text} {first.hour:02d}:{first.minute:02d}"
        score = 0
        for year in years:
            m = moments[year]
            if resolve(text, year) != (m.month, m.day, m.hour, m.minute):
                break
            score += 1
        if score > best_score or (score == best_score and _form_rank(text) < _form_rank(best)):
            best, best_score = text, score
    return best, best_score


def derive_rule(zone_name, standard, daylight):
    """(start text, end text) of a zone whose clocks move between two offsets,
    in local standard time with the end one minute before the change (both
    bounds are inclusive); None when the years show no such pair."""
    starts, ends = {}, {}
    for instant, before, after in transitions(zone_name, list(FORM_YEARS)):
        local = (instant + dt.timedelta(minutes=standard)).replace(tzinfo=None)
        if (before, after) == (standard, daylight):
            starts.setdefault(local.year, local)
        elif (before, after) == (daylight, standard):
            ends.setdefault(local.year, local - dt.timedelta(minutes=1))
        else:
            break  # the zone changes its offsets: later years say nothing
    years = [y for y in FORM_YEARS if y in starts and y in ends]
    run = []
    for y in years:
        if run and y != run[-1] + 1:
            break
        run.append(y)
    if not run or run[0] != CHECK_YEARS[0]:
        if CHECK_YEARS[0] in starts and CHECK_YEARS[0] in ends:
            run = [CHECK_YEARS[0]]
        else:
            return None
    start, _ = best_form({y: starts[y] for y in run})
    end, _ = best_form({y: ends[y] for y in run})
    return start, end
