#!/usr/bin/env bash
# Checks the man page with mandoc, and asks bash, zsh and fish what they complete. What the pages and completions must
# say is tested in tests/command_docs/. Usage: scripts/check-command-docs.sh BUILD_FOLDER
set -euo pipefail
cd "$(dirname "$0")/.."
photolib=${1:?usage: scripts/check-command-docs.sh BUILD_FOLDER}/apps/cli/photolib
completions=apps/cli/completions

mandoc -Tlint -W style docs/man/photolib.1
shellcheck --shell=bash "$completions/photolib.bash"
zsh -n "$completions/_photolib"
fish --no-execute "$completions/photolib.fish"
python3 -B tests/command_docs/check_completions.py "$photolib" "$completions" bash zsh fish
echo "man page and completions are in order"
