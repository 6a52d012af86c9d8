#!/usr/bin/env bash
# A clean Debian system that has what the programs are built with, as Debian's package names it.
#   packaging/build_root.sh ROOT ARCH
# Makes it in the folder ROOT (root.sh). Its compilers run here; the libraries are ARCH's, so another than this machine's is
# built for by cross compilers.
set -euo pipefail
[ $# = 2 ] || { sed -n '3s/^# //p' "$0" >&2; exit 2; }
here=$(cd "$(dirname "$0")" && pwd)
arch=$2
cross=()
[ "$arch" = amd64 ] || cross=(--host-architecture "$arch" --build-profiles=cross,nocheck)
# The language is for builds that differ from others in what must not matter.
"$here/root.sh" make "$1" "build-$arch" <<SCRIPT
dpkg --add-architecture $arch
apt-get update -qq
apt-get install -qq build-essential lintian locales $([ "$arch" = amd64 ] || echo "crossbuild-essential-$arch")
localedef -i tr_TR -f UTF-8 tr_TR.UTF-8
mkdir -p /tmp/lumarine/debian
cat >/tmp/lumarine/debian/control <<'CONTROL'
$(cat "$here/debian/control.in")
CONTROL
apt-get build-dep -qq ${cross[*]} /tmp/lumarine
rm -r /tmp/lumarine
apt-get clean
SCRIPT
