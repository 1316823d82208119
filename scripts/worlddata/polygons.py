"""Each city's zone from its coordinates: the tz zone whose boundary polygon
holds the city (timezone-boundary-builder's polygons through npm's geo-tz),
and the zone the city's clocks show where that differs."""

# Where two polygons overlap, the zone whose polygon is the region's own (it
# lies inside the other's): sorted pair -> the region's zone.
OVERLAPS = {
    ("Asia/Shanghai", "Asia/Urumqi"): "Asia/Urumqi",
}

# Where a traveller arriving reads other clocks than the polygon's zone:
# polygon zone -> (zone shown, why).
CLOCKS_READ = {
    "Asia/Urumqi": (
        "Asia/Shanghai",
        "Xinjiang: Beijing time is China's only legal time and the one on airport, railway "
        "and official clocks, timetables and phones; the polygon's Xinjiang time (UTC+6) is "
        "kept informally by part of the population"),
}


class PolygonError(Exception):
    pass


def at_sea(zones):
    return all(z.startswith("Etc/") for z in zones)


def polygon_zone(zones, links, overlaps=None):
    """The one zone of a point's polygons, by its canonical tzdata name; None
    at sea (only an Etc zone). Raises PolygonError for an overlap of polygons
    that OVERLAPS does not settle."""
    overlaps = OVERLAPS if overlaps is None else overlaps
    land = sorted({links.get(z, z) for z in zones if not z.startswith("Etc/")})
    if not land:
        return None
    if len(land) == 1:
        return land[0]
    key = tuple(land)
    if key not in overlaps:
        raise PolygonError("polygons overlap without a settled zone: " + ", ".join(land))
    return overlaps[key]


def shown_zone(polygon, clocks=None):
    """(zone the city's clocks show, why it differs from the polygon or "")."""
    clocks = CLOCKS_READ if clocks is None else clocks
    return clocks.get(polygon, (polygon, ""))


def locate(points, lookup, links, fallback_points=None):
    """Polygon zone per point; a point at sea (a coastal town rounded into
    the water) is looked up again at its fallback point (its unrounded
    coordinates). `lookup` maps a list of (lat, lon) to lists of zones.
    Raises PolygonError naming the points still at sea."""
    found = [polygon_zone(z, links) for z in lookup(points)]
    again = [i for i, z in enumerate(found) if z is None]
    if again and fallback_points is not None:
        for i, z in zip(again, lookup([fallback_points[i] for i in again])):
            found[i] = polygon_zone(z, links)
    lost = [points[i] for i, z in enumerate(found) if z is None]
    if lost:
        raise PolygonError("no land polygon holds " + ", ".join(f"{a},{b}" for a, b in lost))
    return found
