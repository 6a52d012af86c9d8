# shellcheck shell=bash
# Mouse and keys on X11, sourced behind desktop.sh.
#
#   x11_begin              a display with a window manager
#   main_window            prints the main window of $program
#   windows                prints how many windows of it are seen, menus too
#   titled TEXT            succeeds if one of them has a title that begins so
#   use                    takes $program's main window for $window, waits until it has the keys, and measures it; without
#                          one the test ends
#   point X Y, click X Y   in the main window; a distance below 0 is from its right or lower edge
#   choose MENU ITEM [ITEM]   gives a command by keys alone; menus and their items are counted from 1, without those that
#                          are greyed
#   answer KEY...          in the dialog, once it has the keys
#   logged TEXT            succeeds if the log pane says so, which is read as a user copies it
#   moves_on COMMAND...    gives the command and waits until the window looks different and then stays as it is
# shellcheck disable=SC2034,SC2154

x11_begin() {
  start_display 1280x1024
  export QT_QPA_PLATFORM=xcb
  in_background openbox
  await xdotool get_num_desktops >/dev/null 2>&1
}

main_window() { xdotool search --all --onlyvisible --pid "$program" --name '^Lumarine - ' 2>/dev/null | head -n 1; }
is_open() { [ -n "$(main_window)" ]; }
windows() { xdotool search --onlyvisible --pid "$program" 2>/dev/null | wc -l; }
are_open() { [ "$(windows)" = "$1" ]; }
titled() { [ -n "$(xdotool search --all --onlyvisible --pid "$program" --name "^$1" 2>/dev/null)" ]; }

use() {
  await is_open || { not_ok "the window is there"; finish; }
  window=$(main_window)
  xdotool windowactivate "$window"
  await has_keys
  measure
}
has_keys() { [ "$(xdotool getactivewindow 2>/dev/null)" = "$window" ]; }
measure() { eval "$(xdotool getwindowgeometry --shell "$window" | grep -E '^(WIDTH|HEIGHT)=')"; }

point() { xdotool mousemove --window "$window" $(($1 < 0 ? WIDTH + $1 : $1)) $(($2 < 0 ? HEIGHT + $2 : $2)); }
click() { point "$1" "$2" && xdotool click 1; }

asks() {
  local active
  active=$(xdotool getactivewindow 2>/dev/null) && [ "$active" != "$window" ] && [ "$active" != 0 ]
}
answer() { await asks && xdotool key "$@"; }

down() { for ((i = 1; i < $1; ++i)); do xdotool key Down; done; }
choose() {
  local before i
  await has_keys
  before=$(windows)
  xdotool key alt
  for ((i = 1; i < $1; ++i)); do xdotool key Right; done
  xdotool key Down
  await are_open $((before + 1))
  down "$2"
  if [ $# = 3 ]; then
    xdotool key Right
    await are_open $((before + 2))
    down "$3"
  fi
  xdotool key Return
}

logged() {
  click 300 -60
  xdotool key ctrl+a
  timeout 10 xclip -o -selection primary 2>/dev/null | grep -qF -- "$1"
}

picture() { import -window "$window" rgb:- | md5sum; }
differs() { [ "$(picture)" != "$1" ]; }
looks_so() { [ "$(picture)" = "$1" ]; }
# A label that fades stands still for a moment now and then.
stays() {
  local first i
  first=$(picture)
  for i in 1 2 3; do
    sleep 0.3
    looks_so "$first" || return
  done
}
moves_on() {
  local before
  before=$(picture)
  "$@"
  await differs "$before" && await stays
}
