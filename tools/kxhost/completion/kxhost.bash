# Completion of kxhost for bash. Source it, or install it as
# /usr/share/bash-completion/completions/kxhost.

# Commands and options come from the help of the program, so they are never out of date.
_kxhost_commands()
{
    "${COMP_WORDS[0]}" --help 2>/dev/null | sed -n '/^Commands:/,/^$/s/^  \([a-z]*\) .*/\1/p'
}

_kxhost_options()
{
    "${COMP_WORDS[0]}" "$1" --help 2>/dev/null | sed -n '/^Options:/,/^$/p' \
        | grep -o -e '--[a-z][a-z0-9-]*' | sort -u
}

# Of the simulated controller that stands beside the program.
_kxhost_faults()
{
    "${COMP_WORDS[0]%kxhost}kxsim" --help 2>/dev/null \
        | sed -n '/^Faults,/,/^$/s/^  \([a-z-]*\) .*/\1:/p'
    echo "all:"
}

# The first word that is no option: only switches stand in front of the command.
_kxhost_command()
{
    local word
    for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
        if [[ $word != -* ]]; then
            printf '%s\n' "$word"
            return
        fi
    done
}

# The values of an option, or nothing when they are for the user to choose.
_kxhost_values()
{
    case $1 in
        --baud | -b) echo "1200 2400 4800 9600 19200 38400 57600 115200" ;;
        --parity) echo "none even odd" ;;
        --protocol) echo "rtu tcp" ;;
        --data-bits) echo "8" ;;
        --stop-bits) echo "1 2" ;;
        --max-words) echo "auto 32 64 125" ;;
        --low-latency) echo "yes no" ;;
        --rs485) echo "on rts-before: rts-after: rts-low" ;;
        --word-order) echo "low high swapped low,swapped high,swapped" ;;
        --as) echo "bit word" ;;
        --fault) _kxhost_faults ;;
    esac
}

# Whether an option takes a number or another text that only the user knows.
_kxhost_takes_number()
{
    case $1 in
        --station | -a | --timeout | -t | --settle | --quiet | --retries | -r | --reopen) ;;
        --every | --for | --rotate) ;;
        --max-bits | --interval | --tcp | --fault-seed | --fault-delay | --cycles) ;;
        --seconds | --stations) ;;
        --count | -n | --step | --turnaround | --data-type | --access | --only) ;;
        *) return 1 ;;
    esac
}

_kxhost_words()
{
    local command=$1 previous=$2 current=$3 values
    case $previous in
        --library | --tags | --port | -p | --pcap | --to | --junit) return ;; # files
    esac
    values=$(_kxhost_values "$previous")
    [[ $command == scan && $previous == @(--baud|-b|--parity) ]] && values+=" auto"
    if [[ -z $command ]]; then
        echo "$(_kxhost_commands) --help --simulate --version"
    elif [[ -n $values ]]; then
        echo "$values"
    elif [[ $current == -* ]]; then
        _kxhost_options "$command"
    elif [[ $command == recipe && $previous == recipe ]]; then
        echo "download upload"
    elif [[ $command == tags && $previous == tags ]]; then
        echo "check"
    elif [[ $command == registers ]]; then
        echo "X Y M SM S T C D SD CV 32CV TV Z"
    fi
}

_kxhost()
{
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} words
    words=$(_kxhost_words "$(_kxhost_command)" "$previous" "$current")
    if [[ -n $words ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$words" -- "$current")
        # A probability follows the kind of a fault.
        [[ ${COMPREPLY[0]} != *: ]] || compopt -o nospace 2>/dev/null
    elif _kxhost_takes_number "$previous"; then
        COMPREPLY=()
    elif [[ $previous == --port || $previous == -p ]]; then
        mapfile -t COMPREPLY < <(compgen -f -- "${current:-/dev/tty}")
    elif [[ $(_kxhost_command) == raw ]]; then
        COMPREPLY=() # bytes
    else
        compopt -o filenames 2>/dev/null
        mapfile -t COMPREPLY < <(compgen -f -- "$current")
    fi
}

complete -F _kxhost kxhost
