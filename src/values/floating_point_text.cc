#include "values/floating_point_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>

#include "evaluator/adapters.h"
#include "foundation/ascii.h"
#include "values/string.h"

void FloatingPointText::Append(std::string_view text) {
    if (text.size() > kCapacity - length_) {
        throw ConstDataCapacityExceeded();
    }
    std::copy(text.begin(), text.end(), bytes_ + length_);
    length_ += text.size();
}

void FloatingPointText::Append(char c, size_t count) {
    if (count > kCapacity - length_) {
        throw ConstDataCapacityExceeded();
    }
    std::fill_n(bytes_ + length_, count, c);
    length_ += count;
}

namespace {

bool IsFinite(long double x) { return ::fabsl(x) <= floating_point::kGreatest; }

// One unit in the last place of x, and never less than the least normal number.
long double UnitInLastPlace(long double x) {
    const long double magnitude = ::fabsl(x);
    return std::max(magnitude - ::nextafterl(magnitude, -1), floating_point::kLeastNormal);
}

// ---- Writing --------------------------------------------------------------------------------------------------------

// The n for which x lies from 10 to the n up to 10 to the n + 1; x is finite and above 0.  The logarithm is right to
// its last bits only, and those decide at the very powers: there the powers themselves are asked, the same ones that
// the digits are made with.
int Decade(long double x) {
    constexpr long double kDoubtful = 1e-14L;
    const long double logarithm = ::log10l(x);
    const long double nearest = NearestInteger(logarithm);
    if (::fabsl(logarithm - nearest) > kDoubtful) {
        return static_cast<int>(::floorl(logarithm));
    }
    const int n = static_cast<int>(nearest);
    return x < PowerOfTen(n) ? n - 1 : n;
}

// The place of a threshold at which every digit is lost.
constexpr int kNoPlace = std::numeric_limits<int>::max();

// The decimal place of the last digit of v that means something under the threshold.  The division keeps a threshold of
// exactly 0.1 or 1 on its own place in spite of rounding.
int Place(long double v, long double threshold) {
    const long double size = std::max(threshold, UnitInLastPlace(v)) / 0.95;
    return IsFinite(size) ? Decade(size) : kNoPlace;
}

// The decimal digits of an integer from 0 up to 10 to the 28, beyond what 64 bits hold.
class Digits {
public:
    explicit Digits(long double whole) {
        constexpr int kLowDigits = 10;
        constexpr long double kLow = 1e10L;
        const long double low = ::fmodl(whole, kLow);
        const auto high = static_cast<uint64_t>((whole - low) / kLow);
        char lowText[kLowDigits];
        const char* const lowEnd = std::to_chars(lowText, lowText + kLowDigits, static_cast<uint64_t>(low)).ptr;
        const auto lowLength = static_cast<size_t>(lowEnd - lowText);
        char* end = text_;
        if (high != 0) {
            end = std::to_chars(text_, text_ + sizeof text_, high).ptr;
            end = std::fill_n(end, kLowDigits - lowLength, '0');
        }
        end = std::copy_n(lowText, lowLength, end);
        length_ = static_cast<size_t>(end - text_);
    }
    std::string_view View() const { return {text_, length_}; }

private:
    char text_[32];
    size_t length_;
};

// What has the same text at every threshold and in every form; false for any other number.
bool AppendedWithoutDigits(FloatingPointText& text, long double v) {
    if (v != v) {
        text.Append("NaN");
    } else if (!IsFinite(v)) {
        text.Append(v < 0 ? "-infinity" : "+infinity");
    } else if (v == 0) {
        text.Append("0.0");
    } else {
        return false;
    }
    return true;
}

// Nothing of the number reaches the place: a zero down to there.
void AppendNothing(FloatingPointText& text, int place) {
    constexpr int kLowest = -64;
    text.Append('0');
    if (place < 0) {
        text.Append('.');
        text.Append('0', static_cast<size_t>(-std::max(place, kLowest)));
    }
}

void AppendStandardNotation(FloatingPointText& text, long double v, long double threshold) {
    constexpr int kMostDigits = 64;
    if (AppendedWithoutDigits(text, v)) {
        return;
    }
    if (std::signbit(v)) {
        text.Append('-');
    }
    const long double magnitude = ::fabsl(v);
    const int place = Place(v, threshold);
    if (place == kNoPlace || magnitude <= PowerOfTen(place) * 0.5L) {
        AppendNothing(text, place);
        return;
    }
    const int lowest = std::max(0, Decade(magnitude)) - (kMostDigits - 1);
    if (lowest > 0) {
        throw TooLargeForStandardNotation();
    }
    const int last = std::max(place, lowest);
    const Digits number(NearestInteger(magnitude * PowerOfTen(-last)));
    const std::string_view digits = number.View();
    if (last >= 0) {
        text.Append(digits);
        text.Append('0', static_cast<size_t>(last));
        return;
    }
    // Kept as it stands: a number below 1 has no zero before the point.
    const auto behind = static_cast<size_t>(-last);
    const size_t before = digits.size() > behind ? digits.size() - behind : 0;
    text.Append(digits.substr(0, before));
    text.Append('.');
    text.Append('0', behind - (digits.size() - before));
    text.Append(digits.substr(before));
}

void AppendScientificNotation(FloatingPointText& text, long double v, long double threshold) {
    const int place = IsFinite(v) && v != 0 ? Place(v, threshold) : kNoPlace;
    if (place == kNoPlace) {
        AppendStandardNotation(text, v, threshold);
        return;
    }
    const int exponent = std::max(place, Decade(::fabsl(v)));
    const long double scale = PowerOfTen(exponent);
    AppendStandardNotation(text, v / scale, threshold / scale);
    if (exponent != 0) {
        text.Append(exponent > 0 ? "e+" : "e-");
        text.Append(Digits(std::abs(exponent)).View());
    }
}

inspector_string InEvaluationMemory(const FloatingPointText& text) { return CopiedString(text.View()); }

}  // namespace

