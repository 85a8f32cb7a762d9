# The first step of every script here, to be sourced: goes to the root of the checkout and
# answers --help with the comment that the script begins with, before anything else.
set -euo pipefail

script=$(realpath "$0")
# shellcheck disable=SC2164
cd "$(dirname "${BASH_SOURCE[0]}")/.."
script=${script#"$PWD/"}
called=$script # as one calls it from here
[[ $script == */* ]] || called=./$script

help_text() {
    sed -n '2,/^[^#]/s/^# \{0,1\}//p' "$script"
}

wrong_usage() { # what is wrong
    echo "$called: $1; $called --help says how it is called" >&2
    exit 2
}

refuse_options() { # arguments
    local argument
    for argument in "$@"; do
        [[ $argument != -* ]] || wrong_usage "unknown option '$argument'"
    done
}

expect_count() { # fewest, most, arguments
    local fewest=$1 most=$2
    shift 2
    [[ $# -le $most ]] || wrong_usage "unexpected argument '${!#}'"
    [[ $# -ge $fewest ]] || wrong_usage "arguments are missing"
}

# For scripts that have no options.
expect_words() { # fewest, most, arguments
    refuse_options "${@:3}"
    expect_count "$@"
}

# Machines on which neither compiling nor testing could go well are told at once, in one line.
need_temporary_files() {
    local folder=${TMPDIR:-/tmp} file
    if ! file=$(mktemp "$folder/kx.XXXXXX" 2>/dev/null); then
        echo "$called: cannot write temporary files to $folder; set TMPDIR to a folder in which it can" >&2
        exit 1
    fi
    rm -f "$file"
}

need_pseudo_terminals() {
    if ! SHELL=/bin/sh script -qc true /dev/null </dev/null >/dev/null 2>&1; then
        echo "$called: cannot open a pseudo-terminal, which ${1:-the simulated controller needs}; mount /dev/pts" >&2
        exit 3
    fi
}

for argument in "$@"; do
    case $argument in
    --help | -h)
        help_text
        exit
        ;;
    --) break ;;
    esac
done
unset argument
