// A text that is read in pieces of a size of the test's choice.
#ifndef TESTS_INSPECTORS_TEXT_READER_H
#define TESTS_INSPECTORS_TEXT_READER_H

#include <algorithm>
#include <cstring>
#include <string_view>

#include "foundation/data_reader.h"

class TextReader final : public DataReader {
public:
    explicit TextReader(std::string_view text, size_t piece = SIZE_MAX) : rest_(text), piece_(piece) {}

    bool AtEnd() override { return rest_.empty(); }
    void Fill(Buffer& out) override {
        const size_t count = std::min({rest_.size(), piece_, out.Room()});
        std::memcpy(out.write, rest_.data(), count);
        out.write += count;
        rest_.remove_prefix(count);
    }

private:
    std::string_view rest_;
    size_t piece_;
};

#endif
