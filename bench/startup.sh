#!/usr/bin/env bash
# Times "lumarinectl info" of a small file as a whole process, beside an empty C++ program, in one run.
#   bench/startup.sh [LUMARINECTL]
set -euo pipefail
cd "$(dirname "$0")/.."
lumarinectl=${1:-build/native/bin/lumarinectl}
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
echo 'int main() {}' >"$folder/empty.cpp"
g++ -O2 -o "$folder/empty" "$folder/empty.cpp"
hyperfine --shell=none --warmup 20 --runs 200 "$folder/empty" "$lumarinectl info examples/reef-day.xml"
