#!/usr/bin/env bash
# Asks the console about this machine and compares what it answers with what the system's own tools and files say.
#
#   compare.sh <console>
#
# Prints each question whose answers differ, and a count; exits with 1 when any does.  A tool that this machine lacks is
# named, and what it would have said is passed over.
set -u
shopt -s lastpipe
export LC_ALL=C TZ=UTC
console=$1
[ -x "$console" ] || { echo "usage: compare.sh <console>" >&2; exit 2; }

checked=0
failed=0
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

# The answers to one question, as lines.
ask() {
    printf 'Q: %s\n' "$1" >"$folder/question.zendry"
    "$console" "$folder/question.zendry" 2>/dev/null </dev/null | sed -n 's/^A: //p; s/^E: /E: /p' | sed 's/%09/\t/g; s/%25/%/g'
}

# Expects the answers to be standard input.
expect() {
    local expected got
    expected=$(cat)
    checked=$((checked + 1))
    got=$(ask "$1")
    if [ "$got" != "$expected" ]; then
        failed=$((failed + 1))
        printf 'Q: %s\n' "$1"
        diff <(printf '%s\n' "$expected") <(printf '%s\n' "$got") | sed 's/^/    /'
    fi
}

has() {
    command -v "$1" >/dev/null && return
    echo "this machine has no $1"
    return 1
}

# ---- The operating system ----------------------------------------------------------------------------------------------

if has uname; then
    uname -r | expect 'release of operating system'
    uname -v | expect 'build of operating system'
    uname -m | expect 'architecture of operating system'
    uname -m | expect 'machine of operating system'
    uname -n | expect 'host name'
    uname -n | expect 'hostname'
    uname -n | expect 'computer name'
fi
cat /proc/sys/kernel/domainname | expect 'domainname'
if has who && who -b | grep -q boot; then
    echo "$(($(date -d "$(who -b | awk '{ print $3, $4 }')" +%s) / 60))" |
        expect '(boot time of operating system - "01 Jan 1970 00:00:00 +0000" as time) / minute'
fi
if has who; then
    who | awk '{ print $1 }' | expect 'names of users'
    who | awk '{ print $2 }' | expect 'ttys of users'
fi
echo 'German (Austria)' | LANG=de_AT.UTF-8 expect 'system locale'
echo 'de_AT.UTF-8' | LANG=de_AT.UTF-8 expect 'platform id of system ui language'
echo 'French' | LANG=fr_FR expect 'primary language of system locale'

# Where no file of a distribution is there and the kernel names none of the two that have a rule of their own, the note
# of its compiler leads to the name, up to its first number behind a blank.
if ! ls /proc/vmware/version /etc/enterprise-release /etc/redhat-release /etc/SuSE-release >/dev/null 2>&1 &&
    ! grep -q 'Debian\|Ubuntu' /proc/version && grep -q '(.*(.*(' /proc/version; then
    note=$(cut -d'(' -f4 /proc/version | cut -d')' -f1)
    sed -E 's/([ \t][0-9][^ \t]*).*/\1/; s/Linux //I; s/^/Linux /' <<<"$note" | expect 'name of operating system'
    echo 'False, False' | expect '(exists version of it, exists codename of it) of operating system'
fi

# ---- The content of files ----------------------------------------------------------------------------------------------

text="$folder/text"
{
    printf 'alpha\n\n  beta = 1 ; comment  \nGamma: two words\t\n; nothing = here\nalphabet\n'
    seq -f 'line %g of many' 5000
    printf '[first]\nname = one\n other=1\n{brace}\nname=inside\n[ Second ]\nNAME : two\nlast without an end'
} >"$text"
: >"$folder/empty"
head -c 100000 /dev/urandom >"$folder/random"
printf 'a\r\nb\r\n\r\nc\r\n' >"$folder/dos"
of="of file \"$text\""

wc -l <"$folder/dos" | tr -d ' ' | expect "number of lines of file \"$folder/dos\""
tr -d '\r' <"$folder/dos" | expect "lines of file \"$folder/dos\""
# The last line has no end, which wc does not count.
echo $(($(wc -l <"$text") + 1)) | expect "number of lines $of"
echo 0 | expect "number of lines of file \"$folder/empty\""
cat "$text" <(echo) | expect "lines $of"
tail -n 1 "$text" | expect "line (number of lines $of) $of"
for number in 1 2 3 4 100 2500 5006; do
    sed -n "${number}p" "$text" | expect "line $number $of"
    sed -n "$((number + 1))p" "$text" | expect "next line of line $number $of"
    [ $number -eq 1 ] || sed -n "$((number - 1))p" "$text" | expect "previous line of line $number $of"
