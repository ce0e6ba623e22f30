#!/bin/bash
# Prints a report on a real queue: a server of its own in a folder of its own, with the printer that
# makes PDF files.
#     print_queue.sh ZEL PRINT_QUEUE_TEST CASE.json
# Exit status 77 where such a server cannot run here.
set -eu
zel=$1 test=$2 case=$3

skip() {
    echo "skipped: $*"
    exit 77
}
for program in cupsd lpadmin lpstat cupsreject pdfinfo; do
    command -v "$program" >/dev/null || skip "no $program (packages cups, poppler-utils)"
done
[[ -x /usr/lib/cups/backend/cups-pdf ]] || skip "no printer-driver-cups-pdf"
((EUID == 0)) || skip "the server has to be started by root"

folder=$(mktemp -d /tmp/zel-cups.XXXXXX)
server=
cleanup() {
    [[ -z $server ]] || kill "$server" 2>/dev/null || true
    [[ -z $server ]] || wait "$server" 2>/dev/null || true
    rm -rf "$folder"
}
trap cleanup EXIT
chmod 755 "$folder"
mkdir "$folder"/{root,spool,cache,state,log,home}
mkdir -m 1777 "$folder/tmp"
cat >"$folder/root/cups-files.conf" <<END
ServerRoot $folder/root
RequestRoot $folder/spool
CacheDir $folder/cache
StateDir $folder/state
TempDir $folder/tmp
ErrorLog $folder/log/error_log
AccessLog $folder/log/access_log
PageLog $folder/log/page_log
SystemGroup root
END
cat >"$folder/root/cupsd.conf" <<END
Listen $folder/cups.sock
Browsing Off
DefaultAuthType None
WebInterface No
<Location />
Order allow,deny
Allow all
</Location>
<Location /admin>
Order allow,deny
Allow all
</Location>
<Policy default>
<Limit All>
Order deny,allow
</Limit>
</Policy>
END
cupsd -f -c "$folder/root/cupsd.conf" -s "$folder/root/cups-files.conf" >"$folder/log/out" 2>&1 &
server=$!
export CUPS_SERVER=$folder/cups.sock
for ((i = 0; i < 50; ++i)); do
    [[ -S $CUPS_SERVER ]] && lpstat -r >/dev/null 2>&1 && break
    kill -0 "$server" 2>/dev/null || skip "the server does not start: $(tail -n 2 "$folder/log/out")"
    sleep 0.1
done
for queue in Paper Refusing; do
    lpadmin -p "$queue" -E -v cups-pdf:/ -m lsb/usr/cups-pdf/CUPS-PDF_noopt.ppd 2>/dev/null ||
        skip "the printer for PDF cannot be set up"
done
lpadmin -d Paper
cupsreject Refusing

"$zel" report steady "$case" -o "$folder/report.pdf" --lang de >/dev/null
touch "$folder/before"
ZEL_PDF=$folder/report.pdf "$test"

# Where the printer's own settings say, for the user who printed.
for ((i = 0; i < 100; ++i)); do
    printed=$(find "${HOME:-/root}/PDF" /root/PDF /var/spool/cups-pdf -name '*.pdf' -newer "$folder/before" \
        2>/dev/null | head -n 1)
    [[ -n $printed ]] && [[ -z $(lpstat -o) ]] && break
    sleep 0.1
done
[[ -n $printed ]] || { echo "no document arrived"; tail -n 20 "$folder/log/error_log"; exit 1; }
facts=$(pdfinfo "$printed")
rm -f "$printed"
grep -E '^Pages: +2$' <<<"$facts" && grep -E '^Page size: +59[56].* x 84[12]' <<<"$facts" || {
    echo "not two sheets of A4 upright: $facts"
    exit 1
}
