#!/usr/bin/env bash
# What an installation puts into a system: whether all of it is there, is what it should be, and works.
#   installation_test.sh BUILD     the folder of an optimised build
set -uo pipefail
here=$(dirname "$(realpath "$0")")
. "$here/../support/checks.sh"
. "$here/installation.sh"
build=$(realpath "$1")
version=$(version_of "$here/../../CMakeLists.txt")

for command in desktop-file-validate appstreamcli xmllint update-mime-database gio man mandoc rsvg-convert identify; do
  command -v "$command" >/dev/null || skip "an installation: $command is not installed"
done

begin
check "it is installed" cmake --install "$build" --prefix "$work/usr"
holds_installation usr
programs_start usr "$version"

# --- the launcher, and what software centres show

launcher=usr/share/applications/lumarine.desktop
metainfo=usr/share/metainfo/org.lumarine.lumarine.metainfo.xml
value() { sed -n "s/^$1=//p" "$launcher"; }
told() { xmllint --xpath "string($1)" "$metainfo"; }
same() { [ -n "$1" ] && [ "$1" = "$2" ]; }

# It complains without failing, too.
valid_launcher() { [ -z "$(desktop-file-validate "$launcher" 2>&1)" ]; }
check "the launcher is valid" valid_launcher
check "software centres can show it" appstreamcli validate --no-net --pedantic "$metainfo"
check "it is of this version" same "$(told '//release/@version')" "$version"
check "it is for every age" same "$(told '//content_rating/@type')" oars-1.1
check "it has a picture" test -n "$(told '//screenshot/image')"
check "its launcher is the one that is installed" same "$(told '//launchable')" "$(basename "$launcher")"
check "its files are those of the launcher" same "$(told '//mediatype');" "$(value MimeType)"
check "the launcher starts the program" same "$(value Exec)" "lumarine %f"
check "launcher and summary say the same" same "$(told '/component/summary[not(@xml:lang)]')" "$(value Comment)"
for language in cs de es fr it pl sk; do
  check "so they do in $language" same "$(told "/component/summary[@xml:lang='$language']")" "$(value "Comment\\[$language\\]")"
  check "what it is is told in $language" test -n "$(value "GenericName\\[$language\\]")"
  check "it is found in $language" test -n "$(value "Keywords\\[$language\\]")"
  check "the description is whole in $language" test "$(xmllint --xpath "count(//description//*[@xml:lang='$language'])" "$metainfo")" = \
    "$(xmllint --xpath 'count(//description/p[not(@xml:lang)] | //description//li[not(@xml:lang)])' "$metainfo")"
done
rules=$(sed -nE 's/.*idVendor}=="(.*)", .*idProduct}=="([0-9a-f]*)".*/usb:v\1p\2d*/p' usr/lib/udev/rules.d/70-lumarine.rules)
check "its devices are those of the rule" same "$(xmllint --xpath '//modalias/text()' "$metainfo")" "$rules"

# --- the icon

theme=usr/share/icons/hicolor
for size in 16 22 24 32 48 64 128 256 512; do
  check "the icon of $size has that size" same "$(identify -format '%m %wx%h' "$theme/${size}x$size/apps/lumarine.png")" "PNG ${size}x$size"
done
check "the drawing is one" xmllint --noout "$theme/scalable/apps/lumarine.svg"

# --- which files are light programs. The system's own types are there, too, as on every desktop.

types=usr/share/mime
check "the file type is well-formed" xmllint --noout "$types/packages/lumarine.xml"
cp /usr/share/mime/packages/freedesktop.org.xml "$types/packages/"
check "the file type is taken up" update-mime-database "$types"
is() {
  local name=$1 type=$2 file=$3 found
  found=$(XDG_DATA_HOME=$work/none XDG_DATA_DIRS=$work/usr/share gio info -a standard::content-type,standard::icon "$file" |
    sed -n 's/^ *standard::\(content-type\|icon\): //p' | sed 's/,.*//' | sort | tr '\n' ' ')
  check "$name" same "$found" "$type "
}
ours="application/x-lumarine+xml lumarine"
xml="application-xml application/xml"
for example in usr/share/doc/lumarine/examples/*.xml; do is "$(basename "$example") is a light program" "$ours" "$example"; done
usr/bin/lumarinectl --language en new new.xml 2>/dev/null
is "what the program writes is one" "$ours" new.xml
{ printf '\xef\xbb\xbf<?xml version="1.0" encoding="UTF-8"?>\n<!-- by hand -->\n'; cat new.xml; } >by-hand.xml
is "what an editor has made of it is one" "$ours" by-hand.xml
sed "s#<modelist>#<modelist file='/home/somebody/tank.xml'>#" new.xml >LumarineRecovery-1.xml
is "a copy of what could not be saved is one" "$ours" LumarineRecovery-1.xml
cp new.xml without
is "it is one without an ending, too" "$ours" without
is "a page for software centres is other XML" "$xml" "$metainfo"
echo '<note/>' >note.xml
is "XML without a declaration is other XML" "$xml" note.xml
printf '<?xml version="1.0"?>\n<modelists><mode name="A"/></modelists>\n' >near.xml
is "what is nearly one is other XML" "$xml" near.xml

# --- manual pages

for page in lumarine lumarinectl; do
  file=usr/share/man/man1/$page.1
  # Both complain on their standard error; so do they where nothing is to be read.
  silent_page() { [ -s "$file" ] && [ -z "$(LC_ALL=C.UTF-8 MANROFFSEQ='' MANWIDTH=80 man --warnings -E UTF-8 -l -Tutf8 -Z "$file" 2>&1 >/dev/null)" ]; }
  check "man has nothing to say of $page's page" silent_page
  check "neither has mandoc" mandoc -Tlint "$file"
  says "$page's page is of this version" "Lumarine $version" "$file"
done
options_of() { sed -nE 's/^ +(--[a-z]+).*/\1/p' | sort -u; }
check "lumarine's page tells its options" same "$(sed 's/\\-/-/g' usr/share/man/man1/lumarine.1 | sed -nE 's/^\.B (--[a-z]+)$/\1/p' | sort -u)" \
  "$(QT_QPA_PLATFORM=offscreen usr/bin/lumarine --help | options_of)"
finish
