#include "inspectors/line_iterator.h"

#include "values/byte_search.h"

void line_iterator::Start(Of, const file& f) {
    Close();
    open_ = OpenForLines(f);
    reader_.emplace(*open_);
    window_.emplace(*reader_, Buffer(buffer_, buffer_ + sizeof buffer_));
    number_ = 0;
}

// A line that is passed over costs no memory.
template <class Test>
inline std::optional<file_line> line_iterator::NextThat(const Test& test) {
    while (window_ && window_->Next()) {
        const uint64_t number = number_++;
        if (test(window_->Text())) {
            return std::optional<file_line>(std::in_place, *window_, number, open_);
        }
    }
    Close();
    return std::nullopt;
}

std::optional<file_line> line_iterator::Next(Of, const file&) {
    return NextThat([](std::string_view) { return true; });
}

std::optional<file_line> line_iterator::NextStartingWith(const inspector_string& start, Of, const file&) {
    return NextThat([&](std::string_view line) { return line.starts_with(start.View()); });
}

std::optional<file_line> line_iterator::NextContaining(const inspector_string& part, Of, const file&) {
    return NextThat([&](std::string_view line) { return FindBytes(line, part.View()) != std::string_view::npos; });
}

void line_iterator::Close() {
    window_.reset();
    reader_.reset();
    open_.reset();
}
