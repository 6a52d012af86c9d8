#!/usr/bin/env bash
# The Debian package as people have it, in a clean Debian system without compilers: installed over an older version, used,
# removed, purged.
#   tests/package/debian_test.sh DEB
# It takes root's rights and a Debian mirror.
# shellcheck disable=SC2317   # the checks call functions by their names
set -uo pipefail

[ $# = 1 ] || { echo "usage: $0 DEB" >&2; exit 2; }
here=$(realpath "$(dirname "$0")")
deb=$(realpath "$1")
. "$here/../support/checks.sh"
. "$here/clean_root.sh"
. "$here/hardening.sh"
begin root_end

# As root, and as the person who uses it. Neither has a display.
system() { "$root_sh" run "$root" "$@"; }
person() { "$root_sh" run --person --env XDG_DATA_DIRS=/usr/local/share:/usr/share "$root" "$@"; }
ctl() { person lumarinectl "$@"; }

# What a desktop has that uses it, and what works it in a test. What it depends on itself is left to it.
root_begin debian-test bash-completion dbus-daemon dbus-bin desktop-file-utils file fish imagemagick jq \
  libglib2.0-bin libxml2-utils man-db openbox procps python3-minimal shared-mime-info udev xauth xclip xdg-utils xdotool xvfb zsh
home=$root/home/person
not() { ! "$@"; }
# prints TEXT COMMAND...; without a text nothing may be printed, not even a complaint.
prints() { if [ -n "$1" ]; then grep -qF -- "$1" < <("${@:2}"); else [ -z "$("${@:2}" 2>&1)" ]; fi; }
check "there is no compiler" prints "" system sh -c 'command -v cc c++ gcc clang cmake || true'

# files: all files but those of home and what belongs to the running system.
files() { (cd "$root" && find . -xdev \( -path ./home -o -path ./proc -o -path ./sys -o -path ./dev -o -path ./run -o -path ./tmp \) -prune -o -print | LC_ALL=C sort); }
files >before.txt

# --- an older version

# The same with a lower number, another guide, and a file that the new one no longer has.
mkdir older
dpkg-deb -R "$deb" older
sed -i 's/^Version: .*/Version: 4.6.1/' older/DEBIAN/control
echo "an old guide" >older/usr/share/lumarine/guide.html
echo "obsolete" >older/usr/share/lumarine/obsolete.txt
rm older/DEBIAN/md5sums
dpkg-deb --root-owner-group -b older "$root/tmp/older.deb" >/dev/null
cp "$deb" "$root/tmp/lumarine.deb"

apt() { system apt-get -q -y "$@"; }
version() { system dpkg-query -W -f '${db:Status-Status} ${Version}' lumarine 2>/dev/null; }
check "apt installs an older version with all that it needs" apt install /tmp/older.deb
check "it is the older one" test "$(version)" = "installed 4.6.1"
check "its obsolete file is there" test -e "$root/usr/share/lumarine/obsolete.txt"
exits "a program is made with it" 0 new mine.xml
check "settings are made" person sh -c 'mkdir Documents && echo "<settings/>" >Documents/LumarineConfig.xml'

# --- the upgrade

check "apt upgrades it" apt install /tmp/lumarine.deb
check "it is the new one" test "$(version)" = "installed $(dpkg-deb -f "$deb" Version)"
for program in bin/lumarine bin/lumarinectl libexec/lumarine/lumarine-render; do hardened "$program" "$root/usr/$program"; done
check "the obsolete file is gone" test ! -e "$root/usr/share/lumarine/obsolete.txt"
check "the guide is the new one" grep -q "<html" "$root/usr/share/lumarine/guide.html"
check "every file is as it was packed" prints "" system dpkg --verify lumarine
check "nothing that it needs is missing" system apt-get -q check

# --- the command line

exits "it tells its version" 0 --version
says "which is the package's" "$(dpkg-deb -f "$deb" Version | sed 's/\(.*\)\.\(.*\)/Lumarine \1 build \2/')" out.txt
exits "the program made with the older one is read" 0 info mine.xml
exits "an example of the package is read" 0 info /usr/share/doc/lumarine/examples/reef-day.xml
for kind in png svg pdf; do
  exits "a picture is drawn, $kind" 0 render mine.xml mine.$kind
  check "it is there, $kind" test -s "$home/mine.$kind"
done
exits "the emulator takes a program" 0 upload mine.xml --device emulator
says "all of it" "Uploading finished"
exits "no controller is found" 3 sync-time --device tc420

# --- the desktop program: all that a mouse and a keyboard do with the installed one

mkdir -p "$home/checks"
(cd "$here/../.." && cp -R --parents tests/support/checks.sh tests/installed scripts/display-env examples "$home/checks/")
person bash checks/tests/installed/x11_test.sh >x11.txt 2>&1
check "the window was used" test $? = 0
sed 's/^\(not \)\?ok /&window: /' x11.txt
grep -E '^(not )?ok ' x11.txt | sed 's/ok /&window: /' >>"$counted"

# --- the manual, completions, the kind of file, the rule

for page in lumarine lumarinectl; do
  check "man finds $page" person man -w $page
  check "$page has no fault in its page" prints "" \
    person sh -c "MANWIDTH=80 man --warnings -E UTF-8 -l -Tutf8 /usr/share/man/man1/$page.1.gz >/dev/null"
done
# As a shell starts: nothing but what the package has put in its place.
cp "$here/press_tab.py" "$home/checks/"
echo ". /usr/share/bash-completion/bash_completion" >"$home/bash.setup"
touch "$home/zsh.setup"
for shell in bash zsh; do
  check "$shell completes a command" prints "lumarinectl upload" \
    person sh -c "echo lumarinectl upl | python3 checks/press_tab.py $shell $shell.setup"
done
check "fish completes a command" prints upload person fish -c 'complete -C "lumarinectl upl"'

kind=application/x-lumarine+xml
kind_of() { person gio info -a standard::content-type "$1"; }
check "gio knows a light program" prints $kind kind_of mine.xml
check "xdg-mime knows it" prints $kind person env XDG_CURRENT_DESKTOP=GNOME xdg-mime query filetype mine.xml
person sh -c 'echo "<a/>" >other.xml'
check "other XML is no light program" not prints $kind kind_of other.xml
check "but is XML" prints application/xml kind_of other.xml
check "the program opens it" prints lumarine.desktop person gio mime $kind
check "the launcher is valid" prints "" system desktop-file-validate /usr/share/applications/lumarine.desktop

udev() { system udevadm test /sys/class/mem/null 2>&1; }
check "udev reads the rule" prints "70-lumarine.rules" udev
check "and has no complaint of it" not prints "70-lumarine.rules:" udev

# --- the end

cp -a "$home/Documents" documents
check "apt removes it" apt remove lumarine
check "its programs are gone" test ! -e "$root/usr/bin/lumarine" -a ! -e "$root/usr/bin/lumarinectl"
check "its files are no light programs any more" not prints $kind kind_of mine.xml
check "they are XML" prints application/xml kind_of mine.xml
check "it comes back" apt install /tmp/lumarine.deb
check "apt purges it, and what was installed for it" apt purge --autoremove lumarine
check "dpkg knows it no longer" test -z "$(version)"
files >after.txt
# What apt and dpkg write down for themselves, and caches of other packages.
left() { diff before.txt after.txt | grep '^[<>]' | grep -vE '^. \./var/(log|lib/(apt|dpkg)|cache/(apt|debconf|fontconfig|man))/'; }
check "nothing is left behind" prints "" left
left
check "documents and settings stay" diff -r documents "$home/Documents"
check "so does the program" test -s "$home/mine.xml"

finish
