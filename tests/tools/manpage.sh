#!/usr/bin/env bash
# manpage.sh PAGE PROGRAM: the page is valid and contains every command and option of --help.
set -eu
complaints=$(groff -man -ww -z "$1" 2>&1)
[ -z "$complaints" ] || { echo "$complaints"; exit 1; }
page=$(groff -man -Tascii -P-cbou "$1" 2>/dev/null)
name=$(basename "$2")
words=$("$2" --help | grep -oE "(^Usage:|^ +)  *$name (--to INSTRUMENT )?(\S+)|--[a-z]+" | grep -oE '\S+$' | sort -u)
[ "$(wc -w <<<"$words")" -ge 11 ] || { echo "too few words in --help: $words"; exit 1; }
for word in $words; do
  [ "$word" = "[OPTION...]" ] || grep -qF -- "$word" <<<"$page" || { echo "not in the page: $word"; exit 1; }
done
