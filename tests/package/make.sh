#!/usr/bin/env bash
# Makes a package of the tree as it is, as scripts/package makes it of a commit.
#   tests/package/make.sh PART OUT [OPTION...]     by packaging/PART/build, with its options
set -euo pipefail
part=$1 out=$(realpath -m "$2")
shift 2
cd "$(dirname "$0")/../.."
# Where several are made at once, each has a tree of its own.
source=$PWD/build/package/tree-$$
trap 'rm -rf "$source"' EXIT
mkdir -p "$source" "$out"
git ls-files -z --cached --others --exclude-standard | tar --null --ignore-failed-read -T - -c | tar -x -C "$source"
SOURCE_DATE_EPOCH=$(git log -1 --format=%ct)
LUMARINE_ROOTS=$PWD/build/package/roots
export SOURCE_DATE_EPOCH LUMARINE_ROOTS
"$source/packaging/$part/build" "$@" "$source" "$out"
