# shellcheck shell=bash
# What is in every installation on Linux, sourced behind checks.sh.
#
#   version_of FILE                   prints the version that a CMakeLists.txt gives the project
#   holds_installation FOLDER         a check for each file that must be in it, and one that there is no other
#   programs_start FOLDER VERSION     its programs start where they are and are of that version

version_of() { sed -nE 's/^project\(Lumarine VERSION ([0-9.]+).*/\1/p' "$1"; }

# The guide is there if the build makes it, the licence in the archive.
installed_files=(
  bin/lumarine
  bin/lumarinectl
  lib/udev/rules.d/70-lumarine.rules
  libexec/lumarine/lumarine-render
  share/applications/lumarine.desktop
  share/bash-completion/completions/lumarine
  share/bash-completion/completions/lumarinectl
  share/doc/lumarine/examples/planted-tank.xml
  share/doc/lumarine/examples/reef-day.xml
  share/doc/lumarine/examples/seedling-bed.xml
  share/fish/vendor_completions.d/lumarine.fish
  share/fish/vendor_completions.d/lumarinectl.fish
  share/icons/hicolor/{16x16,22x22,24x24,32x32,48x48,64x64,128x128,256x256,512x512}/apps/lumarine.png
  share/icons/hicolor/scalable/apps/lumarine.svg
  share/man/man1/lumarine.1
  share/man/man1/lumarinectl.1
  share/metainfo/org.lumarine.lumarine.metainfo.xml
  share/mime/packages/lumarine.xml
  share/zsh/site-functions/_lumarine
  share/zsh/site-functions/_lumarinectl
)

holds_installation() {
  local file more
  for file in "${installed_files[@]}"; do check "there is $file" test -s "$1/$file"; done
  more=$(cd "$1" && find . ! -type d | sed 's#^\./##' | sort | comm -23 - <(printf '%s\n' "${installed_files[@]}" "${@:2}" | sort))
  check "there is nothing else" test -z "$more"
  [ -z "$more" ] || printf '# %s\n' "$more"
  for file in bin/lumarine bin/lumarinectl libexec/lumarine/lumarine-render; do
    check "$file can be started" test -x "$1/$file"
  done
}

# In another folder, by their whole names, with nothing of ours in PATH.
programs_start() {
  local folder said
  folder=$(realpath "$1")
  # 4.7.496 is "4.7 build 496".
  said="Lumarine ${2%.*} build ${2##*.}"
  is_said() { [ "$(QT_QPA_PLATFORM=offscreen "$1" --version)" = "$said" ]; }
  check "lumarine says its version" is_said "$folder/bin/lumarine"
  check "lumarinectl says its version" is_said "$folder/bin/lumarinectl"
  check "lumarinectl finds what draws pictures" "$folder/bin/lumarinectl" render "$folder/share/doc/lumarine/examples/reef-day.xml" "$PWD/day.png"
  check "the picture is there" test -s day.png
  check "an example is uploaded" "$folder/bin/lumarinectl" upload "$folder/share/doc/lumarine/examples/planted-tank.xml" --device emulator
}
