#!/usr/bin/env bash
# The installed desktop program through the accessibility bus, as a screen reader meets it.
#   tests/installed/accessibility_test.sh BUILD
set -uo pipefail

[ $# = 1 ] || { echo "usage: $0 BUILD" >&2; exit 2; }
here=$(realpath "$(dirname "$0")")
. "$here/../support/checks.sh"
. "$here/desktop.sh"
. "$here/x11.sh"
needs Xvfb openbox xdotool dbus-daemon gdbus xmllint
needs_accessibility
desktop_begin "$1"
x11_begin
accessibility_bus
cp "$here"/../../examples/reef-day.xml .

start reader reef-day.xml
use
screen_reader check | tee -a "$counted"
screen_reader exit
soon "Exit asks about the changed program" titled "Program modified"
answer alt+n
ends "it ends without saving" 0
check "the file is as it was" cmp reef-day.xml "$here/../../examples/reef-day.xml"
check "nobody complained" test ! -s reader.err
cat reader.err

finish
