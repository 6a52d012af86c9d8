#!/usr/bin/env bash
# The archive as scripts/package makes it. Made again, in another folder, language, hour and umask, it is the same, and it
# tells nothing of where it was made.
#   tests/package/archive_again_test.sh
# It takes root's rights and a Debian mirror.
set -uo pipefail
here=$(dirname "$(realpath "$0")")
. "$here/../support/checks.sh"
. "$here/installation.sh"
version=$(version_of "$here/../../CMakeLists.txt")
begin
check "it is made" "$here/make.sh" archive first
check "it is made again" "$here/make.sh" archive again --differently
name=lumarine-$version-linux-$(uname -m)
check "it is the same to the byte" cmp "first/$name.tar.xz" "again/$name.tar.xz"
check "it is unpacked" tar -xJf "first/$name.tar.xz"
holds_installation "$name" README.txt share/doc/lumarine/LICENSE share/lumarine/guide.html
check "no folder of the build is in it" test -z "$(grep -rlF /home/person "$name")"
programs_start "$name" "$version"
finish
