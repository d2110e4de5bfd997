#!/usr/bin/env bash
# Brings the browser's catalogues up to date with its sources: new texts come in as unfinished, old ones go.
# Usage: scripts/update-translations.sh [FOLDER]     of the catalogues, apps/browser/i18n unless given
set -euo pipefail
cd "$(dirname "$0")/.."
folder=${1:-apps/browser/i18n}
options=(-silent -I . -no-obsolete -locations none -recursive apps/browser -source-language en)
lupdate "${options[@]}" -pluralonly -target-language en -ts "$folder/photolib-browser_en.ts"
for language in de zh_CN; do
    lupdate "${options[@]}" -target-language "$language" -ts "$folder/photolib-browser_$language.ts"
done