FloatingPointText StandardNotation(const floating_point& x) {
    FloatingPointText text;
    AppendStandardNotation(text, x.Value(), x.Threshold());
    return text;
}

FloatingPointText ScientificNotation(const floating_point& x) {
    FloatingPointText text;
    AppendScientificNotation(text, x.Value(), x.Threshold());
    return text;
}

FloatingPointText TextOf(const floating_point& x) {
    constexpr long double kTooLarge = 1e73L;
    constexpr int kTooFine = -73;
    const long double v = x.Value();
    const bool plain = !IsFinite(v) || v == 0 || (::fabsl(v) < kTooLarge && Place(v, x.Threshold()) > kTooFine);
    return plain ? StandardNotation(x) : ScientificNotation(x);
}

inspector_string asString(const floating_point& x) { return InEvaluationMemory(TextOf(x)); }
inspector_string asScientificNotation(const floating_point& x) { return InEvaluationMemory(ScientificNotation(x)); }
inspector_string asStandardNotation(const floating_point& x) { return InEvaluationMemory(StandardNotation(x)); }

// ---- Reading --------------------------------------------------------------------------------------------------------

namespace {

constexpr char kBlank = ' ';

void SkipBlanks(std::string_view& text) { text.remove_prefix(std::min(text.find_first_not_of(kBlank), text.size())); }

// Takes one sign from the front, with the blanks before it; true for a minus.
bool TakeSign(std::string_view& text, bool& isSigned) {
    SkipBlanks(text);
    const bool negative = !text.empty() && text.front() == '-';
    isSigned = negative || (!text.empty() && text.front() == '+');
    text.remove_prefix(isSigned ? 1 : 0);
    return negative;
}

// The digits among blanks; none where there is anything else.
std::optional<size_t> CountDigits(std::string_view text) {
    size_t count = 0;
    for (char c : text) {
        if (c >= '0' && c <= '9') {
            ++count;
        } else if (c != kBlank) {
            return std::nullopt;
        }
    }
    return count;
}

std::optional<floating_point> ParseName(std::string_view text) {
    bool isSigned;
    const bool negative = TakeSign(text, isSigned);
    SkipBlanks(text);
    text = text.substr(0, text.find_last_not_of(kBlank) + 1);
    const auto is = [text](std::string_view name) { return Ascii::EqualIgnoringCase(text, name); };
    constexpr long double kInfinity = std::numeric_limits<long double>::infinity();
    if (is("inf") || is("infinity")) {
        return floating_point(negative ? -kInfinity : kInfinity, 1, 0);
    }
    if (!isSigned && is("nan")) {
        return floating_point(std::numeric_limits<long double>::quiet_NaN(), 1, 0);
    }
    return std::nullopt;
}

// An exponent, none for a text that is no number.  It stops growing where no text is long enough to bring it back into
// the range of numbers.
std::optional<int64_t> ParseExponent(std::string_view text) {
    constexpr int64_t kFarEnough = 100'000'000'000'000'000;
    bool isSigned;
    const bool negative = TakeSign(text, isSigned);
    if (CountDigits(text).value_or(0) == 0) {
        return std::nullopt;
    }
    int64_t exponent = 0;
    for (char c : text) {
        if (c != kBlank && exponent < kFarEnough) {
            exponent = exponent * 10 + (c - '0');
        }
    }
    return negative ? -exponent : exponent;
}

// The digits of a mantissa, added up from the last to the first, each at the next higher place.
class DigitSum {
public:
    explicit DigitSum(int64_t lowestPlace) : place_(lowestPlace) {}

