# shellcheck shell=bash
# A clean Debian system for a test, sourced behind checks.sh.
#
#   root_begin [--foreign ARCH] NAME PACKAGE...   makes one with these packages in $root, perhaps for a second
#                                architecture too; the test is skipped where there can be none
#   root_end                     removes it
# $root_sh runs commands in it.
# shellcheck disable=SC2154

root_sh=$(realpath "$(dirname "${BASH_SOURCE[0]}")/../../packaging/root.sh")

root_begin() {
  local foreign=
  if [ "$1" = --foreign ]; then
    foreign="dpkg --add-architecture $2 && apt-get update -qq &&"
    shift 2
  fi
  command -v debootstrap >/dev/null || skip "debootstrap is not installed"
  unshare --mount true 2>/dev/null || [ "$(id -u)" != 0 ] || skip "this system lets nobody mount"
  # /tmp may be small.
  root=$(realpath "$(dirname "$root_sh")/..")/build/package/test-$1-$$
  "$root_sh" make "$root" "$1" <<<"$foreign apt-get install -qq ${*:2} && apt-get clean" >root.log 2>&1 ||
    { not_ok "a clean system is made"; tail root.log; finish; }
  ok "a clean system is made"
  # It may have been kept for days.
  check "it knows today's packages" "$root_sh" run "$root" apt-get -q update
}
root_end() { [ -z "${root:-}" ] || "$root_sh" remove "$root"; }
