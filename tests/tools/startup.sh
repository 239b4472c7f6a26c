#!/usr/bin/env bash
# startup.sh CASE BIN SUFFIX: starts the real program in a temporary folder and checks what it does. Needs a display;
# message boxes are answered by keys.
set -euo pipefail

case=$1 bin=$2 suffix=$3
folder=$(mktemp -d)
pid=''
instrument=''
as_user=(env)
trap 'kill -9 ${pid:-} ${instrument:-} 2>/dev/null || true; chmod -R u+w "$folder"; rm -rf "$folder"' EXIT

fail() {
  echo "$case: $*" >&2
  cat "$folder/errors" >&2 2>/dev/null || true
  exit 1
}

# Copies the program and its modules except those named.
copy_without() {
  local file
  for file in tarvik tvgen tvlng tvscpi tvfio tvswp tvimg TARVIK.chm; do
    [[ " $* " == *" $file "* ]] && continue
    [[ $file == tv* ]] && file=$file$suffix
    cp "$bin/$file" "$folder/"
  done
}

start() {
  "${as_user[@]}" "$folder/tarvik" "$@" 2>"$folder/errors" &
  pid=$!
}

# From here on the program runs as a user who can't write its folder. The folder of that user is $home.
install_for_others() {
  home=$folder/home
  mkdir "$home"
  touch "$folder/errors"
  chmod 755 "$folder"
  as_user=(env -u XDG_CONFIG_HOME HOME="$home")
  if [[ $(id -u) == 0 ]]; then
    chown 65534 "$home"
    as_user+=(setpriv --reuid=65534 --regid=65534 --clear-groups)
  else
    chmod a-w "$folder"
  fi
}

# True while the program is running.
runs() {
  kill -0 "$pid" 2>/dev/null
}

# Waits until the command succeeds, at most 30 s; fails if the program ends.
wait_for() {
  local tries
  for ((tries = 0; tries < 300; ++tries)); do
    "$@" && return
    runs || fail "ended while waiting for: $*"
    sleep 0.1
  done
  fail "timed out: $*"
}

# True if the program shows a window with this title that has the keyboard focus. Asks the window manager for the focus if
# the window does not have it yet.
has_active() {
  [[ $(xdotool getactivewindow getwindowname 2>/dev/null) =~ ^$1$ ]] && return
  xdotool search --all --onlyvisible --pid "$pid" --name "^$1\$" windowactivate >/dev/null 2>&1 || true
  return 1
}

# True if the program shows no window with this title. A search that fails because a window closes meanwhile prints an
# error and does not count.
has_no() {
  [[ -z $(xdotool search --all --onlyvisible --pid "$pid" --name "^$1\$" 2>&1) ]]
}

# True if the program shows any window.
has_window() {
  xdotool search --all --onlyvisible --pid "$pid" --name . >/dev/null 2>&1
}

# True if the program shows the connecting window, or the list of connections after a failure.
shows_connect() {
  xdotool search --all --onlyvisible --pid "$pid" --name '^Connect(ing)?$' >/dev/null 2>&1
}

# True if the main frame is open: the only window titled Tarvik that is wider than any form.
has_frame() {
  local window
  for window in $(xdotool search --all --onlyvisible --pid "$pid" --name '^Tarvik$' 2>/dev/null); do
    [[ $(xdotool getwindowgeometry --shell "$window" | sed -n 's/^WIDTH=//p') -ge 1000 ]] && return
  done
  return 1
}

expect_exit() {
  local code
  wait "$pid" && code=0 || code=$?
  [[ $code == "$1" ]] || fail "exit code $code instead of $1"
}

# True if a message is open above the frame.
has_message() {
  [[ $(xdotool search --all --onlyvisible --pid "$pid" --name '^Tarvik$' 2>/dev/null | wc -l) == 2 ]] &&
    has_frame && has_active Tarvik
}

# Without a file the start ends in the list of connections, since the link was not up before.
close_connections() {
  wait_for has_active Connect
  xdotool key Escape
}

