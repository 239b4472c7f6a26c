#!/usr/bin/env bash
# program.sh PROGRAM_FOLDER LIST: the real program in a real window: it opens the list of its command line, closes
# the editor on Escape, ends when its frame is closed, and leaves its settings behind. Run on a display.
set -euo pipefail
folder=$(mktemp -d)
trap 'kill "$program" 2>/dev/null || true; rm -rf "$folder"' EXIT
cp "$1"/tarvik "$1"/tv*.* "$1"/TARVIK.chm "$folder"

"$folder/tarvik" "$2" &
program=$!

# The window with that title, as soon as it is there.
window() {
  timeout 30 xdotool search --sync --onlyvisible --name "$1" | head -1
}
fail() {
  echo "$1" >&2
  exit 1
}

editor=$(window "^Memory List Editor - $(basename "$2")\$")
[ -n "$editor" ] || fail "the editor does not show the list"
xdotool windowfocus --sync "$editor" key --clearmodifiers Escape
for ((tries = 0; tries < 200; ++tries)); do
  xdotool search --onlyvisible --name '^Memory List Editor' >/dev/null 2>&1 || break
  sleep 0.05
done
[ $tries -lt 200 ] || fail "Escape does not close the editor"

[ -n "$(window '^Tarvik *$')" ] || fail "the program shows no frame"
# The close box does nothing until the start is over, which nothing shows to the outside.
for ((tries = 0; tries < 300; ++tries)); do
  kill -0 "$program" 2>/dev/null || break
  xdotool search --onlyvisible --name '^Tarvik *$' windowactivate key --clearmodifiers alt+F4 >/dev/null 2>&1 || true
  sleep 0.1
done
[ $tries -lt 300 ] || fail "the frame does not close"
wait "$program" || fail "the program ends with status $?"
grep -q '^\[connection\]' "$folder/Tarvik.ini" || fail "the settings are not written"
