#!/usr/bin/env bash
# demonstration.sh PROGRAM_FOLDER: the demonstration starts a receiver and the program, which connects by itself; then
# again with the settings left by the first run. Run on a display.
set -euo pipefail
tools=$(cd "$(dirname "$0")/../../tools" && pwd)
# shellcheck source=tests/tour/windows.sh
. "$(dirname "$0")/windows.sh"
folder=$(mktemp -d)
demonstration=
trap 'kill "$demonstration" 2>/dev/null || true; rm -rf "$folder"' EXIT

for round in first second; do
  "$tools/demo" "$1" "$folder/demo" &
  demonstration=$!
  # The frame can be closed once the program has connected, but not while it asks for a connection.
  close_frame "$demonstration"
  wait "$demonstration" || fail "$round run: it exits with status $?"
  grep -q '^Connected=1' "$folder/demo/Tarvik.ini" || fail "$round run: it was not connected at exit"
  ! grep -qE 'ipAddressLan1=[[:graph:]]' "$folder/demo/Tarvik.ini" || fail "$round run: the connection is listed twice"
done
[ -f "$folder/demo/receiver/Public/Memory List/Marine-VHF.tvm" ] || fail "the receiver has no files"
for list in "Memory List/PMR446.tvm" "Suppress List/Broadcast-Bands.tvs" "Antenna List/Monitoring-Site.tva" \
  "K-Factor Table/Biconical.tvk" "Correction Set/Biconical.tvc"; do
  [ -f "$folder/demo/$list" ] || fail "the PC has no $list"
done
