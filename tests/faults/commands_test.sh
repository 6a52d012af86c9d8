#!/usr/bin/env bash
# commands_test.py, with a controller on a network where one can be made.
#   commands_test.sh LUMARINECTL TC421SIM SYSTEM_FAULTS_LIBRARY [OPTION...]
set -uo pipefail
here=$(dirname "$(realpath "$0")")
. "$here/../network/lab.sh"
lumarinectl=$(realpath "$1")
simulator=$(realpath "$2")
library=$(realpath "$3")
if lab_enter "$0" "$@"; then
  lab_simulator_program=$simulator
  lab_computer computer 10.42.0.1
  lab_computer controller 10.42.0.2
  log=$(mktemp)
  lab_simulator controller "$log" || { cat "$log"; exit 1; }
  lab_run computer python3 "$here/commands_test.py" "$lumarinectl" "$library" "${@:4}"
  status=$?
  kill -TERM "$lab_pid" && wait "$lab_pid"
  rm -f "$log"
  exit $status
fi
echo "without the network: $lab_reason"
python3 "$here/commands_test.py" "$lumarinectl" "$library" "${@:4}"