done
for word in alpha 'line 49' ']' '=' 'of many' Alpha ' '; do
    grep -F -- "$word" "$text" | expect "lines containing \"$word\" $of"
    grep -F -n -- "$word" "$text" | cut -d: -f1 | expect "line numbers of lines containing \"$word\" $of"
    awk -v start="$word" 'index($0, start) == 1' "$text" | expect "lines starting with \"$word\" $of"
    grep -qF -- "$word" "$text" && found=True || found=False
    echo $found | expect "content $of contains \"$word\""
done
grep -qi 'GAMMA: TWO' "$text" && echo True | expect "content $of as uppercase contains \"GAMMA: TWO\""
grep -qi 'gamma: two' "$text" && echo True | expect "content $of as lowercase contains \"gamma: two\""

# The first line that begins with the key, in whatever case, without its comment and without blanks around.
key() {
    awk -v name="$1" '
        {
            line = $0
            sub(/^[ \t]*/, "", line)
            if (tolower(substr(line, 1, length(name))) != tolower(name)) next
            line = substr(line, length(name) + 1)
            if (line !~ /^[ \t]*[=:]/) next
            sub(/^[ \t]*[=:][ \t]*/, "", line)
            sub(/;.*/, "", line)
            sub(/[ \t]*$/, "", line)
            print line
            exit
        }' "$2"
}
for name in beta BETA gamma name other; do
    key "$name" "$text" | expect "key \"$name\" $of"
done
echo False | expect "exists key \"alpha\" $of"
sed -n '/^\[first\]/,/^\[ Second \]/p' "$text" >"$folder/first"
sed -n '/^\[ Second \]/,$p' "$text" >"$folder/second"
sed -n '/^{brace}/,$p' "$text" >"$folder/brace"
key name "$folder/first" | expect "key \"name\" of section \"first\" $of"
key other "$folder/first" | expect "key \"other\" of section \"FIRST\" $of"
key name "$folder/second" | expect "key \"name\" of section \"second\" $of"
key name "$folder/brace" | expect "key \"name\" of section \"brace\" $of"
for name in MemTotal SwapTotal; do
    key $name /proc/meminfo | expect "key \"$name\" of file \"/proc/meminfo\""
done
if [ -r /etc/os-release ]; then
    key ID /etc/os-release | expect 'key "ID" of file "/etc/os-release"'
    key VERSION_ID /etc/os-release | expect 'key "VERSION_ID" of file "/etc/os-release"'
fi

if has sha1sum; then
    for file in "$text" "$folder/empty" "$folder/random" "$folder/dos" /etc/passwd; do
        sha1sum <"$file" | cut -d' ' -f1 | expect "sha1 of file \"$file\""
    done
    for word in '' a 'two words'; do
        printf '%s' "$word" | sha1sum | cut -d' ' -f1 | expect "sha1 of \"$word\""
    done
fi
for place in 0 1 255 4096 99999; do
    od -An -tu1 -j $place -N 1 "$folder/random" | tr -d ' ' | expect "byte $place of file \"$folder/random\""
done
echo False | expect "exists byte 100000 of file \"$folder/random\""

# ---- Owners of files ---------------------------------------------------------------------------------------------------

if has getent; then
    for file in /etc/passwd /etc/shadow "$text"; do
        getent passwd "$(stat -c %u "$file")" | cut -d: -f1 | expect "user name of file \"$file\""
        getent group "$(stat -c %g "$file")" | cut -d: -f1 | expect "group name of file \"$file\""
    done
    # What the system's own data base says where it is that file, line by line.
    getent -s files passwd | cut -d: -f1 |
        expect 'preceding texts of firsts ":" of lines whose (it contains ":") of file "/etc/passwd"'
    if has who; then
        for name in $(who | awk '{ print $1 }' | sort -u); do
            getent passwd "$name" | cut -d: -f1 | expect "unique values of names of users \"$name\""
        done
    fi
    echo False | expect 'exists user "no such user"'
fi

# ---- Processors and memory ---------------------------------------------------------------------------------------------

