#!/usr/bin/env bash
# Serves a published update tree on 127.0.0.1:PORT with nginx, and the weather
# gateway through fcgiwrap, as the current user; both stop when this script
# ends (Ctrl-C, SIGTERM, SIGHUP, or either of them exiting).
#
#   serve-update-host.sh PORT DIR
#
# The weather gateway: $ZONARA_WEATHER_GATEWAY, else zonara-weather-gateway
# from PATH. It finds cities in DIR/zonara/ and asks $ZONARA_METNO_URL (empty:
# MET Norway's locationforecast), naming $ZONARA_CONTACT in its User-Agent;
# $ZONARA_AT fixes its "now" (tests). Configuration, logs, sockets and caches
# live in a temporary folder ($ZONARA_HOST_RUN_DIR when set, kept then)
# removed at the end.
set -euo pipefail

usage() { echo "usage: $0 PORT DIR" >&2; exit 2; }
[ $# -eq 2 ] || usage
port=$1
tree=$2
if ! [[ "$port" =~ ^[0-9]+$ ]] || [ "$port" -lt 1 ] || [ "$port" -gt 65535 ]; then
    usage
fi
[ -d "$tree" ] || { echo "$0: $tree is not a folder" >&2; exit 1; }
tree=$(cd "$tree" && pwd)

here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
template="$here/../server/nginx.conf.template"
nginx=$(command -v nginx || echo /usr/sbin/nginx)
fcgiwrap=$(command -v fcgiwrap || echo /usr/sbin/fcgiwrap)
[ -x "$nginx" ] || { echo "$0: nginx is not installed" >&2; exit 1; }
[ -x "$fcgiwrap" ] || { echo "$0: fcgiwrap is not installed" >&2; exit 1; }

gateway=${ZONARA_WEATHER_GATEWAY:-$(command -v zonara-weather-gateway || true)}
gateway=${gateway:-/nonexistent/zonara-weather-gateway}

if [ -n "${ZONARA_HOST_RUN_DIR:-}" ]; then
    run=$ZONARA_HOST_RUN_DIR
    keep_run=yes
    mkdir -p "$run"
else
    run=$(mktemp -d "${TMPDIR:-/tmp}/zonara-host-XXXXXX")
    keep_run=no
fi

# nginx drops its workers to "nobody" when started as root, and nobody may
# not read a private tree: the workers stay the current user.
user_line=""
if [ "$(id -u)" -eq 0 ]; then
    user_line="user root $(id -gn);"
fi

escape() { printf '%s' "$1" | sed -e 's/[\\&|]/\\&/g'; }
# A value inside an nginx string in double quotes (nginx would read a "$" in
# it as a variable, so the values must not hold one).
quoted() { escape "$(printf '%s' "$1" | sed -e 's/["\\]/\\&/g')"; }
mkdir -p "$run/gateway-cache"
sed -e "s|@USER@|$(escape "$user_line")|" \
    -e "s|@RUN@|$(escape "$run")|g" \
    -e "s|@PORT@|$port|g" \
    -e "s|@ROOT@|$(escape "$tree")|g" \
    -e "s|@GATEWAY@|$(escape "$gateway")|g" \
    -e "s|@WORLD@|$(quoted "$tree/zonara")|g" \
    -e "s|@METNO_URL@|$(quoted "${ZONARA_METNO_URL:-}")|g" \
    -e "s|@CONTACT@|$(quoted "${ZONARA_CONTACT:-}")|g" \
    -e "s|@CACHE@|$(quoted "$run/gateway-cache")|g" \
    -e "s|@AT@|$(quoted "${ZONARA_AT:-}")|g" \
    "$template" > "$run/nginx.conf"

pids=()
stop() {
    trap - EXIT INT TERM HUP
    for pid in "${pids[@]}"; do
        kill -TERM "$pid" 2>/dev/null || true
    done
    for pid in "${pids[@]}"; do
        wait "$pid" 2>/dev/null || true
    done
    if [ "$keep_run" = no ]; then
        rm -rf "$run"
    fi
}
trap 'stop; exit 0' INT TERM HUP
trap stop EXIT

rm -f "$run/fcgiwrap.sock" # one left by an earlier run in a kept folder
"$fcgiwrap" -c 1 -s "unix:$run/fcgiwrap.sock" &
pids+=($!)
# nginx only once the gateway's socket is there, so that the first weather
# request does not meet a missing socket (at most 5 s).
for _ in $(seq 100); do
    [ -S "$run/fcgiwrap.sock" ] && break
    kill -0 "${pids[0]}" 2>/dev/null || { echo "$0: fcgiwrap did not start" >&2; exit 1; }
    sleep 0.05
done
"$nginx" -p "$run" -c "$run/nginx.conf" -e "$run/error.log" &
pids+=($!)
echo "serving $tree on http://127.0.0.1:$port/ (nginx $run/nginx.conf)" >&2

# Ends as soon as either server does.
wait -n "${pids[@]}" || true
