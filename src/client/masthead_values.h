// The values of masthead headers that are more than text, each read from the runs in which it comes.
#ifndef CLIENT_MASTHEAD_VALUES_H
#define CLIENT_MASTHEAD_VALUES_H

#include <cstdint>
#include <string>

#include "client/masthead.h"
#include "foundation/data_receiver.h"

// A decimal number of any length, with blanks and a sign before it; what follows it does not count.  A number that is
// too large is the nearest that can be held, and a text that is no number is 0.
class MastheadIntegerMaker final : public DataReceiver {
public:
    // `number` must outlive the maker, here and below.
    explicit MastheadIntegerMaker(int64_t& number) : number_(number) {}

    void Start() override;
    void Data(const unsigned char* begin, const unsigned char* end) override;
    void Finish() override {}

private:
    enum class At { Blanks, Digits, Rest };

    void Take(unsigned char byte);

    int64_t& number_;
    At at_ = At::Blanks;
    bool negative_ = false;
};

// How often the site is looked for anew: one of a few words, each a time in microseconds.  Any other text is a day.
class MastheadPeriodMaker final : public DataReceiver {
public:
    explicit MastheadPeriodMaker(int64_t& period) : period_(period) {}

    void Start() override { word_.Start(); }
    void Data(const unsigned char* begin, const unsigned char* end) override { word_.Data(begin, end); }
    void Finish() override;

private:
    // One byte more than the longest word, which tells that word from a longer one that begins with it.
    static constexpr size_t kLongestWord = 15;

    int64_t& period_;
    BoundedText<kLongestWord + 1> word_;
};

// A version, as its text and as the list of the numbers in it.
class MastheadVersionMaker final : public DataReceiver {
public:
    explicit MastheadVersionMaker(Masthead& masthead) : masthead_(masthead) {}

    void Start() override { masthead_.mastheadVersion.Start(); }
    void Data(const unsigned char* begin, const unsigned char* end) override {
        masthead_.mastheadVersion.Data(begin, end);
    }
    void Finish() override;

private:
    Masthead& masthead_;
};

// The whole of a text, in place of what was there.
class MastheadRelevanceMaker final : public DataReceiver {
public:
    explicit MastheadRelevanceMaker(std::string& relevance) : relevance_(relevance) {}

    void Start() override { relevance_.clear(); }
    void Data(const unsigned char* begin, const unsigned char* end) override { relevance_.append(begin, end); }
    void Finish() override {}

private:
    std::string& relevance_;
};

#endif
