// A frequency: a signed 64-bit count of cycles per second, under the arithmetic of integers.
#ifndef VALUES_HERTZ_H
#define VALUES_HERTZ_H

#include "values/integer.h"

class hertz {
public:
    constexpr hertz() = default;
    explicit constexpr hertz(integer count) : count_(count) {}

    constexpr integer Count() const { return count_; }

    friend constexpr bool operator==(hertz, hertz) = default;
    friend constexpr auto operator<=>(hertz, hertz) = default;

    friend std::optional<hertz> operator+(hertz a, hertz b) { return Of(a.count_ + b.count_); }
    friend std::optional<hertz> operator-(hertz a, hertz b) { return Of(a.count_ - b.count_); }
    friend std::optional<hertz> operator%(hertz a, hertz b) { return Of(a.count_ % b.count_); }
    friend std::optional<hertz> operator*(hertz a, integer b) { return Of(a.count_ * b); }
    friend std::optional<hertz> operator*(integer a, hertz b) { return Of(a * b.count_); }
    friend std::optional<integer> operator/(hertz a, hertz b) { return a.count_ / b.count_; }
    friend std::optional<hertz> operator/(hertz a, integer b) { return Of(a.count_ / b); }
    friend std::optional<hertz> operator-(hertz a) { return Of(-a.count_); }

    // A frequency of the count, none for none.
    static std::optional<hertz> Of(std::optional<integer> count) {
        return count ? std::optional<hertz>(hertz(*count)) : std::nullopt;
    }

private:
    integer count_;
};

template <>
struct InspectorTypeInfo<hertz> : InspectorTypeBasics<hertz> {
    static constexpr char Name[] = "hertz";
    static constexpr unsigned Size = 8;
};

#endif
