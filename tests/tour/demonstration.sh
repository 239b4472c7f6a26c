#!/usr/bin/env bash
# demonstration.sh PROGRAM_FOLDER: the demonstration starts a receiver and the program, which connects by itself; it does
# so again from the settings that the first time left. Run on a display.
set -euo pipefail
tools=$(cd "$(dirname "$0")/../../tools" && pwd)
folder=$(mktemp -d)
demonstration=
trap 'kill "$demonstration" 2>/dev/null || true; rm -rf "$folder"' EXIT

window() {
  timeout 30 xdotool search --sync --onlyvisible --name "$1" | head -1
}
fail() {
  echo "$1" >&2
  exit 1
}
# The close box does nothing until the start is over, which nothing shows to the outside.
close_frame() {
  local tries
  for ((tries = 0; tries < 300; ++tries)); do
    kill -0 "$1" 2>/dev/null || return 0
    xdotool search --onlyvisible --name '^Tarvik *$' windowactivate key --clearmodifiers alt+F4 >/dev/null 2>&1 || true
    sleep 0.1
  done
  fail "the frame does not close"
}

for round in first second; do
  "$tools/demo" "$1" "$folder/demo" &
  demonstration=$!
  # The form goes when the connection stands.
  connecting=$(window '^Connecting')
  [ -n "$connecting" ] || fail "$round time: it does not connect"
  for ((tries = 0; tries < 200; ++tries)); do
    xdotool search --onlyvisible --name '^Connecting' >/dev/null 2>&1 || break
    sleep 0.05
  done
  ! xdotool search --onlyvisible --name '^Connect to' >/dev/null 2>&1 || fail "$round time: it asks for a connection"
  [ -n "$(window '^Tarvik *$')" ] || fail "$round time: it shows no frame"
  close_frame "$demonstration"
  wait "$demonstration" || fail "$round time: it ends with status $?"
  grep -q '^Connected=1' "$folder/demo/Tarvik.ini" || fail "$round time: it was not connected at its end"
  ! grep -qE 'ipAddressLan1=[[:graph:]]' "$folder/demo/Tarvik.ini" || fail "$round time: the entry stands there twice"
done
[ -f "$folder/demo/receiver/Public/Memory List/Marine-VHF.tvm" ] || fail "the receiver has no files"
