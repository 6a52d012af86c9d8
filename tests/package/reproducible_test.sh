#!/usr/bin/env bash
# Whether a part of scripts/package is the same to the byte when it is built again elsewhere: in another folder, another
# time zone, another language, with other rights, and without what an earlier build has left.
#   reproducible_test.sh PART
set -uo pipefail
here=$(dirname "$(realpath "$0")")
. "$here/../support/checks.sh"
root=$(realpath "$here/../..")
part=$1

begin
export SOURCE_DATE_EPOCH=1700000000 CCACHE_DISABLE=1
# The tree as it is, committed or not.
build_in() {
  mkdir -p "$1/source" "$1/out"
  (cd "$root" && git ls-files -z --cached --others --exclude-standard | xargs -0 cp --parents -t "$work/$1/source")
  "$1/source/packaging/$part/build" "$1/source" "$1/out" >"$1/log" 2>&1 || { tail -n 8 "$1/log"; return 1; }
}
build_elsewhere() {
  umask 027
  TZ=Asia/Tokyo LC_ALL=C LANG=C build_in "$1"
}
check "it is built" build_in here
check "it is built again" build_elsewhere "there, in a folder of another length"
check "there are files" test -n "$(ls here/out)"
check "all are equal" diff -r here/out "there, in a folder of another length/out"
# The first folder's name is not in the second, nor the other way round, if they are equal; nor is that of both.
mkdir open
for file in here/out/*.tar.xz; do [ ! -e "$file" ] || tar -xJf "$file" -C open; done
check "no folder of the build is in them" test -z "$(grep -rlaF "$work" open)"
finish
