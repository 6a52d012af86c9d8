#!/usr/bin/env bash
# lumarinectl and simulated controllers over real sockets, on computers of their own: network namespaces on one
# switch, all on UDP port 5000. What went over the wire is checked with tshark too.
#   tests/network/network_test.sh COMMAND TC421SIM
# COMMAND is lumarinectl, or that of Windows behind scripts/with-wine. Skipped where no namespaces can be made.
# shellcheck disable=SC2317   # the checks call functions by their names
set -uo pipefail
export LC_ALL=C.UTF-8  # messages are compared

[ $# = 2 ] || { echo "usage: $0 COMMAND TC421SIM" >&2; exit 2; }
. "$(dirname "$0")/lab.sh"
. "$(dirname "$0")/../support/checks.sh"
read -ra words <<<"$1"
native=true
[ ${#words[@]} = 1 ] || native=false
# Sockets are made by Wine's server: one that runs already would make them in another network.
$native || { wineserver -k; wineserver -w; }
lab_enter "$0" "$@" || skip "real sockets: $lab_reason"

mapfile -t command < <(realpath "${words[@]}")
lab_simulator_program=$(realpath "$2")
here=$(realpath "$(dirname "$0")")
begin

# A run that hangs must not take the others with it. No measure of speed.
limit=180
computer=10.42.0.1
device=10.42.0.2
second_device=10.42.0.3
name=Smart-123456
controller=udp:$name@$device
ctl() { lab_run computer timeout "$limit" "${command[@]}" "$@"; }

says_not() { check "$1" bash -c '! grep -qF -- "$1" "$2"' - "$2" "${3:-err.txt}"; }

# power_on [OPTION...]: the controller; what it sees is in sim.log, and its memory afterwards in memory.json.
power_on() { lab_simulator controller sim.log --name "$name" --dump memory.json "$@" || not_ok "the simulator listens"; }
power_off() {
  kill -TERM "$lab_pid"
  wait "$lab_pid" || not_ok "the simulator ends well"
}
remembers() { check "$1" jq -e "$2" memory.json; }
no_objections() { remembers "$1" '.objections == []'; }

# begins ARGUMENT...: lumarinectl is started, and goes on while others do something.
# ends NAME STATUS: it ends with this status; leaves out.txt and err.txt.
begins() {
  rm -f err.txt
  ctl "$@" >out.txt 2>err.txt &
  begun=$!
}
ends() {
  wait "$begun"
  ended "$1" "$2" $?
}

lab_computer computer $computer
lab_computer controller $device
lab_computer second $second_device
lab_computer stranger 10.42.0.66

# Everything that the computer sends of itself, to the end. Checksums are made before that, and not by an adapter.
lab_run computer ethtool -K eth0 tx off >/dev/null || not_ok "checksums are made"
lab_listen computer all.pcap "ip and src host $computer and not icmp" || not_ok "tcpdump listens"
tcpdump_pid=$lab_pid

# --- nothing is sent that was not asked for

ctl new built-in.xml
exits "devices" 0 devices
exits "help" 0 wifi-setup --help
exits "upload to the emulator" 0 upload built-in.xml --device emulator
check "nothing has left the computer" test -z "$(lab_captured computer all.pcap $device)"

# --- a search

exits "a scan of an empty network" 3 scan
says "it says what to look at" "No controller found on the network."
power_on
exits "a scan" 0 scan
check "it lists the controller" diff out.txt - <<<"$controller  $name"
says "it tells of itself" "Found 1 device(s)"
exits "a scan for other programs" 0 scan --json
check "it is JSON" jq -e "length == 1 and .[0].device == \"$controller\" and .[0].address == \"$device\"" out.txt
exits "devices with a scan" 0 devices --scan
says "they hold the controller" "$controller" out.txt
controller_pid=$lab_pid
lab_simulator computer holder.log
exits "a scan while another program holds the port" 3 scan
says "it says who is in the way" "UDP port 5000 cannot be had"
exits "an operation while another program holds the port" 3 sync-time --device $controller
says "it is a connect error" "Connect error"
says "and explained" "UDP port 5000 cannot be had"
lab_run computer "$lab_simulator_program" >second.log 2>&1
check "a second simulator on one computer says why not" grep -q "no listening on 0.0.0.0:5000: " second.log
power_off

lab_simulator second second.log --name "Smart tank @ 2"
exits "two controllers" 0 scan
check "both are listed" diff <(sort out.txt) - <<TEXT
udp:Smart tank @ 2@$second_device  Smart tank @ 2
$controller    $name
TEXT
exits "a name with blanks and an at sign" 0 sync-time --device "udp:Smart tank @ 2@$second_device" --time "2026-03-14 09:26:53"
says "the right one has heard it" "clock 2026-03-14 09:26:53" second.log
says_not "the other has not" "clock 2026" sim.log
exits "a wrong name" 3 sync-time --device "udp:Smart-7@$second_device"
says "is explained by the controller" 'it is for "Smart-7", not for "Smart tank @' second.log
power_off
lab_pid=$controller_pid

# --- time, clear, demo

exits "sync-time" 0 sync-time --device $controller --time "2026-03-14 09:26:53" --trace
says "a trace shows the datagrams" "recvfrom $device:5000"
exits "a demo" 0 demo built-in.xml --device $controller --mode 2 --seconds 2
exits "clear" 0 clear --device $controller
power_off
remembers "the clock is set" '.clock == "2026-03-14 09:26:53"'
remembers "the demo has been played and ended" '.demo.playing == false and .demo.name != "" and .frames > 10'
remembers "the memory was cleared" '.clears == 1 and .banks == []'
no_objections "no frame of these was wrong"

# --- an upload of many modes

# program MODES: modes that differ in every step.
program() {
  local m c
  echo "<modelist>"
  for ((m = 1; m <= $1; ++m)); do
    echo "<mode name='Mode $m'>"
    for ((c = 0; c < 5; ++c)); do
      echo "<channel><step hour='$(((m + c) % 8))' minute='$((m * 7 % 60))' value='$((m * 5 % 101))'/>"
      echo "<step hour='$((9 + (m * c) % 12))' minute='$((c * 13 % 60))' value='$((100 - m * c))'/></channel>"
    done
    echo "</mode>"
  done
  echo "</modelist>"
}
modes=20
program $modes >many.xml
program 2 >two.xml
power_on --frames
exits "an upload of $modes modes" 0 upload many.xml --device $controller
power_off
no_objections "no frame of it was wrong"
remembers "all modes are whole" "(.banks | length) == $modes and all(.banks[]; .whole and (.steps | length) == 48)"
remembers "under their names, as far as they are sent" '[.banks[].name] == [range(1; 21) | "Mode \(.)"[0:7]]'
exits "the frames it would be" 0 frames many.xml --model tc421-udp --device-name $name
check "are those that came" diff out.txt <(sed -n 's/^[0-9.:]*  \(\([0-9A-F][0-9A-F] \?\)\{64\}\)$/\1/p' sim.log | tr -d ' ')
# The half hours of a mode by another way: the edit, and the table of what is left.
for mode in 1 7 20; do
  ctl curve many.xml --mode "$mode" --every 1800 | tail -n +2 |
    awk -F, '{ printf "%02d:%02d %d %d %d %d %d\n", $1 / 3600, $1 % 3600 / 60, $2, $3, $4, $5, $6 }' | head -n 48 >wanted.txt
  jq -r ".banks[$mode - 1].steps[] | \"\(.time) \(.values | join(\" \"))\"" memory.json >kept.txt
  check "mode $mode is kept as its curve says" diff wanted.txt kept.txt
done

# --- a demo that seeks

# Each line of live values against the curve, minute by minute: first those of the begin of the day, then those from
# the sought minute on, in order. How many, and of which minutes, is up to how busy the machine is.
follows_curve() {
  awk -v sought="$1" -F '[, ]' '
    FNR == NR { for (c = 1; c <= 5; ++c) curve[n + 0, c] = int($(c + 1)); ++n; next }
    function fits(minute,  c, d) {
      for (c = 1; c <= 5; ++c) { d = $c - curve[minute, c]; if (d > 1 || d < -1) return 0 }
      return 1
    }
    function first_fit(from, to,  m) { for (m = from; m < to; ++m) if (fits(m)) return m; return -1 }
    {
      next_at = first_fit(jumped ? at : sought, n)
      if (!jumped && first_fit(0, 240) >= 0) { ++before; next }
      if (next_at < 0) { print (jumped ? "behind" : "before") " the jump: " $0; bad = 1; exit }
      jumped = 1; at = next_at; ++behind
    }
    END { print before " before, " behind " behind, up to minute " at; exit !(!bad && before && behind > 5) }
  ' curve.txt live.txt
}
power_on
exits "a demo from 18:00" 0 demo many.xml --device $controller --mode 3 --seconds 20 --from 18:00
power_off
ctl curve many.xml --mode 3 --every 60 2>/dev/null | tail -n +2 >curve.txt
sed -n 's/^[^ ]*  live //p' sim.log >live.txt
check "its live values jump to those of that time, and follow the curve" follows_curve 1080
remembers "it has ended in order" '.demo.playing == false and .demo.name == "Mode 3"'
no_objections "no frame of it was wrong"

# --- two copies of the program

power_on
ctl demo many.xml --device $controller --seconds 12 >/dev/null 2>first.txt &
first=$!
check "a demo plays" lab_await grep ' live ' sim.log
exits "a scan while another copy plays a demo" 3 scan
says "it says who is in the way" "UDP port 5000 cannot be had"
exits "an upload meanwhile" 3 upload built-in.xml --device $controller
says "it is a connect error" "Connect error"
check "the demo has played to its end" wait "$first"
power_off
no_objections "and not been disturbed"
remembers "nor anything else been done" '.banks == [] and .demo.playing == false'

# --- a controller that is switched off

power_on --answers 99
exits "an upload to a controller that is switched off before the end of the second mode" 1 upload two.xml \
  --device $controller
check "it says of which mode" diff <(grep -A 1 "^Uploading mode" err.txt) - <<TEXT
Uploading mode: Mode 1
Uploading mode: Mode 2
Upload error
TEXT
power_off
remembers "which is not whole, and the first is" '[.banks[].whole] == [true, false]'

# --- a bad network

power_on --loss 0.4 --seed 2
exits "a clock on a network that loses a third" 0 sync-time --device $controller --time "2026-03-14 09:26:53"
says "something was lost" " lost on the way" sim.log
power_off
power_on --repeat 1 --delay 30
exits "answers that come late and twice" 0 sync-time --device $controller
power_off
power_on --delay 2500
exits "answers that come too late for their try" 0 sync-time --device $controller
power_off
power_on --shorten 1
exits "answers that are cut short" 3 sync-time --device $controller --trace
says "are no answers" "Received invalid packet size"
power_off
power_on --loss 1
exits "a network that loses everything" 3 sync-time --device $controller --trace
check "it was tried three times" test "$(grep -c '^WritePacket: ' err.txt)" = 3
says "it says what to look at" "No answer from $controller."
exits "a demo that nobody sees" 3 demo built-in.xml --device $controller --seconds 1
power_off

# --- neighbours

# The simulator hears nothing, so that the computer asks three times, for six seconds; what it gets is arranged here.
power_on --loss 1
begins sync-time --device $controller --trace
check "the controller has been asked" lab_await grep "lost on the way here" sim.log
lab_send controller $computer 63 65
lab_send stranger $computer 64
check "datagrams of 63 and 65 bytes are refused" lab_await bash -c '[ "$(grep -c "$1" err.txt)" = 2 ]' - \
  "Received invalid packet size"
check "a stranger's is heard and passed over" lab_await grep "recvfrom 10.42.0.66:" err.txt
lab_send controller $computer 64
ends "and one from the controller's address and another port is the answer" 0
power_off

# They talk for as long as the program waits: if that made it wait on, it would not end.
power_on --loss 1
sim_pid=$lab_pid
# shellcheck disable=SC2016
lab_talk stranger bash -c 'while :; do printf %064d 0 >"/dev/udp/$1/5000"; sleep 0.1; done' - $computer
exits "a stranger's answers neither count nor lengthen the wait" 3 sync-time --device $controller --trace
lab_quiet "$lab_pid"
says "they were heard" "recvfrom 10.42.0.66:"
lab_pid=$sim_pid power_off
power_on
lab_send stranger $device 63 65 64
exits "a controller that was sent rubbish" 0 sync-time --device $controller
power_off
remembers "has objected to it" '([.objections[] | select(test("it has (63|65) bytes"))] | length) == 2'

# Any bytes, any number of them; only none that make an answer to a search.
power_on --loss 1
sim_pid=$lab_pid
# shellcheck disable=SC2016
lab_talk stranger bash -c \
  'while :; do head -c $((RANDOM % 100)) /dev/urandom | tr "\27" "\30" >"/dev/udp/$1/5000"; done' - $computer
exits "a flood of random bytes during a scan" 3 scan --trace
says "they were heard" "Received invalid packet size"
exits "a flood during an operation" 3 sync-time --device $controller --trace
says "they were heard then too" "Received invalid packet size"
lab_quiet "$lab_pid"
lab_pid=$sim_pid power_off

hostile=$(printf 'x\033[2J\nudp:y@10.0.0.1 \xff\xfe')
name=$hostile power_on
exits "a name of control bytes" 0 scan
check "is one line" test "$(wc -l <out.txt)" = 1
check "and harmless" bash -c '! grep -q $'"'\\x1B'"' out.txt err.txt'
exits "in JSON too" 0 scan --json
check "which stays JSON" jq -e 'length == 1' out.txt
power_off

# From port to port as fast as it goes, any bytes of the right length and of a wrong one.
head -c 640037 /dev/urandom >noise.bin
power_on --loss 1
sim_pid=$lab_pid
lab_flood stranger $computer noise.bin
exits "a torrent of random bytes during an operation" 3 sync-time --device $controller --trace
says "some were heard" "recvfrom 10.42.0.66:"
ctl scan >out.txt 2>err.txt
check "a search in it comes to its end" test $? != 124
lab_quiet "$lab_pid"
lab_pid=$sim_pid power_off
check "and lists as many as it can have heard" test "$(wc -l <out.txt)" -le 10
check "harmlessly" bash -c '! grep -q "[[:cntrl:]]" out.txt err.txt'

# --- WiFi

echo "correct horse" >password.txt
power_on
exits "an open network" 0 wifi-setup --device $controller --ssid Guests --security open
power_off
remembers "is kept" '.wifi == {ssid: "Guests", security: "open", encryption: "none", password: "", whole: true}'
no_objections "no frame of it was wrong"
power_on
exits "a protected network" 0 wifi-setup --device $controller --ssid "Café 1" --security wpa2 --password-file password.txt
power_off
remembers "is kept with its password" \
  '.wifi == {ssid: "Café 1", security: "wpa2", encryption: "aes", password: "correct horse", whole: true}'
no_objections "no frame of it was wrong"
power_on
check "a password from a pipe" lab_run computer bash -c \
  "echo tkip-password | ${command[*]} wifi-setup --device $controller --ssid Old --security wpa --encryption tkip --password-file -"
power_off
remembers "is kept" '.wifi | .password == "tkip-password" and .security == "wpa" and .encryption == "tkip"'
for security in open wpa2; do
  power_on --wrong-ack
  exits "a wrong acknowledgement, $security" 1 wifi-setup --device $controller --ssid Home --security $security \
    --password-file password.txt
  says "is an error" "Error setting "
  check "and final" test "$(grep -c "WiFi network" sim.log)" = 1
  power_off
done
remembers "the password was not sent" '.wifi.password == ""'
exits "a controller that is off" 3 wifi-setup --device $controller --ssid Home --security open
if $native; then
  power_on
  type_password() {
    lab_await grep -s "Password:" terminal.txt >/dev/null && printf 'typed onceX\177 more\n'
  }
  type_password | lab_run computer timeout "$limit" script -qefc \
    "${command[*]} wifi-setup --device $controller --ssid Home --security wpa2" terminal.txt >/dev/null
  power_off
  remembers "a password is typed, and corrected" '.wifi.password == "typed once more"'
  says_not "and does not show" "typed" terminal.txt
fi

# --- a computer with two adapters: a cable, by which it goes to the internet, and the controller's own network
# Under Wine all sockets are in the network in which Wine has begun.

if $native; then
  lab_computer laptop 10.42.0.5
  lab_cable laptop wlan0 192.168.4.2 point wlan0 192.168.4.1
  lab_simulator point point.log --name Smart-654321 || not_ok "the simulator listens"
  laptop() {
    lab_run laptop timeout "$limit" "${command[@]}" "${@:3}" >out.txt 2>err.txt
    ended "$1" "$2" $?
  }
  laptop "a scan goes out by the cable, and finds nobody" 3 scan
  check "as the page says, the system tells" grep -q "dev eth0" <(lab_run laptop ip route get 255.255.255.255)
  laptop "an address by hand needs no scan" 0 sync-time --device udp:Smart-654321@192.168.4.1
  lab_run laptop ip route add 255.255.255.255 dev wlan0
  laptop "with a route for it a scan goes out by the other one" 0 scan
  check "and finds the controller" diff out.txt - <<<"udp:Smart-654321@192.168.4.1  Smart-654321"
  lab_run laptop ip link set wlan0 down
  laptop "a controller whose network has gone" 3 sync-time --device udp:Smart-654321@192.168.4.1
  says "is no answer" "No answer from udp:Smart-654321@192.168.4.1."
  kill -TERM "$lab_pid"
  wait "$lab_pid" || not_ok "the simulator ends well"
fi

# --- the page on networks, followed to the letter, in a network inside this one

if $native; then
  page=$here/../../docs/networks.md
  beside() { env -u LAB_INSIDE PATH="$(dirname "${command[0]}"):$(dirname "$lab_simulator_program"):$PATH" "$@"; }
  line=$(sed -n 's/^ *\$ tests\/network\/\(with_tc421sim.sh tc421sim .*\)/\1/p' "$page")
  check "the page has a line with a search" test -n "$line"
  # shellcheck disable=SC2086
  beside "$here/"$line >page.txt 2>&1
  says "which finds the simulator" "udp:Smart-123456@10.42.0.2  Smart-123456" page.txt
  echo "correct horse" >password.txt
  sed -n '/with_tc421sim.sh --sim/,/exit/s/^  \(lumarinectl .*\)/\1/p' "$page" |
    sed '/wifi-setup/s/$/ --password-file password.txt/' >page.sh
  check "and more for the shell on the other computer" test "$(wc -l <page.sh)" -ge 3
  rm -f memory.json tank.xml
  check "which works" beside "$here/with_tc421sim.sh" --sim "--dump memory.json" tc421sim bash -e page.sh
  remembers "and leaves a controller with a program and a WiFi" \
    '.wifi.ssid == "Home" and .wifi.password == "correct horse" and (.banks | length) > 0 and all(.banks[]; .whole)'
  check "of which the log tells as on the page" grep -q '^10.42.0.1:5000  mode 1, ".*", of 48 steps$' tc421sim.log
fi

# --- what went over the wire, as tshark reads it

lab_captured computer all.pcap $device >/dev/null
kill -INT "$tcpdump_pid"
wait "$tcpdump_pid"
tshark -n -r all.pcap -Y 'not udp.dstport == 9' -o udp.check_checksum:TRUE -T fields -E separator=' ' \
  -e _ws.malformed -e eth.dst -e ip.dst -e udp.srcport -e udp.dstport -e udp.length -e udp.checksum.status -e udp.payload \
  >wire.txt 2>tshark.log || { not_ok "tshark reads it"; tail -n 3 tshark.log; }
check "everything is a datagram of 64 bytes with a good checksum, from port to port" \
  bash -c '[ -s wire.txt ] && ! grep -vE "^ [0-9a-f:]{17} [0-9.]+ 5000 5000 72 1 [0-9a-f]{128}$" wire.txt'
check "to the controllers and to everybody" diff <(cut -d ' ' -f 3 wire.txt | sort -u) \
  <(printf '%s\n' $device $second_device 255.255.255.255 | sort)
check "a search goes to everybody, and nothing else does" diff <(printf 'ff:ff:ff:ff:ff:ff 255.255.255.255 %s\n' \
  "55aa17000003ddeeff$(printf %0104d 0)e30000") <(grep -E ' 255\.|ff:ff| 55aa17' wire.txt | cut -d ' ' -f 2,3,8 | sort -u)
exits "the frames of an upload" 0 frames many.xml --model tc421-udp --device-name $name
# Mode frames only: command 01 and the end of a mode.
cut -d ' ' -f 8 wire.txt | tr a-f A-F | grep -E '^55AA0[14]' >sent.txt
check "are the first of those that were sent" diff out.txt <(head -n "$(wc -l <out.txt)" sent.txt)

finish
