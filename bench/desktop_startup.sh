#!/usr/bin/env bash
# Times the start of the Linux desktop program, up to the frame that shows the loaded program, beside that of an empty
# window of Qt's, in one run, without a screen.
#   bench/desktop_startup.sh [FOLDER OF THE PROGRAMS]
set -euo pipefail
cd "$(dirname "$0")/.."
programs=${1:-build/native/bin}
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
mkdir -m 700 "$folder/run" "$folder/Documents"
export QT_QPA_PLATFORM=offscreen HOME=$folder XDG_CONFIG_HOME=$folder/.config XDG_RUNTIME_DIR=$folder/run
example=examples/reef-day.xml
hyperfine --shell=none --warmup 5 --runs 40 "$programs/qt_empty_window" "$programs/qt_desktop_start $example" \
  "$programs/qt_desktop_start $example complete"
