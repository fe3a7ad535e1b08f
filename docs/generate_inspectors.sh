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
    fact($6, "g from", object_of($5), 1, phrase($2, $4))
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
    fact($4, "g from", $3, 2, "as " $2)
}
# The operators that a type stands on the left of come before those that it only stands on the right of.
$1 == "unary" {
    fact($3, "f operator", 1, $2 " <" $3 ">", $4)
    fact($4, "i from operator", $2, "", $3)
}
$1 == "binary" {
    fact($3, "f operator", 1, "<" $3 "> " $2 " <" $4 ">", $5)
    if ($3 != $4)
        fact($4, "f operator", 2, "<" $3 "> " $2 " <" $4 ">", $5)
    fact($5, "i from operator", $2, $3, $4)
}
AWK

cat >"$work/pages.awk" <<'AWK'
BEGIN {
    FS = "\t"
    remember_types(vocabulary)
    # So many phrases or conversions that only their words tell apart are told in one list instead of a row for each.
    FAMILY = 20
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
# The rows of a section are held back until all are there: the families among them go below the table.
function keep(words, columns, family, sentence) {
    ++kept
    kept_words[kept] = words
    kept_row[kept] = columns
    kept_family[kept] = family
    ++members[family]
    sentence_of[family] = sentence
}
function write_kept(columns,    i, begun, family, list, order, count) {
    for (i = 1; i <= kept; ++i) {
        family = kept_family[i]
        if (members[family] <= FAMILY) {
            if (!begun++)
                table(columns)
            out(kept_row[i])
        } else if (family in list)
            list[family] = list[family] ", " kept_words[i]
        else {
            list[family] = kept_words[i]
            order[++count] = family
        }
    }
    for (i = 1; i <= count; ++i) {
        if (begun || i > 1)
            out("")
        out(sentence_of[order[i]] ": " list[order[i]] ".")
    }
    kept = 0
    delete members
}
# What is known only behind a section's last fact.
function end_section() {
    flush_row()
    if (section == "c asked") {
        keep_phrase()
        write_kept("| Phrase | Plural | Index | Result |")
    } else if (section == "e cast")
        write_kept("| Written | Result |")
    else if (section == "i from operator")
        write_operands()
}
function keep_phrase(    result) {
    if (phrase_key == "")
        return
    result = link(phrase_result) (phrase_many == "many" ? ", multivalued" : "")
    keep(code(phrase_name) " (" code(phrase_plural) ")",
        "| " code(phrase_name) " | " code(phrase_plural) " | " phrase_indexes " | " result " |",
        phrase_indexes "\t" result,
        "Each of these gives " result (phrase_indexes == "" ? "" : ", with one of these as its index: " phrase_indexes))
    phrase_key = ""
}
# An operator that very many types have is told on their pages.
function write_operands() {
    if (operator == "")
        return
    out("| " code(operator) " | " (pairs > FAMILY ? pairs " pairs of types, told on their pages" : operands) " |")
    operator = ""
}
function end_type() {
    if (!asked)
        nothing_asked()
}
function nothing_asked() {
    asked = 1
    out("")
    out("Nothing is asked of it.")
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
    asked = 0
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
    if (name == "a type" || name == "b derived")
        return
    if (name == "c asked" || name == "d inherited")
        asked = 1
    if (!asked)
        nothing_asked()
    if (name == "d inherited")
        return
    if (name == "c asked")
        heading("Asked of it")
    else if (name == "e cast")
        heading("Conversions")
    else if (name == "f operator") {
        heading("Operators")
        table("| Written | Result |")
    } else if (name == "k index") {
        heading("Where it is an index")
        table("| Asked of | Phrases |")
    } else if (name == "g from") {
        heading("Where it comes from")
        table("| From | Phrases |")
    } else {
        heading("Operators that give it")
        table("| Operator | Operands |")
    }
}

$1 != page || NR == 1 {
    if (NR > 1) {
        end_section()
        end_type()
    }
    if (NR > 1)
        close(folder "/" file_of(page))
    page = $1
    begin_page()
    type = section = "none yet"
}
$2 != type {
    if (type != "none yet") {
        end_section()
        end_type()
    }
    type = $2
    section = "none yet"
    begin_type()
}
$3 != section {
    end_section()
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
    if (phrase_key != key) {
        keep_phrase()
        phrase_key = key
        phrase_name = $4
        phrase_plural = $5
        phrase_result = $6
        phrase_many = $7
        phrase_indexes = index_type
    } else
        phrase_indexes = (phrase_indexes == "" ? "none" : phrase_indexes) ", " index_type
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
section == "e cast" {
    keep(code("as " $4), "| " code("<" type "> as " $4) " | " link($5) " |", $5, "Each of these gives " link($5))
}
section == "f operator" { out("| " code($5) " | " link($6) " |") }
section == "g from" || section == "k index" {
    words = code(section == "g from" ? $6 : $5)
    if (row == "" || row_key != $4)
        start_row($4, "| " link($4) " | " words, " |")
    else
        row = row ", " words
}
section == "i from operator" {
    pair = $5 == "" ? link($6) " alone" : $5 == $6 ? link($5) " twice" : link($5) " and " link($6)
    if (operator != $4) {
        write_operands()
        operator = $4
        operands = pair
        pairs = 1
    } else {
        operands = operands "; " pair
        ++pairs
    }
}
END {
    end_section()
    end_type()
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
    print "The size of a type is what `size of type` answers. The counts below are of a type's own: what it shares with the type"
    print "that it is derived from is told on its page."
    print ""
    print "The pages tell the operators that are registered. The other comparisons are made of these: `!=` of `=`, `>` and `>=`"
    print "of `<` and `<=` with the operands exchanged, `is contained by` of `contains`, and each has its spelling in words."
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
