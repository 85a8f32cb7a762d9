# To be sourced after command-line.sh: the options of ctest that scripts hand on to it.

for_ctest=()

# take_ctest_option ARGUMENT...: puts the first, with its value, into `for_ctest` and their
# number into `taken`; behind -- all of them. Anything else is wrong usage.
take_ctest_option() {
    taken=1
    case $1 in
    -R | -E | -L | -LE | -j | --repeat | --timeout)
        [[ $# -gt 1 ]] || wrong_usage "$1 takes a value"
        for_ctest+=("$1" "$2")
        taken=2
        ;;
    -j[1-9]*) for_ctest+=(-j "${1#-j}") ;;
    -V | -VV | -N | -Q | --progress | --rerun-failed | --stop-on-failure | --schedule-random)
        for_ctest+=("$1")
        ;;
    --)
        for_ctest+=("${@:2}")
        taken=$#
        ;;
    -*) wrong_usage "unknown option '$1'" ;;
    *) wrong_usage "unexpected argument '$1'; tests are chosen with -R ${1:-PATTERN}" ;;
    esac
}
