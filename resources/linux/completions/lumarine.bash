# shellcheck shell=bash
# Completes words of lumarine in bash, with the functions of bash-completion.

_lumarine() {
  local cur
  _get_comp_words_by_ref cur
  COMPREPLY=()
  if [[ $cur == -* ]]; then
    mapfile -t COMPREPLY < <(compgen -W '--help --version' -- "$cur")
  else
    _filedir xml
  fi
}
complete -F _lumarine lumarine
