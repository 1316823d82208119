"""The curated part of the airport choice: the main passenger airport of
cities with several, airports closed to passengers, and the station codes
that are not the main airport's.

OurAirports has no traffic figures, so between two large airports of one
city the heuristic in airports.py can only guess. Each row here names the
airport a traveller to the city would expect, with the reason. The table is
applied after the heuristic; a code missing from the airport data or a city
missing from the selection stops the generator, so a stale row cannot pass
unnoticed.
"""

# (ISO country, city as the world files name it): (IATA code, why)
MAIN_AIRPORTS = {
    ("AE", "Dubai"): ("DXB", "Dubai International is the busiest; Al Maktoum carries few passengers"),
    ("AR", "Buenos Aires"): ("EZE", "Ezeiza carries the international flights; Aeroparque is domestic and regional"),
    ("BE", "Brussels"): ("BRU", "Brussels Airport (Zaventem) is the busiest; Charleroi serves low-cost carriers"),
    ("BR", "Rio de Janeiro"): ("GIG", "Galeão is the international airport; Santos Dumont is domestic"),
    ("BR", "São Paulo"): ("GRU", "Guarulhos is the busiest and the international airport; Congonhas is domestic"),
    ("CA", "Toronto"): ("YYZ", "Pearson is the busiest; Billy Bishop serves regional routes"),
    ("CN", "Beijing"): ("PEK", "Capital is the busiest; Daxing is the second"),
    ("CN", "Chengdu"): ("TFU", "Tianfu is the busier since 2022 and took the international flights"),
    ("CN", "Guangzhou"): ("CAN", "Baiyun is Guangzhou's airport; Shadi is Foshan's"),
    ("CN", "Shanghai"): ("PVG", "Pudong is the busiest and the international hub; Hongqiao is mainly domestic"),
    ("CR", "San José"): ("SJO", "Juan Santamaría is the international airport; Tobías Bolaños is domestic"),
    ("CY", "Nicosia"): ("LCA", "Nicosia's own airport is closed since 1974; Larnaca is the Republic's busiest"),
    ("FR", "Paris"): ("CDG", "Charles de Gaulle is the busiest; Orly is the second"),
    ("GB", "London"): ("LHR", "Heathrow is the busiest of London's airports"),
    ("ID", "Jakarta"): ("CGK", "Soekarno-Hatta is the busiest; Halim serves few routes"),
    ("IR", "Tehran"): ("IKA", "Imam Khomeini carries the international flights; Mehrabad is domestic"),
    ("IT", "Milan"): ("MXP", "Malpensa is the busiest; Bergamo and Linate are smaller"),
    ("IT", "Rome"): ("FCO", "Fiumicino is the busiest; Ciampino serves low-cost carriers"),
    ("JP", "Nagoya"): ("NGO", "Centrair took the airline flights from Komaki in 2005"),
    ("JP", "Osaka"): ("KIX", "Kansai is the busiest and the international airport; Itami is domestic"),
    ("JP", "Tokyo"): ("HND", "Haneda is the busiest; Narita is the second"),
    ("KR", "Incheon"): ("ICN", "Incheon International lies in the city itself"),
    ("KR", "Seoul"): ("ICN", "Incheon is the busiest and the international hub; Gimpo is mainly domestic"),
    ("MX", "Mexico City"): ("MEX", "Benito Juárez is the busiest; Felipe Ángeles opened in 2022 with few flights"),
    ("MY", "Kuala Lumpur"): ("KUL", "KLIA took the airline flights from Subang in 1998"),
    ("RU", "Moscow"): ("SVO", "Sheremetyevo is the busiest of Moscow's airports"),
    ("SA", "Mecca"): ("JED", "Mecca has no airport; its travellers fly into Jeddah"),
    ("SE", "Stockholm"): ("ARN", "Arlanda is the busiest; Bromma is mainly domestic"),
    ("SV", "San Salvador"): ("SAL", "Monseñor Romero is the international airport; Ilopango has few flights"),
    ("TH", "Bangkok"): ("BKK", "Suvarnabhumi is the busiest; Don Mueang serves low-cost carriers"),
    ("TR", "Istanbul"): ("IST", "İstanbul Airport is the busiest; Atatürk closed to passengers in 2019"),
    ("TW", "Taipei"): ("TPE", "Taoyuan carries the international flights; Songshan is mainly domestic"),
    ("US", "Chicago"): ("ORD", "O'Hare is the busiest; Midway is the second"),
    ("US", "Dallas"): ("DFW", "Dallas Fort Worth is the busiest; Love Field is the second"),
    ("US", "Houston"): ("IAH", "Bush Intercontinental is the busiest; Hobby is the second"),
    ("US", "Manhattan"): ("JFK", "JFK is New York's busiest airport"),
    ("US", "New York"): ("JFK", "JFK is the busiest; Newark and LaGuardia are the others"),
    ("US", "Washington"): ("IAD", "Dulles is the international airport; National is held to mostly domestic routes"),
    ("ZA", "Pretoria"): ("JNB", "O. R. Tambo is the region's main airport; Lanseria is secondary"),
}

# Airports the data set still lists with scheduled service but that no longer
# take passenger flights: never a city's passenger airport.
CLOSED_TO_PASSENGERS = {
    "ISL": "İstanbul Atatürk: passenger flights moved to İstanbul Airport (IST) in 2019",
}

# (ISO country, city): (ICAO code, why) for cities whose station code is kept
# apart from their main airport's. Checked against the airport data like the
# table above.
STATION_EXCEPTIONS = {
    ("GB", "London"): ("EGLC", "London City is the station of the default clock slot, "
                               "which has always shown London's weather from there"),
}


class CuratedAirportError(Exception):
    pass


def check_codes(known_codes, table=None):
    """Every code the tables name must be in the airport data."""
    table = MAIN_AIRPORTS if table is None else table
    named = {code for code, _ in table.values()} | set(CLOSED_TO_PASSENGERS)
    missing = sorted(named - set(known_codes))
    if missing:
        raise CuratedAirportError("main_airports.py names codes missing from the airport data: "
                                  + ", ".join(missing))


def apply(cities, known_codes, table=None):
    """Sets the listed cities' airports; returns [(country, city, old, new)]
    for those the heuristic had chosen differently."""
    table = MAIN_AIRPORTS if table is None else table
    check_codes(known_codes, table)
    missing = sorted(set(table) - {(c.country, c.name) for c in cities})
    if missing:
        raise CuratedAirportError("main_airports.py lists cities the selection lacks: "
                                  + ", ".join(f"{name} ({country})" for country, name in missing))
    changed = []
    for city in cities:
        row = table.get((city.country, city.name))
        if row and city.airport != row[0]:
            changed.append((city.country, city.name, city.airport, row[0]))
            city.airport = row[0]
    return changed


def apply_stations(cities, known_icao, table=None):
    """Sets the listed cities' station codes; stops on a code missing from the
    airport data or a city missing from the selection."""
    table = STATION_EXCEPTIONS if table is None else table
    missing = sorted({code for code, _ in table.values()} - set(known_icao))
    if missing:
        raise CuratedAirportError("main_airports.py names station codes missing from the "
                                  "airport data: " + ", ".join(missing))
    missing = sorted(set(table) - {(c.country, c.name) for c in cities})
    if missing:
        raise CuratedAirportError("main_airports.py lists station cities the selection lacks: "
                                  + ", ".join(f"{name} ({country})" for country, name in missing))
    for city in cities:
        row = table.get((city.country, city.name))
        if row:
            city.station = row[0]
