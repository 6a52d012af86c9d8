# shellcheck shell=bash
# A desktop of the test's own for the installed program, sourced behind checks.sh. Nothing in it is the user's, and none of
# it outlives the test.
#
#   needs COMMAND...       skips the test where one of them is not installed
#   desktop_begin [BUILD]  begin; installs that build into installed/, without one the system's own programs are meant;
#                          starts a message bus
#   in_background COMMAND...   runs it until the desktop ends; its process is in $started
#   needs_accessibility    skips the test where a screen reader cannot be played
#   accessibility_bus      starts what carries the windows' words to screen readers
#   screen_reader WHAT     does what a screen reader does (screen_reader.py)
#   await COMMAND...       waits until it succeeds, for so long that only something broken does not; a program that has
#                          ended is not waited for
#   soon NAME COMMAND...   a check that waits so
#   start NAME [FILE...]   starts lumarine; its process is in $program, its complaints are in NAME.err
#   ends NAME STATUS [PROCESS]   the program, or another one, ends by itself with that status
#   setting KEY VALUE      succeeds if the settings hold it
# shellcheck disable=SC2154

. "$(dirname "${BASH_SOURCE[0]}")/../../scripts/display-env"

patience=90
processes=()
program=$$

needs() {
  local command
  for command in "$@"; do
    command -v "$command" >/dev/null || skip "the installed program: $command is not installed"
  done
}

# The toolkit's own dialogs and style, whatever desktop the test is started from.
desktop_begin() {
  local build
  build=${1:+$(realpath "$1")}
  begin desktop_end
  export LC_ALL=C.UTF-8 HOME=$work/home XDG_CONFIG_HOME=$work/home/.config XDG_RUNTIME_DIR=$work/run
  export QT_STYLE_OVERRIDE=Fusion PATH=$work/installed/bin:$PATH
  unset XDG_STATE_HOME
  unset XDG_CURRENT_DESKTOP DESKTOP_SESSION QT_QPA_PLATFORM QT_QPA_PLATFORMTHEME QT_SCALE_FACTOR WAYLAND_DISPLAY DISPLAY
  mkdir -p "$XDG_CONFIG_HOME" && mkdir -m 700 "$XDG_RUNTIME_DIR"
  # The program makes the folder.
  echo 'XDG_DOCUMENTS_DIR="$HOME/Papers"' >"$XDG_CONFIG_HOME/user-dirs.dirs"
  documents=$HOME/Papers
  [ -z "$build" ] || check "it is installed" cmake --install "$build" --prefix "$work/installed"
  in_background dbus-daemon --session --nofork --print-address=3 3>bus.address
  await test -s bus.address
  DBUS_SESSION_BUS_ADDRESS=$(head -n 1 bus.address)
  export DBUS_SESSION_BUS_ADDRESS
}

# The last to start is the first to end.
desktop_end() {
  local i
  for ((i = ${#processes[@]} - 1; i >= 0; --i)); do kill "${processes[i]}" && wait "${processes[i]}"; done 2>/dev/null
  [ -z "${DISPLAY:-}" ] || stop_display
}

in_background() {
  "$@" >>background.log 2>&1 &
  started=$!
  processes+=("$started")
}

# A python of another place may come first and lack the module.
python=/usr/bin/python3
needs_accessibility() {
  "$python" -c 'import pyatspi' 2>/dev/null && [ -x /usr/libexec/at-spi-bus-launcher ] ||
    skip "the installed program: at-spi2-core, python3-pyatspi or gir1.2-atspi-2.0 is not installed"
}
accessibility_bus() {
  in_background /usr/libexec/at-spi-bus-launcher --launch-immediately --a11y=1
  export QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1
  await gdbus call --session --dest org.a11y.Bus --object-path /org/a11y/bus --method org.a11y.Bus.GetAddress >/dev/null 2>&1
}

screen_reader() { timeout 900 "$python" "$(dirname "${BASH_SOURCE[0]}")/screen_reader.py" "$@" 2>>reader.log; }

await() {
  local end=$((SECONDS + patience))
  until "$@"; do
    [ $SECONDS -lt $end ] && ! gone "$program" || return 1
    sleep 0.1
  done
}
soon() {
  local name=$1
  shift
  check "$name" await "$@"
}

start() {
  local name=$1
  shift
  lumarine "$@" 2>"$name.err" &
  program=$!
  processes+=("$program")
}

gone() { ! kill -0 "$1" 2>/dev/null; }
ends() {
  await gone "${3:-$program}" || { not_ok "$1"; return; }
  wait "${3:-$program}"
  local status=$?
  if [ $status = "$2" ]; then ok "$1"; else not_ok "$1"; echo "# status $status, not $2"; fi
}

setting() { [ "$(xmllint --xpath "string(//$1)" "$documents/LumarineConfig.xml" 2>/dev/null)" = "$2" ]; }
