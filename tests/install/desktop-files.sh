#!/usr/bin/env bash
# Checks the installed desktop integration of the prefix PREFIX: the menu
# entry and the AppStream metadata pass Debian's validators, and what they
# name is there (the program, the icon in every size, the screenshot).
#
#   desktop-files.sh PREFIX APP_ID SOURCE_DIR
set -uo pipefail

prefix=${1:?prefix}
id=${2:?application id}
source=${3:?source folder}
failures=0
fail() { echo "FAIL: $*" >&2; failures=$((failures + 1)); }

desktop=$prefix/share/applications/$id.desktop
metainfo=$prefix/share/metainfo/$id.metainfo.xml
[ -f "$desktop" ] || fail "no menu entry $desktop"
[ -f "$metainfo" ] || fail "no AppStream metadata $metainfo"
[ "$failures" -eq 0 ] || exit 1

for tool in desktop-file-validate appstreamcli; do
    command -v "$tool" >/dev/null || { echo "FAIL: $tool is missing (scripts/install-deps.sh installs it)" >&2; exit 1; }
done

# desktop-file-validate prints hints but exits 0 for them; any line is a fault here.
report=$(desktop-file-validate "$desktop" 2>&1)
[ $? -eq 0 ] && [ -z "$report" ] || fail "desktop-file-validate: $report"
# validate-tree also finds the menu entry the metadata launches.
report=$(appstreamcli validate-tree --no-net --strict "$prefix" 2>&1) || fail "appstreamcli validate-tree: $report"

# One key of the [Desktop Entry] group.
entry() { sed -n "s/^$1=//p" "$desktop" | head -n 1; }

exec_line=$(entry Exec)
program=${exec_line%% *}
[ "$program" = zonara ] || fail "Exec starts '$program', not the installed program zonara"
[ -x "$prefix/bin/$program" ] || fail "Exec's $program is not in $prefix/bin"
[ "$(entry Icon)" = "$id" ] || fail "Icon is '$(entry Icon)', not the application id $id"
[ "$(entry Terminal)" = false ] || fail "the window program would open a terminal"

# PNG width and height from the IHDR chunk, as "W H".
png_size() {
    local b
    read -r -a b < <(od -An -v -tu1 -j16 -N8 "$1")
    echo "$(( (b[0] << 24) | (b[1] << 16) | (b[2] << 8) | b[3] )) $(( (b[4] << 24) | (b[5] << 16) | (b[6] << 8) | b[7] ))"
}

icons=$prefix/share/icons/hicolor
[ -f "$icons/scalable/apps/$id.svg" ] || fail "no scalable icon"
for size in 16 22 24 32 48 64 128 256; do
    png=$icons/${size}x${size}/apps/$id.png
    if [ ! -f "$png" ]; then
        fail "no ${size}x${size} icon"
    elif [ "$(png_size "$png")" != "$size $size" ]; then
        fail "the ${size}x${size} icon is $(png_size "$png")"
    fi
done

# The metadata's launchable is this menu entry, and its release is this build.
grep -q "<launchable type=\"desktop-id\">$id.desktop</launchable>" "$metainfo" ||
    fail "the metadata does not launch $id.desktop"
built=$(env -i PATH=/usr/bin:/bin HOME=/nonexistent "$prefix/bin/zonara" --version | grep -o '[0-9][0-9.]*[0-9]' | head -n 1)
grep -q "<release version=\"$built\"" "$metainfo" ||
    fail "the metadata has no release $built, the version the program reports"

# The screenshot is published from docs/screenshots/ under the same name, at
# the size the metadata states.
image=$(sed -n 's/.*<image type="source" width="\([0-9]*\)" height="\([0-9]*\)">\(.*\)<\/image>.*/\1 \2 \3/p' "$metainfo" | head -n 1)
read -r width height url <<<"$image"
shot=$source/docs/screenshots/$(basename "${url:-none}")
if [ -z "$image" ]; then
    fail "the metadata has no screenshot with its size"
elif [ ! -f "$shot" ]; then
    fail "the screenshot $url is not in docs/screenshots"
elif [ "$(png_size "$shot")" != "$width $height" ]; then
    fail "the screenshot is $(png_size "$shot"), the metadata says $width $height"
fi

if [ "$failures" -ne 0 ]; then
    echo "$failures failures" >&2
    exit 1
fi
echo "desktop files of $id: all checks passed"
