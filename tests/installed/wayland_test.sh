#!/usr/bin/env bash
# The installed desktop program under Wayland, on a compositor without a screen. Nobody can click there: its picture is
# looked at, and a screen reader ends it.
#   tests/installed/wayland_test.sh BUILD
# shellcheck disable=SC2317   # the checks call functions by their names
set -uo pipefail

[ $# = 1 ] || { echo "usage: $0 BUILD" >&2; exit 2; }
here=$(realpath "$(dirname "$0")")
. "$here/../support/checks.sh"
. "$here/desktop.sh"
needs weston weston-screenshooter convert identify dbus-daemon gdbus xmllint
[ -e /usr/share/doc/qt6-wayland ] || skip "the installed program: qt6-wayland is not installed"
needs_accessibility
desktop_begin "$1"
accessibility_bus
cp "$here"/../../examples/reef-day.xml .

cat >weston.ini <<'INI'
[shell]
background-image=
background-color=0xff203040
panel-position=none
locking=false
INI
export WAYLAND_DISPLAY=lumarine-test QT_QPA_PLATFORM=wayland
# Only with --debug may a picture be taken.
in_background weston --backend=headless-backend.so --use-pixman --width=1600 --height=1200 --idle-time=0 --debug \
  --socket=$WAYLAND_DISPLAY --config="$work/weston.ini"
await test -S "$XDG_RUNTIME_DIR/$WAYLAND_DISPLAY"

# shot: leaves the window, which is all that is not background, in window.png and its size in width and height.
shot() {
  rm -f wayland-screenshot-*.png
  weston-screenshooter && convert wayland-screenshot-*.png -trim +repage window.png &&
    read -r width height < <(identify -format '%w %h\n' window.png)
}
# Its frame takes some pixels besides.
shows_window() { shot && [ "$width" -ge 1024 ] && [ "$width" -lt 1060 ] && [ "$height" -ge 738 ] && [ "$height" -lt 800 ]; }
# share COLOUR FUZZ WIDTHxHEIGHT+X+Y: how many percent of that place have nearly that colour.
share() {
  convert window.png -crop "$3" +repage -alpha off -fuzz "$2%" -fill black +opaque "$1" -fill white -opaque "$1" \
    -format '%[fx:round(mean*100)]' info:
}
holds() { [ "$(share "$1" "$2" "$3")" -ge "$4" ]; }

start wayland reef-day.xml
soon "its window is seen" shows_window
# The chart's window and the logo, as far from the lower right corner as they are told to be, less the frame's few pixels.
chart=800x500+$((width - 860))+$((height - 660))
logo=230x80+$((width - 260))+$((height - 105))
chart_is_drawn() { shot && holds white 1 "$chart" 40; }
soon "the chart is white" chart_is_drawn
check "with the blue of a channel in it" holds '#8f9fff' 8 "$chart" 4
check "the logo has its night" holds '#123070' 12 "$logo" 8
check "its sun" holds '#ffdf90' 14 "$logo" 5
check "and its water" holds '#1290bb' 14 "$logo" 15
shot
check "a screen reader finds it" screen_reader exit
ends "and ends it" 0
check "its settings are written" setting last_open_file "$work/reef-day.xml"
check "nobody complained" test ! -s wayland.err
cat wayland.err

start terminated reef-day.xml
soon "it comes up again" shows_window
kill -TERM "$program"
ends "and ends when it is told to" 143
check "nobody complained then either" test ! -s terminated.err
cat terminated.err

finish
