#!/usr/bin/env bash
# Every installed header compiles alone, and again after itself, without a warning.
#   headers.sh PREFIX COMPILER LANGUAGE STANDARD
set -euo pipefail

include=$1/include
compiler=$2
language=$3
standard=$4

failed=0
mapfile -t headers < <(cd "$include" && find corvidlmw -name '*.h' | sort)
(( ${#headers[@]} > 0 )) || { echo "no header is installed in $include" >&2 && exit 1; }

for header in "${headers[@]}"; do
    printf '#include <%s>\n#include <%s>\ntypedef int not_empty;\n' "$header" "$header" |
        "$compiler" -x "$language" -std="$standard" -Wall -Wextra -Wpedantic -Werror \
            -I"$include" -fsyntax-only - || { echo "$header does not stand alone" >&2 && failed=1; }
done
echo "${#headers[@]} headers as $standard"
exit $failed
