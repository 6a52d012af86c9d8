#!/usr/bin/env bash
# A computer with a simulated TC421 beside it in a network of their own, and a shell or a command on it:
#   tests/network/with_tc421sim.sh [--sim OPTIONS] TC421SIM [COMMAND...]
# OPTIONS are one word for tc421sim, as in "--loss 0.3 --seed 7"; what it sees is in tc421sim.log. The controller
# is Smart-123456 at 10.42.0.2.
set -uo pipefail
. "$(dirname "$0")/lab.sh"
if ! lab_enter "$0" "$@"; then
  echo "$0: no network can be made here: $lab_reason" >&2
  exit 1
fi
options=()
if [ "${1:-}" = --sim ]; then
  read -ra options <<<"$2"
  shift 2
fi
[ $# -gt 0 ] || { sed -n '2,6s/^# \?//p' "$0"; exit 2; }
lab_simulator_program=$(realpath "$(command -v "$1")")
shift
lab_computer computer 10.42.0.1
lab_computer controller 10.42.0.2
lab_simulator controller tc421sim.log "${options[@]}" || { cat tc421sim.log >&2; exit 1; }
lab_run computer "${@:-${SHELL:-bash}}"
status=$?
kill -TERM "$lab_pid" && wait "$lab_pid"
exit $status
