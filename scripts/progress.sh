# To be sourced: shows how far something is that takes minutes.

# show_progress LABEL: reads lines that begin with a number of percent, and maybe say of
# what. On a terminal one line follows them; elsewhere a line tells now and then.
show_progress() {
    local label=$1 interval=10 # seconds
    local last=$SECONDS percent what shown=
    if [[ -t 1 && ${TERM:-dumb} != dumb ]]; then
        while read -r percent what; do
            [[ $shown == "$percent $what" ]] && continue
            shown="$percent $what"
            printf '\r\e[K%s: %s %%%s' "$label" "$percent" "${what:+ $what}"
        done
        [[ -z $shown ]] || printf '\r\e[K'
        return
    fi
    while read -r percent what; do
        if ((SECONDS - last >= interval)) && [[ $shown != "$percent $what" ]]; then
            last=$SECONDS shown="$percent $what"
            echo "$label: $percent %${what:+ $what}"
        fi
    done
}
