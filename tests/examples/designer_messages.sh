#!/usr/bin/env bash
# A form that cannot be shown is named in one line on standard error, without a display.
#   designer_messages.sh FORM_DESIGNER
set -euo pipefail

designer=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
unset DISPLAY
failures=0

# expect FILE MESSAGE
expect() {
    local status=0
    "$designer" "$1" >output 2>errors || status=$?
    if ((status != 1)) || [[ -s output ]] || [[ $(<errors) != "form-designer: $2" ]]; then
        printf '%s: exit status %s, expected 1 and\n  form-designer: %s\ngot\n' "$1" "$status" "$2"
        cat output errors
        failures=$((failures + 1))
    fi
}

mkdir directory
: >empty.ad
printf '*form.children: ok\n*form.ok.widgetClass: XmPushButton\n*form.ok.row: one\n' >broken.ad
head -c 1000 /bin/sh >program
head -c 2000000 /dev/zero | tr '\0' '!' >large.ad

expect missing.ad "missing.ad: No such file or directory"
expect directory "directory: Is a directory"
expect empty.ad "empty.ad: the file holds no form"
expect broken.ad "broken.ad:3: row must be a whole number from 0 to 49, not 'one'"
expect program "program:1: not a resource file: it holds a zero byte"
expect large.ad "large.ad: the file is too large for a form"
exit $((failures > 0))
