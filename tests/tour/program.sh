#!/usr/bin/env bash
# program.sh PROGRAM_FOLDER LIST: the real program in a real window: it opens the list on its command line, closes
# the editor on Escape, exits when its frame is closed, and saves its settings. Run on a display.
set -euo pipefail
# shellcheck source=tests/tour/windows.sh
. "$(dirname "$0")/windows.sh"
folder=$(mktemp -d)
program=
trap 'kill "$program" 2>/dev/null || true; rm -rf "$folder"' EXIT
cp "$1"/tarvik "$1"/tv*.* "$1"/TARVIK.chm "$folder"

"$folder/tarvik" "$2" &
program=$!

editor="^Memory List Editor - $(basename "$2")\$"
wait_for_window "$editor" || fail "the editor does not show the list"
escape_from "$editor" || fail "Escape does not close the editor"

close_frame "$program"
wait "$program" || fail "the program ends with status $?"
grep -q '^\[connection\]' "$folder/Tarvik.ini" || fail "the settings are not written"
