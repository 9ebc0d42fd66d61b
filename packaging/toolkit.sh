# For the scripts that build Qt for another system and keep the result in the user's cache. They source this.
# shellcheck shell=bash
cache="${XDG_CACHE_HOME:-$HOME/.cache}/numbrela"

# find_toolkit NAME REMOVE... <EVERYTHING THAT THE RESULT DEPENDS ON: prints the folder of the result and ends, if it is
# there. Otherwise makes the folder $work to build in, which is removed at the end. What a killed build has left is removed
# after a day, a result that nobody uses after two months. REMOVE is the command that removes.
find_toolkit() {
    local name="$1" stamp
    remove=("${@:2}")
    stamp="$(sha256sum)"
    result="$cache/$name-${stamp:0:12}"
    if [[ -d "$result" ]]; then
        touch "$result"
        echo "$result"
        exit
    fi
    local kind="${name%%-[0-9]*}"
    mkdir -p "$cache"
    find "$cache" -mindepth 1 -maxdepth 1 \( -name "$kind.*" -mtime +0 -o -name "$kind-*" -mtime +60 \) \
        -exec "${remove[@]}" {} +
    work="$(mktemp -d "$cache/$kind.XXXXXX")"
    trap '"${remove[@]}" "$work"' EXIT
}

# say_how_far TITLE: prints every twentieth part of the steps of a build that Ninja does.
say_how_far() {
    awk -v title="$1" 'match($0, /^\[[0-9]+\/[0-9]+\]/) {
        split(substr($0, 2, RLENGTH - 2), steps, "/")
        part = int(steps[1] * 20 / steps[2])
        if (part > said) {
            said = part
            printf "%s: %d %% (%d of %d steps)\n", title, part * 5, steps[1], steps[2]
            fflush()
        }
    }'
}

# build_qt TITLE [COMMAND...]: configures, builds and installs Qt, by a command that brings others to where they run.
# fetch_source puts the source into "$top/source", or returns that it failed: `set -e` does nothing in it. What is
# installed goes into the folder "$destination", as if that were the root.
build_qt() {
    local title="$1" run=("${@:2}")
    trouble() {
        echo "$title could not be built:" >&2
        tail -n 40 "$work/log" >&2
        exit 1
    }
    (fetch_source) >"$work/log" 2>&1 || trouble
    "${run[@]}" cmake -S "$top/source" -B "$top/build" -G Ninja "${settings[@]}" >"$work/log" 2>&1 || trouble
    "${run[@]}" cmake --build "$top/build" 2>&1 | tee "$work/log" | say_how_far "$title" >&2 || trouble
    "${run[@]}" env DESTDIR="$destination" cmake --install "$top/build" >"$work/log" 2>&1 || trouble
}
