#!/usr/bin/env bash
# A file that cannot be shown is named in one line on standard error, without a display.
#   browser_messages.sh GRAPH_BROWSER
set -euo pipefail

browser=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
unset DISPLAY
failures=0

# expect FILE MESSAGE
expect() {
    local status=0
    "$browser" "$1" >output 2>errors || status=$?
    if ((status != 1)) || [[ -s output ]] || [[ $(<errors) != "graph-browser: $2" ]]; then
        printf '%s: exit status %s, expected 1 and\n  graph-browser: %s\ngot\n' "$1" "$status" "$2"
        cat output errors
        failures=$((failures + 1))
    fi
}

mkdir directory
: >empty.dot
printf 'digraph {\n  a -> b;\n  b ->\n}\n' >broken.dot
printf 'Dear reader,\nthis is no graph.\n' >letter.txt
head -c 1000 /bin/sh >program
printf 'digraph { a }\n' >secret.dot
chmod 0 secret.dot

expect missing.dot "missing.dot: No such file or directory"
expect directory "directory: Is a directory"
expect empty.dot "empty.dot:1: the file is empty"
expect broken.dot "broken.dot:4: syntax error near '}'"
expect letter.txt "letter.txt:1: syntax error near 'Dear'"
expect program "program:1: not a DOT file: it holds a zero byte"
# Root may read everything.
((EUID == 0)) || expect secret.dot "secret.dot: Permission denied"

status=0
"$browser" >output 2>errors || status=$?
if ((status != 2)) || ! grep -q '^usage: graph-browser' errors; then
    echo "without a file: exit status $status, expected 2 and the usage"
    failures=$((failures + 1))
fi
exit $((failures > 0))
