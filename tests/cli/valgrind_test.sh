#!/usr/bin/env bash
# The command line under valgrind: nothing is read that was not written, or that is not its own, and nothing is lost. Some
# commands in every run, with LUMARINE_LONG_RUNS=1 all that end_to_end.sh does and the unit tests of the commands.
#   tests/cli/valgrind_test.sh LUMARINECTL CLI_TESTS
set -uo pipefail
here=$(dirname "$(realpath "$0")")
. "$here/../support/checks.sh"
binary=$(realpath "$1")
tests=$(realpath -m "$2")
examples=$(realpath "$here/../../examples")
command -v valgrind >/dev/null || skip "valgrind is not installed"

begin
export LUMARINE_VALGRIND_SAID=$work/said
# Some of the commands are another user's.
mkdir -m 777 said
chmod 711 .
ctl() { "$here/under_valgrind" "$binary" "$@"; }
# said_nothing NAME: valgrind, since the last time.
said_nothing() {
  local found
  found=$(cat said/*)
  check "$1: valgrind finds nothing" test -z "$found"
  [ -z "$found" ] || sed 's/^/# /' <<<"$found"
  rm -f said/*
}

if [ "${LUMARINE_LONG_RUNS:-}" = 1 ]; then
  # Its checks count here, too.
  GTEST_OUTPUT='' LUMARINE_COMMAND_LIMIT=1200 "$here/end_to_end.sh" "$here/under_valgrind $binary" "$work/output" >end_to_end.txt 2>&1
  check "the command line end to end" test $? = 0
  grep -E -A3 '^not ok ' end_to_end.txt
  grep -E '^(not )?ok ' end_to_end.txt >>"$counted"
  said_nothing "the command line end to end"
  check "the unit tests of the commands" env GTEST_OUTPUT= "$here/under_valgrind" "$tests" --gtest_brief=1
  said_nothing "the unit tests of the commands"
  finish
fi

exits "a program is shown" 0 info "$examples/reef-day.xml"
exits "a program is changed" 0 edit "$examples/reef-day.xml" edited.xml --mode 1 --optimize
exits "a program becomes another tool's file" 0 convert edited.xml edited.lmf --mode 1
head -c 100 edited.lmf >cut.tmf
exits "a file that is none is refused" 4 convert cut.tmf refused.xml
exits "a word that is none is refused" 2 inform
exits "a program is uploaded" 0 upload edited.xml --device emulator --language de
exits "a day of sun is made" 0 generate sun day.xml --place Europe/Berlin --date 2026-12-21
said_nothing "some commands"
finish
