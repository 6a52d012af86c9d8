#!/usr/bin/env bash
# The installed desktop program under X11, with a mouse and a keyboard: draw a day, upload it, play a demo, save, close.
#   tests/installed/x11_test.sh [BUILD]     without a build, the programs that the system has installed
# shellcheck disable=SC2317   # the checks call functions by their names
set -uo pipefail

[ $# -le 1 ] || { echo "usage: $0 [BUILD]" >&2; exit 2; }
here=$(realpath "$(dirname "$0")")
. "$here/../support/checks.sh"
. "$here/desktop.sh"
. "$here/x11.sh"
needs Xvfb openbox xdotool import xclip dbus-daemon dbus-monitor xmllint jq
desktop_begin "$@"
x11_begin
# What launchers are told.
launcher() { dbus-monitor --session "interface='com.canonical.Unity.LauncherEntry'" >"$work/launcher.txt"; }
in_background launcher
cp "$here"/../../examples/{reef-day,planted-tank}.xml .

# --- what it says without a window

same_version() { [ "$(env -u DISPLAY lumarine --version)" = "$(lumarinectl --version)" ]; }
check "it tells the version of the command line" same_version
helps() { env -u DISPLAY lumarine --help | grep -q '^Usage: lumarine \[FILE\.\.\.\]'; }
check "it tells how it is used" helps
refuses() { local said; said=$(lumarine --fsat 2>&1); [ $? = 2 ] && [[ $said == *"no option --fsat"* ]]; }
check "it knows an option that it does not know" refuses

# --- a day is drawn

# Where the day stands in the window: ten pixels within the chart, which is 120 less wide than the window.
left=130
first_lane=62
minute_at() { echo $((($1 - left) * 1440 / (WIDTH - 140))); }
clock_at() {
  local minute
  minute=$(minute_at "$1")
  printf '%02d:%02d' $((minute / 60)) $((minute % 60))
}
# step FILE MINUTE FIRST LAST: the first channel has a step there, with so many percent.
step() {
  lumarinectl info "$1" --json | jq -e ".modes[0].channels[0][] | select(.hour * 60 + .minute == $2) |
    .value >= $3 and .value <= $4"
}

start first reef-day.xml
soon "the window comes up with the file" titled "Lumarine - $work/reef-day.xml"
soon "nothing else comes up" are_open 1
use
# By its class the desktop finds the launcher of a window, and shows that one's icon.
class=$(sed -n 's/^StartupWMClass=//p' "$(dirname "$(command -v lumarine)")/../share/applications/lumarine.desktop")
has_class() { xdotool search --onlyvisible --pid "$program" --class "^$class\$" | grep -qx "$window"; }
check "the launcher knows its window" has_class
# It is all there and listens.
soon "the log tells of the file" logged "Loaded program contains 2 modes"
moves_on click 400 $((first_lane + 10))
twelve=$((left + (WIDTH - 140) / 2))
click 351 $((first_lane + 87))
soon "a click in the selected lane adds a step" logged "Added new step (Time: $(clock_at 351))"
moves_on click $twelve $((first_lane + 130))
point $twelve $((first_lane + 130))
xdotool mousedown 1
point 592 $((first_lane + 80))
point 613 $((first_lane + 44))
xdotool mouseup 1
soon "a drag ends with the step where it was let go" logged "Step (Time: $(clock_at 613))"

choose 1 4
soon "a file dialog opens by keys" titled "Save As"
answer ctrl+a
xdotool type --delay 20 "$work/mine.xml"
xdotool key Return
soon "the window has the new file's name" titled "Lumarine - $work/mine.xml"
soon "the file is there" test -s mine.xml
check "it is well-formed" xmllint --noout mine.xml
check "it holds the added step" step mine.xml "$(minute_at 351)" 40 60
check "and the dragged one, where it was let go" step mine.xml "$(minute_at 613)" 65 85
check "and not where it was" bash -c '! lumarinectl info mine.xml --json | jq -e ".modes[0].channels[0][] | select(.hour == 12)"'

# --- a device

choose 7 1
soon "the device log is switched on" logged "Device communication logging ON."
choose 3 9
choose 3 3
soon "the program is uploaded to the emulator" logged "Uploading finished"
told_launcher() { grep -A12 'application://lumarine.desktop' "$work/launcher.txt" | grep -q "$1"; }
soon "a launcher is told how far it is" told_launcher 'double 0\.[0-9]*[1-9]'
soon "and that it is over" told_launcher 'boolean false'
check "what it sent is in the device log" test -s "$documents/LumarineLog.txt"

click 30 306
soon "the play button starts a demo" logged "Demo started"
click 90 306
soon "the stop button ends it" logged "Demo finished"

# --- menus and dialogs by keys

use
xdotool key alt Down
soon "a menu opens" are_open 2
xdotool key Right
soon "so does the one beside it, in its place" are_open 2
xdotool key Escape Escape
soon "and closes" are_open 1
xdotool key alt+slash
soon "a key opens About" titled "About"
answer Escape
soon "Escape leaves it" are_open 1
choose 3 6 4
soon "the last choice of a submenu opens a dialog" asks
answer ctrl+a
xdotool type --delay 20 45
xdotool key Return
soon "Enter accepts what was typed" are_open 1
choose 7 2
soon "the known issues are shown" asks
answer Return
soon "Enter closes them" are_open 1

# --- the view and the window

# What is at six in the evening while the whole day is shown.
evening=$((left + (WIDTH - 140) * 3 / 4))
wheel() { xdotool keydown ctrl click "$1" keyup ctrl; }
moves_on point $evening $((first_lane + 150))
moves_on wheel 4
xdotool click 1
soon "the wheel zooms in: an hour less, so that an earlier time is there" logged "Added new step (Time: 17:15)"
point $evening $((first_lane + 150))
moves_on wheel 5

# resized WIDTH HEIGHT: succeeds if the window is so large.
resized() { measure && [ "$WIDTH" = "$1" ] && [ "$HEIGHT" = "$2" ]; }
xdotool windowsize "$window" 1100 800
soon "it takes a new size" resized 1100 800
xdotool windowsize "$window" 300 200
least() { measure && [ "$WIDTH" = 800 ] && [ "$HEIGHT" -gt 600 ] && [ "$HEIGHT" -lt 700 ]; }
soon "but not below its least" least
maximise() { point 300 -$((HEIGHT + 10)); xdotool click --repeat 2 --delay 60 1; }
maximised() { measure && [ "$WIDTH" -gt 1260 ] && [ "$HEIGHT" -gt 950 ]; }
moves_on maximise
soon "a double click on its frame maximises it" maximised
await stays
click 500 $((first_lane + 60))
soon "a step is added where the mouse is there, too, and the wheel has zoomed out" logged "Added new step (Time: $(clock_at 500))"

# --- the end

xdotool key alt+F4
soon "it asks before it closes" titled "Program modified"
answer Escape
soon "Escape leaves it open" are_open 1
await has_keys
xdotool key alt+F4
soon "it asks again" titled "Program modified"
answer Return
ends "yes saves and closes" 0
check "the last step is in the file" step mine.xml "$(minute_at 500)" 1 100
check "the demo's speed is among the settings" setting demo_speed 45
check "so is the device log" setting logging on
check "and the file" setting last_open_file "$work/mine.xml"
check "nobody complained" test ! -s first.err
cat first.err

# --- two at once

quits() {
  program=$1
  use
  xdotool key alt+F4
  ends "$2 closes" 0
}
# both ITEM LOCALE WORDS ITEM SECONDS: the first sets the language, the second the demo's speed.
both() {
  start reef reef-day.xml
  reef=$program
  use
  start tank planted-tank.xml
  tank=$program
  soon "a second start opens a window of its own" titled "Lumarine - $work/planted-tank.xml"
  program=$reef
  soon "and the first keeps its own" titled "Lumarine - $work/reef-day.xml"
  use
  choose 6 "$1"
  soon "the first speaks another language" logged "$3"
  program=$tank
  use
  choose 3 6 "$4"
  soon "the second plays at another speed" logged "$5"
}
hold() {
  check "the settings have the first one's language" setting locale "$1"
  check "and the second one's speed" setting demo_speed "$2"
}
both 1 de "Sprache" 3 300
quits "$reef" "the first"
quits "$tank" "the second"
hold de 300
both 9 en "Language set to English" 2 180
quits "$tank" "the second"
quits "$reef" "the first"
hold en 180

finish
