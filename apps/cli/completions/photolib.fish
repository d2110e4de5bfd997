# Completions of photolib for fish. Made by scripts/make-completions.py from the command's own help.

function __photolib_command --description 'The command on the line, or nothing'
    set -l words (commandline -opc)
    set -e words[1]
    while set -q words[1]
        switch $words[1]
            case --log-file
                set -e words[1]
            case '-*'
            case '*'
                echo $words[1]
                return
        end
        set -e words[1]
    end
end

function __photolib_is --description 'Whether the command on the line is this one; none of them without an argument'
    set -l command (__photolib_command)
    test "$command" = "$argv[1]"
end

complete -c photolib -f

complete -c photolib -n '__photolib_is' -a info -d 'Tell what a device\'s photo library holds'
complete -c photolib -n '__photolib_is' -a albums -d 'List the albums'
complete -c photolib -n '__photolib_is' -a photos -d 'List photos and videos, all or some'
complete -c photolib -n '__photolib_is' -a groups -d 'List the automatic groups: people, places, memories, ...'
complete -c photolib -n '__photolib_is' -a show -d 'Show everything known about single photos'
complete -c photolib -n '__photolib_is' -a thumbnail -d 'Write the device\'s small picture of one photo to a file'
complete -c photolib -n '__photolib_is' -a contact-sheet -d 'Write a web page of thumbnails by album and group'
complete -c photolib -n '__photolib_is' -a export -d 'Copy photos and videos into a folder; again: what is new only'
complete -c photolib -n '__photolib_is' -a dump -d 'Print all photos, albums and groups as one JSON document'
complete -c photolib -n '__photolib_is' -a sample -d 'Write a made-up device folder to try everything on'
complete -c photolib -n '__photolib_is' -s h -l help -d 'Print this help message and exit'
complete -c photolib -n '__photolib_is' -l version -d 'Display program version information and exit'
complete -c photolib -n '__photolib_is' -s v -l verbose -d 'Show the log lines on standard error'
complete -c photolib -n '__photolib_is' -l log-file -r -F -d 'Append every log line to FILE ("TAG LEVEL MESSAGE")'
complete -c photolib -n '__photolib_is' -l no-progress -d 'Show no progress bar, also on a terminal'

complete -c photolib -n '__photolib_is info' -s h -l help -d 'Print this help message and exit'
complete -c photolib -n '__photolib_is info' -l log-file -r -F -d 'Append every log line to FILE ("TAG LEVEL MESSAGE")'
complete -c photolib -n '__photolib_is info' -s v -l verbose -d 'Show the log lines on standard error'
complete -c photolib -n '__photolib_is info' -l no-progress -d 'Show no progress bar, also on a terminal'
complete -c photolib -n '__photolib_is info' -l json -d 'Print JSON'
complete -c photolib -n '__photolib_is info' -a '(__fish_complete_directories)'

complete -c photolib -n '__photolib_is albums' -s h -l help -d 'Print this help message and exit'
complete -c photolib -n '__photolib_is albums' -l log-file -r -F -d 'Append every log line to FILE ("TAG LEVEL MESSAGE")'
complete -c photolib -n '__photolib_is albums' -s v -l verbose -d 'Show the log lines on standard error'
complete -c photolib -n '__photolib_is albums' -l no-progress -d 'Show no progress bar, also on a terminal'
complete -c photolib -n '__photolib_is albums' -l json -d 'Print JSON, one array of records'
complete -c photolib -n '__photolib_is albums' -l csv -d 'Print comma-separated values (RFC 4180)'
complete -c photolib -n '__photolib_is albums' -l all -d 'Show the device\'s built-in albums too (JSON and CSV always do)'
complete -c photolib -n '__photolib_is albums' -a '(__fish_complete_directories)'

