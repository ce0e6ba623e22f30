#!/bin/bash
# window_cycle.sh FOLDER-OF-PROGRAMS [DISPLAY-NUMBER]
#
# A whole cycle in the measuring window over played instruments, which are unplugged in its middle and
# come back; its means, saved in a table, have to be those of the player. It takes 80 s and needs socat,
# Xvfb, openbox, xdotool and sqlite3: exit status 77 without one of them. Not part of the tests, since
# it lives from the time of day and a screen.
set -u
for tool in socat Xvfb openbox xdotool sqlite3; do
    command -v $tool >/dev/null || { echo "$tool is missing"; exit 77; }
done
programs=$1
here=$(dirname "$0")
folder=$(mktemp -d)
export DISPLAY=:${2:-87} HOME=$folder
trap 'kill $(jobs -p) 2>/dev/null; wait 2>/dev/null; rm -rf "$folder"' EXIT
"$programs/zel" settings set Port1_dev "$folder/radiation_meter"
"$programs/zel" settings set Port2_dev "$folder/anemometer"
"$here/play_instruments.sh" "$folder" 25 &
Xvfb "$DISPLAY" -screen 0 1024x768x24 >/dev/null 2>&1 &
sleep 1
openbox >/dev/null 2>&1 &
"$programs/zel" desktop --lang de &
sleep 3
keys() { for key in "$@"; do xdotool key "$key"; sleep 0.4; done; }
keys alt+d m
sleep 1
xdotool type 10
keys alt+a
(sleep 30; exec "$here/play_instruments.sh" "$folder" 60) &
sleep 63
keys alt+w
sleep 1
xdotool type "$folder/mast.mdb"
keys Return
sleep 1
xdotool type Mast
keys Return
sleep 1
means=$(sqlite3 -separator ' ' "$folder/mast.mdb" "select Winkel_W_N_mw, Windgeschwindigkeit_mw,
    Umgebungstemperatur_mw, Globalstrahlung_mw, Anzahl_mw from Mast")
echo "$means"
read -r direction speed temperature radiation samples <<<"$means"
awk -v a="$direction $speed $temperature $radiation" -v b="$("$here/play_instruments.sh" means)" -v n="$samples" 'BEGIN {
    split(a, x); split(b, y)
    for (i in y) if ((x[i] - y[i]) ^ 2 > 1e-6) { print x[i], "is not", y[i]; exit 1 }
    if (n != 109) { print n, "samples"; exit 1 }
}'
