#!/usr/bin/env bash
# Runs Zonara from the install prefix PREFIX the way a new user does: the
# shipped files are all there, the first start seeds the user's root folder
# ($XDG_DATA_HOME/zonara, else ~/.local/share/zonara) from share/zonara, and
# nothing is ever written under the prefix.
#
#   installed-tree.sh PREFIX SOURCE_DIR
set -uo pipefail

prefix=${1:?prefix}
source=${2:?source folder}
shared=$prefix/share/zonara
failures=0
fail() { echo "FAIL: $*" >&2; failures=$((failures + 1)); }

work=$(mktemp -d "${TMPDIR:-/tmp}/zonara-installed-XXXXXX")
trap 'rm -rf "$work"' EXIT
mkdir "$work/cwd" "$work/home" "$work/home2"

# The program with an empty environment but for what the case names.
run() { (cd "$work/cwd" && env -i PATH=/usr/bin:/bin LANG=C.UTF-8 "$@"); }
state() { find "$prefix" -printf '%P %y %s %m %T@\n' | LC_ALL=C sort; }

# --- the installed tree holds what the program reads at run time
[ -x "$prefix/bin/zonara" ] || { echo "FAIL: no $prefix/bin/zonara" >&2; exit 1; }
diff -r --exclude=sources "$source/data" "$shared/Data" >/dev/null ||
    fail "share/zonara/Data differs from the shipped data/"
[ -e "$shared/Data/sources" ] && fail "the data's sources were installed"
diff -r "$source/graphics" "$shared/Graphics" >/dev/null ||
    fail "share/zonara/Graphics differs from the shipped graphics/"
for page in "$source"/help/*; do
    cmp -s "$page" "$shared/$(basename "$page")" || fail "help page $(basename "$page") not installed"
done
# Everything in share/zonara is copied into every user's root folder.
for name in server scripts zonara-weather-gateway; do
    [ -e "$shared/$name" ] && fail "share/zonara holds the update host's $name"
done
[ -x "$prefix/libexec/zonara/zonara-weather-gateway" ] || fail "the weather gateway is not installed"
[ -f "$prefix/share/zonara-update-host/server/nginx.conf.template" ] ||
    fail "the update host's nginx template is not installed"

before=$(state)

# --- first start with an empty home: seeds ~/.local/share/zonara
at=2026-07-01T12:00:00Z
out=$(run HOME="$work/home" "$prefix/bin/zonara" --at "$at" --tsv now 2>"$work/err")
status=$?
root=$work/home/.local/share/zonara
[ $status -eq 0 ] || fail "zonara now exited $status: $(cat "$work/err")"
[ "$(printf '%s\n' "$out" | grep -c '^[0-3]	')" -eq 4 ] || fail "zonara now did not print four slots: $out"
diff -r "$shared/Graphics" "$root/Graphics" >/dev/null || fail "the root's Graphics/ was not seeded whole"
cmp -s "$shared/help.htm" "$root/help.htm" || fail "the root's help page was not seeded"
cmp -s "$shared/Data/version40.dat" "$root/Data/version40.dat" || fail "the root's data stamp was not seeded"
for f in city40.dat country40.dat daylight40.dat; do
    [ -s "$root/Data/$f" ] || fail "the root's Data/$f is missing"
done

# --- the user's changes stay in the user's root
out=$(run HOME="$work/home" "$prefix/bin/zonara" slot 2 tokyo 2>&1) || fail "zonara slot 2 tokyo: $out"
out=$(run HOME="$work/home" "$prefix/bin/zonara" --at "$at" --tsv now 2>&1)
printf '%s\n' "$out" | grep -q '^2	Tokyo	Japan	2026-07-01	21:00' ||
    fail "the slot set before did not stay: $out"

# --- with XDG_DATA_HOME set the root goes there, and home stays empty
out=$(run HOME="$work/home2" XDG_DATA_HOME="$work/xdg" "$prefix/bin/zonara" --at "$at" now 2>&1) ||
    fail "zonara now with XDG_DATA_HOME: $out"
[ -s "$work/xdg/zonara/Data/city40.dat" ] || fail "XDG_DATA_HOME/zonara was not seeded"
[ -z "$(ls -A "$work/home2")" ] || fail "with XDG_DATA_HOME set, home was written: $(ls -A "$work/home2")"

# --- the menu entry's command without a display prints the terminal clock
out=$(run HOME="$work/home" "$prefix/bin/zonara" 2>/dev/null)
printf '%s\n' "$out" | grep -q 'Tokyo' || fail "zonara without a display did not show the clock: $out"

# --- the update host's publisher runs from the prefix with its own world files
out=$(run "$prefix/bin/zonara-publish-update-tree" "$work/tree" 2>&1) ||
    fail "zonara-publish-update-tree: $out"
for f in city40.dat country40.dat daylight40.dat; do
    cmp -s "$prefix/share/zonara-update-host/data/$f" "$work/tree/zonara/$f" ||
        fail "the published tree lacks the installed $f"
done
[ "$(head -c 4 "$work/tree/zonara/version40.dat" 2>/dev/null)" = "$out" ] ||
    fail "the published stamp is not the one printed ($out)"

# --- nothing was written under the prefix, nor into the working folder
after=$(state)
[ "$before" = "$after" ] || fail "the prefix changed: $(diff <(echo "$before") <(echo "$after") | head -n 20)"
[ -z "$(ls -A "$work/cwd")" ] || fail "the working folder was written: $(ls -A "$work/cwd")"

if [ "$failures" -ne 0 ]; then
    echo "$failures failures" >&2
    exit 1
fi
echo "installed tree under $prefix: all checks passed"
