#!/usr/bin/env bash
# A package made again, in another folder, language, hour and umask, is the same.
#   tests/package/debian_again_test.sh DEB
# It takes root's rights and a Debian mirror.
set -uo pipefail
here=$(realpath "$(dirname "$0")")
deb=$(realpath "$1")
. "$here/../support/checks.sh"
begin
check "it is made again" "$here/make.sh" debian again --arch "$(dpkg-deb -f "$deb" Architecture)" --differently
check "it is the same to the byte" cmp "$deb" again/*.deb
cmp -s "$deb" again/*.deb || diffoscope --text-color never "$deb" again/*.deb | head -n 60 | sed 's/^/# /'
finish
