// The texts of floating points: how they are read, and the three forms in which they are written.
//
// Only the digits that the threshold allows are written.  Standard notation has at most 64 digits and no exponent;
// scientific notation always has one, unless it is 0; the plain text chooses between the two.
#ifndef VALUES_FLOATING_POINT_TEXT_H
#define VALUES_FLOATING_POINT_TEXT_H

#include <optional>
#include <string_view>

#include "foundation/const_data.h"
#include "foundation/debuggable_exception.h"
#include "registry/core_values.h"
#include "values/floating_point.h"

// From 10 to the 64 on a number has no standard notation.
struct TooLargeForStandardNotation : DebuggableException {
    TooLargeForStandardNotation() noexcept : DebuggableException("TooLargeForStandardNotation") {}
};

// A text that is being written, inside itself.  Every form of every number fits; what would not throws
// ConstDataCapacityExceeded.
class FloatingPointText {
public:
    static constexpr size_t kCapacity = 74;

    std::string_view View() const { return {bytes_, length_}; }

    void Append(std::string_view text);
    void Append(char c, size_t count = 1);

private:
    char bytes_[kCapacity];
    size_t length_ = 0;
};

// Throws TooLargeForStandardNotation.
FloatingPointText StandardNotation(const floating_point& x);
FloatingPointText ScientificNotation(const floating_point& x);
// Kept as it stands: standard notation is chosen up to 10 to the 73, beyond what it can hold, and from 10 to the 64 on
// this throws TooLargeForStandardNotation.
FloatingPointText TextOf(const floating_point& x);

// The number that a text tells, none where it tells none.
std::optional<floating_point> ParseFloatingPoint(std::string_view text);

// The same as inspectors, with the texts in evaluation memory.
std::optional<floating_point> asFloatingPoint(const inspector_string& text);
inspector_string asString(const floating_point& x);
inspector_string asScientificNotation(const floating_point& x);
inspector_string asStandardNotation(const floating_point& x);

#endif
