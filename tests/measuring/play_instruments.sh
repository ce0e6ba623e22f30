#!/bin/bash
# play_instruments.sh FOLDER SECONDS
#
# Plays an anemometer and a radiation meter on pseudo-terminals: FOLDER/anemometer sends both framed
# telegrams and NMEA sentences in turn, FOLDER/radiation_meter lines of text: a wind of 4 m/s from 270
# degrees, told in m/s, km/h and knots, air of 12.5 °C, a radiation of 412.6 W/m². A cycle over them has
# the means that "play_instruments.sh means" prints. Needs socat.
set -u
command -v socat >/dev/null || { echo "socat is missing"; exit 77; }

checksum() {  # of the characters of a text, as two hexadecimal digits
    local sum=0 code i
    for ((i = 0; i < ${#1}; i++)); do
        printf -v code %d "'${1:i:1}"
        ((sum ^= code))
    done
    printf %02X $sum
}
sentence() { printf '$%s*%s\r\n' "$1" "$(checksum "$1")"; }
comma_telegram() { printf '\x02%s\x03%s\r\n' "$1" "$(checksum "$1"$'\x03')"; }
blank_telegram() { printf '\x02%s*%s\r\x03' "$1" "$(checksum "$1")"; }

if [ "$1" = means ]; then
    echo "270 4 12.5 413"  # direction, speed, air temperature, radiation
    exit
fi

folder=$1
end=$((SECONDS + $2))
instruments=()
for name in anemometer radiation_meter; do
    socat "pty,raw,echo=0,link=$folder/$name.sender" "pty,raw,echo=0,link=$folder/$name" &
    instruments+=($!)
done
trap 'kill "${instruments[@]}" 2>/dev/null' EXIT
trap 'exit 0' TERM INT
while [ ! -e "$folder/anemometer" ] || [ ! -e "$folder/radiation_meter" ]; do sleep 0.05; done

telegrams=("$(comma_telegram N,270,004.00,M,00,)"$'\n'
           "$(blank_telegram '04.0 270 +12.5 00')"
           "$(sentence WIMWV,270.0,R,14.4,K,A)"$'\n'
           "$(sentence WIXDR,C,12.5,C,AIR)"$'\n'
           "$(sentence WIMWV,270.0,T,7.77538,N,A)"$'\n')
while [ $SECONDS -lt $end ]; do
    for i in "${!telegrams[@]}"; do
        printf %s "${telegrams[i]}"
        printf '412.6 W/m2\r\n' >&3
        sleep 0.1
    done
done >"$folder/anemometer.sender" 3>"$folder/radiation_meter.sender"
