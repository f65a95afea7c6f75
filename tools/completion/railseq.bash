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

# Splits a line into `words` as the shell does, without their quotes and backslashes. The last one
# is what is to be completed; where a quote is open in it, that is `quote`, and `front` is what
# stands before the quote.
_railseq_split() {
  local line=$1 word= has_begun= c i
  words=() quote= front=
  for ((i = 0; i < ${#line}; ++i)); do
    c=${line:i:1}
    if [[ -n $quote && $c == "$quote" ]]; then
      quote=
    elif [[ $quote == '"' && $c == \\ && ${line:i+1:1} != [\"\\\$\`] ]]; then
      word+=$c
    elif [[ $quote != \' && $c == \\ ]]; then
      ((++i))
      word+=${line:i:1}
    elif [[ -n $quote ]]; then
      word+=$c
    elif [[ $c == [[:space:]] ]]; then
      [[ -n $has_begun ]] && words+=("$word")
      word= has_begun=
      continue
    elif [[ $c == [\'\"] ]]; then
      quote=$c front=$word
    else
      word+=$c
    fi
    has_begun=1
  done
  words+=("$word")
}

# Keeps of COMPREPLY what bash puts in, as the shell has to find it there. Bash knows only the part
# of the word behind an open quote or, without one, behind the last of its breaking characters,
# such as "=".
_railseq_trim() {
  local current=$1 rest=$1 mark tail i
  if [[ -z $quote ]]; then
    for mark in = : @; do
      [[ $COMP_WORDBREAKS == *"$mark"* ]] || continue
      tail=${current##*"$mark"}
      ((${#tail} < ${#rest})) && rest=$tail
    done
    front=${current%"$rest"}
  fi
  for i in "${!COMPREPLY[@]}"; do
    local offer=${COMPREPLY[i]#"$front"}
    case $quote in
      \') ;;
      \") offer=$(sed 's/["\\$`]/\\&/g' <<<"$offer") ;;
      *)
        # Brackets stay as they are: no file is called like that.
        [[ -n $offer ]] && printf -v offer %q "$offer"
        offer=${offer//\\[/[} offer=${offer//\\]/]}
        ;;
    esac
    COMPREPLY[i]=$offer
  done
}

# Asks the program about the beginning of a path in what the line names.
_railseq_paths() {
  "$program" complete ${board:+--board "$board"} ${address:+--timeout 1 "$address"} "$1" 2>/dev/null
}

# Bash closes an open quote behind the only offer. A path that goes on gets a second one, with what
# comes behind it.
_railseq_hold_quote() {
  [[ -n $quote && ${#COMPREPLY[@]} == 1 ]] || return
  local path=${COMPREPLY[0]}
  if [[ $path == *'[' ]]; then
    COMPREPLY+=("$path]")
  elif [[ -n $(_railseq_paths "$path/") ]]; then
    COMPREPLY+=("$path/")
  elif [[ $command == @(set|wait) ]]; then
    COMPREPLY+=("$path=")
  fi
}

_railseq_files() {
  compopt -o filenames 2>/dev/null
  mapfile -t COMPREPLY < <(compgen -f -- "$1")
}

_railseq() {
  local program=$1 quote front
  local -a words
  _railseq_split "${COMP_LINE:0:COMP_POINT}"
  local last=$((${#words[@]} - 1))
  local current=${words[last]} previous=${words[last - 1]} command=${words[1]}
  COMPREPLY=()

  if ((last == 1)); then
    mapfile -t COMPREPLY < <(compgen -W 'demo serve get set make erase count tree watch wait health types lint record replay decode complete --help --version' -- "$current")
    return
  fi

  local options=--help
  case $command in
    demo) options+=' --pause' ;;
    serve) options+=' --listen --writable' ;;
    get | count | types) options+=' --board --timeout --json' ;;
    tree) options+=' --board --timeout --json --follow --no-reconnect' ;;
    set | make | erase) options+=' --board --timeout --json --tree' ;;
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
    mapfile -t COMPREPLY < <(_railseq_paths "$current")
    [[ $current == *=* ]] || _railseq_hold_quote
    _railseq_trim "$current"
  fi
}

complete -F _railseq railseq
