# bash completion for orvane
# shellcheck disable=SC2207 # words without spaces

# The lists of the account that the line works on, one a line.
_orvane_lists() {
    printf '%s\n' Today Tomorrow 'Next 7 Days' All
    orvane "$@" projects 2>/dev/null | grep -oP '"name":"\K(\\.|[^"\\])*' | sed 's/\\\(.\)/\1/g'
}

# Names may hold spaces and quotes: what is typed is compared without its quoting, what fits is quoted.
_orvane_names() {
    local typed=${1#[\"\']} name
    typed=${typed//\\/}
    while IFS= read -r name; do
        [[ ${name,,} == "${typed,,}"* ]] && COMPREPLY+=("$(printf '%q' "$name")")
    done
}

_orvane() {
    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} command='' i
    local commands='add list today next7days search projects pomo summary done undo occurrences export import backup restore'
    local folder=() everywhere='--home --locale --zone --demo --help'
    COMPREPLY=()
    for ((i = 1; i < COMP_CWORD; ++i)); do
        case ${COMP_WORDS[i]} in
        --home)
            i=$((i + 1))
            folder=(--home "${COMP_WORDS[i]/#\~/$HOME}")
            ;;
        --*) ;;
        *) [[ -z $command && " $commands " == *" ${COMP_WORDS[i]} "* ]] && command=${COMP_WORDS[i]} ;;
        esac
    done

    case $before in
    --home) return ;; # folders, by the rule below
    --picture) return ;;
    --group) COMPREPLY=($(compgen -W 'day list status' -- "$word")) && return ;;
    --format) COMPREPLY=($(compgen -W 'md html pdf' -- "$word")) && return ;;
    --out) return ;; # files, by the rule below
    --theme) COMPREPLY=($(compgen -W 'light dark' -- "$word")) && return ;;
    --page)
        COMPREPLY=($(compgen -W 'welcome inbox today tomorrow next7days all assigned completed abandoned trash
            summary search: palette: quick-add detail schedule preferences calendar-day calendar-week calendar-month
            habits habit-detail focus list: tag: filter:' -- "$word"))
        return
        ;;
    --zone)
        COMPREPLY=($(cd /usr/share/zoneinfo 2>/dev/null && compgen -W "$(
            find . -type f -name '[A-Z]*' -printf '%P\n' 2>/dev/null | grep -v '^posix\|^right\|\.'
        )" -- "$word"))
        return
        ;;
    --list) _orvane_names "$word" < <(_orvane_lists "${folder[@]}") && return ;;
    --now | --start | --from | --to | --exdate | --rule | --limit | --locale | --size | --scale | --text-size) return ;;
    esac

    if [[ $word == -* ]]; then
        local own
        case $command in
        '') own='--login-item --send-diagnostics --picture --page --theme --size --scale --text-size
            --right-to-left --version' ;;
        add) own='--list --now --dry-run --stdin --json --window' ;;
        list) own='--json --now' ;;
        today | next7days) own='--now --from' ;;
        search | projects | pomo) own='--from' ;;
        summary) own='--from --to --now --list --group --format --out' ;;
        occurrences) own='--start --rule --from --to --all-day --exdate --limit --stdin' ;;
        esac
        COMPREPLY=($(compgen -W "$own $everywhere" -- "$word"))
    elif [[ -z $command ]]; then
        COMPREPLY=($(compgen -W "$commands" -- "$word"))
    elif [[ $command == list ]]; then
        _orvane_names "$word" < <(_orvane_lists "${folder[@]}")
    elif [[ $command == "done" && -z $word ]]; then
        COMPREPLY=($(orvane "${folder[@]}" list Today 2>/dev/null | cut -d' ' -f1))
    fi
}
complete -o default -F _orvane orvane
