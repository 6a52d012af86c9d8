#!/usr/bin/env bash
# docs/performance.md names benchmarks that are there.
#   bench/documented.sh FOLDER     in which the built ones are
set -euo pipefail
programs=$(realpath "$1")
cd "$(dirname "$0")/.."
names=$(grep -oE '\b([a-z_]+_bench|app_idle)\b' docs/performance.md | sort -u)
for name in $names; do
  [ -x "$programs/$name" ] || { echo "$name is not built"; exit 1; }
done
