#!/usr/bin/env bash
# Sourced by the scripts at the root: installs missing packages, builds by preset.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

# Installs the missing packages of packages.txt; contacts no package server if none is missing.
install_packages() {
  local wanted present missing
  wanted=$(sed -e 's/#.*//' -e '/^[[:space:]]*$/d' packages.txt | sort)
  # shellcheck disable=SC2086  # one word per package
  present=$(dpkg-query -W -f '${db:Status-Status} ${Package}\n' $wanted 2>/dev/null | sed -n 's/^installed //p' | sort || true)
  missing=$(comm -23 <(printf '%s\n' "$wanted") <(printf '%s\n' "$present") | tr '\n' ' ')
  [ -n "$missing" ] || return 0
  local admin=()
  if [ "$(id -u)" != 0 ]; then
    command -v sudo >/dev/null || { echo "Install as root first: apt-get install $missing" >&2; exit 1; }
    admin=(sudo)
  fi
  echo "Installing: $missing"
  "${admin[@]}" apt-get update -q
  # shellcheck disable=SC2086
  "${admin[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -q -y --no-install-recommends $missing
}

# build PRESET [TARGET...]: configures and builds, by default all targets.
build() {
  local preset=$1 targets=()
  shift
  [ $# = 0 ] || targets=(--target "$@")
  cmake --preset "$preset"
  cmake --build --preset "$preset" "${targets[@]}"
}
