#!/usr/bin/env bash
# lumarinectl doctor on computers with faults that were made on purpose: adapters, routes, ports, firewalls, folders. And
# a password that went to a controller, looked for in every byte of a bundle.
#   tests/network/doctor_test.sh LUMARINECTL TC421SIM
# Skipped where no namespaces can be made.
# shellcheck disable=SC2317   # the checks call functions by their names
set -uo pipefail
export LC_ALL=C.UTF-8  # messages are compared

[ $# = 2 ] || { echo "usage: $0 LUMARINECTL TC421SIM" >&2; exit 2; }
. "$(dirname "$0")/lab.sh"
. "$(dirname "$0")/../support/checks.sh"
lab_enter "$0" "$@" || skip "computers with faults: $lab_reason"

lumarinectl=$(realpath "$1")
lab_simulator_program=$(realpath "$2")
begin
mkdir -p home/Documents
export HOME=$work/home

# examines COMPUTER: the report is in report.json.
examines() { lab_run "$1" "$lumarinectl" doctor --json >report.json 2>err.txt; }
# finds NAME ID SIGN TEXT: of the last report.
finds() {
  check "$1" jq -e --arg id "$2" --arg sign "$3" --arg text "$4" \
    '.findings[] | select(.id == $id) | .sign == $sign and (.found + " " + .advice | contains($text))' report.json
}
has_no() { check "$1" jq -e --arg id "$2" 'all(.findings[]; .id != $id)' report.json; }

# --- one adapter, a router, no firewall

lab_computer computer 10.42.0.1
lab_computer controller 10.42.0.2
examines computer
ended "a computer without faults" 0 $?
check "nothing is said beside the report" test ! -s err.txt
finds "the port is free" udp-port good "It is free."
finds "the adapter is named with its address" network-adapters good "eth0 (10.42.0.1)"
finds "a scan leaves by it" broadcast good "eth0"
finds "the folder can be written" documents-folder good "$HOME/Documents"
check "and nothing is left in it" test -z "$(ls home/Documents)"

# --- adapters and routes

ip netns add alone
ip -n alone link set lo up
examines alone
ended "a loopback alone is nothing broken" 0 $?
finds "a loopback is no network" network-adapters look "in no network"
has_no "and no scan is looked at" broadcast

ip link add port-mute type veth peer name eth0 netns alone
ip link set port-mute master switch up
ip -n alone link set eth0 up
examines alone
finds "an adapter without an address" network-adapters look "No address has: eth0"
ip -n alone addr add 169.254.7.7/16 dev eth0
examines alone
finds "one that has given itself an address" network-adapters look "eth0 (169.254.7.7)"
ip -n alone addr flush dev eth0
ip -n alone addr add 10.42.0.9/24 brd + dev eth0
examines alone
ended "a network without a router is broken" 1 $?
finds "a scan cannot leave" broadcast broken "ip route add 255.255.255.255 dev eth0"
ip -n alone route add 255.255.255.255 dev eth0
examines alone
finds "what is advised helps" broadcast good "eth0"

lab_cable computer eth1 10.43.0.1 tank eth0 10.43.0.2
examines computer
ended "two adapters are nothing broken" 0 $?
finds "the one by which no scan leaves is named" broadcast look "leaves by eth0 only, not by eth1 (10.43.0.1)"
ip -n computer link del eth1

if ip -n computer tuntap add tun0 mode tun 2>tun.txt; then
  ip -n computer addr add 10.8.0.2/24 dev tun0
  ip -n computer link set tun0 up
  ip -n computer route add 255.255.255.255 dev tun0
  examines computer
  finds "a scan leaves into a tunnel" broadcast broken "tun0, which leads past your own network: eth0"
  ip -n computer tuntap del tun0 mode tun
else
  echo "# no tunnel can be made here: $(cat tun.txt)"
fi

# --- the port

lab_simulator computer sim.log || not_ok "the simulator listens"
examines computer
ended "a port that is taken is broken" 1 $?
finds "who has the port is named" udp-port broken "tc421sim ($lab_pid)"
kill -TERM "$lab_pid"
wait "$lab_pid"

# --- a firewall

rules() { lab_run computer nft "$@"; }
if command -v nft >/dev/null && rules add table inet wall 2>nft.txt; then
  rules add chain inet wall input '{ type filter hook input priority 0; policy drop; }'
  rules add rule inet wall input ct state established,related accept 2>/dev/null
  examines computer
  ended "a firewall that is shut is broken" 1 $?
  finds "a firewall that lets nothing in" firewall broken "nftables does not let UDP port 5000 in"
  rules add rule inet wall input udp dport '{ 53, 5000 }' accept
  examines computer
  finds "one that lets the port in" firewall good "nftables lets UDP port 5000 in"
  rules delete table inet wall
  examines computer
  finds "none" firewall good "There is none."
else
  echo "# no firewall can be made here: $(cat nft.txt 2>/dev/null)"
fi

# --- files

printf '<config>\r\n  <logging>on</config>' >home/Documents/LumarineConfig.xml
examines computer
ended "settings that are damaged are broken" 1 $?
finds "they are no XML" settings broken "no XML"
printf '<config>\r\n  <logging>on</logging>\r\n  <last_open_file>%s/tank.xml</last_open_file>\r\n</config>\r\n' "$HOME" \
  >home/Documents/LumarineConfig.xml
examines computer
finds "settings that are whole" settings good "can be read and written"
finds "logging is on" device-log good "Logging is on"

# Root may write everywhere, but for what is mounted so.
mount --bind home/Documents home/Documents && mount -o remount,ro,bind home/Documents
examines computer
ended "a folder that cannot be written is broken" 1 $?
finds "the folder" documents-folder broken "Read-only file system"
finds "and the settings in it" settings broken "Read-only file system"
umount home/Documents

# --- a password, on its way through everything

password='coral & "secret" 42'
ssid='Reef in the cellar'
lab_simulator controller sim.log --name Smart-123456 || not_ok "the simulator listens"
printf '%s\n' "$password" | lab_run computer "$lumarinectl" wifi-setup --device udp:Smart-123456@10.42.0.2 \
  --ssid "$ssid" --security wpa2 --password-file - --trace 2>home/Documents/LumarineLog.txt
ended "WiFi is set up" 0 $?
kill -TERM "$lab_pid"
wait "$lab_pid"

# shows TEXT FOLDER: in a file there as it is, in the digits of a dump or in the letters beside it, over all rows.
shows() {
  local hex file
  hex=$(printf '%s' "$1" | od -An -tx1 | tr -d ' \n' | tr a-f A-F)
  for file in "$2"/*; do
    ! grep -qF -- "$1" "$file" || return 0
    ! cut -c7-55 "$file" | tr -d ' \r\n' | grep -qF "$hex" || return 0
    ! cut -c59- "$file" | tr -d ' \r\n' | grep -qF -- "${1// /}" || return 0
  done
  return 1
}
shows_not() { ! shows "$@"; }
check "the password is in the log" shows "$password" home/Documents
check "in its dumps, too" shows "$(printf '%s' "$password" | cut -c3-)" home/Documents

lab_run computer "$lumarinectl" doctor --bundle question.zip --yes >out.txt 2>err.txt
ended "a bundle" 0 $?
says "it is shown first" "report.json"
check "unzip finds it whole" unzip -tq question.zip
check "and so does Python" python3 -m zipfile -t question.zip
mkdir bundle && unzip -q question.zip -d bundle
check "the log is in it" grep -q "Packet_SetWiFi_Password(Password=(struck out)" bundle/LumarineLog.txt
for secret in "$password" "$ssid" "$HOME"; do
  check "not in the bundle: ${secret/$work/}" shows_not "$secret" bundle
done
for ((i = 0; i + 5 <= ${#password}; ++i)); do
  check "no part of the password either ($i)" shows_not "${password:i:5}" bundle
done
lab_run computer "$lumarinectl" doctor --show LumarineLog.txt >shown.txt 2>err.txt
check "what is shown is what is packed" cmp shown.txt bundle/LumarineLog.txt
finish
