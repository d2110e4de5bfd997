# Completions of photolib for bash. Made by scripts/make-completions.py from the command's own help.

# The options of a command; those before any command where it is empty.
_photolib_options() {
    case $1 in
    '') echo '-h --help --version -v --verbose --log-file --no-progress --pair --timeout --password-file' ;;
    'devices') echo '-h --help --log-file -v --verbose --no-progress --timeout --json' ;;
    'info') echo '-h --help --pair --password-file --log-file -v --verbose --no-progress --timeout --json' ;;
    'albums') echo '-h --help --pair --password-file --log-file -v --verbose --no-progress --timeout --json --csv --all' ;;
    'photos') echo '-h --help --pair --password-file --log-file -v --verbose --no-progress --timeout --json --csv --album --group --favorite --hidden --deleted --only-photos --only-movies --from-date --to-date --uuid --limit' ;;
    'groups') echo '-h --help --pair --password-file --log-file -v --verbose --no-progress --timeout --json --csv --group' ;;
    'show') echo '-h --help --pair --password-file --log-file -v --verbose --no-progress --timeout --json' ;;
    'thumbnail') echo '-h --help --pair --password-file --log-file -v --verbose --no-progress --timeout -o --output --png --force' ;;
    'contact-sheet') echo '-h --help --pair --password-file --log-file -v --verbose --no-progress --timeout -o --output --title --force --album --group --favorite --hidden --deleted --only-photos --only-movies --from-date --to-date --uuid --limit' ;;
    'export') echo '-h --help --pair --password-file --log-file -v --verbose --no-progress --timeout --layout --utc --albums --edited --retries --dry-run --verify --report --album --group --favorite --hidden --deleted --only-photos --only-movies --from-date --to-date --uuid --limit' ;;
    'dump') echo '-h --help --pair --password-file --log-file -v --verbose --no-progress --timeout' ;;
    'sample') echo '-h --help --era --log-file -v --verbose --no-progress' ;;
    esac
}

