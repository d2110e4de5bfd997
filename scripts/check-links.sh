#!/usr/bin/env bash
# Fails when a relative link in a Markdown file names a file that is not there, or a heading that its file has not.
# Usage: scripts/check-links.sh [FOLDER]
set -euo pipefail
cd "${1:-$(dirname "$0")/..}"
status=0

# The anchors of a file's headings, as pages of source code give them.
anchors() { # FILE
    grep -E '^#+ ' "$1" | sed -E 's/^#+ //' | tr '[:upper:]' '[:lower:]' | sed -E 's/[^a-z0-9 _-]//g; s/ /-/g'
}

while IFS=: read -r file link; do
    link=${link#](}
    link=${link%)}
    case $link in
    http://* | https://* | mailto:*) continue ;;
    esac
    target=${link%%#*}
    path=$file
    [ -n "$target" ] && path=$(dirname "$file")/$target
    if [ ! -e "$path" ]; then
        echo "$file: $link leads nowhere" >&2
        status=1
    elif [[ $link == *#* ]] && ! anchors "$path" | grep -qxF -- "${link#*#}"; then
        echo "$file: no heading for $link" >&2
        status=1
    fi
done < <(find . \( -name build -o -name .git \) -prune -o -name '*.md' -print0 | xargs -0 grep -HoE '\]\([^)]+\)')
exit $status
