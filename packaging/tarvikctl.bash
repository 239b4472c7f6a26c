# bash completion for tarvikctl(1)
_tarvikctl() {
  COMPREPLY=()

  # "--to=png" is three words to the shell, and two here.
  local typed=() i
  for ((i = 0; i <= COMP_CWORD; i++)); do
    [ "${COMP_WORDS[i]}" = = ] || typed+=("${COMP_WORDS[i]}")
  done
  [ "${COMP_WORDS[COMP_CWORD]}" = = ] && typed+=("")
  local last=$((${#typed[@]} - 1))
  local current=${typed[last]} previous=${typed[last - 1]}

  # The words before this one, without the instrument: its colon makes three words of it.
  local words=() instrument=""
  i=1
  while ((i < last)); do
    if [ "${typed[i]}" = --to ] && [ "${words[0]-}" != picture ] && [ "${words[0]-}" != print ] && [ "$instrument${words[0]-}" != givencapture ]; then
      instrument=given
      i=$((i + 2))
      while [ "${typed[i]-}" = : ]; do i=$((i + 2)); done
    else
      words+=("${typed[i]}")
      i=$((i + 1))
    fi
  done
  ((i > last)) && return

  local command=${words[0]-}
  if [ -z "$command" ]; then
    local commands="check show convert sort plot picture print text --to --version --help"
    [ -n "$instrument" ] && commands="idn ls get put rm capture"
    mapfile -t COMPREPLY < <(compgen -W "$commands" -- "$current")
    return
  fi
  if [ "$command" = sort ] && [ "$previous" = --key ]; then
    mapfile -t COMPREPLY < <(compgen -W "0 1 2 3 4 5 6" -- "$current")
    return
  fi
  if [ "$command $previous" = "print --to" ]; then
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(compgen -f -X '!*.pdf' -- "$current")
    return
  fi
  case $previous in
  --paper)
    mapfile -t COMPREPLY < <(compgen -W "A3 A4 A5 Letter Legal" -- "$current")
    return
    ;;
  --printer)
    mapfile -t COMPREPLY < <(compgen -W "$(lpstat -e 2>/dev/null)" -- "$current")
    return
    ;;
  --settings)
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(compgen -f -- "$current")
    return
    ;;
  --palette)
    mapfile -t COMPREPLY < <(compgen -W "0 1" -- "$current")
    return
    ;;
  --to)
    mapfile -t COMPREPLY < <(compgen -W "png bmp pcx wmf" -- "$current")
    return
    ;;
  --into)
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(compgen -d -- "$current")
    return
    ;;
  --table)
    mapfile -t COMPREPLY < <(compgen -W "kfactor omniphase" -- "$current")
    return
    ;;
  --description | --size | --margins | --offset | --dpi | --per-page) return ;;
  esac
  local options="" classes="" extensions="tva|tvk|tvm|tvs|tvc|csv|json"
  case $command in
  check) ;;
  show) options="--json --all" ;;
  convert) options="--yes" ;;
  sort) options="--key --merge --yes" ;;
  plot) options="--table --size --values --yes" extensions="tvk|tvc|csv|json" ;;
  picture) options="--palette --description --into --to --yes" extensions="bmp|png|pcx|wmf" ;;
  print)
    options="--to --printer --paper --landscape --margins --offset --dpi --settings --per-page --arrange --title"
    options+=" --no-title --outline --no-outline --bw --description --layout"
    extensions="bmp|png|pcx|wmf|tvk|csv"
    ;;
  ls | rm) classes=needed ;;
  get | put) options="--yes" classes=needed ;;
  capture) options="--palette --description --into --to --yes" extensions="bmp|png|pcx|wmf" ;;
  *) return ;;
  esac
  if [ "${current:0:1}" = - ]; then
    mapfile -t COMPREPLY < <(compgen -W "$options" -- "$current")
    return
  fi
  local operands=() word
  for word in "${words[@]:1}"; do [ "${word:0:1}" = - ] || operands+=("$word"); done
  if [ -n "$classes" ]; then
    if [ ${#operands[@]} = 0 ]; then
      mapfile -t COMPREPLY < <(compgen -W "antenna kfactor memory suppress screen correction" -- "$current")
      return
    fi
    # Names on the instrument are not known here.
    [ "$command" = put ] || [ "$command${#operands[@]}" = get2 ] || return
    case ${operands[0]} in
    antenna) extensions=tva ;;
    kfactor) extensions=tvk ;;
    memory) extensions=tvm ;;
    suppress) extensions=tvs ;;
    screen) extensions=png ;;
    correction) extensions=tvc ;;
    esac
  fi
  # Folders, and the files that it can be.
  compopt -o filenames 2>/dev/null
  mapfile -t COMPREPLY < <(shopt -s nocasematch
    compgen -f -- "$current" | while read -r file; do
      [[ -d $file || $file =~ \.($extensions)$ ]] && printf '%s\n' "$file"
    done)
}
complete -F _tarvikctl tarvikctl
