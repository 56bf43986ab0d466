# bash completion for orvane
# shellcheck disable=SC2207 # words without spaces

# Asks about the account that the line works on, of which the caller keeps the folder in home; makes none.
_orvane_ask() {
    local place=${home:-${ORVANE_HOME:-${XDG_DATA_HOME:-$HOME/.local/share}/orvane}}
    [[ -e $place/store.sqlite ]] && orvane ${home:+--home "$home"} "$@" 2>/dev/null
}

# Your lists, one a line, but those with control characters.
_orvane_lists() {
    _orvane_ask projects | grep -oP '"name":"\K(\\.|[^"\\])*' | grep -v '\\u' | sed 's/\\\(.\)/\1/g'
}

# Names may hold spaces and quotes: what is typed is compared without its quoting, what fits is quoted as the
# word has begun.
_orvane_names() {
    local typed=${1#[\"\']} begin=${1:0:1} name mark
    # Outside quotation marks ":" and "=" end a word: what stands before them on the line is not offered again.
    local ended=''
    if [[ $begin != [\"\'] && ${COMP_LINE:0:COMP_POINT} =~ (([^[:space:]\\]|\\.)*)$ ]]; then
        ended=${BASH_REMATCH[1]}
        [[ $ended == --*=* ]] && ended=${ended#*=}
        [[ $ended == *[:=]* ]] && typed=$ended
        ended=${ended%"${ended##*[:=]}"}
    fi
    typed=${typed//\\/}
    while IFS= read -r name; do
        [[ -n $name && ${name,,} == "${typed,,}"* ]] || continue
        case $begin in
        \")
            for mark in \\ \" \$ \`; do
                name=${name//"$mark"/\\$mark}
            done
            ;;
        \') name=${name//\'/\'\\\'\'} ;;
        *)
            name=$(printf '%q' "$name")
            name=${name:${#ended}}
            ;;
        esac
        COMPREPLY+=("$name")
    done
}

_orvane() {
    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} command='' i
    local commands='add list today next7days search projects pomo summary done undo occurrences export import backup restore'
    local home='' smart=(Today Tomorrow 'Next 7 Days' All) everywhere='--home --locale --zone --demo --help'
    COMPREPLY=()
    for ((i = 1; i < COMP_CWORD; ++i)); do
        case ${COMP_WORDS[i]} in
        --home)
            i=$((i + 1))
            [[ ${COMP_WORDS[i]} == = ]] && i=$((i + 1))
            home=${COMP_WORDS[i]//[\\\"\']/}
            home=${home/#\~/$HOME}
            ;;
        --*) ;;
        *) [[ -z $command && " $commands " == *" ${COMP_WORDS[i]} "* ]] && command=${COMP_WORDS[i]} ;;
        esac
    done

    # "=" is a word of its own.
    if [[ $word == = ]]; then
        word=''
    elif [[ $before == = && $COMP_CWORD -gt 1 ]]; then
        before=${COMP_WORDS[COMP_CWORD - 2]}
    fi

    case $before in
    --home | --picture | --out) compopt -o default && return ;; # files
    --group) COMPREPLY=($(compgen -W 'day list status' -- "$word")) && return ;;
    --format) COMPREPLY=($(compgen -W 'md html pdf' -- "$word")) && return ;;
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
    --list)
        [[ $command == summary ]] && smart=()
        _orvane_names "$word" < <(printf '%s\n' "${smart[@]}"; _orvane_lists)
        return
        ;;
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
        _orvane_names "$word" < <(printf '%s\n' "${smart[@]}"; _orvane_lists)
    elif [[ $command == "done" ]]; then
        COMPREPLY=($(compgen -W "$(_orvane_ask list Today | cut -d' ' -f1)" -- "$word"))
    elif [[ " export import backup restore " == *" $command "* ]]; then
        compopt -o default
    fi
}
complete -F _orvane orvane
