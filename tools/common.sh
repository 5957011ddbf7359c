# shellcheck shell=bash
# Sourced by the other scripts: where things are, messages, the environment of Windows programs.

project=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.." && pwd)
# shellcheck disable=SC2034 # used by the scripts that source this file
tools=$project/tools
preset=${MOSSHARBOUR_PRESET:-mingw-linux}
# shellcheck disable=SC2034
build=$project/build/$preset

say() {
    printf '== %s\n' "$*"
}

die() {
    printf 'error: %s\n' "$*" >&2
    exit 1
}

# quietly LOG COMMAND...: the command's output goes to a file, and to the terminal only when it fails.
quietly() {
    local log=$1
    shift
    mkdir -p -- "$(dirname -- "$log")"
    if ! "$@" >"$log" 2>&1 </dev/null; then
        tail -n 60 -- "$log" >&2
        return 1
    fi
}

# wine_environment BUILD: exports what Wine needs for programs of that build folder. The completions of
# platform/wine stand beside the programs; all questions and icons of Wine's own are off.
wine_environment() {
    export WINEPREFIX=$1/wineprefix
    export WINEARCH=win64
    export WINEDEBUG=${WINEDEBUG:--all}
    export WINEDLLOVERRIDES="d2d1,dwrite,uianimation=n,b;mscoree,mshtml=;winemenubuilder.exe="
}

# screen_answers: is there a display, and does it answer?
screen_answers() {
    [[ -n ${DISPLAY:-} ]] && timeout 5 xdpyinfo >/dev/null 2>&1
}
