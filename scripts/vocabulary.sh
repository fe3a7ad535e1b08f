#!/bin/sh
# vocabulary.sh CONSOLE: prints the whole vocabulary of the console, an entry to a line, sorted, fields separated by tabs:
#
#   type      name      parent   size
#   property  singular  plural   index   object  result  one, or many where it may give any number of values
#   cast      name      operand  result
#   binary    symbol    left     right   result
#   unary     symbol    operand  result
set -eu
if [ $# -ne 1 ]; then
    echo "usage: vocabulary.sh CONSOLE" >&2
    exit 2
fi
. "$(dirname "$0")/agent.sh"
in_example_agent "$1"
answers=$("$1" "$(dirname "$0")/vocabulary.zendry")
if ! printf '%s\n' "$answers" | grep -q '^A: ' || printf '%s\n' "$answers" | grep '^E: ' >&2; then
    echo "the console does not tell its vocabulary" >&2
    exit 1
fi
# The console shows a tab as %09 and a percent sign as %25.
printf '%s\n' "$answers" | awk '
    sub(/^A: /, "") {
        gsub(/%09/, "\t")
        gsub(/%25/, "%")
        print
    }' | LC_ALL=C sort
