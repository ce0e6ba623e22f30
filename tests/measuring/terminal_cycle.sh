#!/bin/bash
# terminal_cycle.sh ZEL: cycles of `zel measure` over played instruments. Exit status 77 without socat.
set -u
zel=$1
here=$(dirname "$0")
folder=$(mktemp -d)
"$here/play_instruments.sh" "$folder" 60 &
player=$!
trap 'kill $player 2>/dev/null; rm -rf "$folder"' EXIT
sleep 1
kill -0 $player 2>/dev/null || { wait $player; exit $?; }
export HOME=$folder
failures=0
fail() { echo "FAILED: $1"; failures=$((failures + 1)); }
number() { sed -n "s/.*\"$1\": \([-0-9.]*\).*/\1/p" "$folder/out"; }
near() { awk -v a="$(number "$1")" -v b="$2" -v d="$3" 'BEGIN { exit !(a != "" && (a - b) ^ 2 <= d * d) }' ||
    fail "$1 is $(number "$1"), not $2"; }
measure() { exec "$zel" measure --source "$folder/anemometer,$folder/radiation_meter" --height-difference 0 --json "$@" >"$folder/out"; }

read -r direction speed temperature radiation < <("$here/play_instruments.sh" means)
(measure --cycle-seconds 8) || fail "a cycle ends with $?"
near samples 14 0
near wind_direction_folded_deg "$direction" 1e-6
near wind_speed_m_s "$speed" 0.001
near air_temperature_C "$temperature" 0.001
near global_radiation_W_m2 "$radiation" 0
near wind_extrapolated_m_s "$speed" 0.001
near dropped_telegrams 0 0

measure --cycle-seconds 60 &
running=$!
sleep 2
kill -INT $running
wait $running || fail "ctrl-C ends with $?"
near wind_speed_m_s "$speed" 0.001

measure --cycle-seconds 60 &
running=$!
sleep 1.5
kill $player
wait $running
[ $? -eq 1 ] || fail "unplugged instruments are not told"
grep -q "not connected" "$folder/out" || fail "no message"
near wind_speed_m_s "$speed" 0.001
exit $((failures > 0))
