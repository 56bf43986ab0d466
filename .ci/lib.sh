# What ./run, ./test and .ci/run share: packages, building, progress. Needs `root`, the folder of the
# checkout. Everything it says goes to standard error: standard output belongs to the program.

say() { printf '%s\n' "$*" >&2; }

# quietly COMMAND…: what the command prints is shown only if it fails.
quietly() {
    local log status=0
    log=$(mktemp)
    "$@" >"$log" 2>&1 </dev/null || status=$?
    if ((status)); then cat "$log" >&2; fi
    rm -f "$log"
    return "$status"
}

# packages PURPOSE…: the names of the packages for these purposes.
packages() {
    local purpose
    for purpose; do sed -n "s/^$purpose: //p" "$root/.ci/packages"; done
}

# require PURPOSE…: installs what is missing of the packages for these purposes. Asking dpkg takes
# 10 ms; a system without dpkg is taken as it is.
require() {
    command -v dpkg-query >/dev/null || return 0
    local wanted installed name missing=() become=()
    wanted=$(packages "$@")
    # shellcheck disable=SC2086 # one word per package
    installed=$(dpkg-query -W -f='${Package}=${db:Status-Status}\n' $wanted 2>/dev/null || true)
    for name in $wanted; do
        [[ $'\n'$installed$'\n' == *$'\n'"$name=installed"$'\n'* ]] || missing+=("$name")
    done
    ((${#missing[@]})) || return 0

    if ((EUID)); then become=(sudo); fi
    if ((EUID)) && ! command -v sudo >/dev/null; then
        say "Orvane needs more packages. As root, run: apt-get install --no-install-recommends ${missing[*]}"
        return 1
    fi
    say "Installing what is missing: ${missing[*]}"
    become+=(env DEBIAN_FRONTEND=noninteractive apt-get -y -o DPkg::Lock::Timeout=300 -o Acquire::Retries=3)
    quietly "${become[@]}" update && quietly "${become[@]}" install --no-install-recommends "${missing[@]}" || {
        say "The packages could not be installed: ${missing[*]}"
        return 1
    }
}

# configure PRESET [CMAKE-OPTION…]: writes build/PRESET. A folder that was moved here with its build
# starts afresh, for its old paths lead elsewhere.
configure() {
    local cache=$root/build/$1/CMakeCache.txt fresh=()
    if [[ -e $cache ]] && ! grep -qxF "CMAKE_HOME_DIRECTORY:INTERNAL=$root" "$cache"; then fresh=(--fresh); fi
    # shellcheck disable=SC2086 # one word per option
    (cd "$root" && quietly cmake "${fresh[@]}" --preset "$@" ${ORVANE_CMAKE_OPTIONS:-}) || return
    touch "$root/build/$1/configured"
}

# needs_configuring PRESET: whether build/PRESET is absent, older than the presets or made elsewhere.
needs_configuring() {
    local folder=$root/build/$1
    [[ -e $folder/build.ninja && $folder/configured -nt $root/CMakePresets.json ]] || return 0
    ! grep -qxF "CMAKE_HOME_DIRECTORY:INTERNAL=$root" "$folder/CMakeCache.txt"
}

# progress LABEL: turns ninja's lines (`@ 42%@ …`) into one line that counts up, and passes on the rest.
progress() {
    local line percent counted='' skip=''
    while IFS= read -r line; do
        if [[ $line == @*%@* ]]; then
            [[ $line == *'Re-checking globbed'* || $line == *'Re-running CMake'* ]] && continue
            percent=${line#@} percent=${percent%%\%*}
            if [[ -t 2 ]]; then
                printf '\rBuilding %s… %3d %%' "$1" "$percent" >&2
            elif [[ -z $counted ]]; then
                say "Building $1…"
            fi
            counted=yes
        elif [[ $skip ]]; then # the command line that ninja repeats below FAILED
            skip=''
        else
            [[ $line == FAILED:* ]] && skip=yes
            printf '%s\n' "$line"
        fi
    done
    if [[ $counted && -t 2 ]]; then say; fi
}

# build PRESET TARGET LABEL [CMAKE-OPTION…]: brings the target up to date, configuring first if need
# be. A second build of the same preset waits for the first.
build() {
    local preset=$1 target=$2 label=$3 folder=$root/build/$1
    shift 3
    mkdir -p "$folder"
    (
        flock 9
        if needs_configuring "$preset"; then
            say "Preparing $label…"
            configure "$preset" "$@" || exit
        fi
        export NINJA_STATUS='@%p@ '
        ninja -C "$folder" "$target" 2>&1 9>&- | progress "$label" >"$folder/build.log"
        ((PIPESTATUS[0] == 0)) || { cat "$folder/build.log" >&2; exit 1; }
    ) 9>"$folder/.lock" || {
        say "$label could not be built."
        return 1
    }
}
