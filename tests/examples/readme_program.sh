#!/usr/bin/env bash
# The program that the readme quotes is the one that is built.
#   readme_program.sh SOURCE_DIRECTORY
set -euo pipefail

cd "$1"
diff <(sed -n '/^```c$/,/^```$/p' README.md | sed '1d;$d') examples/first-graph/main.c
