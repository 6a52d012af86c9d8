#!/usr/bin/env bash
# The tar archive as somebody with another kind of Linux has it: unpacked anywhere, or copied into a prefix.
#   archive_test.sh BUILD     the folder of an optimised build
set -uo pipefail
here=$(dirname "$(realpath "$0")")
. "$here/../support/checks.sh"
. "$here/installation.sh"
. "$here/hardening.sh"
root=$(realpath "$here/../..")
build=$(realpath "$1")
version=$(version_of "$root/CMakeLists.txt")
for command in rsvg-convert readelf xz; do
  command -v "$command" >/dev/null || skip "the archive: $command is not installed"
done

begin
name=lumarine-$version-linux-$(uname -m)
mkdir out
SOURCE_DATE_EPOCH=1700000000 check "it is packed" "$root/packaging/archive/pack" "$build" out
check "there is one file" test "$(ls out)" = "$name.tar.xz"
check "it is unpacked" tar -xJf "out/$name.tar.xz"
more=(README.txt share/doc/lumarine/LICENSE)
grep -q LUMARINE_GUIDE:BOOL=OFF "$build/CMakeCache.txt" || more+=(share/lumarine/guide.html)
holds_installation "$name" "${more[@]}"
programs_start "$name" "$version"
for program in "$name"/bin/* "$name"/libexec/lumarine/*; do hardened "${program##*/}" "$program"; done

listed=$(TZ=UTC tar -tvJf "out/$name.tar.xz" --full-time --numeric-owner)
check "all is root's" test -z "$(grep -v ' 0/0 ' <<<"$listed")"
check "all is of the same time" test -z "$(grep -v ' 2023-11-14 22:13:20 ' <<<"$listed")"
check "everybody may read it, root alone write" test -z "$(grep -vE '^(d|-)rw[x-]r-[x-]r-[x-] ' <<<"$listed")"

# What is written on it.
words=$name/README.txt
says "it tells the version" "Lumarine $version for Linux" "$words"
check "it tells what it needs" grep -qE '^Qt 6\.[0-9]+ or newer, hidapi, glibc 2\.[0-9]+ or newer, .* GLIBCXX_3\.4\.[0-9]+' "$words"
check "nothing is left to fill in" test -z "$(grep '@' "$words")"
loaded() { ldd "$@" | awk '$2 == "=>" { print $1 }' | sort -u; }
# All of them, and those that they load themselves in turn.
not_loaded=$(sed -nE 's/^  (lib[a-zA-Z0-9_+-]*\.so\..*)/\1/p' "$words" | sort | comm -23 - <(loaded "$name"/bin/* "$name"/libexec/lumarine/*))
check "the libraries that it names are loaded" test -z "$not_loaded"
says "Qt is among them" "  libQt6Widgets.so.6" "$words"
check "lumarinectl loads no Qt" test -z "$(loaded "$name/bin/lumarinectl" | grep Qt)"

# Into a prefix and out of it again, by the lines that are written on it.
mkdir -p prefix/bin prefix/share
touch prefix/bin/others prefix/share/others
copy=$(sed -n 's#^  sudo \(cp .*\) /usr/local/$#\1#p' "$words")
(cd "$name" && eval "$copy ../prefix/")
programs_start prefix "$version"
remove=$(sed -n 's#^  \(tar -tf \)\.\.\.\(.*\)sudo \(.*\)#\1../out\2\3#p' "$words")
(cd prefix && eval "$remove")
check "nothing of it is left, and nothing else is gone" test "$(cd prefix && find . -type f | sort | tr '\n' ' ')" = "./bin/others ./share/others "
finish
