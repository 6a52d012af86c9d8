#!/usr/bin/env bash
# scripts/package in a small repository, with parts that are soon made: what it refuses, what it hands to the parts, and
# what it finds out of their files.
#   scripts_package_test.sh
set -uo pipefail
here=$(dirname "$(realpath "$0")")
. "$here/../support/checks.sh"
for command in git xz unzip dpkg-deb strings; do
  command -v "$command" >/dev/null || skip "scripts/package: $command is not installed"
done

begin
mkdir -p scripts packaging/{archive,debian,windows}
cp "$here/../../scripts/package" scripts/
echo 'project(Lumarine VERSION 4.7.496 LANGUAGES CXX)' >CMakeLists.txt
printf '/build/\n/out.txt\n/err.txt\n/check.log\n/.counted\n' >.gitignore
cat >scripts/setup <<'END'
#!/usr/bin/env bash
mkdir -p build && echo "$1" >build/set-up
END
cat >packaging/archive/build <<'END'
#!/usr/bin/env bash
arch=amd64
if [ "$1" = --arch ]; then arch=$2; shift 2; fi
mkdir -p "$1/work/lumarine/bin"
printf 'an ELF\0Lumarine 4.7 build 496\0and more' >"$1/work/lumarine/bin/lumarinectl"
tar -cJf "$2/lumarine-linux-$arch.tar.xz" -C "$1/work" lumarine
echo "$SOURCE_DATE_EPOCH $1" >"$2/../told"
END
cat >packaging/debian/build <<'END'
#!/usr/bin/env bash
arch=amd64
if [ "$1" = --arch ]; then arch=$2; shift 2; fi
mkdir -p "$1/work-$arch/DEBIAN"
printf 'Package: lumarine\nVersion: 4.7.496\nArchitecture: %s\nMaintainer: none\nDescription: none\n' "$arch" >"$1/work-$arch/DEBIAN/control"
dpkg-deb --build "$1/work-$arch" "$2/lumarine_$arch.deb"
END
cat >packaging/windows/build <<'END'
#!/usr/bin/env bash
mkdir "$1/work" && cd "$1/work"
printf 'an EXE\0Lumarine 4.7 build 496\0' >lumarinectl.exe
/usr/bin/python3 -m zipfile -c "$2/Lumarine-windows.zip" lumarinectl.exe
END
chmod +x scripts/setup packaging/*/build
# Nobody's settings, and a time that is the commit's alone.
export GIT_CONFIG_GLOBAL=/dev/null GIT_CONFIG_SYSTEM=/dev/null
export GIT_AUTHOR_NAME=test GIT_AUTHOR_EMAIL=test@localhost GIT_COMMITTER_NAME=test GIT_COMMITTER_EMAIL=test@localhost
commit() { git add -A && GIT_COMMITTER_DATE="$1 +0000" git commit -qm "$1"; }
ctl() { scripts/package "$@"; }

exits "without a repository there is nothing to package" 1 archive
says "it says why" "this is no git repository"
git init -q
exits "nor without a commit" 1 archive
commit 1700000000

# --- what it refuses

exits "a part that is none" 2 archives
says "it tells which there are" "archive    a tar archive"
for change in 'touch new-file' 'echo "# more" >>CMakeLists.txt' 'git rm -q CMakeLists.txt'; do
  eval "$change"
  exits "an unclean tree: $change" 1 archive
  says "it tells what to do" 'git stash -u'
  says "it tells what differs" "$(git status --porcelain | head -n 1)"
  check "nothing is made" test ! -e build/package
  git add -A && git reset -q --hard && rm -f new-file
done

# --- what it makes

exits "all parts" 0
check "what is missing is installed first" test "$(cat build/set-up)" = package
for file in lumarine-linux-amd64.tar.xz lumarine-linux-arm64.tar.xz lumarine_amd64.deb lumarine_arm64.deb Lumarine-windows.zip; do
  says "$file is in the list, with sum, size and version" \
    "$(printf '%s  %10d  4.7.496   %s' "$(sha256sum <"build/package/out/$file" | cut -d' ' -f1)" "$(stat -c %s "build/package/out/$file")" "$file")" out.txt
done
says "a part gets the commit's time and its export" "1700000000 $PWD/build/package/source" build/package/told
check "the export is the commit's" diff CMakeLists.txt build/package/source/CMakeLists.txt
check "it has no history" test ! -e build/package/source/.git
exits "one part" 0 debian
check "what was there before is gone" test "$(ls build/package/out)" = lumarine_amd64.deb

# --- files that must not leave

sed -i 's/build 496/build 495/' packaging/archive/build && commit 1700000001
exits "a program of another version" 1 archive
says "it is in the list as it is" "4.7.495   lumarine-linux-amd64.tar.xz" out.txt
says "it says so" "1 of these hold another version than 4.7.496"
sed -i 's/Lumarine 4.7/Something 4.7/' packaging/archive/build && commit 1700000002
exits "a program of no version" 1 archive
printf '#!/bin/sh\n' >packaging/archive/build && commit 1700000003
exits "a part that makes no file" 1 archive
says "it says that" "no file was made"
printf '#!/bin/sh\nexit 3\n' >packaging/archive/build && commit 1700000004
exits "a part that fails" 3 archive
git rm -q packaging/archive/build && commit 1700000005
exits "a part without a script" 1 archive
says "it says which" "there is no packaging/archive/build"
finish
