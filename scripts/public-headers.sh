#!/usr/bin/env bash
# Prints the headers that FOLDER/CMakeLists.txt installs, one a line, with the folder in front.
# Usage: scripts/public-headers.sh FOLDER...
set -euo pipefail
for folder in "$@"; do
    sed -n '/^install(FILES/,/)/p' "$folder/CMakeLists.txt" | grep -oE '[a-z_/]+\.h\b' | while IFS= read -r header; do
        echo "$folder/$header"
    done
done
