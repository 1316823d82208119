"""The names cities are listed under: the name people type in English, and
what tells two namesakes of one country apart."""

import collections
import unicodedata

from .sources import distance_km, fold

# Countries whose towns GeoNames writes with marks that English leaves out:
# scholarly romanisations of other scripts (Alīgarh, Al Manşūrah, Kōfu) and
# Vietnamese tones (Cần Thơ).
ROMANISED = {
    "AE", "AF", "AM", "BD", "BG", "BH", "BT", "BY", "CN", "CY", "EG", "ER", "ET", "GE", "GR",
    "HK", "IL", "IN", "IQ", "IR", "JO", "JP", "KG", "KH", "KP", "KR", "KW", "KZ", "LA", "LB",
    "LK", "LY", "MK", "MM", "MN", "MO", "MV", "NP", "OM", "PK", "PS", "QA", "RU", "SA", "SD",
    "SY", "TH", "TJ", "TM", "TW", "UA", "VN", "YE",
}
# Where the apostrophe of a romanisation separates syllables (Xi'an, Tai'an)
# rather than standing for a sound English does not write.
SYLLABLE_APOSTROPHE = {"CN"}

# Apostrophe-like letters people type as the plain apostrophe, or (the
# romanisations' signs for ayn, hamza and the soft sign) leave out.
APOSTROPHES = {"\u2019": "'", "\u2018": "'", "\u02bb": "'", "\u02bc": "'"}
ROMANISATION_SIGNS = {"\u2018", "\u2019", "\u02bb", "\u02bc", "\u02be", "\u02bf"}

# Administrative words around a name that people leave out: "City of
# Balikpapan", "Makati City", "Dededo Village", "Fukui-shi", "Ansan-si".
PREFIXES = ("City of ",)
SUFFIXES = (" City", " Village", " Township", "-shi", "-si")

# Names where the word belongs to the name as people say it (or the short
# form names something else: a province, a state, another town).
KEEP_WHOLE = {
    "Angeles City", "Carson City", "Cebu City", "Dawson City", "Ho Chi Minh City",
    "Iowa City", "Kansas City", "Oklahoma City", "Quezon City", "Salt Lake City",
    "Tarlac City", "Tell City", "Vatican City",
}

