#!/bin/sh
# make_agent.sh AGENT: makes the example agent of examples/agent in the folder AGENT, in place of what is there: a
# configuration, a masthead and a data tree with sites, for the console that is built beside it.
set -eu
agent=${1:?usage: make_agent.sh AGENT}
example=$(dirname "$(realpath "$0")")/../examples/agent
rm -rf "$agent"
mkdir -p "$agent"
agent=$(realpath "$agent")
cp -R "$example/." "$agent"
# What stands for itself on the right of sed's "s".
quoted() { printf '%s' "$1" | sed 's/[&|\\]/\\&/g'; }
sed -e "s|@AGENT@|$(quoted "$agent")|" -e "s|@BUILD@|$(quoted "$(dirname "$agent")")|" \
    "$example/client.conf" >"$agent/client.conf"
