# shellcheck shell=bash
# windows.sh: sourced by the tests that drive whole programs: windows by their titles. A search fails when a window
# goes in its midst, which is neither found nor gone, and is made again.

fail() {
  echo "$1" >&2
  exit 1
}

# Waits for a window with that title, at most 30 s.
wait_for_window() {
  local tries
  for ((tries = 0; tries < 300; ++tries)); do
    xdotool search --onlyvisible --name "$1" >/dev/null 2>&1 && return
    sleep 0.1
  done
  return 1
}

# Waits until no window has that title, at most 10 s.
wait_for_no_window() {
  local tries
  for ((tries = 0; tries < 200; ++tries)); do
    [[ -n $(xdotool search --onlyvisible --name "$1" 2>&1) ]] || return 0
    sleep 0.05
  done
  return 1
}

# True when the keyboard speaks to a window with that title; else asks for it.
has_keyboard() {
  [[ $(xdotool getactivewindow getwindowname 2>/dev/null) =~ $1 ]] && return
  xdotool search --onlyvisible --name "$1" windowactivate >/dev/null 2>&1 || true
  return 1
}

# Presses a key in a window with that title until there is none, at most 30 s.
leave_by_key() {
  local tries
  for ((tries = 0; tries < 300; ++tries)); do
    [[ -n $(xdotool search --onlyvisible --name "$1" 2>&1) ]] || return 0
    ! has_keyboard "$1" || xdotool key --clearmodifiers "$2"
    sleep 0.1
  done
  return 1
}

# Presses the close key of the frame until the process has ended: it does nothing until the start is over, which nothing
# shows to the outside.
close_frame() {
  local tries
  for ((tries = 0; tries < 300; ++tries)); do
    kill -0 "$1" 2>/dev/null || return 0
    ! has_keyboard '^Tarvik *$' || xdotool key --clearmodifiers alt+F4
    sleep 0.1
  done
  fail "the frame does not close"
}
