// Values of the language out of what a host lends: texts as they stand, times by their microseconds.
#ifndef CLIENT_HOST_VALUES_H
#define CLIENT_HOST_VALUES_H

#include <optional>
#include <string_view>

#include "registry/core_values.h"
#include "values/integer.h"
#include "values/moment.h"

namespace HostValue {

inline std::optional<inspector_string> Text(std::optional<std::string_view> text) {
    return text ? std::optional<inspector_string>(inspector_string(*text)) : std::nullopt;
}

template <class Number>
std::optional<integer> Integer(std::optional<Number> number) {
    return number ? std::optional<integer>(integer(*number)) : std::nullopt;
}

inline std::optional<moment> Time(std::optional<int64_t> microseconds) {
    return microseconds ? std::optional<moment>(moment(*microseconds)) : std::nullopt;
}

// A value class over a record of the host's; none for no record.
template <class Value, class Record>
std::optional<Value> Over(const Record* record) {
    return record != nullptr ? std::optional<Value>(Value(*record)) : std::nullopt;
}

}  // namespace HostValue

#endif
