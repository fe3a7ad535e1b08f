# Prints the blocks of a page whose fence names `name` behind the language, in order: "```cpp host.cc".  Those of a C++
# source say which lines of the page they are, so that what a compiler has to say is said of the page.
/^```/ {
    if (inside) {
        inside = 0
    } else if ($2 == name) {
        inside = 1
        if (name ~ /\.cc$/) {
            printf "#line %d \"docs/embedding.md\"\n", NR + 1
        }
    }
    next
}
inside
