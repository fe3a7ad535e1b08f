#!/usr/bin/env bash
# machine.sh CONSOLE: what the console says of this machine's packages, against dpkg-query, apt-cache and dpkg.
#
# Ends with 77, skipped, where there are no such tools or no package support library for the machine's apt.
set -euo pipefail
console=$(realpath "$1")
. "$(cd "$(dirname "$0")" && pwd)/../../scripts/agent.sh"
in_example_agent "$console"
export LC_ALL=C

for tool in dpkg-query apt-cache dpkg; do
    command -v $tool >/dev/null || { echo "skipped: there is no $tool"; exit 77; }
done
support=$(dirname "$console")/../OSLLib/DebianApt_6_0.so
if [ ! -f "$support" ]; then
    echo "skipped: the package support library was not built"
    exit 77
fi

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failed=0

# A cache that is kept from question to question: some images switch apt's own off.
mkdir -p "$work/apt/parts"
printf 'Dir::Etc::parts "%s";\nDir::Cache "%s";\n' "$work/apt/parts" "$work/apt" >"$work/apt/apt.conf"
export APT_CONFIG=$work/apt/apt.conf

# asked QUESTION: the answers.
asked() {
    printf 'Q: %s\n' "$1" >"$work/question"
    "$console" "$work/question" </dev/null | sed -n 's/^A: //p; s/^E: /E: /p'
}

# same WHAT: the files "ours" and "theirs" must be the same, and not empty.
same() {
    if [ ! -s "$work/theirs" ]; then
        echo "$1: the other tools say nothing"
        failed=$((failed + 1))
    elif ! diff -u "$work/theirs" "$work/ours" >"$work/difference"; then
        echo "$1: differ (- is theirs, + is ours)"
        head -20 "$work/difference"
        failed=$((failed + 1))
    else
        echo "$1: $(wc -l <"$work/theirs") agree"
    fi
}

# apt's library is named for the version that it tells.
asked 'pkglibversion of debianpackage' >"$work/ours"
library=$(realpath "$(ldd "$support" | sed -n 's/^.*libapt-pkg\.so\.6\.0 => \([^ ]*\) .*/\1/p')")
echo "${library##*/libapt-pkg.so.}" >"$work/theirs"
same "the library's version"

# The whole cache, as apt-cache tells it: its packages, a line for each version, and what each file is.  It writes an
# architecture behind the names of other architectures' packages, where it cannot be told from a part of the name.
apt-cache dump >"$work/dump"
without_architectures() { sed -E 's/^([^:|]*):[^|]*/\1/'; }

asked 'names of base packages of debianpackage' | without_architectures | sort >"$work/ours"
sed -n 's/^Package: //p' "$work/dump" | without_architectures | sort >"$work/theirs"
same "base packages"

awk '/^Package: / { p = $2; sub(/:.*/, "", p) } /^File: / { exit }
    /^ Version: / { print p "|" $2 }' "$work/dump" | sort >"$work/theirs"
asked '(name of base package of it & "|" & it as string) of pkg versions of base packages of debianpackage' |
    without_architectures | sort >"$work/ours"
same "versions of base packages"
asked '(name of it & "|" & version of it as string) of packages of debianpackage' | without_architectures |
    sort >"$work/ours"
same "versions of packages"
cp "$work/theirs" "$work/all_versions"

installed='packages whose (currently installed of it) of debianpackage'

asked "(name of it & \"|\" & version of it as string & \"|\" & architecture of it) of $installed" | sort >"$work/ours"
dpkg-query -W -f '${db:Status-Status} ${Package}|${Version}|${Architecture}\n' |
    sed -n '/^\(not-installed\|config-files\) /!s/^[^ ]* //p' | sort >"$work/theirs"
same "installed packages"
asked '(name of base package of it & "|" & it as string & "|" & architecture of it) of installed versions of base packages whose (currently installed of it) of debianpackage' |
    sort >"$work/ours"
same "installed versions of base packages"

asked 'names of base packages whose (currently installed of it) of debianpackage' | sort >"$work/ours"
dpkg-query -W -f '${db:Status-Status} ${Package}\n' | sed -n '/^\(not-installed\|config-files\) /!s/^[^ ]* //p' |
    sort >"$work/theirs"
same "base packages that are installed"

# By name: the two forms give the same packages as the walks over all do, and no others.
grep -E '^(dpkg|bash|libc6)\|' "$work/all_versions" >"$work/theirs"
asked '(name of it & "|" & version of it as string) of packages ("dpkg"; "bash"; "libc6"; "no such package") of debianpackage' |
    sort >"$work/ours"
same "packages by name"
asked '(name of base package of it & "|" & it as string) of pkg versions of base packages ("dpkg"; "bash"; "libc6"; "no such package") of debianpackage' |
    sort >"$work/ours"
same "base packages by name"

