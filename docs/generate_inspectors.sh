#!/bin/sh
# generate_inspectors.sh CONSOLE [FOLDER]: writes the pages of docs/inspectors, or of FOLDER, from what the language says
# of itself: a page for each type, one for what is asked of the world, and the list of all.
#
# The vocabulary is cut into facts, one to a line: page, type, section, sort keys, and what the section's row needs.
# Sorted, they stand in the order of the pages, and the pages are written from front to back.
set -eu
here=$(dirname "$0")
console=${1:?usage: generate_inspectors.sh CONSOLE [FOLDER]}
folder=${2:-$here/inspectors}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

"$here/../scripts/vocabulary.sh" "$console" >"$work/vocabulary"

# What both passes need: the types, how one is shown, and where it is told of.
cat >"$work/common.awk" <<'AWK'
function remember_types(file,    line, field) {
    while ((getline line < file) > 0) {
        split(line, field, "\t")
        if (field[1] == "type") {
            parent[field[2]] = field[3]
            size[field[2]] = field[4]
            known[field[2]] = 1
        }
    }
    close(file)
}
# A type that only counts the values of another has its place on the other's page.
function page_of(type,    base) {
    base = type
    if (sub(/ with multiplicity$/, "", base) && base in known)
        return base
    return type
}
function file_of(type,    name) {
    if (type == "")
        return "world.md"
    name = tolower(type)
    gsub(/[^a-z0-9_]+/, "-", name)
    sub(/^-/, "", name)
    sub(/-$/, "", name)
    return name ".md"
}
function anchor_of(type,    name) {
    name = type
    gsub(/ /, "-", name)
    return name
}
# A tuple's elements are linked one by one.
function link(type,    elements, count, i, text) {
    if (type == "")
        return "[the world](world.md)"
    if (type in known)
        return "[" type "](" file_of(page_of(type)) (page_of(type) == type ? "" : "#" anchor_of(type)) ")"
    if (type ~ /^\( .* \)$/) {
        count = split(substr(type, 3, length(type) - 4), elements, ", ")
        text = "("
        for (i = 1; i <= count; ++i)
            text = text (i == 1 ? " " : ", ") link(elements[i])
        return text " )"
    }
    return type
}
AWK

cat >"$work/facts.awk" <<'AWK'
BEGIN {
    FS = OFS = "\t"
    remember_types(vocabulary)
    for (type in known)
        if (parent[type] != "-" && page_of(type) == type)
            derived[type] = 1
}
function fact(type, section, a, b, c, d, e) {
    if (type in known)
        print page_of(type), type, section, a, b, c, d, e
}
# A phrase as it is written, its index shown by the index's type.
function phrase(name, index_type) { return name (index_type == "-" ? "" : " <" index_type ">") }
function object_of(field) { return field == "-" ? "" : field }

$1 == "type" {
    fact($2, "a type", "", "", "", "", "")
    if ($3 != "-")
        fact($3, "b derived", $2)
}
$1 == "property" {
    fact(object_of($5), "c asked", $2, $3, $6, $7, $4)
    fact($6, "g from property", object_of($5), phrase($2, $4))
    if ($4 != "-")
        fact($4, "k index", object_of($5), phrase($2, $4))
    # What a type can be asked, the types derived from it can be asked too.
    for (type in derived) {
        distance = 0
        for (ancestor = parent[type]; ancestor != "-"; ancestor = parent[ancestor]) {
            ++distance
            if (ancestor == object_of($5))
                fact(type, "d inherited", distance, ancestor, $2)
        }
    }
}
$1 == "cast" {
    fact($3, "e cast", $2, $4)
    fact($4, "h from cast", $3, "as " $2)
}
$1 == "unary" {
    fact($3, "f operator", $2 " <" $3 ">", $4)
    fact($4, "i from operator", $2, "", $3)
}
$1 == "binary" {
    fact($3, "f operator", "<" $3 "> " $2 " <" $4 ">", $5)
    if ($3 != $4)
        fact($4, "f operator", "<" $3 "> " $2 " <" $4 ">", $5)
    fact($5, "i from operator", $2, $3, $4)
}
AWK

cat >"$work/pages.awk" <<'AWK'
BEGIN {
    FS = "\t"
    remember_types(vocabulary)
}
function out(text) { print text > (folder "/" file_of(page)) }
function code(text) { return "`" text "`" }
function heading(text) {
    out("")
    out(level text)
    out("")
}
function table(columns,    rule) {
    rule = columns
    gsub(/[^|]+/, "---", rule)
    out(columns)
    out(rule)
}

# A row is held back until it is known whether the next fact goes into it too.
function flush_row() {
    if (row != "")
        out(row row_end)
    row = row_key = ""
}
function start_row(key, text, end) {
    flush_row()
    row_key = key
    row = text
    row_end = end
}

