#!/usr/bin/env bash
# check.sh SOURCE PROGRAM...: the programs of docs/embedding.md print what the page says, its CMake lines configure a
# project, and no block of code on it goes unchecked.
set -euo pipefail
source=$1
shift
page=$source/docs/embedding.md
here=$(dirname "$(realpath "$0")")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failed=0

blocks() { awk -v name="$1" -f "$here/blocks.awk" "$page"; }

for program in "$@"; do
    name=${program##*/embedding_}
    blocks "$name.out" >"$work/expected"
    "$program" >"$work/printed"
    if [ ! -s "$work/expected" ] || ! diff "$work/expected" "$work/printed"; then
        echo "$name: the page says one thing and the program another"
        failed=1
    fi
done

mkdir "$work/project"
ln -s "$source" "$work/project/zendry"
blocks CMakeLists.txt >"$work/project/CMakeLists.txt"
blocks ask.cc >"$work/project/ask.cc"
if ! cmake -G Ninja -S "$work/project" -B "$work/build" >"$work/configured" 2>&1; then
    cat "$work/configured"
    echo "the CMake lines of the page do not configure a project"
    failed=1
fi

if awk '/^```/ { if (inside) { inside = 0 } else { inside = 1; print } }' "$page" |
    grep -vE '^```(cpp (ask|host)\.cc|text (ask|host)\.out|cmake CMakeLists\.txt)$'; then
    echo "blocks that nothing checks"
    failed=1
fi
exit $failed
