#!/usr/bin/env bash
# What can be held of the guide without running it: the page, the links, the spelling, the marks of its blocks, and
# whether it tells every command and option.
#   page_test.sh LUMARINECTL
set -uo pipefail
here=$(cd "$(dirname "$0")" && pwd)
top=$(cd "$here/../.." && pwd)
. "$here/../support/checks.sh"
for tool in pandoc hunspell; do
  command -v $tool >/dev/null || skip "$tool is not installed"
done
lumarinectl=$(realpath "$1")
begin
export LC_ALL=C.UTF-8

# holds NAME FILE: nothing is wrong, each thing that is being a line of the file.
holds() {
  if [ -s "$2" ]; then not_ok "$1" && sed 's/^/# /' "$2"; else ok "$1"; fi
}

# The page.

make_page() { (cd "$1/docs/guide" && pandoc --defaults page/page.yaml --metadata version=1 --output "$2"); }
mkdir elsewhere && cp -r "$top/docs" elsewhere
check "the page is made" make_page "$top" "$work/page.html"
check "and made elsewhere" make_page "$work/elsewhere" "$work/elsewhere.html"
check "both are equal to the byte" cmp page.html elsewhere.html
{ grep -oE '(src|href)="[^"]{1,80}' page.html | grep -vE '="(data:|#)'; grep -n 'url(' page.html; } >found.txt 2>&1
holds "the page needs nothing from outside" found.txt

# What every document says of itself.

documents=(README.md CHANGELOG.md)
for file in "$top"/docs/*.md "$top"/docs/guide/*.md; do documents+=("${file#"$top"/}"); done
for document in "${documents[@]}"; do
  mkdir -p {facts,prose}/"$(dirname "$document")" "blocks/$document"
  PROSE=prose/$document pandoc --from gfm --to plain --lua-filter "$here/facts.lua" "$top/$document" >"facts/$document"
  BLOCKS=blocks/$document pandoc --from gfm --to plain --lua-filter "$here/blocks.lua" "$top/$document" >/dev/null
done

# Links.

# targets KIND: "DOCUMENT TARGET", the target as it is found from the top.
targets() {
  local document target file
  for document in "${documents[@]}"; do
    sed -n "s/^$1 //p" "facts/$document" | grep -vE '^[a-z]+:' | while read -r target; do
      file=${target%%#*}
      [ -z "$file" ] || file=$(realpath -ms --relative-to="$top" "$top/$(dirname "$document")/$file")
      echo "$document ${file:-$document}${target#"${target%%#*}"}"
    done
  done
}
targets link >links.txt
targets picture >pictures.txt
while read -r document target; do
  file=${target%%#*}
  if [ ! -e "$top/$file" ]; then
    echo "$document: $target"
  elif [[ $target == *#* ]] && ! grep -qxF "place ${target#*#}" "facts/$file"; then
    echo "$document: $target"
  fi
done < <(cat links.txt pictures.txt) >found.txt
holds "no link is dead" found.txt
cut -d' ' -f2 pictures.txt | sort -u >shown.txt
(cd "$top" && find docs/pictures -type f | sort) | comm -23 - shown.txt >found.txt
holds "every picture is shown" found.txt
sed 's/.* //; s/#.*//' links.txt | sort -u >linked.txt
for document in "${documents[@]:1}"; do grep -qxF "$document" linked.txt || echo "$document"; done >found.txt
holds "a link leads to every document" found.txt

