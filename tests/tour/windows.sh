# shellcheck shell=bash
# windows.sh: sourced by the tests that drive whole programs: finds windows by title. Wait only for windows that
# stay: on a slow machine, one that closes by itself may be gone between two polls.

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

# True if no window has that title. A search fails with a message if a window closes meanwhile.
has_no_window() {
  [[ -z $(xdotool search --onlyvisible --name "$1" 2>&1) ]]
}

# True if a window with that title has the focus; otherwise requests it.
has_keyboard() {
  [[ $(xdotool getactivewindow getwindowname 2>/dev/null) =~ $1 ]] && return
  xdotool search --onlyvisible --name "$1" windowactivate >/dev/null 2>&1 || true
  return 1
}

# Presses Escape in windows with that title until there is none.
escape_from() {
  local -r end=$((SECONDS + patience_s))
  until has_no_window "$1"; do
    ((SECONDS < end)) || return 1
    ! has_keyboard "$1" || xdotool key --clearmodifiers Escape
    sleep 0.1
  done
}

# Presses the frame's close key until the process has exited: the key is ignored until the start-up is complete, which
# is not visible from outside.
close_frame() {
  local -r end=$((SECONDS + patience_s))
  while kill -0 "$1" 2>/dev/null; do
    ((SECONDS < end)) || fail "the frame does not close; the active window is '$(xdotool getactivewindow getwindowname)'"
    ! has_keyboard '^Tarvik *$' || xdotool key --clearmodifiers alt+F4
    sleep 0.1
  done
}
