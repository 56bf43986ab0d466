# fish completion for orvane

# Asks about the account that the line works on; makes none.
function __orvane_ask
    set -l words (commandline -opc)
    set -l home (string replace -f -- --home= '' $words)[1]
    if set -l place (contains -i -- --home $words); and test (count $words) -gt $place
        set home $words[(math $place + 1)]
    end
    set -l folder $ORVANE_HOME
    if test -n "$home"
        set folder (string replace -r '^~' $HOME -- $home)
        set -- argv --home $folder $argv
    else if test -z "$folder"
        set folder (test -n "$XDG_DATA_HOME"; and echo $XDG_DATA_HOME; or echo $HOME/.local/share)/orvane
    end
    test -e "$folder/store.sqlite"; and orvane $argv 2>/dev/null
end

function __orvane_projects
    __orvane_ask projects | string match -rag '"name":"((?:\\\\.|[^"\\\\])*)"' | string match -v '*\\u*' |
        string replace -ra '\\\\(.)' '$1'
end

function __orvane_lists
    printf '%s\n' Today Tomorrow 'Next 7 Days' All
    __orvane_projects
end

function __orvane_tasks
    __orvane_ask list Today | string replace -r ' +' \t
end

function __orvane_zones
    find /usr/share/zoneinfo -type f -name '[A-Z]*' -printf '%P\n' 2>/dev/null | string match -v -r '^posix|^right|\.'
end

set -l commands add list today next7days search projects pomo summary done undo occurrences export import backup restore
set -l none "not __fish_seen_subcommand_from $commands"

complete -c orvane -f
complete -c orvane -l home -x -a '(__fish_complete_directories)' -d 'Keep everything in this folder'
complete -c orvane -l locale -x -d 'Language and formats of this run'
complete -c orvane -l zone -x -a '(__orvane_zones)' -d 'Time zone of this run'
complete -c orvane -l demo -d 'Work on a made-up account'
complete -c orvane -s h -l help -d 'Show the usage'

complete -c orvane -n $none -l version -d 'Show the version'
complete -c orvane -n $none -l login-item -d 'Start in the background'
complete -c orvane -n $none -l send-diagnostics -d 'Pack what helps to find a fault'
complete -c orvane -n $none -l picture -r -F -d 'Render a page to a PNG'
complete -c orvane -n $none -l page -x -d 'Page of the picture' -a 'welcome inbox today tomorrow next7days all
    assigned completed abandoned trash summary search: palette: quick-add detail schedule preferences calendar-day
    calendar-week calendar-month habits habit-detail focus list: tag: filter:'
complete -c orvane -n $none -l theme -x -a 'light dark' -d Colours
complete -c orvane -n $none -l size -x -d 'Size of the window'
complete -c orvane -n $none -l scale -x -d 'Pixels for each of the window'
complete -c orvane -n $none -l text-size -x -d 'Size of the text'
complete -c orvane -n $none -l right-to-left -d 'Mirror the window'

complete -c orvane -n $none -a add -d 'Add a task'
complete -c orvane -n $none -a list -d 'Show the open tasks of a list'
complete -c orvane -n $none -a done -d 'Complete tasks'
complete -c orvane -n $none -a undo -d 'Open completed tasks again'
complete -c orvane -n $none -a today -d 'Answer Today as JSON'
complete -c orvane -n $none -a next7days -d 'Answer Next 7 Days as JSON'
complete -c orvane -n $none -a search -d 'Answer the tasks that words find as JSON'
complete -c orvane -n $none -a projects -d 'Answer your lists as JSON'
complete -c orvane -n $none -a pomo -d 'Start a Pomo'
complete -c orvane -n $none -a summary -d 'Tell what was done and what is planned'
complete -c orvane -n $none -a occurrences -d 'Show when something repeats'
complete -c orvane -n $none -a export -d 'Write everything as JSON'
complete -c orvane -n $none -a import -d 'Take an export in'
complete -c orvane -n $none -a backup -d 'Copy the store'
complete -c orvane -n $none -a restore -d 'Go back to a backup'

complete -c orvane -n '__fish_seen_subcommand_from add' -l list -x -a '(__orvane_lists)' -d 'Put it into this list'
complete -c orvane -n '__fish_seen_subcommand_from add' -l dry-run -d 'Show what is understood'
complete -c orvane -n '__fish_seen_subcommand_from add' -l window -d 'Open a small window for it'
complete -c orvane -n '__fish_seen_subcommand_from add occurrences' -l stdin -d 'Read from standard input'
complete -c orvane -n '__fish_seen_subcommand_from add list' -l json -d 'Answer as JSON'
complete -c orvane -n '__fish_seen_subcommand_from add list today next7days' -l now -x -d 'As of this time'
complete -c orvane -n '__fish_seen_subcommand_from today next7days search projects pomo' -l from -x -d 'What the caller calls itself'
complete -c orvane -n '__fish_seen_subcommand_from list' -a '(__orvane_lists)'
complete -c orvane -n '__fish_seen_subcommand_from done' -a '(__orvane_tasks)'
complete -c orvane -n '__fish_seen_subcommand_from occurrences' -l start -x -d 'The first occurrence'
complete -c orvane -n '__fish_seen_subcommand_from occurrences' -l rule -x -d 'Rule of RFC 5545'
complete -c orvane -n '__fish_seen_subcommand_from occurrences' -l from -x -d 'Where to begin'
complete -c orvane -n '__fish_seen_subcommand_from occurrences' -l to -x -d 'Where to end'
complete -c orvane -n '__fish_seen_subcommand_from occurrences' -l all-day -d 'Occurs on days'
complete -c orvane -n '__fish_seen_subcommand_from occurrences' -l exdate -x -d 'An occurrence that is left out'
complete -c orvane -n '__fish_seen_subcommand_from occurrences' -l limit -x -d 'The first of them'
complete -c orvane -n '__fish_seen_subcommand_from summary' -l from -x -d 'The first day'
complete -c orvane -n '__fish_seen_subcommand_from summary' -l to -x -d 'The last day'
complete -c orvane -n '__fish_seen_subcommand_from summary' -l now -x -d 'As of this time'
complete -c orvane -n '__fish_seen_subcommand_from summary' -l list -x -a '(__orvane_projects)' -d 'Of this list'
complete -c orvane -n '__fish_seen_subcommand_from summary' -l group -x -a 'day list status' -d 'What stands together'
complete -c orvane -n '__fish_seen_subcommand_from summary' -l format -x -a 'md html pdf' -d 'Format of the text'
complete -c orvane -n '__fish_seen_subcommand_from summary' -l out -r -F -d 'Write this file'
complete -c orvane -n '__fish_seen_subcommand_from export import backup restore' -F
