#!/usr/bin/env bash
# Asks the console about machines that are made up: others' processors, memory, processes, records of users and boot
# configurations in the places where a real machine has them.
#
#   crafted.sh <console>
#
# Each crafted/<machine>.zendry is a run of the machine that the function of its name makes here, and must come out of
# the console byte for byte as it went in.  The console sees the machine in a mount name space of its own, so that
# nothing of this machine is touched.  Prints the difference of each run that fails and a count; exits with 1 when any
# does, and with 77, skipped, where no such name space can be had.
set -u
export LC_ALL=C TZ=UTC

if [ $# -ne 1 ] || [ ! -x "$1" ]; then
    echo "usage: crafted.sh <console>" >&2
    exit 2
fi
console=$(realpath "$1")
here=$(dirname "$(realpath "$0")")
. "$here/../../scripts/agent.sh"
in_example_agent "$console"

for tool in unshare mount setpriv chroot perl; do
    command -v $tool >/dev/null || { echo "skipped: there is no $tool"; exit 77; }
done
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir "$work/root"
unshare --user --map-root-user --mount mount -t tmpfs none "$work/root" 2>"$work/why" ||
    { echo "skipped: $(cat "$work/why")"; exit 77; }

# ---- What machines are made of -----------------------------------------------------------------------------------------

# Text on standard input becomes a file of the machine that is being made.
put() {
    mkdir -p "$(dirname "$machine/$1")"
    cat >"$machine/$1"
}

# utmp_record TYPE PID LINE USER HOST SECONDS: one record of the file of who is logged on.
utmp_record() {
    perl -e 'my ($type, $pid, $line, $user, $host, $seconds) = @ARGV;
        print pack("s x2 l a32 a4 a32 a256 s s l l l a16 a20",
                   $type, $pid, $line, "", $user, $host, 0, 0, 0, $seconds, 0, "", "");' -- "$@"
}

# process PID EXECUTABLE: one without an executable for an empty text.
process() {
    mkdir -p "$machine/proc/$1"
    [ -z "$2" ] || ln -s "$2" "$machine/proc/$1/exe"
}

# ---- The machines ------------------------------------------------------------------------------------------------------

# Eight processors of the first Pentiums III, each with one of the eight facts that are true or false; an old kernel's
# memory; mains power; somebody at the display; processes of every kind; the file of a distribution before that of
# another; a second boot configuration behind a bad one.
old() {
    local flags=(fdiv_bug hlt_bug sep_bug f00f_bug coma_bug fpu fpu_exception wp) n flag
    for n in 0 1 2 3 4 5 6 7; do
        printf 'processor\t: %d\nvendor_id\t: GenuineIntel\ncpu family\t: 6\nmodel\t\t: %d\n' $n $((n + 3))
        printf 'model name\t: Pentium III (Coppermine)\nstepping\t: %d\ncpu MHz\t\t: 1002.2754996\n' $((n + 20))
        for flag in "${flags[@]}"; do
            printf '%s\t: %s\n' "$flag" "$([ "$flag" = "${flags[n]}" ] && echo yes || echo no)"
        done
        printf 'cpuid level\t: %d\nflags\t\t:  \t fpu vme de\nbogomips\t: 1998.5\n\n' $((n + 40))
    done | put proc/cpuinfo
    put proc/meminfo <<'END'
        total:    used:    free:  shared: buffers:  cached:
Mem:  527630336 515846144 11784192 1024 130527232 190246912
Swap: 1077501952 7 1077460992
MemTotal:       515265 kB
END
    printf 'name:  ACAD\nstate:                   on-line \n' | put proc/acpi/ac_adapter/ACAD/state

    process 17 /usr/bin/first
    printf 'first\0\0--in=a b\0last' | put proc/17/cmdline
    printf 'FOO=a=b\0BARE\0=odd\0FOO=second\0' | put proc/17/environ
    process 18 '/usr/bin/second (deleted)'
    process 19 /third
    process 20 ''
    # Files that cannot be read, and files that are somebody else's.
    process 22 /usr/bin/unreadable
    mkdir "$machine/proc/22/cmdline" "$machine/proc/22/environ"
    process 23 /usr/bin/secret
    echo secret | put proc/23/cmdline
    echo SECRET=1 | put proc/23/environ
    chmod 0 "$machine/proc/23/cmdline" "$machine/proc/23/environ"
    process 0 /usr/bin/zero
    process keys /usr/bin/keys
    process 21x /usr/bin/first

    # Records of every type; only those of the type of a user's process are users.
    {
        utmp_record 0 1 e empty '' 10
        utmp_record 1 $((78 * 256 + 53)) '~' runlevel 2.4.20 1000000001
        utmp_record 2 0 '~' reboot 2.4.20 1000000000
        utmp_record 3 1 n newtime '' 30
        utmp_record 4 1 o oldtime '' 40
        utmp_record 5 1 i init '' 50
        utmp_record 6 1 tty3 LOGIN '' 60
        utmp_record 7 301 :0 anna '' 70
        utmp_record 8 302 pts/7 gone '' 80
        utmp_record 7 303 pts/0 bert far.example 90
        utmp_record 9 1 a account '' 95
        utmp_record 7 304 tty2 bert '' 99
        utmp_record 7 305 "$(printf 'l%.0s' {1..32})" "$(printf 'n%.0s' {1..32})" "$(printf 'h%.0s' {1..256})" 99
    } | put run/utmp
    : | put tmp/.X11-unix/X0

    echo 'Red Hat Linux release 9 (Shrike)' | put etc/redhat-release
    echo '4.0' | put etc/debian_version
    echo 'Linux version 2.4.20-8 (bhcompile@x) (gcc version 3.2.2 (Red Hat Linux 3.2.2-5)) #1' | put proc/version
    printf 'default 1\ntitle x\nkernel nonsense\n' | put boot/grub/menu.lst
    printf 'default 2\n' | put boot/grub/grub.conf
}

# Two packages of two cores with two threads each; a new kernel's memory; nobody's records; a boot configuration.
new() {
    local n
    for n in 0 1 2 3 4 5 6 7; do
        printf 'processor\t: %d\nvendor_id\t: GenuineIntel\ncpu family\t: 6\nmodel\t\t: 15\n' $n
        printf 'model name\t: Intel(R) Xeon(R) CPU           E5320  @ 1.86GHz\nstepping\t: 7\ncpu MHz\t\t: 1861.912\n'
        printf 'physical id\t: %d\nsiblings\t: 4\ncore id\t\t: %d\ncpu cores\t: 2\n' $((n / 4)) $((n % 2))
        # The list ends with the piece that its line begins with; what is left is looked at like a line of its own.
        printf 'fpu\t\t: yes\nfpu_exception\t: yes\ncpuid level\t: 10\nwp\t\t: no\n'
        printf 'flags\t\t: fpu ht %swp yes\nbogomips\t: 3723.49\n\n' "$(printf 'x%.0s' {1..239})"
    done | put proc/cpuinfo
    put proc/meminfo <<'END'
MemTotal:         500001 kB
MemFree:           20003 kB
MemAvailable:     300000 kB
Buffers:            4005 kB
Cached:            70007 kB
SwapCached:            9 kB
SwapTotal:         90011 kB
SwapFree:          80013 kB
Shmem:                 1 kB
Cached:                1 kB
END
    echo 'Linux version 2.6.26-2-686 (Debian 2.6.26-19) (dannf@debian.org) (gcc version 4.1.3) #1 SMP' | put proc/version
    echo '5.0.3' | put etc/debian_version
    put boot/grub/menu.lst <<'END'
# The menu.
default saved
fallback 1, 2 0
timeout 5
hiddenmenu
splashimage=(hd0,0)/grub/unknown.xpm.gz
splashimage (hd0,0)/grub/splash.xpm.gz
gfxmenu (fd0)0+5,7
color white/blue blink-yellow/light-gray

title First (2.6.32)
	root (hd0,0)
	kernel /vmlinuz-2.6.32 ro  root=/dev/sda1
	initrd /initrd.img
	quiet
	module /plain x
	modulenounzip /m a b
title Other
	rootnoverify (hd1,0,a)
	chainloader +1
	savedefault
	timeout nonsense
END
    printf 'default 3\n' | put boot/grub/grub.conf
}

# A processor that tells none of the others' facts, and a kernel that tells nothing of memory.
bare() {
    put proc/cpuinfo <<'END'
Hardware	: A board
processor	: 0
Features	: fp asimd
CPU implementer	: 0x41

processor	: 1
Features	: fp asimd
END
    : | put proc/meminfo
    : | put proc/acpi/ac_adapter/ACAD/state
    # Without a socket of the display nobody is at the console.
    utmp_record 7 301 :0 anna '' 70 | put run/utmp
}

# A kernel without the files.
none() { mkdir -p "$machine/proc"; }

# ---- The runs ----------------------------------------------------------------------------------------------------------

# The machine's files in the place of this one's; the console's own entry of /proc is the real one.  Stands in the name
# space, as a shell that the console takes the place of.
cat >"$work/enter" <<'END'
set -e
machine=$1 root=$2 console=$3 run=$4
mount --rbind / "$root"
for folder in boot etc mnt run tmp; do
    mount -t tmpfs none "$root/$folder"
done
mkdir "$root/mnt/real"
mount --rbind /proc "$root/mnt/real"
mount -t tmpfs none "$root/proc"
mkdir "$root/proc/$$"
mount --bind "$root/mnt/real/$$" "$root/proc/$$"
ln -s $$ "$root/proc/self"
# What the system's own libraries want of the folder.
for file in group hosts ld.so.cache nsswitch.conf passwd; do
    [ ! -e "/etc/$file" ] || cp "/etc/$file" "$root/etc/"
done
for folder in boot etc proc run tmp; do
    [ ! -d "$machine/$folder" ] || cp -R --preserve=mode "$machine/$folder/." "$root/$folder/"
done
for folder in "$(dirname "$(dirname "$console")")" "$(dirname "$run")"; do
    mkdir -p "$root$folder"
    mount --rbind "$folder" "$root$folder"
done
# Without the right to read what others keep to themselves.
exec setpriv --bounding-set -dac_override,-dac_read_search chroot "$root" "$console" "$run"
END

total=0
failed=0
for run in "$here"/crafted/*.zendry; do
    name=$(basename "$run" .zendry)
    machine=$work/$name
    mkdir "$machine"
    "$name"
    total=$((total + 1))
    unshare --user --map-root-user --mount sh "$work/enter" "$machine" "$work/root" "$console" "$run" \
        >"$work/answers" 2>"$work/errors" </dev/null
    status=$?
    [ $status -eq 0 ] || { echo "$name: ended with $status"; cat "$work/errors"; }
    if ! diff --text -u --label "$name.zendry" --label answers "$run" "$work/answers" || [ $status -ne 0 ]; then
        failed=$((failed + 1))
    fi
done

echo "$((total - failed)) of $total made-up machines answer as they must"
[ $total -gt 0 ] && [ $failed -eq 0 ]
