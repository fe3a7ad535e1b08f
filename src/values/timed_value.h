// A value that holds for a stretch of time: the tuple of the range and the value, under a name of its own.
#ifndef VALUES_TIMED_VALUE_H
#define VALUES_TIMED_VALUE_H

#include "evaluator/adapters.h"
#include "values/integer.h"
#include "values/time_range.h"

// Holds its elements, so that its nodes point into itself.
template <class T>
class TimedValue : public InspectorTuple2<time_range, T> {
public:
    TimedValue(const time_range& range, const T& value) : range_(range), value_(value) { Join(); }
    TimedValue(const TimedValue& other) : InspectorTuple2<time_range, T>(), range_(other.range_), value_(other.value_) {
        Join();
    }
    TimedValue& operator=(const TimedValue&) = delete;

private:
    void Join() {
        this->nodes[0] = {&range_, &this->nodes[1]};
        this->nodes[1] = {&value_, nullptr};
    }

    time_range range_;
    T value_;
};

template <class T>
struct InspectorTypeInfo<TimedValue<T>> : InspectorTypeBasics<TimedValue<T>, 0> {
    static constexpr auto kName =
        type_names::Join("timed ", InspectorTypeInfo<InspectorTuple2<time_range, T>>::kName.text);
    static constexpr const char* Parent = InspectorTypeInfo<InspectorTuple2<time_range, T>>::TypeName();
    static constexpr unsigned Size = 4 * sizeof(void*);  // that of its tuple
    static constexpr const char* TypeName() { return kName.text; }
};

template <class T>
TimedValue<T> RangeTimesValue(const time_range& range, const T& value) {
    return {range, value};
}
template <class T>
TimedValue<T> ValueTimesRange(const T& value, const time_range& range) {
    return {range, value};
}

template <class T>
struct TimedValueRegistration {
    Type<TimedValue<T>> type;
    OperatorTimes<time_range, T, TimedValue<T>, RangeTimesValue<T>> rangeTimesValue;
    OperatorTimes<T, time_range, TimedValue<T>, ValueTimesRange<T>> valueTimesRange;
};

#endif
