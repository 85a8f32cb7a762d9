# guide_lines PAGE HEADING LANGUAGE NUMBER: what stands in a page between the fences of a
# language, the one of that number below that heading.
guide_lines() {
    sed -n "/^## $2\$/,/^## /p" "$1" |
        awk -v fence="\`\`\`$3" -v wanted="$4" \
            '/^```$/ { inside = 0 } inside { print } $0 == fence { inside = (++seen == wanted) }'
}
