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

# Expects the answers to be what a command prints, which may change from one moment to the next: they must be what it
# printed just before or just after.
expect_of_now() { # question, command ...
    local question=$1 before after got attempt
    shift
    checked=$((checked + 1))
    for attempt in {1..100}; do
        before=$("$@")
        got=$(ask "$question")
        after=$("$@")
        [ "$got" = "$before" ] || [ "$got" = "$after" ] && return
        [ "$before" = "$after" ] && break
    done
    failed=$((failed + 1))
    printf 'Q: %s\n' "$question"
    diff <(printf '%s\n' "$after") <(printf '%s\n' "$got") | sed 's/^/    /'
}

# Expects the answers, in whatever order, to be the lines of standard input.
expect_sorted() {
    local expected got
    expected=$(sort)
    checked=$((checked + 1))
    got=$(ask "$1" | sort)
    if [ "$got" != "$expected" ]; then
        failed=$((failed + 1))
        printf 'Q: %s\n' "$1"
        diff <(printf '%s\n' "$expected") <(printf '%s\n' "$got") | sed 's/^/    /'
    fi
}

truth() { "$@" >/dev/null 2>&1 && echo True || echo False; }

has() {
    type -P "$1" >/dev/null && return
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
cat /proc/sys/kernel/domainname | expect 'domain name'
# The host's own domain, that of the file of hosts, or the resolver's.
dns_name() {
    local host full
    host=$(uname -n)
    full=$(getent -s files hosts "$host" 2>/dev/null | awk '{ print $2 }')
    case $host/$full in
        *.*/*) echo "${host#*.}" ;;
        */*.*) echo "${full#*.}" ;;
        *) awk '$1 == "domain" || $1 == "search" { name = $2 } END { if (name) print name }' /etc/resolv.conf ;;
    esac
}
[ ! -r /etc/resolv.conf ] || ! has getent || dns_name | expect 'dns names'
printf 'False\nTrue\nFalse\n' | expect '(windows of it; unix of it; mac of it) of operating system'
# A Debian of a release that its own file tells, where no file of another distribution comes before it.
if grep -q Debian /proc/version && [ -r /etc/debian_version ] && grep -q '^[0-9]' /etc/debian_version &&
    ! ls /proc/vmware/version /etc/enterprise-release /etc/redhat-release /etc/SuSE-release >/dev/null 2>&1; then
    head -n 1 /etc/debian_version | expect 'version of operating system as string'
    head -n 1 /etc/debian_version | sed 's/^/Linux Debian /' | expect 'name of operating system'
    sed -n 's/^VERSION_CODENAME=//p' /etc/os-release | expect 'codename of operating system'
fi
printf '%s (%s)\n' "$(ask 'name of operating system')" "$(uname -r)" | expect 'operating system as string'
if has who && who -b | grep -q boot; then
    echo "$(($(date -d "$(who -b | awk '{ print $3, $4 }')" +%s) / 60))" |
        expect '(boot time of operating system - "01 Jan 1970 00:00:00 +0000" as time) / minute'
fi
if has who; then
    # A machine without records was started at the beginning of time.
    booted=0
    who -b | grep -q boot && booted=$(date -d "$(who -b | awk '{ print $3, $4 }')" +%s)
    if [ "$booted" != 0 ] || [ -z "$(who -a)" ]; then
        minutes() { echo $((($(date +%s) - booted) / 60)); }
        echo True | expect "uptime of operating system > $(minutes) * minute - minute"
        echo True | expect "uptime of operating system < $(minutes) * minute + 2 * minute"
    fi
fi
echo 'German (Austria)' | LANG=de_AT.UTF-8 expect 'system locale'
echo 'de_AT.UTF-8' | LANG=de_AT.UTF-8 expect 'platform id of system ui language'
echo 'French' | LANG=fr_FR expect 'primary language of system locale'
echo 'French (France)' | LANG=fr_FR expect 'system language'

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

# ---- Who is logged on --------------------------------------------------------------------------------------------------

