#!/usr/bin/env bash
# The programs of an optimised build are hardened, each one that somebody may get.
#   hardening_test.sh BUILD PROGRAM...
set -uo pipefail
here=$(dirname "$(realpath "$0")")
. "$here/../support/checks.sh"
. "$here/hardening.sh"
build=$(realpath "$1")
mapfile -t programs < <(realpath "${@:2}")
for program in "${programs[@]}"; do
  case $program in *.exe) tool=x86_64-w64-mingw32-objdump ;; *) tool=readelf ;; esac
  command -v "$tool" >/dev/null || skip "hardening: $tool is not installed"
done

begin
# Which kind of protector it is cannot be told from a program: either kind guards many functions, since most of them hold a
# std::string.
grep -E '"command": .* -c .*\.(c|cc|cpp|cxx)"?,?$' "$build/compile_commands.json" >commands.txt
check "there are compiled files" test "$(wc -l <commands.txt)" -gt 100
check "all are compiled so" test -z "$(grep -v -- ' -fstack-protector-strong .*-D_FORTIFY_SOURCE=3' commands.txt)"
for program in "${programs[@]}"; do
  name=$(basename "$program")
  case $name in *.exe) hardened_windows "$name" "$program" ;; *) hardened "$name" "$program" ;; esac
done
finish
