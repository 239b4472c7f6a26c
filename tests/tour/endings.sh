#!/usr/bin/env bash
# endings.sh CASE PROGRAM_FOLDER: how the real program with a picture ends at end signals and at a log-off: it asks about
# an unsaved picture each time, and closes forms that hold nothing of the user's. Run on a display.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
# shellcheck source=tests/tour/windows.sh
. "$here/windows.sh"
case=$1
folder=$(mktemp -d)
program=
session=
trap 'kill -9 $program $session 2>/dev/null || true; rm -rf "$folder"' EXIT
cp "$2"/tarvik "$2"/tv*.* "$2"/TARVIK.chm "$folder"
convert -size 800x400 xc:navy "$folder/a.png"

# Starts the program with the picture in a window.
start() {
  env --default-signal=INT "$folder/tarvik" "$folder/a.png" 2>/dev/null & # the shell ignores it in the background
  program=$!
  wait_until has_frame
}

# Waits until the command succeeds; fails if the program ends.
wait_until() {
  local -r end=$((SECONDS + patience_s))
  until "$@"; do
    kill -0 "$program" 2>/dev/null || fail "$case: the program ended while waiting for: $*"
    ((SECONDS < end)) || fail "$case: timed out: $*; the active window is '$(xdotool getactivewindow getwindowname)'"
    sleep 0.1
  done
}

# The windows of the program titled like the frame and its messages.
windows() {
  xdotool search --all --onlyvisible --pid "$program" --name '^Tarvik *$' 2>/dev/null || true
}

# True if the frame is open: the only window with that title that is wider than any form.
has_frame() {
  local window
  for window in $(windows); do
    [[ $(xdotool getwindowgeometry --shell "$window" 2>/dev/null | sed -n 's/^WIDTH=//p') -ge 1000 ]] && return
  done
  return 1
}

has_question() {
  [[ $(windows | wc -l) == 2 ]] && has_keyboard '^Tarvik *$'
}

has_no_question() {
  [[ $(windows | wc -l) == 1 ]]
}

has_form() {
  ! has_no_window "$1"
}

# Opens a form by keys, which are ignored until the start is complete; that can't be seen from outside.
opens_by() {
  has_form "$1" && return
  ! has_keyboard '^Tarvik *$' || xdotool key --clearmodifiers "${@:2}"
  sleep 0.5
  has_form "$1"
}

# Gives the picture a description, which is not saved.
describe() {
  wait_until opens_by '^Colours$' alt+o l
  escape_from '^Colours$' || fail "$case: the form does not close"
  wait_until has_keyboard '^Tarvik *$'
  xdotool key --clearmodifiers alt+v d
  xdotool type "mast"
}

# Answers the question about the picture by a key.
answer() {
  wait_until has_question
  xdotool key --clearmodifiers "$1"
}

expect_exit() {
  local status=0
  timeout "$patience_s" tail --pid="$program" -f /dev/null || fail "$case: the program does not end"
  wait "$program" || status=$?
  [[ $status == 0 ]] || fail "$case: it exits with status $status"
  grep -q '^\[connection\]' "$folder/Tarvik.ini" || fail "$case: the settings are not written"
}

# Expects the next line from the session manager.
expect_event() {
  local line=
  read -r -t "$patience_s" line <&"${manager[0]}" || fail "$case: no answer to the session manager instead of '$1'"
  [[ $line == "$1" ]] || fail "$case: '$line' instead of '$1'"
}

case $case in
  AsksAtEachSignal)
    start
    describe
    for signal in TERM TERM INT HUP HUP INT TERM; do
      kill "-$signal" "$program"
      answer Escape
      wait_until has_no_question
    done
    kill -TERM "$program"
    answer alt+n
    expect_exit
    ;;
  ClosesThePalette)
    start
    wait_until opens_by '^Colours$' alt+o l
    kill -TERM "$program"
    expect_exit
    ;;
  AsksBeforeLogOff)
    coproc manager { exec python3 "$here/session_manager.py"; }
    session=$manager_PID
    read -r -t "$patience_s" SESSION_MANAGER <&"${manager[0]}" || fail "$case: there is no session manager"
    export SESSION_MANAGER
    start
    expect_event registered
    describe
    for round in first second; do
      echo "log off" >&"${manager[1]}"
      expect_event interacts
      answer Escape
      expect_event cancels
      wait_until has_no_question
    done
    echo "log off" >&"${manager[1]}"
    expect_event interacts
    answer alt+n
    expect_event agrees
    expect_exit
    exec {manager[1]}>&-
    wait "$session"
    ;;
  *)
    fail "no such case"
    ;;
esac
