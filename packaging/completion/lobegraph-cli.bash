# Completion of lobegraph-cli for bash.

_lobegraph_cli() {
  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
  local verb='' word
  for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
    case $word in report | render | convert | ports) verb=$word && break ;; esac
  done
  local plot='--scale --apply --peak-input-level --spike-detect-level --calibrate --rotate --trim-front --trim-end'
  local words=''
  COMPREPLY=()
  case $previous in
    --scale) words='log db50 linear' ;;
    --apply)
      # The last of the list is completed, what stands before it is kept.
      local kept=''
      [[ $current == *,* ]] && kept=${current%,*},
      mapfile -t COMPREPLY < <(compgen -P "$kept" -W 'smooth reverse despike orient original' -- "${current##*,}")
      compopt -o nospace
      return
      ;;
    --size | --title | --rotate | --trim-front | --trim-end | --peak-input-level | --spike-detect-level | --jobs | -j) return ;;
  esac
  if [[ -z $words && $current == -* ]]; then
    case $verb in
      report) words="$plot --json --repeat --turn --readings --trace --jobs -j --help -h" ;;
      render) words="$plot --output -o --overlay --size --rectangular --colours --title --help -h" ;;
      convert) words='--table --help -h' ;;
      ports) words='--help -h' ;;
      *) words='--version --help -h' ;;
    esac
  elif [[ -z $words && -z $verb ]]; then
    words='report render convert ports'
  elif [[ -z $words && $verb == ports && $previous == ports ]]; then
    words='assign'
  fi
  if [[ -n $words ]]; then
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$current")
  else
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(compgen -f -- "$current")
  fi
}
complete -F _lobegraph_cli lobegraph-cli