# The English name where GeoNames' main name is a local or administrative form:
# (ISO country, GeoNames name) -> name. Each must be found in one of the
# place's GeoNames names, so that a row cannot land on another town.
ENGLISH = {
    ("AR", "San Fernando del Valle de Catamarca"): "Catamarca",
    ("BE", "Antwerpen"): "Antwerp",
    ("BE", "Gent"): "Ghent",
    ("BO", "Santa Cruz de la Sierra"): "Santa Cruz",
    ("BR", "Fernando de Noronha (Distrito Estadual)"): "Fernando de Noronha",
    ("BD", "Cox’s Bāzār"): "Cox's Bazar",
    ("BY", "Homyel'"): "Gomel",
    ("BY", "Mahilyow"): "Mogilev",
    ("BY", "Hrodna"): "Grodno",
    ("BY", "Babruysk"): "Bobruisk",
    ("CA", "Montréal"): "Montreal",
    ("CA", "Québec"): "Quebec City",
    ("CH", "Genève"): "Geneva",
    ("CN", "Zhangjiakou Shi Xuanhua Qu"): "Xuanhua",
    ("CN", "Zhu Cheng City"): "Zhucheng",
    ("CN", "Linxia Chengguanzhen"): "Linxia",
    ("CN", "Tongchuanshi"): "Tongchuan",
    ("DE", "Frankfurt am Main"): "Frankfurt",
    ("DE", "Hannover"): "Hanover",
    ("DE", "Köln"): "Cologne",
    ("DE", "Nürnberg"): "Nuremberg",
    ("DE", "Halle (Saale)"): "Halle",
    ("DK", "Århus"): "Aarhus",
    ("EG", "Al Manşūrah"): "Mansoura",
    ("EG", "Al Maḩallah al Kubrá"): "El Mahalla El Kubra",
    ("EG", "Al Fayyūm"): "Faiyum",
    ("EG", "Tanda"): "Tanta",
    ("EG", "Banī Suwayf"): "Beni Suef",
    ("EG", "Shibīn al Kawm"): "Shibin El Kom",
    ("EG", "Qinā"): "Qena",
    ("EG", "Al Minyā"): "Minya",
    ("EG", "Ḩalwān"): "Helwan",
    ("ES", "Sevilla"): "Seville",
    ("ES", "Las Palmas de Gran Canaria"): "Las Palmas",
    ("ET", "Nazrēt"): "Adama",
    ("ET", "Mek'ele"): "Mekelle",
    ("FM", "Palikir - National Government Center"): "Palikir",
    ("GB", "Kingston upon Hull"): "Hull",
    ("GR", "Irákleion"): "Heraklion",
    ("HT", "Delmas 73"): "Delmas",
    ("IL", "Petaẖ Tiqwa"): "Petah Tikva",
    ("IL", "Rishon LeẔiyyon"): "Rishon LeZion",
    ("IN", "Bhubaneshwar"): "Bhubaneswar",
    ("IN", "Cochin"): "Kochi",
    ("IN", "Dehra Dūn"): "Dehradun",
    ("IN", "Hāora"): "Howrah",
    ("IN", "Dhūlia"): "Dhule",
    ("IN", "Chānda"): "Chandrapur",
    ("IN", "Tanjore"): "Thanjavur",
    ("IN", "Ellore"): "Eluru",
    ("IN", "Saugor"): "Sagar",
    ("IN", "Monghyr"): "Munger",
    ("IQ", "Basrah"): "Basra",
    ("IQ", "Al Ḩillah"): "Hillah",
    ("IQ", "Al Kūt"): "Kut",
    ("IQ", "Al ‘Amārah"): "Amarah",
    ("IQ", "As Sulaymānīyah"): "Sulaymaniyah",
    ("IQ", "Ad Dīwānīyah"): "Diwaniyah",
    ("IQ", "Dihok"): "Duhok",
    ("IQ", "Abū Ghurayb"): "Abu Ghraib",
    ("IR", "Orūmīyeh"): "Urmia",
    ("JP", "Kakogawachō-honmachi"): "Kakogawa",
    ("JP", "Nishinomiya-hama"): "Nishinomiya",
    ("JP", "Ageoshimo"): "Ageo",
    ("KZ", "Nur-Sultan"): "Astana",
    ("KZ", "Karagandy"): "Karaganda",
    ("LY", "Mişrātah"): "Misrata",
    ("MA", "Oujda-Angad"): "Oujda",
    ("MA", "Fès"): "Fez",
    ("MA", "Sale"): "Salé",
    ("MM", "Nay Pyi Taw"): "Naypyidaw",
    ("MN", "Ulan Bator"): "Ulaanbaatar",
    ("MX", "Acapulco de Juárez"): "Acapulco",
    ("MX", "Heroica Matamoros"): "Matamoros",
    ("MX", "León de los Aldama"): "León",
    ("MX", "Naucalpan de Juárez"): "Naucalpan",
    ("MX", "Pachuca de Soto"): "Pachuca",
    ("MX", "Santiago de Querétaro"): "Querétaro",
    ("MX", "Ecatepec de Morelos"): "Ecatepec",
    ("MX", "Tuxtla"): "Tuxtla Gutiérrez",
    ("MX", "Victoria de Durango"): "Durango",
    ("MX", "Xalapa de Enríquez"): "Xalapa",
    ("MX", "Juárez"): "Ciudad Juárez",
    ("MX", "Santa María Chimalhuacán"): "Chimalhuacán",
    ("NG", "Ebute Ikorodu"): "Ikorodu",
    ("PA", "Panamá"): "Panama City",
    ("PK", "Jhang Sadr"): "Jhang",
    ("RU", "Nizhniy Novgorod"): "Nizhny Novgorod",
    ("RU", "Rostov-na-Donu"): "Rostov-on-Don",
    ("RU", "Naberezhnyye Chelny"): "Naberezhnye Chelny",
    ("RU", "Orël"): "Oryol",
    ("SA", "Al Hufūf"): "Hofuf",
    ("SE", "Göteborg"): "Gothenburg",
    ("SO", "Hargeysa"): "Hargeisa",
    ("SY", "Ḩamāh"): "Hama",
    ("TH", "Mueang Nonthaburi"): "Nonthaburi",
    ("UA", "Mykolayiv"): "Mykolaiv",
    ("US", "Washington, D.C."): "Washington",
    ("US", "Lexington-Fayette"): "Lexington",
    ("UZ", "Andijon"): "Andijan",
    ("UZ", "Qo‘qon"): "Kokand",
    ("YE", "Al Ḩudaydah"): "Hodeidah",
}

