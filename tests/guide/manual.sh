#!/usr/bin/env bash
# The user guide as PDF, with a picture wherever its text has one:
# manual.sh DOCS DESCRIBED PATH-OF-desktop_test PYTHON
set -euo pipefail
docs=$1 described=$2 folder=$(mktemp -d)
trap 'rm -rf -- "$folder"' EXIT
"$docs/draw_windows.sh" --guide "$folder/pictures" "$3" >/dev/null
"$4" -B "$docs/help/make_help.py" manual "$docs" "$described" "$folder/help" "$folder/pictures"
for manual in en:zel_usermanual:convection de:vor_benutzerhandbuch:Konvektion; do
    IFS=: read -r lang name word <<<"$manual"
    wanted=$(grep -c '^!\[' "$docs/user-guide.$lang.md")
    drawn=$(pdfimages -list "$folder/help/$name.pdf" | grep -c ' image ')
    ((drawn >= wanted)) || { echo "$name.pdf has $drawn of $wanted pictures" && exit 1; }
    pdftotext "$folder/help/$name.pdf" "$folder/$name.txt"
    grep -q "$word" "$folder/$name.txt" || { echo "$name.pdf lacks its text" && exit 1; }
done
