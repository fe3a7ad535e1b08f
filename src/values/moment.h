// An instant: microseconds since the start of 1970 in universal time.
#ifndef VALUES_MOMENT_H
#define VALUES_MOMENT_H

#include <cstdint>

#include "registry/inspector_type_info.h"

class moment {
public:
    constexpr moment() = default;
    explicit constexpr moment(int64_t microseconds) : microseconds_(microseconds) {}

    constexpr int64_t Microseconds() const { return microseconds_; }

private:
    int64_t microseconds_ = 0;
};

template <>
struct InspectorTypeInfo<moment> : InspectorTypeBasics<moment> {
    static constexpr char Name[] = "time";
    static constexpr unsigned Size = 8;
};

#endif
