#!/bin/sh
# check_inspectors.sh CONSOLE: the pages of docs/inspectors are those that the console's own vocabulary makes, and every
# link in them leads somewhere.
set -eu
pages=$(dirname "$0")/../../docs/inspectors
made=$(mktemp -d)
trap 'rm -rf "$made"' EXIT
"$pages/../generate_inspectors.sh" "${1:?usage: check_inspectors.sh CONSOLE}" "$made"

failed=0
if ! diff -ru "$pages" "$made"; then
    echo "the pages are stale: docs/generate_inspectors.sh build/bin/zendry"
    failed=1
fi
for target in $(grep -oh '](\([^)#]*\)' "$made"/*.md | sed 's/^](//' | LC_ALL=C sort -u); do
    if [ ! -e "$made/$target" ]; then
        echo "a link leads to $target, which is not there"
        failed=1
    fi
done
exit $failed
