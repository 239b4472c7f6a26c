#!/usr/bin/env bash
# settings.sh PROGRAM_FOLDER: what the demonstration writes to the settings: the receiver is selected each time, is
# listed once among the connections, and does not displace those of a user. A program that does nothing replaces the
# real one.
set -euo pipefail
tools=$(cd "$(dirname "$0")/../../tools" && pwd)
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
settings=$folder/demo/Tarvik.ini

mkdir "$folder/program"
ln -s "$1/tarvik-instrument" "$folder/program/"
printf '#!/bin/sh\n' >"$folder/program/tarvik"
chmod +x "$folder/program/tarvik"
touch "$folder/program/tvlng.so" "$folder/program/TARVIK.chm"

demonstrate() {
  "$tools/demo" "$folder/program" "$folder/demo"
  local entry
  entry=$(sed -n 's/^ipAddressSelected=\(Simulated receiver:127\.0\.0\.1:[0-9]*\)\r$/\1/p' "$settings")
  [ -n "$entry" ] || fail "$1: the receiver is not selected"
  [ "$(grep -c "^ipAddressLan.=$entry" "$settings")" = 1 ] || fail "$1: the receiver is not listed once"
  [ "$(grep -c 'Simulated receiver' "$settings")" = 2 ] || fail "$1: the receiver is listed more than once"
  grep -q '^Connected=1' "$settings" || fail "$1: it would not connect by itself"
}
fail() {
  echo "$1" >&2
  cat -A "$settings" >&2
  exit 1
}

demonstrate "first time"
demonstrate "second time"
printf '[other]\r\nKey=1\r\n[connection]\r\nConnected=0\r\nipAddressLan0=Van:10.0.0.7:5555\r\n' >"$settings"
printf 'ipAddressLan1=\r\nipAddressLan2=\r\nipAddressSelected=Van:10.0.0.7:5555\r\n' >>"$settings"
demonstrate "settings of a user"
grep -q '^ipAddressLan0=Van:10.0.0.7:5555' "$settings" || fail "the connection of a user is gone"
grep -q '^ipAddressLan1=Simulated' "$settings" || fail "the receiver is not in the first free place"
grep -q '^Key=1' "$settings" || fail "other settings of a user are gone"
