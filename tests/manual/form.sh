#!/usr/bin/env bash
# Every installed manual page, those beside the sources of the examples included, is set without a warning by
# man, and by mandoc where that is installed, and no line of it is wider than a terminal of 80 columns.
#   form.sh MANUAL_DIRECTORY
set -euo pipefail

shopt -s nullglob
pages=("$1"/man[37]/*.[37] "$1"/../corvidlmw/examples/*/*.1)
(( ${#pages[@]} > 0 )) || { echo "no manual pages in $1" >&2 && exit 1; }

failed=0
complain() {
    echo "$1: $2" >&2
    failed=1
}

for page in "${pages[@]}"; do
    name=${page##*/}
    if read -r request target <"$page" && [[ $request == .so ]]; then
        [[ -f $1/$target ]] || complain "$name" "no $target"
        continue
    fi
    warnings=$(MANWIDTH=80 MANROFFOPT=-ww LC_ALL=C.UTF-8 man --warnings --local-file "$page" 2>&1 >/dev/null)
    [[ -z $warnings ]] || complain "$name" "$warnings"
    text=$(MANWIDTH=80 LC_ALL=C.UTF-8 man --local-file "$page")
    widest=$(LC_ALL=C.UTF-8 wc -L <<<"$text")
    (( widest > 40 && widest <= 80 )) || complain "$name" "$widest columns"
    # A name too long for the middle of the line above the page runs into it.
    [[ $text == "${name%.*}(${name##*.}) "* ]] || complain "$name" "heading ${text%%$'\n'*}"
    if command -v mandoc >/dev/null; then
        warnings=$(mandoc -Tlint -W warning "$page") || true
        [[ -z $warnings ]] || complain "$name" "$warnings"
    fi
done
echo "${#pages[@]} pages"
exit $failed
