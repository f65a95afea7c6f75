# Completes the command line of railseq in bash: commands, options, board files, and the paths, keys
# and values of the board that the line names.

# Prints the board that the words name by --board, if any.
_railseq_board() {
  local i
  for ((i = 1; i <= $#; ++i)); do
    case ${!i} in
      --board)
        ((++i))
        printf '%s' "${!i/#\~/$HOME}"
        return
        ;;
      --board=*)
        local file=${!i#--board=}
        printf '%s' "${file/#\~/$HOME}"
        return
        ;;
    esac
  done
}

# Keeps of COMPREPLY what bash puts in: it knows only the part of the word behind the last of its
# breaking characters, such as "=".
_railseq_trim() {
  local current=$1 rest=$1 mark tail
  for mark in = : @; do
    [[ $COMP_WORDBREAKS == *"$mark"* ]] || continue
    tail=${current##*"$mark"}
    ((${#tail} < ${#rest})) && rest=$tail
  done
  local front=${current%"$rest"}
  COMPREPLY=("${COMPREPLY[@]#"$front"}")
}

_railseq_files() {
  compopt -o filenames 2>/dev/null
  mapfile -t COMPREPLY < <(compgen -f -- "$1")
}

_railseq() {
  local program=$1 line=${COMP_LINE:0:COMP_POINT}
  local -a words
  read -ra words <<<"$line"
  [[ $line == *[[:space:]] ]] && words+=('')
  local last=$((${#words[@]} - 1))
  local current=${words[last]} previous=${words[last - 1]} command=${words[1]}
  COMPREPLY=()

  if ((last == 1)); then
    mapfile -t COMPREPLY < <(compgen -W 'demo get set count tree types lint record replay decode complete --help' -- "$current")
    return
  fi

  local options=--help
  case $command in
    demo) options+=' --pause' ;;
    get | count | tree | types) options+=' --board --json' ;;
    set) options+=' --board --json --tree' ;;
    lint) options+=' --json' ;;
    record) options+=' --for --max-bytes --force' ;;
    replay) options+=' --at --from --to --changes --json' ;;
    decode) options+=' --json' ;;
    complete) options+=' --board' ;;
    *) return ;;
  esac

  if [[ $command == @(replay|decode) && $current != -* ]] ||
    [[ $command == record && $last -ge 3 && $current != @(-*|unix:*) ]]; then
    case $previous in
      --at | --from | --to | --for | --max-bytes) return ;;
    esac
    _railseq_files "$current"
  elif [[ $previous == --board ]]; then
    _railseq_files "$current"
  elif [[ $current == --board=* ]]; then
    _railseq_files "${current#--board=}"
  elif [[ $current == -* ]]; then
    mapfile -t COMPREPLY < <(compgen -W "$options" -- "$current")
  elif [[ $command == demo || $command == lint ]]; then
    _railseq_files "$current"
  else
    local board
    board=$(_railseq_board "${words[@]:0:last}")
    if [[ $command == types && -z $board ]]; then
      mapfile -t COMPREPLY < <(compgen -W "$("$program" types 2>/dev/null | awk 'NR > 1 { print $1 }')" -- "$current")
      return
    fi
    # More of the path, or a value, may follow each completion but a value itself.
    [[ $current == *=* ]] || compopt -o nospace 2>/dev/null
    mapfile -t COMPREPLY < <("$program" complete ${board:+--board "$board"} "$current" 2>/dev/null)
    _railseq_trim "$current"
  fi
}

complete -F _railseq railseq
