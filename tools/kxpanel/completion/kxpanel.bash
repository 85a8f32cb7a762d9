# Completion of kxpanel for bash. Source it, or install it as
# /usr/share/bash-completion/completions/kxpanel.

# Options come from the help of the program, so they are never out of date.
_kxpanel_options()
{
    "${COMP_WORDS[0]}" --help 2>/dev/null | sed -n '/^Options:/,/^$/p' \
        | grep -o -e '--[a-z][a-z0-9-]*' | sort -u
}

# Of the simulated controller, where it stands beside the program.
_kxpanel_faults()
{
    "${COMP_WORDS[0]%kxpanel}kxsim" --help 2>/dev/null \
        | sed -n '/^Faults,/,/^$/s/^  \([a-z-]*\) .*/\1:/p'
    echo "all:"
}

# The values of an option, or nothing when they are for the user to choose.
_kxpanel_values()
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
        --fault) _kxpanel_faults ;;
    esac
}

# Whether an option takes a number or another text that only the user knows.
_kxpanel_takes_number()
{
    case $1 in
        --station | -a | --timeout | -t | --settle | --quiet | --retries | -r) ;;
        --max-bits | --tcp | --fault-seed | --fault-delay) ;;
        *) return 1 ;;
    esac
}

_kxpanel()
{
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} words
    words=$(_kxpanel_values "$previous")
    [[ -n $words || $current != -* ]] || words=$(_kxpanel_options)
    if [[ -n $words ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$words" -- "$current")
        # A probability follows the kind of a fault.
        [[ ${COMPREPLY[0]} != *: ]] || compopt -o nospace 2>/dev/null
    elif _kxpanel_takes_number "$previous"; then
        COMPREPLY=()
    elif [[ $previous == --port || $previous == -p ]]; then
        mapfile -t COMPREPLY < <(compgen -f -- "${current:-/dev/tty}")
    else # a project, tags, the library
        compopt -o filenames 2>/dev/null
        mapfile -t COMPREPLY < <(compgen -f -- "$current")
    fi
}

complete -F _kxpanel kxpanel
