# shellcheck shell=bash
# windows.sh: sourced by the tests that drive whole programs: windows by their titles. What is waited for stays: on a
# slow machine, a window that goes by itself may have gone between two looks.

readonly patience_s=50

fail() {
  echo "$1" >&2
  exit 1
}

# Waits for a window with that title.
wait_for_window() {
  local -r end=$((SECONDS + patience_s))
  until xdotool search --onlyvisible --name "$1" >/dev/null 2>&1; do
    ((SECONDS < end)) || return 1
    sleep 0.1
  done
}

# True when no window has that title. A search fails when a window goes in its midst, and says so.
has_no_window() {
  [[ -z $(xdotool search --onlyvisible --name "$1" 2>&1) ]]
}

# True when the keyboard speaks to a window with that title; else asks for it.
has_keyboard() {
  [[ $(xdotool getactivewindow getwindowname 2>/dev/null) =~ $1 ]] && return
  xdotool search --onlyvisible --name "$1" windowactivate >/dev/null 2>&1 || true
  return 1
}

# Presses Escape in a window with that title until there is none.
escape_from() {
  local -r end=$((SECONDS + patience_s))
  until has_no_window "$1"; do
    ((SECONDS < end)) || return 1
    ! has_keyboard "$1" || xdotool key --clearmodifiers Escape
    sleep 0.1
  done
}

# Presses the close key of the frame until the process has ended: it does nothing until the start is over, which nothing
# shows to the outside.
close_frame() {
  local -r end=$((SECONDS + patience_s))
  while kill -0 "$1" 2>/dev/null; do
    ((SECONDS < end)) || fail "the frame does not close; the keyboard speaks to '$(xdotool getactivewindow getwindowname)'"
    ! has_keyboard '^Tarvik *$' || xdotool key --clearmodifiers alt+F4
    sleep 0.1
  done
}
