#!/usr/bin/env bash
# Every C and C++ file stands as .clang-format says.
#   format.sh SOURCE_DIRECTORY
set -euo pipefail

cd "$1"
rooms=()
for room in corvidlmw examples tests bench; do
    [[ -d $room ]] && rooms+=("$room")
done
find "${rooms[@]}" -name '*.h' -o -name '*.c' -o -name '*.cpp' |
    xargs --no-run-if-empty clang-format --dry-run -Werror --ferror-limit=1
