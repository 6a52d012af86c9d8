#!/usr/bin/env bash
# Runs a fuzzer for LUMARINE_FUZZ_SECONDS, ten if that is not set. What it learns stays in the work folder beside its
# build, and so does an input that it finds fault with.
#   fuzz/run.sh PROGRAM
set -euo pipefail
name=$(basename "$1")
work=$(dirname "$1")/../work
committed=$(dirname "$0")/corpus/${name%_fuzz}
corpora=("$work/$name")
mkdir -p "${corpora[0]}"
[ ! -d "$committed" ] || corpora+=("$committed")
exec "$1" -max_total_time="${LUMARINE_FUZZ_SECONDS:-10}" -timeout=10 -rss_limit_mb=2048 \
  -artifact_prefix="$work/$name-" "${corpora[@]}"