complete -c photolib -n '__photolib_is photos' -s h -l help -d 'Print this help message and exit'
complete -c photolib -n '__photolib_is photos' -l log-file -r -F -d 'Append every log line to FILE ("TAG LEVEL MESSAGE")'
complete -c photolib -n '__photolib_is photos' -s v -l verbose -d 'Show the log lines on standard error'
complete -c photolib -n '__photolib_is photos' -l no-progress -d 'Show no progress bar, also on a terminal'
complete -c photolib -n '__photolib_is photos' -l json -d 'Print JSON, one array of records'
complete -c photolib -n '__photolib_is photos' -l csv -d 'Print comma-separated values (RFC 4180)'
complete -c photolib -n '__photolib_is photos' -l album -x -d 'Photos of the album with this title, id or UUID'
complete -c photolib -n '__photolib_is photos' -l group -x -a 'videos photos people places recently-deleted favorites portrait panoramas live-photos time-lapse screen-recordings slow-motion animated memories bursts screenshots selfies hidden imported raw badge-8 duplicates cinematic camera-roll shared cloud synced photo-stream' -d 'Photos of this group, or of all groups of the category (name or number)'
complete -c photolib -n '__photolib_is photos' -l favorite -d 'Photos marked as favorites'
complete -c photolib -n '__photolib_is photos' -l hidden -d 'Photos that their owner has hidden'
complete -c photolib -n '__photolib_is photos' -l deleted -d 'Recently deleted photos, which are left out otherwise'
complete -c photolib -n '__photolib_is photos' -l only-photos -d 'Photos only: still and animated pictures, no videos'
complete -c photolib -n '__photolib_is photos' -l only-movies -d 'Movies only: videos of every kind, no pictures'
complete -c photolib -n '__photolib_is photos' -l from-date -x -d 'Taken at or after this date (2024-05-01) or time (2024-05-01T18:30), local time'
complete -c photolib -n '__photolib_is photos' -l to-date -x -d 'Taken at or before this time, or on this date or before'
complete -c photolib -n '__photolib_is photos' -l uuid -x -d 'The photo with this UUID'
complete -c photolib -n '__photolib_is photos' -l limit -x -d 'At most N photos'
complete -c photolib -n '__photolib_is photos' -a '(__fish_complete_directories)'

complete -c photolib -n '__photolib_is groups' -s h -l help -d 'Print this help message and exit'
complete -c photolib -n '__photolib_is groups' -l log-file -r -F -d 'Append every log line to FILE ("TAG LEVEL MESSAGE")'
complete -c photolib -n '__photolib_is groups' -s v -l verbose -d 'Show the log lines on standard error'
complete -c photolib -n '__photolib_is groups' -l no-progress -d 'Show no progress bar, also on a terminal'
complete -c photolib -n '__photolib_is groups' -l json -d 'Print JSON, one array of records'
complete -c photolib -n '__photolib_is groups' -l csv -d 'Print comma-separated values (RFC 4180)'
complete -c photolib -n '__photolib_is groups' -l group -x -a 'videos photos people places recently-deleted favorites portrait panoramas live-photos time-lapse screen-recordings slow-motion animated memories bursts screenshots selfies hidden imported raw badge-8 duplicates cinematic camera-roll shared cloud synced photo-stream' -d 'Only this group, or the groups of this category (name or number)'
complete -c photolib -n '__photolib_is groups' -a '(__fish_complete_directories)'

complete -c photolib -n '__photolib_is show' -s h -l help -d 'Print this help message and exit'
complete -c photolib -n '__photolib_is show' -l log-file -r -F -d 'Append every log line to FILE ("TAG LEVEL MESSAGE")'
complete -c photolib -n '__photolib_is show' -s v -l verbose -d 'Show the log lines on standard error'
complete -c photolib -n '__photolib_is show' -l no-progress -d 'Show no progress bar, also on a terminal'
complete -c photolib -n '__photolib_is show' -l json -d 'Print JSON'
complete -c photolib -n '__photolib_is show' -a '(__fish_complete_directories)'

