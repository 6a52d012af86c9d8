# shellcheck shell=bash
# Sourced by tests that are shell scripts. A check prints "ok NAME" or "not ok NAME".
#
#   begin [COMMAND]                  goes into a folder of the script's own, $work; COMMAND is run at the end of it all
#   ok NAME, not_ok NAME
#   check NAME COMMAND...            the command succeeds
#   exits NAME STATUS ARGUMENT...    the script's ctl ends with this status; leaves out.txt and err.txt
#   ended NAME STATUS IT_WAS         a command has ended with this status; its messages are in err.txt
#   says NAME TEXT [FILE]            the file, err.txt if none is named, holds the text
#   silent NAME                      out.txt is empty
#   repeated REASON                  a command was run again, though nothing allows for it
#   skip REASON                      nothing can be tested here; ends the script
#   finish                           ends the script, which has failed if a check did
#
# Where GTEST_OUTPUT=xml:FILE asks for it, finish leaves its counts as a program of GoogleTest does.
# shellcheck disable=SC2034,SC2154

results=${GTEST_OUTPUT:-}
results=${results:+$(realpath -m "${results#xml:}")}

begin() {
  work=$(mktemp -d)
  # shellcheck disable=SC2064
  trap "${1:-:}; rm -rf '$work'" EXIT
  cd "$work" || exit 1
  counted=$work/.counted
  : >"$counted"
}

# In a file, since a part of a pipe may check, too.
ok() { echo "ok $1" | tee -a "$counted"; }
not_ok() { echo "not ok $1" | tee -a "$counted"; }
repeated() { echo "repeated $1" | tee -a "$counted"; }

check() {
  local name=$1
  shift
  if "$@" >check.log 2>&1; then ok "$name"; else not_ok "$name"; tail -n 8 check.log; fi
}
ended() {
  if [ "$3" = "$2" ]; then ok "$1"; else not_ok "$1"; echo "# status $3, not $2"; tail -n 5 err.txt; fi
}
# A script may put another in its place.
run_ctl() { ctl "$@" >out.txt 2>err.txt; }
exits() {
  run_ctl "${@:3}"
  ended "$1" "$2" $?
}
says() { check "$1" grep -qF -- "$2" "${3:-err.txt}"; }
silent() { check "$1" test ! -s out.txt; }

skip() {
  echo "skipped: $1"
  exit 77
}
finish() {
  local good bad again
  good=$(grep -c '^ok ' "$counted")
  bad=$(grep -c '^not ok ' "$counted")
  again=$(grep -c '^repeated ' "$counted")
  if [ -n "$results" ]; then
    mkdir -p "$(dirname "$results")"
    echo "<testsuites tests=\"$((good + bad))\" failures=\"$bad\" disabled=\"0\" repeated=\"$again\"/>" >"$results"
  fi
  [ "$good" != 0 ] && [ "$bad" = 0 ]
  exit
}