# What follows an option, or stands at a place: "files", "folders", "nothing", or the words themselves.
# Nothing is printed for an option without a value.
_photolib_value() {
    case $1 in
    ' --log-file') echo 'files' ;;
    ' --timeout') echo 'nothing' ;;
    ' --password-file') echo 'files' ;;
    'devices --log-file') echo 'files' ;;
    'devices --timeout') echo 'nothing' ;;
    'info --password-file') echo 'files' ;;
    'info --log-file') echo 'files' ;;
    'info --timeout') echo 'nothing' ;;
    'info 0') echo folders ;;
    'albums --password-file') echo 'files' ;;
    'albums --log-file') echo 'files' ;;
    'albums --timeout') echo 'nothing' ;;
    'albums 0') echo folders ;;
    'photos --password-file') echo 'files' ;;
    'photos --log-file') echo 'files' ;;
    'photos --timeout') echo 'nothing' ;;
    'photos --album') echo 'nothing' ;;
    'photos --group') echo 'videos photos people places recently-deleted favorites portrait panoramas live-photos time-lapse screen-recordings slow-motion animated memories bursts screenshots selfies hidden imported raw badge-8 duplicates cinematic camera-roll shared cloud synced photo-stream' ;;
    'photos --from-date') echo 'nothing' ;;
    'photos --to-date') echo 'nothing' ;;
    'photos --uuid') echo 'nothing' ;;
    'photos --limit') echo 'nothing' ;;
    'photos 0') echo folders ;;
    'groups --password-file') echo 'files' ;;
    'groups --log-file') echo 'files' ;;
    'groups --timeout') echo 'nothing' ;;
    'groups --group') echo 'videos photos people places recently-deleted favorites portrait panoramas live-photos time-lapse screen-recordings slow-motion animated memories bursts screenshots selfies hidden imported raw badge-8 duplicates cinematic camera-roll shared cloud synced photo-stream' ;;
    'groups 0') echo folders ;;
    'show --password-file') echo 'files' ;;
    'show --log-file') echo 'files' ;;
    'show --timeout') echo 'nothing' ;;
    'show 0') echo folders ;;
    'show '*) echo nothing ;;
    'thumbnail --password-file') echo 'files' ;;
    'thumbnail --log-file') echo 'files' ;;
    'thumbnail --timeout') echo 'nothing' ;;
    'thumbnail -o' | 'thumbnail --output') echo 'files' ;;
    'thumbnail 0') echo folders ;;
    'thumbnail 1') echo nothing ;;
    'contact-sheet --password-file') echo 'files' ;;
    'contact-sheet --log-file') echo 'files' ;;
    'contact-sheet --timeout') echo 'nothing' ;;
    'contact-sheet -o' | 'contact-sheet --output') echo 'files' ;;
    'contact-sheet --title') echo 'nothing' ;;
    'contact-sheet --album') echo 'nothing' ;;
    'contact-sheet --group') echo 'videos photos people places recently-deleted favorites portrait panoramas live-photos time-lapse screen-recordings slow-motion animated memories bursts screenshots selfies hidden imported raw badge-8 duplicates cinematic camera-roll shared cloud synced photo-stream' ;;
    'contact-sheet --from-date') echo 'nothing' ;;
    'contact-sheet --to-date') echo 'nothing' ;;
    'contact-sheet --uuid') echo 'nothing' ;;
    'contact-sheet --limit') echo 'nothing' ;;
    'contact-sheet 0') echo folders ;;
    'export --password-file') echo 'files' ;;
    'export --log-file') echo 'files' ;;
    'export --timeout') echo 'nothing' ;;
    'export --layout') echo 'nothing' ;;
    'export --retries') echo 'nothing' ;;
    'export --report') echo 'files' ;;
    'export --album') echo 'nothing' ;;
    'export --group') echo 'videos photos people places recently-deleted favorites portrait panoramas live-photos time-lapse screen-recordings slow-motion animated memories bursts screenshots selfies hidden imported raw badge-8 duplicates cinematic camera-roll shared cloud synced photo-stream' ;;
    'export --from-date') echo 'nothing' ;;
    'export --to-date') echo 'nothing' ;;
    'export --uuid') echo 'nothing' ;;
    'export --limit') echo 'nothing' ;;
    'export 0') echo folders ;;
    'export 1') echo folders ;;
    'dump --password-file') echo 'files' ;;
    'dump --log-file') echo 'files' ;;
    'dump --timeout') echo 'nothing' ;;
    'dump 0') echo folders ;;
    'sample --era') echo 'ios11 ios12 ios13 ios14 ios15 ios16 ios17 ios18 ios26' ;;
    'sample --log-file') echo 'files' ;;
    'sample 0') echo folders ;;
    esac
}

_photolib() {
    local current=${COMP_WORDS[COMP_CWORD]} command='' previous='' word kind
    local -i index place=0
    COMPREPLY=()
    # bash takes "--era=ios15" for three words.
    for ((index = 1; index < COMP_CWORD; ++index)); do
        word=${COMP_WORDS[index]}
        if [[ $word == '=' && $previous == -* ]]; then
            continue
        elif [[ $previous == -* && -n $(_photolib_value "$command $previous") ]]; then
            previous=''
            continue
        fi
        previous=$word
        if [[ $word != -* ]]; then
            if [[ -z $command ]]; then command=$word; else place+=1; fi
        fi
    done
    [[ $current == '=' ]] && current=''

    kind=''
    [[ $previous == -* ]] && kind=$(_photolib_value "$command $previous")
    if [[ -z $kind && $current == -* ]]; then
        kind=$(_photolib_options "$command")
    elif [[ -z $kind && -z $command ]]; then
        kind='devices info albums photos groups show thumbnail contact-sheet export dump sample'
    elif [[ -z $kind ]]; then
        kind=$(_photolib_value "$command $place")
    fi
    case $kind in
    files) mapfile -t COMPREPLY < <(compgen -f -- "$current") ;;
    folders) mapfile -t COMPREPLY < <(compgen -d -- "$current") ;;
    nothing) return ;;
    *) mapfile -t COMPREPLY < <(compgen -W "$kind" -- "$current") ;;
    esac
    # Only possible while bash completes.
    [[ $kind == files || $kind == folders ]] && compopt -o filenames 2>/dev/null
    return 0
}

complete -F _photolib photolib
