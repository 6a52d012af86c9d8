#!/usr/bin/env bash
# The zip and the installer for Windows: what is in them, and the programs installed, used and taken away silently.
#   tests/package/windows_package_test.sh BUILD
. "$(dirname "$0")/../support/checks.sh"
. "$(dirname "$0")/windows.sh"
. "$(dirname "$0")/hardening.sh"

windows_begin "$1"
name=Lumarine-$version-windows-x64
setup=$work/packages/$name-setup.exe
entry='HKLM\Software\Microsoft\Windows\CurrentVersion\Uninstall\Lumarine'
installed=$(windows_path 'Program Files/Lumarine')

# --- What is in the packages

check "the zip is whole" unzip -tq "packages/$name.zip"
unzip -Z1 "packages/$name.zip" | sed "s|^Lumarine-$version/||" >zip.list
for file in Lumarine.exe lumarinectl.exe guide.html LICENSE.txt examples/{reef-day,planted-tank,seedling-bed}.xml \
  licences/{hidapi,CLI11,nlohmann-json,gcc-runtime,mingw-w64-runtime,nsis}.txt; do
  check "the zip has $file" grep -qxF "$file" zip.list
done
if grep -qa 'deflate [0-9.]* Copyright' "$stage"/*.exe; then check "the zip has zlib's" grep -qx licences/zlib.txt zip.list; fi
check "the zip has one folder" test "$(unzip -Z1 "packages/$name.zip" | grep -cv "^Lumarine-$version/")" = 0
check "texts end their lines as Windows does" grep -q $'\r$' "$stage/LICENSE.txt"
for program in Lumarine lumarinectl; do
  check "$program is stripped" grep -q 'no symbols' <(x86_64-w64-mingw32-nm "$stage/$program.exe" 2>&1)
  check "$program holds no folder of this machine" test "$(strings "$stage/$program.exe" | grep -cF "$project")" = 0
  hardened_windows "$program.exe" "$stage/$program.exe"
done
check "the installer asks for no more rights than its user has" \
  grep -qa 'requestedExecutionLevel level="highestAvailable"' "$setup"

# Another time, another place.
pack two
check "two zips are equal" cmp packages/$name.zip two/out/$name.zip
check "two installers are equal" cmp "$setup" two/out/$name-setup.exe

# --- Installed for all users

snapshot before
documents=$(windows_path "users/$(id -un)/Documents")
ends_with "it installs silently" 0 "$setup" /S /Desktop
check "the programs are those of the zip" diff -r --exclude uninstall.exe "$stage" "$installed"
check "it is in the start menu" test -e "$(windows_path 'ProgramData/Microsoft/Windows/Start Menu/Programs/Lumarine.lnk')"
check "it is on the desktop, as was told" test -e "$(windows_path users/Public/Desktop/Lumarine.lnk)"
has_value "in the list of programs" "$entry" DisplayName Lumarine
has_value "in the list of programs" "$entry" DisplayVersion "$version"
has_value "in the list of programs" "$entry" Publisher "Lumarine team"
has_value "in the list of programs" "$entry" DisplayIcon 'C:\Program Files\Lumarine\Lumarine.exe'
has_value "in the list of programs" "$entry" UninstallString '"C:\Program Files\Lumarine\uninstall.exe"'
has_value "in the list of programs" "$entry" QuietUninstallString '"C:\Program Files\Lumarine\uninstall.exe" /S'
has_value "in the list of programs" "$entry" NoModify 0x1
has_value "in the list of programs" "$entry" NoRepair 0x1
has_value "in the list of programs" "$entry" EstimatedSize "0x$(printf %x "$(du -sk --apparent-size "$stage" | cut -f1)")"
has_value "opens XML" 'HKLM\Software\Classes\Applications\Lumarine.exe\shell\open\command' '' \
  '"C:\Program Files\Lumarine\Lumarine.exe" "%1"'
check "XML files offer it" grep -q Lumarine.Program <(wine reg query 'HKLM\Software\Classes\.xml\OpenWithProgids' 2>&1)
check "what opens XML unasked is as before" grep -q 'value not set' <(wine reg query 'HKLM\Software\Classes\.xml' /ve 2>&1)

check "a terminal knows the command line" \
  grep -qx "Lumarine ${version%.*} build ${version##*.}" <(wine cmd /c lumarinectl --version 2>/dev/null | tr -d '\r')

wine start /unix "$installed/Lumarine.exe" "C:\\Program Files\\Lumarine\\examples\\reef-day.xml" >/dev/null 2>&1
check "the program opens an example" user sees reef-day
ends_with "nothing is put over a running program" 3 "$setup" /S
wine "C:\\Program Files\\Lumarine\\uninstall.exe" /S
sleep 3
check "nor is it taken away" test -e "$installed/uninstall.exe"
user closes reef-day
user misses reef-day
has_settings() { [ -s "$documents/LumarineConfig.xml" ]; }
soon "the settings are kept in the documents" has_settings
cp "$stage/examples/reef-day.xml" "$documents/mine.xml"

ends_with "it is taken away silently" 0 "C:\\Program Files\\Lumarine\\uninstall.exe" /S
soon "its folder is gone" gone "$installed"
check "settings and programs of the user's own stay" test "$(find "$documents" -type f | wc -l)" -ge 2
rm -r "${documents:?}"/*
snapshot after
unchanged "nothing is left behind" before after

# --- For one user

ends_with "it installs for one user, in a folder of their own" 0 "$setup" /S /CurrentUser /NoPath '/D=C:\Lichter-für-ä€'
check "it is where it was told to be" test -e "$(windows_path 'Lichter-für-ä€/Lumarine.exe')"
has_value "in this user's list of programs" "${entry/HKLM/HKCU}" DisplayVersion "$version"
check "the search path is as it was" test -z "$(value 'HKCU\Environment' Path)"
ends_with "it is taken away for one user" 0 'C:\Lichter-für-ä€\uninstall.exe' /S
soon "its folder is gone, too" gone "$(windows_path 'Lichter-für-ä€')"
snapshot after
unchanged "nothing is left behind for one user" before after

# --- The zip, in a folder with a name of many letters

mkdir "$(windows_path 'Über mir')"
unzip -q "packages/$name.zip" -d "$(windows_path 'Über mir')"
portable='C:\Über mir\Lumarine-'$version
ends_with "the command line runs there" 0 "$portable\\lumarinectl.exe" info "$portable\\examples\\planted-tank.xml"
wine "$portable\\Lumarine.exe" "$portable\\examples\\planted-tank.xml" >/dev/null 2>&1 &
check "the program runs there" user sees planted-tank
user closes planted-tank
user misses planted-tank
finish
