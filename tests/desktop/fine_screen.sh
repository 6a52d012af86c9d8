#!/usr/bin/env bash
# The real window where an inch has 120 dots, in a session of Wine.
#   tests/desktop/fine_screen.sh DESKTOP_TESTS
scripts=$(realpath "$(dirname "$0")/../../scripts")
. "$scripts/wine-env"
wine_join_session

# The server reads it once, as it begins.
begin_anew() {
  wineserver -k
  wineserver -p
} >/dev/null 2>&1 </dev/null
wine reg add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD /d 120 /f >/dev/null 2>&1
begin_anew
LUMARINE_SCREEN_DPI=120 GTEST_FILTER=${GTEST_FILTER:-FineScreen.*} "$scripts/with-wine" "$1"
status=$?
wine reg delete 'HKCU\Control Panel\Desktop' /v LogPixels /f >/dev/null 2>&1
begin_anew
exit $status
