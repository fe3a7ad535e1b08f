#!/bin/sh
# Runs every saved run under valgrind: an invalid access, a use of what was never set or memory that was lost fails.
#
#   tests/transcripts/valgrind.sh [the program]
#
# Without valgrind it says so and passes.  The program defaults to the release build's.
set -u
here=$(cd "$(dirname "$0")" && pwd)
program=${1:-$here/../../build/bin/zendry}

if ! command -v valgrind >/dev/null 2>&1; then
    echo "skipped: valgrind is not installed"
    exit 0
fi
if [ ! -x "$program" ]; then
    echo "no program at $program" >&2
    exit 2
fi

. "$here/../../scripts/agent.sh"
in_example_agent "$program"
report=$(mktemp)
trap 'rm -f "$report"' EXIT
failed=0
for transcript in "$here"/*.zendry; do
    case $transcript in
        # Valgrind computes in 64 bits what the processor computes in 80, so that digits come out that do not exist.
        */floating-points*.zendry) continue ;;
        *-types.zendry) types=-showtypes ;;
        *) types= ;;
    esac
    if ! valgrind --quiet --leak-check=full --errors-for-leak-kinds=definite,indirect,possible --error-exitcode=99 \
        --log-file="$report" "$program" $types "$transcript" >/dev/null; then
        echo "failed: $(basename "$transcript")"
        cat "$report"
        failed=1
    fi
done
[ "$failed" -eq 0 ] && echo "clean: all transcripts but those of floating points"
exit "$failed"