complete -c photolib -n '__photolib_is thumbnail' -s h -l help -d 'Print this help message and exit'
complete -c photolib -n '__photolib_is thumbnail' -l log-file -r -F -d 'Append every log line to FILE ("TAG LEVEL MESSAGE")'
complete -c photolib -n '__photolib_is thumbnail' -s v -l verbose -d 'Show the log lines on standard error'
complete -c photolib -n '__photolib_is thumbnail' -l no-progress -d 'Show no progress bar, also on a terminal'
complete -c photolib -n '__photolib_is thumbnail' -s o -l output -r -F -d 'The file to write, or - for standard output'
complete -c photolib -n '__photolib_is thumbnail' -l png -d 'Convert to PNG; otherwise JPEG or BMP, as the device has it'
complete -c photolib -n '__photolib_is thumbnail' -l force -d 'Replace FILE when it is there'
complete -c photolib -n '__photolib_is thumbnail' -a '(__fish_complete_directories)'

complete -c photolib -n '__photolib_is contact-sheet' -s h -l help -d 'Print this help message and exit'
complete -c photolib -n '__photolib_is contact-sheet' -l log-file -r -F -d 'Append every log line to FILE ("TAG LEVEL MESSAGE")'
complete -c photolib -n '__photolib_is contact-sheet' -s v -l verbose -d 'Show the log lines on standard error'
complete -c photolib -n '__photolib_is contact-sheet' -l no-progress -d 'Show no progress bar, also on a terminal'
complete -c photolib -n '__photolib_is contact-sheet' -s o -l output -r -F -d 'The HTML file to write, or - for standard output'
complete -c photolib -n '__photolib_is contact-sheet' -l title -x -d 'What the page is called'
complete -c photolib -n '__photolib_is contact-sheet' -l force -d 'Replace FILE when it is there'
complete -c photolib -n '__photolib_is contact-sheet' -l album -x -d 'Photos of the album with this title, id or UUID'
complete -c photolib -n '__photolib_is contact-sheet' -l group -x -a 'videos photos people places recently-deleted favorites portrait panoramas live-photos time-lapse screen-recordings slow-motion animated memories bursts screenshots selfies hidden imported raw badge-8 duplicates cinematic camera-roll shared cloud synced photo-stream' -d 'Photos of this group, or of all groups of the category (name or number)'
complete -c photolib -n '__photolib_is contact-sheet' -l favorite -d 'Photos marked as favorites'
complete -c photolib -n '__photolib_is contact-sheet' -l hidden -d 'Photos that their owner has hidden'
complete -c photolib -n '__photolib_is contact-sheet' -l deleted -d 'Recently deleted photos, which are left out otherwise'
complete -c photolib -n '__photolib_is contact-sheet' -l only-photos -d 'Photos only: still and animated pictures, no videos'
complete -c photolib -n '__photolib_is contact-sheet' -l only-movies -d 'Movies only: videos of every kind, no pictures'
complete -c photolib -n '__photolib_is contact-sheet' -l from-date -x -d 'Taken at or after this date (2024-05-01) or time (2024-05-01T18:30), local time'
complete -c photolib -n '__photolib_is contact-sheet' -l to-date -x -d 'Taken at or before this time, or on this date or before'
complete -c photolib -n '__photolib_is contact-sheet' -l uuid -x -d 'The photo with this UUID'
complete -c photolib -n '__photolib_is contact-sheet' -l limit -x -d 'At most N photos'
complete -c photolib -n '__photolib_is contact-sheet' -a '(__fish_complete_directories)'

