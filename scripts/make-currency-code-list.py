#!/usr/bin/env python3
"""Makes the currency code list that the update host serves as /CurrencyCodeList.xml.

    python3 scripts/make-currency-code-list.py [--iso-codes FILE] [--out FILE]

Reads every current ISO 4217 code with its English name from Debian's iso-codes
(/usr/share/iso-codes/json/iso_4217.json) and writes the code list's XML shape:
a CurrencyCodeList root with one Currency element per code, holding
CurrencyCoded and CurrencyName, the elements unqualified (no default
namespace) as the program's reader selects them. The output goes to
data/sources/CurrencyCodeList.xml, which is committed, so that neither a build
nor publishing the update tree needs iso-codes. Running it twice with the same
iso-codes gives the same bytes.
"""

import argparse
import json
import os
import subprocess
from xml.sax.saxutils import escape

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
ISO_4217 = "/usr/share/iso-codes/json/iso_4217.json"
OUT = os.path.join(ROOT, "data", "sources", "CurrencyCodeList.xml")


def iso_codes_version():
    try:
        return subprocess.run(
            ["dpkg-query", "-W", "-f=${Version}", "iso-codes"],
            capture_output=True, text=True, check=True).stdout.strip() or "unknown"
    except (OSError, subprocess.CalledProcessError):
        return "unknown"


def read_currencies(path):
    with open(path, encoding="utf-8") as f:
        entries = json.load(f)["4217"]
    currencies = {}
    for entry in entries:
        code = entry["alpha_3"].strip().upper()
        name = entry["name"].strip()
        if len(code) != 3 or not code.isalpha() or not name:
            raise SystemExit(f"unexpected ISO 4217 entry: {entry!r}")
        if code in currencies:
            raise SystemExit(f"ISO 4217 code listed twice: {code}")
        currencies[code] = name
    return sorted(currencies.items())


def code_list(currencies, version):
    lines = [
        '<?xml version="1.0" encoding="UTF-8"?>',
        "<!-- ISO 4217 currency codes and their English names, from Debian's iso-codes "
        f"{escape(version)} (LGPL-2.1-or-later). Made by scripts/make-currency-code-list.py; "
        "do not edit. -->",
        '<CurrencyCodeList xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance" '
        'xsi:noNamespaceSchemaLocation="CurrencyCodeList.xsd">',
    ]
    for code, name in currencies:
        lines += [
            "\t<Currency>",
            f"\t\t<CurrencyCoded>{escape(code)}</CurrencyCoded>",
            f"\t\t<CurrencyName>{escape(name)}</CurrencyName>",
            "\t</Currency>",
        ]
    lines.append("</CurrencyCodeList>")
    return "\n".join(lines) + "\n"


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--iso-codes", default=ISO_4217, help="iso-codes' iso_4217.json")
    parser.add_argument("--out", default=OUT, help="the XML file to write")
    args = parser.parse_args()
    currencies = read_currencies(args.iso_codes)
    text = code_list(currencies, iso_codes_version())
    temporary = args.out + ".new"
    with open(temporary, "w", encoding="utf-8", newline="\n") as f:
        f.write(text)
    os.replace(temporary, args.out)
    print(f"{args.out}: {len(currencies)} currencies")


if __name__ == "__main__":
    main()
