#!/usr/bin/env bash
# Whether the Windows packages are the same to the byte when they are built again elsewhere: in another folder, another time
# zone, another language, with other rights, and without what an earlier build has left.
#   tests/package/windows_again_test.sh
. "$(dirname "$0")/../support/checks.sh"
root=$(realpath "$(dirname "$0")/../..")

begin
export SOURCE_DATE_EPOCH=1700000000 CCACHE_DISABLE=1
# The tree as it is, committed or not.
build_in() {
  mkdir -p "$1/source/build" "$1/out"
  (cd "$root" && git ls-files -z --cached --others --exclude-standard | xargs -0 cp --parents -t "$work/$1/source")
  [ ! -d "$root/build/deps" ] || ln -s "$root/build/deps" "$1/source/build/deps"
  "$1/source/packaging/windows/build" "$1/source" "$1/out"
}
build_elsewhere() {
  umask 027
  TZ=Asia/Tokyo LC_ALL=C LANG=C build_in "$1"
}
check "they are built" build_in here
check "they are built again" build_elsewhere "there, in a folder of another length"
check "there are two" test "$(find here/out -type f | wc -l)" = 2
check "both are equal" diff -r here/out "there, in a folder of another length/out"
finish
