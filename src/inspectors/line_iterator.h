// The iteration over the lines of a file.
#ifndef INSPECTORS_LINE_ITERATOR_H
#define INSPECTORS_LINE_ITERATOR_H

#include <optional>

#include "evaluator/adapters.h"
#include "foundation/file_reader.h"
#include "inspectors/file_line.h"
#include "inspectors/line_window.h"

// Gives all lines, or those that pass a test, each with its number among all.  It holds the file open from its start
// until it has run to the end or goes away.
class line_iterator {
public:
    line_iterator() = default;
    line_iterator(const line_iterator&) = delete;
    line_iterator& operator=(const line_iterator&) = delete;

    void Start(Of, const file& f);
    std::optional<file_line> Next(Of, const file&);

    void StartMatching(const inspector_string&, Of, const file& f) { Start(Of(), f); }
    std::optional<file_line> NextStartingWith(const inspector_string& start, Of, const file&);
    std::optional<file_line> NextContaining(const inspector_string& part, Of, const file&);

private:
    template <class Test>
    std::optional<file_line> NextThat(const Test& test);
    void Close();

    OpenFile open_;
    std::optional<FileReader> reader_;
    std::optional<LineWindow> window_;
    uint64_t number_ = 0;  // of the next line, counted from 0
    unsigned char buffer_[kLineWindow];
};

#endif
