#!/usr/bin/env bash
# Builds the client against an installed prefix and runs it on a server of its own.
#   client.sh pkg-config|pkg-config-static|cmake|cmake-static PREFIX WORK_DIRECTORY
set -euo pipefail

way=$1
prefix=$2
work=$3
source=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)/client
libraries=$prefix/lib

build_with_pkg_config() {
    local link=$1
    shift
    export PKG_CONFIG_PATH=$libraries/pkgconfig
    local -a flags
    read -ra flags <<<"$(pkg-config "$@" --cflags --libs corvidlmw)"
    "${CC:-cc}" -std=c99 -Wall -Wextra -Wpedantic -Werror -o "$work/client" "$source/main.c" \
        "${flags[@]/#-lcorvidlmw/$link}"
}

build_with_cmake() {
    cmake -S "$source" -B "$work" -G Ninja -DCMAKE_PREFIX_PATH="$prefix" -DLIBRARY="$1"
    cmake --build "$work"
}

# The server picks a free display, says which, and ends with this script.
run_on_own_server() {
    local display
    exec {display_pipe}< <(exec Xvfb -displayfd 1 -screen 0 640x480x24 -noreset -nolisten tcp 2>/dev/null)
    local server=$!
    # shellcheck disable=SC2064
    trap "kill $server 2>/dev/null || true" EXIT
    read -r -t 30 display <&"$display_pipe"
    DISPLAY=:$display LD_LIBRARY_PATH=$libraries timeout 60 "$work/client"
}

rm -rf "$work"
mkdir -p "$work"
case $way in
pkg-config) build_with_pkg_config -lcorvidlmw ;;
pkg-config-static) build_with_pkg_config -l:libcorvidlmw.a --static ;;
cmake) build_with_cmake corvidlmw ;;
cmake-static) build_with_cmake corvidlmw_static ;;
*) echo "client.sh: unknown way '$way'" >&2 && exit 2 ;;
esac

# The right library, and not one that happens to lie elsewhere on this machine.
linked=$(LD_LIBRARY_PATH=$libraries ldd "$work/client" | grep libcorvidlmw || true)
if [[ $way == *-static ]]; then
    [[ -z $linked ]] || { echo "links the shared library: $linked" >&2 && exit 1; }
else
    [[ $linked == *"$libraries/libcorvidlmw.so.1 "* ]] || { echo "links: $linked" >&2 && exit 1; }
fi

run_on_own_server
echo "The client built by way of $way finds its nodes in their places."
