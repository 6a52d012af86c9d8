#!/usr/bin/env bash
# Makes a Debian package of the tree as it is, as scripts/package makes it of a commit.
#   tests/package/make.sh OUT [OPTION...]     the options of packaging/debian/build
set -euo pipefail
cd "$(dirname "$0")/../.."
out=$(realpath -m "$1")
shift
# Where several are made at once, each has a tree of its own.
source=$PWD/build/package/tree-$$
trap 'rm -rf "$source"' EXIT
mkdir -p "$source"
git ls-files -z --cached --others --exclude-standard | tar --null --ignore-failed-read -T - -c | tar -x -C "$source"
SOURCE_DATE_EPOCH=$(git log -1 --format=%ct)
LUMARINE_ROOTS=$PWD/build/package/roots
export SOURCE_DATE_EPOCH LUMARINE_ROOTS
"$source/packaging/debian/build" "$@" "$source" "$out"