# The files of each version, and by these its release: where it is to be had, one after the other, and the architecture.
dpkg-query -W -f '${db:Status-Status} ${Package}\n' | sed -n '/^\(not-installed\|config-files\) /!s/^[^ ]* //p' |
    sort -u | xargs apt-cache showpkg |
    awk '/^Package: / { p = $2 } /^Versions:/ { on = 1; next } /^Reverse Depends:/ { on = 0 }
        on && /^[^ ].* \(/ { for (i = 2; i <= NF; ++i) print p "|" $1 "|" substr($i, 2, length($i) - 2) }' >"$work/files"
sort "$work/files" >"$work/theirs"
asked '(name of item 0 of it & "|" & version of item 0 of it as string & "|" & item 1 of it as string) of (it, verfiles of it) of packages of debianpackage' |
    awk -F '|' 'NR == FNR { known[$1]; next } $1 in known' "$work/files" - | sort >"$work/ours"
same "files of versions"

apt-cache dumpavail | awk '/^Package: / { p = $2 } /^Version: / { v = $2 } /^Section: / { s = $2 }
    /^Architecture: / { a = $2 } /^$/ { print p "|" v "|" a "|" s; a = s = "" }' >"$work/available"
sort -u "$work/available" >"$work/theirs"
for versions in 'name of it & "|" & version of it as string' 'name of base package of it & "|" & it as string'; do
    [[ $versions == *base* ]] && of='pkg versions of base packages' || of=packages
    asked "($versions & \"|\" & architecture of it & \"|\" & (section of it | \"\")) of $of of debianpackage" | sort -u |
        comm -12 - "$work/theirs" >"$work/ours"
    same "architectures and sections of available $of"
done

# What the package's own status file tells of is no place where the version is to be had; and no release is told twice.
awk -F '|' '
    FILENAME ~ /dump$/ {
        if (/^File: /) f = substr($0, 7)
        else if (/^ Type: Debian dpkg status file/) own[f] = 1
        else if (/^ (Archive|Version|Label): /) { field = $1; sub(/^ /, "", field); n = index(field, ": ")
            value[f, substr(field, 1, n - 1)] = substr(field, n + 2) }
        next
    }
    FILENAME ~ /available$/ { architecture[$1 "|" $2] = $3; next }
    { version = $1 "|" $2; if (!(version in release)) { order[++count] = version; release[version] = "" } }
    !($3 in own) {
        label = value[$3, "Label"]; number = value[$3, "Version"]
        if (label != "(null)" && seen[version, label, number]++) next
        release[version] = release[version] (release[version] == "" ? "" : ", ") \
            (label == "(null)" ? "" : label ":") (number == "(null)" ? "" : number "/") value[$3, "Archive"]
    }
    END {
        for (i = 1; i <= count; ++i)
            if (order[i] in architecture)
                print order[i] "|" release[order[i]] " [" architecture[order[i]] "]"
    }' "$work/dump" "$work/available" "$work/files" | sort >"$work/theirs"
asked '(name of it & "|" & version of it as string & "|" & release of it) of packages of debianpackage' |
    awk -F '|' 'NR == FNR { known[$1 "|" $2]; next } ($1 "|" $2) in known' "$work/theirs" - | sort >"$work/ours"
same "releases of versions"

# The section is the archive's where the archive has the same version, else the package's own.
asked "(name of it & \"|\" & version of it as string & \"|\" & (section of it | \"\")) of $installed" | sort >"$work/ours"
{
    dpkg-query -W -f '${Package}|${Version}|${Section}\n'
    apt-cache dumpavail | awk '/^Package: / { p = $2 } /^Version: / { v = $2 } /^Section: / { s = $2 }
        /^$/ { print p "|" v "|" s; s = "" }'
} | sort -u >"$work/sections"
comm -12 "$work/ours" "$work/sections" >"$work/theirs"
same "sections of installed packages"

asked 'names of packages of debianpackage' | sort -u >"$work/ours"
apt-cache pkgnames | sort -u >"$work/theirs"
same "names of packages"

# Dependencies, each alternative by itself.
fields=(PreDepends Depends Recommends Suggests Enhances Breaks Conflicts Replaces)
asked "(name of item 0 of it, type of item 1 of it & \"|\" & item 1 of it as string & \"|\" & compare_op of item 1 of it & \"|\" & (version of item 1 of it as string | \"\") & \"|\" & critical of item 1 of it as string) of (it, dependencies of it) of $installed" |
    sed 's/, /|/' | sort -u >"$work/ours"
dpkg-query -W -f '${db:Status-Status} ${Package}\t${Pre-Depends}\t${Depends}\t${Recommends}\t${Suggests}\t${Enhances}\t${Breaks}\t${Conflicts}\t${Replaces}\n' |
    sed -n '/^\(not-installed\|config-files\) /!s/^[^ ]* //p' |
    awk -F '\t' -v fields="${fields[*]}" 'BEGIN { split(fields, type, " ") } {
        for (f = 2; f <= NF; ++f) {
            n = split($f, one, / *[,|] */)
            for (i = 1; i <= n; ++i) {
                if (one[i] == "") continue
                op = ""; version = ""; target = one[i]
                if (match(one[i], /\(.*\)/)) {
                    inner = substr(one[i], RSTART + 1, RLENGTH - 2)
                    target = substr(one[i], 1, RSTART - 1)
                    match(inner, /^[<>=]+/)
                    op = substr(inner, 1, RLENGTH)
                    version = substr(inner, RLENGTH + 1)
                    if (op == "<") op = "<="
                    if (op == ">") op = ">="
                }
                gsub(/ /, "", target); gsub(/ /, "", version)
                t = type[f - 1]
                critical = (t == "PreDepends" || t == "Depends" || t == "Breaks" || t == "Conflicts") ? "True" : "False"
                print $1 "|" t "|" target "|" op "|" version "|" critical
            }
        }
    }' | sort -u >"$work/theirs"