# GeoNames' first-level divisions outside the United States, by their GeoNames
# codes, for the namesakes that need them: (ISO country, admin1) -> name.
REGIONS = {
    ("CN", "01"): "Anhui",
    ("CN", "04"): "Jiangsu",
    ("CN", "19"): "Liaoning",
    ("CN", "20"): "Inner Mongolia",
    ("CN", "25"): "Shandong",
    ("IN", "28"): "West Bengal",
}


class CuratedNameError(Exception):
    pass


# Letters with a stroke, which Unicode does not decompose into letter and mark.
STROKED = str.maketrans({"Đ": "D", "đ": "d", "Ð": "D"})


def _without_marks(text, keep_apostrophes):
    decomposed = unicodedata.normalize("NFD", text.translate(STROKED))
    plain = "".join(c for c in decomposed if not unicodedata.combining(c)
                    and (keep_apostrophes or c not in ROMANISATION_SIGNS))
    return unicodedata.normalize("NFC", plain)


def plain_form(name, country, country_names=()):
    """The name without administrative words, romanisation marks and
    typographic apostrophes."""
    for prefix in PREFIXES:
        if name.startswith(prefix):
            name = name[len(prefix):]
    if name not in KEEP_WHOLE:
        for suffix in SUFFIXES:
            short = name[:-len(suffix)]
            if name.endswith(suffix) and short and short not in country_names:
                name = short
                break
    if country in ROMANISED:
        name = _without_marks(name, country in SYLLABLE_APOSTROPHE)
    for sign, plain in APOSTROPHES.items():
        name = name.replace(sign, plain)
    return " ".join(name.split())


def common_name(place, country_names=(), english=None):
    """The name a place is listed under; raises CuratedNameError for a curated
    English name that is not one of the place's own names."""
    english = ENGLISH if english is None else english
    wanted = english.get((place.country, place.name))
    if wanted is not None:
        squeezed = fold(wanted).replace(" ", "")
        if not any(squeezed in fold(n).replace(" ", "")
                   for n in [place.name] + list(place.alternates)):
            raise CuratedNameError(
                f"{wanted!r} is not a GeoNames name of {place.name} ({place.country})")
        return wanted
    return plain_form(place.name, place.country, country_names)


def tell_apart(cities, region_name):
    """Namesakes of one country get what tells them apart: ", region" when
    their regions differ, else (for the smaller namesakes of one region)
    ", nearest larger city". `cities` have .name, .country, .lat, .lon,
    .population and .admin1; region_name(country, admin1) gives the region's
    name or None. Returns the renamed cities' count and the (country, admin1)
    pairs whose region name was missing (their namesakes stay as they are)."""
    groups = collections.defaultdict(list)
    for c in cities:
        groups[(c.country, c.name)].append(c)
    renamed, missing = 0, set()
    for (country, name), group in sorted(groups.items()):
        if len(group) < 2:
            continue
        labels = [region_name(country, c.admin1) for c in group]
        if None in labels:
            missing |= {(country, c.admin1) for c, label in zip(group, labels) if label is None}
            continue
        for i, c in enumerate(group):
            rivals = [g for g, label in zip(group, labels) if label == labels[i]]
            if len(rivals) > 1 and c is not max(rivals, key=lambda g: g.population):
                larger = [o for o in cities if o.country == country and o.name != name
                          and o.population > c.population]
                if larger:
                    labels[i] = min(larger, key=lambda o: distance_km(c.lat, c.lon,
                                                                      o.lat, o.lon)).name
        for c, label in zip(group, labels):
            c.name = f"{name}, {label}"
            renamed += 1
    return renamed, missing


def region_names(subdivisions, curated):
    """A lookup (country, admin1) -> region name: a US state's postal code is
    its ISO 3166-2 code; elsewhere GeoNames' admin1 codes are its own, named
    in the curated table."""
    iso = {entry["code"]: entry["name"] for entry in subdivisions}

    def name(country, admin1):
        if (country, admin1) in curated:
            return curated[(country, admin1)]
        if country == "US":
            return iso.get(f"US-{admin1}")
        return None

    return name