if has who; then
    who | awk '{ print $1 }' | expect 'names of users'
    who | awk '{ print $2 }' | expect 'ttys of users'
    for name in $(who | awk '{ print $1 }' | sort -u); do
        who | awk -v name="$name" '$1 == name { print $2 }' | expect "ttys of users \"$name\""
        # A record with a host shows it in parentheses.
        who | awk -v name="$name" '$1 == name && !/\)$/ { print $2 }' | expect "ttys of local users \"$name\""
    done
    echo False | expect 'exists local user "no such user"'
    who -r | sed -n 's/.*run-level \(.\).*/\1/p' | expect 'values of runlevels'
    who -r | grep -q run-level && found=True || found=False
    echo $found | expect 'exists runlevel'
    if [ $found = True ]; then
        who -r | sed -n 's/.*last=\(.\).*/\1/p' | grep -q . &&
            who -r | sed -n 's/.*last=\(.\).*/\1/p' | expect 'previous value of runlevel'
        echo "$(($(date -d "$(who -r | awk '{ print $3, $4 }')" +%s) / 60))" |
            expect '(effective time of runlevel - "01 Jan 1970 00:00:00 +0000" as time) / minute'
    fi
fi
# The console never looks who sits at the machine, so that it knows of nobody, whoever is logged on.
echo 0 | expect 'number of logged on users'
echo False | expect 'exists current user'
for phrase in actives remotes 'names of users' 'process ids' names ttys; do
    : | expect "($phrase of it) of logged on users"
done

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
# None where this kernel does not tell it.
for fact in fdiv_bug hlt_bug sep_bug f00f_bug coma_bug fpu fpu_exception wp; do
    value $fact | sed 's/yes/True/; s/no/False/' | expect "${fact/_/ }s of processors"
done
# A line counts up to its 255th byte.
cut -b 1-255 /proc/cpuinfo | sed -n 's/^flags[[:space:]]*: //p' | expect 'flag lists of processors'
clocks() { value 'cpu MHz' | awk '{ printf "%.0f hertz\n", $1 * 1000000 }'; }
expect_of_now 'speeds of processors as string' clocks
clocks | grep -c hertz | expect 'number of speeds of processors'
place=0
value 'processor' | while read -r number; do
    echo "$number" | expect "index of processor $place"
    place=$((place + 1))
done
echo False | expect "exists processor $(grep -c '^processor' /proc/cpuinfo)"
# All the names that a family can have.
cat >"$folder/families" <<'END'
80286
8086
80386
80486
MediaGX
Pentium
Pentium Pro
Pentium II
Pentium II Xeon
Pentium III
Pentium III Xeon
Pentium III Extreme
Pentium 4
Pentium D
Pentium M
Celeron
Celeron D
Celeron M
Xeon
Itanium
Itanium 2
Core
Core 2
Core 2 Solo
Core 2 Duo
Core 2 Quad
Core 2 Extreme
Intel EP80579
Duron
Athlon
Unknown
END
ask 'family name of main processor' | grep -xFf "$folder/families" | expect 'unique values of family names of processors'
value 'bogomips' | awk '{ printf "%d\n", $1 + 0.5 }' | expect 'bogomipses of processors'
value 'physical id' | sort -u | wc -l | awk '{ print $1 ? $1 : "none" }' >"$folder/packages"
grep -qx none "$folder/packages" || expect 'count of cpupackage' <"$folder/packages"
# The sums over the first record of each package, where all tell their package.
awk -F'[[:space:]]*: *' '
    function whole() { if (open && !(id in seen)) { seen[id] = 1; c += cores; t += threads; smt = smt || threads > cores } }
    $1 == "processor" { whole(); open = 1; id = "none"; cores = threads = 1 }
    $1 == "physical id" { id = $2; told++ }
    $1 == "cpu cores" { cores = $2 }
    $1 == "siblings" { threads = $2 }
    $1 == "flags" && substr($0, 1, 255) " " ~ / ht / { capable = 1 }
    END {
        whole()
        if (told) print c "\n" t "\n" (capable ? "True" : "False") "\n" (smt ? "True" : "False")
    }' /proc/cpuinfo >"$folder/packages"
[ ! -s "$folder/packages" ] || expect '(core of it as string; thread of it as string; smt capable of it as string; smt enabled of it as string) of cpupackage' <"$folder/packages"
if has lscpu; then
    lscpu -p=CPU | grep -vc '^#' | expect 'number of processors'