# shows_after KEYS TITLE [WINDOW]: true if a window with this title has the focus; else presses the keys in the frame, or
# in a window with that title.
shows_after() {
  has_no "$2" || { has_active "$2"; return; }
  # shellcheck disable=SC2086  # one word per key
  ! has_active "${3:-Tarvik}" || xdotool key $1
  sleep 0.5
  return 1
}

# True if no window has this title; else presses Escape in it.
closes_by_escape() {
  has_no "$1" && return
  ! has_active "$1" || xdotool key Escape
  return 1
}

quit() {
  wait_for has_frame
  kill "$pid"
  expect_exit 0
}

# Settings of a program that was connected to this port at exit.
remember_connection() {
  local entry=Van:127.0.0.1:$1
  printf '[connection]\nConnected=1\nipAddressLan0=%s\nipAddressSelected=%s\n' "$entry" "$entry" >"$folder/Tarvik.ini"
}

# Starts a simulated receiver and stores its connection in the settings.
start_instrument() {
  "$bin/tarvik-instrument" --root "$folder/root" --port 5600-9999 "$@" >"$folder/port" 2>"$folder/log" &
  instrument=$!
  pid=$instrument
  wait_for grep -q '^port ' "$folder/port"
  remember_connection "$(sed -n 's/^port //p' "$folder/port")"
}

# True once the receiver has been asked for its identification.
was_asked() {
  grep -q IDN "$folder/log"
}

expect_connected_at_exit() {
  grep -q "^Connected=$1" "$folder/Tarvik.ini" || fail "wrong link state in the settings"
}

# The message is printed to standard error, with the reason in a line below it.
expect_printed() {
  local reason="$folder/$module$suffix: there is no such file"
  [[ $case != InvalidModule-* ]] ||
    reason="Cannot load library $folder/$module$suffix: ($folder/$module$suffix: file too short)"
  printf "$1\n%s\n" "${module^^}${suffix^^}" "$reason" |
    diff - <(grep -v -e QStandardPaths "$folder/errors") || fail "wrong text on standard error"
}

# A missing or broken module that texts need: a plain message box.
expect_plain_box() {
  wait_for has_active Tarvik
  expect_printed 'Tarvik: Tarvik library %s can not be loaded.\nRun setup again.\nTarvik aborted.'
  xdotool key Return
  expect_exit 1
}

# Any other module: the message form.
expect_message() {
  wait_for has_active Tarvik
  expect_printed 'Tarvik: The library %s cannot be loaded.\nRun the setup again.\nTarvik ends now.'
  xdotool key Return
  expect_exit 1
}

