#!/usr/bin/env bash
# Asks the sample file about this machine and compares what it answers with what stat, find, ls, df and readlink say.
#
#   check_machine.sh <console> <machine.zendry>
#
# Prints each question whose answers differ, and a count; exits with 1 when any does and with 2 when there is nothing to
# run.
set -u
export LC_ALL=C

if [ $# -ne 2 ] || [ ! -x "$1" ] || [ ! -r "$2" ]; then
    echo "usage: check_machine.sh <console> <machine.zendry>" >&2
    exit 2
fi

. "$(dirname "$(realpath "$0")")/../../scripts/agent.sh"
in_example_agent "$1"
run=$(mktemp)
trap 'rm -f "$run"' EXIT
"$1" "$2" >"$run" </dev/null || { echo "the console ended with $?"; exit 1; }

checked=0
failed=0

# The answers to a question, as lines.  A question that is not in the sample gives a text that nothing else gives.
answers() {
    awk -v question="Q: $1" '
        $0 == question { on = 1; found = 1; next }
        on && /^[AE]: / { sub(/^A: /, ""); print; next }
        on && $0 == "" { on = 0 }
        END { if (!found) print "(not asked)" }' "$run"
}

# Expects the answers to be standard input.
expect() {
    local expected
    expected=$(cat)
    checked=$((checked + 1))
    local got
    got=$(answers "$1")
    if [ "$got" != "$expected" ]; then
        failed=$((failed + 1))
        printf 'Q: %s\n' "$1"
        diff <(printf '%s\n' "$expected") <(printf '%s\n' "$got") | sed 's/^/    /'
    fi
}

# Paths of a folder's entries that are of a type, through links, in the order of their bytes.
entries() { # folder, find's letter for the type, more tests
    local folder=$1 type=$2
    shift 2
    find "$folder" -mindepth 1 -maxdepth 1 -xtype "$type" "$@" | sort
}
# Follows links; a loop of them is told on standard error and is no matter here.
through_links() { find -L "$@" 2>/dev/null; }
names() { sed 's|.*/||'; }

# The long listing's letters without the one for the type.
letters() { stat -L -c %A "$1" | cut -c2-; }
octal() { printf '%04o\n' "$((0$(stat -L -c %a "$1")))"; }
sum() { awk '{ total += $1 } END { printf "%.0f\n", total }'; }

expect '(size of it, user name of it, group name of it, mode of it, mode of it as octal string) of file "/etc/passwd"' \
    <<<"$(stat -L -c '%s, %U, %G' /etc/passwd), $(letters /etc/passwd), $(octal /etc/passwd)"
expect '(user name of it, group name of it, mode of it as octal string) of file "/etc/shadow"' \
    <<<"$(stat -L -c '%U, %G' /etc/shadow), $(octal /etc/shadow)"
expect '(name of it, uid of it, gid of it, mode of it as octal string) of files of folder "/etc"' < <(
    entries /etc f | while read -r path; do
        echo "$(basename "$path"), $(stat -L -c '%u, %g' "$path"), $(octal "$path")"
    done)

expect 'number of files of folder "/etc"' < <(entries /etc f | wc -l)
expect 'number of folders of folder "/etc"' < <(entries /etc d | wc -l)
expect 'number of symlinks of folder "/etc"' < <(find /etc -mindepth 1 -maxdepth 1 -type l | wc -l)
expect 'number of descendants of folder "/etc"' < <(through_links /etc -type f | wc -l)
expect 'number of descendant folders of folder "/etc"' < <(through_links /etc -mindepth 1 -type d | wc -l)
expect 'sum of sizes of descendants of folder "/etc"' < <(through_links /etc -type f -printf '%s\n' | sum)
expect 'number of files of folder "/usr/bin"' < <(entries /usr/bin f | wc -l)
expect 'sum of sizes of files of folder "/usr/bin"' < <(through_links /usr/bin -maxdepth 1 -type f -printf '%s\n' | sum)
expect 'number of descendants of folder "/usr/share/doc"' < <(through_links /usr/share/doc -type f | wc -l)

largest=$(through_links /etc -maxdepth 1 -type f -printf '%s\n' | sort -n | tail -n 1)
expect 'maximum of sizes of files of folder "/etc"' <<<"$largest"
expect '(name of it, size of it) of files whose (size of it = maximum of sizes of files of parent folder of it) of folder "/etc"' \
    < <(through_links /etc -maxdepth 1 -type f -size "${largest}c" -printf '%f, %s\n' | sort)
expect 'pathnames of files whose (size of it > 4000000) of folder "/usr/bin"' \
    < <(through_links /usr/bin -maxdepth 1 -type f -size +4000000c | sort)

expect '(pathname of it, value of it) of symlinks whose (not value accessible of it) of folder "/etc"' \
    < <(find /etc -mindepth 1 -maxdepth 1 -xtype l -printf '%p, %l\n' | sort)
expect 'pathnames of symlinks whose (not value accessible of it) of folder "/etc/alternatives"' \
    < <(find /etc/alternatives -mindepth 1 -maxdepth 1 -xtype l | sort)
expect '(name of it, value of it) of symlinks of folder "/"' < <(
    ls -A / | while read -r name; do
        [ -L "/$name" ] && echo "$name, $(readlink "/$name")"
    done)

expect 'number of files whose (other execute of it) of folder "/usr/bin"' \
    < <(through_links /usr/bin -maxdepth 1 -type f -perm -001 | wc -l)
expect 'names of files whose (not other execute of it) of folder "/usr/bin"' \
    < <(through_links /usr/bin -maxdepth 1 -type f ! -perm -001 | sort | names)
expect 'pathnames of files whose (setuid of it) of folder "/usr/bin"' \
    < <(through_links /usr/bin -maxdepth 1 -type f -perm -4000 | sort)
expect 'pathnames of files whose (setgid of it) of folder "/usr/bin"' \
    < <(through_links /usr/bin -maxdepth 1 -type f -perm -2000 | sort)
expect 'pathnames of descendants whose (other write of it) of folder "/etc"' \
    < <(through_links /etc -type f -perm -002 | sort)
# The root keeps its own slash: its entries' paths begin with two.
expect 'pathnames of folders whose (sticky of mode of it) of folder "/"' \
    < <(through_links / -mindepth 1 -maxdepth 1 -type d -perm -1000 | sort | sed 's|^|/|')

expect 'names of find files "*.conf" of folder "/etc"' < <(entries /etc f -name '*.conf' | names)
expect 'names of find folders "*.d" of folder "/etc"' < <(entries /etc d -name '*.d' | names)

expect '(device type of it, major of it, minor of it) of device file "/dev/null"' \
    <<<"$(ls -lL /dev/null | awk '{ print (substr($1, 1, 1) == "c" ? "char" : "block") ", " $5 " " $6 }')"
# "stdin" and its like lead to what each process has open.
expect 'number of device files whose (not (name of it starts with "std")) of folder "/dev"' \
    < <(through_links /dev -mindepth 1 -maxdepth 1 \( -type c -o -type b \) ! -name 'std*' | wc -l)
mount=$(df --output=target /usr | tail -n 1)
expect '(name of it, total space of it) of filesystem "/usr"' \
    <<<"$mount, $(($(stat -f -c %s /usr) * $(stat -f -c %b /usr)))"
expect 'free percent of filesystem "/" + used percent of filesystem "/" >= 99' <<<True
expect '(name of it, type of it) of filesystem "/proc"' <<<"/proc, DRIVE_UNKNOWN"

asked=$(grep -c '^Q: ' "$run")
if [ "$asked" -ne "$checked" ]; then
    echo "$asked questions are asked, $checked are checked"
    failed=$((failed + 1))
fi
echo "$((checked - failed)) of $checked answers agree"
[ $failed -eq 0 ]
