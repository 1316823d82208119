"""The world files, written byte for byte as the program's rebuild writes
them: CR LF line ends, two-decimal coordinates, countries numbered by
position and exact offsets of their first city lines."""

import hashlib
import struct


def coordinate(value):
    """Two decimals that read back, through a 32-bit float, as themselves."""
    text = "%.2f" % value
    if text == "-0.00":
        text = "0.00"
    narrowed = struct.unpack("<f", struct.pack("<f", float(text)))[0]
    assert "%.2f" % narrowed == text, text
    return text


def check_field(text):
    assert "\t" not in text and "\r" not in text and "\n" not in text, repr(text)
    assert len(text.encode()) <= 2047
    return text


def city_line(country_id, city):
    fields = [str(country_id), city.name, coordinate(city.lon), coordinate(city.lat),
              city.airport, city.dial, city.area, str(city.key), str(city.rule),
              city.station, city.query]
    return "\t".join(check_field(f) for f in fields) + "\r\n"


def world_files(countries):
    """(country file, city file) bytes for [(name, [cities])] in order."""
    country_bytes, city_bytes = bytearray(), bytearray()
    for position, (name, cities) in enumerate(countries):
        country_bytes += f"{position}\t{len(city_bytes)}\t{check_field(name)}\r\n".encode()
        for city in cities:
            city_bytes += city_line(position, city).encode()
    return bytes(country_bytes), bytes(city_bytes)


def rule_file(rules):
    return "".join(f"{start}\t{end}\r\n" for start, end in rules).encode()


def version_file(*files):
    """Four bytes of version stamp (all the update compares), from the data."""
    digest = hashlib.sha256(b"".join(files)).hexdigest()
    return f"{digest[:4]}\r\n".encode()


def tsv(header, rows):
    lines = ["\t".join(header)] + ["\t".join(str(c) for c in row) for row in rows]
    return ("\n".join(lines) + "\n").encode()
