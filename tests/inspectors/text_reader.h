// A text that is read in pieces of a size of the test's choice, the first of which may be of another.
#ifndef TESTS_INSPECTORS_TEXT_READER_H
#define TESTS_INSPECTORS_TEXT_READER_H

#include <algorithm>
#include <cstring>
#include <string_view>

#include "foundation/data_reader.h"

class TextReader final : public DataReader {
public:
    explicit TextReader(std::string_view text, size_t piece = SIZE_MAX) : TextReader(text, piece, piece) {}
    TextReader(std::string_view text, size_t first, size_t piece) : rest_(text), next_(first), piece_(piece) {}

    bool AtEnd() override { return rest_.empty(); }
    void Fill(Buffer& out) override {
        const size_t count = std::min({rest_.size(), next_, out.Room()});
        std::memcpy(out.write, rest_.data(), count);
        out.write += count;
        rest_.remove_prefix(count);
        next_ -= count;
        next_ = next_ == 0 ? piece_ : next_;
    }

private:
    std::string_view rest_;
    size_t next_;  // what is left of the present piece
    size_t piece_;
};

#endif