same "dependencies of installed packages"

: >"$work/ours"
: >"$work/theirs"
for name in dpkg bash libc6 perl-base coreutils; do
    asked "unique values of (it as string) of reverse dependencies of packages \"$name\" of debianpackage" |
        sed "s/^/$name /" | sort -u >>"$work/ours"
    apt-cache rdepends "$name" | sed '1,2d; s/^[ |]*//' | sed "s/^/$name /" | sort -u >>"$work/theirs"
done
same "reverse dependencies"

# Each with the version of the package that depends.
for name in dpkg bash libc6 perl-base coreutils; do
    asked "(\"$name|\" & it as string & \"|\" & version of it) of reverse dependencies of packages \"$name\" of debianpackage"
done | sort -u >"$work/ours"
awk '/^Package: / { p = $2; sub(/:.*/, "", p) } /^ Version: / { v = $2 } /^  Depends: / { print $2 "|" p "|" v }' "$work/dump" |
    grep -E '^(dpkg|bash|libc6|perl-base|coreutils)\|' | sort -u >"$work/theirs"
same "versions of reverse dependencies"

# Versions: the parts of every installed one, and a thousand comparisons in random pairs.
dpkg-query -W -f '${Version}\n' | sed '/^$/d' | sort -u >"$work/versions"
sed 's/.*/Q: (epoch of it as string \& "|" \& upstream of it as string \& "|" \& (revision of it as string | "none")) of debian package version "&"/' \
    "$work/versions" >"$work/question"
"$console" "$work/question" </dev/null | sed -n 's/^A: //p' >"$work/ours"
sed -E 's/^([^:]*)$/0:\1/' "$work/versions" |
    sed -E 's/^([^:]*):(.*)-([^-]*)$/\1|\2|\3/; t; s/^([^:]*):(.*)$/\1|\2|none/' >"$work/theirs"
same "parts of versions"

printf '%s\n' 1.0 1.0-0 1.0-1 1.0~rc1 1.0~rc1-1 1.0+b1 1:0.1 0:1.0 2:1.0~ 1.0~~ 1.0a 1.0.1 1.10 1.9 1.09 09 9 >>"$work/versions"
awk -v seed="${SEED:-20}" 'BEGIN { srand(seed) } { v[NR] = $0 } END {
    for (i = 0; i < 1000; ++i) print v[int(rand() * NR) + 1], v[int(rand() * NR) + 1]
}' "$work/versions" >"$work/pairs"
sed -E 's/^(.*) (.*)$/Q: (it < "\2") as string \& " " \& (it = debian package version "\2") as string \& " " \& ("\1" <= debian package version "\2") as string of it of debian package version "\1"/' \
    "$work/pairs" | sed -E 's/^Q: (.*) of it of (.*)$/Q: (\1) of \2/' >"$work/question"
"$console" "$work/question" </dev/null | sed -n 's/^A: //p' >"$work/ours"
while read -r a b; do
    relations=""
    for relation in lt eq le; do
        dpkg --compare-versions "$a" $relation "$b" && relations="$relations True" || relations="$relations False"
    done
    echo "${relations# }"
done <"$work/pairs" >"$work/theirs"
same "comparisons of versions"

# Parts compare like versions that are nothing else, and the epochs like numbers.
for part in upstream revision; do
    sed -E 's/^([^:]*:)?//' "$work/versions" | { [ $part = upstream ] && sed -E 's/-[^-]*$//' || sed -nE 's/.*-([^-]*)$/\1/p'; } |
        sed '/-/d' | sort -u | awk -v seed="${SEED:-20}" 'BEGIN { srand(seed) } { v[NR] = $0 } END {
            for (i = 0; i < 200; ++i) print v[int(rand() * NR) + 1], v[int(rand() * NR) + 1] }' >"$work/pairs"
    sed -E "s/^(.*) (.*)\$/Q: (debian package version $part \"\\1\" < \"\\2\") as string/" "$work/pairs" >"$work/question"
    "$console" "$work/question" </dev/null | sed -n 's/^A: //p' >"$work/ours"
    while read -r a b; do
        dpkg --compare-versions "0-$a" lt "0-$b" && echo True || echo False
    done <"$work/pairs" >"$work/theirs"
    same "comparisons of $part"
done
printf '%s\n' True False False True >"$work/theirs"
asked '(debian package version epoch "9" < "10"; debian package version epoch "10" < "9"; debian package version epoch "1" < "1"; debian package version epoch "01" = "1")' >"$work/ours"
same "comparisons of epochs"

[ $failed -eq 0 ] || exit 1
