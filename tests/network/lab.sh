# shellcheck shell=bash
# A network of namespaces for tests, to be sourced: computers on one switch, nothing of which outlives the
# script. What it needs is root, or a system that lets users make namespaces of their own.
#
#   lab_enter "$0" "$@"        first of all: goes on inside, or answers 1 with a reason in lab_reason
#   lab_computer NAME ADDRESS  a computer on the switch, with an address in a network of 24 bits, as 10.42.0.1 is
#   lab_cable NAME ADAPTER ADDRESS NAME ADAPTER ADDRESS   two computers by themselves, each made if it is not there
#   lab_run NAME COMMAND...    runs on that computer
#   lab_await COMMAND...       waits until it succeeds, for so long that only something broken does not
#   lab_send NAME ADDRESS BYTES...   sends a datagram of each so many bytes there, from some port to port 5000
#   lab_talk NAME COMMAND...   runs there, in the background and unheard, until lab_pid is ended by lab_quiet
#   lab_flood NAME ADDRESS FILE   likewise sends the file there without end, 64 bytes a datagram
#   lab_quiet PROCESS          ends it
#   lab_listen NAME FILE FILTER   has tcpdump write what of that goes through the computer's adapter, until lab_pid is
#                              interrupted
#   lab_captured NAME FILE ADDRESS   prints what has been written, with all that the computer has sent by now; it
#                              sends one more datagram to that address, which is left out
#   lab_simulator NAME LOG OPTION...   starts tc421sim there and waits until it listens
#
# The script sets lab_simulator_program; what goes on behind it leaves its process in lab_pid.
# shellcheck disable=SC2034,SC2154

lab_reason=

# Everything that is made lives in namespaces of the network, of mounts and of processes that end with this
# script, and takes its processes along.
lab_enter() {
  [ -z "${LAB_INSIDE:-}" ] || { lab_set_up; return; }
  local options=(--net --mount --pid --fork --mount-proc --kill-child)
  [ "$(id -u)" = 0 ] || options+=(--map-root-user)
  if ! command -v ip >/dev/null || ! lab_reason=$(unshare "${options[@]}" true 2>&1); then
    lab_reason=${lab_reason:-"ip(8) is not installed"}
    return 1
  fi
  exec env LAB_INSIDE=1 unshare "${options[@]}" "$@"
}

lab_set_up() {
  if ! lab_reason=$( {
    mount -t tmpfs lab /run && mkdir -p /run/netns &&
      ip link set lo up && ip link add switch type bridge && ip link set switch up
  } 2>&1); then return 1; fi
  lab_be_prompt
}

# An answer that takes two seconds counts as none, so nobody here waits for a disk that others write to, nor for a
# processor that others compile on, if the system allows that.
lab_be_prompt() {
  export TMPDIR=/run
  renice -n -10 $$ >/dev/null 2>&1 || true
}

lab_computer() {
  ip netns add "$1"
  ip link add "port-$1" type veth peer name eth0 netns "$1"
  ip link set "port-$1" master switch up
  ip -n "$1" link set lo up
  ip -n "$1" addr add "$2/24" brd + dev eth0
  ip -n "$1" link set eth0 up
  # As from the router of a network, or a controller that is its own access point.
  ip -n "$1" route add default via "${2%.*}.254"
}

lab_cable() {
  local name
  for name in "$1" "$4"; do
    [ -e "/run/netns/$name" ] || { ip netns add "$name" && ip -n "$name" link set lo up; }
  done
  ip link add "$2" netns "$1" type veth peer name "$5" netns "$4"
  ip -n "$1" addr add "$3/24" brd + dev "$2"
  ip -n "$4" addr add "$6/24" brd + dev "$5"
  ip -n "$1" link set "$2" up
  ip -n "$4" link set "$5" up
}

lab_run() {
  local name=$1
  shift
  ip netns exec "$name" "$@"
}

# What is waited for comes in a fraction of a second, but a busy machine may take its time.
lab_await() {
  local i
  for ((i = 0; i < 1200; ++i)); do
    ! "$@" >/dev/null 2>&1 || return 0
    sleep 0.05
  done
  echo "# waited in vain: $*"
  return 1
}

lab_send() {
  # shellcheck disable=SC2016
  lab_run "$1" bash -c 'for bytes in "${@:2}"; do printf "%0${bytes}d" 0 >"/dev/udp/$1/5000"; done' - "${@:2}"
}

lab_talk() {
  # exec, so that the process id is that of the command.
  (exec ip netns exec "$@" 2>/dev/null) &
  lab_pid=$!
}

lab_flood() {
  # shellcheck disable=SC2016
  lab_talk "$1" nice -n 19 bash -c 'while :; do dd if="$2" bs=64 status=none; done >"/dev/udp/$1/5000"' - "$2" "$3"
}

lab_quiet() {
  kill "$1"
  wait "$1" 2>/dev/null
}

lab_listen() {
  (exec ip netns exec "$1" tcpdump -Z root -i eth0 -U -w "$2" "$3" 2>"$2.log") &
  lab_pid=$!
  lab_await grep -s "listening on" "$2.log"
}

# What is sent last is written last: port 9, where nobody listens, is for that.
lab_captured() {
  local marks
  lab_marks() { tcpdump -r "$1" "udp dst port 9" 2>/dev/null | wc -l; }
  lab_has_marks() { [ "$(lab_marks "$1")" = "$2" ]; }
  marks=$(lab_marks "$2")
  lab_run "$1" bash -c "echo >/dev/udp/$3/9"
  lab_await lab_has_marks "$2" $((marks + 1))
  tcpdump -nn -t -r "$2" "not udp dst port 9" 2>/dev/null
}

lab_simulator() {
  local name=$1 log=$2
  shift 2
  : >"$log"
  (exec ip netns exec "$name" "$lab_simulator_program" "$@" >"$log" 2>&1) &
  lab_pid=$!
  lab_await grep '^listening on ' "$log"
}
