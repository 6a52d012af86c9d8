#!/usr/bin/env bash
# Makes the example programs with lumarinectl: each begins as the built-in program, gets its curves from the
# texts in steps/, and at the end what the command line has no words for, the names and colours of the channels
# and the descriptions of the modes.
#   examples/make.sh [LUMARINECTL [FOLDER]]     into examples/ unless told otherwise
set -euo pipefail

command=${1:-build/native/bin/lumarinectl}
here=$(dirname "$0")
folder=${2:-$here}

# The command may be several words, as in "wine lumarinectl.exe".
lumarinectl() { $command "$@" 2>/dev/null; }
edit() { lumarinectl edit "$program" "$program" --mode "$@"; }

# begin FILE NAME NAME: the built-in program with its two modes renamed.
begin() {
  program=$folder/$1
  lumarinectl --language en new "$program"
  edit 1 --rename "$2"
  edit 2 --rename "$3"
}

# curves MODE TEXT...: the channels' texts of steps, in order; "-" for a channel that stays dark.
curves() {
  local mode=$1 channel=0 text
  shift
  for text in "$@"; do
    channel=$((channel + 1))
    if [ "$text" = - ]; then edit "$mode" --clear "$channel"; else edit "$mode" --steps "$channel=$here/steps/$text.txt"; fi
  done
}

# power MODE PERCENT...: the channels' highest values, in order; "-" leaves a channel as it is.
power() {
  local mode=$1 channel=0 percent
  shift
  for percent in "$@"; do
    channel=$((channel + 1))
    [ "$percent" = - ] || edit "$mode" --power "$channel=$percent"
  done
}

# describe TEXT TEXT: the descriptions of the two modes.
describe() {
  sed -i "1,/<mode /s|description='[^']*'|description='$1'|; 2,\$s|\(<mode .*description='\)[^']*'|\1@'|" "$program"
  sed -i "0,/description='@'/s|description='@'|description='$1'|; s|description='@'|description='$2'|" "$program"
}

# channels "NAME RED GREEN BLUE"...: the channel table, in order.
channels() {
  local row name red green blue
  for row in "$@"; do
    blue=${row##* }; row=${row% *}
    green=${row##* }; row=${row% *}
    red=${row##* }; name=${row% *}
    sed -i "0,/<channel_info r=/s|<channel_info r=.*|<channel_info name='$name' r='$red' g='$green' b='$blue'/>\r|" "$program"
  done
}

begin reef-day.xml "Reef day" "Cloudy day"
for mode in 1 2; do
  curves $mode reef-royal-blue reef-cool-white reef-violet reef-deep-red reef-moonlight
done
power 2 45 25 30 8 5
describe "Blue at dawn and dusk, white at noon, moonlight through the night." \
  "The same day under clouds, for new corals and after a water change."
channels "Royal blue 30 70 255" "Cool white 230 240 255" "Violet 140 40 255" "Deep red 255 40 40" "Moonlight 110 140 200"

begin planted-tank.xml "Planted tank" "First weeks"
for mode in 1 2; do
  curves $mode planted-warm-white planted-cool-white planted-red planted-blue planted-moonlight
done
power 2 40 35 25 15 -
describe "Two periods of light with a break at midday, which plants bear and algae do not." \
  "About half the light, until the plants have taken root."
channels "Warm white 255 220 160" "Cool white 230 240 255" "Red 255 60 60" "Blue 60 100 255" "Moonlight 110 140 200"

begin seedling-bed.xml "Seedlings" "Young plants"
for mode in 1 2; do
  curves $mode seedling-blue seedling-red seedling-warm-white seedling-far-red -
done
power 2 80 90 70 30 -
describe "Sixteen hours, more blue than red for short stems, a quarter of an hour of far red at nightfall." \
  "More of everything, above all red, once the second leaves are there."
channels "Blue 450 nm 60 90 255" "Red 660 nm 255 30 30" "Warm white 255 220 160" "Far red 730 nm 160 0 40" "Work light 255 255 255"
