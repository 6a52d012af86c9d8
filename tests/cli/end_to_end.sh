#!/usr/bin/env bash
# lumarinectl as its users run it: real files, pipes, signals, terminals and time.
#   tests/cli/end_to_end.sh COMMAND OUTDIR
# COMMAND may be several words, as in "scripts/with-wine lumarinectl.exe" or "/usr/bin/qemu-aarch64-static lumarinectl".
# What must come out the same on every platform is left in OUTDIR.
# shellcheck disable=SC2317   # the checks call functions by their names
set -uo pipefail
export LC_ALL=C.UTF-8  # messages are compared; what is about another language says so

[ $# = 2 ] || { echo "usage: $0 COMMAND OUTDIR" >&2; exit 2; }
. "$(dirname "$0")/../support/checks.sh"
rm -rf "$2"
mkdir -p "$2"
outdir=$(cd "$2" && pwd)
source=$(cd "$(dirname "$0")/../.." && pwd)
# The checks run in a folder of their own, so the paths must not depend on this one.
read -ra words <<<"$1"
mapfile -t command < <(realpath "${words[@]}")
binary=${command[-1]}
runner=("${command[@]:0:${#command[@]}-1}")
# A program of Windows has no signals, terminals and pictures here.
native=true
[[ $binary != *.exe ]] || native=false
begin

# A run that hangs must not take the others with it. No measure of speed.
limit=${LUMARINE_COMMAND_LIMIT:-60}
ctl() { timeout "$limit" "${command[@]}" "$@"; }

# Once in some thousand times a start under Wine ended so, why is not known. lumarinectl never ends without a word.
run_ctl() {
  local status
  ctl "$@" >out.txt 2>err.txt
  status=$?
  if ! $native && [ $status = 1 ] && [ ! -s out.txt ] && [ ! -s err.txt ]; then
    repeated "Wine did not start it: $*"
    ctl "$@" >out.txt 2>err.txt
    status=$?
  fi
  return $status
}

# --- what everybody types first

exits "version" 0 --version
check "version is one line" diff <(echo "Lumarine 4.7 build 496") out.txt
exits "help" 0 --help
check "help has examples" grep -q "^Examples:" out.txt
exits "no command is wrong usage" 2
silent "wrong usage prints no data"

# --- the same bytes on every platform

cat >hostile.xml <<'XML'
<modelist>
  <mode name='Unsorted'>
    <channel><step hour='20' minute='0' value='10'/><step hour='8' minute='0' value='90' jump='1'/><step hour='12' minute='30' value='33'/></channel>
    <channel><step hour='9' minute='0' value='10'/><step hour='9' minute='0' value='90'/><step hour='9' minute='0' value='50'/></channel>
    <channel><step hour='30' minute='0' value='10'/><step hour='-3' minute='75' value='900'/><step hour='8' minute='0' value='-50'/></channel>
    <channel/>
    <channel><step hour='2147483647' minute='2147483647' value='2147483647'/><step hour='-2147483648' minute='0' value='1'/></channel>
  </mode>
  <mode name='Thirds &lt;&amp;&gt;' description='it&apos;s'>
    <channel><step hour='0' minute='1' value='0'/><step hour='23' minute='58' value='100'/></channel>
    <channel><step hour='7' minute='0' value='1'/><step hour='7' minute='7' value='99'/><step hour='19' minute='13' value='2'/></channel>
    <channel><step hour='12' minute='0' value='50' jump='1'/></channel>
    <channel><step hour='1' minute='0' value='0'/><step hour='2' minute='0' value='100' jump='1'/><step hour='3' minute='0' value='0'/></channel>
    <channel><step hour='0' minute='0' value='7'/><step hour='0' minute='1' value='93'/></channel>
  </mode>
</modelist>
XML
cp "$source"/examples/*.xml .
printf '08:00 0\n9:30 80 J\n18:75 33\n' >unix.txt
printf '08:00 0\r\n9:30 80 J\r\n18:75 33\r\n' >dos.txt

exits "new" 0 new built-in.xml
exits "templates" 0 templates
cut -d " " -f 1 out.txt >templates.txt
check "there are five templates" test "$(wc -l <templates.txt)" = 5
while read -r template; do
  exits "new --template $template" 0 new "from-$template.xml" --template "$template"
  exits "info from $template" 0 info "from-$template.xml" --json
  cp out.txt "$outdir/from-$template.info.json"
done <templates.txt
for program in built-in reef-day planted-tank seedling-bed hostile; do
  exits "info $program" 0 info $program.xml
  cp out.txt "$outdir/$program.info.txt"
  exits "info --json $program" 0 info $program.xml --json
  cp out.txt "$outdir/$program.info.json"
  exits "curve $program" 0 curve $program.xml --mode 2
  cp out.txt "$outdir/$program.curve.csv"
  exits "figures $program" 0 figures $program.xml --mode 2 --watts 24,24,12.5,6,6 --price 0.32 --par 180,120 --level 50
  cp out.txt "$outdir/$program.figures.txt"
  exits "figures --json $program" 0 figures $program.xml --mode 1 --watts 24,24 --json
  cp out.txt "$outdir/$program.figures.json"
  exits "frames $program" 0 frames $program.xml --model tc420
  cp out.txt "$outdir/$program.frames.txt"
done
exits "curve of a hostile mode" 0 curve hostile.xml --mode 1 --every 1
cp out.txt "$outdir/hostile-mode-1.curve.csv"
check "a day has 86400 seconds" test "$(wc -l <out.txt)" = 86401
check "lines end with a line feed alone" bash -c '! grep -q $'"'\\r'"' out.txt'

# edited NAME MODE OPTION...: edits the hostile program and keeps the result.
edited() {
  local name=$1 mode=$2
  shift 2
  exits "edit $name" 0 edit hostile.xml "edited-$name.xml" --mode "$mode" "$@"
  check "edit $name writes well-formed XML" xmllint --noout "edited-$name.xml"
  cp "edited-$name.xml" "$outdir/"
}
edited optimize 1 --optimize
edited optimize-tc421 2 --optimize-tc421
edited align 1 --align 7
edited endpoint 2 --endpoint start
edited steps-unix 1 --steps 2=unix.txt
edited steps-dos 1 --steps 2=dos.txt
edited power 2 --power 1=33.3
edited clear 1 --clear 3
edited move 2 --move 1=down
edited remove 1 --remove
edited shift-time 2 --shift-time -1:30
edited shift-percent 2 --shift-percent 12.5 --channels 1,3
edited scale 2 --scale 33.3 --around 50 --from 18:00 --to 06:00
edited stretch 2 --stretch 13:00=120
edited mirror 2 --mirror 12:00 --channels 1
edited set-fade 2 --set fade
edited copy-to 2 --copy-to 2,4=60 --channels 4
edited thin 2 --thin 2.5
edited round-times 2 --round-times 15
edited round-percents 2 --round-percents 5
edited rename 2 --rename "Noc <&'\"> ráno"
check "line ends of steps texts do not matter" cmp edited-steps-unix.xml edited-steps-dos.xml
mkdir made
check "the examples are made" bash "$source/examples/make.sh" "${command[*]}" made
for example in made/*.xml; do
  check "$(basename "$example") is what the recipe makes" cmp "$example" "$source/examples/$(basename "$example")"
done

# --- days that nature makes

days=0
for day in "sun --place Europe/Berlin --moon 5=20" "sun --at -18.3,147.7 --hours 10:00-22:00" "sun --at 78.2,15.6" \
  "moon" "ramp --break 13:00-15:00 --stagger 10"; do
  read -ra words <<<"$day"
  name=day-${words[0]}-$((++days))
  exits "generate $day" 0 generate "${words[@]}" "$name.xml" --date 2026-12-21
  cp out.txt "$outdir/$name.txt"
  cp "$name.xml" "$outdir/"
done
exits "generate acclimation" 0 generate acclimation reef-day.xml day-3.xml --day 3
cp day-3.xml "$outdir/"
exits "generate season" 0 generate season season --place Manaus --year 2026
cp -r season "$outdir/"
check "a season has 52 programs" test "$(ls season | wc -l)" = 52
exits "a season is not overwritten" 2 generate season season --place Manaus --year 2026
exits "places" 0 places
cp out.txt "$outdir/places.txt"

# --- files of other tools

for program in built-in reef-day planted-tank seedling-bed hostile; do
  for kind in tmf lmf raw; do
    exits "convert $program to $kind" 0 convert $program.xml $program.$kind --mode 2
    cp $program.$kind "$outdir/"
  done
  exits "convert $program back" 0 convert $program.tmf $program.lmf back-$program.xml
  check "convert writes well-formed XML" xmllint --noout back-$program.xml
  cp back-$program.xml "$outdir/"
done
exits "convert a hostile mode" 0 convert hostile.xml hostile-1.raw --mode 1
cp hostile-1.raw "$outdir/"
check "a dump has five bytes a second" test "$(stat -c %s hostile-1.raw)" = 432000
cp reef-day.tmf kept.tmf
exits "a dump is not read" 2 convert reef-day.raw dump.xml
says "it is told why" "RAW files can be written only, not read"
exits "a file that is read is not written" 2 convert reef-day.lmf kept.tmf kept.tmf --mode 1
head -c 100 reef-day.tmf >cut.tmf
exits "a cut file" 4 convert reef-day.tmf cut.tmf dump.xml
says "it is told" "Invalid file format"
truncate -s 1G big.tmf
cp --sparse=always big.tmf big.lmf
exits "a TMF file of a gigabyte" 4 convert big.tmf dump.xml
exits "an LMF file of a gigabyte" 4 convert big.lmf dump.xml
rm -f big.tmf big.lmf
check "no refusal left a file" test ! -e dump.xml
check "nor changed one" cmp kept.tmf reef-day.tmf

# --- refusals leave everything as it was

cp reef-day.xml mine.xml
exits "a mode that is not there" 2 edit mine.xml mine.xml --mode 9 --clear 1
exits "a channel that is not there" 2 edit mine.xml mine.xml --mode 1 --clear 6
exits "a move beyond the edge" 2 edit mine.xml mine.xml --mode 1 --move 1=up
exits "a change that leaves a channel too few steps" 2 edit mine.xml mine.xml --mode 1 --round-times 720
exits "a scope for a change that takes none" 2 edit mine.xml mine.xml --mode 1 --remove --channels 1
exits "a steps text that is not there" 4 edit mine.xml mine.xml --mode 1 --steps 1=missing.txt
exits "a folder that is not there" 4 edit mine.xml nowhere/mine.xml --mode 1 --clear 1
check "the file is as it was" cmp mine.xml reef-day.xml

# --- files that are no programs

refused() {
  exits "$1" 4 info "$2"
  silent "$1 prints no data"
  says "$1 is explained" "cannot be read, or is no light program"
}
: >empty.xml
head -c 700 reef-day.xml >cut.xml
head -c 4096 /dev/urandom >binary.xml
refused "a missing file" missing.xml
refused "an empty file" empty.xml
refused "a cut file" cut.xml
refused "a binary file" binary.xml
refused "a folder" made
head -c 100000000 /dev/zero | tr '\0' '<' >brackets.xml
refused "100 MB of <" brackets.xml
truncate -s 60000000 brackets.xml
refused "60 MB of <" brackets.xml
{ printf '<a>%.0s' $(seq 100000); printf '</a>%.0s' $(seq 100000); } >nested.xml
refused "100,000 nested elements" nested.xml
{ printf "<modelist><mode name='"; head -c 50000000 /dev/zero | tr '\0' 'a'; printf "'/></modelist>"; } >attribute.xml
refused "an attribute of 50 MB" attribute.xml
rm -f brackets.xml nested.xml attribute.xml

# --- pictures, which a helper draws that only the system's own build has here

exits "a picture of no known kind" 2 render reef-day.xml day.jpg
says "it is told which there are" "ends in .png, .svg or .pdf"
exits "a picture of a mode that is not there" 2 render reef-day.xml day.png --mode 9
says "it is told how many there are" "there is no mode 9 in reef-day.xml, it holds"
exits "a picture of no program" 4 render missing.xml day.png
check "nothing was drawn" test ! -e day.png
if $native; then
  exits "render a PNG" 0 render reef-day.xml day.png --width 400 --height 300 --scale 2
  silent "a picture prints no data"
  check "a picture that is made is not talked about" test ! -s err.txt
  check "it is a PNG of twice the size" bash -c 'file day.png | grep -q "PNG image data, 800 x 600"'
  exits "render an SVG" 0 render reef-day.xml day.svg --mode 2 --time 12:00
  exits "render what differs" 0 render reef-day.xml both.svg --compare reef-day.xml --compare-mode 2
  check "the other mode is a thin line" grep -q 'stroke-width="1.5"' both.svg
  check "the SVG is well-formed" xmllint --noout --nonet day.svg
  check "the SVG can be drawn" rsvg-convert -o drawn.png day.svg
  exits "render a PDF" 0 render reef-day.xml day.pdf
  check "it is a PDF" bash -c 'head -c 8 day.pdf | grep -q "^%PDF-1"'
  cp day.png before.png; cp day.svg before.svg
  exits "render the PNG again" 0 render reef-day.xml day.png --width 400 --height 300 --scale 2
  exits "render the SVG again" 0 render reef-day.xml day.svg --mode 2 --time 12:00
  check "the same PNG has the same bytes" cmp day.png before.png
  check "the same SVG has the same bytes" cmp day.svg before.svg
  # Neither the language, nor the display, nor the scale of the screen.
  check "another user's picture has the same bytes" \
    env LC_ALL=C DISPLAY=:99 QT_QPA_PLATFORM=xcb QT_SCALE_FACTOR=2 QT_FONT_DPI=200 "${command[@]}" \
    render reef-day.xml day.png --width 400 --height 300 --scale 2
  check "and not just made" cmp day.png before.png
  exits "a picture in a folder that is not there" 4 render reef-day.xml nowhere/day.png
  says "it says why" "No such file or directory"
  mkdir day-folder.png
  exits "a picture in the place of a folder" 4 render reef-day.xml day-folder.png
  exits "a picture below a file" 4 render reef-day.xml day.svg/day.png
  exits "a picture of a hostile mode" 0 render hostile.xml hostile.svg --mode 1 --time 23:59
  check "and it is well-formed" xmllint --noout --nonet hostile.svg
  check "the command line does without Qt" bash -c '! ldd "$0" | grep -qi "qt"' "$binary"
  mkdir alone
  cp "$binary" alone/
  check "without the helper it says what is missing" bash -c \
    '"$@" alone/lumarinectl render reef-day.xml a.png 2>err.txt; [ $? = 1 ] && grep -q "lumarine-render.*cannot be started" err.txt' - "${runner[@]}"
  mkdir -p installed/bin installed/libexec/lumarine
  cp "$binary" installed/bin/
  cp "$(dirname "$binary")/lumarine-render" installed/libexec/lumarine/
  check "an installed helper is found" "${runner[@]}" installed/bin/lumarinectl render reef-day.xml installed.png
else
  exits "pictures are made elsewhere" 2 render reef-day.xml day.png
  says "and it is told where" "pictures are made by lumarinectl on Linux only"
fi

# --- languages

speaking() { LC_ALL=$1 ctl "${@:2}" >out.txt 2>err.txt; }
check "in German" speaking de_DE.UTF-8 new german.xml
says "a file is saved" "german.xml"
exits "a cut file in German" 4 convert --language de cut.tmf dump.xml
says "it is told so, from the second document of texts" "Ungültiges Dateiformat"
check "and not in English" bash -c '! grep -qF "Saved program" err.txt'
check "the same with the option" ctl --language de new german-too.xml
check "and the same file" cmp german.xml german-too.xml
check "the built-in modes are named in it" bash -c '! cmp -s german.xml built-in.xml'
cp german.xml "$outdir/"
for language in de sk it cz fr01 fr pl es; do
  exits "$language" 0 info reef-day.xml --language $language
  cp out.txt "$outdir/reef-day.info.$language.txt"
done
check "tables for people are translated" bash -c '! cmp -s "$1" "$2"' - "$outdir"/reef-day.info{,.de}.txt
check "data for programs in German" speaking de_DE.UTF-8 info reef-day.xml --json
check "is the same" cmp out.txt "$outdir/reef-day.info.json"
check "in Hungarian, which there is not" speaking hu_HU.UTF-8 new english.xml
says "English is spoken" "Saved program english.xml"
check "in German, but asked for English" speaking de_DE.UTF-8 --language en new english.xml
says "English is spoken where asked for" "Saved program english.xml"
exits "a language that is not there" 2 --language xx new other.xml
says "it is told which languages there are" "there is no language xx, there are en, de, sk, it, cz, fr01, fr, pl, es"

# --- output that goes nowhere

full_disk() { ctl "$@" >/dev/full 2>err.txt; [ $? = 4 ] && grep -q "standard output cannot be written" err.txt; }
for arguments in "--help" "info reef-day.xml" "info reef-day.xml --json" "curve reef-day.xml --mode 1"; do
  # shellcheck disable=SC2086
  check "$arguments on a full disk" full_disk $arguments
done
ctl curve reef-day.xml --mode 1 --every 1 2>err.txt | head -n 1 >out.txt
status=("${PIPESTATUS[@]}")
check "a reader who goes away is a failed write" test "${status[0]}" = 4
check "he has had his line" grep -q "^second,c1" out.txt

# --- controllers, in real time

exits "upload to the emulator" 0 upload reef-day.xml --device emulator
check "the upload tells what it does" diff err.txt - <<'TEXT'
Configuring device TC420_Emulator
Uploading started
Uploading mode: Reef day
Uploading mode: Cloudy day
Uploading finished
Finished configuring device TC420_Emulator
TEXT
silent "an upload prints no data"
exits "upload with a trace" 0 upload reef-day.xml --device emulator --trace
check "a trace has one packet for each frame" \
  test "$(grep -c '^WritePacket: ' err.txt)" = "$(wc -l <"$outdir/reef-day.frames.txt")"
exits "demo on the emulator" 0 demo reef-day.xml --device emulator --mode 2 --seconds 1
says "the demo ends" "Demo finished"
exits "sync-time" 0 sync-time --device emulator --time "2026-03-14 09:26:53"
exits "a day that the calendar lacks" 2 sync-time --device emulator --time "2026-02-29 09:26:53"
exits "clear" 0 clear --device emulator
exits "devices" 0 devices --json
exits "a controller that is not there" 3 sync-time --device tc420
says "it is a connect error" "Connect error"

# --- controllers on USB, and who may open them

if $native; then
  # A user who may not, with a copy that he may start, in a folder that a shell would take for two words.
  chmod 711 .
  install -D "$binary" "a folder/lumarinectl"
  as_user() { if [ "$(id -u)" = 0 ]; then setpriv --reuid=65534 --regid=65534 --clear-groups "$@"; else "$@"; fi; }
  as_user "${runner[@]}" "$PWD/a folder/lumarinectl" usb-setup 2>err.txt
  ended "usb-setup is for root" 4 $?
  says "it is told what to type" "Give this command: sudo '$PWD/a folder/lumarinectl' usb-setup"
else
  exits "usb-setup" 0 usb-setup
  says "nothing is needed there" "Nothing is to be set up"
fi

# --- signals and terminals, which only the system's own programs have here

# awaits TEXT: until standard error has it, for so long that only something broken does not come to it.
awaits() {
  local i
  for ((i = 0; i < 600; ++i)); do
    ! grep -qsF -- "$1" err.txt || return 0
    sleep 0.05
  done
  echo "there is no $1"
  return 1
}
# stopped STATUS SIGNALS TEXT ARGUMENT...: the command, with up to so many SIGTERM once standard error has the text.
stopped() {
  local wanted=$1 signals=$2 text=$3 pid i
  shift 3
  rm -f err.txt
  "${command[@]}" "$@" >out.txt 2>err.txt &
  pid=$!
  awaits "$text"
  for ((i = 0; i < signals; ++i)); do
    # Two at once are taken for one.
    [ $i = 0 ] || sleep 0.3
    kill -TERM "$pid" || break
  done
  wait "$pid"
  [ $? = "$wanted" ]
}
# --- the doctor

run_ctl doctor --json
check "the doctor says what is wrong with this computer" test $? -le 1
check "in JSON" jq -e '.version == "4.7 build 496" and (.findings | length > 8)' out.txt
run_ctl doctor --bundle question.zip --yes
check "a bundle is written" test $? -le 1
check "unzip finds it whole" unzip -tq question.zip
check "and so does Python" python3 -m zipfile -t question.zip
exits "without a word it is not replaced" 2 doctor --bundle question.zip
exits "a file of it is shown" 0 doctor --show versions.txt
check "as the bundle has it" cmp out.txt <(unzip -p question.zip versions.txt)

if $native; then
  check "a demo can be stopped" stopped 1 1 "Playing whole day" demo reef-day.xml --device emulator
  check "a stopped demo gives the controller back" diff <(tail -n 2 err.txt) <(printf 'Demo finished\nCancelled!\n')
  # Twenty seconds of modes.
  exits "a program of many modes" 0 convert $(printf 'reef-day.xml %.0s' {1..20}) many.xml
  check "an upload can be stopped" stopped 1 1 "Uploading mode" upload many.xml --device emulator
  check "a stopped upload is closed" diff <(tail -n 2 err.txt) <(printf 'Uploading finished\nCancelled!\n')
  check "the second signal ends at once" stopped 130 10 "Clearing all modes" clear --device emulator
  check "a closed standard output is a failed write" bash -c "${command[*]} info reef-day.xml >&- 2>err.txt; [ \$? = 4 ]"

  script -qec "${command[*]} demo reef-day.xml --device emulator --seconds 1" /dev/null >terminal.txt </dev/null
  check "a terminal is shown the progress" grep -q '%' terminal.txt
  printf "<modelist><mode name='a\033[2Jb'><channel/><channel/><channel/><channel/><channel/></mode></modelist>" >escape.xml
  script -qec "${command[*]} info escape.xml" /dev/null >terminal.txt </dev/null
  check "a terminal is given no control sequence of a file" bash -c '! grep -q $'"'\\x1B'"' terminal.txt'
  check "a pipe is given it as it is" bash -c "${command[*]} info escape.xml | grep -q \$'\\x1B'"
fi

finish
