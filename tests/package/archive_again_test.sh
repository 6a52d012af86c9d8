#!/usr/bin/env bash
# The archive as scripts/package makes it. Made again, in another folder, language, hour and umask, it is the same, and it
# tells nothing of where it was made.
#   tests/package/archive_again_test.sh
# It takes root's rights and a Debian mirror.
set -uo pipefail
here=$(dirname "$(realpath "$0")")
. "$here/../support/checks.sh"
. "$here/installation.sh"
cd "$here/../.." || exit 1
root=$PWD
version=$(version_of CMakeLists.txt)
begin
SOURCE_DATE_EPOCH=$(git -C "$root" log -1 --format=%ct)
LUMARINE_ROOTS=${LUMARINE_ROOTS:-$root/build/package/roots}
export SOURCE_DATE_EPOCH LUMARINE_ROOTS
# The tree as it is, committed or not.
mkdir source first again
git -C "$root" ls-files -z --cached --others --exclude-standard |
  tar -C "$root" --null --ignore-failed-read -T - -c 2>/dev/null | tar -x -C source
check "it is made" source/packaging/archive/build source first
check "it is made again" source/packaging/archive/build --differently source again
name=lumarine-$version-linux-$(uname -m)
check "it is the same to the byte" cmp "first/$name.tar.xz" "again/$name.tar.xz"
check "it is unpacked" tar -xJf "first/$name.tar.xz"
holds_installation "$name" README.txt share/doc/lumarine/LICENSE share/lumarine/guide.html
check "no folder of the build is in it" test -z "$(grep -rlF /home/person "$name")"
programs_start "$name" "$version"
finish
