#!/usr/bin/env bash
# check_examples.sh ZENDRY PAGE...: runs the examples of each page, the blocks fenced as ```zendry, through the console;
# each must come out as it stands on the page.
set -euo pipefail
zendry=$1
shift
. "$(dirname "$(realpath "$0")")/../../scripts/agent.sh"
in_example_agent "$zendry"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
passed=0
failed=0
for page in "$@"; do
    awk -v dir="$work" '
        /^```zendry$/ { inside = 1; name = sprintf("%s/example-%05d", dir, NR); printf "" > name; next }
        /^```$/ { if (inside) close(name); inside = 0; next }
        inside { print > name }' "$page"
    for example in "$work"/example-*; do
        [ -e "$example" ] || continue
        # The console ends each question with a blank line, which a page leaves out at the end of a block.
        printf '\n' >>"$example"
        if "$zendry" "$example" | diff "$example" - >"$work/diff"; then
            passed=$((passed + 1))
        else
            failed=$((failed + 1))
            echo "$page, line ${example##*-}:"
            cat "$work/diff"
        fi
        rm "$example"
    done
done
echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ] && [ "$passed" -gt 0 ]
