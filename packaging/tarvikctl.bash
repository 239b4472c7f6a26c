# bash completion for tarvikctl(1)
_tarvikctl() {
  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} command=${COMP_WORDS[1]}
  COMPREPLY=()
  if [ "$COMP_CWORD" = 1 ]; then
    mapfile -t COMPREPLY < <(compgen -W "check show convert sort text --version --help" -- "$current")
    return
  fi
  if [ "$command" = sort ] && [ "$previous" = --key ]; then
    mapfile -t COMPREPLY < <(compgen -W "0 1 2 3 4 5 6" -- "$current")
    return
  fi
  local options=
  case $command in
  check) ;;
  show) options="--json --all" ;;
  convert) options="--yes" ;;
  sort) options="--key --yes" ;;
  *) return ;;
  esac
  if [ "${current:0:1}" = - ]; then
    mapfile -t COMPREPLY < <(compgen -W "$options" -- "$current")
    return
  fi
  # Folders, and the files that a list can be in.
  compopt -o filenames 2>/dev/null
  local extensions="tvm|csv"
  [ "$command" = check ] && extensions="tva|tvk|tvm|tvs|tvc|csv"
  mapfile -t COMPREPLY < <(shopt -s nocasematch
    compgen -f -- "$current" | while read -r file; do
      [[ -d $file || $file =~ \.($extensions)$ ]] && printf '%s\n' "$file"
    done)
}
complete -F _tarvikctl tarvikctl