function begin_page() {
    out("# " (page == "" ? "The world" : page))
    out("")
    out("[All types](README.md)")
}
function begin_type() {
    level = "## "
    if (type != page) {
        out("")
        out("## " type)
        level = "### "
    }
    out("")
    if (type == "")
        out("What is asked with no \"of\" behind it.")
    else if (parent[type] == "-")
        out("Size " size[type] ".")
    else
        out("Size " size[type] ". Derived from " link(parent[type]) ", and passes wherever that does.")
}
function begin_section(name) {
    if (name == "a type" || name == "b derived" || name == "d inherited")
        return
    if (name == "c asked") {
        heading("Asked of it")
        table("| Phrase | Plural | Index | Result |")
    } else if (name == "e cast") {
        heading("Conversions")
        table("| Written | Result |")
    } else if (name == "f operator") {
        heading("Operators")
        table("| Written | Result |")
    } else if (name == "k index") {
        heading("Where it is an index")
        table("| Asked of | Phrases |")
    } else if (!from_told) {
        from_told = 1
        heading("Where it comes from")
        table("| From | Phrases |")
    }
}

$1 != page || NR == 1 {
    flush_row()
    if (NR > 1)
        close(folder "/" file_of(page))
    page = $1
    begin_page()
    type = section = "none yet"
}
$2 != type {
    flush_row()
    type = $2
    section = "none yet"
    from_told = 0
    begin_type()
}
$3 != section {
    flush_row()
    section = $3
    begin_section(section)
}
section == "b derived" {
    if (row_key != "derived") {
        out("")
        start_row("derived", "Derived from it: " link($4), ".")
    } else
        row = row ", " link($4)
}
# One row for all indexes of a phrase that gives the same.
section == "c asked" {
    key = $4 "\t" $5 "\t" $6 "\t" $7
    index_type = $8 == "-" ? "" : link($8)
    if (row_key != key)
        start_row(key, "| " code($4) " | " code($5) " | " index_type, " | " link($6) ($7 == "many" ? ", multivalued" : "") " |")
    else
        row = row (row ~ /\| $/ ? "none, " : ", ") index_type
}
section == "d inherited" {
    if (row_key != $5) {
        flush_row()
        out("")
        start_row($5, "Asked of it as of any " link($5) ": " code($6), ".")
        last = $6
    } else if (last != $6) {
        row = row ", " code($6)
        last = $6
    }
}
section == "e cast" { out("| " code("<" type "> as " $4) " | " link($5) " |") }
section == "f operator" { out("| " code($4) " | " link($5) " |") }
section == "g from property" || section == "h from cast" || section == "k index" {
    if (row == "" || row_key != $4)
        start_row($4, "| " link($4) " | " code($5), " |")
    else
        row = row ", " code($5)
}
section == "i from operator" {
    pair = $5 == "" ? link($6) " alone" : $5 == $6 ? link($5) : link($5) " and " link($6)
    if (row_key != $4)
        start_row($4, "| " code($4) " | on " pair, " |")
    else
        row = row "; " pair
}
END {
    flush_row()
    if (NR > 0)
        close(folder "/" file_of(page))
}
AWK

cat >"$work/index.awk" <<'AWK'
BEGIN {
    FS = "\t"
    remember_types(vocabulary)
    print "# What can be asked"
    print ""
    print "Every type of the language and all that can be asked of it, as the console itself tells it. These pages are"
    print "generated by `docs/generate_inspectors.sh build/bin/zendry`; they are not edited by hand."
    print ""
    print "A page tells the phrases that a type's values can be asked with, the conversions and operators that take them,"
    print "where such a value comes from, and where it stands behind a phrase as its index. `<integer>` in a phrase stands for"
    print "a value of that type. A phrase marked \"multivalued\" walks any number of values, or gathers all of a plural into"
    print "one; every phrase, whether so marked or not, is written in its plural spelling where several answers are wanted."
    print ""
    print "Begin with [the world](world.md): what is asked with no \"of\" behind it."
    print ""
    print "| Type | Derived from | Phrases | Conversions | Operators |"
    print "|---|---|---|---|---|"
}
# The many types of firmware structures stand apart.
function is_apart(name) { return name ~ /^dmi ./ }
function row(name) {
    print "| " link(name) " | " (parent[name] == "-" ? "" : link(parent[name])) " | " phrases[name] + 0 " | " \
        casts[name] + 0 " | " operators[name] + 0 " |"
}
$1 == "type" { names[++types] = $2 }
$1 == "property" { ++phrases[$5 == "-" ? "" : $5] }
$1 == "cast" { ++casts[$3] }
$1 == "unary" { ++operators[$3] }
$1 == "binary" {
    ++operators[$3]
    if ($3 != $4)
        ++operators[$4]
}
END {
    for (i = 1; i <= types; ++i)
        if (page_of(names[i]) == names[i] && !is_apart(names[i]))
            row(names[i])
    print ""
    print "## Structures of the firmware"
    print ""
    print "What [dmi](dmi.md) gives, a type for each kind of structure."
    print ""
    print "| Type | Derived from | Phrases | Conversions | Operators |"
    print "|---|---|---|---|---|"
    for (i = 1; i <= types; ++i)
        if (is_apart(names[i]))
            row(names[i])
}
AWK

mkdir -p "$folder"
rm -f "$folder"/*.md
awk -v vocabulary="$work/vocabulary" -f "$work/common.awk" -f "$work/facts.awk" "$work/vocabulary" |
    LC_ALL=C sort | uniq >"$work/facts"
awk -v vocabulary="$work/vocabulary" -v folder="$folder" -f "$work/common.awk" -f "$work/pages.awk" "$work/facts"
awk -v vocabulary="$work/vocabulary" -f "$work/common.awk" -f "$work/index.awk" "$work/vocabulary" >"$folder/README.md"
