# shellcheck shell=bash
# What the scripts share; to be sourced by bash. The caller's first comment block is its help text.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

# Prints what is being done, in a form that stands out of the tools' own output.
say() { printf '\n== %s\n' "$*"; }
fail() { printf '%s: %s\n' "$(basename "$0")" "$*" >&2; exit 1; }

# Prints the comment block at the start of the running script when the arguments ask for it.
help_if_asked() {
    case " $* " in
        *" --help "* | *" -h "*)
            sed -n '2,/^[^#]/{s/^# \{0,1\}//p}' "scripts/$(basename "$0")"
            exit 0
            ;;
    esac
}

# build PRESET [TARGET...]: configures the preset and builds these targets of it, all without any.
build() {
    local preset=$1
    shift
    export CCACHE_BASEDIR=$PWD CCACHE_NOHASHDIR=1
    say "building $preset into build/$preset"
    cmake --preset "$preset" >build-"$preset".log 2>&1 || {
        cat build-"$preset".log >&2
        rm -f build-"$preset".log
        fail "configuring $preset failed"
    }
    rm -f build-"$preset".log
    cmake --build --preset "$preset" ${1:+--target "$@"}
}
