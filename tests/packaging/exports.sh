#!/usr/bin/env bash
# The names that the shared libraries export: C names, each declared for export in an installed
# header and the other way round, and none that the toolkit's own libraries export. The toolkit is
# not linked symbolically: it would call our function in the place of its own.
#   exports.sh PREFIX TOOLKIT_LIBRARY...
set -euo pipefail

prefix=$1
shift

exported() { nm -D --defined-only --format=posix "$@" | cut -d' ' -f1 | sed 's/@.*//' | sort -u; }

# The declared name is the last word before the parameters or the end of the declaration.
declared() {
    find "$prefix/include" -name '*.h' ! -name Export.h -exec cat {} + |
        perl -0777 -ne 's{/\*.*?\*/}{}gs;
            while (/CORVIDLMW_EXPORT\b([^;]*?)(\w+)\s*(\[[^\]]*\]\s*)?[(;]/g) { print "$2\n"; }' |
        sort -u
}

failed=0
# Says what is wrong with the names on standard input, if there are any.
refuse() {
    local names
    names=$(cat)
    [[ -z $names ]] && return
    printf '%s:\n%s\n' "$1" "$names" >&2
    failed=1
}

ours=
for library in libcorvidlmw.so libcorvidlmw_mrm.so; do
    names=$(exported "$prefix/lib/$library")
    [[ -n $names ]] || { echo "$library exports nothing" >&2 && exit 1; }
    ours+=$names$'\n'
done
ours=$(grep . <<<"$ours" | sort)

refuse "C++ names are exported" < <(grep '^_Z' <<<"$ours")
refuse "exported, but declared in no installed header" < <(comm -23 <(echo "$ours") <(declared))
refuse "declared for export, but not exported" < <(comm -13 <(echo "$ours") <(declared))
for library in "$@"; do
    refuse "$library exports too" < <(comm -12 <(echo "$ours") <(exported "$library"))
done

echo "$ours"
exit $failed
