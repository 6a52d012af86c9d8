#!/usr/bin/env bash
# Runs a fuzzer until LUMARINE_FUZZ_SECONDS have passed, ten if that is not set, or until it has tried LUMARINE_FUZZ_RUNS
# inputs, if that is set. What it learns stays in the work folder beside its build, and so does an input that it finds fault
# with. A run whose inputs are counted makes what was learned as small as it can be, and adds a line to figures.txt there.
#   fuzz/run.sh PROGRAM MOST-BYTES
set -euo pipefail
program=$1
most_bytes=$2
name=$(basename "$program")
# Whole paths, since some fuzzers work in a folder of their own.
here=$(cd "$(dirname "$0")" && pwd)
work=$(realpath -m "$program/../../work")
corpora=("$work/$name")
mkdir -p "${corpora[0]}"
[ ! -d "$here/corpus/${name%_fuzz}" ] || corpora+=("$here/corpus/${name%_fuzz}")
# What was allocated where is told when an input is tried again by hand.
export ASAN_OPTIONS=malloc_context_size=1:quarantine_size_mb=8${ASAN_OPTIONS:+:$ASAN_OPTIONS}
options=(-max_len="$most_bytes" -timeout=60 -rss_limit_mb=2048)
[ ! -f "$here/words/${name%_fuzz}" ] || options+=(-dict="$here/words/${name%_fuzz}")
# Files that fuzzers write need not get to a disk.
[ ! -w /dev/shm ] || export TMPDIR=/dev/shm

# Keeps the inputs that are needed to come to the same places.
merge() {
  rm -rf "$work/$name.merged"
  mkdir "$work/$name.merged"
  "$program" "${options[@]}" -merge=1 "$work/$name.merged" "${corpora[@]}" >>"$work/$name.log" 2>&1
  rm -r "${corpora[0]:?}"
  mv "$work/$name.merged" "${corpora[0]}"
}

# The last number behind some words in what the fuzzer has said.
said() { sed -n "s/.*$1 *\([0-9]\+\).*/\1/p" "$work/$name.log" | tail -n 1; }

write_figures() {
  local inputs edges seconds=$SECONDS
  inputs=$(said number_of_executed_units:)
  edges=$(said 'DONE .*cov:')
  merge
  printf '| `%s` | %s | %s | %s | %s | %s |\n' "$name" "$inputs" "$seconds" "$edges" \
    "$(find "${corpora[0]}" -type f | wc -l)" "$(date +%F)" >>"$work/figures.txt"
}

"$program" "${options[@]}" -max_total_time="${LUMARINE_FUZZ_SECONDS:-10}" -runs="${LUMARINE_FUZZ_RUNS:--1}" \
  -print_final_stats=1 -artifact_prefix="$work/$name-" "${corpora[@]}" 2>&1 | tee "$work/$name.log"
[ -z "${LUMARINE_FUZZ_RUNS:-}" ] || write_figures
