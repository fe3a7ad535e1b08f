#!/usr/bin/env bash
# Looks whether every phrase of the machine's inspectors is asked for beside this script: a phrase that nothing compares
# with the machine's own tools, or asks of a machine that is made up, would not be missed.
#
#   named.sh <vocabulary.tsv>
#
# Prints the phrases that neither compare.sh nor a run of crafted/ names in either number; exits with 1 when there are
# any.
set -u
here=$(dirname "$(realpath "$0")")
[ $# -eq 1 ] && [ -r "$1" ] || { echo "usage: named.sh <vocabulary.tsv>" >&2; exit 2; }

# The types whose phrases are meant, and the phrases of the world that give others than these.
types='operating system|language|network|network interface|network adapter|network adapter interface'
types+='|linux ipv4 routing table|linux ipv4 route|process|environment|environment variable|processor|cpupackage'
types+='|ram|swap|power level|runlevel|user|logged on user|file line|file section|file content'
types+='|grub device|grub block list|grub file location|grub kernel|grub module|grub bootable image|grub image choice'
types+='|grub color|grub color pair|grub color scheme|grub config file'
of_files='line|line starting with|line containing|key|section|sha1|content|byte'
others='hostname|computer name|domainname|host name|domain name|dns name|system language|pending login'

total=0
missing=0
while IFS=$'\t' read -r singular plural index object; do
    total=$((total + 1))
    grep -qwF -e "$singular" -e "$plural" "$here"/compare.sh "$here"/crafted/*.zendry && continue
    missing=$((missing + 1))
    echo "not asked for: $singular $index of $object"
done < <(awk -F'\t' -v OFS='\t' -v types="^($types)$" -v others="^($others)$" \
    -v files="^($of_files)$" '
    $1 == "property" && ($5 ~ types || $5 == "file" && $2 ~ files || $5 == "-" && ($6 ~ types || $2 ~ others)) { print $2, $3, $4, $5 }' "$1")

[ $total -gt 0 ] && [ $missing -eq 0 ] || exit 1
echo "all $total phrases of the machine are asked for"
