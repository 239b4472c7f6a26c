#!/usr/bin/env bash
# signals.sh PROGRAM_FOLDER: the real program and real end signals: it ends with its settings written at any point of the
# start, with the connection form, and with the start-up box about a missing library. Run on a display.
set -euo pipefail
# shellcheck source=tests/tour/windows.sh
. "$(dirname "$0")/windows.sh"
folder=$(mktemp -d)
program=
trap 'kill -9 "$program" 2>/dev/null || true; rm -rf "$folder"' EXIT
cp "$1"/tarvik "$1"/tv*.* "$1"/TARVIK.chm "$folder"

# Ends the program by SIGNAL as soon as it shows a window with TITLE. It has to exit with STATUS.
run() {
  env --default-signal=INT "$folder/tarvik" 2>/dev/null & # the shell ignores it in the background
  program=$!
  wait_for_window "$2" || fail "there is no window '$2'"
  kill "-$1" "$program"
  local status=0
  timeout "$patience_s" tail --pid="$program" -f /dev/null || fail "$1 does not end the program with '$2'"
  wait "$program" || status=$?
  [[ $status == "$3" ]] || fail "after $1 with '$2' it exits with status $status"
}

for signal in TERM INT HUP; do
  run "$signal" '^Tarvik *$' 0 # the logo
  run "$signal" '^Connect' 0
  grep -q '^\[connection\]' "$folder/Tarvik.ini" || fail "the settings are not written"
  rm "$folder/Tarvik.ini"
done
for library in tvlng tvswp; do
  rm "$folder/$library".*
  run TERM '^Tarvik *$' 1
done
