#!/usr/bin/env bash
# The commands with which the guide builds its first and its last program build them, with an installed library
# and a strict compiler.
#   by_hand.sh GUIDE PREFIX WORK_DIRECTORY
set -euo pipefail

guide=$1
prefix=$2
work=$3

# command NUMBER: of those in the guide that call the compiler, with its further lines.
command_of_guide() {
    awk -v wanted="$1" '
        /^```/ { inside = 0 }
        /^cc / { inside = ++number == wanted }
        inside { print }' "$guide/README.md"
}

# build NUMBER STEP
build() {
    local command
    command=$(command_of_guide "$1")
    [[ $command == cc\ * ]] || { echo "the guide has no command $1" >&2 && exit 1; }
    (cd "$work/steps/$2" && eval "cc -std=c99 -Wall -Wextra -Werror ${command#cc}" && test -x guide)
}

rm -rf "$work"
mkdir -p "$work"
cp -r "$guide/steps" "$work"
export PKG_CONFIG_PATH=$prefix/lib/pkgconfig
build 1 01-window
build 2 12-browser
