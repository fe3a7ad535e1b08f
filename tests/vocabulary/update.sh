#!/bin/sh
# update.sh CONSOLE: writes the console's vocabulary to the list beside this script, which the test compares it with.
set -eu
here=$(dirname "$0")
list=$("$here/../../scripts/vocabulary.sh" "${1:?usage: update.sh CONSOLE}")
printf '%s\n' "$list" >"$here/vocabulary.tsv"