# "Lumarine 4.7 build 496"
version=$("$lumarinectl" --version)
downloads() { grep -hoE '[Ll]umarine[-_][0-9][0-9.]*[0-9]' "$top/README.md" "$top"/docs/guide/*.md | tr _ - | cut -d- -f2 | sort -u; }
told=${version#Lumarine } told=${told/ build /.}
check "what is downloaded is of this version" test "$(downloads)" = "$told"
check "the changelog tells of this version" grep -qF "## [${version#Lumarine }]" "$top/CHANGELOG.md"

# Spelling.

words=$top/docs/guide/words.txt
check "the words are sorted" sort -cu "$words"
cat "${documents[@]/#/prose/}" | hunspell -d en_US -l | grep -v '^0x' | sort -u >unknown.txt
comm -23 unknown.txt "$words" >found.txt
holds "all words are known" found.txt
comm -13 unknown.txt "$words" >found.txt
holds "all words of ours are used" found.txt

# What the chapters quote is what the program says, but for these: the system's words, names and signs.
not_texts=("−" "TC420_Emulator" "Open with" "Unreleased" "0 failed" "Num")
sed -nE "s/.*<string id='(.*)'>.*/\1/p" "$top"/resources/translations*.xml |
  sed 's/&quot;/"/g; s/&apos;/'"'"'/g; s/&lt;/</g; s/&gt;/>/g; s/&amp;/\&/g' >texts.txt
# With something filled in.
grep '{1}' texts.txt | grep '[A-Za-z]\{6\}' | sed 's/[][\.*^$(){}?+|]/\\&/g; s/\\{[0-9]\\}/.*/g' >filled.txt
check "the program has texts" test "$(wc -l <texts.txt)" -gt 200
for document in "${documents[@]}"; do
  [[ $document == docs/guide/* ]] || continue
  grep -o '"[^"]*"' "prose/$document" | sed 's/^"//; s/"$//' | while read -r text; do
    [[ " ${not_texts[*]} " == *" $text "* ]] || grep -qF -- "$text" texts.txt || grep -qxEf filled.txt <<<"$text" ||
      echo "$document: \"$text\""
  done
done >found.txt
holds "what is quoted is what the program says" found.txt

# Blocks. README.md, and what is not in the page, need no marks.

for block in "${documents[@]}"; do
  [[ $block == docs/guide/* || $block =~ /(command-line|networks|languages|formats).md$ ]] || continue
  for part in "blocks/$block"/*; do
    case $part in
      *.none) echo "$block: without a mark: $(head -n 1 "$part")" ;;
      *.sh) [ ! -e "${part%.*}.reason" ] || echo "$block: marked as run, and not run: $(head -n 1 "$part")" ;;
      *.bat | *.powershell) [ -e "${part%.*}.reason" ] || echo "$block: without a reason: $(head -n 1 "$part")" ;;
      *.console | *.text | *.xml | *.cron | *.reason) ;;
      *'*') ;;
      *) echo "$block: a mark that nobody knows: ${part##*.}" ;;
    esac
  done
done >found.txt
holds "every block has a mark" found.txt

# Commands and options: a section that shows the command shows the option.

cat facts/docs/guide/*.md facts/docs/{command-line,networks,languages}.md | sed -n 's/^code [0-9]* //p' >sections.txt
# tells WORD [OPTION]
tells() {
  grep -E "(^|[^a-z-])$1([^a-z-]|\$)" sections.txt | grep -E -- "(^|[^a-z-])${2:-$1}([^a-z-]|\$)" >/dev/null
}
# options COMMAND...
options() { "$lumarinectl" "$@" --help | grep -oE '^ +(-h,)?--[a-z0-9-]+' | grep -oE -- '--[a-z0-9-]+' | grep -vx -- --help; }
# commands_below COMMAND...
commands_below() { "$lumarinectl" "$@" --help | sed -n '/^Subcommands:/,/^$/s/^  \([a-z-]*\) .*/\1/p'; }
mapfile -t commands < <(for command in $(commands_below); do
  echo "$command" && commands_below "$command" | sed "s/^/$command /"
done)
check "there are commands" test "${#commands[@]}" -gt 10
{
  for option in $(options) --help; do tells "lumarinectl" "$option" || echo "$option"; done
  for command in "${commands[@]}"; do
    tells "$command" || echo "$command"
    # shellcheck disable=SC2086  # a command may be two words
    for option in $(options $command); do tells "$command" "$option" || echo "$command $option"; done
  done
} >found.txt
holds "every command and every option is told" found.txt
"$lumarinectl" doctor --json | grep -oE '"what": ?"[^"]*"' | cut -d'"' -f4 | sort -u >looked.txt
check "the doctor looks at things" test -s looked.txt
while read -r what; do grep -qF "| $what |" "$top/docs/guide/trouble.md" || echo "$what"; done <looked.txt >found.txt
holds "what the doctor looks at is told" found.txt
finish