grep -c '^processor' /proc/cpuinfo | expect 'number of processors'
value() { sed -n "s/^$1[[:space:]]*: //p" /proc/cpuinfo; }
value 'model name' | expect 'model names of processors'
value 'model name' | expect 'brand strings of processors'
value 'vendor_id' | expect 'vendor names of processors'
value 'cpu family' | expect 'families of processors'
value 'model' | expect 'models of processors'
value 'stepping' | expect 'steppings of processors'
value 'cpuid level' | expect 'cpuid levels of processors'
value 'cpu family' | head -n 1 | expect 'family of main processor'
value 'processor' | expect 'indexes of processors'
value 'fpu' | sed 's/yes/True/; s/no/False/' | expect 'fpus of processors'
value 'wp' | sed 's/yes/True/; s/no/False/' | expect 'wps of processors'
value 'bogomips' | awk '{ printf "%d\n", $1 + 0.5 }' | expect 'bogomipses of processors'
value 'physical id' | sort -u | wc -l | awk '{ print $1 ? $1 : "none" }' >"$folder/packages"
grep -qx none "$folder/packages" || expect 'count of cpupackage' <"$folder/packages"

bytes() { awk -v key="$1:" '$1 == key { printf "%d\n", $2 * 1024; exit }' /proc/meminfo; }
bytes MemTotal | expect 'size of ram'
bytes MemTotal | expect 'total amount of random access memory'
bytes SwapTotal | expect 'total amount of swap'
grep -qi '^MemShared:\|^Mem:' /proc/meminfo || echo False | expect 'exists shared amount of ram'

# ---- Processes ---------------------------------------------------------------------------------------------------------

sleep 300 &
sleeper=$!
cp "$(command -v sleep)" "$folder/odd name"
FOO='a=b' BAR= "$folder/odd name" 301 &
odd=$!
trap 'kill $sleeper $odd 2>/dev/null; rm -rf "$folder"' EXIT
for _ in 1 2 3 4 5 6 7 8 9 10; do
    [ "$(readlink "/proc/$odd/exe")" = "$folder/odd name" ] && [ "$(basename "$(readlink /proc/$sleeper/exe)")" != bash ] && break
    sleep 0.1
done
basename "$(readlink /proc/$sleeper/exe)" | expect "name of process $sleeper"
echo 'odd name' | expect "name of process $odd"
tr '\0' '\n' </proc/$odd/cmdline | expect "command line arguments of process $odd"
tr '\0' '\n' </proc/$odd/cmdline | sed -n 2p | expect "command line argument 2 of process $odd"
echo 'a=b' | expect "value of variable \"FOO\" of environment of process $odd"
tr '\0' '\n' </proc/$odd/environ | sed 's/=.*//' | expect "names of variables of environment of process $odd"
echo $odd | expect 'pids of processes "odd name"'
echo True | expect "exists (pids of processes) whose (it = $odd)"
printf '%s\n' "${PATH}" | expect 'value of variable "PATH" of environment'
if has ps; then
    # Processes come and go: those that both see at once are there, and nothing that neither sees.
    for pid in $(ps -o pid= -p $$,$PPID,$sleeper,$odd); do
        [ -r "/proc/$pid/exe" ] && echo "$pid" | expect "process id of process $pid"
    done
fi

# ---- The network -------------------------------------------------------------------------------------------------------

if has ip; then
    ip -o -4 addr show | awk '{ sub(/\/.*/, "", $4); print $4 }' | sort >"$folder/v4"
    printf '%s\n' "$(ask 'addresses of ip interfaces of network' | sort)" | diff "$folder/v4" - >/dev/null ||
        { failed=$((failed + 1)); echo 'the addresses of version 4 differ from those of ip'; }
    checked=$((checked + 1))
    ip -o link show | awk -F': ' '{ sub(/@.*/, "", $2); print $2 }' | sort >"$folder/links"
    printf '%s\n' "$(ask 'names of any adapters of network' | sort)" | diff "$folder/links" - >/dev/null ||
        { failed=$((failed + 1)); echo 'the adapters differ from those of ip'; }
    checked=$((checked + 1))
    while read -r name mac; do
        echo "$mac" | expect "mac address of find adapter \"$name\" of network"
    done < <(ip -o link show | sed -n 's/^[0-9]*: \([^:@]*\)[:@].*link\/ether \([0-9a-f:]*\).*/\1 \2/p')
    for name in $(ip -o link show up | awk -F': ' '{ sub(/@.*/, "", $2); print $2 }'); do
        echo True | expect "up of find adapter \"$name\" of network"
    done
    ip -o -4 route show default | awk '{ print $3 }' | sort -u |
        expect '(it as string) of unique values of (gateways of routes whose (gateway flag of it) of linux ipv4 routing table)'
fi
awk 'NR > 1 { print $1 }' /proc/net/route | expect 'interfaces of routes of linux ipv4 routing table'
awk 'NR > 1 { print $7 }' /proc/net/route | expect 'metrics of routes of linux ipv4 routing table'

if [ "$failed" -ne 0 ]; then
    echo "$failed of $checked questions about this machine differ"
    exit 1
fi
echo "$checked questions about this machine agree with its own tools"
