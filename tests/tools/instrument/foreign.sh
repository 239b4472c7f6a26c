#!/usr/bin/env bash
# foreign.sh PROGRAM: two independent clients talk to the simulated receiver.
set -euo pipefail
folder=$(mktemp -d)
trap 'kill "$instrument" 2>/dev/null || true; rm -rf "$folder"' EXIT
fail() {
  echo "$1" >&2
  exit 1
}

mkfifo "$folder/output"
"$1" --root "$folder/disk" --port 0 --serial 4711 >"$folder/output" &
instrument=$!
read -r word port <"$folder/output"
[ "$word" = port ] || fail "the first line is not the port"

ask() {
  lxi scpi --raw --address 127.0.0.1 --port "$port" "$1"
}
[ "$(ask '*IDN?')" = "TARVIK,TR-200DF,4711,4.30" ] || fail "lxi does not get the identification"
[ "$(ask 'SYST:ERR?')" = '0,"No error"' ] || fail "lxi does not get the error queue"
[[ $(ask 'MMEM:CAT? ALL') =~ ^[0-9]+,[0-9]+,\"Public\",DIR,0, ]] || fail "lxi does not get the catalogue"

# Up: every byte value, more than one packet.
for ((i = 0; i < 400; ++i)); do printf '\0\n\r;"#%03d,\377' "$i"; done >"$folder/sent"
size=$(stat -c %s "$folder/sent")
{ printf 'MMEM:DATA ALL,"block.bin",#%d%d' "${#size}" "$size"; cat "$folder/sent"; printf ';:SYST:ERR?\n'; } |
  nc -N 127.0.0.1 "$port" >"$folder/answer"
[ "$(cat "$folder/answer")" = '0,"No error"' ] || fail "nc can not store a block"
cmp "$folder/sent" "$folder/disk/block.bin" || fail "the block is stored with other bytes"

# Down.
printf 'MMEM:DATA? ALL,"block.bin"\n' | nc -N 127.0.0.1 "$port" >"$folder/answer"
{ printf '#%d%d' "${#size}" "$size"; cat "$folder/sent"; printf '\n'; } >"$folder/expected"
cmp "$folder/expected" "$folder/answer" || fail "nc gets other bytes"

kill -TERM "$instrument"
wait "$instrument" || fail "it ends with status $?"
