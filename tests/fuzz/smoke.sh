#!/bin/bash
# Builds the fuzz programs and runs each of them: tests/fuzz/smoke.sh SECONDS [NAME...]
# New corpus entries are kept in build/fuzz/corpus, failing inputs in build/fuzz/findings.
set -eu
seconds=${1:?usage: smoke.sh SECONDS [NAME...]}
shift
cd "$(dirname "$0")/../.."

cmake --preset fuzz >/dev/null
cmake --build --preset fuzz --target fuzz_targets
mkdir -p build/fuzz/findings

if [ $# -eq 0 ]; then
  for program in build/fuzz/fuzz/fuzz_*; do
    set -- "$@" "${program##*/fuzz_}"
  done
fi

# Fonts cached by the platform are not leaks of the program.
export LSAN_OPTIONS="suppressions=$PWD/tests/lsan.supp:print_suppressions=0"

# Runs one program; its log is build/fuzz/findings/NAME.log.
run() {
  local name=$1 log=build/fuzz/findings/$1.log learned=build/fuzz/corpus/$1
  mkdir -p "$learned"
  if ! ASAN_OPTIONS=allocator_may_return_null=0 build/fuzz/fuzz/fuzz_"$name" -max_total_time="$seconds" -rss_limit_mb=1024 \
      -timeout=10 -print_final_stats=1 -artifact_prefix="build/fuzz/findings/$name-" \
      "$learned" "tests/fuzz/corpus/$name" >"$log" 2>&1; then
    echo "$name: FINDING" >&2
    tail -40 "$log" >&2
    return 1
  fi
  local runs coverage
  runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")
  coverage=$(grep -o 'cov: [0-9]*' "$log" | tail -1)
  echo "$name: ${seconds} s, $runs runs, $coverage, no finding"
}
export -f run
export seconds

# Runs one program per processor at a time; fails if any of them does.
printf '%s\n' "$@" | xargs -P "$(nproc)" -I{} bash -c 'run {}'