fi

bytes() { awk -v key="$1:" '$1 == key { printf "%.0f\n", $2 * 1024; exit }' /proc/meminfo; }
bytes MemTotal | expect 'size of ram'
bytes MemTotal | expect 'total amount of random access memory'
bytes SwapTotal | expect 'total amount of swap'
# The sum of the figures, each with its sign.
figures() {
    awk -v keys="$*" '
        BEGIN { for (n = split(keys, key, " "); n; n--) { sign[substr(key[n], 2) ":"] = substr(key[n], 1, 1) "1" } }
        $1 in sign { sum += sign[$1] * $2 * 1024 }
        END { printf "%.0f\n", sum }' /proc/meminfo
}
expect_of_now 'free amount of ram' figures +MemFree
expect_of_now 'used amount of ram' figures +MemTotal -MemFree
expect_of_now 'buffered amount of ram' figures +Buffers
expect_of_now 'cached amount of ram' figures +Cached
expect_of_now 'available amount of ram' figures +MemFree +Buffers +Cached
expect_of_now 'unavailable amount of ram' figures +MemTotal -MemFree -Buffers -Cached
expect_of_now 'free amount of swap' figures +SwapFree
expect_of_now 'used amount of swap' figures +SwapTotal -SwapFree
sed -n 's/.*state:[[:space:]]*//p' /proc/acpi/ac_adapter/ACAD/state 2>/dev/null | expect '(it as string) of power levels'
echo 'E: No inspector context.' | expect 'pending login'
grep -qi '^MemShared:\|^Mem:' /proc/meminfo || echo False | expect 'exists shared amount of ram'

# ---- Processes ---------------------------------------------------------------------------------------------------------

sleep 300 &
sleeper=$!
odd_name="odd name $$"
cp "$(command -v sleep)" "$folder/$odd_name"
FOO='a=b' BAR= "$folder/$odd_name" 301 &
odd=$!
trap 'kill $sleeper $odd 2>/dev/null; rm -rf "$folder"' EXIT
for _ in 1 2 3 4 5 6 7 8 9 10; do
    [ "$(readlink "/proc/$odd/exe")" = "$folder/$odd_name" ] && [ "$(basename "$(readlink /proc/$sleeper/exe)")" != bash ] && break
    sleep 0.1
done
basename "$(readlink /proc/$sleeper/exe)" | expect "name of process $sleeper"
echo "$odd_name" | expect "name of process $odd"
tr '\0' '\n' </proc/$odd/cmdline | expect "command line arguments of process $odd"
tr '\0' '\n' </proc/$odd/cmdline | sed -n 2p | expect "command line argument 2 of process $odd"
echo 'a=b' | expect "value of variable \"FOO\" of environment of process $odd"
tr '\0' '\n' </proc/$odd/environ | sed 's/=.*//' | expect "names of variables of environment of process $odd"
tr '\0' '\n' </proc/$odd/environ | sed 's/^[^=]*=//' | expect "values of variables of environment of process $odd"
tr '\0' '\n' </proc/$odd/environ | sed 's/=/ = /' | expect "variables of environment of process $odd"
echo $odd | expect "pids of processes \"$odd_name\""
echo True | expect "exists (pids of processes) whose (it = $odd)"
printf '%s\n' "${PATH}" | expect 'value of variable "PATH" of environment'
printf 'ONE = 1\nTWO = a=b\nNONE = \n' >"$folder/variables"
echo 'Q: variables of environment' >"$folder/question.zendry"
env -i ONE=1 TWO=a=b NONE= "$console" "$folder/question.zendry" 2>/dev/null </dev/null | sed -n 's/^A: //p' |
    diff "$folder/variables" - || { failed=$((failed + 1)); echo 'the variables of the console are others'; }
