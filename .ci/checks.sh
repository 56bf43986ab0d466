# What the checks share: each prints a line per problem, or `ok NAME`. They look at every file that
# git tracks or would track.
root=$(dirname "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")")
cd "$root"
export LC_ALL=C.UTF-8
# A checkout may belong to somebody else than the one who checks it.
export GIT_CONFIG_COUNT=1 GIT_CONFIG_KEY_0=safe.directory GIT_CONFIG_VALUE_0='*'

name=${0##*/check-}
problems=0

problem() {
    printf '%s: %s\n' "$name" "$*"
    problems=$((problems + 1))
}

# each problem on standard input, one a line.
problems() {
    local line
    while IFS= read -r line; do problem "$line"; done
}

verdict() {
    ((problems == 0)) && echo "ok $name"
}

# files PATHSPEC…: the files that exist, one a line.
files() {
    git ls-files --cached --others --exclude-standard --deduplicate -- "$@" |
        while IFS= read -r file; do if [[ -e $file ]]; then echo "$file"; fi; done
}

# forbid REASON PATTERN PATHSPEC…: no line of these files may match the Perl pattern. git's own error,
# say for a bad pattern, is a problem as well.
forbid() {
    local reason=$1 pattern=$2 found
    shift 2
    found=$(git grep --untracked -nIoP -e "$pattern" -- "$@" 2>&1)
    (($? == 1)) || problems < <(sed -E "s!^([^:]*:[0-9]+):(.*)!\1: \"\2\": $reason!" <<<"$found")
}
