#!/usr/bin/env bash
# The installed desktop program, killed at a random moment of its user's work, and what its next start brings back. Twice,
# or fifty times with LUMARINE_LONG_RUNS=1.
#   tests/installed/killed_test.sh [BUILD]     without a build, the programs that the system has installed
# shellcheck disable=SC2317   # the checks call functions by their names
set -uo pipefail

[ $# -le 1 ] || { echo "usage: $0 [BUILD]" >&2; exit 2; }
here=$(realpath "$(dirname "$0")")
. "$here/../support/checks.sh"
. "$here/desktop.sh"
. "$here/x11.sh"
needs Xvfb openbox xdotool import dbus-daemon xmllint jq
desktop_begin "$@"
x11_begin
state=$HOME/.local/state/lumarine

# Each click in the selected lane adds a step, 40 pixels behind the last.
first_lane=62
add_step() { click $((170 + 40 * $1)) $((first_lane + 87)); }
count_steps() { lumarinectl info "$1" --json | jq '.modes[0].channels[0] | length'; }

# Adds steps with pauses of up to three seconds, and kills the program within the last one. What was added two seconds
# before that is in $rested, all that was added in $added.
work_until_killed() {
  local end moment=$((RANDOM % 6 + 1))
  rested=0
  for ((added = 0; added < moment; )); do
    add_step $((++added))
    end=$((RANDOM % 30))
    sleep $((end / 10)).$((end % 10))
    [ $end -lt 20 ] || rested=$added
  done
  kill -KILL "$program"
  wait "$program" 2>/dev/null
}
saved_again() { [ "$(count_steps tank.xml)" -gt "$before" ]; }
nothing_is_left() { [ -z "$(ls "$state")" ]; }

rounds=2
[ "${LUMARINE_LONG_RUNS:-}" != 1 ] || rounds=50
brought=0
RANDOM=2026
for ((round = 1; round <= rounds; ++round)); do
  cp "$here/../../examples/reef-day.xml" tank.xml
  before=$(count_steps tank.xml)
  start "killed-$round" tank.xml
  await titled "Lumarine - $work/tank.xml" || { not_ok "round $round: the window comes up"; break; }
  use
  moves_on click 400 $((first_lane + 10))
  work_until_killed
  cmp -s tank.xml "$here/../../examples/reef-day.xml" || not_ok "round $round: the file is as it was"

  start "again-$round" tank.xml
  if [ "$rested" = 0 ] && [ -z "$(ls "$state"/*.xml 2>/dev/null)" ]; then
    soon "round $round: nothing had rested, and nothing is asked" titled "Lumarine - $work/tank.xml"
  else
    soon "round $round: the next start asks" titled "Recovered program"
    window=$(main_window)
    answer Return
    await are_open 1
    use
    choose 1 3
    await saved_again
    now=$(($(count_steps tank.xml) - before))
    [ "$now" -ge "$rested" ] && [ "$now" -le "$added" ] && brought=$((brought + 1)) ||
      not_ok "round $round: $now steps came back, $rested had rested of $added"
  fi
  use
  xdotool key alt+F4
  ends "round $round: and it ends as ever" 0
  check "round $round: nothing is left behind" nothing_is_left
done
check "work came back" test "$brought" -gt 0
for complaints in *.err; do
  # The shell says so of a process that was killed.
  check "no complaints: $complaints" bash -c "! grep -v Killed '$complaints' | grep ."
done
finish