checked=$((checked + 1))
# The list: what is there both before and after must be on it, by name, in the order of the folder.
listing() {
    local number path
    while read -r number; do
        path=$(readlink "/proc/$number/exe") || continue
        # A path with no other "/" than its first byte is its own name.
        [ "${path%/*}" = "" ] || path=${path##*/}
        echo "$number $path"
    done < <(ls -U /proc | grep '^[1-9][0-9]*$')
}
listing >"$folder/before"
ask '(id of it as string & " " & name of it) of processes' >"$folder/listed"
listing >"$folder/after"
grep -xFf "$folder/before" "$folder/after" >"$folder/stayed"
grep -q " $odd_name\$" "$folder/stayed" && grep -xFf "$folder/stayed" "$folder/listed" | diff "$folder/stayed" - ||
    { failed=$((failed + 1)); echo 'the processes are others than those of /proc'; }
checked=$((checked + 1))
# A kernel thread and a process that is none have no executable.
echo False | expect 'exists process 0'
for kernel in $(ps -o pid= --ppid 2 2>/dev/null | head -n 3); do
    echo False | expect "exists process $kernel"
    echo False | expect "exists (ids of processes) whose (it = $kernel)"
done
if has ps; then
    # Processes come and go: those that both see at once are there, and nothing that neither sees.
    for pid in $(ps -o pid= -p $$,$PPID,$sleeper,$odd); do
        [ -r "/proc/$pid/exe" ] && echo "$pid" | expect "process id of process $pid"
    done
fi

# ---- Boot configurations -----------------------------------------------------------------------------------------------

menu="$folder/menu"
cat >"$menu" <<'END'
# A menu.
default 1
fallback 2 0
timeout 15
hiddenmenu
splashimage (hd0,0)/grub/splash.xpm.gz
gfxmenu (fd0)0+5,7
color white/blue yellow/red

title One 2.6.32
root (hd0,0)
kernel /vmlinuz-2.6.32 ro root=/dev/sda1 quiet
initrd (hd0,1)/initrd.img
module /first x y
modulenounzip /second z
savedefault
title Two
rootnoverify (hd1,0)
chainloader (hd1)+1
quiet
title Three
END
of_menu="of grub config file \"$menu\""
# The rests of the lines with a keyword.
rest() { sed -n "s/^$1 *//p" "$menu"; }
# The lines of one image.
image() { awk -v n="$1" '$1 == "title" { at++ } at == n' "$menu"; }
echo "$menu" | expect "path $of_menu"
rest default | expect "default image $of_menu"
rest default | expect "index of default image $of_menu"
rest fallback | tr ' ' '\n' | expect "fallback images $of_menu"
rest fallback | cut -d' ' -f2 | expect "index of fallback image 2 $of_menu"
rest timeout | expect "timeout $of_menu"
truth grep -q ^hiddenmenu "$menu" | expect "hiddenmenu $of_menu"
for word in splashimage gfxmenu; do
    rest $word | expect "$word $of_menu"
    rest $word | sed 's/).*/)/' | expect "device of $word $of_menu"
done
rest splashimage | sed 's/.*)//' | expect "path of splashimage $of_menu"
rest gfxmenu | sed 's/.*)//' | expect "block list of gfxmenu $of_menu"
rest color | cut -d' ' -f1 | expect "normal of color scheme $of_menu"
rest color | cut -d' ' -f2 | expect "highlight of color scheme $of_menu"
rest color | cut -d' ' -f1 | cut -d/ -f1 | expect "foreground of normal of color scheme $of_menu"
rest color | cut -d' ' -f2 | cut -d/ -f2 | expect "background of highlight of color scheme $of_menu"
rest title | expect "bootable images $of_menu"
rest title | expect "titles of bootable images $of_menu"
rest title | sed -n 2p | expect "title of bootable image 2 $of_menu"
echo False | expect "exists bootable image ($(rest title | wc -l) + 1) $of_menu"
for word in initrd root; do
    image 1 | sed -n "s/^$word //p" | expect "$word of bootable image \"One 2.6.32\" $of_menu"
done
for word in rootnoverify chainloader; do
    image 2 | sed -n "s/^$word //p" | expect "$word of bootable image \"Two\" $of_menu"
done
for number in 1 2 3; do
    for word in savedefault quiet; do
        truth grep -qx $word <(image $number) | expect "$word of bootable image $number $of_menu"
    done
done
rest kernel | cut -d' ' -f1 | expect "location of kernel of bootable image 1 $of_menu"
rest kernel | cut -d' ' -f2- | tr ' ' '\n' | expect "boot arguments of kernel of bootable image 1 $of_menu"
rest kernel | cut -d' ' -f3 | expect "boot argument 2 of kernel of bootable image 1 $of_menu"
sed -n 's/^module[a-z]* //p' "$menu" | expect "modules of bootable image 1 $of_menu"
sed -n 's/^module[a-z]* //p' "$menu" | cut -d' ' -f1 | expect "locations of modules of bootable image 1 $of_menu"
sed -n 's/^modulenounzip //p' "$menu" | expect "module 2 of bootable image 1 $of_menu"
sed -n 's/^modulenounzip //p' "$menu" | cut -d' ' -f2 | expect "boot argument of module 2 of bootable image 1 $of_menu"
printf 'False\nTrue\n' | expect "nounzips of modules of bootable image 1 $of_menu"
# This machine's own: none without a file in either place.  Where one is there, it may be one that says nothing to this
# boot loader; which is taken, and which is refused, is asked of made-up machines.
if ls /boot/grub/menu.lst /boot/grub/grub.conf >/dev/null 2>&1; then
    echo "this machine has a boot configuration of its own: it is not compared"
else
    : | expect 'paths of grub config files'
    echo False | expect 'exists grub config file'
fi

# ---- The network -------------------------------------------------------------------------------------------------------

# An address of a point to point connection has the length of its network behind the other end.
ip() { command ip "$@" | sed -E 's|([^ ]+) peer [^ ]+/([0-9]+)|\1/\2|'; }
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
# Of each address on standard input, as "address/length": its network, in full.
networks() {
    perl -MSocket=inet_pton,AF_INET,AF_INET6 -ne 'chomp; my ($address, $length) = split m{/};
        my $six = $address =~ /:/;
        my $bits = unpack("B*", inet_pton($six ? AF_INET6 : AF_INET, $address));
        my $network = pack("B*", substr($bits, 0, $length) . "0" x (length($bits) - $length));
        print $six ? join(":", map { sprintf "%x", $_ } unpack("n8", $network)) : join(".", unpack("C4", $network)), "\n"'
}
# Whether the flag is among those of an adapter.
flag_of() { truth grep -qw "$2" <(ip -o link show "$1" | sed 's/.*<\(.*\)>.*/\1/'); }
if has ip && has perl; then
    adapters=$(ip -o link show | awk -F': ' '{ sub(/@.*/, "", $2); print $2 }')
    for phrase in 'ipv4 interfaces' 'ipv6 interfaces'; do
        family=${phrase:3:1}
        ip -o -$family addr show | awk '{ print $2, $4 }' >"$folder/inets"
        ip -o -$family addr show | awk '{ print $2 }' | expect_sorted "names of adapters of $phrase of network"
        paste -d/ <(awk '{ print $2 }' "$folder/inets" | networks) <(cut -d/ -f2 "$folder/inets") >"$folder/cidr$family"
        expect_sorted "cidr strings of $phrase of network" <"$folder/cidr$family"
        expect_sorted "cidr addresses of $phrase of network" <"$folder/cidr$family"
        expect_sorted "cidr strings of $phrase of any adapters of network" <"$folder/cidr$family"
    done
    cat "$folder/cidr4" "$folder/cidr6" | expect_sorted 'cidr strings of ipv4or6 interfaces of network'
    cat "$folder/cidr4" "$folder/cidr6" | expect_sorted 'cidr strings of ipv4or6 interfaces of any adapters of network'
    cat "$folder/cidr4" "$folder/cidr6" | expect_sorted 'cidr addresses of interfaces of network'
    expect_sorted 'cidr addresses of ip interfaces of network' <"$folder/cidr4"
    cut -d/ -f1 "$folder/cidr4" | expect_sorted 'subnet addresses of ip interfaces of network'
    ip -o -4 addr show | sed -n 's/.* brd \([0-9.]*\) .*/\1/p' | expect_sorted 'broadcast addresses of ip interfaces of network'
    cut -d/ -f2 "$folder/cidr4" | sed 's|^|255.255.255.255/|' | networks | expect_sorted 'subnet masks of ip interfaces of network'
    { echo "$adapters"; ip -o addr show | awk '{ print $2 }'; } | expect_sorted 'names of interfaces of network'
    {
        sed 's/.*/17/' <<<"$adapters"
        sed 's/.*/2/' "$folder/cidr4"
        sed 's/.*/10/' "$folder/cidr6"
    } | expect_sorted '(it as string) of families of interfaces of network'
    ip -o -4 addr show | awk '{ print $2 }' | head -n 1 | expect 'name of ip interface 1 of network'
    # The kernel lists the adapters first, and an interface of one that has been seen is an alias.
    ip -o -4 addr show | sed 's/.*/True/' | expect 'aliases of ip interfaces of network'
    echo False | expect 'alias of interface 1 of network'
    echo False | expect "exists interface ($(ask 'number of interfaces of network') + 1) of network"
    ip -o addr show up | awk '{ print $2 }' | sort -u | expect_sorted 'names of adapters of network'
    for name in $adapters; do
        for pair in up/UP loopback/LOOPBACK 'broadcast support/BROADCAST' 'multicast support/MULTICAST' 'point to point/POINTOPOINT'; do
            flag_of "$name" "${pair#*/}" | expect "${pair%/*} of find adapter \"$name\" of network"
            flag_of "$name" "${pair#*/}" | expect "unique values of ((${pair%/*} of it) of interfaces whose (name of it = \"$name\") of network as string) as boolean"
        done
        ip -o -4 addr show "$name" | awk '{ sub(/\/.*/, "", $4); print $4; exit }' | expect "addresses of find adapters \"$name\" of network"
        ip -o -4 addr show "$name" | awk '{ print $4; exit }' | networks | expect "subnet addresses of find adapters \"$name\" of network"
        ip -o -4 addr show "$name" | sed -n '1s/.* brd \([0-9.]*\) .*/\1/p' | expect "broadcast addresses of find adapters \"$name\" of network"
        ip -o -4 addr show "$name" | awk '{ sub(/.*\//, "255.255.255.255/", $4); print $4; exit }' | networks | expect "subnet masks of find adapters \"$name\" of network"
        mac=$(cat "/sys/class/net/$name/address" | grep -v '^00:00:00:00:00:00$')
        ip -o addr show "$name" | sed "s/.*/$mac/" | grep . | expect "mac addresses of ipv4or6 interfaces of find adapter \"$name\" of network"
        echo "$mac" | grep . | expect "unique values of mac addresses of interfaces whose (name of it = \"$name\") of network"
        echo "$name" | expect "name of find adapter \"$name\" of network"
    done
    echo False | expect 'exists find adapter "no such adapter" of network'
fi
# Four bytes in the order of the machine, which is the other way round.
dotted() { sed 's/\(..\)\(..\)\(..\)\(..\)/0x\4 0x\3 0x\2 0x\1/' | while read -r a b c d; do echo "$((a)).$((b)).$((c)).$((d))"; done; }
column() { awk -v n="$1" 'NR > 1 { print $n }' /proc/net/route; }
column 2 | dotted | expect 'destinations of routes of linux ipv4 routing table'
column 3 | dotted | expect 'gateways of routes of linux ipv4 routing table'
column 8 | dotted | expect 'masks of routes of linux ipv4 routing table'
column 9 | expect 'mtus of routes of linux ipv4 routing table'
column 10 | expect 'windows of routes of linux ipv4 routing table'
column 11 | expect 'irtts of routes of linux ipv4 routing table'
for pair in 'up flags/1' 'gateway flags/2' 'host flags/4' 'reject flags/512'; do
    column 4 | while read -r flags; do [ $((0x$flags & ${pair#*/})) -ne 0 ] && echo True || echo False; done |
        expect "${pair%/*} of routes of linux ipv4 routing table"
done
awk 'NR > 1 { print $1 }' /proc/net/route | expect 'interfaces of routes of linux ipv4 routing table'
awk 'NR > 1 { print $7 }' /proc/net/route | expect 'metrics of routes of linux ipv4 routing table'

if [ "$failed" -ne 0 ]; then
    echo "$failed of $checked questions about this machine differ"
    exit 1
fi
echo "$checked questions about this machine agree with its own tools"
