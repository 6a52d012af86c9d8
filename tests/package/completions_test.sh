#!/usr/bin/env bash
# Tab in real shells, with what an installation gives them.
#   completions_test.sh BUILD SHELL     the folder of an optimised build; bash, zsh or fish
set -uo pipefail
here=$(dirname "$(realpath "$0")")
. "$here/../support/checks.sh"
build=$(realpath "$1")
shell=$2

# Another python may come first, and lack what the system's has.
python=/usr/bin/python3
for command in "$shell" "$python"; do
  command -v "$command" >/dev/null || skip "completions in $shell: $command is not installed"
done
bash_functions=/usr/share/bash-completion/bash_completion
[ "$shell" != bash ] || [ -e "$bash_functions" ] || skip "completions in bash: bash-completion is not installed"

begin
check "it is installed" cmake --install "$build" --prefix "$work/usr"
export PATH=$work/usr/bin:$PATH HOME=$work
mkdir "a tank" folder single
cp usr/share/doc/lumarine/examples/reef-day.xml tank.xml
touch tank.txt tank.png blue.txt summer.tmf folder/deep.xml folder/deep.png "a tank/deep.xml" "a tank/deep.txt" single/one.xml

case $shell in
  bash) printf '. %s\n' "$bash_functions" usr/share/bash-completion/completions/{lumarinectl,lumarine} ;;
  zsh) echo "fpath=($work/usr/share/zsh/site-functions \$fpath)" ;;
  fish) printf 'source %s\n' usr/share/fish/vendor_completions.d/{lumarinectl,lumarine}.fish ;;
esac >setup

# What is typed, and what it becomes. Behind a word that is whole the shells put a blank; fish does not tell it.
cat >table <<'END'
lumarinectl usb                                         lumarinectl usb-setup
lumarinectl rend                                        lumarinectl render
lumarinectl info tank.x                                 lumarinectl info tank.xml
lumarinectl info ta                                     lumarinectl info tank.xml
lumarinectl info fold                                   lumarinectl info folder/
lumarinectl info folder/                                lumarinectl info folder/deep.xml
lumarinectl info a\ tank/d                              lumarinectl info a\ tank/deep.xml
lumarinectl render tank.xml ta                          lumarinectl render tank.xml tank.png
lumarinectl convert su                                  lumarinectl convert summer.tmf
lumarinectl info tank.xml --js                          lumarinectl info tank.xml --json
lumarinectl upload --device em                          lumarinectl upload --device emulator
lumarinectl upload --device=em                          lumarinectl upload --device=emulator
lumarinectl upload --device udp                         lumarinectl upload --device udp:
lumarinectl edit tank.xml tank.xml --move 2=u           lumarinectl edit tank.xml tank.xml --move 2=up
lumarinectl edit tank.xml tank.xml --move=2=u           lumarinectl edit tank.xml tank.xml --move=2=up
lumarinectl edit tank.xml tank.xml --steps 2=bl         lumarinectl edit tank.xml tank.xml --steps 2=blue.txt
lumarinectl wifi-setup --password-file=bl               lumarinectl wifi-setup --password-file=blue.txt
lumarinectl --language fr0                              lumarinectl --language fr01
lumarinectl no-such                                     lumarinectl no-such
lumarine --ver                                          lumarine --version
lumarine single/                                        lumarine single/one.xml
END
cut -c1-56 table | sed 's/ *$//' >typed
cut -c57- table >wanted
timeout 300 "$python" "$here/press_tab.py" "$shell" setup <typed >found 2>errors
check "$shell completes" test $? = 0
[ ! -s errors ] || sed 's/^/# /' errors
while IFS= read -r typed <&3 && IFS= read -r wanted <&4; do
  IFS= read -r found <&5 || found="nothing"
  [ "$shell" = fish ] || [ "$wanted" = "$typed" ] || [[ $wanted == *[:/] ]] || wanted+=" "
  if [ "$found" = "$wanted" ]; then ok "$shell: $typed"; else not_ok "$shell: $typed"; echo "# became $found"; fi
done 3<typed 4<wanted 5<found
finish
