#!/usr/bin/env bash
# completion.sh FILE: tests the bash completion of tarvikctl.
set -u
# shellcheck source=/dev/null
source "$1"
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"
mkdir lists
touch a.tvm b.CSV c.tva d.txt e.png
failed=0

# offers EXPECTED WORD...: expects these completions of the last word.
offers() {
  local expected=$1
  shift
  COMP_WORDS=(tarvikctl "$@")
  COMP_CWORD=$#
  _tarvikctl
  local found
  found=$(printf '%s\n' "${COMPREPLY[@]}" | LC_ALL=C sort | xargs)
  [ "$found" = "$expected" ] || { echo "tarvikctl $*: '$found', not '$expected'"; failed=1; }
}

offers "check convert" c
offers "picture plot print" p
offers "--help --to --version" --
offers "--all --json" show -
offers "--key --merge --yes" sort --
offers "A3 A4 A5" print --paper A
offers "--no-outline --no-title" print --no
offers "--size --table --values --yes" plot --
offers "kfactor omniphase" plot --table ""
offers "" plot --size ""
offers "b.CSV lists" plot ""
offers "0 1 2 3 4 5 6" sort --key ""
offers "a.tvm b.CSV c.tva lists" convert ""
offers "a.tvm b.CSV c.tva lists" check ""
offers "" text ""
offers "" --to ""
offers "" --to 127.0.0.1 : ""
offers "capture get idn ls put rm" --to 127.0.0.1 ""
offers "put" --to 127.0.0.1 : 5555 p
offers "antenna" --to 127.0.0.1 ls a
offers "memory" --to 127.0.0.1 : 5555 put --yes m
offers "a.tvm lists" --to 127.0.0.1 put memory ""
offers "" --to 127.0.0.1 get memory ""
offers "c.tva lists" --to 127.0.0.1 get antenna x ""
offers "" --to 127.0.0.1 rm memory ""
offers "--yes" --to 127.0.0.1 get --
offers "e.png lists" --to 127.0.0.1 capture ""
offers "--description --into --palette --to --yes" --to 127.0.0.1 capture --
offers "bmp pcx png wmf" --to 127.0.0.1 capture --to ""
offers "e.png lists" --to 127.0.0.1 capture --to bmp ""
offers "lists" --to 127.0.0.1 capture --into ""
offers "0 1" --to 127.0.0.1 : 5555 capture --palette ""
offers "--description --into --palette --to --yes" picture --
offers "bmp pcx png wmf" picture --to ""
offers "0 1" picture --palette ""
offers "lists" picture --into ""
offers "e.png lists" picture --to bmp ""
offers "" picture --description ""
offers "bmp pcx png wmf" picture --to =
offers "pcx png" picture --to = p
offers "lists" picture --to = bmp --into = ""
offers "0 1 2 3 4 5 6" sort --key =
offers "idn" --to = 127.0.0.1 : 5555 i
offers "e.png lists" picture --to = bmp --palette = 1 ""
exit "$failed"
