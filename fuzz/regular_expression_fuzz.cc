// A short pattern and an arbitrary subject, searched in every way that the language has.
//
// The first byte tells the flags and the second the pattern's length.  Patterns are short and subjects too, since what
// the C library makes of a back-reference can take a time that grows with their product many times over; such patterns
// are left out.  Whatever is found must lie in the subject, and no search may find what a later start would not.
#include <cstddef>
#include <cstdint>
#include <vector>

#include "fuzz/expect.h"
#include "values/pattern_cost.h"
#include "values/regular_expression.h"

namespace {

constexpr size_t kLongestPattern = 32;
constexpr size_t kLongestSubject = 256;
constexpr size_t kMostNodes = 2000;

bool HasBackReference(std::string_view pattern) {
    for (size_t i = 0; i + 1 < pattern.size(); ++i) {
        if (pattern[i] == '\\' && pattern[i + 1] >= '1' && pattern[i + 1] <= '9') {
            return true;
        }
    }
    return false;
}

void SearchEverywhere(const CompiledExpression& expression, const inspector_string& subject) {
    std::vector<regmatch_t> parts(expression.PartCount());
    for (size_t from = 0; from <= subject.length; ++from) {
        const bool found = expression.Search(subject, from, parts.data(), parts.size());
        Expect(found == expression.Search(subject, from, nullptr, 0));
        if (!found) {
            break;
        }
        const regular_expression_match match(parts.data(), parts.size(), subject);
        Expect(match.Offset() >= from && match.EndOffset() <= subject.length);
        for (size_t part = 1; part < match.PartCount(); ++part) {
            Expect(match.Part(part).EndOffset() <= subject.length);
        }
        from = match.Offset();
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < 2) {
        return 0;
    }
    const std::string_view rest(reinterpret_cast<const char*>(data) + 2, size - 2);
    const std::string_view pattern = rest.substr(0, data[1] % (kLongestPattern + 1));
    const std::string_view subject = rest.substr(pattern.size()).substr(0, kLongestSubject);
    const std::string_view text = pattern.substr(0, pattern.find('\0'));
    if (CostOfPattern(text).nodes > kMostNodes || HasBackReference(text)) {
        return 0;
    }
    try {
        const CompiledExpression expression(text, (data[0] & 1) != 0 ? REG_EXTENDED | REG_ICASE : REG_EXTENDED);
        SearchEverywhere(expression, inspector_string(subject));
    } catch (const RegComp_Failed&) {
    }
    return 0;
}
