#!/usr/bin/env bash
# dropped.sh PROGRAM_FOLDER DRAG_SOURCE EXAMPLES_FOLDER: another program drags files onto the frame of the real program with
# the mouse: each kind of list opens in its editor, an unknown file is refused, and no file is moved. Run on a display.
set -euo pipefail
# shellcheck source=tests/tour/windows.sh
. "$(dirname "$0")/windows.sh"
source=$2
folder=$(mktemp -d)
program=
trap 'kill -9 "$program" 2>/dev/null || true; rm -rf "$folder"' EXIT
cp "$1"/tarvik "$1"/tv*.* "$1"/TARVIK.chm "$folder"
cp "$3"/PMR446.tvm "$3"/Broadcast-Bands.tvs "$3"/antennas/{Monitoring-Site.tva,Biconical.tvk,Biconical.tvc} "$folder"
echo text >"$folder/notes.xyz"
read -r _ height < <(xdotool getdisplaygeometry)

# Drags the file from the corner of the screen into the frame. True if the frame takes a copy.
drag() {
  "$source" "$folder/$1" 2>/dev/null &
  local -r dragged=$!
  wait_for_window '^drag source$' || fail "the source of the drag does not start"
  xdotool mousemove 30 30 mousedown 1 sleep 0.1 mousemove 100 100 sleep 0.1 mousemove 300 $((height - 200)) sleep 0.1 \
    mousemove 310 $((height - 190)) sleep 0.3 mouseup 1
  wait "$dragged"
}

# Drags the file until it is taken: the program refuses it until its start is complete.
drop() {
  local -r end=$((SECONDS + patience_s))
  until drag "$1"; do
    ((SECONDS < end)) || fail "$1 is not taken"
  done
}

"$folder/tarvik" 2>/dev/null &
program=$!
wait_for_window '^Connect$' || fail "the program does not ask for a connection"
! drag PMR446.tvm || fail "a file is taken while a form is open"
escape_from '^Connect$' || fail "Escape does not close the connection form"

for list in "Memory List:PMR446.tvm" "Suppress List:Broadcast-Bands.tvs" "Antenna List:Monitoring-Site.tva" \
  "K-Factor Table:Biconical.tvk" "Correction Set:Biconical.tvc"; do
  file=${list#*:}
  editor="^${list%:*} Editor - $file\$"
  drop "$file"
  wait_for_window "$editor" || fail "$file does not open"
  [ -f "$folder/$file" ] || fail "$file was moved"
  ! drag "$file" || fail "$file is taken while an editor is open"
  escape_from "$editor" || fail "Escape does not close the editor"
done
! drag notes.xyz || fail "an unknown file is taken"
drop PMR446.tvm # it still takes others
escape_from '^Memory List Editor' || fail "Escape does not close the editor"
close_frame "$program"
wait "$program" || fail "the program ends with status $?"
