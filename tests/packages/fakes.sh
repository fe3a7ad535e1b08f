#!/usr/bin/env bash
# fakes.sh CONSOLE FAKES: the console over apt libraries and package support libraries that are made up.
#
# The console is started from a folder of its own, so that its support library is the one that lies there, and with a
# search path for libraries on which all names of apt's are taken: so the machine's own apt plays no part.  The saved
# run beside this script must come out of it byte for byte; and what goes wrong must be told in full.
set -euo pipefail
shopt -s lastpipe  # a failure found at the end of a pipe is counted like any other
console=$(realpath "$1")
fakes=$(realpath "$2")
here=$(cd "$(dirname "$0")" && pwd)
. "$here/../../scripts/agent.sh"
in_example_agent "$console"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
work=$(realpath "$work")

failed=0
names=(libapt-pkg.so libapt-pkg-libc6.7-6.so.4.6 libapt-pkg-libc6.7-6.so.4.6.0 libapt-pkg.so.4.10 libapt-pkg.so.4.10.1
    libapt-pkg-libc6.10-6.so.4.8 libapt-pkg-libc6.10-6.so.4.8.0 libapt-pkg.so.6.0)

# place APT SUPPORT: a folder with the console, its libraries, and the search path; "-" stands for none.
place() {
    rm -rf "$work/place"
    mkdir -p "$work/place/bin" "$work/place/OSLLib" "$work/place/lib"
    ln "$console" "$work/place/bin/zendry" 2>/dev/null || cp "$console" "$work/place/bin/zendry"
    ln -s "$(dirname "$console")"/libOSLcrypto_*.so "$work/place/bin/"
    local name
    for name in "${names[@]}"; do
        echo "no library" >"$work/place/lib/$name"
    done
    [ "$1" = - ] || cp "$fakes/apt_$1/libapt-pkg.so" "$work/place/lib/libapt-pkg.so"
    [ "$2" = - ] || cp "$fakes/$2/OSLLib/DebianApt_4_10.so" "$work/place/OSLLib/"
}

ask() { LD_LIBRARY_PATH="$work/place/lib" "$work/place/bin/zendry" "$@" </dev/null; }

# expect WHAT QUESTION: the console's one answer must be standard input, as it prints it: a message on one line, and not
# more than it has room for.
expect() {
    local answer
    answer=$(cat)
    [[ $answer != "E: "* ]] || answer=${answer:0:259}
    printf 'Q: %s\n' "$2" >"$work/question"
    printf 'Q: %s\n%s\n\n' "$2" "${answer//$'\n'/%0a}" >"$work/wanted"
    ask "$work/question" >"$work/answers" || echo "the console ended with $?" >>"$work/answers"
    if ! diff --text -u --label "$1" --label answers "$work/wanted" "$work/answers"; then
        failed=$((failed + 1))
    fi
}

# The lines of the report for names at which no library is, from the n-th on.
cannot_open() {
    local name
    for name in "${names[@]:$1:$((7 - $1))}"; do
        echo "   tryAptPkgLibVersion can't open $name"
    done
}
start="E: The expression could not be evaluated: LoadDebianSupportLibraryForOurVersion results:"

place known whole
ask -showtypes "$here/fake-cache.zendry" >"$work/answers"
if ! diff --text -u "$here/fake-cache.zendry" "$work/answers"; then
    failed=$((failed + 1))
fi

place - whole
{
    echo "$start"
    cannot_open 0
    echo "  Couldn't determine library to use."
} | expect "no apt" "exists debianpackage"

place unversioned whole
{
    echo "$start"
    echo "   tryAptPkgLibVersion can't find pkgLibVersion in libapt-pkg.so"
    cannot_open 1
    echo "  Couldn't determine library to use."
} | expect "an apt without a version" "exists debianpackage"

place unknown whole
{
    echo "$start"
    echo "   tryAptPkgLibVersion opened libapt-pkg.so"
    cannot_open 1
    echo "  Couldn't determine library to use."
} | expect "an apt of an unknown version" "exists debianpackage"

place known -
expect "no support library" "exists debianpackage" <<END
$start
   tryAptPkgLibVersion opened libapt-pkg.so
  Loading DebianApt_4_10.so
  Can't load DebianApt_4_10.so
END
expect "no order without a library" 'debian package version "1" < "2"' <<END
E: Singular expression refers to nonexistent object.
END

place known -
cp "$fakes/whole/OSLLib/DebianApt_4_10.so" "$work/place/lib/"
expect "a support library where the dynamic linker looks" "pkglibversion of debianpackage" <<END
A: 4.10.1
END

place known lacking
expect "a missing entry point" "exists debianpackage" <<END
$start
   tryAptPkgLibVersion opened libapt-pkg.so
  Loading $work/place/OSLLib/DebianApt_4_10.so
  Still missing entry points
END

place known -
rmdir "$work/place/OSLLib"
ln -s OSLLib "$work/place/OSLLib"
expect "a place that cannot be looked at" "exists debianpackage" <<END
E: The expression could not be evaluated: File error "12InvalidStats"
END

place known failing
expect "a cache that does not open" "exists debianpackage" <<END
E: The expression could not be evaluated: the cache is broken
END
expect "the order needs no cache" 'debian package version "a" < "b"' <<END
A: True
END

place known failing_oddly
expect "a cache that fails without words" "exists debianpackage" <<END
E: The expression could not be evaluated: debianpackage inspector can't open the package cache
END

# Our own generation takes part only where its support library is: then apt's library is looked for under that name, too.
place - whole
cp "$fakes/apt_known/libapt-pkg.so" "$work/place/lib/libapt-pkg.so.6.0"
not_found() {
    {
        echo "$start"
        cannot_open 0
        echo "  Couldn't determine library to use."
    } | expect "$1" "pkglibversion of debianpackage"
}
not_found "our own generation, not installed"
mkdir "$work/place/OSLLib/DebianApt_6_0.so"
not_found "our own generation, a folder in its place"
rmdir "$work/place/OSLLib/DebianApt_6_0.so"
touch "$work/place/OSLLib/DebianApt_6_0.so"
expect "our own generation, installed" "pkglibversion of debianpackage" <<END
A: 4.10.1
END

[ $failed -eq 0 ] && echo "all hold"
exit $((failed != 0))
