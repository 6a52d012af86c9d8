#!/usr/bin/env bash
# Saving where the disk itself says no: full at each size, read-only from some moment on, a folder that takes no new files, a
# file that is mounted by itself. What is mounted ends with this script.
#   disks_test.sh LUMARINECTL
# shellcheck disable=SC2317   # the checks call functions by their names
set -uo pipefail
here=$(dirname "$(realpath "$0")")
if [ -z "${DISKS_INSIDE:-}" ]; then
  options=(--mount)
  [ "$(id -u)" = 0 ] || options+=(--map-root-user)
  if unshare "${options[@]}" mount -t tmpfs disk /mnt 2>/dev/null; then
    DISKS_INSIDE=1 exec unshare "${options[@]}" "$0" "$@"
  fi
fi
. "$here/../support/checks.sh"
export LC_ALL=C.UTF-8
[ -n "${DISKS_INSIDE:-}" ] || skip "no disk can be mounted here"
lumarinectl=$(realpath "$1")
begin
ctl() { timeout 60 "$lumarinectl" "$@"; }

mkdir home home/Documents tmp disk
export HOME=$work/home TMPDIR=$work/tmp
ctl generate sun old.xml --place Berlin --date 2026-12-21 --program "$here/../../examples/reef-day.xml" 2>err.txt >out.txt
ctl new new.xml 2>err.txt
change=(--mode 1 --power 1=33.3)

is_old() { cmp "$1" old.xml; }
is_edited() { cmp "$1" edited.xml; }
nothing_else() { test "$(find disk home tmp -type f -o -type l | grep -cv '^disk/\(tank\|twin\|ballast\)')" = 0; }
cp old.xml edited.xml
ctl edit edited.xml edited.xml "${change[@]}" 2>err.txt

# --- a disk of so many bytes

mount -t tmpfs -o size=256k disk disk
size=$(stat -c %s old.xml)
refused=0
saved=0
for room in $(seq 0 4096 $((3 * size))); do
  cp old.xml disk/tank.xml
  free=$(($(df --output=avail -B1 disk | tail -n 1) - room))
  [ "$free" -lt 0 ] || head -c "$free" /dev/zero >disk/ballast
  if ctl edit disk/tank.xml disk/tank.xml "${change[@]}" 2>err.txt; then
    saved=$((saved + 1))
    is_edited disk/tank.xml >/dev/null || not_ok "$room bytes of room: saved, and not the new file"
  else
    refused=$((refused + 1))
    grep -q "No space left on device" err.txt || not_ok "$room bytes of room: the reason is told"
    is_old disk/tank.xml >/dev/null || not_ok "$room bytes of room: the old file is whole"
  fi
  nothing_else || not_ok "$room bytes of room: nothing is left"
  rm -f disk/ballast
  ctl edit disk/tank.xml disk/tank.xml "${change[@]}" 2>err.txt || not_ok "$room bytes of room: works behind it"
done
echo "# refused $refused times, saved $saved times"
check "a full disk refuses a save" test "$refused" -gt 0
check "one with room takes it" test "$saved" -gt 0

# --- a full disk, and a file that must be written in place: the copy finds room elsewhere

cp old.xml disk/tank.xml
ln disk/tank.xml disk/twin.xml
head -c 1M /dev/zero >disk/ballast 2>/dev/null
exits "a file with two names on a full disk is written in place" 0 edit disk/tank.xml disk/tank.xml "${change[@]}"
check "it is the new file" is_edited disk/tank.xml
check "by both names" is_edited disk/twin.xml
check "no copy is left" nothing_else
for _ in 1 2 3 4 5 6 7 8; do cat old.xml; done | head -c 200k >/dev/null
cp "$here/../../examples/planted-tank.xml" many.xml
for i in $(seq 12); do ctl convert many.xml old.xml "many-$i.xml" 2>err.txt && mv "many-$i.xml" many.xml; done
check "a program is longer than the old file" test "$(stat -c %s many.xml)" -gt $((size + 8192))
cp old.xml disk/tank.xml
exits "a longer one does not fit there" 4 edit many.xml disk/tank.xml "${change[@]}"
says "the reason is told" "No space left on device"
check "the old content was put back" is_old disk/tank.xml
check "by both names" is_old disk/twin.xml
check "no copy is left then, either" nothing_else
rm disk/ballast disk/twin.xml

# --- a disk that has become read-only, as after an error

cp old.xml disk/tank.xml
mount -o remount,ro disk
exits "a read-only disk refuses a save" 4 edit disk/tank.xml disk/tank.xml "${change[@]}"
says "the reason is told" "Read-only file system"
check "the old file is whole" is_old disk/tank.xml
exits "it can be read" 0 info disk/tank.xml
mount -o remount,rw disk

# --- a file that is mounted by itself

cp old.xml disk/tank.xml
touch disk/tank-mounted.xml
mount --bind disk/tank.xml disk/tank-mounted.xml
exits "a file that is mounted by itself is written in place" 0 edit disk/tank-mounted.xml disk/tank-mounted.xml \
  "${change[@]}"
check "it is the new file" is_edited disk/tank.xml
check "no copy is left" nothing_else
umount disk/tank-mounted.xml
rm disk/tank-mounted.xml

# --- a folder that takes no new files, though a file in it may be written

# Root may write everywhere.
as_user() { "$@"; }
[ "$(awk '$1 == 0 { print $2; exit }' /proc/self/uid_map)" != 0 ] || as_user() {
  setpriv --reuid=65534 --regid=65534 --clear-groups "$@"
}
if as_user true 2>/dev/null && [ "$(as_user id -u)" != 0 ]; then
  ctl() { as_user timeout 60 "$lumarinectl" "$@"; }
  chmod 711 "$work"
  chmod -R a+rX "$work" && chmod 777 home home/Documents tmp
  cp old.xml disk/tank.xml
  chmod 666 disk/tank.xml
  chmod 555 disk
  exits "in a folder that takes no new file the file is written in place" 0 edit disk/tank.xml disk/tank.xml "${change[@]}"
  check "it is the new file" is_edited disk/tank.xml
  check "no copy is left" nothing_else
  exits "a new file is refused there" 4 new disk/tank-2.xml
  says "the reason is told" "Permission denied"
  cp old.xml disk/tank.xml
  chmod 555 home home/Documents tmp
  exits "where no copy can be kept either the save is refused" 4 edit disk/tank.xml disk/tank.xml "${change[@]}"
  check "the old file is whole" is_old disk/tank.xml
  chmod 755 disk home home/Documents tmp
  chmod 444 disk/tank.xml
  exits "a file that is protected stays so" 4 edit disk/tank.xml disk/tank.xml "${change[@]}"
  check "the old file is whole" is_old disk/tank.xml
else
  echo "# without a folder that takes no new files: nobody else to be"
fi
umount disk
finish
