#!/usr/bin/env bash
# The package for 64-bit ARM, installed in a clean Debian system and run under qemu; what it writes is held against what
# the package for PCs writes. The archive starts there, too.
#   tests/package/arm64_test.sh ARM64_DEB AMD64_DEB ARM64_ARCHIVE
# It takes root's rights and a Debian mirror.
set -uo pipefail

[ $# = 3 ] || { echo "usage: $0 ARM64_DEB AMD64_DEB ARM64_ARCHIVE" >&2; exit 2; }
here=$(realpath "$(dirname "$0")")
debs=("$(realpath "$1")" "$(realpath "$2")")
archive=$(realpath "$3")
. "$here/../support/checks.sh"
. "$here/clean_root.sh"
begin root_end

root_begin --foreign arm64 arm64-test qemu-user-static xz-utils file jq librsvg2-bin libxml2-utils python3 unzip xvfb
home=$root/home/person
system() { "$root_sh" run "$root" "$@"; }
person() { "$root_sh" run --person "$root" "$@"; }
qemu=/usr/bin/qemu-aarch64-static

(cd "$here/../.." && "$root_sh" run --person "$root" mkdir checks && cp -R --parents tests/support tests/cli examples "$home/checks/")

# end_to_end NAME [EMULATOR]: all that the command line does, by NAME/lumarinectl. Its checks count here, too.
end_to_end() {
  # It asks for the rule where there is none yet.
  rm -f "$root/usr/lib/udev/rules.d/70-lumarine.rules"
  person env GTEST_OUTPUT= bash checks/tests/cli/end_to_end.sh "${2:-} $1/lumarinectl" "$1-output" >"$1.txt" 2>&1
  check "$1: the command line end to end" test $? = 0
  grep -E -A3 '^not ok ' "$1.txt"
  grep -E '^(not )?ok ' "$1.txt" | sed "s/ok /&$1: /" >>"$counted"
}
# draw NAME [EMULATOR]: pictures of an example. A PDF is another each time: Qt writes its date and orders its fonts anew.
draw() {
  local kind
  for kind in svg png; do
    check "$1: a picture is drawn, $kind" person ${2:-} "$1/lumarinectl" render checks/examples/reef-day.xml "$1-output/day.$kind" --time 12:00
  done
}

cp "${debs[0]}" "$root/tmp/arm64.deb"
cp "${debs[1]}" "$root/tmp/amd64.deb"
check "the package for ARM is installed, with all that it needs" system apt-get -q -y install /tmp/arm64.deb
check "it is for ARM" grep -q "ARM aarch64" <(system file -b /usr/bin/lumarinectl /usr/bin/lumarine /usr/libexec/lumarine/lumarine-render)
check "the desktop program starts" grep -q "^Lumarine" <(person env QT_QPA_PLATFORM=offscreen $qemu /usr/bin/lumarine --version)

# The package has brought the libraries that the archive names.
cp "$archive" "$root/tmp/archive.tar.xz"
check "the archive for ARM is unpacked" person tar -xJf /tmp/archive.tar.xz
unpacked=$(basename "$archive" .tar.xz)
check "its programs are for ARM" test "$(person file -b "$unpacked"/bin/{lumarinectl,lumarine} "$unpacked"/libexec/lumarine/lumarine-render | grep -c "ARM aarch64")" = 3
for program in lumarinectl lumarine; do
  check "$program of the archive starts" grep -q "^Lumarine" <(person env QT_QPA_PLATFORM=offscreen $qemu "$unpacked/bin/$program" --version)
done
says "what is written on it tells what it needs" "  libQt6Widgets.so.6" "$home/$unpacked/README.txt"
# Debian compresses its pages and has papers of its own.
same_everywhere() { sed 's/\.gz$//; s#zsh/vendor-completions#zsh/site-functions#' | grep -v '^share/doc/lumarine/[a-zA-Z]*$' | sort; }
(cd "$home/$unpacked" && find [bls]* -type f) | same_everywhere >in-archive
system dpkg -L lumarine | sed -n 's#^/usr/##p' | while read -r file; do
  [ ! -f "$root/usr/$file" ] || echo "$file"
done | same_everywhere >in-package
check "it holds the same files as the package" diff in-archive in-package
check "these are many" test "$(wc -l <in-archive)" -gt 25

# A kernel that knows nothing of qemu cannot start one program for ARM from another: a script does.
person mkdir arm64
cp "$root/usr/bin/lumarinectl" "$home/arm64/"
printf '#!/bin/sh\nexec %s /usr/libexec/lumarine/lumarine-render "$@"\n' $qemu >"$home/arm64/lumarine-render"
chmod 755 "$home"/arm64/*
end_to_end arm64 $qemu
draw arm64 $qemu

check "the package for PCs takes its place" system apt-get -q -y install /tmp/amd64.deb
check "it is for PCs" grep -q "x86-64" <(system file -b /usr/bin/lumarinectl)
person mkdir amd64
cp "$root/usr/bin/lumarinectl" "$root/usr/libexec/lumarine/lumarine-render" "$home/amd64/"
end_to_end amd64
draw amd64

check "both have written something" test "$(find "$home/arm64-output" -type f | wc -l)" -gt 60
check "both have written the same bytes" diff -r "$home/arm64-output" "$home/amd64-output"
cat check.log
finish
