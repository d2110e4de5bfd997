#!/usr/bin/env bash
# Fails when the completions are not those that the command's own help makes.
# Usage: completions_current.sh PHOTOLIB SOURCE_FOLDER
set -euo pipefail
photolib=$1 source=$2
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
PYTHONDONTWRITEBYTECODE=1 "$source/scripts/make-completions.py" "$photolib" "$scratch"
if ! diff -ru "$source/apps/cli/completions" "$scratch"; then
    echo "scripts/make-completions.py $photolib writes the completions anew"
    exit 1
fi
