#!/usr/bin/env bash
# "Setup TC421 WiFi" in the Windows program under Wine, with the keyboard alone, and simulated controllers over
# real sockets. Wants a session of Wine (scripts/wine-session).
#   tests/network/wizard_test.sh COMMAND TC421SIM [FOLDER]
# What went over the wire is checked with tcpdump too.
# COMMAND is desktop_wizard behind scripts/with-wine; pictures of the pages are left in FOLDER. Skipped where no
# namespaces can be made.
set -uo pipefail

[ $# = 2 ] || [ $# = 3 ] || { echo "usage: $0 COMMAND TC421SIM [FOLDER]" >&2; exit 2; }
. "$(dirname "$0")/lab.sh"
. "$(dirname "$0")/../support/checks.sh"
. "$(dirname "$0")/../../scripts/wine-env"
# Sockets are made by Wine's server: one that runs already would make them in another network.
wineserver -k
wineserver -w
lab_enter "$0" "$@" || skip "the WiFi wizard over real sockets: $lab_reason"

read -ra words <<<"$1"
mapfile -t command < <(realpath "${words[@]}")
lab_simulator_program=$(realpath "$2")
pictures=()
[ $# = 2 ] || pictures=("Z:$(realpath "$3")")
begin "wineserver -k"

name=Smart-123456

# suite TESTS: of desktop_wizard's; each is a check. A run that hangs must not take all with it.
suite() {
  lab_run computer timeout 400 "${command[@]}" --gtest_filter="$1" --gtest_color=no $name "${pictures[@]}" \
    >suite.log 2>&1 </dev/null
  local status=$?
  sed -n 's/^\[       OK \] \(.*\) (.*/ok \1/p; s/^\[  FAILED  \] \(.*\) (.*/not ok \1/p' suite.log | tr -d '\r' | tee -a "$counted"
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

computer=10.42.0.1
lab_computer computer $computer
# It stays between the suites: one that goes because nobody needs it for three seconds lets no new program start.
lab_run computer wineserver -p
lab_computer controller 10.42.0.2
lab_computer second 10.42.0.3
lab_computer stranger 10.42.0.66

# Everything that the computer sends of itself, to the end.
lab_listen computer all.pcap "ip and src host $computer and not icmp"
tcpdump_pid=$lab_pid
captured() { tcpdump -nn -t -r all.pcap 2>/dev/null; }

suite 'NoController.NothingIsSent*'
sleep 0.2
sent=$(captured)
if [ -z "$sent" ]; then ok "nothing has left the computer"; else not_ok "nothing has left the computer"; echo "$sent" | head; fi

power_on
suite 'OneController.*'
power_off
remembers "the controller has all it needs" \
  '.wifi == {ssid: "Café 水 🐠 & é", security: "wpa2", encryption: "aes", password: "secret coral", whole: true}'
remembers "no frame was wrong" '.objections == []'

power_on
suite 'TakenPort.*'
power_off
remembers "it was told of once" '.wifi.ssid == "Reef" and .frames == 2 and .objections == []'

lab_simulator second second.log --name Smart-000001 --dump second.json || not_ok "the second simulator listens"
second_pid=$lab_pid
power_on
suite 'TwoControllers.*'
power_off
remembers "the other one was told nothing" '.wifi == null'
lab_pid=$second_pid power_off
mv second.json memory.json
remembers "the chosen one has all it needs" \
  '.wifi == {ssid: "Reef", security: "open", encryption: "none", password: "", whole: true}'

# The last two that were live are those at which it stood.
power_on
suite 'NetworkDemo.*'
power_off
remembers "the demo was ended, and none of its frames was wrong" '.demo.playing == false and .objections == []'
sed -n 's/^[^ ]*  live //p' sim.log | uniq | tail -n 2 >live.txt
if [ -s live.txt ] && diff <(sed -n 's/^shown //p' suite.log | tr -d '\r') live.txt; then
  ok "the controller has shown what the window has"
else
  not_ok "the controller has shown what the window has"
fi

power_on --wrong-ack
suite 'WrongController.*'
power_off

for test in IsToldOfAfterSixSecondsAndThePageStays DoesNotKeepThePageFromBeingClosedMeanwhile \
  DoesNotKeepTheProgramFromBeingClosedMeanwhile; do
  power_on --answers 1
  suite "SilentController.$test"
  power_off
  tries=$(grep -c "not heard, it is off" sim.log)
  if [ "$tries" = 3 ]; then ok "it was tried three times"; else not_ok "it was tried three times"; cat sim.log; fi
done

suite 'NoController.EnterIs*'

for _ in {1..1000}; do
  printf '\x55\xAA\x17\x00\x1B[2J\r\nTank\xFF\xE2\x80\xAE%046d' 0
done >hostile.bin
lab_flood stranger $computer hostile.bin
flood_pid=$lab_pid
suite 'HostileNeighbour.*'
kill "$flood_pid"

sleep 0.2
kill -INT "$tcpdump_pid"
wait "$tcpdump_pid"
stray=$(captured |
  grep -vE "IP $computer\.5000 > (10\.42\.0\.(2|3|66)|255\.255\.255\.255)\.5000: UDP, length 64$")
if [ -z "$stray" ]; then ok "from one port to one port, to those found and to everybody"
else not_ok "from one port to one port, to those found and to everybody"; echo "$stray" | head; fi

finish
