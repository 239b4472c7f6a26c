#!/usr/bin/env bash
# install.sh BUILD_FOLDER: the installed folder works after being moved.
set -eu
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cmake --install "$1" --prefix "$folder/first" >/dev/null
mv "$folder/first" "$folder/moved here"
cd "$folder/moved here"
for file in tarvik tarvikctl tarvik-instrument tvgen.so tvlng.so tvscpi.so tvfio.so tvswp.so tvimg.so TARVIK.chm LICENSE \
  examples/Marine-VHF.tvm examples/Broadcast-Bands.tvs examples/README.md \
  examples/antennas/Monitoring-Site.tva examples/antennas/Biconical.tvk examples/antennas/Biconical.tvc examples/antennas/Biconical.csv \
  share/man/man1/tarvik.1 share/man/man1/tarvikctl.1 share/man/man1/tarvik-instrument.1 share/bash-completion/completions/tarvikctl \
  share/applications/tarvik.desktop share/icons/hicolor/scalable/apps/tarvik.svg; do
  [ -f "$file" ] || { echo "not installed: $file"; exit 1; }
done
./tarvikctl check examples/*.tv? examples/*.csv examples/antennas/*
./tarvikctl convert examples/Marine-VHF.tvm "$folder/out.csv"
cmp "$folder/out.csv" examples/Marine-VHF.csv
