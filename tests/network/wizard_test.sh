#!/usr/bin/env bash
# "Setup TC421 WiFi" in the Windows program under Wine, with the keyboard alone, and simulated controllers over
# real sockets. Wants a display (DISPLAY) and a Wine prefix (scripts/wine-env).
#   tests/network/wizard_test.sh COMMAND TC421SIM [FOLDER]
# COMMAND is desktop_wizard with its runner; pictures of the pages are left in FOLDER. Prints "ok NAME" or
# "not ok NAME" for each check, or one line "skipped REASON" where no namespaces can be made; fails if a check did.
set -uo pipefail

[ $# = 2 ] || [ $# = 3 ] || { echo "usage: $0 COMMAND TC421SIM [FOLDER]" >&2; exit 2; }
. "$(dirname "$0")/lab.sh"
# Sockets are made by Wine's server: one that runs already would make them in another network.
wineserver -k
wineserver -w
lab_enter "$0" "$@" || { echo "skipped the WiFi wizard over real sockets: $lab_reason"; exit 0; }

read -ra command <<<"$1"
program_at=$((${#command[@]} - 1))
command[program_at]=$(realpath "${command[program_at]}")
lab_simulator_program=$(realpath "$2")
pictures=()
[ $# = 2 ] || pictures=("Z:$(realpath "$3")")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work" || exit 1

failed=0
name=Smart-123456
ok() { echo "ok $1"; }
not_ok() { echo "not ok $1"; failed=1; }

# suite NAME: one of desktop_wizard's; each of its tests is a check. A run that hangs must not take all with it.
suite() {
  lab_run computer timeout 100 "${command[@]}" --gtest_filter="$1.*" --gtest_color=no $name "${pictures[@]}" \
    >suite.log 2>&1 </dev/null
  local status=$?
  sed -n 's/^\[       OK \] \(.*\) (.*/ok \1/p; s/^\[  FAILED  \] \(.*\) (.*/not ok \1/p' suite.log | tr -d '\r'
  [ $status = 0 ] && grep -q '^\[       OK \]' suite.log && return
  not_ok "$1 ends well"
  echo "# status $status"
  grep -A 8 'Failure' suite.log | head -n 40
}

power_on() { lab_simulator controller sim.log --name $name --dump memory.json "$@" || not_ok "the simulator listens"; }
power_off() {
  kill -TERM "$lab_pid"
  wait "$lab_pid" || not_ok "the simulator ends well"
}
remembers() {
  if jq -e "$2" memory.json >/dev/null; then ok "$1"; else not_ok "$1"; jq .wifi memory.json; fi
}

lab_computer computer 10.42.0.1
lab_computer controller 10.42.0.2

power_on
suite OneController
power_off
remembers "the controller has all it needs" \
  '.wifi == {ssid: "Café 水 🐠 & é", security: "wpa2", encryption: "aes", password: "secret coral", whole: true}'
remembers "no frame was wrong" '.objections == []'

power_on --wrong-ack
suite WrongController
power_off

suite NoController

exit $failed
