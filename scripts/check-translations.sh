#!/usr/bin/env bash
# Fails when a text of the browser is missing in a catalogue, is not translated, or is gone from the sources.
set -euo pipefail
cd "$(dirname "$0")/.."
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cp apps/browser/i18n/*.ts "$scratch"
scripts/update-translations.sh "$scratch"
for catalogue in apps/browser/i18n/*.ts; do
    name=$(basename "$catalogue")
    diff -u "$catalogue" "$scratch/$name" >"$scratch/difference" || {
        cat "$scratch/difference" >&2
        echo "check-translations.sh: $name is not up to date; run scripts/update-translations.sh and translate" >&2
        exit 1
    }
    if grep -n 'type="unfinished"' "$catalogue" >&2; then
        echo "check-translations.sh: $name has texts that are not translated" >&2
        exit 1
    fi
done
