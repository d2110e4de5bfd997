#!/usr/bin/env bash
# Shows that the checks of this folder can fail: for a command or an option that the documents lack, and for one too
# many in them. Usage: notices_differences_test.sh PHOTOLIB SOURCE_FOLDER
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
photolib=$1 source=$2
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
export PYTHONDONTWRITEBYTECODE=1
page=$scratch/photolib.1
completions=$scratch/completions

copy() {
    rm -rf "$completions"
    cp "$source/docs/man/photolib.1" "$page"
    cp -r "$source/apps/cli/completions" "$completions"
}
edit() { # FILE SED_SCRIPT
    cp "$1" "$scratch/before"
    sed -i "$2" "$1"
    if cmp -s "$1" "$scratch/before"; then
        echo "nothing to edit in $1: $2"
        exit 1
    fi
}
must_fail() { # WHAT COMMAND...
    if "${@:2}" >/dev/null 2>&1; then
        echo "not noticed: $1"
        exit 1
    fi
}
check_page() { python3 "$here/check_man_page.py" "$1" "$page"; }
check_bash() { python3 "$here/check_completions.py" "$1" "$completions" bash; }

copy
check_page "$photolib"
check_bash "$photolib"

# A command that has learnt something.
cat >"$scratch/newer" <<NEWER
#!/usr/bin/env bash
[ "\$1" = polish ] && set -- info "\${@:2}"
"$photolib" "\$@" | sed -e '/^Subcommands:/a\\  polish                      Rub until it shines' \\
    -e 's/^  --json /  --brush N                   How many hairs\\n&/'
NEWER
chmod +x "$scratch/newer"
"$scratch/newer" --help | grep -q '^  polish'
"$scratch/newer" info --help | grep -q '^  --brush N'
must_fail "a new command and option that the page lacks" check_page "$scratch/newer"
must_fail "a new command and option that bash lacks" check_bash "$scratch/newer"

edit "$page" '/^\.Ss dump/,/^Print all/d'
must_fail "a command that the page lacks" check_page "$photolib"
copy
edit "$page" 's/^\.Ss dump/.Ss polish\n.D1 Nm Cm polish Ar DEVICE\n&/'
must_fail "a command that only the page knows" check_page "$photolib"
copy
edit "$page" '/^\.It Fl -all/d'
must_fail "an option that the page lacks" check_page "$photolib"
copy
edit "$page" 's/^\.It Fl -all/.It Fl -brush Ar N\n&/'
must_fail "an option that only the page knows" check_page "$photolib"
copy
edit "$page" 's/^\.It Fl -pair/.It Fl -marry/'
must_fail "an option of every device that the page lacks" check_page "$photolib"
copy
edit "$page" 's/^\.It Fl -limit Ar N/.It Fl -limit/'
must_fail "a value that the page lacks" check_page "$photolib"
copy
edit "$page" 's/^\.D1 Nm Cm show Ar DEVICE ID \.\.\./.D1 Nm Cm show Ar DEVICE/'
must_fail "an argument that the page lacks" check_page "$photolib"

edit "$completions/photolib.bash" 's/ dump / /'
must_fail "a command that bash lacks" check_bash "$photolib"
copy
edit "$completions/photolib.bash" "s/ groups show / groups polish show /"
must_fail "a command that only bash knows" check_bash "$photolib"
copy
edit "$completions/photolib.bash" 's/ --all//'
must_fail "an option that bash lacks" check_bash "$photolib"
copy
edit "$completions/photolib.bash" 's/ --all/ --all --brush/'
must_fail "an option that only bash knows" check_bash "$photolib"
copy
edit "$completions/photolib.bash" 's/ios26//'
must_fail "a value that bash lacks" check_bash "$photolib"
echo "every difference was noticed"