case $case in
  Quits)
    copy_without
    start
    close_connections
    quit
    [[ -s $folder/Tarvik.ini ]] || fail "no settings file"
    grep -q '^AutoTile=0' "$folder/Tarvik.ini" || fail "settings are incomplete"
    ;;
  QuitsByCloseButton)
    copy_without
    start
    close_connections
    # The close button does nothing until the start is over, which can't be seen from outside.
    while runs; do
      ! has_active Tarvik || xdotool key alt+F4
      sleep 0.1
    done
    expect_exit 0
    [[ -s $folder/Tarvik.ini ]] || fail "no settings file"
    ;;
  KeepsSettingsOfEachUser)
    copy_without
    printf '[Window]\nToolbar=0\n' >"$folder/Tarvik.ini"
    install_for_others
    start
    close_connections
    quit
    grep -q '^Toolbar=0' "$home/.config/tarvik/Tarvik.ini" || fail "it does not start with the settings of the site"
    grep -q '^AutoTile=0' "$home/.config/tarvik/Tarvik.ini" || fail "settings are incomplete"
    [[ $(wc -l <"$folder/Tarvik.ini") == 2 ]] || fail "the settings of the site are changed"
    ;;
  SaysThatSettingsAreNotSaved)
    copy_without
    install_for_others
    chmod 555 "$home"
    start
    wait_for has_message
    xdotool key Return
    close_connections
    quit
    [[ -z $(ls -A "$home") && ! -e $folder/Tarvik.ini ]] || fail "settings are saved after all"
    ;;
  RemovesTemporaryFiles)
    copy_without
    touch "$folder"/temp{00.set,07.png,10.png}
    start
    close_connections
    quit
    [[ ! -e $folder/temp07.png && ! -e $folder/temp00.set ]] || fail "a temporary file was not removed"
    [[ -e $folder/temp10.png ]] || fail "a file with another name was removed"
    ;;
  StartsWithoutPictureModule)
    copy_without tvimg
    start
    close_connections
    quit
    ;;
  StartsWithTextInPlaceOfPictureModule)
    copy_without tvimg
    echo "no library" >"$folder/tvimg$suffix"
    start
    close_connections
    quit
    ;;
  OpensQuotedFile)
    copy_without
    cp "$(dirname "$0")/../../examples/PMR446.tvm" "$folder/my own list.tvm"
    start "\"$folder/my own list.tvm\""
    wait_for has_active "Memory List Editor - my own list.tvm"
    xdotool key Escape
    wait_for has_no "Memory List Editor - my own list.tvm"
    quit
    grep -q '^Name=my own list.tvm' "$folder/Tarvik.ini" || fail "the file is not remembered"
    ;;
  KeysRunCommands)
    copy_without
    convert -size 60x40 xc:navy "$folder/a.png"
    start "$folder/a.png"
    wait_for has_frame
    wait_for shows_after ctrl+o Open # the start ends unseen
    wait_for closes_by_escape Open
    wait_for shows_after ctrl+s "Save As"
    wait_for closes_by_escape "Save As"
    wait_for has_active Tarvik
    xdotool key ctrl+w
    xdotool key ctrl+s # nothing is left to save: were the window still open, this dialog would keep the next key
    wait_for shows_after ctrl+o Open
    has_no "Save As" || fail "Ctrl+W does not close the window"
    wait_for closes_by_escape Open
    wait_for has_active Tarvik
    xdotool key ctrl+q
    expect_exit 0
    ;;
  EscapeClosesOnlyTheDialogAboveAForm)
    copy_without
    cp "$(dirname "$0")/../../examples/PMR446.tvm" "$folder/list.tvm"
    start "$folder/list.tvm"
    for _ in first second; do # the editor is still there if it opens the dialog again
      wait_for shows_after alt+s "Save .* in this folder" "Memory List Editor.*"
      wait_for closes_by_escape "Save .* in this folder"
    done
    wait_for closes_by_escape "Memory List Editor.*"
    quit
    ;;
  Reconnects)
    copy_without
    start_instrument --verbose
    start
    wait_for was_asked
    wait_for has_no Connecting
    quit
    expect_connected_at_exit 1
    ;;
  EndsOnSignalDuringLogo)
    copy_without
    remember_connection 1 # no server; the start would end in the list of connections
    start
    wait_for has_window
    kill "$pid"
    expect_exit 0
    expect_connected_at_exit 0
    ;;
  EndsOnSignalDuringConnect)
    copy_without
    remember_connection 1
    start
    wait_for shows_connect
    kill "$pid"
    expect_exit 0
    expect_connected_at_exit 0
    ;;
  EndsOnSignalInListOfConnections)
    copy_without
    start
    wait_for has_active Connect
    kill "$pid"
    expect_exit 0
    expect_connected_at_exit 0
    ;;
  OffersConnectionsWithoutInstrument)
    copy_without
    remember_connection 1 # no server
    start
    close_connections
    quit
    expect_connected_at_exit 0
    ;;
  OffersConnectionsForOtherModel)
    copy_without
    start_instrument --model XY-9 --verbose
    start
    wait_for was_asked
    close_connections
    quit
    expect_connected_at_exit 0
    ;;
  MissingModule-* | InvalidModule-*)
    module=${case#*-}
    copy_without "$module"
    [[ $case == InvalidModule-* ]] && echo "no library" >"$folder/$module$suffix"
    start
    if [[ $module == tvgen || $module == tvlng ]]; then
      expect_plain_box
    else
      expect_message
    fi
    [[ ! -e $folder/Tarvik.ini ]] || fail "settings were written"
    ;;
  *)
    fail "no such case"
    ;;
esac