    void Add(std::string_view digits) {
        for (size_t i = digits.size(); i-- != 0;) {
            if (digits[i] != kBlank) {
                AddDigit(digits[i] - '0');
            }
        }
    }

    long double Value() const { return value_; }
    // The zeros at the end.
    size_t TrailingZeros() const { return trailingZeros_; }
    bool AnyButZero() const { return anyButZero_; }

private:
    void AddDigit(int digit) {
        if (digit != 0) {
            value_ += digit * PowerOfTen(place_);
            anyButZero_ = true;
        }
        trailingZeros_ += anyButZero_ ? 0 : 1;
        ++place_;
    }

    long double value_ = 0;
    int64_t place_;
    size_t trailingZeros_ = 0;
    bool anyButZero_ = false;
};

unsigned FlagsOf(const DigitSum& sum) {
    if (sum.Value() > floating_point::kGreatest) {
        return floating_point::kOverflow | floating_point::kInexact;
    }
    if (sum.Value() < floating_point::kLeastNormal && sum.AnyButZero()) {
        return floating_point::kUnderflow | floating_point::kInexact;
    }
    return 0;
}

std::optional<floating_point> ParseNumeral(std::string_view text) {
    const size_t e = text.find_first_of("eE");
    const bool hasExponent = e != text.npos;
    const std::optional<int64_t> exponent = hasExponent ? ParseExponent(text.substr(e + 1)) : 0;

    const std::string_view mantissa = text.substr(0, e);
    const size_t point = mantissa.find('.');
    const bool hasPoint = point != mantissa.npos;
    std::string_view whole = mantissa.substr(0, point);
    const std::string_view fraction = hasPoint ? mantissa.substr(point + 1) : std::string_view();
    bool isSigned;
    const bool negative = TakeSign(whole, isSigned);

    const std::optional<size_t> wholeDigits = CountDigits(whole);
    const std::optional<size_t> fractionDigits = CountDigits(fraction);
    if (!exponent || !wholeDigits || !fractionDigits || *wholeDigits + *fractionDigits == 0) {
        return std::nullopt;
    }

    const int64_t lowestPlace = *exponent - static_cast<int64_t>(*fractionDigits);
    DigitSum sum(lowestPlace);
    sum.Add(fraction);
    sum.Add(whole);
    const int64_t thresholdPlace =
        hasPoint || hasExponent ? lowestPlace : static_cast<int64_t>(std::min(sum.TrailingZeros(), *wholeDigits - 1));
    const long double threshold = std::max(PowerOfTen(thresholdPlace), UnitInLastPlace(sum.Value()));
    return floating_point(negative ? -sum.Value() : sum.Value(), threshold, FlagsOf(sum));
}

}  // namespace

// A letter n makes a name of any text.  A text without digits is no numeral, the empty text among them.
std::optional<floating_point> ParseFloatingPoint(std::string_view text) {
    return text.find_first_of("nN") != text.npos ? ParseName(text) : ParseNumeral(text);
}

std::optional<floating_point> asFloatingPoint(const inspector_string& text) { return ParseFloatingPoint(text.View()); }
