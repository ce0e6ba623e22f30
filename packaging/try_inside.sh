#!/usr/bin/env bash
# What packaging/try_in_bare_root.sh does within the root, where /try holds the package. What is seen
# goes to /try/seen.
set -euo pipefail
export DEBIAN_FRONTEND=noninteractive LC_ALL=C.UTF-8
rm -f /etc/apt/apt.conf.d/00mmdebstrap # would leave out what is recommended
echo force-unsafe-io >/etc/dpkg/dpkg.cfg.d/quick
seen=/try/seen
mkdir -p "$seen"
exec > >(tee "$seen/told.txt") 2>&1

step() { printf '\n== %s\n' "$*"; }
quiet() { "$@" >"$seen/log" 2>&1 || { tail -n 30 "$seen/log" && return 1; }; }
files() {
    find / -xdev \( -path /proc -o -path /sys -o -path /dev -o -path /tmp -o -path /try -o \
        -path /run -o -path /var/cache -o -path /var/log -o -path /var/lib/apt -o \
        -path /var/lib/dpkg \) -prune -o -print | sort
}
install_zel() {
    quiet apt-get install -y /try/zel_*.deb
    files | comm -23 - <(dpkg -L zel | sort) >"$seen/files_of_others"
}
# A user who is no administrator, at home.
planner=(setpriv --reuid=planner --regid=planner --init-groups
    env -C /home/planner HOME=/home/planner USER=planner)
user() { "${planner[@]}" "$@"; }
useradd --create-home planner

step "$(. /etc/os-release && echo "$PRETTY_NAME") with $(dpkg-query -W | wc -l) packages: apt install"
touch "$seen/start"
install_zel
dpkg-query -W -f '${Package} ${Version}, ${Installed-Size} KiB, ${db:Status-Status}\n' zel

step 'in the terminal'
examples=/usr/share/zel/examples
user zel --version
user zel steady $examples/380kV-twin-264-34.json | grep -e bundle -e 'TB 601'
user zel picture balance $examples/380kV-twin-264-34.json --method TB601 -o balance.svg
user /usr/bin/python3 $examples/first_ratings.py

# Removes the package and fails where anything is there that neither was there without it nor belongs
# to another package or to the user. What its scripts may have made bears its name.
remove() {
    local path left=()
    quiet apt-get purge -y zel
    while read -r path; do
        [[ $path == /home/planner* ]] || dpkg -S "$path" >/dev/null 2>&1 || left+=("$path")
    done < <(sort -u <(files | comm -13 "$seen/files_of_others" -) <(files | grep /zel))
    echo "left behind: ${#left[@]} ${left[*]}"
    ((!${#left[@]}))
}

step 'removed'
remove

step 'the window, by the entry of the menu'
quiet apt-get install -y --no-install-recommends \
    xvfb openbox xdotool scrot libglib2.0-bin netsurf-gtk
install_zel
install -d -m 1777 /tmp/.X11-unix
"${planner[@]}" Xvfb -displayfd 1 -screen 0 1400x1000x24 >/tmp/display 2>/dev/null &
screen=$!
until [[ -s /tmp/display ]]; do sleep 0.2; done
DISPLAY=:$(</tmp/display)
export DISPLAY
"${planner[@]}" openbox >/dev/null 2>&1 &
user gio launch /usr/share/applications/zel.desktop

# look TITLE NAME: waits for a window with this in its title and keeps a picture of the screen.
look() {
    user timeout 60 xdotool search --sync --onlyvisible --name "$1" >/dev/null
    sleep 3
    user scrot --overwrite "/tmp/$2.png"
    mv "/tmp/$2.png" "$seen"
    echo "$2.png: $(user xdotool getactivewindow getwindowname)"
}
look 'Select Language' language
user xdotool key Return
look 'VOR' start
user xdotool key F1
sleep 20 # a browser starts, is led to the guide and lays it out
look NetSurf help

step 'removed'
kill "$screen" # and with it all that has windows on it
remove
echo 'files of the user:'
find /home/planner -type f -newer "$seen/start" | sort
