#!/usr/bin/env bash
# Runs saved runs again: each transcript beside this script must come out of the console byte for byte as it went in.
#
#   run.sh <console> [transcript ...]      all transcripts when none is named
#
# All run five hours west of Greenwich, so that local times are the same on every machine and are not universal ones.
# A transcript named *-types.zendry is run with the answers' types.  Prints the difference of each that fails and a
# count; exits with 1 when any fails and with 2 when there is nothing to run.
set -u
export TZ=EST5

if [ $# -lt 1 ] || [ ! -x "$1" ]; then
    echo "usage: run.sh <console> [transcript ...]" >&2
    exit 2
fi
console=$(realpath "$1")
. "$(dirname "$(realpath "$0")")/../../scripts/agent.sh"
in_example_agent "$console"
shift

if [ $# -eq 0 ]; then
    shopt -s nullglob
    set -- "$(dirname "$(realpath "$0")")"/*.zendry
fi
if [ $# -eq 0 ]; then
    echo "no transcripts" >&2
    exit 2
fi

answers=$(mktemp)
trap 'rm -f "$answers"' EXIT

total=0
failed=0
for transcript in "$@"; do
    options=()
    case $transcript in
        *-types.zendry) options=(-showtypes) ;;
    esac
    total=$((total + 1))
    "$console" "${options[@]}" "$transcript" >"$answers" </dev/null
    status=$?
    if [ $status -ne 0 ]; then
        echo "$(basename "$transcript"): the console ended with $status"
    fi
    if ! diff --text -u --label "$(basename "$transcript")" --label answers "$transcript" "$answers" ||
        [ $status -ne 0 ]; then
        failed=$((failed + 1))
    fi
done

echo "$((total - failed)) of $total transcripts hold"
[ $failed -eq 0 ]
