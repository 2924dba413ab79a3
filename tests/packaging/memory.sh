#!/usr/bin/env bash
# The library takes memory from the toolkit's allocator alone, which ends a client that has none left: from
# any other a failure would come as NULL or as an exception.
#   memory.sh PREFIX
set -euo pipefail

needed=$(nm -D --undefined-only --format=posix "$1/lib/libcorvidlmw.so" | cut -d' ' -f1 | sed 's/@.*//')
grep -qx XtMalloc <<<"$needed" || { echo "the library takes no memory at all" >&2 && exit 1; }

# The second library takes none.
needed+=$'\n'$(nm -D --undefined-only --format=posix "$1/lib/libcorvidlmw_mrm.so" | cut -d' ' -f1 | sed 's/@.*//')
# C's functions, and operator new.
others='^(malloc|calloc|realloc|reallocarray|aligned_alloc|posix_memalign|strn?dup|v?asprintf|_Zn[wa].*)$'
if grep -E "$others" <<<"$needed" >&2; then
    exit 1
fi
