# Completes the command line of railseq in bash: commands, options, board files, sockets, and the
# paths, keys and values of the board or the process that the line names.

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

# Prints the address among the words, if any.
_railseq_address() {
  local word
  for word in "$@"; do
    [[ $word == unix:* || $word == tcp:* ]] && printf '%s' "$word" && return
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
    mapfile -t COMPREPLY < <(compgen -W 'demo serve get set count tree watch wait health types lint record replay decode complete --help' -- "$current")
    return
  fi

  local options=--help
  case $command in
    demo) options+=' --pause' ;;
    serve) options+=' --listen --writable' ;;
    get | count | types) options+=' --board --timeout --json' ;;
    tree) options+=' --board --timeout --json --follow --no-reconnect' ;;
    set) options+=' --board --timeout --json --tree' ;;
    watch) options+=' --json --initial --no-reconnect' ;;
    wait) options+=' --json --timeout --no-reconnect' ;;
    health) options+=' --json --timeout' ;;
    lint) options+=' --json' ;;
    complete) options+=' --board --timeout' ;;
    record) options+=' --for --max-bytes --force' ;;
    replay) options+=' --at --from --to --changes --json' ;;
    decode) options+=' --json' ;;
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
  elif [[ $current == unix:* ]]; then
    compopt -o nospace 2>/dev/null
    mapfile -t COMPREPLY < <(compgen -P unix: -f -- "${current#unix:}")
    _railseq_trim "$current"
  elif [[ $previous == --listen ]]; then
    compopt -o nospace 2>/dev/null
    mapfile -t COMPREPLY < <(compgen -W 'unix: tcp:' -- "$current")
  elif [[ $command == demo || $command == lint || $command == serve ]]; then
    _railseq_files "$current"
  else
    local board address
    board=$(_railseq_board "${words[@]:0:last}")
    address=$(_railseq_address "${words[@]:2:last-2}")
    if [[ -z $board && -z $address && $command != types && $command != complete ]]; then
      compopt -o nospace 2>/dev/null
      mapfile -t COMPREPLY < <(compgen -W 'unix: tcp:' -- "$current")
      return
    fi
    [[ $command == health ]] && return
    if [[ $command == types && -z $board && -z $address ]]; then
      mapfile -t COMPREPLY < <(compgen -W "$("$program" types 2>/dev/null | awk 'NR > 1 { print $1 }')" -- "$current")
      return
    fi
    # More of the path, or a value, may follow each completion but a value itself.
    [[ $current == *=* ]] || compopt -o nospace 2>/dev/null
    mapfile -t COMPREPLY < <("$program" complete ${board:+--board "$board"} \
      ${address:+--timeout 1 "$address"} "$current" 2>/dev/null)
    _railseq_trim "$current"
  fi
}

complete -F _railseq railseq
