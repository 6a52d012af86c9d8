#!/usr/bin/env bash
# The unit tests for 64-bit ARM: cross-built in a clean Debian system, run under qemu.
#   tests/package/arm64_units_test.sh [TEST]    all of them, or those whose names hold TEST
# It takes root's rights and a Debian mirror.
set -uo pipefail
here=$(realpath "$(dirname "$0")")
source=$(realpath "$here/../..")
. "$here/../support/checks.sh"
. "$here/clean_root.sh"
begin end

# What was compiled is kept for the next time.
cache=$source/build/package/ccache-arm64
end() {
  [ ! -d "${root:-}/home/person/.cache/ccache" ] || mv "$root/home/person/.cache/ccache" "$cache"
  root_end
}
# The package's own needs stand in its control file.
root_begin --foreign arm64 arm64-units ccache clang-format cmake ninja-build graphviz g++ crossbuild-essential-arm64 qemu-user-static \
  libcli11-dev nlohmann-json3-dev fonts-dejavu-core fonts-symbola librsvg2-bin libxml2-utils \
  {libhidapi-dev,pkg-config,qt6-base-dev,qt6-base-private-dev,qt6-svg-dev,zlib1g-dev,libgtest-dev,libgmock-dev}:arm64
if [ -d "$cache" ]; then
  mkdir -p "$root/home/person/.cache"
  mv "$cache" "$root/home/person/.cache/ccache"
fi
mkdir "$root/home/person/source"
tar -C "$source" --exclude=./build --exclude=./.git -c . | tar -C "$root/home/person/source" -x
chown -R 1000:1000 "$root/home/person"

person() { "$root_sh" run --person --offline --env QT_QPA_PLATFORM=offscreen "$root" env -C source "$@"; }
check "it is configured" person cmake --preset arm64
units=(--preset arm64 -L unit ${1:+-R "$1"})
# Each test is named as its program is.
mapfile -t programs < <(person ctest "${units[@]}" -N | sed -n 's/^ *Test *#[0-9]*: //p')
check "it is built" person nice ninja -C build/arm64 "${programs[@]}"
# What is the emulator's: processes bear its name, and who starts a program that is missing is not told so.
emulator=ComputerFacts.WhoHasAPort:OpenFiles.HaveHolders:ChildProcess.OfAMissingProgramIsNone
person env GTEST_FILTER="-$emulator" nice ctest "${units[@]}" -j "$(nproc)" --timeout 3000 --output-junit results.xml >ctest.txt 2>&1
junit=$root/home/person/source/build/arm64/results.xml
check "the tests ran" test -s "$junit"
while read -r status name; do
  case $status in
    run) ok "$name" ;;
    *) not_ok "$name"; sed -n "/$name/,/^ *[0-9]*\/[0-9]* Test/p" ctest.txt | grep -E 'Failure|FAILED|Expected|Actual|_test.cpp' | sed 's/^/# /' | head -60 ;;
  esac
done < <(xmllint --xpath '//testcase' "$junit" | sed -nE 's/.*<testcase name="([^"]*)".*status="([^"]*)".*/\2 \1/p')
finish
