#!/usr/bin/env bash
# Runs what the guide and README.md have a reader type, as it stands: the blocks marked "sh", and those marked "console",
# which must also answer what they show. Each chapter has a folder of its own, on a computer with a simulated TC421 at
# 192.168.4.1 beside it.
#   lines_test.sh LUMARINECTL TC421SIM
set -uo pipefail
here=$(cd "$(dirname "$0")" && pwd)
top=$(cd "$here/../.." && pwd)
. "$here/../support/checks.sh"
. "$here/../network/lab.sh"
command -v pandoc >/dev/null || skip "pandoc is not installed"
lab_enter "$here/lines_test.sh" "$@" || skip "no network can be made here: $lab_reason"

lumarinectl=$(realpath "$1")
lab_simulator_program=$(realpath "$2")
begin 'kill "$lab_pid" 2>/dev/null'
lab_computer computer 192.168.4.2
lab_computer controller 192.168.4.1
lab_simulator controller sim.log --name Smart-123456 --dump memory.json || { cat sim.log; exit 1; }

# What a reader has in front of them: a controller on USB, for which the emulator stands in, and time.
mkdir bin
cat >bin/lumarinectl <<END
#!/usr/bin/env bash
words=()
while [ \$# -gt 0 ]; do
  case \$1,\${2:-} in
    --device,tc42[01]) words+=(--device emulator) && shift 2 ;;
    --seconds,*) shift 2 ;;
    *) words+=("\$1") && shift ;;
  esac
done
[[ " \${words[*]} " != *" demo "* ]] || words+=(--seconds 10)
exec "$lumarinectl" "\${words[@]}"
END
chmod +x bin/lumarinectl

# A folder with what the chapters take for granted.
make_folder() {
  mkdir "$1" "$1/home" && (
    cd "$1" || exit
    "$lumarinectl" new tank.xml 2>/dev/null && "$lumarinectl" convert tank.xml summer.tmf --mode 1 &&
      "$lumarinectl" convert tank.xml winter.tmf --mode 2 || exit
    printf '08:00 0\n09:30 80 J\n18:00 0\n' >blue.txt
    echo clownfish >password.txt
  )
}

# run FOLDER FILE: as a shell does that ends at the first failure.
run() {
  (cd "$1" && lab_run computer env -u XDG_CONFIG_HOME HOME="$PWD/home" PATH="$work/bin:$PATH" LC_ALL=C.UTF-8 \
    bash -euo pipefail "$2" 2>&1 </dev/null)
}

# A console shows behind each "$ " what is typed, and below it the answer.
answers_as_shown() { run "$1" <(sed -n 's/^\$ //p' "$2") | diff <(grep -v '^\$ ' "$2") -; }

# A chapter's name is also that of its folder.
run_blocks() {
  local chapter=$1 block
  for block in "$work/blocks/$chapter"/*; do
    [ ! -e "${block%.*}.reason" ] || continue
    case $block in
      *.sh) check "$chapter: $(head -n 1 "$block")" run "$chapter" "$block" ;;
      *.console) check "$chapter: $(head -n 1 "$block")" answers_as_shown "$chapter" "$block" ;;
    esac
  done
}

# split_chapter NAME FILE
split_chapter() {
  mkdir -p "blocks/$1"
  BLOCKS=blocks/$1 pandoc --from gfm --to plain --lua-filter "$here/blocks.lua" "$2" >/dev/null
}

for file in "$top"/docs/guide/*.md "$top"/docs/*.md; do
  chapter=$(basename "$file" .md)
  split_chapter "$chapter" "$file"
  [ -n "$(find "blocks/$chapter" -name '*.sh' -o -name '*.console')" ] || continue
  make_folder "$chapter" && run_blocks "$chapter"
done

# README.md shows all commands at once.
split_chapter README "$top/README.md"
make_folder README
for block in blocks/README/*.none; do
  ! grep -qv '^lumarinectl ' "$block" || continue
  check "README: $(head -n 1 "$block")" run README "$(realpath "$block")"
done

# What chapters leave behind for the system.
if command -v systemd-analyze >/dev/null; then
  check "the timer and its service are such" env XDG_RUNTIME_DIR="$work" systemd-analyze verify --user --man=no \
    recipes/home/.config/systemd/user/lumarine-clock.{service,timer}
fi
kill -TERM "$lab_pid" && wait "$lab_pid"
check "the controller understood every frame" grep -q '"objections": \[\]' memory.json
finish
