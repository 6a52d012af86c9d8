#!/usr/bin/env bash
# Clean Debian systems, each in a folder of its own, to build packages in and to try them.
#   packaging/root.sh make ROOT [NAME <SCRIPT]
#       Makes one in the folder ROOT, which must not exist: what Debian calls minimal, its package lists, and a user
#       "person". With a NAME, SCRIPT is run in it with sh, as root and with the network, and what came of it is kept:
#       the next root of that NAME is there at once, for a week or until the script is another.
#   packaging/root.sh run [OPTION...] ROOT COMMAND [ARGUMENT...]
#       Runs a command in it, with namespaces of its own for mounts and processes. So nothing stays mounted, and what the
#       command started ends with it. Its environment is bare, its folder the user's home.
#         --person         as that user; otherwise as root
#         --offline        without a network
#         --env NAME=VALUE
#   packaging/root.sh remove ROOT
# What is kept is in LUMARINE_ROOTS, or in build/package/roots. It takes root's rights, and asks sudo for them.
set -euo pipefail
[ "$(id -u)" = 0 ] || exec sudo --preserve-env=LUMARINE_ROOTS "$0" "$@"

usage() { sed -n '3,14s/^# //p' "$0" >&2; exit 2; }
kept=${LUMARINE_ROOTS:-$(cd "$(dirname "$0")/.." && pwd)/build/package/roots}

make() {
  local root=$1 name=${2:-}
  [ ! -e "$root" ] || { echo "packaging/root.sh: $root is there already" >&2; exit 1; }
  mkdir -p "$root" "$kept"
  if [ -z "$name" ]; then
    unpack "$root" minimal "" minimal
  else
    unpack "$root" "$name" "$(cat)" prepared
  fi
}

# unpack ROOT NAME SCRIPT MAKER: from what is kept; what is not is made by MAKER ROOT SCRIPT.
unpack() {
  local root=$1 tar
  tar=$kept/$2-$({ declare -f minimal; echo "$3"; } | sha256sum | cut -c 1-16).tar
  exec {lock}>"$kept/.lock-$2"
  flock "$lock"
  if [ -z "$(find "$tar" -mtime -7 2>/dev/null)" ]; then
    rm -f "$kept/$2"-*.tar
    "$4" "$root" "$3" >&2
    tar -C "$root" --numeric-owner -cf "$tar.new" .
    mv "$tar.new" "$tar"
  else
    tar -C "$root" --numeric-owner -xf "$tar"
  fi
  exec {lock}>&-
}

minimal() {
  local root=$1 mirror=http://deb.debian.org
  debootstrap --arch=amd64 --variant=minbase bookworm "$root" $mirror/debian
  cat >"$root/etc/apt/sources.list" <<-SOURCES
	deb $mirror/debian bookworm main
	deb $mirror/debian bookworm-updates main
	deb $mirror/debian-security bookworm-security main
	SOURCES
  # How this machine reaches the mirror.
  apt-config dump 2>/dev/null | grep -E '^Acquire::(Check-|https?::.*Proxy)' >"$root/etc/apt/apt.conf.d/80machine" || true
  # Nothing is left of a download, and no service starts.
  cat >"$root/etc/apt/apt.conf.d/80root" <<-CONF
	APT::Install-Recommends "false";
	APT::Keep-Downloaded-Packages "false";
	Dpkg::Use-Pty "false";
	Acquire::Languages "none";
	CONF
  printf '#!/bin/sh\nexit 101\n' >"$root/usr/sbin/policy-rc.d"
  chmod 755 "$root/usr/sbin/policy-rc.d"
  chroot "$root" useradd --create-home --uid 1000 --shell /bin/bash person
  run "$root" sh -c 'apt-get update -qq && apt-get upgrade -qq && apt-get clean'
}

prepared() {
  local root=$1 script=$2
  unpack "$root" minimal "" minimal
  run "$root" sh -ec "$script"
}

run() {
  local user=root home=/root network=() environment=()
  while true; do
    case ${1:-} in
      --person) user=person home=/home/person; shift ;;
      --offline) network=(--net); shift ;;
      --env) environment+=("$2"); shift 2 ;;
      *) break ;;
    esac
  done
  [ $# -ge 2 ] || usage
  local root=$1
  shift
  [ -e "$root/etc/debian_version" ] || { echo "packaging/root.sh: $root is no root" >&2; exit 1; }
  [ ${#network[@]} != 0 ] || cp -L /etc/resolv.conf "$root/etc/resolv.conf"
  # unshare itself heeds no other signal, and all in there ends with it.
  local status=0 system=
  trap '[ -z "$system" ] || kill -KILL "$system"; exit 143' INT TERM
  # The shell stays, as the first process: it buries what others leave.
  # shellcheck disable=SC2016
  unshare --mount --propagation private --pid --ipc --uts "${network[@]}" --fork --kill-child bash -ec '
    root=$1 user=$2 home=$3 offline=$4
    shift 4
    hostname lumarine
    # Without a network a computer still has itself.
    [ -z "$offline" ] || ip link set lo up
    mount -t proc proc "$root/proc"
    mount -t sysfs -o ro sysfs "$root/sys" 2>/dev/null || true
    mount -t devpts -o newinstance,ptmxmode=0666,gid=5 devpts "$root/dev/pts"
    mount -t tmpfs -o mode=1777 tmpfs "$root/dev/shm"
    status=0
    chroot "$root" setpriv --reuid "$user" --regid "$user" --init-groups \
      env -i -C "$home" HOME="$home" USER="$user" LOGNAME="$user" SHELL=/bin/bash LC_ALL=C.UTF-8 TERM=dumb \
      PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin DEBIAN_FRONTEND=noninteractive "$@" || status=$?
    exit $status' - "$root" "$user" "$home" "${network[*]}" "${environment[@]}" "$@" <&0 &
  system=$!
  wait "$system" || status=$?
  trap - INT TERM
  return $status
}

case ${1:-} in
  make) [ $# = 2 ] || [ $# = 3 ] || usage; make "${@:2}" ;;
  run) run "${@:2}" ;;
  remove) [ $# = 2 ] || usage; [ ! -e "$2" ] || rm -rf --one-file-system "$2" ;;
  *) usage ;;
esac
