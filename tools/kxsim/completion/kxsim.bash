# Completion of kxsim for bash. Source it, or install it as
# /usr/share/bash-completion/completions/kxsim.

# Options and faults come from the help of the program, so they are never out of date.
_kxsim_options()
{
    "${COMP_WORDS[0]}" --help 2>/dev/null | sed -n '/^Options:/,/^$/p' \
        | grep -o -e '--[a-z][a-z-]*' | sort -u
}

_kxsim_faults()
{
    "${COMP_WORDS[0]}" --help 2>/dev/null | sed -n '/^Faults,/,/^$/s/^  \([a-z-]*\) .*/\1:/p'
    echo "all:"
}

# The values of an option, or nothing when they are for the user to choose.
_kxsim_values()
{
    case $1 in
        --baud | -b | --pace) echo "1200 2400 4800 9600 19200 38400 57600 115200" ;;
        --parity) echo "none even odd" ;;
        --data-bits) echo "8" ;;
        --stop-bits) echo "1 2" ;;
        --fault) _kxsim_faults ;;
    esac
}

_kxsim()
{
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} words
    words=$(_kxsim_values "$previous")
    case $previous in
        --port | -p) mapfile -t COMPREPLY < <(compgen -f -- "${current:-/dev/tty}") ;;
        --symlink | --load | --save) mapfile -t COMPREPLY < <(compgen -f -- "$current") ;;
        --station | -a | --set | --wave | --timer | --counter | --turnaround | --fault-seed \
            | --fault-delay | --down)
            COMPREPLY=()
            ;;
        *) mapfile -t COMPREPLY < <(compgen -W "${words:-$(_kxsim_options)}" -- "$current") ;;
    esac
    # A probability follows the kind of a fault.
    [[ ${COMPREPLY[0]} != *: ]] || compopt -o nospace 2>/dev/null
}

complete -F _kxsim kxsim
