#!/usr/bin/env bash
# What the installed libraries export is what the packages' lists of symbols say.
#   symbols.sh PREFIX DEBIAN_DIRECTORY
set -euo pipefail

failed=0
for list in "$2"/*.symbols; do
    library=$1/lib/$(awk 'NR == 1 { print $1 }' "$list")
    diff --unified=0 --label "$list" --label "$library" \
        <(sed -n 's/^ \([^@]*\)@Base .*/\1/p' "$list" | LC_ALL=C sort) \
        <(nm --dynamic --defined-only --format=posix "$library" | cut -d' ' -f1 | LC_ALL=C sort) || failed=1
done
exit $failed
