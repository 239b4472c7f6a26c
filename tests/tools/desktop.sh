#!/usr/bin/env bash
# desktop.sh BUILD_FOLDER EXAMPLES: the desktop finds the installed program, its icons and the types of its files, also
# after the folder was moved.
set -eu
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
fail() {
  echo "$*" >&2
  exit 1
}

export HOME=$folder/home
export XDG_DATA_HOME=$folder/home/data XDG_CONFIG_HOME=$folder/home/config
first=$folder/first
cmake --install "$1" --prefix "$first" >/dev/null

desktop-file-validate --no-hints "$first/share/applications/tarvik.desktop"
appstreamcli validate --no-net "$first/share/metainfo/tarvik.metainfo.xml" >&2 || fail "the description is not valid"
grep -qFx "Exec=\"$first/tarvik\" %f" "$first/share/applications/tarvik.desktop" || fail "Exec does not name the program"

moved=$folder/'a b $b "c" \d`e' # in Exec, these characters need escapes
mv "$first" "$moved"
complaints=$("$moved/tarvik-desktop" add 2>&1) || fail "tarvik-desktop: $complaints"
[ -z "$complaints" ] || fail "$complaints"
entry=$XDG_DATA_HOME/applications/tarvik.desktop
desktop-file-validate --no-hints "$entry"

# A program in place of the real one tells how the desktop calls it.
printf '#!/bin/sh\nprintf "%%s" "$1" >"%s"\n' "$folder/opened" >"$moved/tarvik"
gio launch "$entry" "$2/PMR446.tvm"
for ((tries = 0; tries < 300; ++tries)); do
  [ -s "$folder/opened" ] && break
  sleep 0.1
done
[ "$(cat "$folder/opened")" = "$2/PMR446.tvm" ] || fail "the desktop does not start the program with the file"

type_of() {
  gio info -a standard::content-type "$1" | sed -n 's/ *standard::content-type: //p'
}
expect_type() {
  [ "$(type_of "$1")" = "$2" ] || fail "$1 is $(type_of "$1"), not $2"
}
number=0
for type in antenna-list:tva kfactor-table:tvk memory-list:tvm suppress-list:tvs x:none correction-set:tvc; do
  number=$((number + 1))
  name=${type%:*} extension=${type#*:}
  [ "$extension" = none ] && continue
  printf "TVLS\r\n\032\n\001\000\\$(printf %03o $number)\000\000\000\000\000" >"$folder/by content $number"
  printf damaged >"$folder/by name.$extension"
  expect_type "$folder/by content $number" "application/x-tarvik-$name"
  expect_type "$folder/by name.$extension" "application/x-tarvik-$name"
  gio mime "application/x-tarvik-$name" | grep -q 'tarvik\.desktop' || fail "no program for $name"
  [ -f "$XDG_DATA_HOME/icons/hicolor/scalable/mimetypes/application-x-tarvik-$name.svg" ] || fail "no icon for $name"
done
printf 'TVLS\r\n\032\n\001\000\005\000' >"$folder/other family"
[[ $(type_of "$folder/other family") != application/x-tarvik-* ]] || fail "family 5 is no list"
expect_type "$2/PMR446.tvm" application/x-tarvik-memory-list
for type in png bmp vnd.zbrush.pcx wmf; do
  gio mime "image/$type" | grep -q 'tarvik\.desktop' || fail "no program for image/$type"
done
[ -f "$XDG_DATA_HOME/icons/hicolor/scalable/apps/tarvik.svg" ] || fail "no icon"

"$moved/tarvik-desktop" remove
[ -z "$(find "$XDG_DATA_HOME" -name '*tarvik*')" ] || fail "left: $(find "$XDG_DATA_HOME" -name '*tarvik*')"
