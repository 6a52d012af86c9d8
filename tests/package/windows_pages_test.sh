#!/usr/bin/env bash
# The pages of the installer and of the uninstaller, as somebody goes through them. Pictures of them are left in
# package-pictures below the build.
#   tests/package/windows_pages_test.sh BUILD
. "$(dirname "$0")/../support/checks.sh"
. "$(dirname "$0")/windows.sh"

next=1 cancel=2
# The dialog units' own numbers: "Retry" of a message box, "No", and the box to start the program.
retry=4 no=7 start_box=1203

windows_begin "$1"
installed=$(windows_path 'Program Files/Lumarine')
setup=$(echo packages/*-setup.exe)
cp -r "$stage" other
"$project/packaging/windows/installer" other 4.10.1 newer.exe

# page NAME TEXT [BUTTON]: comes up and shows the text; has its picture taken; is left by the button.
page() {
  check "page: $1" user sees "$2"
  picture "$1"
  [ -z "${3:-}" ] || user presses "$2" "$3"
}

snapshot before
wine "$setup" >/dev/null 2>&1 &
setup_process=$!
page welcome "Welcome to Lumarine Setup" $next
page whom "Choose Users" $next
page parts "Choose Components" $next
page folder "Choose Install Location" $next
page done "Completing Lumarine Setup" $next
wait $setup_process
check "setup ends well" test $? = 0
check "the programs are there" diff -r --exclude uninstall.exe "$stage" "$installed"
check "the last page starts the program" user sees "Lumarine - New program"
picture started

wine "$setup" >/dev/null 2>&1 &
setup_process=$!
for text in "Welcome to" "Choose Users" "Choose Components" "Choose Install Location"; do user presses "$text" $next; done
page running "Lumarine is running" $retry
check "it is not so easily persuaded" user sees "Lumarine is running"
user closes "Lumarine - New program"
user misses "Lumarine - New program"
user presses "Lumarine is running" $retry
user sees "Completing Lumarine Setup"
user presses "Completing Lumarine Setup" $start_box
user presses "Completing Lumarine Setup" $next
wait $setup_process
check "once it is closed, setup goes on" test $? = 0

check "a newer version" wine newer.exe /S
wine "$setup" >/dev/null 2>&1 &
setup_process=$!
for text in "Welcome to" "Choose Users" "Choose Components" "Choose Install Location"; do user presses "$text" $next; done
page newer "is installed, which is newer" $no
wait $setup_process
check "somebody who says no keeps it" test $? = 4

# In each language of the program.
while read -r language text; do
  LC_ALL=$language.UTF-8 wine "$installed/uninstall.exe" >/dev/null 2>&1
  page "uninstall-$language" "$text" $cancel
  user misses "$text"
done <<'END'
de_DE bleiben, wo sie sind
sk_SK zostanú tam, kde sú
it_IT restano dove sono
cs_CZ zůstanou tam, kde jsou
fr_FR restent où ils sont
pl_PL pozostaną na swoim miejscu
es_ES permanecen donde están
END

wine "$installed/uninstall.exe" >/dev/null 2>&1
page uninstall "Your light programs and settings stay" $cancel
user misses "Your light programs and settings stay"
check "cancelled" test -e "$installed/Lumarine.exe"
wine "$installed/uninstall.exe" >/dev/null 2>&1
user presses "Your light programs and settings stay" $next
page uninstalled "Uninstallation Complete" $next
soon "its folder is gone" gone "$installed"
rm -rf "$(windows_path "users/$(id -un)/Documents")"/*
snapshot after
unchanged "nothing is left behind" before after

finish
