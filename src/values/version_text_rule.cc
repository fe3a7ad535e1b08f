#include "values/version_text_rule.h"

namespace {

constexpr bool IsDigit(unsigned char c) { return c >= '0' && c <= '9'; }

// For digit runs that differ first in the bytes under the pointers: the longer run is the greater, of equal lengths the
// first difference decides.
int CompareRestOfRuns(const unsigned char* a, const unsigned char* b, int difference) {
    for (; IsDigit(*a); ++a, ++b) {
        if (!IsDigit(*b)) {
            return 1;
        }
    }
    return IsDigit(*b) ? -1 : difference;
}

}  // namespace

int CompareVersionTexts(const char* a, const char* b) {
    const auto* p = reinterpret_cast<const unsigned char*>(a);
    const auto* q = reinterpret_cast<const unsigned char*>(b);
    if (p == q) {
        return 0;
    }
    bool inDigits = false;
    bool onlyZeros = true;
    for (; *p == *q; ++p, ++q) {
        if (*p == '\0') {
            return 0;
        }
        inDigits = IsDigit(*p);
        onlyZeros = !inDigits || (onlyZeros && *p == '0');
    }
    const int difference = *p - *q;
    if (!inDigits && !(IsDigit(*p) && IsDigit(*q))) {
        return difference;
    }
    if (onlyZeros && *p == '0') {
        return -1;
    }
    if (onlyZeros && *q == '0') {
        return 1;
    }
    return CompareRestOfRuns(p, q, difference);
}
