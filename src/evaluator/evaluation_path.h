// The decisions that an evaluation took, as bits of one word: a leading 1 as sentinel, then one bit for each decision,
// the latest lowest.
#ifndef EVALUATOR_EVALUATION_PATH_H
#define EVALUATOR_EVALUATION_PATH_H

#include <cstdint>

class EvaluationPath {
public:
    // Writes decisions behind those of `word`; 0 is a path that has not begun.
    static EvaluationPath Writer(uint32_t word) {
        EvaluationPath path(word, false);
        for (; word != 0; word >>= 1) {
            ++path.bits_;
        }
        return path;
    }

    // Reads the decisions of `word` from the first; the sentinel is taken off.
    static EvaluationPath Reader(uint32_t word) {
        EvaluationPath path(word, true);
        path.bits_ = 31;
        while (path.word_ != 0 && (path.word_ & 0x80000000) == 0) {
            path.word_ <<= 1;
            --path.bits_;
        }
        path.word_ <<= 1;
        return path;
    }

    bool Reading() const { return reading_; }
    void Write(bool bit) {
        word_ = word_ << 1 | static_cast<uint32_t>(bit);
        ++bits_;
    }

    // The next decision; false once all are read.
    bool Read() {
        const bool bit =
            word_ >> 31 == 1;  // Masking the bit out here, g++ 12 folds a comparison of two decisions wrong.
        word_ <<= 1;
        --bits_;
        return bit;
    }
    bool AtEnd() const { return bits_ <= 0; }

    // A path written beyond 32 bits, the sentinel counted, has lost its beginning.
    bool TooLong() const { return bits_ > 32; }
    uint32_t Word() const { return word_; }

    // The number of bits written so far, the sentinel counted; of a reader, those still to be read.
    int64_t Bits() const { return bits_; }

private:
    EvaluationPath(uint32_t word, bool reading) : word_(word), reading_(reading) {}

    uint32_t word_;
    int64_t bits_ = 0;
    bool reading_;
};

#endif
