# Completion of kxpanel for bash. Source it, or install it as
# /usr/share/bash-completion/completions/kxpanel.

# Options come from the help of the program, so they are never out of date.
_kxpanel_options()
{
    "${COMP_WORDS[0]}" --help 2>/dev/null | sed -n '/^Options:/,/^$/p' \
        | grep -o -e '--[a-z][a-z0-9-]*' | sort -u
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
        --low-latency) echo "yes no" ;;
        --max-words) echo "auto" ;;
    esac
}

_kxpanel()
{
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} words
    words=$(_kxpanel_values "$previous")
    [[ -n $words || $current != -* ]] || words=$(_kxpanel_options)
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$current")
}

# Else files: a port, a project, tags, the library.
complete -o default -F _kxpanel kxpanel
