#!/usr/bin/env bash
# manpage.sh PAGE [PROGRAM]: the page is valid, the pages that it refers to exist, and it contains every command and option
# of the program's --help.
set -eu
complaints=$(groff -man -ww -z "$1" 2>&1)
[ -z "$complaints" ] || { echo "$complaints"; exit 1; }
for other in $(sed 's/\\-/-/g' "$1" | grep -oE '^\.BR tarvik[a-z-]* \(1\)' | cut -d' ' -f2); do
  [ -f "$(dirname "$1")/$other.1" ] || { echo "no page $other(1)"; exit 1; }
done
[ $# = 2 ] || exit 0
page=$(groff -man -Tascii -P-cbou "$1" 2>/dev/null)
name=$(basename "$2")
words=$("$2" --help | grep -oE "(^Usage:|^ +)  *$name (--to INSTRUMENT )?(\S+)|--[a-z]+" | grep -oE '\S+$' | sort -u)
[ "$(wc -w <<<"$words")" -ge 11 ] || { echo "too few words in --help: $words"; exit 1; }
for word in $words; do
  [ "$word" = "[OPTION...]" ] || grep -qF -- "$word" <<<"$page" || { echo "not in the page: $word"; exit 1; }
done
