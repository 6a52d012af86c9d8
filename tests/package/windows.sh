# shellcheck shell=bash
# A computer with Windows of the test's own, sourced behind checks.sh: a Wine prefix that nothing was installed in, and a
# display. Nothing in it is the user's, and none of it outlives the test.
#
#   windows_begin BUILD       begin; makes zip and installer of that build's programs, in packages/, and the computer.
#                             What is in them is in $stage, their version in $version
#   user WORD...              somebody in front of the windows (installer_user.cpp)
#   picture NAME              takes one of the screen, into package-pictures below the build
#   snapshot NAME             writes down all files and all of the registry, in NAME.files and NAME.registry
#   unchanged NAME A B        nothing differs between two of these
#   windows_path DRIVE_PATH   where the folder or file of drive C is on the disk
#   value KEY NAME            prints a value of the registry; the one without a name for ''
#   ends_with NAME STATUS COMMAND...   the command, under Wine, ends so
#   soon NAME COMMAND...      waits until the command succeeds
# shellcheck disable=SC2034,SC2154

tests=$(realpath "$(dirname "${BASH_SOURCE[0]}")")
project=$(realpath "$tests/../..")

windows_begin() {
  build=$(realpath "$1")
  begin windows_end
  # Menus of the desktop that the test runs on get nothing.
  export WINEPREFIX_OF_LUMARINE=$work/wine HOME=$work/home XDG_CONFIG_HOME=$work/home/.config XDG_DATA_HOME=$work/home/share
  export LC_ALL=C.UTF-8 SOURCE_DATE_EPOCH=1000000000
  mkdir -p "$HOME"
  . "$project/scripts/wine-env"
  export WINEDLLOVERRIDES="$WINEDLLOVERRIDES;winemenubuilder.exe=d"
  pack one
  stage=$(echo "$work"/one/package/Lumarine-*)
  version=${stage##*-}
  mkdir packages
  cp one/out/* packages/
  wine_prefix
  "$project/scripts/wine-session" begin
  wine_join_session
  # What the programs are for.
  wine winecfg -v win10
  wineserver -k
  wineserver -w
  wineserver -p
} 2>/dev/null
windows_end() { "$project/scripts/wine-session" end; }

# pack NAME: what a build with these programs is packed to, in NAME/out.
pack() {
  mkdir -p "$1/bin" "$1/out"
  cp "$build"/bin/{Lumarine,lumarinectl}.exe "$1/bin/"
  cp "$build/CMakeCache.txt" "$1/"
  # The page of the guide is another test's.
  echo '<!DOCTYPE html><title>Guide</title>' >"$1/bin/guide.html"
  "$project/packaging/windows/pack" "$1" "$1/out" >"$1/log" 2>&1 || cat "$1/log"
}

user() { wine "$build/bin/installer_user.exe" "$@" 2>/dev/null | tr -d '\r'; return "${PIPESTATUS[0]}"; }

picture() {
  mkdir -p "$build/package-pictures"
  # What has just come up is drawn a moment later.
  sleep 1
  import -window root "$build/package-pictures/$1.png"
}

windows_path() { echo "$WINEPREFIX/drive_c/$1"; }

# The registry is in files of its own when the server has ended. What a restart of the computer removes is gone, too.
snapshot() {
  wineboot -r >/dev/null 2>&1
  wineserver -k
  wineserver -w
  # Without times, what Wine notes of its own, and a key that every user of Windows has.
  sed -E 's/^(\[.*\]) [0-9]+( .*)?$/\1/; /^(#time|"DriverDate|\[Software\\\\Classes\]|$)/d' "$WINEPREFIX"/{system,user}.reg >"$1.registry"
  # NSIS has its copy of the uninstaller removed at a restart, from an empty folder among the temporary files.
  (cd "$WINEPREFIX/drive_c" && find . -not -path '*/Temp/~nsu*.tmp' -printf '%y %p\n' | sort) >"$1.files"
  wineserver -p
}
unchanged() {
  check "$1: files" diff "$2.files" "$3.files"
  check "$1: registry" diff "$2.registry" "$3.registry"
}

value() {
  local which=(/v "$2")
  [ -n "$2" ] || which=(/ve)
  wine reg query "$1" "${which[@]}" 2>/dev/null | tr -d '\r' | sed -nE 's/.* REG_[A-Z_]+ {4}(.*)/\1/p'
}
has_value() { check "$1: $3" test "$(value "$2" "$3")" = "$4"; }

ends_with() {
  wine "${@:3}" >out.txt 2>err.txt
  ended "$1" "$2" $?
}

soon() {
  local name=$1 i
  shift
  for ((i = 0; i < 300; ++i)); do
    if "$@" >/dev/null 2>&1; then ok "$name"; return; fi
    sleep 0.2
  done
  not_ok "$name"
}
gone() { [ ! -e "$1" ]; }
