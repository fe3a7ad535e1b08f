#include "client/masthead_values.h"

#include <algorithm>
#include <string_view>

#include "foundation/character_set.h"

namespace {

struct Period {
    std::string_view word;
    int64_t seconds;
};

// clang-format off
constexpr Period kPeriods[] = {
    {"day",               86400},
    {"eight hours",       28800},
    {"fifteen minutes",     900},
    {"half day",          43200},
    {"half hour",          1800},
    {"hour",               3600},
    {"month",           2592000},
    {"two days",         172800},
    {"two months",      5184000},
    {"two weeks",       1209600},
    {"week",             604800},
};
// clang-format on

constexpr int64_t kMicroseconds = 1'000'000;

}  // namespace

void MastheadIntegerMaker::Start() {
    number_ = 0;
    at_ = At::Blanks;
    negative_ = false;
}

void MastheadIntegerMaker::Data(const unsigned char* begin, const unsigned char* end) {
    while (begin != end && at_ != At::Rest) {
        Take(*begin++);
    }
}

void MastheadIntegerMaker::Take(unsigned char byte) {
    if (at_ == At::Blanks) {
        if (CharacterSets::whiteSpace.Contains(byte)) {
            return;
        }
        at_ = At::Digits;
        if (byte == '+' || byte == '-') {
            negative_ = byte == '-';
            return;
        }
    }
    if (byte < '0' || byte > '9') {
        at_ = At::Rest;
        return;
    }
    const int64_t digit = byte - '0';
    int64_t larger = 0;
    if (__builtin_mul_overflow(number_, 10, &larger) ||
        __builtin_add_overflow(larger, negative_ ? -digit : digit, &larger)) {
        number_ = negative_ ? INT64_MIN : INT64_MAX;
        at_ = At::Rest;
        return;
    }
    number_ = larger;
}

void MastheadPeriodMaker::Finish() {
    static_assert(std::ranges::max(kPeriods, {}, [](const Period& period) { return period.word.size(); }).word.size() ==
                  kLongestWord);
    const auto* const period = std::ranges::lower_bound(kPeriods, word_.Text().View(), {}, &Period::word);
    const bool isThere = period != std::end(kPeriods) && period->word == word_.Text().View();
    period_ = isThere ? period->seconds * kMicroseconds : Masthead::kOneDay;
}

void MastheadVersionMaker::Finish() {
    masthead_.mastheadVersionList = StringToSiteVersionList(inspector_string(masthead_.mastheadVersion.Text().View()));
}
