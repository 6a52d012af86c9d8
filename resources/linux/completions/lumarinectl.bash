# shellcheck shell=bash
# Completes words of lumarinectl in bash, with the functions of bash-completion. The program itself knows its words.

_lumarinectl() {
  local cur words cword word about
  # Whole words: bash takes them apart at "=" and ":".
  _get_comp_words_by_ref -n '=:' cur words cword
  # What bash has cut off in front of the word that it replaces.
  local before=${cur%"${cur##*[=:]}"}
  COMPREPLY=()
  while IFS='|' read -r word about; do
    if [ "$word" = / ]; then
      cur=${cur##*=}
      about=${about//./}
      _filedir ${about:+"@(${about// /|})"}
    else
      COMPREPLY+=("${word#"$before"}")
      [[ $word != *[=:] ]] || compopt -o nospace
    fi
  done < <("${1/#~\//$HOME/}" complete -- "${words[@]:1:cword}" 2>/dev/null | tr '\t' '|')
}
complete -F _lumarinectl lumarinectl
