#!/usr/bin/env bash
# Every C and C++ file stands as .clang-format says.
#   format.sh SOURCE_DIRECTORY
set -euo pipefail

cd "$1"
rooms=()
for room in corvidlmw examples tests bench; do
    [[ -d $room ]] && rooms+=("$room")
done
find "${rooms[@]}" \( -name '*.h' -o -name '*.c' -o -name '*.cpp' \) -print0 |
    xargs -0 clang-format --dry-run -Werror --ferror-limit=1
