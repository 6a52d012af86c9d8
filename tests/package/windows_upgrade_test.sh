#!/usr/bin/env bash
# The installer for Windows over other versions, silently.
#   tests/package/windows_upgrade_test.sh BUILD
. "$(dirname "$0")/../support/checks.sh"
. "$(dirname "$0")/windows.sh"

windows_begin "$1"
entry='HKLM\Software\Microsoft\Windows\CurrentVersion\Uninstall\Lumarine'
path='HKLM\SYSTEM\CurrentControlSet\Control\Session Manager\Environment'
installed=$(windows_path 'Program Files/Lumarine')
desktop=$(windows_path users/Public/Desktop/Lumarine.lnk)
setup=$(echo packages/*-setup.exe)

# A version before with a file that has gone, and one that has not come yet.
cp -r "$stage" other
mkdir other/plugins
echo "of an earlier version" >other/plugins/gone.txt
"$project/packaging/windows/installer" other 4.6.900 older.exe
"$project/packaging/windows/installer" other 4.10.1 newer.exe

snapshot before
path_before=$(value "$path" Path)
ends_with "the version before installs" 0 older.exe /S /Desktop
has_value "the version before" "$entry" DisplayVersion 4.6.900
check "it has its file" test -e "$installed/plugins/gone.txt"
echo "a note of the user's" >"$installed/note.txt"

ends_with "this version installs over it" 0 "$setup" /S
has_value "this version" "$entry" DisplayVersion "$version"
check "the file of the version before is gone, the folder too" test ! -e "$installed/plugins"
check "the user's note is there" test -e "$installed/note.txt"
rm "$installed/note.txt"
check "the programs are those of this version" diff -r --exclude uninstall.exe "$stage" "$installed"
check "the desktop has it still" test -e "$desktop"
has_value "the search path has it once" "$path" Path "$path_before;C:\\Program Files\\Lumarine"

ends_with "it installs over itself, elsewhere" 0 "$setup" /S /NoPath '/D=C:\Lights'
soon "the first folder is gone" gone "$installed"
check "it is in the second" test -e "$(windows_path Lights/Lumarine.exe)"
has_value "the search path is as it was" "$path" Path "$path_before"

ends_with "a newer version installs" 0 newer.exe /S
has_value "the newer version, where this one was" "$entry" InstallLocation 'C:\Lights'
check "what was left out stays out" test "$(value "$path" Path)" = "$path_before"
ends_with "this version does not silently take its place" 4 "$setup" /S
has_value "the newer version is still there" "$entry" DisplayVersion 4.10.1
check "with its file" test -e "$(windows_path Lights/plugins/gone.txt)"

# A search path that is longer than the strings of NSIS, and folders like ours beside ours.
long=$(printf 'C:\\folder %04d;' {1..400})'C:\Lights and more;C:\Lights\bin'
wine reg add "$path" /v Path /t REG_EXPAND_SZ /d "$long" /f >/dev/null 2>&1
ends_with "it is taken away" 0 'C:\Lights\uninstall.exe' /S
soon "the second folder is gone" gone "$(windows_path Lights)"
has_value "a long search path that it is not in" "$path" Path "$long"
ends_with "it installs beside a long search path" 0 "$setup" /S '/D=C:\Lights'
has_value "a long search path" "$path" Path "$long;C:\\Lights"
wine reg add "$path" /v Path /t REG_EXPAND_SZ /d "$long;c:\\lights;C:\\behind" /f >/dev/null 2>&1
ends_with "it is taken away again" 0 'C:\Lights\uninstall.exe' /S
soon "the second folder is gone again" gone "$(windows_path Lights)"
has_value "all but ours of the long search path" "$path" Path "$long;C:\\behind"
wine reg add "$path" /v Path /t REG_EXPAND_SZ /d "$path_before" /f >/dev/null 2>&1
snapshot after
unchanged "nothing of any version is left behind" before after
finish
