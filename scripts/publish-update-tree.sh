#!/usr/bin/env bash
# Publishes the update host's static tree: the three world files under
# zonara/ and their version stamp, the currency code list as
# /CurrencyCodeList.xml, a copy of the euro reference rates as
# /eurofxref-daily.xml when one is given, plus any extra files at the top.
#
#   publish-update-tree.sh [--data DIR] [--codes FILE] [--rates FILE] [--add FILE]... OUT
#
# --data DIR    the world files to publish (default: the repository's data/)
# --codes FILE  the currency code list (default: data/sources/CurrencyCodeList.xml,
#               made from iso-codes by make-currency-code-list.py)
# --rates FILE  a copy of the central bank's eurofxref-daily.xml (default: none)
# --add FILE    also publish FILE at the top of the tree under its own name
# Prints the published stamp.
set -euo pipefail

here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
data="$here/../data"
codes="$here/../data/sources/CurrencyCodeList.xml"
rates=""
extras=()
usage() {
    echo "usage: $0 [--data DIR] [--codes FILE] [--rates FILE] [--add FILE]... OUT" >&2
    exit 2
}

while [ $# -gt 0 ]; do
    case "$1" in
        --data) [ $# -ge 2 ] || usage; data=$2; shift 2 ;;
        --codes) [ $# -ge 2 ] || usage; codes=$2; shift 2 ;;
        --rates) [ $# -ge 2 ] || usage; rates=$2; shift 2 ;;
        --add) [ $# -ge 2 ] || usage; extras+=("$2"); shift 2 ;;
        -h|--help) usage ;;
        -*) usage ;;
        *) break ;;
    esac
done
[ $# -eq 1 ] || usage
out=$1

files=(country40.dat city40.dat daylight40.dat) # the stamp's order
for f in "${files[@]}"; do
    [ -s "$data/$f" ] || { echo "$0: $data/$f is missing or empty" >&2; exit 1; }
done
for f in "$codes" ${rates:+"$rates"} "${extras[@]}"; do
    [ -s "$f" ] || { echo "$0: $f is missing or empty" >&2; exit 1; }
done

mkdir -p "$out/zonara"

# Copies beside the target and renames over it: readers see old or new, whole.
publish() {
    local from=$1 to=$2
    cp "$from" "$to.publishing"
    mv -f "$to.publishing" "$to"
}

# Four hex digits of the data's SHA-256, as the data generator makes them.
digest() { cat "${@/#/$data/}" | sha256sum | cut -c1-4; }
stamp=$(digest "${files[@]}")

published_same=yes
for f in "${files[@]}"; do
    cmp -s "$data/$f" "$out/zonara/$f" || published_same=no
done
old_stamp=""
if [ -f "$out/zonara/version40.dat" ]; then
    old_stamp=$(head -c 4 "$out/zonara/version40.dat")
fi
if [ "$published_same" = yes ] && [ -n "$old_stamp" ]; then
    stamp=$old_stamp # the same data keep their stamp
else
    # Changed data must never show the stamp already out there.
    salt=0
    while [ "$stamp" = "$old_stamp" ]; do
        salt=$((salt + 1))
        stamp=$( { cat "${files[@]/#/$data/}"; echo "$salt"; } | sha256sum | cut -c1-4)
    done
fi

for f in "${files[@]}"; do
    publish "$data/$f" "$out/zonara/$f"
done
printf '%s\r\n' "$stamp" > "$out/zonara/version40.dat.publishing"
mv -f "$out/zonara/version40.dat.publishing" "$out/zonara/version40.dat"
# The second sources of a currency rates refresh, at the paths clients ask for.
publish "$codes" "$out/CurrencyCodeList.xml"
if [ -n "$rates" ]; then
    publish "$rates" "$out/eurofxref-daily.xml"
fi
for f in "${extras[@]}"; do
    publish "$f" "$out/$(basename "$f")"
done
echo "$stamp"