complete -c photolib -n '__photolib_is export' -s h -l help -d 'Print this help message and exit'
complete -c photolib -n '__photolib_is export' -l log-file -r -F -d 'Append every log line to FILE ("TAG LEVEL MESSAGE")'
complete -c photolib -n '__photolib_is export' -s v -l verbose -d 'Show the log lines on standard error'
complete -c photolib -n '__photolib_is export' -l no-progress -d 'Show no progress bar, also on a terminal'
complete -c photolib -n '__photolib_is export' -l layout -x -d 'Where files go below DEST'
complete -c photolib -n '__photolib_is export' -l utc -d 'Dates in the layout are UTC, not local time'
complete -c photolib -n '__photolib_is export' -l albums -d 'Also a folder of links for each album, Albums/TITLE, in its order'
complete -c photolib -n '__photolib_is export' -l edited -d 'Also photos and videos as they were edited on the device'
complete -c photolib -n '__photolib_is export' -l retries -x -d 'Try a file that failed N times more'
complete -c photolib -n '__photolib_is export' -l dry-run -d 'Only list what would be copied; write nothing'
complete -c photolib -n '__photolib_is export' -l verify -d 'Afterwards read all exported files again and compare them'
complete -c photolib -n '__photolib_is export' -l report -r -F -d 'Write what became of each file to FILE, .csv or .json; replaced when it is there'
complete -c photolib -n '__photolib_is export' -l album -x -d 'Photos of the album with this title, id or UUID'
complete -c photolib -n '__photolib_is export' -l group -x -a 'videos photos people places recently-deleted favorites portrait panoramas live-photos time-lapse screen-recordings slow-motion animated memories bursts screenshots selfies hidden imported raw badge-8 duplicates cinematic camera-roll shared cloud synced photo-stream' -d 'Photos of this group, or of all groups of the category (name or number)'
complete -c photolib -n '__photolib_is export' -l favorite -d 'Photos marked as favorites'
complete -c photolib -n '__photolib_is export' -l hidden -d 'Photos that their owner has hidden'
complete -c photolib -n '__photolib_is export' -l deleted -d 'Recently deleted photos, which are left out otherwise'
complete -c photolib -n '__photolib_is export' -l only-photos -d 'Photos only: still and animated pictures, no videos'
complete -c photolib -n '__photolib_is export' -l only-movies -d 'Movies only: videos of every kind, no pictures'
complete -c photolib -n '__photolib_is export' -l from-date -x -d 'Taken at or after this date (2024-05-01) or time (2024-05-01T18:30), local time'
complete -c photolib -n '__photolib_is export' -l to-date -x -d 'Taken at or before this time, or on this date or before'
complete -c photolib -n '__photolib_is export' -l uuid -x -d 'The photo with this UUID'
complete -c photolib -n '__photolib_is export' -l limit -x -d 'At most N photos'
complete -c photolib -n '__photolib_is export' -a '(__fish_complete_directories)'

complete -c photolib -n '__photolib_is dump' -s h -l help -d 'Print this help message and exit'
complete -c photolib -n '__photolib_is dump' -l log-file -r -F -d 'Append every log line to FILE ("TAG LEVEL MESSAGE")'
complete -c photolib -n '__photolib_is dump' -s v -l verbose -d 'Show the log lines on standard error'
complete -c photolib -n '__photolib_is dump' -l no-progress -d 'Show no progress bar, also on a terminal'
complete -c photolib -n '__photolib_is dump' -a '(__fish_complete_directories)'

complete -c photolib -n '__photolib_is sample' -s h -l help -d 'Print this help message and exit'
complete -c photolib -n '__photolib_is sample' -l era -x -a 'ios11 ios12 ios13 ios14 ios15 ios16 ios17 ios18 ios26' -d 'The release of the device\'s system'
complete -c photolib -n '__photolib_is sample' -l log-file -r -F -d 'Append every log line to FILE ("TAG LEVEL MESSAGE")'
complete -c photolib -n '__photolib_is sample' -s v -l verbose -d 'Show the log lines on standard error'
complete -c photolib -n '__photolib_is sample' -l no-progress -d 'Show no progress bar, also on a terminal'
complete -c photolib -n '__photolib_is sample' -a '(__fish_complete_directories)'
