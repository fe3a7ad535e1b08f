#!/bin/sh
# check.sh CONSOLE: compares the console's vocabulary with the list beside this script, so that no word of the language
# is lost, renamed or added unnoticed.  A wanted change is accepted with update.sh.
set -eu
here=$(dirname "$0")
found=$(mktemp)
trap 'rm -f "$found"' EXIT
"$here/../../scripts/vocabulary.sh" "${1:?usage: check.sh CONSOLE}" >"$found"

# The second of two entries that answer to the same phrase and types could never be asked.
twice=$(awk -F '\t' '
    $1 == "property" { print "property", $2, "<" $4 ">", "of <" $5 ">" }
    $1 == "type" { print "type", $2 }
    $1 == "cast" || $1 == "unary" { print $1, $2, "<" $3 ">" }
    $1 == "binary" { print $1, "<" $3 ">", $2, "<" $4 ">" }' "$found" | LC_ALL=C sort | uniq -d)
if [ -n "$twice" ]; then
    printf 'registered twice:\n%s\n' "$twice"
fi

if ! diff -u --label "the list" --label "the console" "$here/vocabulary.tsv" "$found"; then
    echo "the vocabulary is not the listed one; a wanted change is accepted with"
    echo "    tests/vocabulary/update.sh build/bin/zendry && docs/generate_inspectors.sh build/bin/zendry"
    exit 1
fi
[ -z "$twice" ]
